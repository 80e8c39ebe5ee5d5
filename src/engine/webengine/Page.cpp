#include "engine/webengine/Page.h"

#include <QAction>
#include <QCoreApplication>
#include <QWebEngineClientCertificateSelection>
#include <QWebEngineFileSystemAccessRequest>
#include <QWebEngineQuotaRequest>
#include <QWebEngineRegisterProtocolHandlerRequest>

using namespace Qt::StringLiterals;

namespace engine {

Page::Page(QWebEngineProfile &profile, Host &host)
    : QWebEnginePage(&profile)
    , m_host(&host)
{
    refusePermissions();
    // Every window is a tab here; the menu of a link has an entry for those.
    action(OpenLinkInNewWindow)->setVisible(false);
}

/// What a page may ask the user for has no way to ask yet; a request without an answer would wait for ever.
void Page::refusePermissions()
{
    connect(this, &QWebEnginePage::featurePermissionRequested, this, [this](const QUrl &origin, Feature feature) {
        setFeaturePermission(origin, feature, PermissionDeniedByUser);
    });
    connect(this, &QWebEnginePage::quotaRequested, this, [](QWebEngineQuotaRequest request) { request.reject(); });
    connect(this, &QWebEnginePage::registerProtocolHandlerRequested, this,
            [](QWebEngineRegisterProtocolHandlerRequest request) { request.reject(); });
    connect(this, &QWebEnginePage::fileSystemAccessRequested, this,
            [](QWebEngineFileSystemAccessRequest request) { request.reject(); });
    connect(this, &QWebEnginePage::selectClientCertificate, this,
            [](QWebEngineClientCertificateSelection selection) { selection.selectNone(); });
}

bool Page::acceptNavigationRequest(const QUrl &url, NavigationType type, bool isMainFrame)
{
    return m_host && m_host->navigationRequested(url, type, isMainFrame);
}

void Page::javaScriptAlert(const QUrl &securityOrigin, const QString &message)
{
    if (m_host)
        m_host->alertRequested(securityOrigin, message);
}

/// Comes only from documents that the page channel does not reach, and for the question whether to leave a page, which
/// nobody is asked: a user who closes a page wants it closed.
bool Page::javaScriptConfirm(const QUrl &, const QString &message)
{
    static const QString leave = QCoreApplication::translate(
        "QWebEnginePage", "Are you sure you want to leave this page? Changes that you made may not be saved.");
    return message == leave;
}

bool Page::javaScriptPrompt(const QUrl &, const QString &, const QString &, QString *)
{
    return false;
}

void Page::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString &message, int, const QString &)
{
    if (m_host && level == ErrorMessageLevel && message.startsWith("Uncaught "_L1))
        m_host->scriptFailed();
}

} // namespace engine
