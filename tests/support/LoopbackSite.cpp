#include "support/LoopbackSite.h"
#include "support/Wait.h"

#include <QFile>
#include <QSslCertificate>
#include <QSslKey>
#include <QSslSocket>
#include <QTimer>

using namespace Qt::StringLiterals;

LoopbackSite::LoopbackSite(Security security)
    : m_security(security)
{
    if (!listen(QHostAddress::LocalHost))
        qFatal("no loopback port");
}

QString LoopbackSite::address(const QString &path, const QString &host) const
{
    return u"%1://%2:%3%4"_s.arg(m_security == Security::None ? u"http"_s : u"https"_s, host)
        .arg(serverPort())
        .arg(path);
}

void LoopbackSite::page(const QByteArray &path, const QByteArray &title, const QByteArray &body)
{
    add(path, {"<!doctype html><html><head><title>" + title + "</title></head><body>" + body + "</body></html>"});
}

void LoopbackSite::locked(const QByteArray &path, const QByteArray &title, int status)
{
    const QByteArray given = status == 407 ? "proxy-authorization" : "authorization";
    const QByteArray asked = status == 407 ? "Proxy-Authenticate" : "WWW-Authenticate";
    handle(path, [=](const Request &request) {
        if (request.headers.value(given) == "Basic " + QByteArray("me:secret").toBase64())
            return Answer{"<title>" + title + "</title>"};
        return Answer{"<title>Locked</title>locked", "text/html", status, {{asked, "Basic realm=\"Vault\""}}};
    });
}

void LoopbackSite::download(const QByteArray &path, const QByteArray &fileName, const QByteArray &content,
                            Ending ending)
{
    const QByteArray attachment = "attachment; filename=\"" + fileName + '"';
    add(path, {content, "application/octet-stream", 200, {{"Content-Disposition", attachment}}, ending});
}

void LoopbackSite::release(const QByteArray &path)
{
    for (const Held &held : std::exchange(m_held, {})) {
        if (held.path != path) {
            m_held.push_back(held);
        } else if (held.socket && held.answer.ending == Ending::Halved) {
            held.socket->write(held.answer.body.mid(held.answer.body.size() / 2));
            held.socket->disconnectFromHost();
        } else if (held.socket) {
            send(held.socket, held.answer);
        }
    }
}

int LoopbackSite::count(const QByteArray &path) const
{
    return static_cast<int>(std::count_if(m_requests.begin(), m_requests.end(),
                                          [&](const Request &request) { return request.path() == path; }));
}

bool LoopbackSite::waitFor(const QByteArray &path, int times, int milliseconds) const
{
    return waitUntil([&] { return count(path) >= times; }, milliseconds);
}

void LoopbackSite::incomingConnection(qintptr descriptor)
{
    ++m_connections;
    QTcpSocket *socket = nullptr;
    if (m_security == Security::SelfSigned) {
        auto *secure = new QSslSocket(this);
        QFile certificate(QStringLiteral(TLS_FIXTURES "/certificate.pem"));
        QFile key(QStringLiteral(TLS_FIXTURES "/key.pem"));
        if (!certificate.open(QIODevice::ReadOnly) || !key.open(QIODevice::ReadOnly))
            qFatal("no TLS fixtures");
        secure->setLocalCertificate(QSslCertificate(&certificate));
        secure->setPrivateKey(QSslKey(&key, QSsl::Ec));
        socket = secure;
    } else {
        socket = new QTcpSocket(this);
    }
    if (!socket->setSocketDescriptor(descriptor)) {
        delete socket;
        return;
    }
    connect(socket, &QTcpSocket::readyRead, this, [this, socket] { read(socket); });
    connect(socket, &QTcpSocket::disconnected, this, [this, socket] {
        m_partial.remove(socket);
        socket->deleteLater();
    });
    if (auto *secure = qobject_cast<QSslSocket *>(socket))
        secure->startServerEncryption();
}

void LoopbackSite::read(QTcpSocket *socket)
{
    QByteArray &data = m_partial[socket];
    data += socket->readAll();
    const qsizetype headEnd = data.indexOf("\r\n\r\n");
    if (headEnd < 0)
        return;
    Request request;
    QList<QByteArray> lines = data.left(headEnd).split('\n');
    const QList<QByteArray> first = lines.takeFirst().trimmed().split(' ');
    request.method = first.value(0);
    request.target = first.value(1);
    for (const QByteArray &line : lines) {
        const qsizetype colon = line.indexOf(':');
        request.headers.insert(line.left(colon).trimmed().toLower(), line.mid(colon + 1).trimmed());
    }
    const qsizetype length = request.headers.value("content-length").toLongLong();
    if (data.size() < headEnd + 4 + length)
        return;
    request.body = data.mid(headEnd + 4, length);
    data.clear();
    m_requests.push_back(request);
    reply(socket, request);
}

void LoopbackSite::reply(QTcpSocket *socket, const Request &request)
{
    Answer answer{"<title>Missing</title>no such page", "text/html", 404};
    if (const auto handler = m_handlers.value(request.path()))
        answer = handler(request);
    if (answer.ending == Ending::Held || answer.ending == Ending::Halved)
        m_held.push_back({request.path(), socket, answer});
    if (answer.ending != Ending::Held)
        send(socket, answer);
}

/// One answer a connection: the tests see every request, and nothing is kept open that a test would have to end.
void LoopbackSite::send(QTcpSocket *socket, const Answer &answer)
{
    QByteArray head = "HTTP/1.1 " + QByteArray::number(answer.status) + " Answer\r\nConnection: close\r\n";
    head += "Content-Type: " + answer.type + "\r\n";
    for (const auto &[name, value] : answer.headers)
        head += name + ": " + value + "\r\n";
    if (answer.ending == Ending::Endless) {
        const auto chunk = [](const QByteArray &data) {
            return QByteArray::number(data.size(), 16) + "\r\n" + data + "\r\n";
        };
        socket->write(head + "Transfer-Encoding: chunked\r\n\r\n" + chunk(answer.body + ' '));
        auto *more = new QTimer(socket);
        QObject::connect(more, &QTimer::timeout, socket, [socket, chunk] { socket->write(chunk("<p>more</p>")); });
        more->start(100);
        return;
    }
    const qsizetype size = answer.body.size();
    const bool isHalved = answer.ending == Ending::Halved;
    head += "Content-Length: " + QByteArray::number(answer.ending == Ending::CutOff ? size + 1000 : size) + "\r\n\r\n";
    socket->write(head + answer.body.left(isHalved ? size / 2 : size));
    if (!isHalved)
        socket->disconnectFromHost();
}
