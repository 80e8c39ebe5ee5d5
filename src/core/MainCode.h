#pragma once

#include "core/state/ProcessFlags.h"
#include "core/state/Settings.h"

#include "desktop/instance/Instance.h"

#include <QByteArray>
#include <QString>
#include <functional>
#include <memory>

namespace desktop {
class Dialogs;
class InstanceMark;
class Sound;
class TrayIcon;
struct Paths;
} // namespace desktop
namespace engine {
class Engine;
}
class SettingsStore;
class frmMain;

/// What the program stands on. main makes the real things, tests make doubles.
struct Ground
{
    const desktop::Paths &paths;
    SettingsStore &store;
    engine::Engine &engine;
    desktop::Dialogs &dialogs;
    desktop::TrayIcon &tray;
    desktop::Sound &sound;
};

/// Hears the name of each step of start and close as it begins.
using LifecycleTrace = std::function<void(const QString &step)>;

/// The process: its entry, its process-wide values and the single instance rule. main owns the one object, which must
/// go before the engine does.
class MainCode
{
public:
    explicit MainCode(const Ground &ground, LifecycleTrace trace = {});
    ~MainCode();
    MainCode(const MainCode &) = delete;
    MainCode &operator=(const MainCode &) = delete;

    /// The process entry. A later instance hands `command`, the text of the command line, to the first one and returns
    /// false without having made a window. The first instance returns true with its main window on the screen.
    bool Main(const QString &command);

    /// Tries to own a name. False exactly when another process owns it.
    bool IsFirstInstance(const char *mutexName);
    /// Sends the command line to the first marked window and waits a bounded time; ends silently when there is none.
    void HandOverToFirstInstance();
    void ReleaseInstanceMutex();
    /// From here on later instances find the main window.
    void MarkMainWindow();
    void SubclassMainWindow() { m_subclassed = true; }
    void UnsubclassMainWindow() { m_subclassed = false; }
    /// A message of a later instance: `cbData` is the number of bytes as the sender gave it.
    void MainWindowProc(int32_t cbData, const QByteArray &bytes);

    /// Text of the command line with its surrounding quotes taken off: with a quote in front, the first and the last
    /// character go, whatever the last one is.
    QString commandWithoutQuotes() const;
    const QString &Command() const { return m_command; }
    const Ground &ground() const { return m_ground; }
    /// The one main window; null before Main and in a later instance.
    frmMain *mainWindow() const { return m_frmMain.get(); }
    bool isMarked() const { return m_mark != nullptr; }
    void trace(const QString &step) const
    {
        if (m_trace)
            m_trace(step);
    }

    Settings settings;
    ProcessFlags flags;

private:
    Ground m_ground;
    LifecycleTrace m_trace;
    QString m_command;
    instance::Lock InstanceMutex;
    bool m_subclassed = false;
    std::unique_ptr<frmMain> m_frmMain;
    // Goes first: no message may reach a window that is going.
    std::unique_ptr<desktop::InstanceMark> m_mark;
};
