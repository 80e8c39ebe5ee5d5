#include "engine/PropertiesDialog.h"

#include "base/Strings.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMimeDatabase>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

constexpr int kNotKnown = 20455;
/// Wide enough for most addresses; longer ones scroll in their line.
constexpr int kValueWidth = 360;
/// A page may call itself as it likes.
constexpr int kLongestValue = 2000;

QString typeText(const QString &contentType)
{
    if (contentType.isEmpty())
        return LoadResString(kNotKnown);
    const QString comment = QMimeDatabase().mimeTypeForName(contentType).comment();
    return comment.isEmpty() || comment == contentType ? contentType : u"%1 (%2)"_s.arg(comment, contentType);
}

QString protocolText(const PageInfo &info)
{
    const QString scheme = info.url.scheme();
    if (scheme != "http"_L1 && scheme != "https"_L1)
        return scheme.isEmpty() ? LoadResString(kNotKnown) : scheme.toUpper();
    const QString version = info.protocol == "h2"_L1   ? u"HTTP/2"_s
                            : info.protocol == "h3"_L1 ? u"HTTP/3"_s
                                                       : info.protocol.toUpper();
    return version.isEmpty() ? scheme.toUpper() : u"%1 (%2)"_s.arg(scheme.toUpper(), version);
}

QString sizeText(qint64 size)
{
    if (size < 0)
        return LoadResString(kNotKnown);
    const QLocale locale;
    return LoadResString(20457).arg(locale.formattedDataSize(size, 1, QLocale::DataSizeTraditionalFormat),
                                    locale.toString(size));
}

QString timeText(const QDateTime &time)
{
    return time.isValid() ? QLocale().toString(time.toLocalTime(), QLocale::LongFormat) : LoadResString(kNotKnown);
}

QString securityText(const PageInfo &info)
{
    switch (info.security) {
    case PageInfo::Security::Secure:
        return LoadResString(20458);
    case PageInfo::Security::Excepted:
        return LoadResString(20460);
    case PageInfo::Security::Open:
        break;
    }
    if (info.url.isLocalFile())
        return LoadResString(20461);
    return LoadResString(info.url.scheme() == "corvane"_L1 ? 20462 : 20459);
}

} // namespace

PropertiesDialog::PropertiesDialog(const PageInfo &info, QWidget *parent)
    : QDialog(parent)
{
    setObjectName(u"PropertiesDialog"_s);
    setWindowTitle(LoadResString(20445));
    setAttribute(Qt::WA_DeleteOnClose);

    auto *all = new QVBoxLayout(this);
    all->setSpacing(12);
    auto *form = new QFormLayout;
    form->setLabelAlignment(Qt::AlignLeft);
    form->setHorizontalSpacing(16);
    form->setVerticalSpacing(3);
    all->addLayout(form);
    addPageLines(form, info);
    if (info.security != PageInfo::Security::Open)
        all->addWidget(certificateBox(info));
    all->addStretch();

    auto *buttons = new QDialogButtonBox(this);
    QPushButton *copy = buttons->addButton(LoadResString(20456), QDialogButtonBox::ActionRole);
    copy->setObjectName(u"btnCopyAddress"_s);
    copy->setAutoDefault(false);
    connect(copy, &QPushButton::clicked, this,
            [address = info.address] { QApplication::clipboard()->setText(address); });
    QPushButton *close = buttons->addButton(LoadResString(20420), QDialogButtonBox::RejectRole);
    close->setDefault(true);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    all->addWidget(buttons);
    close->setFocus();
}

/// A line of text without a frame: it can be read to its end and copied, and does not make the window wider.
QLineEdit *PropertiesDialog::addLine(QFormLayout *form, int caption, const QString &name, const QString &value)
{
    auto *line = new QLineEdit(value.left(kLongestValue).simplified(), this);
    line->setObjectName(name);
    line->setReadOnly(true);
    line->setFrame(false);
    line->setMinimumWidth(kValueWidth);
    line->setCursorPosition(0);
    line->setToolTip(line->text().toHtmlEscaped());
    QPalette plain = line->palette();
    plain.setBrush(QPalette::Base, Qt::transparent);
    line->setPalette(plain);
    const QString label = LoadResString(caption);
    line->setAccessibleName(label);
    form->addRow(label, line);
    return line;
}

void PropertiesDialog::addPageLines(QFormLayout *form, const PageInfo &info)
{
    addLine(form, 20446, u"txtTitle"_s, info.title);
    addLine(form, 20447, u"txtAddress"_s, info.address);
    addLine(form, 20448, u"txtType"_s, typeText(info.contentType));
    addLine(form, 20449, u"txtProtocol"_s, protocolText(info));
    addLine(form, 20450, u"txtEncoding"_s, info.encoding.isEmpty() ? LoadResString(kNotKnown) : info.encoding);
    addLine(form, 20451, u"txtSize"_s, sizeText(info.size));
    addLine(form, 20452, u"txtModified"_s, timeText(info.modified));
    addLine(form, 20453, u"txtLoaded"_s, timeText(info.loaded));
    addLine(form, 20454, u"txtSecurity"_s, securityText(info));
}

QWidget *PropertiesDialog::certificateBox(const PageInfo &info)
{
    const QString host = info.url.host();
    auto *box = new QGroupBox(LoadResString(20463).arg(host), this);
    auto *form = new QFormLayout(box);
    form->setLabelAlignment(Qt::AlignLeft);
    form->setHorizontalSpacing(16);
    form->setVerticalSpacing(3);
    auto *waiting = new QLabel(LoadResString(20470), box);
    waiting->setObjectName(u"lblCertificate"_s);
    form->addRow(waiting);
    constexpr int kHttpsPort = 443;
    new CertificateReader(
        host, static_cast<quint16>(info.url.port(kHttpsPort)),
        [this, form, waiting](const std::optional<Certificate> &certificate) {
            if (!certificate) {
                waiting->setText(LoadResString(20471));
                return;
            }
            form->removeRow(waiting);
            showCertificate(form, *certificate);
        },
        this);
    return box;
}

void PropertiesDialog::showCertificate(QFormLayout *form, const Certificate &certificate)
{
    addLine(form, 20464, u"txtIssuedTo"_s, certificate.subject);
    addLine(form, 20465, u"txtIssuedBy"_s, certificate.issuer);
    addLine(form, 20466, u"txtValidFrom"_s, timeText(certificate.validFrom));
    addLine(form, 20467, u"txtValidUntil"_s, timeText(certificate.validUntil));
    if (!certificate.encryption.isEmpty())
        addLine(form, 20469, u"txtEncryption"_s, certificate.encryption);
    addLine(form, 20468, u"txtFingerprint"_s, certificate.fingerprint);
}

} // namespace engine
