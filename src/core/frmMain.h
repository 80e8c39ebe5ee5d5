#pragma once

#include "appearance/Bands.h"
#include "appearance/Toolbars.h"
#include "core/Interface.h"
#include "core/MainCode.h"
#include "core/state/MainWindow.h"
#include "documents/AddressBarRules.h"
#include "documents/DocumentContext.h"
#include "documents/DocumentOpener.h"
#include "documents/TabStrip.h"

#include "controls/ImageList.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <memory>
#include <vector>

class Commands;
class FormKeys;
class CaretRest;
class KeyboardHook;
class QVBoxLayout;
class QLabel;
class QToolButton;
class SavedDocuments;
class SiteBlocker;
class cMediaProgress;
class frmNavigator;
class frmOptions1;
class frmPassword;
class frmQSearch;
struct SettingsTargets;

namespace controls {
class BandContainer;
class ComboBox;
class MdiFrame;
class MenuBar;
class PopupMenu;
class StatusBar;
class Tab;
class TabControl;
class ToolBar;
class ToolBarHost;
} // namespace controls

/// How a control is docked.
inline constexpr int vbAlignTop = 1;
inline constexpr int vbAlignBottom = 2;

/// The one main window: the frame of the documents with its bars. It owns the controls and the rule objects and wires
/// events to handlers; the rules themselves live in the rooms below. Its controls exist from Load on.
class frmMain : public QWidget, public MainWindow
{
    Q_OBJECT
public:
    explicit frmMain(MainCode &mainCode);
    ~frmMain() override;

    /// Makes the controls and runs the start sequence, the first document included.
    void Load();
    /// Runs the close, once; nothing asks and nothing can cancel. Safe inside the window's own events, and before Load,
    /// which then does nothing.
    void Unload();
    bool isUnloaded() const { return m_unloaded; }
    /// First appearance, in the state that the settings gave.
    void showFirst();
    /// WindowState = normal, also for a hidden window.
    void setWindowStateNormal();
    /// Visible = True after a hand-over: the window comes to the front.
    void showFromOutside();
    void RestoreFromTray();

    std::unique_ptr<cMediaProgress> cProgress;
    /// The skin of the next run.
    QString g_sNextSkin;
    std::unique_ptr<controls::PopupMenu> m_cMenu;
    std::unique_ptr<controls::PopupMenu> m_cNavToolbar;
    std::unique_ptr<controls::PopupMenu> m_cSitesToolbar;
    std::unique_ptr<controls::PopupMenu> m_cStop;
    std::unique_ptr<controls::PopupMenu> m_cTabMenu;
    std::unique_ptr<controls::PopupMenu> m_cRefresh;
    std::unique_ptr<controls::PopupMenu> m_cNew;

    // MainWindow
    Document *ActiveForm() const override;
    using MainWindow::LoadNewDoc;
    void LoadNewDoc(QString &url) override;
    void ModifyMenu() override;
    void SaveAllDocuments() override;
    void LoadAllDocuments() override;
    void mnuContentFlash() override;
    bool g_Focus() const override { return m_addressBarRules && m_addressBarRules->g_Focus(); }
    void setMenuChecked(const QString &key, bool checked) override;
    void ShowOptions() override;

    /// The mouse moved over the empty client area.
    void MDIForm_MouseMove(int button, int shift, int x, int y);

    // Controls, by name
    QWidget *picHolder = nullptr;
    controls::BandContainer *cReBar1 = nullptr;
    controls::ToolBarHost *tbhMenu = nullptr;
    controls::MenuBar *tbrMenu = nullptr;
    QWidget *picTest = nullptr;
    controls::ToolBar *Toolbar1 = nullptr;
    controls::ToolBar *Toolbar2 = nullptr;
    QWidget *Picture1 = nullptr;
    QLabel *Label1 = nullptr;
    controls::ComboBox *AddressBar = nullptr;
    QToolButton *Go = nullptr;
    QToolButton *goNew = nullptr;
    QWidget *Picture6 = nullptr;
    controls::TabControl *vbalDTabControl1 = nullptr;
    QToolButton *Picture7 = nullptr;
    QToolButton *Picture8 = nullptr;
    controls::MdiFrame *mdi = nullptr;
    controls::StatusBar *vbalStatusBar1 = nullptr;
    QTimer *Clock = nullptr;
    controls::ImageList menuIL{16};
    controls::ImageList miscIL{16};
    controls::ImageList ProgressIL{16};
    std::unique_ptr<frmNavigator> navigator;

    MainCode &mainCode() const { return m_mainCode; }
    Toolbars &toolbars() const { return *m_toolbars; }
    Bands &bands() const { return *m_bands; }
    TabStrip &tabStrip() const { return *m_tabStrip; }
    Commands &commands() const { return *m_commands; }
    /// Rebuilds the Window submenu and remembers which document each of its lines stands for.
    void openWindowMenu();
    /// The window of quick search, made when it is asked for first.
    frmQSearch &quickSearch();
    /// Offers the list of all documents.
    void showWindows();
    /// The document that line `index` of the Window menu stood for when the menu opened; null when it has gone.
    QWidget *windowMenuForm(int index) const;

signals:
    /// The close has run; the process may end.
    void unloaded();

protected:
    void closeEvent(QCloseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void createControls();
    void createAddressBand();
    void createTabBand();
    void wire();
    void wireMenus();

    void MDIForm_Load();
    /// Leads the keyboard to the address bar, with the whole address selected.
    void focusAddressBar();
    void installKeyboardHook();
    void loadAllSettings();
    void saveAllSettings();
    SettingsTargets settingsTargets();
    void InitInterface();
    void createMenus();
    void openFirstDocument();
    void bringOntoScreen();
    void MDIForm_Resize();
    void dockPicHolder(int align);
    void layOutTabBand();
    void rejectDialogs();
    void MDIForm_QueryUnload();
    void MDIForm_Unload();
    void unloadForms();
    void trace(const char *step) const { m_mainCode.trace(QString::fromLatin1(step)); }

    void m_cMenu_InitPopupMenu(int parentItemNumber);
    void vbalStatusBar1_PanelDoubleClick(int index);
    void tray_DoubleClick();
    void openOptions();
    void applyOptions();

    MainCode &m_mainCode;
    bool m_loaded = false;
    bool m_unloading = false;
    bool m_unloaded = false;
    std::unique_ptr<Toolbars> m_toolbars;
    std::unique_ptr<Bands> m_bands;
    std::unique_ptr<Commands> m_commands;
    std::unique_ptr<KeyboardHook> m_keyboardHook;
    std::unique_ptr<CaretRest> m_caretRest;
    std::unique_ptr<SiteBlocker> m_siteBlocker;
    std::unique_ptr<FormKeys> m_formKeys;
    std::unique_ptr<DocumentContext> m_documents;
    std::unique_ptr<DocumentOpener> m_opener;
    std::unique_ptr<SavedDocuments> m_savedDocuments;
    std::unique_ptr<AddressBarRules> m_addressBarRules;
    std::unique_ptr<TabStrip> m_tabStrip;
    std::vector<QPointer<QWidget>> m_windowMenuForms;
    /// Made when it is asked for first.
    std::unique_ptr<frmPassword> m_password;
    std::unique_ptr<frmQSearch> m_quickSearch;
    QPointer<frmOptions1> m_options;
    QVBoxLayout *m_layout = nullptr;
};
