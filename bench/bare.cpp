// The yardstick of the whole-program figures: a window with a stack of plain engine views on one persistent profile,
// and nothing else. Usage: bare URL... with CORVANE_HOME naming the folder of the profile.

#include <QApplication>
#include <QMainWindow>
#include <QShortcut>
#include <QSocketNotifier>
#include <QStackedWidget>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineView>

#include <array>
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace {

// Written by the signal handler, read by the event loop.
std::array<int, 2> terminationPipe;

void onTermination(int)
{
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(terminationPipe[0], &byte, 1);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QString home = qEnvironmentVariable("CORVANE_HOME");
    if (home.isEmpty())
        qFatal("CORVANE_HOME is not set");

    if (socketpair(AF_UNIX, SOCK_STREAM, 0, terminationPipe.data()) != 0)
        qFatal("no socket pair");
    QSocketNotifier termination(terminationPipe[1], QSocketNotifier::Read);
    QObject::connect(&termination, &QSocketNotifier::activated, &application, &QApplication::quit);
    std::signal(SIGTERM, onTermination);

    QWebEngineProfile profile(QStringLiteral("bare"));
    profile.setPersistentStoragePath(home + QStringLiteral("/Profile"));
    profile.setCachePath(home + QStringLiteral("/Cache"));

    QMainWindow window;
    auto *stack = new QStackedWidget;
    window.setCentralWidget(stack);
    const QStringList addresses = application.arguments().sliced(1);
    for (const QString &address : addresses) {
        auto *view = new QWebEngineView;
        view->setPage(new QWebEnginePage(&profile, view));
        stack->addWidget(view);
        view->load(QUrl::fromUserInput(address));
    }
    stack->setCurrentIndex(stack->count() - 1);
    QShortcut next(QKeySequence(QStringLiteral("Ctrl+Tab")), &window);
    QObject::connect(&next, &QShortcut::activated, stack, [stack] {
        stack->setCurrentIndex((stack->currentIndex() + 1) % stack->count());
        stack->currentWidget()->setFocus();
    });
    window.showMaximized();
    const int status = application.exec();

    // The pages go before their profile.
    delete stack;
    return status;
}
