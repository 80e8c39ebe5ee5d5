#pragma once

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QWebEngineDownloadRequest>
#include <QWebEnginePage>
#include <functional>

namespace engine {

/// Saves what pages download, without asking, into one folder and under a name that is not taken. A download goes on
/// when its page has closed; it ends with the engine.
class Downloads : public QObject
{
    Q_OBJECT
public:
    /// `status` tells the document of `page` (null when it has gone) how things stand.
    using Status = std::function<void(QWebEnginePage *page, const QString &text)>;
    Downloads(const QString &folder, Status status);

    void start(QWebEngineDownloadRequest *download);
    bool isRunning(quint32 id) const { return m_running.contains(id); }
    /// Something comes from the network right now.
    bool isBusy() const;
    /// For what starts from now on.
    void setFolder(const QString &folder) { m_folder = folder; }

private:
    struct Entry
    {
        QPointer<QWebEngineDownloadRequest> download;
        QPointer<QWebEnginePage> page;
        QString name;
        int percent = -1;
    };
    QString freeName(const QString &wanted) const;
    void report(QWebEngineDownloadRequest &download);

    QString m_folder;
    Status m_status;
    /// By the engine's number. A connection that breaks is taken up again under the same number.
    QHash<quint32, Entry> m_running;
};

} // namespace engine
