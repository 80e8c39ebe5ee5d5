#pragma once

#include "engine/PageFacets.h"

#include <QObject>
#include <QTimer>
#include <deque>
#include <functional>
#include <memory>

class QWebEnginePage;

namespace engine {

/// An order to print that the engine has not answered. It goes down when the page is deleted in between, so a page that
/// nobody needs any more has to wait for that.
struct PrintDebt
{
    bool isOpen = false;
    /// Called from inside the engine.
    std::function<void()> onPaid;
};

/// Makes PDFs of a page. The engine never answers a second request that comes before the end of the first, so they
/// wait in line.
class PagePrinter : public QObject, public PrintFacet
{
    Q_OBJECT
public:
    explicit PagePrinter(QWebEnginePage &page);

    void makePdf(const PageSetup &setup, const QPageRanges &ranges,
                 std::function<void(const QByteArray &pdf)> done) override;
    const std::shared_ptr<PrintDebt> &debt() const { return m_debt; }

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
    const std::shared_ptr<PrintDebt> m_debt = std::make_shared<PrintDebt>();
};

} // namespace engine
