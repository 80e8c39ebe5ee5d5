#include "engine/Address.h"
#include "engine/webengine/WebBrowserControl.h"
#include "engine/webengine/WebEngine.h"

#include "base/Strings.h"

#include <QApplication>
#include <QAuthenticator>
#include <QWebEngineCertificateError>
#include <QWebEngineFullScreenRequest>
#include <QWebEngineHistory>
#include <QWebEngineLoadingInfo>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineSettings>
#include <QWebEngineView>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

/// How long a page without a title keeps the one of the page before it, so that an address does not flash in between.
constexpr int kStandInMs = 500;

/// An address as the engine writes it where a title is missing.
QString bareAddress(QString address)
{
    for (const auto &scheme : {"view-source:"_L1, "http://"_L1, "https://"_L1, "file://"_L1, "corvane://"_L1}) {
        if (address.startsWith(scheme))
            address.remove(0, scheme.size());
    }
    while (address.endsWith(u'/'))
        address.chop(1);
    return address;
}

DownloadGrants::Cause causeOf(QWebEnginePage::NavigationType type)
{
    if (type == QWebEnginePage::NavigationTypeTyped)
        return DownloadGrants::Cause::Program;
    return type == QWebEnginePage::NavigationTypeRedirect ? DownloadGrants::Cause::Redirect
                                                          : DownloadGrants::Cause::Page;
}

/// Milliseconds from the end of a load within which the download that it turned into is told of.
constexpr int kDownloadBegins = 500;

/// The engine goes down when a window that never loads anything, since its opener writes into it, paints before its web
/// preferences exist. They come with a first use of the page, and a changed setting hands them on to the new window.
void openSafely(QWebEngineNewWindowRequest &request, QWebEnginePage &page)
{
    page.runJavaScript({});
    request.openIn(&page);
    constexpr auto kAny = QWebEngineSettings::LinksIncludedInFocusChain;
    const bool asItWas = page.settings()->testAttribute(kAny);
    for (const bool on : {!asItWas, asItWas})
        page.settings()->setAttribute(kAny, on);
}

} // namespace

void WebBrowserControl::connectPage()
{
    Page *page = m_page.get();
    connect(page, &QWebEnginePage::newWindowRequested, this, &WebBrowserControl::openWindow);
    connect(page, &QWebEnginePage::loadingChanged, this, &WebBrowserControl::loadChanged);
    connect(page, &QWebEnginePage::loadProgress, &m_load, &LoadReports::progress);
    connect(page, &QWebEnginePage::urlChanged, this, &WebBrowserControl::addressChanged);
    connect(page, &QWebEnginePage::titleChanged, this, &WebBrowserControl::titleChanged);
    connect(page, &QWebEnginePage::linkHovered, this, &WebBrowserControl::tellStatus);
    connect(page, &QWebEnginePage::windowCloseRequested, this, [this] {
        if (m_openedByPage)
            closeWindow();
    });
    page->settings()->setAttribute(QWebEngineSettings::FullScreenSupportEnabled, true);
    connect(page, &QWebEnginePage::fullScreenRequested, this, [this](QWebEngineFullScreenRequest request) {
        request.accept();
        QTimer::singleShot(0, this, [this, on = request.toggleOn()] { setFullScreen(on && isVisible()); });
    });
    connect(page, &QWebEnginePage::certificateError, this, &WebBrowserControl::certificateRefused);
    connect(page, &QWebEnginePage::authenticationRequired, this, &WebBrowserControl::authenticate);
    connect(page, &QWebEnginePage::proxyAuthenticationRequired, this, &WebBrowserControl::authenticateProxy);
    connect(page, &QWebEnginePage::renderProcessTerminated, this,
            [this](QWebEnginePage::RenderProcessTerminationStatus status, int) {
                if (status != QWebEnginePage::NormalTerminationStatus)
                    processEnded();
            });
    m_standIn.setSingleShot(true);
    connect(&m_standIn, &QTimer::timeout, this, &WebBrowserControl::reportTitle);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) { keepFocus(now); });
}

// --- navigations ---

bool WebBrowserControl::navigationRequested(const QUrl &url, QWebEnginePage::NavigationType type, bool isMainFrame)
{
    // Only this program sends somebody to the page that shows any text as an address.
    const bool isForged = isWordsPage(url) && type != QWebEnginePage::NavigationTypeTyped &&
                          type != QWebEnginePage::NavigationTypeReload &&
                          type != QWebEnginePage::NavigationTypeBackForward;
    if (!mayOpen(url) || isForged) {
        if (isMainFrame)
            m_load.refused(true);
        return false;
    }
    if (isMainFrame && url == std::exchange(m_reportedAhead, QUrl()))
        m_load.requested(true);
    else if (!reportNavigation(url, isMainFrame))
        return false;
    m_downloads.navigating(url, causeOf(type), isMainFrame, now());
    if (isMainFrame) {
        m_mainRequest = url;
        m_isAwaited = true;
        m_badCertificate.reset();
        m_content->begin();
    }
    return true;
}

/// Tells the document of a navigation. False: it is refused.
bool WebBrowserControl::reportNavigation(const QUrl &url, bool isMainFrame)
{
    m_load.requested(isMainFrame);
    // The command loads all pages again. One that gives it while it loads would keep them all loading for ever.
    if (url.toString().endsWith("ENABLEFLASH"_L1, Qt::CaseInsensitive) && std::exchange(m_commandGiven, true)) {
        m_load.refused(isMainFrame);
        return false;
    }
    // Under these addresses pages only send word to the program.
    bool cancel = url.scheme() == "corvane"_L1 && url.host() != "www"_L1 && !isWordsPage(url);
    // The address may be a command that reloads all documents. While this one decides about its first address, and once
    // it has refused it, a reload must not give the command again.
    const bool isFirst = isMainFrame && !m_hasPage;
    const QString requested = isFirst ? std::exchange(m_requested, QString()) : QString();
    if (eventSink())
        eventSink()->WebBro_BeforeNavigate2(shownAddress(url), isMainFrame, cancel);
    if (cancel)
        m_load.refused(isMainFrame);
    else if (isFirst)
        m_requested = requested;
    return !cancel;
}

/// Whether the engine will not ask before it goes to `url`: empty pages, and jumps inside the page.
bool WebBrowserControl::hasNoRequest(const QUrl &url) const
{
    if (url.scheme() == "about"_L1)
        return true;
    // To the very address that is there the engine does not jump, it loads it again.
    return url.hasFragment() && m_hasPage && !m_isErrorPage && !m_load.isLoading() && url != m_page->url() &&
           url.adjusted(QUrl::RemoveFragment) == m_page->url().adjusted(QUrl::RemoveFragment);
}

void WebBrowserControl::frameLoaded()
{
    m_load.frameLoaded();
}

void WebBrowserControl::loadChanged(const QWebEngineLoadingInfo &info)
{
    if (info.status() != QWebEngineLoadingInfo::LoadStartedStatus) {
        loadEnded(info);
        return;
    }
    removeNotice();
    if (m_passwordBox)
        m_passwordBox->deleteLater();
    m_scriptErrors = 0;
    m_triedCredentials.clear();
    m_load.started();
}

void WebBrowserControl::loadEnded(const QWebEngineLoadingInfo &info)
{
    const bool isStopped = info.status() == QWebEngineLoadingInfo::LoadStoppedStatus;
    const bool isFirst = std::exchange(m_isFirstLoad, false);
    const bool stopAsked = std::exchange(m_stopAsked, false);
    m_isAwaited = false;
    if (!isStopped)
        m_isErrorPage = info.isErrorPage();
    m_boxes.setLeaving(false);
    m_reportedAhead.clear();
    m_downloads.arrived();

    m_standIn.stop();
    reportTitle();
    const QUrl url = m_page->url();
    reportLock(url.scheme() == "https"_L1 && !m_isErrorPage && !m_engine.isExcepted(url.host()));
    if (info.status() == QWebEngineLoadingInfo::LoadSucceededStatus)
        m_engine.visits().addVisit(LocationURL(), LocationName());
    if (info.status() == QWebEngineLoadingInfo::LoadFailedStatus && m_badCertificate)
        showCertificateNotice();
    m_load.finished(info.url() == m_mainRequest ? LoadReports::Which::Last : LoadReports::Which::Overtaken);

    // A window whose first page was refused or became a download would stay empty for ever.
    // The download is told of only after the end of the load, and it crashes the engine to ask it for a page that has
    // gone.
    if (isStopped && isFirst && m_openedByPage && !stopAsked && m_page->history()->count() == 0)
        closeWindow(kDownloadBegins);
}

void WebBrowserControl::addressChanged(const QUrl &url)
{
    if (url.isEmpty())
        return;
    m_hasPage = true;
    m_downloads.arrived();
    m_boxes.setLeaving(false);
    const bool isLoad = m_load.isLoading() || (m_openedByPage && m_isFirstLoad);
    if (!isLoad) {
        m_reportedAhead.clear();
        if (eventSink())
            eventSink()->WebBro_LocationChange(LocationURL());
        m_load.settle();
        return;
    }
    m_isAwaited = false;
    m_load.committed();
    // The boxes of the page before have lost their frames.
    m_boxes.withdraw();
    m_isErrorPage = false;
    if (url.scheme() != "https"_L1 || m_engine.isExcepted(url.host()))
        reportLock(false);
}

void WebBrowserControl::reportLock(bool secure)
{
    // secureLockIconUnsecure and secureLockIconSecure128Bit.
    if (std::exchange(m_reportedSecure, secure) != secure && eventSink())
        eventSink()->WebBro_SetSecureLockIcon(secure ? 6 : 0);
}

// --- title and status ---

/// Whether a title is only what the engine writes where there is none.
bool WebBrowserControl::isStandIn(const QString &title) const
{
    if (title.isEmpty())
        return true;
    const QString bare = bareAddress(title);
    const QUrl url = m_page->url();
    return bare == bareAddress(m_requested) || bare == bareAddress(shownAddress(url)) ||
           bare == bareAddress(url.toString(QUrl::PrettyDecoded | QUrl::RemoveUserInfo));
}

void WebBrowserControl::titleChanged(const QString &title)
{
    if (isStandIn(title) && !m_reportedTitle.isEmpty()) {
        m_standIn.start(kStandInMs);
        return;
    }
    m_standIn.stop();
    reportTitle();
    if (!m_load.isLoading() && !m_isErrorPage)
        m_engine.visits().setTitle(LocationURL(), LocationName());
}

void WebBrowserControl::reportTitle()
{
    const QString title = LocationName();
    if (title == m_reportedTitle)
        return;
    m_reportedTitle = title;
    if (eventSink())
        eventSink()->WebBro_TitleChange(title);
}

void WebBrowserControl::scriptFailed()
{
    ++m_scriptErrors;
    if (!m_silent)
        tellStatus(LoadResString(20100).arg(m_scriptErrors));
}

// --- boxes ---

void WebBrowserControl::boxRequested(const BoxRequest &request)
{
    leaveFullScreen();
    m_boxes.ask(request);
}

void WebBrowserControl::alertRequested(const QUrl &origin, const QString &message)
{
    leaveFullScreen();
    m_boxes.tell(origin.toString(QUrl::RemovePath | QUrl::RemoveUserInfo | QUrl::StripTrailingSlash), message);
}

// --- windows ---

void WebBrowserControl::openWindow(QWebEngineNewWindowRequest &request)
{
    const QUrl url = request.requestedUrl();
    if (!eventSink() || (!url.isEmpty() && !mayOpen(url)))
        return;
    // Pages cannot ask for source texts: this was the user's command, and it passes for the user's act.
    const bool isCommand = url.scheme() == "view-source"_L1;
    if (isCommand)
        ++m_userClicks;
    else if (!takesWindowRequest())
        return;

    WebBrowser *taker = nullptr;
    bool cancel = false;
    eventSink()->WebBro_NewWindow2(taker, cancel);
    auto *control = qobject_cast<WebBrowserControl *>(taker);
    if (!cancel && control && &control->m_engine == &m_engine)
        control->adopt(request);
}

bool WebBrowserControl::takesWindowRequest()
{
    const bool isFlood = !m_page->settings()->testAttribute(QWebEngineSettings::JavascriptCanOpenWindows);
    if (!isFlood && m_windowRequests.passes(now()))
        return true;
    // The engine makes every window before it asks what is to become of it. Thousands of them would keep it busy.
    setWindowsAllowed(false);
    return false;
}

/// Whether the page may open windows that the engine does not take for the user's own; else it refuses them unseen.
void WebBrowserControl::setWindowsAllowed(bool allowed)
{
    QWebEngineSettings *settings = m_page->settings();
    if (settings->testAttribute(QWebEngineSettings::JavascriptCanOpenWindows) != allowed)
        settings->setAttribute(QWebEngineSettings::JavascriptCanOpenWindows, allowed);
}

/// Takes the window that a page asked for, with its opener and its name.
void WebBrowserControl::adopt(QWebEngineNewWindowRequest &request)
{
    m_requested = shownAddress(request.requestedUrl());
    m_openedByPage = request.requestedUrl().scheme() != "view-source"_L1;
    m_isFirstLoad = true;
    m_engine.channel().join(*m_page, *this,
                            m_openedByPage ? PageChannel::WindowClose::Allowed : PageChannel::WindowClose::Ignored);
    openSafely(request, *m_page);
    m_content->begin();
    m_commandGiven = !request.isUserInitiated();
    if (request.isUserInitiated())
        m_downloads.acted(now());
}

void WebBrowserControl::closeWindow(int delay)
{
    // The form ends with this event; the engine must have returned from its call by then.
    QTimer::singleShot(delay, this, [this] {
        bool cancel = false;
        if (eventSink())
            eventSink()->WebBro_WindowClosing(true, cancel);
    });
}

/// The engine replaces the inner widget when it changes processes, and the focus is then often nobody's.
void WebBrowserControl::keepFocus(QWidget *now)
{
    if (!m_view)
        return;
    if (now) {
        m_wantsFocus = now == m_view.get() || m_view->isAncestorOf(now);
        return;
    }
    if (!m_wantsFocus || !m_view->isVisible() || QApplication::activeWindow() != window())
        return;
    QTimer::singleShot(0, this, [this] {
        if (m_view && m_wantsFocus && !m_notice && !QApplication::focusWidget())
            m_view->setFocus();
    });
}

} // namespace engine
