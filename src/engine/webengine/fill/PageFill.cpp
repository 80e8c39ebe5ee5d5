#include "engine/webengine/fill/PageFill.h"

#include "base/Strings.h"
#include "engine/webengine/PageChannel.h"
#include "engine/webengine/fill/Script.h"

#include <QHostAddress>
#include <QJsonArray>
#include <QJsonDocument>
#include <QUrlQuery>
#include <QWebEngineNavigationRequest>
#include <QWebEnginePage>
#include <QWebEngineScript>
#include <QWebEngineUrlRequestJob>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

/// How long a page that is busy may take to notice the command.
constexpr int kStartMs = 10'000;
/// How long frames may ask for values from then on. Their script looks for new inputs a little less long.
constexpr int kFillMs = 3500;
/// After so long without news the user is told how many inputs were filled.
constexpr int kQuietMs = 300;
/// Inputs that one frame may ask about in one fill, with those of the frames that it looks after.
constexpr int kMostInputs = 2000;
/// Frames that take part in one fill.
constexpr qsizetype kMostFrames = 300;

bool isLocalMachine(const QString &host)
{
    return host == "localhost"_L1 || host.endsWith(".localhost"_L1) || QHostAddress(host).isLoopback();
}

QString originText(const QUrl &origin)
{
    if (origin.scheme().isEmpty() || (origin.host().isEmpty() && !origin.isLocalFile()))
        return {};
    return origin.isLocalFile() ? u"file://"_s
                                : origin.toString(QUrl::RemovePath | QUrl::RemoveQuery | QUrl::RemoveFragment |
                                                  QUrl::RemoveUserInfo | QUrl::StripTrailingSlash);
}

} // namespace

PageFill::PageFill(PageChannel &channel, QWebEnginePage &page, Surroundings surroundings)
    : m_channel(channel)
    , m_page(page)
    , m_surroundings(std::move(surroundings))
    , m_token(channel.listen([this](QWebEngineUrlRequestJob *job) { requested(*job); }))
{
    // The page itself gets it when it is filled.
    PageChannel::setScript(page, u"fill"_s, "if (window !== window.top) "_L1 + script(), PageChannel::kWorld);
    m_end.setSingleShot(true);
    m_quiet.setSingleShot(true);
    connect(&m_end, &QTimer::timeout, this, [this] {
        tell();
        end();
    });
    connect(&m_quiet, &QTimer::timeout, this, &PageFill::tell);
    // What comes after the page was not meant by the command.
    connect(&page, &QWebEnginePage::navigationRequested, this, [this](const QWebEngineNavigationRequest &request) {
        if (request.isMainFrame())
            end();
    });
    connect(&page, &QWebEnginePage::loadStarted, this, &PageFill::end);
    connect(&page, &QWebEnginePage::renderProcessTerminated, this, &PageFill::end);
}

QString PageFill::script() const
{
    return QString(fillScript()).replace("%TOKEN%"_L1, m_token);
}

PageFill::~PageFill()
{
    m_channel.endListening(m_token);
    end();
}

void PageFill::fill(std::shared_ptr<const FormRecord> record, bool locked)
{
    end();
    if (!record)
        return;
    m_record = std::move(record);
    m_locked = locked;
    m_userAsked = !m_surroundings.isLoadEnd();
    m_reports = 0;
    m_filled = 0;
    m_told = -1;
    m_hasBegun = false;
    m_end.start(kStartMs);
    m_pageKey = PageChannel::newToken();
    m_frames[m_pageKey].origin = m_page.url();
    // By itself and always the same, the engine need not compile it again.
    m_page.runJavaScript(script(), PageChannel::kWorld);
    drivePage(u"corvaneFill.begin('%1')"_s.arg(m_pageKey));
    const auto last = m_waiting.begin() + std::min<qsizetype>(kMostFrames, std::ssize(m_waiting));
    std::for_each(m_waiting.begin(), last, [this](const Waiting &waiting) { begin(waiting); });
    m_waiting.erase(m_waiting.begin(), last);
}

/// Whatever still waits for an answer gets none.
void PageFill::end()
{
    m_end.stop();
    m_quiet.stop();
    m_pageKey.clear();
    m_record.reset();
    m_shownAt.clear();
    for (const Frame &frame : std::exchange(m_frames, {})) {
        if (frame.reply)
            frame.reply({});
    }
}

void PageFill::tell()
{
    // As long as a frame has not been heard, "nothing" is too early.
    const auto isOpen = [](const Frame &frame) { return frame.reply || frame.reportedAt == 0; };
    if (m_filled == 0 && m_end.isActive() && std::any_of(m_frames.begin(), m_frames.end(), isOpen))
        return;
    if (m_told == m_filled || (m_filled == 0 && !m_userAsked))
        return;
    m_told = m_filled;
    m_surroundings.tell(m_filled == 0   ? LoadResString(20642)
                        : m_filled == 1 ? LoadResString(20640)
                                        : LoadResString(20641).arg(m_filled));
}

// --- what frames ask ---

void PageFill::requested(QWebEngineUrlRequestJob &job)
{
    const QUrlQuery query(job.requestUrl());
    const QString op = job.requestUrl().path().mid(1);
    if (op == "wait"_L1) {
        wait(job, query);
        return;
    }
    const QPointer<QWebEngineUrlRequestJob> guard(&job);
    handle(op, PageChannel::value(query, u"k"_s), PageChannel::value(query, u"d"_s).toUtf8(), job.initiator(),
           [guard](const std::optional<QByteArray> &answer) {
               if (guard && answer)
                   PageChannel::answer(guard, *answer);
               else if (guard)
                   guard->fail(QWebEngineUrlRequestJob::RequestDenied);
           });
}

void PageFill::wait(QWebEngineUrlRequestJob &job, const QUrlQuery &query)
{
    std::erase_if(m_waiting, [](const Waiting &waiting) { return !waiting.job; });
    const Waiting waiting{&job, job.initiator()};
    // A frame that has its key waits for the next fill.
    if (isRunning() && m_frames.size() < kMostFrames && !m_frames.contains(PageChannel::value(query, u"k"_s)))
        begin(waiting);
    else
        m_waiting.push_back(waiting);
}

void PageFill::begin(const Waiting &waiting)
{
    if (!waiting.job)
        return;
    const QString key = PageChannel::newToken();
    Frame frame;
    frame.origin = waiting.origin;
    m_frames.insert(key, frame);
    PageChannel::answer(waiting.job, key.toLatin1());
}

void PageFill::handle(const QString &op, const QString &key, const QByteArray &data, const QUrl &origin,
                      const Reply &reply)
{
    const auto found = m_frames.find(key);
    if (!isRunning() || found == m_frames.end() || found->origin != origin) {
        reply({});
        return;
    }
    if (op == "inputs"_L1) {
        take(*found, data, reply);
    } else if (op == "pause"_L1) {
        QTimer::singleShot(std::clamp(data.toInt(), 0, kFillMs), this, [reply] { reply(QByteArray()); });
    } else if (op == "done"_L1) {
        const int count = std::clamp(data.toInt(), 0, found->answered);
        found->answered -= count;
        m_filled += count;
        m_quiet.start(kQuietMs);
        reply(QByteArray());
    } else {
        reply({});
    }
}

void PageFill::take(Frame &frame, const QByteArray &data, const Reply &reply)
{
    std::optional<FrameReport> report = FrameReport::parse(data);
    if (!report || frame.reply) {
        reply({});
        return;
    }
    for (auto &[document, inputs] : report->inputs) {
        const auto last = inputs.begin() + std::min<qsizetype>(std::ssize(inputs), kMostInputs - frame.asked);
        std::move(inputs.begin(), last, std::back_inserter(frame.inputs[document]));
        frame.asked += static_cast<int>(last - inputs.begin());
    }
    if (!report->isLast) {
        reply(QByteArray());
        return;
    }
    report->inputs.clear();
    frame.reportedAt = ++m_reports;
    for (const QString &path : frame.report.shown)
        m_shownAt.remove(path);
    for (const QString &path : report->shown)
        m_shownAt.insert(path, m_reports);
    frame.report = std::move(*report);
    frame.reply = reply;
    if (frame.report.shown.isEmpty()) {
        answerIfSeen(frame);
        return;
    }
    for (Frame &one : m_frames)
        answerIfSeen(one);
}

void PageFill::answerIfSeen(Frame &frame)
{
    if (!frame.reply || !isSeen(frame))
        return;
    std::vector<FormAnswer> answers;
    for (const FrameForm &form : formsOf(frame)) {
        const std::vector<FormAnswer> some = m_record->matchForm(form, m_locked);
        answers.insert(answers.end(), some.begin(), some.end());
    }
    frame.answered += static_cast<int>(answers.size());
    std::exchange(frame.reply, {})(toJson(answers));
    m_quiet.start(kQuietMs);
}

/// Only the frame around it can tell whether a frame is seen, and only by its place. So what counts is a report that
/// came after the frame had named its place; a report names the frames that have kept theirs since the report before.
bool PageFill::isSeen(const Frame &frame) const
{
    const QString &path = frame.report.path;
    if (path.isEmpty() || path == u'?')
        return true;
    for (qsizetype end = path.indexOf(u'.');; end = path.indexOf(u'.', end + 1)) {
        if (m_shownAt.value(end < 0 ? path : path.left(end)) <= frame.reportedAt)
            return false;
        if (end < 0)
            return true;
    }
}

/// What a frame asks about, by document: all of them have its origin.
std::vector<FrameForm> PageFill::formsOf(Frame &frame) const
{
    const QString origin = originText(frame.origin);
    // The address of a document without an origin of its own (sandboxed) still says how it came.
    const QUrl source = origin.isEmpty() ? QUrl(frame.report.from) : frame.origin;
    const QStringList &around = frame.report.around;
    const bool isSecure =
        frame.report.isSecureContext && isProtected(source) && isProtected(m_page.url()) &&
        std::all_of(around.begin(), around.end(), [this](const QString &one) { return isProtected(QUrl(one)); });
    std::vector<FrameForm> forms;
    for (auto &[document, inputs] : std::exchange(frame.inputs, {}))
        forms.push_back({origin, isSecure, std::move(inputs)});
    return forms;
}

/// Whether what is sent to an origin stays between it and the user.
bool PageFill::isProtected(const QUrl &origin) const
{
    const QString scheme = origin.scheme();
    if (scheme == "https"_L1)
        return !m_surroundings.isExcepted(origin.host());
    return scheme == "file"_L1 || scheme == "corvane"_L1 || (scheme == "http"_L1 && isLocalMachine(origin.host()));
}

// --- the page itself ---

/// Runs a script in the page that gives what the page asks for next. A page that has gone meanwhile has another one
/// there, which knows nothing of this fill.
void PageFill::drivePage(const QString &script)
{
    const QPointer<PageFill> guard(this);
    m_page.runJavaScript(script, PageChannel::kWorld, [guard, key = m_pageKey](const QVariant &asked) {
        if (!guard || !guard->isRunning() || guard->m_pageKey != key)
            return;
        if (!std::exchange(guard->m_hasBegun, true))
            guard->m_end.start(kFillMs);
        guard->pageAsks(asked.toString());
    });
}

void PageFill::pageAsks(const QString &asked)
{
    if (asked.isEmpty())
        return;
    const qsizetype line = asked.indexOf(u'\n');
    const QString key = m_pageKey, op = asked.left(line);
    const QByteArray data = QStringView(asked).mid(line + 1).toUtf8();
    handle(op, key, data, m_frames.value(key).origin, [this, key](const std::optional<QByteArray> &answer) {
        if (!answer || !isRunning() || m_pageKey != key)
            return;
        const QByteArray quoted = QJsonDocument(QJsonArray{QString::fromUtf8(*answer)}).toJson(QJsonDocument::Compact);
        drivePage(u"corvaneFill.step('%1', %2[0])"_s.arg(key, QString::fromUtf8(quoted)));
    });
}

} // namespace engine
