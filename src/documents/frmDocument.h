#pragma once

#include "core/state/Document.h"
#include "documents/DocumentContext.h"
#include "documents/Timer.h"
#include "engine/BrowserEvents.h"
#include "engine/WBCustomizer.h"

#include <memory>

/// The form of one open site: an MDI child that owns one browser, one tab and one line of the Navigator. Its position,
/// kept as text in the Tag of its browser, is the index of both.
///
/// The form does not navigate by itself, adds no tab and does not show itself: whoever makes it does.
class frmDocument final : public Document, public engine::BrowserEvents, public engine::WBMessages
{
    Q_OBJECT
public:
    /// Makes the form and runs its load; it belongs to the MDI frame from the start, hidden.
    explicit frmDocument(DocumentContext &context);
    ~frmDocument() override;

    int position() const override;
    void setPosition(int position) override;

    void SetDownloadOptions() override;
    /// At most 50 characters of the title, 3 on a shrunk tab; the icon's parity follows the shrink mark.
    void ModifyTabCaption(controls::Tab &theTab, const QString &sTitle) override;
    QString LocationURL() const override;
    QString LocationName() const override;
    void RefreshDoc() override;
    void StopDoc() override;
    void NavigateDoc(const QString &url) override;
    void SilentDoc(bool bSilent) override;
    void GoBackDoc() override;
    void GoForwardDoc() override;
    void RegisterAsBrowser() override;
    QVariant ExecWBDoc(int cmdid, int cmdexecopt, const QVariant &invar = {}) override;
    void PlayPopupSound() override;
    std::optional<int> autoRefreshInterval() const override;

    QString Caption() const override { return m_caption; }
    void setCaption(const QString &caption) override;
    engine::WebBrowser *browser() const override { return WebBro; }
    engine::WBCustomizer *customWB() const override { return CustomWB.get(); }
    void setTabAlreadyDeleted(bool deleted) override { bTabAlreadyDeleted = deleted; }
    void Unload() override;

    /// Shows the form in the MDI frame, which makes it the active one.
    void Show();
    /// The form has become the active MDI child, or is no longer.
    void Form_Activate();
    void Form_Deactivate();
    /// Lets the page fill the form.
    void Form_Resize();
    /// The form can be seen (true) or is covered: a covered page costs nothing.
    void setExposed(bool exposed);

    void WebBro_BeforeNavigate2(const QString &URL, bool isMainFrame, bool &Cancel) override;
    void WebBro_NewWindow2(engine::WebBrowser *&ppDisp, bool &Cancel) override;
    void WebBro_ProgressChange(int Progress, int ProgressMax) override;
    void WebBro_SetSecureLockIcon(int SecureLockIcon) override;
    void WebBro_StatusTextChange(const QString &text) override;
    void WebBro_TitleChange(const QString &sTitle) override;
    void WebBro_WindowClosing(bool IsChildWindow, bool &Cancel) override;
    void WebBro_LocationChange(const QString &URL) override;

    void WBMessages_ShowMessage(engine::PageMessage message) override;
    /// No help window opens from a page.
    void WBMessages_ShowHelp() override {}

    bool isActive() const { return bActive; }
    bool isLoading() const { return bLoading; }
    bool isClosing() const { return bClosing; }

    /// The tab was removed by the tab control itself, so the unload must not remove it.
    bool bTabAlreadyDeleted = false;
    /// Page tools of this document.
    std::unique_ptr<engine::WBCustomizer> CustomWB;
    /// Target of all browser calls, source of all browser events; null once the form is closed.
    engine::WebBrowser *WebBro = nullptr;

    /// Closes a document that was refused.
    Timer tmrKillWindow{100};
    /// Blink of the popup icon.
    Timer tmrKillPopup{800, QStringLiteral("0")};
    /// Flash of the tab of a load that ended in the background.
    Timer Highlight{700, QStringLiteral("0")};
    /// Ends the silence after a refused popup.
    Timer tmrSilent{100};
    /// Its interval is set with the period.
    Timer tmrAutoRefresh{0};

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void Form_Load();
    void Form_Unload();
    void Highlight_Timer();
    void tmrSilent_Timer();
    void tmrKillWindow_Timer();
    void tmrKillPopup_Timer();
    bool asksForPopup() const;
    void killPopup(bool &Cancel);
    bool isRefusedSite(const QString &URL) const;
    void refuseSite(bool &Cancel);

    /// The browser; throws ControlError when the form is closed.
    engine::WebBrowser &openBrowser() const;
    controls::Tab &tab() const;
    void showPercentage();
    void loadGoesOn();
    void loadHasEnded();
    /// Fills the forms of a page that has just been loaded, if the user wants that.
    void fillByItself();
    void showProgressIcon();
    /// The address of the page, unless the user is typing there or another document is in front.
    void refreshAddressBar();

    DocumentContext &m_context;
    QString m_caption;
    /// The host control, a child of the form: it lives as long as the form does.
    engine::WebBrowser *WebBrowser = nullptr;
    /// No navigation has passed WebBro_BeforeNavigate2 yet.
    bool bFirstNavigate = true;
    /// Last load percentage, 0 to 100.
    int16_t nProgress = 0;
    bool bActive = false;
    bool bSecure = false;
    bool bLoading = false;
    bool bClosing = false;
};
