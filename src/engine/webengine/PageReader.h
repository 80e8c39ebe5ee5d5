#pragma once

#include "engine/PageFacets.h"

#include <QObject>

class QWebEnginePage;

namespace engine {

/// What a page and its engine tell of the page.
class PageReader : public QObject, public InfoFacet
{
    Q_OBJECT
public:
    /// What the browser knows of its page beside the page itself.
    using Known = std::function<void(PageInfo &info)>;
    PageReader(QWebEnginePage &page, Known known);

    PageInfo known() const override;
    void read(std::function<void(const PageInfo &info)> done) override;

private:
    QWebEnginePage &m_page;
    Known m_known;
    QDateTime m_loaded;
};

} // namespace engine
