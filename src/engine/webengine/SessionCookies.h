#pragma once

#include <QHash>
#include <QNetworkCookie>
#include <QObject>

class QWebEngineCookieStore;

namespace engine {

/// Keeps the cookies that sites have set until the end of the program. The engine loses them when its network part
/// starts anew, as it does for another cache, and the user would be signed out everywhere.
class SessionCookies : public QObject
{
    Q_OBJECT
public:
    explicit SessionCookies(QWebEngineCookieStore &store);

    /// The network part has started anew.
    void restore() const;
    /// The user wants them to go.
    void forget() { m_cookies.clear(); }

private:
    QWebEngineCookieStore &m_store;
    /// By what makes a cookie one and the same: domain, path and name.
    QHash<QByteArray, QNetworkCookie> m_cookies;
};

} // namespace engine
