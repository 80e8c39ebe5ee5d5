#include "engine/webengine/LoadReports.h"

namespace engine {

namespace {
/// The first report of a load. At 0 the status bar would show what it shows at rest, while nothing comes from the
/// server.
constexpr int kBegun = 1;
/// How long a request may go without any sign of its load before it counts as ended: frames that turn into downloads,
/// error pages or nothing at all tell nothing. Long enough for slow sites, short enough that no tab seems to load for
/// ever.
constexpr int kNoSignMs = 4000;
/// A jump shows by the changed address, at once unless the page is busy.
constexpr int kJumpMs = 1000;
/// How long a page that has been read may wait for its frames without any sign before it counts as loaded.
constexpr int kOnlyFramesMs = 4000;
} // namespace

LoadReports::LoadReports(Report report)
    : m_report(std::move(report))
{
    m_noSign.setSingleShot(true);
    m_onlyFrames.setSingleShot(true);
    connect(&m_onlyFrames, &QTimer::timeout, this, &LoadReports::restWithoutFrames);
    connect(&m_noSign, &QTimer::timeout, this, [this] {
        m_mainRequested = false;
        m_frames = 0;
        if (m_isUntold)
            finished();
        else if (!m_loading || m_endReported)
            close();
    });
}

void LoadReports::requested(bool isMainFrame)
{
    const bool isUnderWay = m_mainRequested || (m_loading && !m_endReported);
    m_owed = true;
    if (isMainFrame) {
        m_mainRequested = true;
        m_mainRefused = false;
    } else if (!isUnderWay) {
        ++m_frames;
    } else if (m_loading) {
        ++m_framesOfLoad;
        sign();
    }
    if (!m_loading || m_endReported)
        m_noSign.start(kNoSignMs);
}

void LoadReports::refused(bool isMainFrame)
{
    if (isMainFrame) {
        m_mainRefused = true;
        m_mainRequested = false;
    } else if (m_framesOfLoad > 0) {
        --m_framesOfLoad;
        sign();
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
    m_onlyFrames.stop();
    m_loading = true;
    m_mainRequested = false;
    m_frames = 0;
    m_framesOfLoad = 0;
    m_isRead = false;
    m_isUntold = false;
    m_endReported = false;
    m_owed = true;
    if (!m_mainRefused)
        m_report(kBegun, 100);
}

void LoadReports::committed()
{
    m_isCommitted = true;
    if (m_isUntold && !m_isRead)
        m_noSign.start(kNoSignMs);
}

void LoadReports::progress(int percent)
{
    sign();
    // 100 comes right before the end, which has an event of its own.
    if (m_loading && !m_mainRefused && !m_endReported && percent > kBegun && percent < 100)
        m_report(percent, 100);
}

void LoadReports::read()
{
    m_isRead = m_loading && (!m_isUntold || m_isCommitted);
    if (m_isUntold && m_isRead)
        m_noSign.stop();
    sign();
}

void LoadReports::loaded()
{
    if (m_isUntold && m_isCommitted)
        finished();
}

/// Something has happened: the frames that are still missing get their time anew.
void LoadReports::sign()
{
    if (m_loading && m_isRead && m_framesOfLoad > 0 && !m_endReported)
        m_onlyFrames.start(kOnlyFramesMs);
    else
        m_onlyFrames.stop();
}

void LoadReports::restWithoutFrames()
{
    if (!m_loading || m_mainRequested)
        return;
    m_framesOfLoad = 0;
    m_endReported = true;
    close();
}

void LoadReports::finished(Which which)
{
    if (m_mainRequested && which == Which::Overtaken) {
        started();
        m_isUntold = true;
        m_isCommitted = false;
        m_noSign.start(kNoSignMs);
        return;
    }
    m_isUntold = false;
    m_onlyFrames.stop();
    m_loading = false;
    m_mainRequested = false;
    m_mainRefused = false;
    m_endReported = false;
    m_frames = 0;
    m_framesOfLoad = 0;
    close();
}

void LoadReports::frameLoaded()
{
    if (m_framesOfLoad > 0) {
        --m_framesOfLoad;
        sign();
    } else if (m_frames > 0 && --m_frames == 0) {
        settle();
    }
}

void LoadReports::settle()
{
    // Never from inside the call that led here: the handler of the request has not returned yet.
    if (m_owed && !m_mainRequested && (!m_loading || m_isUntold || m_endReported))
        m_noSign.start(0);
}

void LoadReports::close()
{
    m_noSign.stop();
    if (std::exchange(m_owed, false))
        m_report(0, 0);
}

} // namespace engine
