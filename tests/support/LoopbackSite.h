#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QPointer>
#include <QString>
#include <QTcpServer>
#include <functional>
#include <vector>

class QTcpSocket;

/// A small real web server on 127.0.0.1, inside the test, for everything that pages and their servers do well or badly.
/// It answers on the test's own event loop; a path without an answer gets 404.
class LoopbackSite : public QTcpServer
{
    Q_OBJECT
public:
    struct Request
    {
        QByteArray method;
        /// Path with the query.
        QByteArray target;
        /// Names in lower case.
        QHash<QByteArray, QByteArray> headers;
        QByteArray body;
        QByteArray path() const { return target.split('?').first(); }
    };

    enum class Ending {
        Complete,
        /// Chunks without end, ten a second.
        Endless,
        /// Promises more than it sends, then closes the connection.
        CutOff,
        /// Nothing at all until release(), and then the answer.
        Held,
        /// The first half, and the rest at release().
        Halved,
    };

    struct Answer
    {
        QByteArray body;
        QByteArray type = "text/html;charset=utf-8";
        int status = 200;
        QList<std::pair<QByteArray, QByteArray>> headers = {};
        Ending ending = Ending::Complete;
    };
    using Handler = std::function<Answer(const Request &)>;

    enum class Security { None, SelfSigned };

    explicit LoopbackSite(Security security = Security::None);

    /// "http://127.0.0.1:<port><path>"; another host name that leads here makes another site of it.
    QString address(const QString &path = QStringLiteral("/"), const QString &host = QStringLiteral("127.0.0.1")) const;

    void handle(const QByteArray &path, Handler handler) { m_handlers.insert(path, std::move(handler)); }
    void add(const QByteArray &path, const Answer &answer)
    {
        handle(path, [answer](const Request &) { return answer; });
    }
    /// A page with a title, which some tests wait for.
    void page(const QByteArray &path, const QByteArray &title, const QByteArray &body = {});
    void redirect(const QByteArray &path, const QByteArray &to)
    {
        add(path, {{}, "text/html", 302, {{"Location", to}}});
    }
    /// An empty page of this title behind Basic authentication: the name is "me", the password "secret". 401 is for the
    /// page's own server, 407 for a proxy server.
    void locked(const QByteArray &path, const QByteArray &title, int status = 401);
    void download(const QByteArray &path, const QByteArray &fileName, const QByteArray &content,
                  Ending ending = Ending::Complete);
    /// Lets the requests for `path` that are held go on.
    void release(const QByteArray &path);

    const std::vector<Request> &requests() const { return m_requests; }
    /// How often anybody has connected, for a request or not.
    int connections() const { return m_connections; }
    int count(const QByteArray &path) const;
    /// Waits until `path` has been asked for `times` times in all.
    bool waitFor(const QByteArray &path, int times = 1, int milliseconds = 10'000) const;
    void clearRequests() { m_requests.clear(); }

protected:
    void incomingConnection(qintptr descriptor) override;

private:
    struct Held
    {
        QByteArray path;
        QPointer<QTcpSocket> socket;
        Answer answer;
    };
    void read(QTcpSocket *socket);
    void reply(QTcpSocket *socket, const Request &request);
    static void send(QTcpSocket *socket, const Answer &answer);

    Security m_security;
    int m_connections = 0;
    QHash<QByteArray, Handler> m_handlers;
    std::vector<Request> m_requests;
    std::vector<Held> m_held;
    QHash<QTcpSocket *, QByteArray> m_partial;
};
