#include "engine/webengine/PageFinder.h"

#include <QPointer>
#include <QWebEngineFindTextResult>
#include <QWebEnginePage>
#include <QWebEngineScript>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

/// While somebody types the engine goes on from the present hit; once the marks are gone it would go on behind it.
constexpr int kTypingMs = 700;

} // namespace

PageFinder::PageFinder(QWebEnginePage &page)
    : m_page(page)
{
    m_unmark.setSingleShot(true);
    connect(&m_unmark, &QTimer::timeout, this, &PageFinder::endFind);
}

void PageFinder::find(const QString &text, const FindOptions &options, std::function<void(FindHits)> done)
{
    m_unmark.stop();
    // The engine goes on with the same text as it began, whatever the flags say.
    if (std::exchange(m_matchedCase, options.matchCase) != options.matchCase) {
        endFind();
        // The new search begins at the selection, which is the present hit: before it, so that it can be found again.
        if (options.typing)
            m_page.runJavaScript(u"getSelection().collapseToStart()"_s, QWebEngineScript::ApplicationWorld);
    }
    QWebEnginePage::FindFlags flags;
    flags.setFlag(QWebEnginePage::FindBackward, options.backward);
    flags.setFlag(QWebEnginePage::FindCaseSensitively, options.matchCase);
    const QPointer<PageFinder> guard(this);
    m_page.findText(text, flags, [guard, options, done](const QWebEngineFindTextResult &result) {
        if (!guard)
            return;
        const FindHits hits{result.activeMatch(), result.numberOfMatches()};
        if (!options.highlightAll && hits.count > 0)
            guard->m_unmark.start(options.typing ? kTypingMs : 0);
        QTimer::singleShot(0, guard, [done, hits] { done(hits); });
    });
}

void PageFinder::endFind()
{
    m_unmark.stop();
    m_page.findText({});
}

} // namespace engine
