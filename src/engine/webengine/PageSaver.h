#pragma once

#include "engine/PageFacets.h"

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWebEngineDownloadRequest>
#include <memory>

class QTemporaryDir;
class QWebEnginePage;

namespace engine {

/// Saves a page. The engine says that it has saved even where it could write nothing, so everything goes into a new
/// folder beside the target first and takes its place only when it is there.
class PageSaver : public QObject, public SaveFacet
{
    Q_OBJECT
public:
    explicit PageSaver(QWebEnginePage &page);
    ~PageSaver() override;

    void save(const QString &path, SaveFormat format, std::function<void(bool saved)> done) override;
    bool isSaving() const override { return m_job != nullptr; }
    /// Whether the download is what the engine makes of the saving; then it is taken care of.
    bool takes(QWebEngineDownloadRequest &download);

private:
    struct Job
    {
        QString path;
        std::unique_ptr<QTemporaryDir> folder;
        std::function<void(bool)> done;
        QPointer<QWebEngineDownloadRequest> download;
        QString written() const;
    };
    void finished();
    void end(bool saved);
    bool putInPlace() const;

    QWebEnginePage &m_page;
    std::unique_ptr<Job> m_job;
    /// Runs out when the engine does not begin.
    QTimer m_patience;
};

} // namespace engine
