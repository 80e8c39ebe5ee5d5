#pragma once

#include <QDeadlineTimer>
#include <QDir>
#include <QTemporaryDir>
#include <QThread>

/// A temporary folder that an engine has worked in. Threads and processes of an engine that has ended may still write
/// for a moment, so its removal is tried again where QTemporaryDir would give up with a warning.
class HomeFolder
{
public:
    HomeFolder() { m_folder.setAutoRemove(false); }
    ~HomeFolder()
    {
        const QDeadlineTimer deadline(5000);
        while (!QDir(path()).removeRecursively() && !deadline.hasExpired())
            QThread::msleep(20);
    }
    HomeFolder(const HomeFolder &) = delete;

    bool isValid() const { return m_folder.isValid(); }
    QString path() const { return m_folder.path(); }
    QString filePath(const QString &name) const { return m_folder.filePath(name); }

private:
    QTemporaryDir m_folder;
};
