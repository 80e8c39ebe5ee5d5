#include "desktop/instance/Instance.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace instance {
namespace {

/// A descriptor that is closed with its owner.
class Descriptor
{
public:
    explicit Descriptor(int fd = -1)
        : m_fd(fd)
    {}
    ~Descriptor()
    {
        if (m_fd >= 0)
            close(m_fd);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    Descriptor(Descriptor &&other) noexcept
        : m_fd(other.release())
    {}
    Descriptor &operator=(Descriptor &&other) noexcept
    {
        std::swap(m_fd, other.m_fd);
        return *this;
    }
    explicit operator bool() const { return m_fd >= 0; }
    int get() const { return m_fd; }
    int release() { return std::exchange(m_fd, -1); }

private:
    int m_fd;
};

std::string environment(const char *name)
{
    const char *value = std::getenv(name);
    return value ? value : "";
}

/// Descriptor of the file of a lock; none without a folder.
Descriptor lockFile(const std::string &folder, const std::string &name, int flags)
{
    if (folder.empty())
        return Descriptor();
    return Descriptor(open((folder + '/' + name + ".lock").c_str(), flags | O_RDWR | O_CLOEXEC | O_NOFOLLOW, 0600));
}

/// A write lock over the whole file.
struct flock wholeFile()
{
    struct flock range = {};
    range.l_type = F_WRLCK;
    range.l_whence = SEEK_SET;
    return range;
}

/// Makes the folder if it is missing. Whether it then belongs to the user alone.
bool isPrivateFolder(const std::string &path)
{
    mkdir(path.c_str(), 0700);
    struct stat info = {};
    if (lstat(path.c_str(), &info) != 0 || !S_ISDIR(info.st_mode) || info.st_uid != geteuid())
        return false;
    return (info.st_mode & 077) == 0 || chmod(path.c_str(), 0700) == 0;
}

/// Address of a socket file. A path that is too long for an address is reached through its open folder.
class SocketAddress
{
public:
    explicit SocketAddress(const std::string &path)
    {
        m_address.sun_family = AF_UNIX;
        std::string usable = path;
        const size_t slash = path.rfind('/');
        if (path.size() >= sizeof m_address.sun_path && slash != std::string::npos) {
            m_folder = Descriptor(open(path.substr(0, slash).c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
            usable = "/proc/self/fd/" + std::to_string(m_folder.get()) + path.substr(slash);
        }
        m_valid = usable.size() < sizeof m_address.sun_path;
        if (m_valid)
            std::memcpy(m_address.sun_path, usable.c_str(), usable.size() + 1);
    }
    bool isValid() const { return m_valid; }
    const sockaddr *get() const { return reinterpret_cast<const sockaddr *>(&m_address); }
    static constexpr socklen_t size() { return sizeof(sockaddr_un); }

private:
    sockaddr_un m_address = {};
    Descriptor m_folder;
    bool m_valid = false;
};

Descriptor newSocket()
{
    return Descriptor(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
}

enum class Connection { Made, Busy, Dead };

Connection connectTo(const Descriptor &client, const std::string &path)
{
    const SocketAddress address(path);
    if (!client || !address.isValid())
        return Connection::Dead;
    if (connect(client.get(), address.get(), SocketAddress::size()) == 0)
        return Connection::Made;
    // A full queue of connections: somebody is there, and slow.
    return errno == EAGAIN || errno == EINTR ? Connection::Busy : Connection::Dead;
}

class Deadline
{
public:
    explicit Deadline(int timeoutMs)
        : m_end(std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs))
    {}
    int leftMs() const
    {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(m_end - std::chrono::steady_clock::now());
        return static_cast<int>(std::max<int64_t>(left.count(), 0));
    }
    /// Waits until the socket is ready for `events`. False at the end of the time.
    bool wait(const Descriptor &client, short events) const
    {
        while (true) {
            pollfd entry = {client.get(), events, 0};
            const int ready = poll(&entry, 1, leftMs());
            if (ready > 0)
                return true;
            if (ready == 0 || errno != EINTR)
                return false;
        }
    }

private:
    std::chrono::steady_clock::time_point m_end;
};

bool writeAll(const Descriptor &client, std::string_view bytes, const Deadline &deadline)
{
    while (!bytes.empty()) {
        const ssize_t count = send(client.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (count > 0)
            bytes.remove_prefix(static_cast<size_t>(count));
        else if ((errno != EAGAIN && errno != EINTR) || !deadline.wait(client, POLLOUT))
            return false;
    }
    return true;
}

bool waitForAnswer(const Descriptor &client, const Deadline &deadline)
{
    while (deadline.wait(client, POLLIN)) {
        char answer = 0;
        const ssize_t count = recv(client.get(), &answer, 1, 0);
        if (count >= 0)
            return count == 1;
        if (errno != EAGAIN && errno != EINTR)
            return false;
    }
    return false;
}

bool isOwnSocket(const std::string &path)
{
    struct stat info = {};
    return lstat(path.c_str(), &info) == 0 && S_ISSOCK(info.st_mode) && info.st_uid == geteuid();
}

/// The marks in a folder, in the order of their names.
std::vector<std::string> marksIn(const std::string &folder)
{
    std::vector<std::string> marks;
    const std::unique_ptr<DIR, int (*)(DIR *)> entries(opendir(folder.c_str()), closedir);
    while (const dirent *entry = entries ? readdir(entries.get()) : nullptr) {
        if (std::string_view(entry->d_name).starts_with(std::string(kMarkName) + '-'))
            marks.push_back(folder + '/' + entry->d_name);
    }
    std::sort(marks.begin(), marks.end());
    return marks;
}

bool isContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

uint32_t utf16Length(std::string_view utf8)
{
    uint32_t length = 0;
    for (const char byte : utf8) {
        if (!isContinuation(byte))
            length += static_cast<unsigned char>(byte) >= 0xF0 ? 2 : 1;
    }
    return length;
}

void dropLastCharacter(std::string_view &utf8)
{
    while (!utf8.empty() && isContinuation(utf8.back()))
        utf8.remove_suffix(1);
    if (!utf8.empty())
        utf8.remove_suffix(1);
}

constexpr size_t kHeaderSize = 8;

void appendNumber(std::string &bytes, uint32_t number)
{
    for (int shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>(number >> shift & 0xFF);
}

uint32_t numberAt(std::string_view bytes, size_t at)
{
    uint32_t number = 0;
    for (size_t i = 0; i < 4; ++i)
        number |= static_cast<uint32_t>(static_cast<unsigned char>(bytes[at + i])) << (8 * i);
    return number;
}

} // namespace

Lock::~Lock()
{
    release();
}

// A lock of an open file description: unlike a lock file with a process number in it, it can't outlive its process, and
// unlike flock() it can be asked about without being taken.
bool Lock::acquire(const std::string &folder, const std::string &name)
{
    if (held())
        return true;
    Descriptor file = lockFile(folder, name, O_CREAT);
    if (!file)
        return true;
    struct flock range = wholeFile();
    if (fcntl(file.get(), F_OFD_SETLK, &range) == 0)
        m_fd = file.release();
    else if (errno == EAGAIN || errno == EACCES)
        return false;
    return true;
}

void Lock::release()
{
    if (held())
        close(std::exchange(m_fd, -1));
}

bool isOwned(const std::string &folder, const std::string &name)
{
    const Descriptor file = lockFile(folder, name, 0);
    struct flock range = wholeFile();
    return file && fcntl(file.get(), F_OFD_GETLK, &range) == 0 && range.l_type != F_UNLCK;
}

std::string runtimeFolder()
{
    if (const std::string home = environment("CORVANE_HOME"); !home.empty()) {
        mkdir(home.c_str(), 0700);
        return isPrivateFolder(home + "/run") ? home + "/run" : "";
    }
    if (const std::string runtime = environment("XDG_RUNTIME_DIR"); runtime.starts_with('/')) {
        if (isPrivateFolder(runtime + "/corvane"))
            return runtime + "/corvane";
    }
    std::string temporary = environment("TMPDIR");
    if (!temporary.starts_with('/'))
        temporary = "/tmp";
    const std::string own = temporary + "/corvane-" + std::to_string(geteuid());
    return isPrivateFolder(own) ? own : "";
}

CopyData encode(std::string_view utf8, uint32_t length)
{
    return {length, utf8.empty() ? std::string(1, '\0') : std::string(utf8)};
}

std::string_view withoutQuotes(std::string_view commandLine)
{
    if (commandLine.starts_with('"')) {
        commandLine.remove_prefix(1);
        dropLastCharacter(commandLine);
    }
    return commandLine;
}

CopyData handOverMessage(std::string_view commandLine)
{
    const std::string_view text = withoutQuotes(commandLine);
    return encode(text, utf16Length(text));
}

std::string serialize(const CopyData &message)
{
    std::string bytes;
    bytes.reserve(kHeaderSize + message.bytes.size());
    appendNumber(bytes, message.dwData);
    appendNumber(bytes, static_cast<uint32_t>(message.bytes.size()));
    return bytes += message.bytes;
}

Decoded decode(std::string_view received, CopyData &message)
{
    if (received.size() < kHeaderSize)
        return Decoded::Incomplete;
    const uint32_t size = numberAt(received, 4);
    if (size == 0 || size > kMaxBytes)
        return Decoded::Refused;
    if (received.size() - kHeaderSize < size)
        return Decoded::Incomplete;
    message.dwData = numberAt(received, 0);
    message.bytes = received.substr(kHeaderSize, size);
    return Decoded::Complete;
}

std::string socketPath(const std::string &folder, int pid, int serial)
{
    return folder + '/' + kMarkName + '-' + std::to_string(pid) + '-' + std::to_string(serial);
}

int listenOn(const std::string &path)
{
    // The name of a socket in the making is not one that FindRunningInstance() looks at.
    const size_t slash = path.rfind('/');
    if (slash == std::string::npos)
        return -1;
    const std::string making = path.substr(0, slash + 1) + '.' + path.substr(slash + 1);
    unlink(making.c_str());
    Descriptor server = newSocket();
    const SocketAddress address(making);
    constexpr int kQueue = 32;
    if (!server || !address.isValid() || fchmod(server.get(), 0600) != 0 ||
        bind(server.get(), address.get(), SocketAddress::size()) != 0)
        return -1;
    if (chmod(making.c_str(), 0600) == 0 && listen(server.get(), kQueue) == 0 &&
        rename(making.c_str(), path.c_str()) == 0)
        return server.release();
    unlink(making.c_str());
    return -1;
}

std::string FindRunningInstance(const std::string &folder)
{
    for (const std::string &mark : marksIn(folder)) {
        if (!isOwnSocket(mark))
            continue;
        if (connectTo(newSocket(), mark) != Connection::Dead)
            return mark;
        if (errno == ECONNREFUSED)
            unlink(mark.c_str());
    }
    return {};
}

bool SendUrlToInstance(const std::string &socket, const CopyData &message, int timeoutMs)
{
    if (message.bytes.empty() || message.bytes.size() > kMaxBytes)
        return false;
    const Deadline deadline(timeoutMs);
    const Descriptor client = newSocket();
    constexpr int kRetryMs = 5;
    Connection connection = connectTo(client, socket);
    while (connection == Connection::Busy && deadline.leftMs() > 0) {
        poll(nullptr, 0, std::min(kRetryMs, deadline.leftMs()));
        connection = connectTo(client, socket);
    }
    return connection == Connection::Made && writeAll(client, serialize(message), deadline) &&
           waitForAnswer(client, deadline);
}

void HandOverToFirstInstance(const std::string &folder, std::string_view commandLine)
{
    constexpr int kAnswerTimeoutMs = 10000;
    const std::string RunningInstanceWindow = FindRunningInstance(folder);
    if (!RunningInstanceWindow.empty())
        SendUrlToInstance(RunningInstanceWindow, handOverMessage(commandLine), kAnswerTimeoutMs);
}

std::string commandLine(int argc, const char *const *argv)
{
    std::string text;
    for (int i = 1; i < argc; ++i) {
        if (i > 1)
            text += ' ';
        std::array<char, 4096> folder;
        struct stat info = {};
        const bool isRelativeFile = argv[i][0] != '/' && stat(argv[i], &info) == 0 && S_ISREG(info.st_mode);
        if (isRelativeFile && getcwd(folder.data(), folder.size()))
            text += std::string(folder.data()) + '/';
        text += argv[i];
    }
    return text;
}

} // namespace instance
