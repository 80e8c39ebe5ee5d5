#pragma once

#include "engine/PageFacets.h"

#include <QObject>
#include <QTimer>
#include <deque>

class QWebEnginePage;

namespace engine {

/// Makes PDFs of a page. The engine never answers a second request that comes before the end of the first, so they
/// wait in line.
class PagePrinter : public QObject, public PrintFacet
{
    Q_OBJECT
public:
    explicit PagePrinter(QWebEnginePage &page);

    void makePdf(const PageSetup &setup, const QPageRanges &ranges,
                 std::function<void(const QByteArray &pdf)> done) override;

private:
    struct Order
    {
        PageSetup setup;
        QPageRanges ranges;
        std::function<void(const QByteArray &)> done;
    };
    void begin();
    void make();
    void finish(const QByteArray &pdf);

    QWebEnginePage &m_page;
    std::deque<Order> m_orders;
    /// Runs out when the page's process hangs.
    QTimer m_patience;
    /// Number of the order that is being made.
    int m_number = 0;
};

} // namespace engine
