// The life of the main window: load, resize, minimising, close.

#include "core/AllSettings.h"
#include "core/CaretRest.h"
#include "core/KeyboardHook.h"
#include "core/frmMain.h"
#include "core/frmMainCommands.h"
#include "core/frmPassword.h"

#include "appearance/ShippedFiles.h"
#include "appearance/cMediaProgress.h"
#include "base/Strings.h"
#include "base/step.h"
#include "base/units.h"
#include "controls/BandContainer.h"
#include "controls/ComboBox.h"
#include "controls/Focus.h"
#include "controls/MdiFrame.h"
#include "controls/MenuBar.h"
#include "controls/PopupMenu.h"
#include "controls/StatusBar.h"
#include "controls/TabControl.h"
#include "controls/ToolBar.h"
#include "core/state/Document.h"
#include "core/state/SettingsStore.h"
#include "desktop/Dialogs.h"
#include "desktop/Paths.h"
#include "desktop/TrayIcon.h"
#include "documents/SavedDocuments.h"
#include "documents/frmLoad.h"
#include "documents/frmNavigator.h"
#include "engine/Engine.h"
#include "engine/WebBrowser.h"
#include "system/frmQSearch.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QLineEdit>
#include <QScreen>
#include <QToolButton>
#include <QUrl>
#include <QWindow>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString kQuickTour = u"corvane://www/qtour/index.html"_s;

/// Room, in twips, that the address bar and its two buttons leave free of the window's width.
constexpr int kAddressBarRoom = 700;
constexpr int kGoRoom = 500;
constexpr int kGoNewRoom = 450;

/// Part of the window that has to lie on a screen, so that the user can get hold of it.
constexpr QSize kReachable(120, 40);

/// Where the search site takes a query, "%s" in its place: all the large ones take it there. Empty for no web site.
QString searchAddress(const QString &site)
{
    const QUrl url(site);
    const bool isWeb = url.scheme() == u"https"_s || url.scheme() == u"http"_s;
    return isWeb ? url.resolved(QUrl(u"/search"_s)).toString() + u"?q=%s"_s : QString();
}

} // namespace

void frmMain::Load()
{
    if (m_loaded || m_unloading)
        return;
    createControls();
    wire();
    m_loaded = true;
    MDIForm_Load();
}

void frmMain::MDIForm_Load()
{
    trace("LocalizeForm");
    setProperty(kTag, 1120);
    LocalizeForm(this);
    // The captions of the favorites buttons come with the side bar.
    trace("SubclassMainWindow");
    m_mainCode.SubclassMainWindow();
    trace("InstallKeyboardHook");
    installKeyboardHook();
    m_caretRest = std::make_unique<CaretRest>();
    trace("InitInterface");
    InitInterface();
    // LoadFavorites
    trace("LoadAllSettings");
    loadAllSettings();
    trace("EnableClock");
    showClock(*vbalStatusBar1);
    Clock->start();
    // The default browser check, LoadHistory and LoadNotes
    trace("OpenFirstDocument");
    openFirstDocument();
}

void frmMain::focusAddressBar()
{
    if (Document *document = ActiveForm())
        document->browser()->setFullScreen(false);
    goNew->setFocus();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    controls::giveFocus(*AddressBar, Qt::ShortcutFocusReason);
    // So that typing begins a new address.
    AddressBar->lineEdit()->selectAll();
}

void frmMain::installKeyboardHook()
{
    m_keyboardHook = std::make_unique<KeyboardHook>(
        m_mainCode.flags, KeyboardHook::Actions{
                              [this] { focusAddressBar(); },
                              [this] { m_commands->mnuNavigateStop(); },
                              [this](bool backwards) { m_tabStrip->stepThroughTabs(backwards); },
                              [this] { m_commands->run(u"mnuFileClose"_s); },
                              [this] { m_commands->Home1(); },
                              [this] { m_commands->run(u"mnuFileNew"_s); },
                              [this] { m_commands->mnuFileOpen(); },
                              [this] { m_commands->run(u"mnuViewQSearch"_s); },
                          });
    m_keyboardHook->install();
}

SettingsTargets frmMain::settingsTargets()
{
    const Ground &ground = m_mainCode.ground();
    return {ground.store, ground.paths, m_mainCode.settings, *this,  *navigator,  *cReBar1,    *m_cMenu,
            *AddressBar,  miscIL,       *vbalStatusBar1,     *goNew, ground.tray, g_sNextSkin, *m_siteBlocker};
}

void frmMain::loadAllSettings()
{
    LoadAllSettings(settingsTargets());
    m_mainCode.ground().engine.setSearchAddress(searchAddress(m_mainCode.settings.SitesSearch));
}

void frmMain::saveAllSettings()
{
    SaveAllSettings(settingsTargets());
}

void frmMain::InitInterface()
{
    const Ground &ground = m_mainCode.ground();
    Settings &settings = m_mainCode.settings;
    installShippedFiles(ground.paths.programFolder);
    LoadSkinSettings(ground.store, ground.paths, settings);
    g_sNextSkin = settings.CurrentSkin;

    m_toolbars->BuildToolbars();
    // The button that Toolbar2 is made with gives way to the links.
    step([&] { Toolbar2->setButtonVisible(u"hack"_s, false); });
    createMenus();
    m_cMenu->attachTo(tbrMenu);
    tbhMenu->HostCapture(tbrMenu);
    // The skin's picture comes with the skins.
    m_bands->LoadBandLayout(QString());

    cProgress = std::make_unique<cMediaProgress>();
    cProgress->setMin(0);
    cProgress->setMax(100);
    cProgress->setWidth(kProgressWidth);
    InitStatusBar(*vbalStatusBar1, miscIL);
    vbalDTabControl1->setImageList(&ProgressIL);
}

void frmMain::createMenus()
{
    m_cMenu = std::make_unique<controls::PopupMenu>(this);
    InitMainMenu(*m_cMenu, menuIL);
    m_cNew = std::make_unique<controls::PopupMenu>(this);
    InitNewMenu(*m_cNew, menuIL);
    m_cNavToolbar = std::make_unique<controls::PopupMenu>(this);
    InitNavToolbarMenu(*m_cNavToolbar, menuIL);
    m_cSitesToolbar = std::make_unique<controls::PopupMenu>(this);
    InitSitesToolbarMenu(*m_cSitesToolbar, menuIL);
    m_cTabMenu = std::make_unique<controls::PopupMenu>(this);
    InitTabMenu(*m_cTabMenu, menuIL);
    m_cRefresh = std::make_unique<controls::PopupMenu>(this);
    InitRefreshMenu(*m_cRefresh, menuIL);
    m_cStop = std::make_unique<controls::PopupMenu>(this);
    InitStopMenu(*m_cStop, menuIL);
    wireMenus();
}

void frmMain::openFirstDocument()
{
    const Settings &settings = m_mainCode.settings;
    SettingsStore &store = m_mainCode.ground().store;

    bool firstTime = false;
    step([&] { firstTime = toBoolean(store.GetSetting(appTitle(), u"Settings"_s, u"FirstTime"_s, u"True"_s)); });
    if (firstTime) {
        store.SaveSetting(appTitle(), u"Settings"_s, u"FirstTime"_s, fromBoolean(false));
        LoadNewDoc(kQuickTour);
    } else if (!m_mainCode.Command().isEmpty()) {
        LoadNewDoc(m_mainCode.commandWithoutQuotes());
    } else if (!settings.SaveDocumentOnExit) {
        LoadNewDoc(settings.SitesHome1);
    } else if (settings.LoadAction == 1) {
        LoadAllDocuments();
    } else if (settings.LoadAction == 2 && m_savedDocuments->count() > 0) {
        frmLoad question(this, *this, m_mainCode.settings, m_mainCode.flags);
        question.exec();
    }
}

void frmMain::showFirst()
{
    bringOntoScreen();
    // The engine's first page has made the native window by now, and that does not know the state that was set before.
    if (QWindow *window = windowHandle())
        window->setWindowStates(windowState());
    show();
    navigator->showWithOwner();
}

/// A window that was stored on a screen that is no longer there comes back onto one.
void frmMain::bringOntoScreen()
{
    const QRect place = geometry();
    const auto reachable = [&](const QScreen *screen) {
        const QRect seen = screen->availableGeometry().intersected(place);
        return seen.width() >= std::min(kReachable.width(), place.width()) &&
               seen.height() >= std::min(kReachable.height(), place.height()) &&
               place.top() >= screen->availableGeometry().top();
    };
    const QList<QScreen *> screens = QGuiApplication::screens();
    if (screens.isEmpty() || std::any_of(screens.begin(), screens.end(), reachable))
        return;
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    resize(size().boundedTo(area.size()));
    move(std::clamp(place.left(), area.left(), area.right() + 1 - width()),
         std::clamp(place.top(), area.top(), area.bottom() + 1 - height()));
}

void frmMain::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    MDIForm_Resize();
}

void frmMain::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange)
        MDIForm_Resize();
}

void frmMain::MDIForm_Resize()
{
    if (!m_loaded || m_unloading)
        return;
    const double all = toTwips(frameGeometry().width());
    const double buttons = toTwips(Go->width() + goNew->width());
    const double room = all - buttons - toTwips(AddressBar->x()) - kAddressBarRoom;
    AddressBar->resize(toPixels(std::max(room, 0.0)), AddressBar->height());
    Go->move(toPixels(all - buttons - kGoRoom), Go->y());
    goNew->move(toPixels(all - toTwips(goNew->width()) - kGoNewRoom), goNew->y());
    cReBar1->RecalculateLayout();

    // Without a tray the window could never come back, so it stays an ordinary minimised one.
    if (isMinimized() && m_mainCode.settings.MinimizeToTray && m_mainCode.ground().tray.isAvailable()) {
        navigator->hideWithOwner();
        hide();
        if (!m_mainCode.settings.TrayPassword.isEmpty())
            m_mainCode.ReleaseInstanceMutex();
    }
}

void frmMain::setWindowStateNormal()
{
    setWindowState(windowState() & Qt::WindowActive);
}

void frmMain::showFromOutside()
{
    show();
    navigator->showWithOwner();
    raise();
    activateWindow();
}

void frmMain::RestoreFromTray()
{
    setWindowStateNormal();
    showFromOutside();
}

void frmMain::tray_DoubleClick()
{
    if (m_unloading)
        return;
    const Settings &settings = m_mainCode.settings;
    if (settings.TrayPassword.isEmpty() || !settings.MinimizeToTray) {
        RestoreFromTray();
        return;
    }
    if (!m_password) {
        m_password =
            std::make_unique<frmPassword>(this, settings.TrayPassword, m_mainCode.flags, m_mainCode.ground().dialogs);
        connect(m_password.get(), &frmPassword::passed, this, [this] {
            RestoreFromTray();
            // Owns the name again, unless a newer program has it by now.
            m_mainCode.IsFirstInstance(instance::kMutexName);
        });
    }
    m_password->ask();
}

void frmMain::closeEvent(QCloseEvent *event)
{
    Unload();
    event->accept();
}

void frmMain::Unload()
{
    if (m_unloading)
        return;
    m_unloading = true;
    // A close that comes before the load leaves nothing to store, and the window then never loads.
    if (m_loaded) {
        rejectDialogs();
        MDIForm_QueryUnload();
        MDIForm_Unload();
    }
    m_unloaded = true;
    hide();
    emit unloaded();
}

/// A question that is still up is answered with no, so that its loop ends.
void frmMain::rejectDialogs()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows)
        if (auto *dialog = qobject_cast<QDialog *>(window))
            dialog->reject();
}

void frmMain::MDIForm_QueryUnload()
{
    const Settings &settings = m_mainCode.settings;
    if (settings.SaveDocumentOnExit) {
        trace("SaveAllDocuments");
        SaveAllDocuments();
    }
    if (settings.CleanAddress) {
        trace("ClearAddressBar");
        AddressBar->Clear();
    }
    if (settings.CleanSearch) {
        trace("ClearSearchList");
        quickSearch().ClearList();
    }
    // Then the traces of browsing
}

void frmMain::MDIForm_Unload()
{
    trace("UnsubclassMainWindow");
    m_mainCode.UnsubclassMainWindow();
    trace("UninstallKeyboardHook");
    m_keyboardHook->uninstall();
    trace("SaveAllSettings");
    saveAllSettings();
    trace("SaveBandLayout");
    m_bands->SaveBandLayout();
    trace("ResetFont");
    m_commands->mnuEditResetFont();
    trace("UnloadNavigator");
    navigator->setTag(u"1"_s);
    navigator->Unload();
    if (m_password) {
        trace("UnloadPassword");
        m_password.reset();
    }
    if (m_quickSearch) {
        trace("UnloadQSearch");
        m_quickSearch->Unload();
        m_quickSearch.reset();
    }
    if (m_mainCode.settings.MinimizeToTray) {
        trace("RemoveTrayIcon");
        m_mainCode.ground().tray.RemoveTrayIcon();
    }
    // SaveNotes and CloseHistoryList
    trace("DestroyBands");
    m_bands->DestroyBands();
    trace("UnloadForms");
    unloadForms();
    trace("DisableClock");
    Clock->stop();
    // Who is first from here on reads what is in the file.
    m_mainCode.ground().store.sync();
    trace("ReleaseInstanceMutex");
    m_mainCode.ReleaseInstanceMutex();
}

void frmMain::unloadForms()
{
    for (QWidget *form : mdi->forms())
        if (auto *document = qobject_cast<Document *>(form))
            document->Unload();
}
