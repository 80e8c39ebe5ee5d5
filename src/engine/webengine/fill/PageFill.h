#pragma once

#include "engine/PageFacets.h"
#include "engine/webengine/fill/FrameReport.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QUrl>
#include <functional>

class QUrlQuery;
class QWebEnginePage;
class QWebEngineUrlRequestJob;

namespace engine {

class PageChannel;

/// Fills the forms of one page. The page itself is driven from here, by a script in a world of its own that also looks
/// after all frames of the same origin. In frames of others this script waits on the page channel; a fill answers
/// the waiting requests with a key for each. With its key, and only for a few seconds, a frame may ask for the values
/// of the inputs that it shows. The matching is done here, so a frame learns nothing else.
class PageFill : public QObject, public FormFacet
{
    Q_OBJECT
public:
    struct Surroundings
    {
        /// Whether the user has accepted this host's bad certificate.
        std::function<bool(const QString &host)> isExcepted;
        /// Whether the fill that begins now is the program's own, at the end of a load, so that it has to tell nothing
        /// when there is nothing to fill.
        std::function<bool()> isLoadEnd;
        std::function<void(const QString &status)> tell;
    };
    PageFill(PageChannel &channel, QWebEnginePage &page, Surroundings surroundings);
    ~PageFill() override;

    void fill(std::shared_ptr<const FormRecord> record, bool locked) override;

private:
    /// Gives a frame its answer; nothing refuses it.
    using Reply = std::function<void(const std::optional<QByteArray> &answer)>;
    struct Waiting
    {
        QPointer<QWebEngineUrlRequestJob> job;
        QUrl origin;
    };
    struct Frame
    {
        QUrl origin;
        std::map<int, std::vector<FormInput>> inputs;
        int asked = 0;
        /// Number of inputs that were answered and not yet reported as filled.
        int answered = 0;
        FrameReport report;
        /// The number of its last report among those of this fill.
        int reportedAt = 0;
        /// Set while the frame waits for its answer.
        Reply reply;
    };

    void requested(QWebEngineUrlRequestJob &job);
    void wait(QWebEngineUrlRequestJob &job, const QUrlQuery &query);
    void begin(const Waiting &waiting);
    QString script() const;
    void drivePage(const QString &script);
    void pageAsks(const QString &asked);
    void handle(const QString &op, const QString &key, const QByteArray &data, const QUrl &origin, const Reply &reply);
    void take(Frame &frame, const QByteArray &data, const Reply &reply);
    void answerIfSeen(Frame &frame);
    bool isSeen(const Frame &frame) const;
    std::vector<FrameForm> formsOf(Frame &frame) const;
    bool isProtected(const QUrl &origin) const;
    void tell();
    void end();

    bool isRunning() const { return m_record != nullptr; }

    PageChannel &m_channel;
    QWebEnginePage &m_page;
    Surroundings m_surroundings;
    QString m_token;
    std::vector<Waiting> m_waiting;

    // The fill that is under way.
    std::shared_ptr<const FormRecord> m_record;
    bool m_locked = true;
    bool m_userAsked = false;
    /// By key.
    QHash<QString, Frame> m_frames;
    int m_reports = 0;
    /// The frames that the user can see, by path, with the number of the report that says so.
    QHash<QString, int> m_shownAt;
    int m_filled = 0;
    int m_told = -1;
    bool m_hasBegun = false;
    /// The key of the page itself.
    QString m_pageKey;
    QTimer m_end;
    QTimer m_quiet;
};

} // namespace engine
