#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <functional>

/// The program as its user starts it, in a process of its own: the launcher with some arguments.
class Program
{
public:
    /// `home` becomes the program folder.
    explicit Program(const QString &home);
    ~Program();
    Program(const Program &) = delete;

    /// Runs in the new process before the program does.
    void beforeStart(std::function<void()> act) { m_process.setChildProcessModifier(std::move(act)); }
    void setFolder(const QString &folder) { m_process.setWorkingDirectory(folder); }
    bool start(const QStringList &arguments = {});
    /// Waits until later starts find the window.
    bool waitForWindow() const;
    bool isRunning() const { return m_process.state() == QProcess::Running; }
    int id() const { return static_cast<int>(m_process.processId()); }

    /// Waits for the end; the exit code, -1 for any other end or none within `milliseconds`.
    int waitForEnd(int milliseconds);
    /// Ends the program by a signal, as log-out does, and gives the exit code.
    int end(int signal, int milliseconds = 5000);
    /// Lines of its output that a flawless run does not have.
    QStringList complaints();

private:
    QString m_home;
    QProcess m_process;
};
