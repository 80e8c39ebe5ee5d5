#pragma once

#include <QDateTime>
#include <QObject>
#include <QString>
#include <functional>
#include <optional>

class QSslSocket;

namespace engine {

/// What a site shows of itself. Texts are plain and may be empty.
struct Certificate
{
    QString subject;
    QString issuer;
    QDateTime validFrom;
    QDateTime validUntil;
    /// SHA-256, in pairs of hexadecimal digits.
    QString fingerprint;
    /// Protocol and cipher of the connection that fetched it.
    QString encryption;
};

/// Asks a site for its certificate over a connection of its own, since the engine tells nothing of the one that it
/// trusts. Also a certificate that is not valid is given. Ends with its parent.
class CertificateReader : public QObject
{
    Q_OBJECT
public:
    /// `done` is called once, from the event loop, with nothing when the site does not answer within 10 s.
    CertificateReader(const QString &host, quint16 port,
                      std::function<void(const std::optional<Certificate> &certificate)> done, QObject *parent);

private:
    void answer();

    QSslSocket *m_socket;
    std::function<void(const std::optional<Certificate> &)> m_done;
};

} // namespace engine
