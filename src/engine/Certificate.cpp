#include "engine/Certificate.h"

#include <QCryptographicHash>
#include <QSslCertificate>
#include <QSslCipher>
#include <QSslSocket>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

constexpr int kPatienceMs = 10'000;

/// The name itself and the organization behind it, as far as they are there.
QString described(const QStringList &names, const QStringList &organizations)
{
    QStringList parts = names + organizations;
    parts.removeAll(QString());
    parts.removeDuplicates();
    return parts.join(", "_L1);
}

QString protocolName(QSsl::SslProtocol protocol)
{
    switch (protocol) {
    case QSsl::TlsV1_2:
        return u"TLS 1.2"_s;
    case QSsl::TlsV1_3:
        return u"TLS 1.3"_s;
    default:
        return u"TLS"_s;
    }
}

} // namespace

CertificateReader::CertificateReader(const QString &host, quint16 port,
                                     std::function<void(const std::optional<Certificate> &)> done, QObject *parent)
    : QObject(parent)
    , m_socket(new QSslSocket(this))
    , m_done(std::move(done))
{
    connect(m_socket, &QSslSocket::encrypted, this, &CertificateReader::answer);
    // Nothing is sent over this connection, so a faulty certificate can do no harm and is shown like any other.
    connect(m_socket, &QSslSocket::sslErrors, m_socket, qOverload<>(&QSslSocket::ignoreSslErrors));
    connect(m_socket, &QSslSocket::errorOccurred, this, &CertificateReader::answer, Qt::QueuedConnection);
    QTimer::singleShot(kPatienceMs, this, &CertificateReader::answer);
    m_socket->connectToHostEncrypted(host, port);
}

void CertificateReader::answer()
{
    const auto done = std::exchange(m_done, nullptr);
    if (!done)
        return;
    const QSslCertificate shown = m_socket->peerCertificate();
    std::optional<Certificate> certificate;
    if (!shown.isNull()) {
        certificate.emplace();
        certificate->subject =
            described(shown.subjectInfo(QSslCertificate::CommonName), shown.subjectInfo(QSslCertificate::Organization));
        certificate->issuer =
            described(shown.issuerInfo(QSslCertificate::CommonName), shown.issuerInfo(QSslCertificate::Organization));
        certificate->validFrom = shown.effectiveDate();
        certificate->validUntil = shown.expiryDate();
        certificate->fingerprint = QString::fromLatin1(shown.digest(QCryptographicHash::Sha256).toHex(' ').toUpper());
        if (m_socket->isEncrypted()) {
            const QSslCipher cipher = m_socket->sessionCipher();
            certificate->encryption = u"%1, %2"_s.arg(protocolName(m_socket->sessionProtocol()), cipher.name());
        }
    }
    m_socket->abort();
    done(certificate);
}

} // namespace engine
