#include "engine/webengine/PageReader.h"

#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPointer>
#include <QTimer>
#include <QWebEnginePage>
#include <QWebEngineScript>
#include <memory>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

/// World of the script that reads the page, out of the page's own reach.
constexpr quint32 kReaderWorld = QWebEngineScript::UserWorld + 7;
constexpr int kPatienceMs = 2000;

/// A document without a time of its own gives the present time as its last change.
const QString &readerScript()
{
    static const QString script = uR"JS((function () {
    const load = performance.getEntriesByType('navigation')[0] || {}, modified = Date.parse(document.lastModified);
    return JSON.stringify({ type: document.contentType, set: document.characterSet, size: load.decodedBodySize || -1,
        protocol: load.nextHopProtocol || '', modified: modified < performance.timeOrigin - 2000 ? modified : -1 });
})();)JS"_s;
    return script;
}

void take(PageInfo &info, const QString &answer)
{
    const QJsonObject told = QJsonDocument::fromJson(answer.toUtf8()).object();
    info.contentType = told["type"_L1].toString();
    info.encoding = told["set"_L1].toString();
    info.protocol = told["protocol"_L1].toString();
    info.size = told["size"_L1].toInteger(-1);
    if (const qint64 modified = told["modified"_L1].toInteger(-1); modified > 0)
        info.modified = QDateTime::fromMSecsSinceEpoch(modified);
    if (!info.url.isLocalFile())
        return;
    const QFileInfo file(info.url.toLocalFile());
    if (file.isFile()) {
        info.size = file.size();
        info.modified = file.lastModified();
    }
}

} // namespace

PageReader::PageReader(QWebEnginePage &page, Known known)
    : m_page(page)
    , m_known(std::move(known))
{
    connect(&page, &QWebEnginePage::loadStarted, this, [this] { m_loaded = {}; });
    connect(&page, &QWebEnginePage::loadFinished, this, [this] { m_loaded = QDateTime::currentDateTime(); });
}

PageInfo PageReader::known() const
{
    PageInfo info;
    info.url = m_page.url().adjusted(QUrl::RemovePassword);
    info.loaded = m_loaded;
    m_known(info);
    return info;
}

void PageReader::read(std::function<void(const PageInfo &)> done)
{
    // Whichever comes first answers: the page, or the end of patience with one that hangs or has ended.
    auto once = std::make_shared<std::function<void(const PageInfo &)>>(std::move(done));
    const QPointer<PageReader> guard(this);
    const auto answer = [guard, once](const QString &told) {
        if (!guard || !*once)
            return;
        PageInfo info = guard->known();
        take(info, told);
        std::exchange(*once, nullptr)(info);
    };
    m_page.runJavaScript(readerScript(), kReaderWorld, [guard, answer](const QVariant &told) {
        if (guard)
            QTimer::singleShot(0, guard, [answer, told] { answer(told.toString()); });
    });
    QTimer::singleShot(kPatienceMs, this, [answer] { answer({}); });
}

} // namespace engine
