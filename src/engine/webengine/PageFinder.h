#pragma once

#include "engine/PageFacets.h"

#include <QObject>
#include <QTimer>

class QWebEnginePage;

namespace engine {

/// Finds text in a page with all its frames.
class PageFinder : public QObject
{
    Q_OBJECT
public:
    explicit PageFinder(QWebEnginePage &page);

    void find(const QString &text, const FindOptions &options, std::function<void(FindHits)> done);
    void endFind();

private:
    QWebEnginePage &m_page;
    /// Takes the marks of all hits away where only the present one is wanted: the engine always marks them all, and
    /// leaves the present one selected when it stops.
    QTimer m_unmark;
    bool m_matchedCase = false;
};

} // namespace engine
