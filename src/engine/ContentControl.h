#pragma once

#include <QList>
#include <QUrl>
#include <cstdint>

/// What pages may load and run: the download control value of a browser and what follows from it.
namespace engine {

/// Bits of the value, with their published numbers. The first three allow, the others forbid.
inline constexpr int32_t DLCTL_DLIMAGES = 0x10;
inline constexpr int32_t DLCTL_VIDEOS = 0x20;
inline constexpr int32_t DLCTL_BGSOUNDS = 0x40;
inline constexpr int32_t DLCTL_NO_SCRIPTS = 0x80;
inline constexpr int32_t DLCTL_NO_JAVA = 0x100;
inline constexpr int32_t DLCTL_NO_RUNACTIVEXCTLS = 0x200;
inline constexpr int32_t DLCTL_NO_DLACTIVEXCTLS = 0x400;

/// Holds for a browser that has not been told anything else: all is allowed.
inline constexpr int32_t kAllContent = DLCTL_DLIMAGES | DLCTL_VIDEOS | DLCTL_BGSOUNDS;

/// The parts of a page that the value decides about; all others may always be asked for.
enum class PartKind {
    Image,
    /// Films and sounds, which nobody can tell apart before they have come.
    Media,
    /// What `<object>` and `<embed>` ask for.
    Plugin,
    Other,
};

/// Whether a page with this value may not ask for a part of itself. Called for every request of every page.
bool isPartRefused(int32_t control, PartKind kind, const QUrl &url);

/// Which downloads the user has asked for. A page may have many reasons to start one; only a click, or an address that
/// the user gave, is the user's.
class DownloadGrants
{
public:
    /// The user has acted in the page, or in the page that opened this one. Times are milliseconds of any clock that
    /// only goes forward.
    void acted(int64_t nowMs) { m_actedMs = nowMs; }
    enum class Cause {
        Page,
        /// The user gave the address to the program.
        Program,
        /// Goes on with the navigation before, if that is still under way.
        Redirect,
    };
    /// A navigation of the page or of a frame begins.
    void navigating(const QUrl &url, Cause cause, bool isMainFrame, int64_t nowMs);
    /// The navigation of the page has come to its end.
    void arrived() { m_isOpen = false; }

    bool isGranted(const QUrl &url, int64_t nowMs) const;

private:
    bool isRecent(int64_t nowMs) const;

    int64_t m_actedMs = -1;
    /// The addresses of navigations that the user caused, newest last.
    QList<QUrl> m_asked;
    /// A navigation of the page itself that the user caused is still under way.
    bool m_isOpen = false;
};

} // namespace engine
