#pragma once

#include <QHash>
#include <QPointer>
#include <QString>
#include <QWebEngineUrlSchemeHandler>
#include <functional>

class QUrlQuery;
class QWebEnginePage;

namespace engine {

/// A message box that the script of a page waits for.
struct BoxRequest
{
    enum class Kind { Alert, Confirm, Prompt };
    Kind kind = Kind::Alert;
    QString message;
    QString defaultText;
    /// Origin of the frame that asks, told by the engine and not by the page.
    QString origin;
    /// The page's script stands still until this is answered; it goes when its frame goes.
    QPointer<QWebEngineUrlRequestJob> job;
};

/// Lets the documents of a page call the program without stopping any other page: requests to a private address scheme
/// of which the renderer of that page alone waits for the answer.
class PageChannel : public QWebEngineUrlSchemeHandler
{
    Q_OBJECT
public:
    static constexpr char kScheme[] = "engine";
    /// World of everything of ours that runs beside a document's own scripts: the first one above the engine's
    /// (QWebEngineScript::UserWorld). One for all purposes, since each costs every frame some 0.3 MiB.
    static constexpr quint32 kWorld = 3;

    class Client
    {
    public:
        virtual ~Client() = default;
        virtual void boxRequested(const BoxRequest &request) = 0;
        /// A frame that is not the page itself has loaded.
        virtual void frameLoaded() = 0;
    };

    enum class WindowClose {
        /// window.close() is left to the engine.
        Allowed,
        /// window.close() does nothing: no script opened this window.
        Ignored,
    };

    /// Gives the documents of `page` their side of the channel, from the next document on. Calling it again replaces
    /// the scripts.
    void join(QWebEnginePage &page, Client &client, WindowClose close);
    void leave(Client &client);

    /// Requests that carry the token that this gives go to `listener`, which answers them at once or later. For scripts
    /// of the program's own, in a world where no page can read the token.
    using Listener = std::function<void(QWebEngineUrlRequestJob *job)>;
    QString listen(const Listener &listener);
    void endListening(const QString &token) { m_listeners.remove(token); }

    /// Gives the documents of `page`, frames included, a script from the next document on, in place of the one that had
    /// this name. An empty source only takes that away.
    static void setScript(QWebEnginePage &page, const QString &name, const QString &source, quint32 world);

    void requestStarted(QWebEngineUrlRequestJob *job) override;

    /// 128 random bits in hexadecimal digits.
    static QString newToken();
    /// A value of a request's query as the script has given it.
    static QString value(const QUrlQuery &query, const QString &key);
    /// Answers a request. Of a box the empty answer is confirm's false and prompt's null.
    static void answer(QWebEngineUrlRequestJob *job, const QByteArray &content);

private:
    /// By token. The two kinds of callers have tokens of their own, since pages can read the one of their boxes.
    QHash<QString, Client *> m_boxes;
    QHash<QString, Client *> m_frames;
    QHash<QString, Listener> m_listeners;
};

} // namespace engine
