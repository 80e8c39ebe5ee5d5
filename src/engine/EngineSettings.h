#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <optional>

namespace engine {

/// What the user has decided about the engine itself. The standard values are those of a program that was never set up.
struct EngineSettings
{
    enum class Proxy { System, Direct, Manual };
    enum class ProxyType { Http, Socks5 };
    enum class Cookies { All, NoThirdParties, None };
    enum class Cache { Automatic, Limited, None };
    enum class Agent { Own, Old, Custom };

    static constexpr int kLargestCache = 2000;
    static constexpr int kLongestAgent = 500;
    /// What sites are told with Agent::Old.
    static constexpr QLatin1StringView kOldAgent{"Mozilla/4.0 (compatible; MSIE 5.5; Windows NT 5.0)"};

    Proxy proxy = Proxy::System;
    /// The next four count with Proxy::Manual only. The password is asked for when it is needed and never kept.
    ProxyType proxyType = ProxyType::Http;
    QString proxyHost;
    quint16 proxyPort = 8080;
    QString proxyUser;

    /// Codes such as "de" or "pt-BR", most wanted first; empty: those of the system.
    QStringList languages;

    Cookies cookies = Cookies::All;
    /// Cookies and what sites have stored go when the program ends.
    bool forgetAtExit = false;
    /// Every request asks not to be tracked.
    bool doNotTrack = false;

    Cache cache = Cache::Automatic;
    /// With Cache::Limited: megabytes, 1 to kLargestCache.
    int cacheMegabytes = 250;

    /// A whole path; empty: the system's folder for downloads.
    QString downloadFolder;

    Agent agent = Agent::Own;
    QString customAgent;

    bool operator==(const EngineSettings &) const = default;

    /// One "name=value" a line.
    QByteArray toText() const;
    /// A value that is missing or makes no sense leaves the standard; nothing for what is no such text at all.
    static std::optional<EngineSettings> fromText(const QByteArray &text);

    /// The settings that a file keeps. A damaged file is kept aside and gives the standard.
    static EngineSettings load(const QString &file);
    bool store(const QString &file) const;
};

/// A name or number of a computer (IPv6 with or without brackets), without a scheme, a port or a path.
bool isHostName(const QString &text);
bool isLanguageCode(const QString &text);
/// Can be sent as the name of a browser: printable ASCII, 1 to kLongestAgent characters.
bool isAgentText(const QString &text);

/// The languages of the user's system as codes, with English at the end.
QStringList systemLanguages();
/// The value of the request header, falling in weight: "de-DE,de;q=0.9,en;q=0.8". A code with a country brings the
/// language without it along, unless the list has that elsewhere.
QString acceptedLanguages(const QStringList &languages);

} // namespace engine
