#include "engine/webengine/UnwrittenCookies.h"

#include <QUrl>
#include <QWebEngineCookieStore>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

/// The engine writes every half minute; milliseconds after which it has written for certain.
constexpr int kWritten = 60'000;

QByteArray keyOf(const QNetworkCookie &cookie)
{
    return cookie.domain().toUtf8() + '\n' + cookie.path().toUtf8() + '\n' + cookie.name();
}

} // namespace

UnwrittenCookies::UnwrittenCookies(QWebEngineCookieStore &store)
    : m_store(store)
{
    connect(&store, &QWebEngineCookieStore::cookieAdded, this, &UnwrittenCookies::add);
    connect(&store, &QWebEngineCookieStore::cookieRemoved, this,
            [this](const QNetworkCookie &cookie) { m_cookies.remove(keyOf(cookie)); });
}

void UnwrittenCookies::add(const QNetworkCookie &cookie)
{
    m_cookies.removeIf([](const auto &entry) { return entry->isUnwritten.hasExpired(); });
    const QDeadlineTimer isUnwritten(cookie.isSessionCookie() ? QDeadlineTimer(QDeadlineTimer::Forever)
                                                              : QDeadlineTimer(kWritten));
    m_cookies.insert(keyOf(cookie), {cookie, isUnwritten});
}

void UnwrittenCookies::restore() const
{
    // Setting a cookie changes the list.
    const QList<Entry> entries = m_cookies.values();
    for (const Entry &entry : entries) {
        if (entry.isUnwritten.hasExpired())
            continue;
        QNetworkCookie cookie = entry.cookie;
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
