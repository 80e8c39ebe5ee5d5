#pragma once

#include <QObject>
#include <QTimer>
#include <functional>

namespace engine {

/// Turns what the engine tells of loads into the progress events of a browser: after every navigation request that was
/// reported, and after every load, comes exactly one closing event (0, 0). The engine ends loads of the page itself
/// with a signal; loads of its frames it never ends, and some requests (a jump inside the page, another program's
/// address, a download) have no load at all. A page of which everything is there but a frame that never ends counts as
/// loaded after a while.
class LoadReports : public QObject
{
    Q_OBJECT
public:
    using Report = std::function<void(int progress, int maximum)>;
    explicit LoadReports(Report report);

    /// A navigation was reported and is about to begin.
    void requested(bool isMainFrame);
    /// The navigation that was reported last is refused.
    void refused(bool isMainFrame);
    /// The navigation that was reported last is a jump inside the page, which has no load.
    void jumped();
    /// The load of the page itself.
    void started();
    void progress(int percent);
    /// Its document is there, has been read (pictures and frames may still be missing), has been loaded.
    void committed();
    void read();
    void loaded();
    /// The engine has told of the end of the last load, or of one that another request has overtaken. The engine tells
    /// nothing at all of a load that began while the one before it was just ending.
    enum class Which { Last, Overtaken };
    void finished(Which which = Which::Last);
    /// A frame has loaded.
    void frameLoaded();
    /// Whatever may still be open ends now, unless the engine is to end it.
    void settle();

    /// A load of the page itself is under way or has been asked for.
    bool isLoading() const { return m_loading || m_mainRequested; }

private:
    void close();
    void sign();
    void restWithoutFrames();

    Report m_report;
    QTimer m_noSign;
    QTimer m_onlyFrames;
    int m_frames = 0;
    /// Frames whose load began during the load of the page itself, and has not ended.
    int m_framesOfLoad = 0;
    bool m_isRead = false;
    /// Nobody but the document tells of the end of the load, and not before it is there.
    bool m_isUntold = false;
    bool m_isCommitted = false;
    /// The end of the load was reported, although the engine still waits for frames.
    bool m_endReported = false;
    bool m_owed = false;
    bool m_loading = false;
    bool m_mainRequested = false;
    bool m_mainRefused = false;
};

} // namespace engine
