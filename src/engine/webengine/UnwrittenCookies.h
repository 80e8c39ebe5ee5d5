#pragma once

#include <QDeadlineTimer>
#include <QHash>
#include <QNetworkCookie>
#include <QObject>

class QWebEngineCookieStore;

namespace engine {

/// Keeps the cookies that the engine has in memory only: those that sites have set until the end of the program, and
/// new ones that it has not written yet. It loses them when its network part starts anew, as it does for another cache,
/// and the user would be signed out.
class UnwrittenCookies : public QObject
{
    Q_OBJECT
public:
    explicit UnwrittenCookies(QWebEngineCookieStore &store);

    /// The network part has started anew.
    void restore() const;
    /// The user wants them to go.
    void forget() { m_cookies.clear(); }

private:
    struct Entry
    {
        QNetworkCookie cookie;
        QDeadlineTimer isUnwritten;
    };
    void add(const QNetworkCookie &cookie);

    QWebEngineCookieStore &m_store;
    /// By what makes a cookie one and the same: domain, path and name.
    QHash<QByteArray, Entry> m_cookies;
};

} // namespace engine
