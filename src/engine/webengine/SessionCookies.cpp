#include "engine/webengine/SessionCookies.h"

#include <QUrl>
#include <QWebEngineCookieStore>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

QByteArray keyOf(const QNetworkCookie &cookie)
{
    return cookie.domain().toUtf8() + '\n' + cookie.path().toUtf8() + '\n' + cookie.name();
}

} // namespace

SessionCookies::SessionCookies(QWebEngineCookieStore &store)
    : m_store(store)
{
    connect(&store, &QWebEngineCookieStore::cookieAdded, this, [this](const QNetworkCookie &cookie) {
        if (cookie.isSessionCookie())
            m_cookies.insert(keyOf(cookie), cookie);
        else
            m_cookies.remove(keyOf(cookie));
    });
    connect(&store, &QWebEngineCookieStore::cookieRemoved, this,
            [this](const QNetworkCookie &cookie) { m_cookies.remove(keyOf(cookie)); });
}

void SessionCookies::restore() const
{
    // Setting a cookie changes the list.
    const QList<QNetworkCookie> cookies = m_cookies.values();
    for (QNetworkCookie cookie : cookies) {
        QString host = cookie.domain();
        // Without a dot in front it is the cookie of that one host, which is said by naming no domain.
        if (host.startsWith(u'.'))
            host.remove(0, 1);
        else
            cookie.setDomain(QString());
        QUrl origin;
        origin.setScheme(cookie.isSecure() ? u"https"_s : u"http"_s);
        origin.setHost(host);
        origin.setPath(cookie.path());
        m_store.setCookie(cookie, origin);
    }
}

} // namespace engine
