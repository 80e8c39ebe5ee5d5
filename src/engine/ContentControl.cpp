#include "engine/ContentControl.h"

using namespace Qt::StringLiterals;

namespace engine {

namespace {

/// How long the user's act speaks for what the page does: as long as the engine lets a click pay for a window.
constexpr int64_t kActHoldsMs = 5'000;
/// A slow server answers long after the click, and several clicks may wait; nobody waits for more than these.
constexpr qsizetype kAskedAtMost = 32;

} // namespace

bool isPartRefused(int32_t control, PartKind kind, const QUrl &url)
{
    switch (kind) {
    case PartKind::Image:
        return !(control & DLCTL_DLIMAGES);
    case PartKind::Media:
        return !(control & (DLCTL_VIDEOS | DLCTL_BGSOUNDS));
    case PartKind::Plugin:
        return control & DLCTL_NO_RUNACTIVEXCTLS;
    case PartKind::Other:
        // Workers cannot be kept from running such code, only from getting it.
        return (control & DLCTL_NO_JAVA) && url.path().endsWith(".wasm"_L1, Qt::CaseInsensitive);
    }
    return false;
}

bool DownloadGrants::isRecent(int64_t nowMs) const
{
    return m_actedMs >= 0 && nowMs - m_actedMs < kActHoldsMs;
}

void DownloadGrants::navigating(const QUrl &url, Cause cause, bool isMainFrame, int64_t nowMs)
{
    const bool goesOn = cause == Cause::Redirect && isMainFrame && m_isOpen;
    const bool isUsers = cause == Cause::Program || goesOn || isRecent(nowMs);
    if (isMainFrame)
        m_isOpen = isUsers;
    if (!isUsers)
        return;
    m_asked.removeAll(url);
    m_asked.push_back(url);
    if (m_asked.size() > kAskedAtMost)
        m_asked.removeFirst();
}

bool DownloadGrants::isGranted(const QUrl &url, int64_t nowMs) const
{
    return isRecent(nowMs) || m_asked.contains(url);
}

} // namespace engine
