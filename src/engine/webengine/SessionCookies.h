#pragma once

#include <QHash>
#include <QNetworkCookie>
#include <QObject>

class QWebEngineCookieStore;

namespace engine {

/// Keeps the cookies that sites have set until the end of the program. The engine loses them whenever its network part
/// starts anew, as it does to change or clear the cache, and the user would be signed out everywhere.
class SessionCookies : public QObject
{
    Q_OBJECT
public:
    explicit SessionCookies(QWebEngineCookieStore &store);

    /// The network part is starting anew. It does not tell when it is done, so this is tried for some seconds.
    void restore();
    /// The user wants them to go.
    void forget();

private:
    void setAll() const;

    QWebEngineCookieStore &m_store;
    /// By what makes a cookie one and the same: domain, path and name.
    QHash<QByteArray, QNetworkCookie> m_cookies;
};

} // namespace engine
