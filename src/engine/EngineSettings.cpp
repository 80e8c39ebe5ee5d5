#include "engine/EngineSettings.h"

#include "base/Files.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QHostAddress>
#include <QLocale>
#include <QRegularExpression>
#include <QUrl>
#include <array>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

/// Everything that the file can hold fits many times.
constexpr qint64 kLargestFile = 64 * 1024;
/// More languages than this help nobody and make every request longer.
constexpr int kMostLanguages = 30;

/// The words of the file for the values of an enumeration, in their order.
constexpr std::array kProxies = {"system", "direct", "manual"};
constexpr std::array kProxyTypes = {"http", "socks5"};
constexpr std::array kCookies = {"all", "no-third-parties", "none"};
constexpr std::array kCaches = {"automatic", "limited", "none"};
constexpr std::array kAgents = {"own", "old", "custom"};

using Values = QHash<QByteArray, QByteArray>;

/// Blanks too, as they would be lost at the end of a line.
QByteArray escaped(const QString &value)
{
    return QUrl::toPercentEncoding(value, "/:;,()+@");
}

template <typename Enum, std::size_t Count>
void readWord(const Values &values, const char *name, const std::array<const char *, Count> &words, Enum &value)
{
    const QByteArray word = values.value(name);
    for (std::size_t i = 0; i < Count; ++i) {
        if (word == words[i])
            value = static_cast<Enum>(i);
    }
}

template <typename Number>
void readNumber(const Values &values, const char *name, int smallest, int largest, Number &value)
{
    bool isNumber = false;
    const int number = values.value(name).toInt(&isNumber);
    if (isNumber && number >= smallest && number <= largest)
        value = static_cast<Number>(number);
}

QString readText(const Values &values, const char *name)
{
    return QUrl::fromPercentEncoding(values.value(name));
}

} // namespace

QByteArray EngineSettings::toText() const
{
    QByteArray text;
    const auto line = [&text](const char *name, const QByteArray &value) { text += name + ('=' + value) + '\n'; };
    const auto word = [&line](const char *name, const auto &words, auto value) {
        line(name, words[static_cast<std::size_t>(value)]);
    };
    word("proxy", kProxies, proxy);
    word("proxy-type", kProxyTypes, proxyType);
    line("proxy-host", escaped(proxyHost));
    line("proxy-port", QByteArray::number(proxyPort));
    line("proxy-user", escaped(proxyUser));
    line("languages", escaped(languages.join(u',')));
    word("cookies", kCookies, cookies);
    line("forget-at-exit", forgetAtExit ? "1" : "0");
    line("do-not-track", doNotTrack ? "1" : "0");
    word("cache", kCaches, cache);
    line("cache-megabytes", QByteArray::number(cacheMegabytes));
    line("download-folder", escaped(downloadFolder));
    word("agent", kAgents, agent);
    line("custom-agent", escaped(customAgent));
    return text;
}

std::optional<EngineSettings> EngineSettings::fromText(const QByteArray &text)
{
    Values values;
    for (const QByteArray &raw : text.split('\n')) {
        const QByteArray line = raw.trimmed();
        if (line.isEmpty() || line.startsWith('#') || line.startsWith('['))
            continue;
        const qsizetype equals = line.indexOf('=');
        if (equals < 1 || line.contains('\0'))
            return std::nullopt;
        values.insert(line.first(equals).trimmed(), line.sliced(equals + 1).trimmed());
    }
    EngineSettings settings;
    readWord(values, "proxy", kProxies, settings.proxy);
    readWord(values, "proxy-type", kProxyTypes, settings.proxyType);
    readNumber(values, "proxy-port", 1, 65535, settings.proxyPort);
    settings.proxyUser = readText(values, "proxy-user");
    if (const QString host = readText(values, "proxy-host"); isHostName(host))
        settings.proxyHost = host;
    else if (settings.proxy == Proxy::Manual)
        settings.proxy = Proxy::System;
    for (const QString &language : readText(values, "languages").split(u',')) {
        if (isLanguageCode(language) && settings.languages.size() < kMostLanguages)
            settings.languages << language;
    }
    readWord(values, "cookies", kCookies, settings.cookies);
    settings.forgetAtExit = values.value("forget-at-exit") == "1";
    settings.doNotTrack = values.value("do-not-track") == "1";
    readWord(values, "cache", kCaches, settings.cache);
    readNumber(values, "cache-megabytes", 1, kLargestCache, settings.cacheMegabytes);
    if (const QString folder = readText(values, "download-folder"); QDir::isAbsolutePath(folder))
        settings.downloadFolder = folder;
    readWord(values, "agent", kAgents, settings.agent);
    if (const QString agent = readText(values, "custom-agent"); isAgentText(agent))
        settings.customAgent = agent;
    else if (settings.agent == Agent::Custom)
        settings.agent = Agent::Own;
    return settings;
}

EngineSettings EngineSettings::load(const QString &file)
{
    if (!QFileInfo::exists(file))
        return {};
    if (const auto text = readFile(file, kLargestFile)) {
        if (const auto settings = fromText(*text))
            return *settings;
    }
    keepAside(file);
    return {};
}

bool EngineSettings::store(const QString &file) const
{
    return writeFileWhole(file, toText());
}

bool isHostName(const QString &text)
{
    // Letters of every language, as such names exist; what has a meaning of its own in an address stays out.
    static const QRegularExpression name(uR"(^[\p{L}\p{N}_]([\p{L}\p{N}_.-]{0,251}[\p{L}\p{N}_.])?$)"_s);
    const bool isInBrackets = text.startsWith(u'[') && text.endsWith(u']');
    const QHostAddress number(isInBrackets ? text.sliced(1).chopped(1) : text);
    return number.protocol() == QAbstractSocket::IPv6Protocol || name.match(text).hasMatch();
}

bool isLanguageCode(const QString &text)
{
    static const QRegularExpression code(u"^[A-Za-z]{2,3}(-[A-Za-z0-9]{2,8}){0,3}$"_s);
    return code.match(text).hasMatch();
}

bool isAgentText(const QString &text)
{
    const auto isPrintable = [](QChar c) { return c >= u' ' && c <= u'~'; };
    return !text.trimmed().isEmpty() && text.size() <= EngineSettings::kLongestAgent &&
           std::all_of(text.begin(), text.end(), isPrintable);
}

QStringList systemLanguages()
{
    QStringList languages = QLocale().uiLanguages();
    languages.removeAll(u"C"_s);
    // "de-Latn-DE" beside "de-DE" says nothing that a site could use.
    languages.removeIf([all = languages](const QString &code) {
        const QStringList parts = code.split(u'-');
        return parts.size() == 3 && all.contains(parts[0] + u'-' + parts[2]);
    });
    languages << u"en"_s;
    languages.removeDuplicates();
    return languages;
}

QString acceptedLanguages(const QStringList &languages)
{
    QStringList all;
    for (const QString &language : languages) {
        const QString plain = language.section(u'-', 0, 0);
        all << language;
        if (!languages.contains(plain))
            all << plain;
    }
    all.removeDuplicates();
    QString header = all.value(0);
    // The weights have one digit; what comes behind the ninth has the least one.
    for (int i = 1; i < all.size(); ++i)
        header += u",%1;q=0.%2"_s.arg(all[i]).arg(std::max(1, 10 - i));
    return header;
}

} // namespace engine
