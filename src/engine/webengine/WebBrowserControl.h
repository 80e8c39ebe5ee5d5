#pragma once

#include "controls/PageBox.h"
#include "engine/RequestLimit.h"
#include "engine/WebBrowser.h"
#include "engine/webengine/ContentEffects.h"
#include "engine/webengine/FullScreenWindow.h"
#include "engine/webengine/LoadReports.h"
#include "engine/webengine/Overlay.h"
#include "engine/webengine/Page.h"
#include "engine/webengine/PageBoxes.h"
#include "engine/webengine/PageChannel.h"
#include "engine/webengine/PageTools.h"
#include "engine/webengine/fill/PageFill.h"

#include <QDeadlineTimer>
#include <QHash>
#include <QSet>
#include <QTimer>
#include <memory>
#include <optional>

class QAuthenticator;
class QWebEngineCertificateError;
class QWebEngineDownloadRequest;
class QWebEngineLoadingInfo;
class QWebEngineNewWindowRequest;
class QWebEngineView;

namespace engine {

class WebEngine;

/// The browser of one document over Qt WebEngine. Spread over four files: the browser object (WebBrowserControl.cpp),
/// what the engine reports (ControlEvents.cpp), what a document shows in place of its page (ControlNotices.cpp) and the
/// standard commands (ControlCommands.cpp).
class WebBrowserControl final : public WebBrowser, private Page::Host, private PageChannel::Client
{
    Q_OBJECT
public:
    WebBrowserControl(WebEngine &engine, QWidget *parent);
    ~WebBrowserControl() override;

    void Navigate2(const QString &url) override;
    void Refresh2(int level) override;
    void Stop() override;
    void GoBack() override;
    void GoForward() override;
    QVariant ExecWB(int cmdid, int cmdexecopt, const QVariant &invar) override;
    QString LocationURL() const override;
    QString LocationName() const override;
    bool Silent() const override { return m_silent; }
    void setSilent(bool silent) override { m_silent = silent; }
    bool RegisterAsBrowser() const override { return m_registerAsBrowser; }
    void setRegisterAsBrowser(bool on) override { m_registerAsBrowser = on; }
    void Exec(int command, int option, int value) override;
    QVariant ambientProperty(int dispid) const override { return m_ambient.value(dispid); }
    void setAmbientProperty(int dispid, const QVariant &value) override;
    int userClicks() const override { return m_userClicks; }
    void clearUserClicks() override { m_userClicks = 0; }
    std::vector<HistoryEntry> backEntries() const override;
    std::vector<HistoryEntry> forwardEntries() const override;
    void setExposed(bool exposed) override;
    bool FullScreen() const override { return m_fullScreen; }
    void setFullScreen(bool on) override;
    PrintFacet *printFacet() override;
    SaveFacet *saveFacet() override;
    FindFacet *findFacet() override;
    InfoFacet *infoFacet() override;
    FormFacet *formFacet() override { return m_fill.get(); }
    ContentFacet *contentFacet() override { return m_content.get(); }

    /// The user has acted in the page.
    void noteUserAct();
    bool isShowing(const QWebEnginePage *page) const;
    void tellStatus(const QString &text);
    /// The engine has cut off everything that comes from the network: gets the page again, or what was to become it.
    void loadAgain();
    /// Whether the download is this document being saved; then it is taken care of.
    bool takesDownload(QWebEngineDownloadRequest &download);
    /// Whether the policy lets the page start the download. Tells the user when it does not.
    bool allowsDownload(const QWebEngineDownloadRequest &download);
    /// Deletes the page. Nothing works afterwards but destruction.
    void shutDown();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    // What the engine asks while it waits for the answer.
    bool navigationRequested(const QUrl &url, QWebEnginePage::NavigationType type, bool isMainFrame) override;
    void alertRequested(const QUrl &origin, const QString &message) override;
    void scriptFailed() override;
    void boxRequested(const BoxRequest &request) override;
    void frameLoaded() override;

    // ControlEvents.cpp
    void connectPage();
    bool reportNavigation(const QUrl &url, bool isMainFrame);
    bool hasNoRequest(const QUrl &url) const;
    void openWindow(QWebEngineNewWindowRequest &request);
    bool takesWindowRequest();
    void setWindowsAllowed(bool allowed);
    void adopt(QWebEngineNewWindowRequest &request);
    void loadChanged(const QWebEngineLoadingInfo &info);
    void loadEnded(const QWebEngineLoadingInfo &info);
    void addressChanged(const QUrl &url);
    void titleChanged(const QString &title);
    void reportTitle();
    bool isStandIn(const QString &title) const;
    void reportLock(bool secure);
    /// Asks the form to close, `delay` ms later.
    void closeWindow(int delay = 0);
    void keepFocus(QWidget *now);

    // ControlNotices.cpp
    void processEnded();
    void certificateRefused(const QWebEngineCertificateError &error);
    void showCertificateNotice();
    void authenticate(const QUrl &url, QAuthenticator *authenticator);
    void authenticateProxy(const QUrl &url, QAuthenticator *authenticator, const QString &host);
    bool useCredentials(const QString &key, QAuthenticator &authenticator);
    bool isOfShownSite(const QUrl &url) const;
    void askForPassword(const QUrl &url, const QString &realm);
    void askForProxyPassword(const QString &key, const QString &host);
    void askForCredentials(const QString &key, const QString &from, const QString &text, const QString &user = {});
    void showNotice(const QString &title, const QString &text, const std::vector<Overlay::Choice> &choices);
    void removeNotice();

    // ControlCommands.cpp
    QVariant textSize(const QVariant &value);
    void makeTools();
    void makeFill();
    void describe(PageInfo &info) const;
    /// What the user has to see comes up where the page was.
    void leaveFullScreen();
    void layOut();

    void leavePage();
    /// Milliseconds of a clock that only goes forward.
    static int64_t now() { return QDeadlineTimer::current().deadline(); }
    std::vector<HistoryEntry> entries(int step) const;

    WebEngine &m_engine;
    /// The engine object keeps it where the document goes and the page still owes something.
    std::shared_ptr<Page> m_page;
    std::unique_ptr<QWebEngineView> m_view;
    QPointer<FullScreenWindow> m_fullScreen;
    std::unique_ptr<PageTools> m_tools;
    std::unique_ptr<PageFill> m_fill;
    /// The document is being told of the end of a load.
    bool m_reportsEnd = false;
    std::unique_ptr<ContentEffects> m_content;
    PageBoxes m_boxes;
    LoadReports m_load;
    QPointer<Overlay> m_notice;
    QPointer<controls::PageBox> m_passwordBox;

    bool m_silent = false;
    bool m_registerAsBrowser = false;
    QHash<int, QVariant> m_ambient;
    /// 0 smallest to 4 largest.
    int m_textSize = 2;

    /// The page has gone to a command of the program since the user acted in it, or gave it its address.
    bool m_commandGiven = false;

    /// What was asked for; stands for the page's address until the first one has come.
    QString m_requested;
    bool m_hasPage = false;
    /// The navigation of the page itself that was let through last.
    QUrl m_mainRequest;
    /// It has brought nothing yet.
    bool m_isAwaited = false;
    /// A navigation that was reported without waiting for the engine, which then must not report it again.
    QUrl m_reportedAhead;
    bool m_isErrorPage = false;
    bool m_stopAsked = false;

    /// A page opened this window, so that its script may close it.
    bool m_openedByPage = false;
    bool m_isFirstLoad = true;
    /// A page that asks for more windows than 20 in 10 seconds, without the user acting in it, is out to harm. It gets
    /// none until the user acts in it or leaves it.
    RequestLimit m_windowRequests{20, 10'000};
    DownloadGrants m_downloads;

    int m_userClicks = 0;
    int m_scriptErrors = 0;
    QTimer m_standIn;
    QString m_reportedTitle;
    bool m_reportedSecure = false;
    bool m_wantsFocus = false;

    struct BadCertificate
    {
        QString host;
        QString reason;
        bool isOverridable = false;
        QUrl url;
    };
    std::optional<BadCertificate> m_badCertificate;
    /// Keys of the credentials that this load has tried.
    QSet<QString> m_triedCredentials;
};

} // namespace engine
