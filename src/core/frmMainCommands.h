#pragma once

#include <QHash>
#include <QObject>
#include <QString>
#include <span>

class Document;
class QPoint;
class frmMain;
struct Settings;
namespace controls {
class PopupMenu;
class ToolBar;
} // namespace controls

/// The commands of the main window: one table from the text key of a menu item to its handler, for all seven menus, the
/// toolbar buttons and the keys. A key without an entry does nothing.
class Commands : public QObject
{
    Q_OBJECT
public:
    explicit Commands(frmMain &main);

    /// A click in one of the menus.
    void Click(controls::PopupMenu &menu, int itemNumber);
    /// Runs the command of a key; false when the key has none.
    bool run(const QString &key);
    /// Whether the table has a key.
    static bool knows(const QString &key);

    void Toolbar1_ButtonClick(int button);
    void Toolbar1_DropDownPress(int button);
    void Toolbar2_ButtonClick(int button);

    // Commands that others call by name
    void Back();
    void Forward();
    void Home1();
    void mnuNavigateSearch();
    void mnuNavigateStop();
    void mnuNavigateRefresh();
    void mnuFileOpen();
    void mnuNewBlank();
    void mnuEditResetFont();
    /// Reloads or stops every document; the item number is not looked at.
    void m_cRefresh_Click(int itemNumber);
    void m_cStop_Click(int itemNumber);

private:
    using Handler = void (Commands::*)();
    struct Entry
    {
        const char16_t *key;
        Handler handler;
    };
    static std::span<const Entry> table();

    // File
    void mnuFileNew();
    void mnuFileClose();
    void mnuFileSaveAs();
    void mnuFileProperties();
    void mnuFilePageSetup();
    void mnuFilePrintPreview();
    void mnuFilePrint();
    void mnuFileExit();
    // Edit
    void mnuEditCut();
    void mnuEditCopy();
    void mnuEditPaste();
    void mnuEditIncFont();
    void mnuEditDecFont();
    void mnuEditSelectAll();
    void mnuEditFind();
    void mnuViewQSearch();
    void mnuViewSource();
    void mnuViewInternetOptions();
    void mnuViewOptions();
    // View
    void mnuViewBrowseToolbar();
    void mnuViewSitesToolbar();
    void mnuViewAddressBar();
    void mnuViewTabsBar();
    void mnuViewStatusBar();
    void mnuViewNavigator();
    void mnuAlignTop();
    void mnuAlignBottom();
    void mnuViewTabsShrinkAll();
    void mnuViewTabsShrinkActive();
    void mnuViewTabsShrinkAllbutActive();
    void mnuViewTabsResetAll();
    // Sites
    void mnuNavigateHome2();
    void mnuNavigateMail();
    void mnuNavigateNews();
    void mnuNewHome1();
    void mnuNewHome2();
    void mnuNewCurrent();
    void mnuNewClipboard();
    void mnuNewEmail();
    void mnuNewSearch();
    void mnuNewNews();
    void refreshAll();
    void stopAll();
    // Content
    void mnuContentImage();
    void mnuContentSound();
    void mnuContentVideo();
    void mnuContentScripts();
    void mnuContentJava();
    void mnuContentDLACTX();
    void mnuContentRUNACTX();
    void mnuContentFlash();
    void mnuContentAutoFill();
    void mnuContentFillForm();
    void mnuContentFormData();
    void mnuContentSuppressErrors();
    void mnuContentSuppressScriptErrors();
    // Help
    void mnuHelpOnTheWeb();
    void mnuHelpContents();
    void mnuHelpQuickTour();
    void mnuHelpReportBug();
    void mnuHelpAbout();

    // Toolbars
    void buttonHome();
    void buttonHome2();
    void buttonMail();
    void buttonSearch();
    void buttonNews();
    void mnuTBLargeIcons();
    void mnuTBShowText();
    void mnuTBTextAlignRight();
    void mnuTBTextAlignBottom();

    void windowCommand(int itemData);
    void minimizeAll();
    void toggleBand(const QString &band, const QString &menuKey);
    bool flip(bool &setting, const QString &menuKey);
    void flipContent(bool &setting, const QString &menuKey);
    void setAlign(int align, const QString &menuKey);
    void sameTab(const QString &address);
    void execWB(int cmdid);
    int zoom() const;
    void setZoom(int size);
    void forEachDocument(void (*act)(Document &));
    Document *active() const;
    Settings &settings() const;

    /// A site button: in a new tab or the same one, as the setting says.
    void siteButton(const QString &address, void (Commands::*sameTabForm)());
    void setTextAlign(bool right);
    /// Stores a look of the toolbar whose menu is open.
    void storeLook(const char *what, bool value);
    controls::ToolBar &menuToolbar() const;
    controls::PopupMenu &toolbarMenu() const;
    QString menuBand() const;
    void ShowHistoryMenu(bool isBack, const QPoint &at);

    frmMain &m_main;
    /// The toolbar menu that is open belongs to Toolbar2.
    bool m_menuOfSites = false;
};
