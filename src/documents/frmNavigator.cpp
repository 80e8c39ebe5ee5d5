#include "documents/frmNavigator.h"

#include "base/Strings.h"
#include "base/step.h"
#include "base/units.h"
#include "controls/MdiFrame.h"
#include "core/state/Document.h"
#include "core/state/MainWindow.h"
#include "core/state/Settings.h"

#include <QAction>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLayout>
#include <QMouseEvent>
#include <QScreen>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
constexpr int kCaption = 2500;
constexpr int kSiteColumn = 2503;
constexpr int kStatusColumn = 2504;
constexpr int kAutoShrink = 20302;
constexpr int kKeepVisible = 20303;
constexpr int kNewMenu = 20304;

/// Heights in twips: one step of the animation, and the bounds at which it ends. Steps are not clipped.
constexpr int kStep = 450;
constexpr int kLowest = 600;
constexpr int kHighest = 5000;
constexpr int kDotSteps = 6;
/// Room around the list, in twips.
constexpr int kListLeft = 10;
constexpr int kListMargin = 20;
/// Where the window stands at first, in twips.
constexpr int kLeft = 12060;
constexpr int kTop = 795;
constexpr int kWidth = 4815;
constexpr int kHeight = 1305;
constexpr int kStatusWidth = 80;
constexpr int kIconSize = 16;
constexpr int kArrowWidth = 14;

/// Pictures of ImageList1, counted from 0.
enum Picture { SitePicture, NewPicture, ClosePicture, RefreshPicture, StopPicture, PinPicture };

int pixelsWithin(double twips, int lowest, int highest)
{
    return toPixels(std::clamp(twips, toTwips(lowest), toTwips(highest)));
}

QRect desktopArea()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen ? screen->virtualGeometry() : QRect(0, 0, 1024, 768);
}
} // namespace

frmNavigator::frmNavigator(QWidget *owner, MainWindow &frmMain, const Settings &settings, controls::MdiFrame &mdi)
    : QWidget(owner, Qt::Tool)
    , ImageList1(kIconSize)
    , ListView1(this)
    , Toolbar1(this)
    , Check1(this)
    , m_frmMain(frmMain)
    , m_settings(settings)
    , m_mdi(mdi)
{
    setProperty(kTag, kCaption);
    setAttribute(Qt::WA_QuitOnClose, false);
    setMouseTracking(true);
    for (const QString &name : {u"site"_s, u"new"_s, u"close"_s, u"refresh"_s, u"stop"_s, u"pin"_s})
        ImageList1.add(u":/icons/navigator/"_s + name + u".svg"_s);

    ListView1.setImageList(&ImageList1);
    ListView1.setColumnCount(2);
    ListView1.headerItem()->setData(0, kTagRole, kSiteColumn);
    ListView1.headerItem()->setData(1, kTagRole, kStatusColumn);
    ListView1.header()->setStretchLastSection(false);
    ListView1.header()->setSectionResizeMode(0, QHeaderView::Stretch);
    ListView1.header()->resizeSection(1, kStatusWidth);
    ListView1.viewport()->setMouseTracking(true);
    ListView1.viewport()->installEventFilter(this);

    makeToolbar();
    Form_Load();
    setGeometry(toPixels(kLeft), toPixels(kTop), toPixels(kWidth), toPixels(kHeight));

    connect(&ListView1, &QTreeWidget::itemClicked, this, &frmNavigator::ListView1_Click);
    connect(&ListView1, &QTreeWidget::itemActivated, this, &frmNavigator::ListView1_Click);
    connect(&Check1, &QToolButton::toggled, this, &frmNavigator::Check1_Click);
    connect(&Timer1, &QTimer::timeout, this, &frmNavigator::Timer1_Timer);
    connect(&tmrLoading, &QTimer::timeout, this, &frmNavigator::tmrLoading_Timer);
}

frmNavigator::~frmNavigator() = default;

void frmNavigator::Form_Load()
{
    LocalizeForm(this);
    ListView1.setAccessibleName(windowTitle());
    Toolbar1.setAccessibleName(windowTitle());
    Check1_Click();
}

QAction *frmNavigator::addButton(int icon, int caption, int toolTip, const QString &key)
{
    QAction *button = Toolbar1.addAction(ImageList1.icon(icon), QString::number(caption));
    button->setToolTip(QString::number(toolTip));
    connect(button, &QAction::triggered, this, [this, key] { Toolbar1_ButtonClick(key); });
    // A toolbar's buttons take no focus by themselves; here the keyboard must reach them.
    Toolbar1.widgetForAction(button)->setFocusPolicy(Qt::TabFocus);
    return button;
}

void frmNavigator::makeToolbar()
{
    Toolbar1.setIconSize(QSize(kIconSize, kIconSize));
    Toolbar1.setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    Toolbar1.setMovable(false);
    Toolbar1.setContentsMargins(0, 0, 0, 0);
    Toolbar1.layout()->setSpacing(0);
    Toolbar1.layout()->setContentsMargins(2, 2, 0, 2);
    QAction *buttonNew = addButton(NewPicture, 1101, 1107, u"New"_s);

    auto *arrow = new QToolButton(&Toolbar1);
    arrow->setAutoRaise(true);
    arrow->setArrowType(Qt::DownArrow);
    arrow->setFixedWidth(kArrowWidth);
    arrow->setFocusPolicy(Qt::TabFocus);
    arrow->setToolTip(QString::number(kNewMenu));
    Toolbar1.addWidget(arrow);
    connect(arrow, &QToolButton::clicked, this, [this, buttonNew] {
        const QWidget *button = Toolbar1.widgetForAction(buttonNew);
        emit newMenuRequested(Toolbar1.mapToGlobal(QPoint(button->x(), button->geometry().bottom() + 1)));
    });

    addButton(ClosePicture, 2501, 2502, u"Close"_s);
    addButton(RefreshPicture, 1104, 1110, u"Refresh"_s);
    addButton(StopPicture, 1105, 1111, u"Stop"_s);

    Check1.setCheckable(true);
    Check1.setAutoRaise(true);
    Check1.setIcon(ImageList1.icon(PinPicture));
    Check1.setFocusPolicy(Qt::TabFocus);
}

Document &frmNavigator::document(int position)
{
    auto *document = qobject_cast<Document *>(ListView1.ListItems(position).Tag());
    if (!document)
        throw ControlError("no document at this position");
    return *document;
}

Document *frmNavigator::selectedDocument()
{
    const controls::ListItem *line = ListView1.SelectedItem();
    return line && line->Selected() ? qobject_cast<Document *>(line->Tag()) : nullptr;
}

void frmNavigator::endLoading()
{
    tmrLoading.setEnabled(false);
    setCaption(LoadResString(kCaption));
}

void frmNavigator::Form_Resize()
{
    const int barHeight = Toolbar1.sizeHint().height();
    const QSize check = Check1.sizeHint();
    Toolbar1.setGeometry(0, 0, std::max(0, width() - check.width()), barHeight);
    Check1.setGeometry(width() - check.width(), 0, check.width(), barHeight);
    // What would lie below the lower edge is cut, so that the last line can be scrolled to.
    const int room = height() - barHeight;
    ListView1.setGeometry(toPixels(kListLeft), barHeight, std::max(0, width() - toPixels(kListMargin)),
                          std::clamp(height() - toPixels(kListMargin), 0, std::max(0, room)));
}

void frmNavigator::Form_Activate()
{
    Timer1.setTag(u"0"_s);
    Timer1.setEnabled(true);
}

void frmNavigator::Form_Deactivate()
{
    Timer1.setTag(u"1"_s);
    Timer1.setEnabled(true);
}

void frmNavigator::MDIForm_MouseMove()
{
    Form_Deactivate();
}

void frmNavigator::Timer1_Timer()
{
    const bool grow = Timer1.Tag().toInt() == 0;
    if (grow ? Height() >= kHighest : Height() <= kLowest) {
        Timer1.setEnabled(false);
    } else if (Check1.isChecked()) {
        // Nothing can change until the button is up again: no tick is wasted meanwhile.
        Timer1.setEnabled(false);
        m_timerWaits = true;
    } else {
        setHeight(Height() + (grow ? kStep : -kStep));
    }
}

void frmNavigator::tmrLoading_Timer()
{
    nDots = static_cast<int16_t>((nDots + 1) % kDotSteps);
    setCaption(LoadResString(kCaption) + QString(nDots, u'.'));
}

void frmNavigator::Check1_Click()
{
    Check1.setToolTip(LoadResString(Check1.isChecked() ? kAutoShrink : kKeepVisible));
    Check1.setAccessibleName(Check1.toolTip());
    if (m_timerWaits && !Check1.isChecked()) {
        m_timerWaits = false;
        Timer1.setEnabled(true);
    }
}

void frmNavigator::ListView1_Click()
{
    Document *document = selectedDocument();
    if (!document)
        return;
    m_mdi.activateForm(document);
    activateWindow();
    ListView1.setFocus();
}

void frmNavigator::Toolbar1_ButtonClick(const QString &key)
{
    if (key == u"New") {
        m_frmMain.LoadNewDoc(m_settings.SitesHome1);
        return;
    }
    Document *document = selectedDocument();
    if (!document)
        return;
    if (key == u"Close")
        document->Unload();
    else if (key == u"Refresh")
        step([&] { document->RefreshDoc(); });
    else if (key == u"Stop")
        step([&] { document->StopDoc(); });
}

bool frmNavigator::Unload()
{
    hide();
    step([&] { m_frmMain.setMenuChecked(u"mnuViewNavigator"_s, false); });
    if (m_tag.toInt() == 0)
        return false;
    Timer1.setEnabled(false);
    tmrLoading.setEnabled(false);
    return true;
}

void frmNavigator::setVisible(bool visible)
{
    m_awayWithOwner = visible && !parentWidget()->isVisible();
    if (!m_awayWithOwner)
        QWidget::setVisible(visible);
}

void frmNavigator::hideWithOwner()
{
    const bool visible = Visible();
    hide();
    m_awayWithOwner = visible;
}

void frmNavigator::showWithOwner()
{
    if (!m_awayWithOwner)
        return;
    setAttribute(Qt::WA_ShowWithoutActivating);
    show();
    setAttribute(Qt::WA_ShowWithoutActivating, false);
}

double frmNavigator::Left() const
{
    return toTwips(x());
}

void frmNavigator::setLeft(double twips)
{
    const QRect desktop = desktopArea();
    move(pixelsWithin(twips, desktop.left(), desktop.right()), y());
}

double frmNavigator::Top() const
{
    return toTwips(y());
}

void frmNavigator::setTop(double twips)
{
    const QRect desktop = desktopArea();
    move(x(), pixelsWithin(twips, desktop.top(), desktop.bottom()));
}

double frmNavigator::Width() const
{
    return toTwips(width());
}

void frmNavigator::setWidth(double twips)
{
    resize(pixelsWithin(twips, 0, desktopArea().width()), height());
}

double frmNavigator::Height() const
{
    return toTwips(height());
}

void frmNavigator::setHeight(double twips)
{
    resize(width(), pixelsWithin(twips, 0, desktopArea().height()));
}

void frmNavigator::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    Form_Resize();
}

void frmNavigator::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    // A window that was stored on a screen that is no longer there comes back to one that is.
    if (!QGuiApplication::screenAt(frameGeometry().center()) && QGuiApplication::primaryScreen())
        move(QGuiApplication::primaryScreen()->availableGeometry().topRight() - QPoint(width(), 0));
}

void frmNavigator::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange)
        isActiveWindow() ? Form_Activate() : Form_Deactivate();
}

void frmNavigator::closeEvent(QCloseEvent *event)
{
    event->setAccepted(Unload());
}

void frmNavigator::mouseMoveEvent(QMouseEvent *event)
{
    QWidget::mouseMoveEvent(event);
    Form_Activate();
}

bool frmNavigator::eventFilter(QObject *watched, QEvent *event)
{
    // The type first: the viewport sends events so late in the list's end that the list can no longer be asked for it.
    if (event->type() == QEvent::MouseMove && watched == ListView1.viewport())
        Form_Activate();
    return QWidget::eventFilter(watched, event);
}
