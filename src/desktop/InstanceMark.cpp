#include "desktop/InstanceMark.h"

#include "desktop/instance/Instance.h"

#include <QFile>
#include <QLocalServer>
#include <QLocalSocket>
#include <QPointer>
#include <QTimer>
#include <chrono>
#include <unistd.h>

using namespace std::chrono_literals;

namespace desktop {
namespace {

/// A sender writes its message at once; one that pauses for longer is none.
constexpr auto kSilence = 2s;

/// Header and bytes of the largest message: what lies behind it is left unread.
constexpr qint64 kBufferSize = 8 + instance::kMaxBytes;

constexpr char kAnswer = 1;

/// One sender, from its connection to the answer. Deletes itself.
class Sender : public QObject
{
public:
    Sender(QLocalSocket *socket, InstanceMark::Receiver receive)
        : QObject(socket)
        , m_socket(socket)
        , m_receive(std::move(receive))
    {
        socket->setReadBufferSize(kBufferSize);
        m_silence.setSingleShot(true);
        connect(&m_silence, &QTimer::timeout, this, [this] { drop(); });
        connect(socket, &QLocalSocket::readyRead, this, [this] { read(); });
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        m_silence.start(kSilence);
        if (socket->bytesAvailable() > 0)
            read();
    }

private:
    void read()
    {
        if (m_isDone)
            return;
        m_received += m_socket->read(kBufferSize - m_received.size());
        instance::CopyData message;
        switch (instance::decode({m_received.constData(), size_t(m_received.size())}, message)) {
        case instance::Decoded::Incomplete:
            m_silence.start(kSilence);
            break;
        case instance::Decoded::Refused:
            drop();
            break;
        case instance::Decoded::Complete:
            deliver(message);
            break;
        }
    }

    void deliver(const instance::CopyData &message)
    {
        m_isDone = true;
        m_silence.stop();
        // The receiver lets events through; the sender may have gone when it returns, and so may the mark.
        const QPointer<QLocalSocket> socket(m_socket);
        const auto receive = m_receive;
        receive(static_cast<int32_t>(message.bytes.size()), QByteArray::fromStdString(message.bytes));
        if (!socket || socket->state() != QLocalSocket::ConnectedState)
            return;
        socket->write(&kAnswer, 1);
        socket->disconnectFromServer();
    }

    void drop()
    {
        m_isDone = true;
        m_socket->abort();
        m_socket->deleteLater();
    }

    QLocalSocket *m_socket;
    InstanceMark::Receiver m_receive;
    QByteArray m_received;
    QTimer m_silence;
    bool m_isDone = false;
};

} // namespace

struct InstanceMark::Private
{
    QLocalServer server;
    std::string path;
};

InstanceMark::InstanceMark(const QString &runtimeFolder, Receiver receive, QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
{
    connect(&d->server, &QLocalServer::newConnection, this, [this, receive = std::move(receive)] {
        while (QLocalSocket *socket = d->server.nextPendingConnection())
            new Sender(socket, receive);
    });
    if (runtimeFolder.isEmpty())
        return;

    int serial = 1;
    std::string path;
    do {
        path = instance::socketPath(QFile::encodeName(runtimeFolder).toStdString(), getpid(), serial++);
    } while (access(path.c_str(), F_OK) == 0);
    const int descriptor = instance::listenOn(path);
    if (descriptor < 0)
        return;
    d->path = path;
    if (!d->server.listen(descriptor))
        close(descriptor);
}

InstanceMark::~InstanceMark()
{
    if (!d->path.empty())
        unlink(d->path.c_str());
}

bool InstanceMark::isListening() const
{
    return d->server.isListening();
}

} // namespace desktop
