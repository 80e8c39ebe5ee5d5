#include "engine/webengine/PageSaver.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QWebEnginePage>
#include <cstdint>
#include <filesystem>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

constexpr int kPatienceMs = 20'000;
/// With less than this left after saving, a part has probably not been written.
constexpr std::uintmax_t kLeastSpace = 64 * 1024;

/// Renames over what is there.
bool rename(const QString &from, const QString &to)
{
    std::error_code error;
    std::filesystem::rename(QFile::encodeName(from).toStdString(), QFile::encodeName(to).toStdString(), error);
    return !error;
}

/// Asks the file system itself: a list of mounts need not name it. Where there is no answer, nothing speaks against it.
bool isSpaceUsedUp(const QString &file)
{
    std::error_code error;
    const auto space = std::filesystem::space(QFile::encodeName(file).toStdString(), error);
    return !error && space.available < kLeastSpace;
}

/// The folder with the parts of a saved page, by the name of its file.
QString partsOf(const QString &path)
{
    const QFileInfo file(path);
    return file.dir().filePath(file.completeBaseName() + "_files"_L1);
}

} // namespace

QString PageSaver::Job::written() const
{
    return folder->filePath(QFileInfo(path).fileName());
}

PageSaver::PageSaver(QWebEnginePage &page)
    : m_page(page)
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(kPatienceMs);
    connect(&m_patience, &QTimer::timeout, this, [this] { end(false); });
    connect(
        &page, &QWebEnginePage::renderProcessTerminated, this, [this] { end(false); }, Qt::QueuedConnection);
}

PageSaver::~PageSaver() = default;

void PageSaver::save(const QString &path, SaveFormat format, std::function<void(bool)> done)
{
    const QFileInfo target(path);
    auto folder = std::make_unique<QTemporaryDir>(target.dir().filePath(u".saving-XXXXXX"_s));
    const bool isBlocked = target.exists() && (target.isDir() || !target.isWritable());
    if (m_job || !folder->isValid() || isBlocked || m_page.renderProcessPid() == 0) {
        QTimer::singleShot(0, this, [done] { done(false); });
        return;
    }
    m_job = std::make_unique<Job>(Job{path, std::move(folder), std::move(done), {}});
    m_patience.start();
    using Request = QWebEngineDownloadRequest;
    m_page.save(m_job->written(), format == SaveFormat::Complete     ? Request::CompleteHtmlSaveFormat
                                  : format == SaveFormat::SingleFile ? Request::MimeHtmlSaveFormat
                                                                     : Request::SingleHtmlSaveFormat);
}

bool PageSaver::takes(QWebEngineDownloadRequest &download)
{
    if (!m_job || download.page() != &m_page)
        return false;
    if (m_job->download)
        return m_job->download->id() == download.id();
    // A page that is no HTML becomes an ordinary download of its address.
    if (!download.isSavePageDownload() && download.url() != m_page.url())
        return false;
    m_patience.stop();
    m_job->download = &download;
    if (download.state() == QWebEngineDownloadRequest::DownloadRequested) {
        download.setDownloadDirectory(m_job->folder->path());
        download.setDownloadFileName(QFileInfo(m_job->path).fileName());
        download.accept();
    }
    connect(&download, &QWebEngineDownloadRequest::isFinishedChanged, this, &PageSaver::finished, Qt::QueuedConnection);
    if (download.isFinished())
        QTimer::singleShot(0, this, &PageSaver::finished);
    return true;
}

void PageSaver::finished()
{
    if (!m_job || !m_job->download || !m_job->download->isFinished())
        return;
    end(m_job->download->state() == QWebEngineDownloadRequest::DownloadCompleted && putInPlace());
}

bool PageSaver::putInPlace() const
{
    const QString written = m_job->written();
    if (!QFileInfo(written).isFile() || isSpaceUsedUp(written))
        return false;
    const QString parts = partsOf(written);
    const QString oldParts = m_job->folder->filePath(u".old"_s);
    const QString target = partsOf(m_job->path);
    const bool hasParts = QFileInfo(parts).isDir();
    const bool hadParts = hasParts && QFileInfo::exists(target);
    if (hadParts && !rename(target, oldParts))
        return false;
    if (hasParts && !rename(parts, target)) {
        if (hadParts)
            rename(oldParts, target);
        return false;
    }
    if (rename(written, m_job->path))
        return true;
    if (hasParts)
        rename(target, parts);
    if (hadParts)
        rename(oldParts, target);
    return false;
}

void PageSaver::end(bool saved)
{
    m_patience.stop();
    if (const std::unique_ptr<Job> job = std::move(m_job))
        job->done(saved);
}

} // namespace engine
