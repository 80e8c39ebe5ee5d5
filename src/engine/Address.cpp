#include "engine/Address.h"

#include <QDir>
#include <QFileInfo>
#include <QHostAddress>
#include <QRegularExpression>
#include <QStringList>
#include <QUrlQuery>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

constexpr auto kPageSchemes = {"http"_L1, "https"_L1, "ftp"_L1,         "file"_L1,   "about"_L1,
                               "data"_L1, "blob"_L1,  "view-source"_L1, "corvane"_L1};
constexpr auto kOtherPrograms = {"mailto"_L1, "tel"_L1};

template <typename List>
bool isOneOf(const List &list, const QString &text)
{
    return std::find(list.begin(), list.end(), text) != list.end();
}

/// Whether the text before the path looks like a host that somebody would type.
bool isHost(const QString &host)
{
    if (host.compare("localhost"_L1, Qt::CaseInsensitive) == 0 || host.endsWith(".localhost"_L1, Qt::CaseInsensitive))
        return true;
    if (host.startsWith(u'[') && host.endsWith(u']'))
        return QHostAddress(host.mid(1, host.size() - 2)).protocol() == QAbstractSocket::IPv6Protocol;
    QStringList labels = host.split(u'.');
    if (labels.size() > 1 && labels.last().isEmpty())
        labels.removeLast();
    if (labels.size() < 2 || labels.contains(QString()))
        return false;
    // "3.14" is a number to its writer and an address to the resolver: only a full quad counts.
    bool isNumber = false;
    labels.last().toUInt(&isNumber);
    if (isNumber)
        return labels.size() == 4 && QHostAddress(host).protocol() == QAbstractSocket::IPv4Protocol;
    return !QUrl::toAce(host).isEmpty();
}

Address pageAt(const QUrl &url)
{
    if (!url.isValid() || !mayOpen(url))
        return {};
    return {Address::Kind::Page, url};
}

} // namespace

Address completeAddress(const QString &text)
{
    QString trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return {Address::Kind::Page, QUrl(u"about:blank"_s)};

    if (trimmed.startsWith("~/"_L1))
        trimmed.replace(0, 1, QDir::homePath());
    if (trimmed.startsWith(u'/') && QFileInfo::exists(trimmed))
        return pageAt(QUrl::fromLocalFile(trimmed));

    static const QRegularExpression withScheme(u"^([a-zA-Z][a-zA-Z0-9+.-]*):(?!\\d+(?:[/?#]|$))"_s);
    if (const auto match = withScheme.match(trimmed); match.hasMatch()) {
        const QString scheme = match.captured(1).toLower();
        if (isOneOf(kOtherPrograms, scheme))
            return {Address::Kind::Elsewhere, QUrl(trimmed)};
        if (!isOneOf(kPageSchemes, scheme))
            return {};
        const QUrl url(trimmed, QUrl::TolerantMode);
        if ((scheme == "http"_L1 || scheme == "https"_L1) && url.host().isEmpty())
            return {};
        return pageAt(url);
    }

    static const QRegularExpression hostPart(u"^(\\[[^\\]]*\\]|[^\\s/?#:@\\[\\]]+)(:\\d{1,5})?(?=[/?#]|$)"_s);
    const auto match = hostPart.match(trimmed);
    if (!match.hasMatch() || !isHost(match.captured(1)))
        return {};
    return pageAt(QUrl("http://"_L1 + trimmed, QUrl::TolerantMode));
}

bool mayOpen(const QUrl &url)
{
    const QString scheme = url.scheme();
    if (scheme == "about"_L1)
        return url.path() == "blank"_L1 || url.path() == "srcdoc"_L1;
    if (scheme == "view-source"_L1)
        return mayOpen(QUrl(url.toString().mid(scheme.size() + 1)));
    return isOneOf(kPageSchemes, scheme) || isOneOf(kOtherPrograms, scheme);
}

QUrl addressOfWordsPage(const QString &words)
{
    // Nobody searches for more; an address that long would only slow the engine down.
    constexpr int kLongest = 2000;
    QUrl url(u"corvane://words/"_s);
    url.setQuery(u"w="_s + QString::fromLatin1(QUrl::toPercentEncoding(words.left(kLongest))));
    return url;
}

bool isWordsPage(const QUrl &url)
{
    return url.scheme() == "corvane"_L1 && url.host() == "words"_L1;
}

QString shownAddress(const QUrl &url)
{
    if (isWordsPage(url))
        return QUrlQuery(url).queryItemValue(u"w"_s, QUrl::FullyDecoded);
    return url.toString(QUrl::FullyEncoded | QUrl::RemovePassword);
}

} // namespace engine
