#include "core/frmMainCommands.h"

#include "core/frmAbout.h"
#include "core/frmMain.h"

#include "base/step.h"
#include "controls/BandContainer.h"
#include "controls/MdiFrame.h"
#include "controls/PopupMenu.h"
#include "controls/StatusBar.h"
#include "core/state/Document.h"
#include "documents/frmNavigator.h"
#include "engine/WBCustomizer.h"
#include "engine/WebBrowser.h"
#include "forms/FormLock.h"
#include "system/frmQSearch.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

/// The product's own site.
const QString kSite = u"corvane://www"_s;

/// Number of the page of the options that holds the form record.
constexpr int kFormsPage = 9;

/// Presses and releases a key where the focus is, as if it were typed.
void sendKeys(int key, Qt::KeyboardModifiers modifiers)
{
    QWidget *focus = QApplication::focusWidget();
    if (!focus)
        return;
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
        QCoreApplication::postEvent(focus, new QKeyEvent(type, key, modifiers));
}

} // namespace

Commands::Commands(frmMain &main)
    : m_main(main)
{}

std::span<const Commands::Entry> Commands::table()
{
    using C = Commands;
    // An entry without a handler waits for the room that serves it.
    static constexpr Entry kTable[] = {
        {u"mnuFileNew", &C::mnuFileNew},
        {u"mnuFileOpen", &C::mnuFileOpen},
        {u"mnuFileClose", &C::mnuFileClose},
        {u"mnuFileSaveAs", &C::mnuFileSaveAs},
        {u"mnuFileProperties", &C::mnuFileProperties},
        {u"mnuFilePageSetup", &C::mnuFilePageSetup},
        {u"mnuFilePrintPreview", &C::mnuFilePrintPreview},
        {u"mnuFilePrint", &C::mnuFilePrint},
        {u"mnuFileExit", &C::mnuFileExit},

        {u"mnuEditCut", &C::mnuEditCut},
        {u"mnuEditCopy", &C::mnuEditCopy},
        {u"mnuEditPaste", &C::mnuEditPaste},
        {u"mnuEditIncFont", &C::mnuEditIncFont},
        {u"mnuEditDecFont", &C::mnuEditDecFont},
        {u"mnuEditResetFont", &C::mnuEditResetFont},
        {u"mnuEditSelectAll", &C::mnuEditSelectAll},
        {u"mnuEditFind", &C::mnuEditFind},

        {u"mnuViewBrowseToolbar", &C::mnuViewBrowseToolbar},
        {u"mnuViewSitesToolbar", &C::mnuViewSitesToolbar},
        {u"mnuViewAddressBar", &C::mnuViewAddressBar},
        {u"mnuViewTabsBar", &C::mnuViewTabsBar},
        {u"mnuViewStatusBar", &C::mnuViewStatusBar},
        {u"mnuViewNavigator", &C::mnuViewNavigator},
        {u"mnuAlignTop", &C::mnuAlignTop},
        {u"mnuAlignBottom", &C::mnuAlignBottom},
        {u"mnuViewFav", nullptr},
        {u"mnuViewAddToFav", nullptr},
        {u"mnuViewOrgFav", nullptr},
        {u"mnuViewHistory", nullptr},
        {u"mnuViewTabsShrinkAll", &C::mnuViewTabsShrinkAll},
        {u"mnuViewTabsShrinkActive", &C::mnuViewTabsShrinkActive},
        {u"mnuViewTabsShrinkAllbutActive", &C::mnuViewTabsShrinkAllbutActive},
        {u"mnuViewTabsResetAll", &C::mnuViewTabsResetAll},
        {u"mnuViewQSearch", &C::mnuViewQSearch},
        {u"mnuViewSource", &C::mnuViewSource},
        {u"mnuViewInternetOptions", &C::mnuViewInternetOptions},
        {u"mnuViewOptions", &C::mnuViewOptions},

        {u"mnuNavigateBack", &C::Back},
        {u"mnuNavigateForward", &C::Forward},
        {u"mnuNavigateStop", &C::mnuNavigateStop},
        {u"mnuNavigateRefresh", &C::mnuNavigateRefresh},
        {u"mnuTabAutoRefresh1", nullptr},
        {u"mnuTabAutoRefresh2", nullptr},
        {u"mnuTabAutoRefresh5", nullptr},
        {u"mnuTabAutoRefreshCustom", nullptr},
        {u"mnuTabAutoRefreshStop", nullptr},
        {u"mnuNavigateHome1", &C::Home1},
        {u"mnuNavigateHome2", &C::mnuNavigateHome2},
        {u"mnuNavigateMail", &C::mnuNavigateMail},
        {u"mnuNavigateSearch", &C::mnuNavigateSearch},
        {u"mnuNavigateNews", &C::mnuNavigateNews},

        {u"mnuContentAutoFill", &C::mnuContentAutoFill},
        {u"mnuContentFillForm", &C::mnuContentFillForm},
        {u"mnuContentFormData", &C::mnuContentFormData},
        {u"mnuContentImage", &C::mnuContentImage},
        {u"mnuContentSound", &C::mnuContentSound},
        {u"mnuContentVideo", &C::mnuContentVideo},
        {u"mnuContentScripts", &C::mnuContentScripts},
        {u"mnuContentJava", &C::mnuContentJava},
        {u"mnuContentDLACTX", &C::mnuContentDLACTX},
        {u"mnuContentRUNACTX", &C::mnuContentRUNACTX},
        {u"mnuContentFlash", &C::mnuContentFlash},
        {u"mnuContentSuppressErrors", &C::mnuContentSuppressErrors},
        {u"mnuContentSuppressScriptErrors", &C::mnuContentSuppressScriptErrors},

        {u"mnuHelpOnTheWeb", &C::mnuHelpOnTheWeb},
        {u"mnuHelpContents", &C::mnuHelpContents},
        {u"mnuHelpQuickTour", &C::mnuHelpQuickTour},
        {u"mnuHelpReportBug", &C::mnuHelpReportBug},
        {u"mnuHelpAbout", &C::mnuHelpAbout},

        {u"mnuNewHome1", &C::mnuNewHome1},
        {u"mnuNewHome2", &C::mnuNewHome2},
        {u"mnuNewBlank", &C::mnuNewBlank},
        {u"mnuNewCurrent", &C::mnuNewCurrent},
        {u"mnuNewClipboard", &C::mnuNewClipboard},
        {u"mnuNewEmail", &C::mnuNewEmail},
        {u"mnuNewSearch", &C::mnuNewSearch},
        {u"mnuNewNews", &C::mnuNewNews},
        {u"mnuNavigateRefreshAll", &C::refreshAll},
        {u"mnuNavigateStopAll", &C::stopAll},

        {u"mnuTBLargeIcons", &C::mnuTBLargeIcons},
        {u"mnuTBShowText", &C::mnuTBShowText},
        {u"mnuTBTextAlignRight", &C::mnuTBTextAlignRight},
        {u"mnuTBTextAlignBottom", &C::mnuTBTextAlignBottom},
        {u"mnuCustomSitesToolbar", nullptr},
        {u"mnuImportIELinks", nullptr},
        {u"mnuTabAdd2Fav", nullptr},

        {u"New", &C::mnuFileNew},
        {u"Back", &C::Back},
        {u"Forward", &C::Forward},
        {u"Refresh", &C::mnuNavigateRefresh},
        {u"Stop", &C::mnuNavigateStop},
        {u"Home", &C::buttonHome},
        {u"Home2", &C::buttonHome2},
        {u"Mail", &C::buttonMail},
        {u"Search", &C::buttonSearch},
        {u"News", &C::buttonNews},
    };
    return kTable;
}

bool Commands::knows(const QString &key)
{
    for (const Entry &entry : table())
        if (key == QStringView(entry.key))
            return true;
    return false;
}

bool Commands::run(const QString &key)
{
    for (const Entry &entry : table()) {
        if (key != QStringView(entry.key))
            continue;
        if (entry.handler)
            (this->*entry.handler)();
        return true;
    }
    return false;
}

void Commands::Click(controls::PopupMenu &menu, int itemNumber)
{
    const QString key = menu.ItemKey(itemNumber);
    if (run(key))
        return;
    if (key.startsWith(u"mnuWin"_s))
        windowCommand(menu.ItemData(itemNumber));
}

Document *Commands::active() const
{
    return m_main.ActiveForm();
}

Settings &Commands::settings() const
{
    return m_main.mainCode().settings;
}

void Commands::mnuFileNew()
{
    m_main.LoadNewDoc(settings().SitesHome1);
}

void Commands::mnuFileClose()
{
    if (Document *document = active())
        document->Unload();
}

void Commands::mnuFileExit()
{
    // After the menu has closed: the menus end with the window.
    QTimer::singleShot(0, &m_main, &frmMain::Unload);
}

void Commands::mnuEditCut()
{
    sendKeys(Qt::Key_Delete, Qt::ShiftModifier);
}

void Commands::mnuEditCopy()
{
    sendKeys(Qt::Key_Insert, Qt::ControlModifier);
}

void Commands::mnuEditPaste()
{
    sendKeys(Qt::Key_Insert, Qt::ShiftModifier);
}

void Commands::toggleBand(const QString &band, const QString &menuKey)
{
    const int index = m_main.cReBar1->BandIndexForKey(band);
    const bool visible = !m_main.cReBar1->BandVisible(index);
    m_main.cReBar1->setBandVisible(index, visible);
    m_main.setMenuChecked(menuKey, visible);
}

void Commands::mnuViewBrowseToolbar()
{
    toggleBand(u"Toolbar1"_s, u"mnuViewBrowseToolbar"_s);
}

void Commands::mnuViewSitesToolbar()
{
    toggleBand(u"Toolbar2"_s, u"mnuViewSitesToolbar"_s);
}

void Commands::mnuViewAddressBar()
{
    toggleBand(u"Addressbar"_s, u"mnuViewAddressBar"_s);
}

void Commands::mnuViewTabsBar()
{
    toggleBand(u"Tabbar"_s, u"mnuViewTabsBar"_s);
}

void Commands::mnuViewStatusBar()
{
    const bool visible = m_main.vbalStatusBar1->isHidden();
    m_main.vbalStatusBar1->setVisible(visible);
    m_main.setMenuChecked(u"mnuViewStatusBar"_s, visible);
}

void Commands::mnuViewNavigator()
{
    const int item = m_main.m_cMenu->IndexForKey(u"mnuViewNavigator"_s);
    const bool visible = !m_main.m_cMenu->Checked(item);
    m_main.m_cMenu->setChecked(item, visible);
    m_main.navigator->setVisible(visible);
}

void Commands::setAlign(int align, const QString &menuKey)
{
    m_main.bands().setAlign(align);
    m_main.m_cMenu->setRadioChecked(m_main.m_cMenu->IndexForKey(menuKey), true);
}

void Commands::mnuAlignTop()
{
    setAlign(vbAlignTop, u"mnuAlignTop"_s);
}

void Commands::mnuAlignBottom()
{
    setAlign(vbAlignBottom, u"mnuAlignBottom"_s);
}

void Commands::mnuViewTabsShrinkAll()
{
    m_main.tabStrip().ShrinkAll();
}

void Commands::mnuViewTabsShrinkActive()
{
    m_main.tabStrip().ShrinkActive();
}

void Commands::mnuViewTabsShrinkAllbutActive()
{
    m_main.tabStrip().ShrinkAllbutActive();
}

void Commands::mnuViewTabsResetAll()
{
    m_main.tabStrip().ResetAll();
}

void Commands::mnuViewQSearch()
{
    m_main.quickSearch().ask();
}

void Commands::windowCommand(int itemData)
{
    controls::MdiFrame &mdi = *m_main.mdi;
    switch (itemData) {
    case kWindowTile:
        mdi.Arrange(controls::vbTileHorizontal);
        break;
    case kWindowCascade:
        mdi.Arrange(controls::vbCascade);
        break;
    case kWindowMaximizeAll:
        if (QWidget *form = mdi.activeForm())
            mdi.setWindowState(form, controls::vbMaximized);
        break;
    case kWindowMinimizeAll:
        minimizeAll();
        break;
    case kWindowNext:
        mdi.activateNext();
        break;
    case kWindowPrevious:
        mdi.activatePrevious();
        break;
    case kWindowMore:
        m_main.showWindows();
        break;
    default:
        if (QWidget *form = m_main.windowMenuForm(itemData))
            mdi.activateForm(form);
    }
}

void Commands::minimizeAll()
{
    for (QWidget *form : m_main.mdi->forms())
        m_main.mdi->setWindowState(form, controls::vbMinimized);
}

bool Commands::flip(bool &setting, const QString &menuKey)
{
    setting = !setting;
    m_main.setMenuChecked(menuKey, setting);
    return setting;
}

void Commands::flipContent(bool &setting, const QString &menuKey)
{
    flip(setting, menuKey);
    m_cRefresh_Click(0);
}

void Commands::mnuContentImage()
{
    flipContent(settings().EnableImages, u"mnuContentImage"_s);
}

void Commands::mnuContentSound()
{
    flipContent(settings().EnableSound, u"mnuContentSound"_s);
}

void Commands::mnuContentVideo()
{
    flipContent(settings().EnableVideo, u"mnuContentVideo"_s);
}

void Commands::mnuContentScripts()
{
    flipContent(settings().EnableScripts, u"mnuContentScripts"_s);
}

void Commands::mnuContentJava()
{
    flipContent(settings().EnableJava, u"mnuContentJava"_s);
}

void Commands::mnuContentDLACTX()
{
    flipContent(settings().EnableActiveXDL, u"mnuContentDLACTX"_s);
}

void Commands::mnuContentRUNACTX()
{
    flipContent(settings().EnableActiveXRUN, u"mnuContentRUNACTX"_s);
}

void Commands::mnuContentFlash()
{
    flipContent(settings().EnableFlash, u"mnuContentFlash"_s);
}

void Commands::mnuContentAutoFill()
{
    if (flip(settings().AutoFormFill, u"mnuContentAutoFill"_s))
        mnuContentFillForm();
}

void Commands::mnuContentFillForm()
{
    const Document *document = active();
    if (!document || !document->customWB())
        return;
    const bool isLocked = FormLocked(settings(), m_main.mainCode().flags);
    step([&] { document->customWB()->FillForm(isLocked); });
}

void Commands::mnuContentFormData()
{
    m_main.mainCode().flags.OptionsStartPage = kFormsPage;
    m_main.ShowOptions();
}

void Commands::mnuViewOptions()
{
    m_main.ShowOptions();
}

void Commands::mnuContentSuppressErrors()
{
    flip(settings().SuppressErrors, u"mnuContentSuppressErrors"_s);
}

void Commands::mnuContentSuppressScriptErrors()
{
    const bool suppress = flip(settings().SuppressScriptErrors, u"mnuContentSuppressScriptErrors"_s);
    if (Document *document = active())
        document->SilentDoc(suppress);
}

void Commands::mnuHelpOnTheWeb()
{
    m_main.LoadNewDoc(kSite + u"/index.html"_s);
}

void Commands::mnuHelpContents()
{
    m_main.LoadNewDoc(kSite + u"/help.html"_s);
}

void Commands::mnuHelpQuickTour()
{
    m_main.LoadNewDoc(kSite + u"/qtour/"_s);
}

void Commands::mnuHelpReportBug()
{
    m_main.LoadNewDoc(kSite + u"/ContactUs.html"_s);
}

void Commands::mnuHelpAbout()
{
    auto *about = new frmAbout(&m_main, m_main.mainCode().flags);
    about->open();
}
