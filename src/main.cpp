#include "core/MainCode.h"
#include "core/frmMain.h"

#include "core/state/SettingsStore.h"
#include "desktop/DesktopDialogs.h"
#include "desktop/Paths.h"
#include "desktop/SoundPlayer.h"
#include "desktop/SystemTrayIcon.h"
#include "desktop/instance/Instance.h"
#include "engine/Engine.h"
#include "engine/VisitLog.h"
#include "engine/webengine/WebEngineFactory.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QIcon>
#include <QLoggingCategory>
#include <QSocketNotifier>
#include <csignal>
#include <cstdio>
#include <malloc.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// The whole exit takes at most this long, also when the process of a page hangs. By then everything of ours is stored.
constexpr timeval kExitTime{1, 700000};

int signalSockets[2] = {-1, -1};

void onSignal(int)
{
    const char byte = 1;
    [[maybe_unused]] const ssize_t written = write(signalSockets[0], &byte, 1);
}

void onExitTime(int)
{
    _exit(0);
}

/// Runs `close` in the event loop at the first SIGTERM or SIGHUP.
void closeOnSignals(QObject *owner, std::function<void()> close)
{
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, signalSockets) != 0)
        return;
    auto *notifier = new QSocketNotifier(signalSockets[1], QSocketNotifier::Read, owner);
    QObject::connect(notifier, &QSocketNotifier::activated, owner, [notifier, close] {
        notifier->setEnabled(false);
        close();
    });
    struct sigaction action = {};
    action.sa_handler = onSignal;
    action.sa_flags = SA_RESTART;
    sigaction(SIGTERM, &action, nullptr);
    sigaction(SIGHUP, &action, nullptr);
}

void endInTime()
{
    struct sigaction action = {};
    action.sa_handler = onExitTime;
    sigaction(SIGALRM, &action, nullptr);
    const itimerval once{{0, 0}, kExitTime};
    setitimer(ITIMER_REAL, &once, nullptr);
}

/// Chromium does not start its sandbox for root.
bool rootWithoutLeave()
{
    return geteuid() == 0 && qEnvironmentVariableIntValue("QTWEBENGINE_DISABLE_SANDBOX") != 1;
}

/// One heap for all threads that gives back what it no longer needs: with a heap for each of the engine's many threads
/// the program holds 12 MiB more, measured with six documents. The threads that work hard have allocators of their own.
void keepMemorySmall()
{
    mallopt(M_ARENA_MAX, 1);
    mallopt(M_TRIM_THRESHOLD, 64 * 1024);
}

/// Whether the kernel offers a device that can draw for an ordinary program: a render node, NVIDIA's own or WSL's.
bool hasGraphicsDevice()
{
    return QFile::exists(u"/dev/nvidiactl"_s) || QFile::exists(u"/dev/dxg"_s) ||
           !QDir(u"/dev/dri"_s).entryList({u"renderD*"_s}, QDir::System).isEmpty();
}

/// Without a graphics device OpenGL is emulated: each blink of a caret composes the whole window on all processors, and
/// pages get no WebGL anyway. Drawing without it takes a third of the time. A choice of the user's stays.
void drawByWhatIsThere()
{
    if (!qEnvironmentVariableIsSet("QT_QUICK_BACKEND") && !hasGraphicsDevice())
        qputenv("QT_QUICK_BACKEND", "software");
}

void describeApplication()
{
    QCoreApplication::setApplicationName(u"Corvane"_s);
    QCoreApplication::setApplicationVersion(u"2.0.0025"_s);
    QGuiApplication::setDesktopFileName(u"corvane"_s);
    // The engine lists its graphics settings at each start otherwise; QT_LOGGING_RULES brings the list back.
    QLoggingCategory::setFilterRules(u"qt.webenginecontext.info=false\nqt.webenginecontext.debug=false"_s);
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
}

int runProgram(QApplication &application, const QString &command)
{
    const desktop::Paths paths = desktop::Paths::fromEnvironment();
    SettingsStore store(paths.settingsFile);
    const auto engine =
        engine::makeWebEngine({paths.profileFolder, paths.cacheFolder, paths.visitFile, paths.downloadFolder});
    desktop::DesktopDialogs dialogs;
    desktop::SystemTrayIcon tray;
    desktop::SoundPlayer sound;

    // Goes before the engine, with all its documents.
    MainCode code({paths, store, *engine, dialogs, tray, sound});
    const auto close = [&code] {
        if (frmMain *window = code.mainWindow())
            window->Unload();
    };
    closeOnSignals(&application, close);
    QObject::connect(&application, &QGuiApplication::commitDataRequest, &application, close);
    if (!code.Main(command))
        return 0;
    if (!code.mainWindow()->isUnloaded()) {
        QObject::connect(code.mainWindow(), &frmMain::unloaded, &application, &QCoreApplication::quit);
        QApplication::exec();
    }
    endInTime();
    store.sync();
    engine->visits().flush();
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    if (rootWithoutLeave()) {
        std::fputs(
            "corvane: the page engine refuses to run as root; set QTWEBENGINE_DISABLE_SANDBOX=1 to run it without "
            "its sandbox\n",
            stderr);
        return 1;
    }
    keepMemorySmall();
    drawByWhatIsThere();
    const QString command = QString::fromStdString(instance::commandLine(argc, argv));
    engine::registerSchemes();
    describeApplication();
    QApplication application(argc, argv);
    // The window can be away in the tray; it ends the program itself.
    QGuiApplication::setQuitOnLastWindowClosed(false);
    QApplication::setWindowIcon(QIcon(u":/icons/app/corvane.svg"_s));
    return runProgram(application, command);
}
