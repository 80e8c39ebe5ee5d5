// What a document does with windows and sites that are not wanted.

#include "documents/frmDocument.h"

#include "base/step.h"
#include "blocking/PopupKiller.h"
#include "blocking/SiteBlocker.h"
#include "controls/StatusBar.h"
#include "core/state/ProcessFlags.h"
#include "core/state/Settings.h"
#include "engine/WebBrowser.h"

using namespace Qt::StringLiterals;

namespace {

/// The blink ends with the tick after this many.
constexpr int kBlinkTicks = 5;

} // namespace

bool frmDocument::asksForPopup() const
{
    const Settings &settings = m_context.settings;
    int32_t userClick = 0;
    if (CustomWB)
        CustomWB->GetUserClick(userClick);
    return isPopup(
        {settings.PopupKillerEnable, settings.PopupCtrlEnable, m_context.flags.AltDown, userClick, bLoading, bClosing});
}

void frmDocument::killPopup(bool &Cancel)
{
    Cancel = true;
    PlayPopupSound();
    tmrKillPopup.setTag(u"0"_s);
    tmrKillPopup.setEnabled(true);
    step([&] { SilentDoc(true); });
    tmrSilent.setEnabled(true);
    if (CustomWB)
        CustomWB->ClearUserClick();
}

bool frmDocument::isRefusedSite(const QString &URL) const
{
    // Only the first address of a document is looked at: an open page may go where it likes.
    return bFirstNavigate && m_context.settings.PopupKillerEnable && m_context.siteBlocker.isListed(URL);
}

void frmDocument::refuseSite(bool &Cancel)
{
    Cancel = true;
    DoEvents(m_context);
    tmrKillPopup.setTag(u"0"_s);
    tmrKillWindow.setEnabled(true);
}

void frmDocument::PlayPopupSound()
{
    ::PlayPopupSound(m_context.settings, m_context.sound);
}

void frmDocument::tmrSilent_Timer()
{
    tmrSilent.setEnabled(false);
    // The user's own choice comes back when the document is activated next.
    step([&] { SilentDoc(false); });
}

void frmDocument::tmrKillWindow_Timer()
{
    tmrKillPopup.setEnabled(true);
    PlayPopupSound();
    Unload();
}

void frmDocument::tmrKillPopup_Timer()
{
    auto &status = m_context.vbalStatusBar1;
    const QString panel = u"Item4"_s;
    const bool isLight = status.PanelIcon(panel) == kPopupKillerLight;
    status.setPanelIcon(panel, isLight ? kPopupKillerOn : kPopupKillerLight);
    const int ticks = tmrKillPopup.Tag().toInt();
    if (ticks < kBlinkTicks) {
        tmrKillPopup.setTag(QString::number(ticks + 1));
    } else {
        tmrKillPopup.setEnabled(false);
        tmrKillPopup.setTag(u"0"_s);
        status.setPanelIcon(panel, popupKillerIcon(m_context.settings.PopupKillerEnable));
    }
    status.RedrawPanel(panel);
}
