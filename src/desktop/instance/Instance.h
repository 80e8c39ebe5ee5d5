#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// First-come ownership of a name, and one synchronous message to a marked window of another process. No Qt here: the
/// launcher must not load any before it knows that it is the first.
namespace instance {

inline constexpr char kVersion[] = "CorvaneV100";
inline constexpr char kMutexName[] = "CorvaneV100_APPLICATION_MUTEX";
inline constexpr char kMarkName[] = "CorvaneV100_APPLICATION";

/// A lock that ends with its process, whatever way that goes, and that its holder can give back.
class Lock
{
public:
    Lock() = default;
    ~Lock();
    Lock(const Lock &) = delete;
    Lock &operator=(const Lock &) = delete;

    /// Tries to own `name` in `folder`. False exactly when another process owns it; any other failure (no folder, a
    /// full disk) counts as owning it.
    bool acquire(const std::string &folder, const std::string &name);
    void release();
    bool held() const { return m_fd >= 0; }

private:
    int m_fd = -1;
};

/// Whether a process owns `name` in `folder`. Unlike acquire() it is never in the way of somebody who acquires the lock
/// at the same moment.
bool isOwned(const std::string &folder, const std::string &name);

/// Folder of locks and sockets for this environment: $CORVANE_HOME/run, else $XDG_RUNTIME_DIR/corvane, else a folder of
/// the user's own below the temporary folder. Made with mode 0700 when missing; empty when there is none that belongs
/// to the user alone.
std::string runtimeFolder();

/// The message: dwData (32 bits, the length in characters as the sender counted it), cbData (32 bits, number of bytes,
/// at least 1), then the bytes. Little endian.
struct CopyData
{
    uint32_t dwData = 0;
    std::string bytes;
};
/// More than this is refused by the receiver and never sent: far above any command line.
inline constexpr uint32_t kMaxBytes = 1u << 20;

/// Encodes UTF-8 text: one zero byte for an empty text.
CopyData encode(std::string_view utf8, uint32_t length);

/// A text that begins with a double quote loses its first character and its last one, whatever that is.
std::string_view withoutQuotes(std::string_view commandLine);

/// The message that hands a command line over, without its quotes. The length counts UTF-16 units.
CopyData handOverMessage(std::string_view commandLine);

/// The bytes on the wire, and back.
std::string serialize(const CopyData &message);
enum class Decoded {
    Incomplete, ///< Every byte fits so far, some are missing.
    Complete,   ///< `message` is filled; what follows it is not looked at.
    Refused,    ///< No message begins like this, or it has more than kMaxBytes.
};
Decoded decode(std::string_view received, CopyData &message);

/// Path of the socket of a marked window, `pid` and `serial` make it unique.
std::string socketPath(const std::string &folder, int pid, int serial);

/// Makes a socket that is listened on at `path`, with mode 0600. It appears there at once and whole: nobody finds it
/// before it listens. Gives its descriptor, non-blocking and closed by exec, or -1.
int listenOn(const std::string &path);

/// The first socket in `folder` that somebody listens on; empty when none does. Dead sockets that belong to the user
/// are removed.
std::string FindRunningInstance(const std::string &folder);

/// Sends and waits for the answer, at most `timeoutMs`. False on any failure.
bool SendUrlToInstance(const std::string &socket, const CopyData &message, int timeoutMs);

/// Hands a command line to the first marked window of `folder` and waits for its answer, ten seconds at most: it opens
/// the document before it answers, and it may be busy. Ends silently when there is no window.
void HandOverToFirstInstance(const std::string &folder, std::string_view commandLine);

/// Joins arguments by blanks; an argument that names an existing file becomes its absolute path.
std::string commandLine(int argc, const char *const *argv);

} // namespace instance
