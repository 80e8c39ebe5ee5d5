#include "base/Strings.h"
#include "controls/PageBox.h"
#include "engine/webengine/WebBrowserControl.h"
#include "engine/webengine/WebEngine.h"

#include <QAuthenticator>
#include <QWebEngineCertificateError>
#include <QWebEngineHistory>

using namespace Qt::StringLiterals;

namespace engine {

void WebBrowserControl::showNotice(const QString &title, const QString &text,
                                   const std::vector<Overlay::Choice> &choices)
{
    removeNotice();
    leaveFullScreen();
    m_notice = new Overlay(this, title, text, choices);
    if (m_wantsFocus)
        m_notice->setFocus();
}

void WebBrowserControl::removeNotice()
{
    if (!m_notice)
        return;
    const bool hadFocus = m_notice->isAncestorOf(m_notice->window()->focusWidget());
    m_notice->hide();
    m_notice->deleteLater();
    m_notice = nullptr;
    if (hadFocus)
        setFocus();
}

/// The page's process is gone. It is never started again without being asked for: it would often end the same way.
void WebBrowserControl::processEnded()
{
    m_boxes.withdraw();
    showNotice(LoadResString(20106), LoadResString(20107).arg(LocationURL()),
               {{LoadResString(20108), [this] { Refresh2(0); }, true}});
}

void WebBrowserControl::certificateRefused(const QWebEngineCertificateError &error)
{
    QWebEngineCertificateError decision = error;
    if (error.isOverridable() && m_engine.isExcepted(error.url().host())) {
        decision.acceptCertificate();
        return;
    }
    decision.rejectCertificate();
    // Parts of a page with a bad certificate just stay away: nobody could judge what a question about them means.
    if (error.url().adjusted(QUrl::RemoveFragment) == m_mainRequest.adjusted(QUrl::RemoveFragment))
        m_badCertificate = {error.url().host(), error.description(), error.isOverridable(), error.url()};
}

void WebBrowserControl::showCertificateNotice()
{
    const BadCertificate bad = *m_badCertificate;
    QString text = bad.reason + "\n\n"_L1 + LoadResString(20110);
    std::vector<Overlay::Choice> choices;
    if (bad.isOverridable) {
        text += "\n\n"_L1 + LoadResString(20111);
        choices.push_back({LoadResString(20116), [this, bad] {
                               m_engine.except(bad.host);
                               leavePage();
                               m_page->load(bad.url);
                           }});
    }
    if (m_page->history()->canGoBack())
        choices.push_back({LoadResString(20117), [this] { m_page->history()->back(); }, true});
    showNotice(LoadResString(20109).arg(bad.host), text, choices);
}

/// The engine wants its answer at once. So it gets what the user has given before, or a refusal; then the user is asked
/// in the page, and an answer loads the page again.
bool WebBrowserControl::useCredentials(const QString &key, QAuthenticator &authenticator)
{
    const auto known = m_engine.credentials().constFind(key);
    if (known != m_engine.credentials().constEnd() && !m_triedCredentials.contains(key)) {
        m_triedCredentials.insert(key);
        authenticator.setUser(known->user);
        authenticator.setPassword(known->password);
        return true;
    }
    m_engine.credentials().remove(key);
    authenticator = QAuthenticator();
    return false;
}

bool WebBrowserControl::isOfShownSite(const QUrl &url) const
{
    constexpr auto kSite = QUrl::FullyEncoded | QUrl::RemoveUserInfo;
    return url.authority(kSite) == m_mainRequest.authority(kSite);
}

void WebBrowserControl::authenticate(const QUrl &url, QAuthenticator *authenticator)
{
    const QString realm = authenticator->realm();
    if (useCredentials(WebEngine::keyOf(url, realm), *authenticator))
        return;
    // Only the site that the user sees may ask: an image of another one would be an easy way to fish for passwords.
    if (isOfShownSite(url))
        QTimer::singleShot(0, this, [this, url, realm] { askForPassword(url, realm); });
}

void WebBrowserControl::authenticateProxy(const QUrl &url, QAuthenticator *authenticator, const QString &host)
{
    // No address of a site looks like this.
    const QString key = u"proxy\n"_s + host;
    if (!useCredentials(key, *authenticator) && isOfShownSite(url))
        QTimer::singleShot(0, this, [this, key, host] { askForProxyPassword(key, host); });
}

void WebBrowserControl::askForPassword(const QUrl &url, const QString &realm)
{
    const QString site = url.toString(QUrl::RemovePath | QUrl::RemoveQuery | QUrl::RemoveFragment |
                                      QUrl::RemoveUserInfo | QUrl::StripTrailingSlash);
    QStringList lines = {LoadResString(20118)};
    if (!realm.isEmpty())
        lines << LoadResString(20124).arg(realm.left(200));
    if (url.scheme() != "https"_L1)
        lines << LoadResString(20123);
    askForCredentials(WebEngine::keyOf(url, realm), site, lines.join(u'\n'));
}

void WebBrowserControl::askForProxyPassword(const QString &key, const QString &host)
{
    const QString text = LoadResString(20573).arg(host) + u'\n' + LoadResString(20123);
    askForCredentials(key, host, text, m_engine.settings().proxyUser());
}

void WebBrowserControl::askForCredentials(const QString &key, const QString &from, const QString &text,
                                          const QString &user)
{
    if (m_passwordBox)
        return;
    leaveFullScreen();
    controls::PageBox::Content content;
    content.title = LoadResString(20119);
    content.from = from;
    content.text = text;
    content.acceptCaption = LoadResString(20119);
    content.rejectCaption = LoadResString(112);
    content.wantsText = true;
    content.defaultText = user;
    content.wantsPassword = true;
    const QPointer<WebBrowserControl> guard(this);
    m_passwordBox =
        new controls::PageBox(this, content, [guard, key](bool accepted, const QString &name, const QString &password) {
            if (!accepted || !guard)
                return;
            guard->m_engine.credentials().insert(key, {name, password});
            guard->m_passwordBox = nullptr;
            QTimer::singleShot(0, guard, [guard] { guard->Refresh2(0); });
        });
}

} // namespace engine
