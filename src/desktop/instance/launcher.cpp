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

std::string browserBesideThis()
{
    std::array<char, 4096> path;
    const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
    if (length <= 0)
        return {};
    const std::string self(path.data(), static_cast<size_t>(length));
    return self.substr(0, self.rfind('/') + 1) + "corvane-browser";
}

} // namespace

int main(int argc, char **argv)
{
    const std::string folder = instance::runtimeFolder();
    if (!folder.empty() && instance::isOwned(folder, instance::kMutexName)) {
        instance::HandOverToFirstInstance(folder, instance::commandLine(argc, argv));
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
