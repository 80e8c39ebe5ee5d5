#include "engine/webengine/PageChannel.h"

#include <QBuffer>
#include <QRandomGenerator>
#include <QUrlQuery>
#include <QWebEnginePage>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineUrlRequestJob>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

/// Replaces the three boxes in every document. What the replacement needs is taken before the page can change it. A
/// document that may not use the channel (a local file, a sandboxed frame) falls back on the engine's own boxes.
const QString &boxScript()
{
    static const QString script = uR"JS((function () {
    const X = XMLHttpRequest, P = X.prototype, open = P.open, send = P.send, R = Reflect.apply, S = String,
          text = Object.getOwnPropertyDescriptor(P, 'responseText').get, encode = encodeURIComponent,
          slice = S.prototype.slice, own = { alert: window.alert, confirm: window.confirm, prompt: window.prompt },
          cut = v => encode(R(slice, S(v), [0, 10000]));
    const ask = (kind, message, start) => {
        const m = S(message), d = S(start);
        try {
            const x = new X;
            R(open, x, ['GET', 'engine://box/' + kind + '?t=%TOKEN%&m=' + cut(m) + '&d=' + cut(d), false]);
            R(send, x, []);
            return R(text, x, []);
        } catch (e) {
            const answer = R(own[kind], window, [m, d]);
            return kind === 'prompt' ? (answer === null ? '' : '=' + answer) : (answer ? '1' : '');
        }
    };
    window.alert = function alert(message) { ask('alert', arguments.length ? message : '', ''); };
    window.confirm = function confirm(message) { return ask('confirm', arguments.length ? message : '', '') === '1'; };
    window.prompt = function prompt(message, start) {
        const r = ask('prompt', arguments.length ? message : '', arguments.length > 1 ? start : '');
        return r[0] === '=' ? R(slice, r, [1]) : null;
    };
    %CLOSE%
})();)JS"_s;
    return script;
}

/// Tells when a frame has loaded, which the engine does not.
const QString &frameScript()
{
    static const QString script = uR"JS((function () {
    if (window === window.top) return;
    window.addEventListener('load', () => {
        const x = new XMLHttpRequest;
        x.open('GET', 'engine://frame/loaded?t=%TOKEN%');
        x.send();
    }, { once: true });
})();)JS"_s;
    return script;
}

} // namespace

QString PageChannel::newToken()
{
    quint32 random[4];
    QRandomGenerator::system()->fillRange(random);
    return QString::fromLatin1(QByteArray(reinterpret_cast<const char *>(random), sizeof random).toHex());
}

/// Path data of a URL survive only while "+" and "&" stay escaped, so the values are decoded one by one.
QString PageChannel::value(const QUrlQuery &query, const QString &key)
{
    return QUrl::fromPercentEncoding(query.queryItemValue(key, QUrl::FullyEncoded).toUtf8());
}

void PageChannel::join(QWebEnginePage &page, Client &client, WindowClose close)
{
    leave(client);
    const QString boxToken = newToken();
    const QString frameToken = newToken();
    m_boxes.insert(boxToken, &client);
    m_frames.insert(frameToken, &client);
    setScript(page, u"boxes"_s,
              QString(boxScript())
                  .replace("%TOKEN%"_L1, boxToken)
                  .replace("%CLOSE%"_L1,
                           close == WindowClose::Allowed ? QString() : u"window.close = function close() {};"_s),
              QWebEngineScript::MainWorld);
    setScript(page, u"frames"_s, QString(frameScript()).replace("%TOKEN%"_L1, frameToken), kWorld);
}

QString PageChannel::listen(const Listener &listener)
{
    const QString token = newToken();
    m_listeners.insert(token, listener);
    return token;
}

void PageChannel::setScript(QWebEnginePage &page, const QString &name, const QString &source, quint32 world)
{
    for (const QWebEngineScript &old : page.scripts().find(name))
        page.scripts().remove(old);
    if (source.isEmpty())
        return;
    QWebEngineScript script;
    script.setName(name);
    script.setSourceCode(source);
    script.setWorldId(world);
    script.setInjectionPoint(QWebEngineScript::DocumentCreation);
    script.setRunsOnSubFrames(true);
    page.scripts().insert(script);
}

void PageChannel::leave(Client &client)
{
    for (auto *tokens : {&m_boxes, &m_frames})
        tokens->removeIf([&](auto entry) { return entry.value() == &client; });
}

void PageChannel::requestStarted(QWebEngineUrlRequestJob *job)
{
    const QUrl url = job->requestUrl();
    const QUrlQuery query(url);
    const QString token = value(query, u"t"_s);
    if (url.host() == "frame"_L1 && m_frames.contains(token)) {
        Client *client = m_frames.value(token);
        answer(job, {});
        client->frameLoaded();
        return;
    }
    if (const auto listener = m_listeners.constFind(token); listener != m_listeners.constEnd()) {
        // A copy: the listener may end its listening.
        const Listener tell = *listener;
        tell(job);
        return;
    }
    if (url.host() == "content"_L1 && url.path() == "/counts"_L1) {
        answer(job, "no");
        return;
    }
    const QUrl initiator = job->initiator();
    // An opaque origin is a sandboxed frame or a local file: the engine's own boxes know what those may do.
    if (url.host() != "box"_L1 || !m_boxes.contains(token) || initiator.scheme().isEmpty() ||
        initiator.host().isEmpty()) {
        job->fail(QWebEngineUrlRequestJob::RequestDenied);
        return;
    }
    BoxRequest request;
    const QString kind = url.path().mid(1);
    request.kind = kind == "confirm"_L1  ? BoxRequest::Kind::Confirm
                   : kind == "prompt"_L1 ? BoxRequest::Kind::Prompt
                                         : BoxRequest::Kind::Alert;
    request.message = value(query, u"m"_s);
    request.defaultText = value(query, u"d"_s);
    request.origin = initiator.toString(QUrl::RemovePath | QUrl::RemoveQuery | QUrl::RemoveFragment |
                                        QUrl::StripTrailingSlash | QUrl::RemoveUserInfo);
    request.job = job;
    m_boxes.value(token)->boxRequested(request);
}

void PageChannel::answer(QWebEngineUrlRequestJob *job, const QByteArray &content)
{
    auto *body = new QBuffer(job);
    body->setData(content);
    body->open(QIODevice::ReadOnly);
    job->reply("text/plain;charset=utf-8", body);
}

} // namespace engine
