#include "documents/frmDocument.h"

#include "base/Strings.h"
#include "base/step.h"
#include "controls/ComboBox.h"
#include "controls/ListView.h"
#include "controls/PageBox.h"
#include "controls/StatusBar.h"
#include "controls/TabControl.h"
#include "core/state/MainWindow.h"
#include "core/state/Settings.h"
#include "documents/frmNavigator.h"
#include "engine/WebBrowser.h"
#include "forms/FormLock.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace {
constexpr int kProductName = 100;
constexpr int kOk = 111;
constexpr int kCancel = 112;
constexpr int kCompleted = 20300;
constexpr int kFinishedIcon = 8;

/// Percentage of a load, 0 when it has ended or cannot be told. The product is taken in 32 bits.
int16_t percentage(int Progress, int ProgressMax)
{
    if (ProgressMax == 0)
        return 0;
    if (Progress == -1)
        return 100;
    int32_t product = 0;
    if (__builtin_mul_overflow(Progress, 100, &product))
        return 0;
    const int64_t quotient = int64_t{product} / ProgressMax;
    if (quotient < std::numeric_limits<int16_t>::min() || quotient > std::numeric_limits<int16_t>::max())
        return 0;
    return static_cast<int16_t>(quotient);
}

bool switchesFlash(const QString &URL)
{
    return URL.right(11).toUpper() == u"ENABLEFLASH";
}
} // namespace

void frmDocument::WebBro_BeforeNavigate2(const QString &URL, bool, bool &Cancel)
{
    const EngineCall call(m_context);
    if (switchesFlash(URL)) {
        Cancel = true;
        m_context.frmMain.mnuContentFlash();
    }
    if (isRefusedSite(URL)) {
        refuseSite(Cancel);
        return;
    }
    SetDownloadOptions();
    bFirstNavigate = false;
    bLoading = true;
    // Frames count as the page does: the bar shows the frame that started last until the load ends.
    if (!m_context.frmMain.g_Focus() && bActive)
        m_context.AddressBar.setText(URL);
    Form_Resize();
}

void frmDocument::WebBro_NewWindow2(engine::WebBrowser *&ppDisp, bool &Cancel)
{
    const EngineCall call(m_context);
    if (asksForPopup()) {
        killPopup(Cancel);
        return;
    }
    auto *frm = new frmDocument(m_context);
    ppDisp = frm->WebBro;
    controls::ListItem &line = m_context.navigator.ListView1.ListItems().Add();
    line.AddListSubItem();
    frm->setPosition(line.Index());
    m_context.vbalDTabControl1.Tabs().Add(QString(), 0);
    line.setTag(frm);
    CustomWB->ClearUserClick();
    frm->Show();
}

void frmDocument::WebBro_ProgressChange(int Progress, int ProgressMax)
{
    if (Progress > ProgressMax)
        return;
    const EngineCall call(m_context);
    nProgress = percentage(Progress, ProgressMax);
    if (ProgressMax != 0)
        loadGoesOn();
    else
        loadHasEnded();
}

void frmDocument::showPercentage()
{
    if (!bActive)
        return;
    m_context.vbalStatusBar1.setTag(QString::number(nProgress));
    step([&] { m_context.vbalStatusBar1.RedrawPanel(u"Item6"_s); });
}

void frmDocument::loadGoesOn()
{
    showPercentage();
    step([&] {
        const QString text = QString::number(nProgress) + u'%';
        m_context.navigator.ListView1.ListItems(position()).ListSubItems(1).setText(text);
    });
    step([&] { showProgressIcon(); });
    m_context.navigator.tmrLoading.setEnabled(true);
    bLoading = true;
}

void frmDocument::loadHasEnded()
{
    Form_Resize();
    showPercentage();
    fillByItself();
    if (!m_context.settings.EnableFlash)
        step([&] { CustomWB->BlockFlash(); });
    if (m_context.settings.SaveDocumentOnExit)
        step([&] { m_context.frmMain.SaveAllDocuments(); });
    step([&] {
        m_context.navigator.ListView1.ListItems(position()).ListSubItems(1).setText(LoadResString(kCompleted));
    });
    step([&] { tab().setIconIndex(tab().Tag().isEmpty() ? kFinishedIcon : kFinishedIcon + 1); });
    if (!bActive)
        Highlight.setEnabled(true);
    refreshAddressBar();
    // One finished document stops the animation even when others still load.
    m_context.navigator.endLoading();
    bLoading = false;
}

void frmDocument::fillByItself()
{
    const bool isLocked = FormLocked(m_context.settings, m_context.flags);
    CustomWB->SetFormLocked(isLocked);
    if (m_context.settings.AutoFormFill)
        step([&] { CustomWB->FillForm(isLocked); });
}

void frmDocument::showProgressIcon()
{
    // At exactly 100 the load still goes on: the icon stays as it was.
    if (nProgress >= 100)
        return;
    const int quarters = nProgress < 25 ? 0 : nProgress / 25;
    tab().setIconIndex(quarters * 2 + (tab().Tag().isEmpty() ? 0 : 1));
}

void frmDocument::refreshAddressBar()
{
    if (!m_context.frmMain.g_Focus() && bActive)
        step([&] { m_context.AddressBar.setText(LocationURL()); });
}

void frmDocument::WebBro_SetSecureLockIcon(int SecureLockIcon)
{
    bSecure = SecureLockIcon != 0;
    if (bActive)
        m_context.vbalStatusBar1.setPanelIcon(u"Item5"_s, bSecure ? 2 : -1);
}

void frmDocument::WebBro_StatusTextChange(const QString &text)
{
    if (bActive)
        m_context.vbalStatusBar1.setPanelText(1, text);
}

void frmDocument::WebBro_TitleChange(const QString &sTitle)
{
    step([&] { setCaption(sTitle); });
    step([&] { m_context.navigator.ListView1.ListItems(position()).setText(sTitle); });
    step([&] { tab().setToolTipText(sTitle); });
    step([&] { ModifyTabCaption(tab(), sTitle); });
}

void frmDocument::WebBro_WindowClosing(bool, bool &)
{
    const EngineCall call(m_context);
    Unload();
}

void frmDocument::WebBro_LocationChange(const QString &)
{
    refreshAddressBar();
}

void frmDocument::WBMessages_ShowMessage(engine::PageMessage message)
{
    const bool wantsAnswer = message.wantsText || message.buttons == engine::MessageButtons::OkCancel;
    if (m_context.settings.SuppressErrors) {
        message.reply(!wantsAnswer, QString());
        return;
    }
    controls::PageBox::Content content;
    content.title = LoadResString(kProductName);
    content.from = message.origin;
    content.text = message.Prompt;
    content.acceptCaption = LoadResString(kOk);
    if (wantsAnswer)
        content.rejectCaption = LoadResString(kCancel);
    content.wantsText = message.wantsText;
    content.defaultText = message.defaultText;
    // The box belongs to the form, covers nothing else and ends with the form at the latest.
    auto *box = new controls::PageBox(this, content,
                                      [reply = std::move(message.reply)](bool accepted, const QString &text,
                                                                         const QString &) { reply(accepted, text); });
    if (message.asker)
        connect(message.asker, &QObject::destroyed, box, &QObject::deleteLater);
}
