#include "engine/webengine/Downloads.h"

#include "base/Strings.h"

#include <QDir>
#include <QFileInfo>
#include <QMimeDatabase>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

/// The name that the page or its server has given to the file. What has none gets one from the engine that nobody would
/// know again in a folder.
QString givenName(const QWebEngineDownloadRequest &download)
{
    constexpr QLatin1StringView kOfEngine("qwe_");
    const QString name = download.downloadFileName();
    return name.startsWith(kOfEngine + "download"_L1) ? name.mid(kOfEngine.size()) : name;
}

} // namespace

Downloads::Downloads(const QString &folder, Status status)
    : m_folder(folder)
    , m_status(std::move(status))
{}

void Downloads::start(QWebEngineDownloadRequest *download)
{
    const bool isNew = !m_running.contains(download->id());
    const QString name = isNew ? freeName(givenName(*download)) : m_running.value(download->id()).name;
    // A page that is being saved to a place of its own runs already.
    if (download->state() == QWebEngineDownloadRequest::DownloadRequested) {
        download->setDownloadDirectory(m_folder);
        download->setDownloadFileName(name);
        download->accept();
    }
    Entry &entry = m_running[download->id()];
    if (entry.download != download) {
        entry.download = download;
        connect(download, &QWebEngineDownloadRequest::receivedBytesChanged, this,
                [this, download] { report(*download); });
        connect(download, &QWebEngineDownloadRequest::stateChanged, this, [this, download] { report(*download); });
    }
    // A download must not be asked for its page once that has gone, so the page is remembered here.
    entry.page = download->page();
    entry.name = download->downloadFileName();
    report(*download);
}

bool Downloads::isBusy() const
{
    return std::any_of(m_running.begin(), m_running.end(), [](const Entry &entry) {
        return entry.download && entry.download->state() == QWebEngineDownloadRequest::DownloadInProgress;
    });
}

/// `wanted`, or the first of "wanted (2)", ... that neither a file nor a download that is still running has.
QString Downloads::freeName(const QString &wanted) const
{
    const QDir folder(m_folder);
    const auto taken = [&](const QString &name) {
        const QString path = folder.filePath(name);
        return QFileInfo::exists(path) || QFileInfo::exists(path + ".download"_L1) ||
               std::any_of(m_running.begin(), m_running.end(), [&](const Entry &entry) { return entry.name == name; });
    };
    const QString plain = wanted.isEmpty() ? u"download"_s : wanted;
    // "a.tar.gz" keeps both of its endings.
    static const QMimeDatabase types;
    QString ending = types.suffixForFileName(plain);
    if (ending.isEmpty())
        ending = QFileInfo(plain).suffix();
    if (!ending.isEmpty())
        ending.prepend(u'.');
    const QString stem = plain.chopped(ending.size());
    QString name = plain;
    for (int number = 2; taken(name); ++number)
        name = u"%1 (%2)%3"_s.arg(stem).arg(number).arg(ending);
    return name;
}

void Downloads::report(QWebEngineDownloadRequest &download)
{
    const auto found = m_running.find(download.id());
    if (found == m_running.end())
        return;
    const QString name = download.downloadFileName();
    switch (download.state()) {
    case QWebEngineDownloadRequest::DownloadRequested:
    case QWebEngineDownloadRequest::DownloadInProgress: {
        const qint64 total = download.totalBytes();
        const int percent = total > 0 ? static_cast<int>(download.receivedBytes() * 100 / total) : 0;
        if (std::exchange(found->percent, percent) != percent)
            m_status(found->page,
                     total > 0 ? LoadResString(20101).arg(name).arg(percent) : LoadResString(20102).arg(name));
        return;
    }
    case QWebEngineDownloadRequest::DownloadCompleted:
        m_status(found->page, LoadResString(20103).arg(name, QDir::toNativeSeparators(download.downloadDirectory())));
        break;
    case QWebEngineDownloadRequest::DownloadCancelled:
        m_status(found->page, LoadResString(20104).arg(name));
        break;
    case QWebEngineDownloadRequest::DownloadInterrupted:
        m_status(found->page, LoadResString(20105).arg(name, download.interruptReasonString()));
        // The engine may take it up again under the same number, and then it keeps its name.
        return;
    }
    m_running.erase(found);
}

} // namespace engine
