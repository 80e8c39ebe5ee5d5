#include "engine/webengine/LoadReports.h"

namespace engine {

namespace {
/// How long a request may go without any sign of its load before it counts as ended: frames that turn into downloads,
/// error pages or nothing at all tell nothing. Long enough for slow sites, short enough that no tab seems to load for
/// ever.
constexpr int kNoSignMs = 4000;
/// A jump shows by the changed address, at once unless the page is busy.
constexpr int kJumpMs = 1000;
} // namespace

LoadReports::LoadReports(Report report)
    : m_report(std::move(report))
{
    m_noSign.setSingleShot(true);
    connect(&m_noSign, &QTimer::timeout, this, [this] {
        m_mainRequested = false;
        m_frames = 0;
        if (!m_loading)
            close();
    });
}

void LoadReports::requested(bool isMainFrame)
{
    m_owed = true;
    if (isMainFrame) {
        m_mainRequested = true;
        m_mainRefused = false;
    } else if (!isLoading()) {
        ++m_frames;
    }
    if (!m_loading)
        m_noSign.start(kNoSignMs);
}

void LoadReports::refused(bool isMainFrame)
{
    if (isMainFrame) {
        m_mainRefused = true;
        m_mainRequested = false;
    } else if (m_frames > 0 && --m_frames == 0) {
        settle();
    }
}

void LoadReports::jumped()
{
    m_mainRequested = false;
    if (!m_loading)
        m_noSign.start(kJumpMs);
}

void LoadReports::started()
{
    m_noSign.stop();
    m_loading = true;
    m_mainRequested = false;
    m_frames = 0;
    m_owed = true;
    if (!m_mainRefused)
        m_report(0, 100);
}

void LoadReports::progress(int percent)
{
    // 100 comes right before the end, which has an event of its own.
    if (m_loading && !m_mainRefused && percent > 0 && percent < 100)
        m_report(percent, 100);
}

void LoadReports::finished()
{
    m_loading = false;
    m_mainRequested = false;
    m_mainRefused = false;
    m_frames = 0;
    close();
}

void LoadReports::frameLoaded()
{
    if (m_frames > 0 && --m_frames == 0)
        settle();
}

void LoadReports::settle()
{
    // Never from inside the call that led here: the handler of the request has not returned yet.
    if (m_owed && !isLoading())
        m_noSign.start(0);
}

void LoadReports::close()
{
    m_noSign.stop();
    if (std::exchange(m_owed, false))
        m_report(0, 0);
}

} // namespace engine
