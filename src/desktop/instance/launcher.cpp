#include "desktop/instance/Instance.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>
#include <unistd.h>

// The program that the user starts. A later start only hands its command line to the one that runs, which needs neither
// Qt nor the page engine; so they live in another executable, and this one becomes it when it is the first.

namespace {

/// The running program opens the document before it answers, and it may be busy. After this time the document may open
/// or not; nobody should wait longer for that.
constexpr int kAnswerTimeoutMs = 10000;

std::string browserBesideThis()
{
    std::array<char, 4096> path;
    const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
    if (length <= 0)
        return {};
    const std::string self(path.data(), static_cast<size_t>(length));
    return self.substr(0, self.rfind('/') + 1) + "corvane-browser";
}

void handOver(const std::string &folder, const std::string &commandLine)
{
    const std::string running = instance::findRunningInstance(folder);
    if (!running.empty())
        instance::send(running, instance::handOverMessage(commandLine), kAnswerTimeoutMs);
}

} // namespace

int main(int argc, char **argv)
{
    const std::string folder = instance::runtimeFolder();
    if (!folder.empty() && instance::isOwned(folder, instance::kMutexName)) {
        handOver(folder, instance::commandLine(argc, argv));
        return 0;
    }
    const std::string browser = browserBesideThis();
    execv(browser.c_str(), argv);
#ifdef CORVANE_BROWSER
    if (errno == ENOENT)
        execv(CORVANE_BROWSER, argv);
#endif
    std::fprintf(stderr, "corvane: cannot start %s: %s\n", browser.c_str(), std::strerror(errno));
    return 127;
}
