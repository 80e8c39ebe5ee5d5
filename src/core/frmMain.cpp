#include "core/frmMain.h"

#include "core/AllSettings.h"
#include "core/CaretRest.h"
#include "core/KeyboardHook.h"
#include "core/Shortcuts.h"
#include "core/frmMainCommands.h"
#include "core/frmPassword.h"
#include "core/frmWindows.h"

#include "appearance/cMediaProgress.h"
#include "base/Strings.h"
#include "base/step.h"
#include "base/units.h"
#include "blocking/PopupKiller.h"
#include "blocking/SiteBlocker.h"
#include "controls/BandContainer.h"
#include "controls/ComboBox.h"
#include "controls/MdiFrame.h"
#include "controls/MenuBar.h"
#include "controls/PopupMenu.h"
#include "controls/StatusBar.h"
#include "controls/TabControl.h"
#include "controls/ToolBar.h"
#include "core/state/Document.h"
#include "desktop/Paths.h"
#include "desktop/SecretService.h"
#include "desktop/TrayIcon.h"
#include "documents/SavedDocuments.h"
#include "documents/frmNavigator.h"
#include "engine/Engine.h"
#include "engine/WBCustomizer.h"
#include "engine/WebBrowser.h"
#include "forms/FormKey.h"
#include "forms/FormLock.h"
#include "options/frmOptions1.h"
#include "system/frmQSearch.h"

#include <QAction>
#include <QApplication>
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QPainter>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

/// Pictures of the three lists.
constexpr int kMenuPictures = 33;
constexpr int kMiscPictures = 6;
constexpr int kProgressPictures = 12;

constexpr int kClockMs = 1000;
/// Nobody means to open more documents with one movement of the mouse.
constexpr int kDroppedAtOnce = 20;

/// Height of the tab and the address band inside, in pixels.
constexpr int kBandHeight = 26;
constexpr int kGap = 4;
/// Edge of the small square buttons, in pixels.
constexpr int kButtonEdge = 24;

void addPictures(controls::ImageList &list, const QString &folder, int count)
{
    for (int i = 0; i < count; ++i)
        list.add(u":/icons/%1/%2.svg"_s.arg(folder).arg(i, 2, 10, QLatin1Char('0')));
}

QToolButton *pictureButton(QWidget *parent, const QString &icon, int text)
{
    auto *button = new QToolButton(parent);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setIcon(QIcon(u":/icons/bars/"_s + icon));
    button->setToolTip(LoadResString(text));
    button->setAccessibleName(LoadResString(text));
    button->resize(kButtonEdge, kButtonEdge);
    return button;
}

} // namespace

frmMain::frmMain(MainCode &mainCode)
    : m_mainCode(mainCode)
{
    setObjectName(u"frmMain"_s);
    setAttribute(Qt::WA_DontCreateNativeAncestors);
    setAcceptDrops(true);
}

frmMain::~frmMain()
{
    // Whatever still lives ends in this order: the documents, then what they stand on.
    Unload();
    if (mdi) {
        const QList<QWidget *> left = mdi->forms();
        for (QWidget *form : left)
            mdi->removeForm(form);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        delete mdi;
    }
}

void frmMain::createControls()
{
    addPictures(menuIL, u"menu"_s, kMenuPictures);
    addPictures(miscIL, u"status"_s, kMiscPictures);
    addPictures(ProgressIL, u"tabs"_s, kProgressPictures);

    picHolder = new QWidget(this);
    cReBar1 = new controls::BandContainer(picHolder);
    tbhMenu = new controls::ToolBarHost(picHolder);
    tbrMenu = new controls::MenuBar(picHolder);
    picTest = new QWidget(picHolder);
    Toolbar1 = new controls::ToolBar(picHolder);
    Toolbar2 = new controls::ToolBar(picHolder);
    createAddressBand();
    createTabBand();

    mdi = new controls::MdiFrame(this);
    vbalStatusBar1 = new controls::StatusBar(this);
    Clock = new QTimer(this);
    Clock->setInterval(kClockMs);

    m_layout = new QVBoxLayout(this);
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(0);
    m_layout->addWidget(picHolder);
    m_layout->addWidget(mdi, 1);
    m_layout->addWidget(vbalStatusBar1);

    mdi->childControls()->setParent(Picture6);
    mdi->childControls()->installEventFilter(this);
}

void frmMain::createAddressBand()
{
    Picture1 = new QWidget(picHolder);
    Picture1->setMinimumHeight(kBandHeight);
    Label1 = new QLabel(LoadResString(20050), Picture1);
    AddressBar = new controls::ComboBox(Picture1);
    AddressBar->setAccessibleName(LoadResString(20050).remove(u'&'));
    Label1->setBuddy(AddressBar);
    Label1->installEventFilter(this);
    Label1->resize(Label1->sizeHint().width(), kBandHeight);
    Label1->move(4, 0);
    AddressBar->setGeometry(Label1->geometry().right() + 7, 1, 200, kButtonEdge);
    Go = pictureButton(Picture1, u"go.svg"_s, 20054);
    Go->move(0, 1);
    goNew = pictureButton(Picture1, u"gonew.svg"_s, 20055);
    goNew->move(0, 1);
    goNew->setCheckable(true);
}

void frmMain::createTabBand()
{
    Picture6 = new QWidget(picHolder);
    Picture6->setMinimumHeight(kBandHeight);
    vbalDTabControl1 = new controls::TabControl(Picture6);
    Picture7 = pictureButton(Picture6, u"tile.svg"_s, 20056);
    Picture8 = pictureButton(Picture6, u"cascade.svg"_s, 20057);
}

void frmMain::wire()
{
    const Ground &ground = m_mainCode.ground();
    navigator = std::make_unique<frmNavigator>(this, *this, m_mainCode.settings, *mdi);
    m_siteBlocker = std::make_unique<SiteBlocker>(m_mainCode.settings, ground.paths.programFolder);
    m_formKeys = std::make_unique<FormKeys>(ground.paths.programFolder, desktop::secretServiceOf(ground.paths));
    m_documents = std::make_unique<DocumentContext>(
        DocumentContext{*this, m_mainCode.settings, m_mainCode.flags, ground.engine, ground.dialogs, ground.paths, *mdi,
                        *vbalDTabControl1, *AddressBar, *vbalStatusBar1, *cReBar1, *navigator, *m_siteBlocker,
                        ground.sound, *m_formKeys});
    m_opener = std::make_unique<DocumentOpener>(*m_documents);
    m_savedDocuments = std::make_unique<SavedDocuments>(ground.store, m_mainCode.settings, *navigator,
                                                        static_cast<MainWindow &>(*this));
    m_commands = std::make_unique<Commands>(*this);
    m_addressBarRules = std::make_unique<AddressBarRules>(
        AddressBarRules::Parts{*this, m_mainCode.flags, *AddressBar, *Go, *goNew, &ground.engine.visits()});
    const auto focusPage = [this] {
        if (Document *document = ActiveForm())
            document->browser()->setFocus();
    };
    // Later, when no list of the bar is open any more, which would hide from it that the focus goes.
    connect(m_addressBarRules.get(), &AddressBarRules::addressSent, this, focusPage, Qt::QueuedConnection);

    connect(Clock, &QTimer::timeout, this, [this] { showClock(*vbalStatusBar1); });
    connect(vbalStatusBar1, &controls::StatusBar::panelDoubleClick, this, &frmMain::vbalStatusBar1_PanelDoubleClick);
    connect(vbalStatusBar1, &controls::StatusBar::ownerDraw, this, [this](QPainter *painter, int, const QRect &rect) {
        if (cProgress)
            drawProgressPanel(*painter, rect, *vbalStatusBar1, *cProgress, m_mainCode.flags, ActiveForm() != nullptr);
    });
    connect(&ground.tray, &desktop::TrayIcon::doubleClicked, this, &frmMain::tray_DoubleClick);
    connect(Picture7, &QToolButton::clicked, this, [this] { mdi->Arrange(controls::vbTileHorizontal); });
    connect(Picture8, &QToolButton::clicked, this, [this] { mdi->Arrange(controls::vbCascade); });
    m_toolbars = std::make_unique<Toolbars>(*Toolbar1, *Toolbar2, *cReBar1, ground.store, m_mainCode.settings);
    m_bands = std::make_unique<Bands>(Bands::Controls{*picHolder, *cReBar1, *tbhMenu, *tbrMenu, *picTest, *Toolbar1,
                                                      *Toolbar2, *Picture1, *Picture6, *vbalDTabControl1},
                                      ground.paths.programFolder);
    connect(m_bands.get(), &Bands::alignChanged, this, &frmMain::dockPicHolder);
    // After the band's own rule, which gives the strip the width of the band.
    connect(cReBar1, &controls::BandContainer::BandChildResize, this, &frmMain::layOutTabBand);
    connect(Toolbar1, &controls::ToolBar::ButtonClick, m_commands.get(), &Commands::Toolbar1_ButtonClick);
    connect(Toolbar1, &controls::ToolBar::DropDownPress, m_commands.get(), &Commands::Toolbar1_DropDownPress);
    connect(Toolbar2, &controls::ToolBar::ButtonClick, m_commands.get(), &Commands::Toolbar2_ButtonClick);
    connect(mdi, &controls::MdiFrame::mouseMoved, this, &frmMain::MDIForm_MouseMove);
    connect(navigator.get(), &frmNavigator::newMenuRequested, this,
            [this](const QPoint &position) { m_cNew->ShowPopupMenu(position.x(), position.y()); });
}

void frmMain::wireMenus()
{
    for (const auto &menu : {&m_cMenu, &m_cNew, &m_cNavToolbar, &m_cSitesToolbar, &m_cRefresh, &m_cStop}) {
        controls::PopupMenu *popup = menu->get();
        connect(popup, &controls::PopupMenu::Click, this, [this, popup](int item) { m_commands->Click(*popup, item); });
    }
    connect(m_cMenu.get(), &controls::PopupMenu::InitPopupMenu, this, &frmMain::m_cMenu_InitPopupMenu);
    addShortcuts(*this, *m_cMenu, *m_commands, m_mainCode.flags);
    auto *toAddressBar = new QAction(this);
    toAddressBar->setShortcuts({QKeySequence(u"Ctrl+L"_s), QKeySequence(u"F6"_s)});
    connect(toAddressBar, &QAction::triggered, this, &frmMain::focusAddressBar);
    addAction(toAddressBar);
    connect(new QShortcut(Qt::Key_F11, this), &QShortcut::activated, this, [this] {
        if (Document *document = ActiveForm())
            document->browser()->setFullScreen(true);
    });
    m_tabStrip = std::make_unique<TabStrip>(TabStrip::Parts{*this, m_mainCode.settings, *mdi, navigator->ListView1,
                                                            *vbalDTabControl1, *m_cTabMenu, *m_cNew});
    connect(m_tabStrip.get(), &TabStrip::tabMenuCommand, this, [this](const QString &key) { m_commands->run(key); });
}

Document *frmMain::ActiveForm() const
{
    return mdi ? qobject_cast<Document *>(mdi->activeForm()) : nullptr;
}

void frmMain::LoadNewDoc(QString &url)
{
    m_opener->LoadNewDoc(url);
}

void frmMain::ModifyMenu()
{
    static constexpr const char16_t *kNeedDocument[] = {
        u"mnuFileClose",       u"mnuFileSaveAs",       u"mnuFileProperties",
        u"mnuFilePageSetup",   u"mnuFilePrintPreview", u"mnuFilePrint",
        u"mnuEditIncFont",     u"mnuEditDecFont",      u"mnuEditResetFont",
        u"mnuEditSelectAll",   u"mnuEditFind",         u"mnuViewAddToFav",
        u"mnuViewTabs",        u"mnuViewSource",       u"mnuViewInternetOptions",
        u"mnuNavigateBack",    u"mnuNavigateForward",  u"mnuNavigateStop",
        u"mnuNavigateRefresh", u"mnuContentFillForm",
    };
    const bool hasDocument = m_mainCode.flags.OpenDocumentCount >= 1;
    for (const char16_t *key : kNeedDocument)
        m_cMenu->setEnabled(m_cMenu->IndexForKey(QString::fromUtf16(key)), hasDocument);
    // Back, Forward, Refresh and Stop; New before them always works.
    for (int button = 1; button <= 4; ++button)
        step([&] { Toolbar1->setButtonEnabled(button, hasDocument); });
}

void frmMain::SaveAllDocuments()
{
    m_savedDocuments->SaveAllDocuments();
}

void frmMain::LoadAllDocuments()
{
    m_savedDocuments->LoadAllDocuments();
}

void frmMain::mnuContentFlash()
{
    m_commands->run(u"mnuContentFlash"_s);
}

void frmMain::setMenuChecked(const QString &key, bool checked)
{
    m_cMenu->setChecked(m_cMenu->IndexForKey(key), checked);
}

void frmMain::ShowOptions()
{
    // The key of the form record may still be on its way, and the page of the forms has to show what it opens.
    m_formKeys->whenSettled([this] { openOptions(); });
}

void frmMain::openOptions()
{
    if (m_options || m_unloading)
        return;
    const Ground &ground = m_mainCode.ground();
    m_options = new frmOptions1(
        this, {m_mainCode.settings, m_mainCode.flags, ground.store, ground.dialogs, ground.paths, *m_formKeys});
    connect(m_options, &QDialog::finished, this, &frmMain::applyOptions);
    m_options->show();
}

/// The dialog has closed, in whichever way.
void frmMain::applyOptions()
{
    setMenuChecked(u"mnuContentAutoFill"_s, m_mainCode.settings.AutoFormFill);
    for (QWidget *form : mdi->forms()) {
        const auto *document = qobject_cast<Document *>(form);
        if (!document || !document->customWB())
            continue;
        document->customWB()->ClearFormData();
        document->customWB()->LoadFormData(formFileIn(m_mainCode.ground().paths.programFolder));
    }
}

void frmMain::MDIForm_MouseMove(int, int, int, int)
{
    navigator->MDIForm_MouseMove();
}

void frmMain::dockPicHolder(int align)
{
    m_layout->removeWidget(picHolder);
    m_layout->insertWidget(align == vbAlignBottom ? 1 : 0, picHolder);
}

/// The tab strip leaves room for the two buttons at its right end, and for those of a maximised document behind them.
void frmMain::layOutTabBand()
{
    QWidget *child = mdi->childControls();
    int right = Picture6->width() - kGap;
    if (!child->isHidden()) {
        child->resize(child->sizeHint());
        right -= child->width();
        child->move(std::max(0, right), (Picture6->height() - child->height()) / 2);
        right -= kGap;
    }
    const int left = std::max(0, right - 2 * kButtonEdge);
    const int top = (Picture6->height() - kButtonEdge) / 2;
    Picture7->move(left, top);
    Picture8->move(left + kButtonEdge, top);
    // The tabs stand on the lower edge of their band.
    const int tabs = std::min(vbalDTabControl1->sizeHint().height(), Picture6->height());
    vbalDTabControl1->setGeometry(0, Picture6->height() - tabs, std::max(0, left - kGap), tabs);
}

bool frmMain::eventFilter(QObject *watched, QEvent *event)
{
    // The letter of the caption is taken before the keyboard hook sees the key; both do the same.
    if (watched == Label1 && event->type() == QEvent::Shortcut) {
        focusAddressBar();
        return true;
    }
    // They come and go with the maximised state of the documents.
    if (mdi && watched == mdi->childControls() && (event->type() == QEvent::Show || event->type() == QEvent::Hide))
        QMetaObject::invokeMethod(this, &frmMain::layOutTabBand, Qt::QueuedConnection);
    return QWidget::eventFilter(watched, event);
}

void frmMain::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

/// Pages take what is dropped on them. On all the rest of the window links and files open in tabs of their own.
void frmMain::dropEvent(QDropEvent *event)
{
    event->acceptProposedAction();
    for (const QUrl &url : event->mimeData()->urls().mid(0, kDroppedAtOnce)) {
        const QString address = url.isLocalFile() ? url.toLocalFile() : url.toString(QUrl::FullyEncoded);
        // Later: a link may be on its way from one of our own pages, whose engine waits for the end of the drop.
        QMetaObject::invokeMethod(
            this,
            [this, address] {
                if (!m_unloading)
                    LoadNewDoc(address);
            },
            Qt::QueuedConnection);
    }
}

void frmMain::openWindowMenu()
{
    std::vector<WindowLine> lines;
    m_windowMenuForms.clear();
    for (QWidget *form : mdi->forms()) {
        const auto *document = qobject_cast<Document *>(form);
        if (!document)
            continue;
        lines.push_back({static_cast<int>(m_windowMenuForms.size()), document->Caption(), form == mdi->activeForm()});
        m_windowMenuForms.emplace_back(form);
    }
    BuildWindowMenu(*m_cMenu, u"mnuWindow"_s, lines);
}

frmQSearch &frmMain::quickSearch()
{
    if (!m_quickSearch)
        m_quickSearch = std::make_unique<frmQSearch>(this, *this, m_mainCode.ground().store, m_mainCode.flags);
    return *m_quickSearch;
}

void frmMain::showWindows()
{
    std::vector<frmWindows::Line> lines;
    int current = -1;
    for (QWidget *form : mdi->forms()) {
        if (form == mdi->activeForm())
            current = static_cast<int>(lines.size());
        if (const auto *document = qobject_cast<Document *>(form))
            lines.push_back({document->Caption(), form});
    }
    auto *windows = new frmWindows(this, std::move(lines), current, m_mainCode.flags);
    connect(windows, &frmWindows::chosen, mdi, &controls::MdiFrame::activateForm);
    windows->open();
}

QWidget *frmMain::windowMenuForm(int index) const
{
    return index >= 0 && index < static_cast<int>(m_windowMenuForms.size()) ? m_windowMenuForms[index] : nullptr;
}

void frmMain::m_cMenu_InitPopupMenu(int parentItemNumber)
{
    const QString key = m_cMenu->ItemKey(parentItemNumber);
    if (key == u"mnuWindow"_s)
        openWindowMenu();
    else if (key == u"mnuTabAutoRefresh"_s)
        m_tabStrip->markAutoRefresh(*m_cMenu);
}

void frmMain::vbalStatusBar1_PanelDoubleClick(int index)
{
    if (index == 3) {
        ShowOptions();
    } else if (index == 4) {
        bool &enabled = m_mainCode.settings.PopupKillerEnable;
        enabled = !enabled;
        vbalStatusBar1->setPanelIcon(u"Item4"_s, popupKillerIcon(enabled));
        if (Document *document = ActiveForm())
            document->PlayPopupSound();
    }
}
