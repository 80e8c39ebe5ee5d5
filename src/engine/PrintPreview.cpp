#include "engine/PrintPreview.h"

#include "base/Strings.h"
#include "engine/PdfPages.h"
#include "engine/PreviewPages.h"

#include <QAction>
#include <QComboBox>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QSpinBox>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <array>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

constexpr QSize kWindow{820, 700};
/// Percent.
constexpr std::array kZooms = {25, 50, 75, 100, 125, 150, 200, 300, 400};
/// Entries of the zoom list before the percentages.
constexpr int kFits = 2;
/// A title on the window.
constexpr int kLongestTitle = 100;

} // namespace

PrintPreview::PrintPreview(QWidget &page, PrintFacet &facet, const PageSetup &setup, const QString &title)
    : QWidget(&page, Qt::Window)
    , m_facet(facet)
    , m_setup(setup)
    , m_pages(new PreviewPages(this))
    , lblWaiting(new QLabel(LoadResString(20434), this))
{
    setObjectName(u"PrintPreview"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(LoadResString(20417).arg(title.left(kLongestTitle)));
    resize(kWindow);
    lblWaiting->setAlignment(Qt::AlignCenter);
    m_pages->setAccessibleName(windowTitle());

    auto *all = new QVBoxLayout(this);
    all->setContentsMargins({});
    all->setSpacing(0);
    all->addWidget(toolBar());
    all->addWidget(lblWaiting, 1);
    all->addWidget(m_pages, 1);
    m_pages->hide();
    connect(m_pages, &PreviewPages::pageChanged, this, &PrintPreview::updateTools);
    connect(m_pages, &PreviewPages::zoomChanged, this, &PrintPreview::updateTools);
    updateTools();
    refresh();
}

QAction *PrintPreview::addTool(QToolBar *bar, const QString &icon, int text, const std::function<void()> &act)
{
    QAction *action = bar->addAction(LoadResString(text));
    if (!icon.isEmpty())
        action->setIcon(QIcon(icon));
    connect(action, &QAction::triggered, this, act);
    return action;
}

QToolBar *PrintPreview::toolBar()
{
    auto *bar = new QToolBar(this);
    bar->setMovable(false);
    bar->setIconSize({16, 16});
    actPrint = addTool(bar, u":/icons/menu/13.svg"_s, 20418, [this] { emit printRequested(); });
    QAction *setup = addTool(bar, {}, 20419, [this] { emit pageSetupRequested(); });
    for (QAction *action : {actPrint, setup}) {
        auto *button = qobject_cast<QToolButton *>(bar->widgetForAction(action));
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setFocusPolicy(Qt::TabFocus);
    }
    bar->addSeparator();
    actPortrait = addTool(bar, u":/icons/page/portrait.svg"_s, 20427, [this] { turn(QPageLayout::Portrait); });
    actLandscape = addTool(bar, u":/icons/page/landscape.svg"_s, 20428, [this] { turn(QPageLayout::Landscape); });
    actPortrait->setCheckable(true);
    actLandscape->setCheckable(true);
    bar->addSeparator();
    addPageTools(bar);
    bar->addSeparator();
    addZoomTools(bar);
    auto *rest = new QWidget(bar);
    rest->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar->addWidget(rest);
    QAction *close = addTool(bar, {}, 20420, [this] { this->close(); });
    qobject_cast<QToolButton *>(bar->widgetForAction(close))->setFocusPolicy(Qt::TabFocus);
    return bar;
}

void PrintPreview::addPageTools(QToolBar *bar)
{
    const auto go = [this](int page) { m_pages->goTo(page); };
    actFirst = addTool(bar, u":/icons/page/firstpage.svg"_s, 20421, [go] { go(1); });
    actPrevious = addTool(bar, u":/icons/page/pageback.svg"_s, 20422, [this, go] { go(m_pages->currentPage() - 1); });
    txtPage = new QSpinBox(bar);
    txtPage->setObjectName(u"txtPage"_s);
    txtPage->setButtonSymbols(QSpinBox::NoButtons);
    txtPage->setAlignment(Qt::AlignRight);
    txtPage->setKeyboardTracking(false);
    txtPage->setAccessibleName(LoadResString(20425));
    connect(txtPage, &QSpinBox::valueChanged, this, go);
    bar->addWidget(txtPage);
    lblPages = new QLabel(bar);
    lblPages->setObjectName(u"lblPages"_s);
    lblPages->setContentsMargins(4, 0, 4, 0);
    bar->addWidget(lblPages);
    actNext = addTool(bar, u":/icons/page/pageforward.svg"_s, 20423, [this, go] { go(m_pages->currentPage() + 1); });
    actLast = addTool(bar, u":/icons/page/lastpage.svg"_s, 20424, [this, go] { go(m_pages->count()); });
}

void PrintPreview::addZoomTools(QToolBar *bar)
{
    addTool(bar, u":/icons/page/zoomout.svg"_s, 20432, [this] { stepZoom(-1); });
    cmbZoom = new QComboBox(bar);
    cmbZoom->setObjectName(u"cmbZoom"_s);
    cmbZoom->setEditable(true);
    cmbZoom->setInsertPolicy(QComboBox::NoInsert);
    cmbZoom->setAccessibleName(LoadResString(20433));
    cmbZoom->addItem(LoadResString(20429));
    cmbZoom->addItem(LoadResString(20430));
    for (const int percent : kZooms)
        cmbZoom->addItem(u"%1 %"_s.arg(percent));
    connect(cmbZoom, &QComboBox::activated, this, &PrintPreview::pickZoom);
    connect(cmbZoom->lineEdit(), &QLineEdit::returnPressed, this, &PrintPreview::typeZoom);
    bar->addWidget(cmbZoom);
    addTool(bar, u":/icons/page/zoomin.svg"_s, 20431, [this] { stepZoom(1); });
}

void PrintPreview::setSetup(const PageSetup &setup)
{
    if (setup == m_setup)
        return;
    m_setup = setup;
    refresh();
}

void PrintPreview::refresh()
{
    updateTools();
    const QPointer<PrintPreview> guard(this);
    m_facet.makePdf(m_setup, {}, [guard, order = ++m_order](const QByteArray &pdf) {
        if (guard && guard->m_order == order)
            guard->showPages(pdf);
    });
}

void PrintPreview::showPages(const QByteArray &pdf)
{
    std::unique_ptr<PdfPages> pages = openPdf(pdf);
    const bool isShown = pages != nullptr;
    if (!isShown)
        lblWaiting->setText(LoadResString(20414));
    lblWaiting->setVisible(!isShown);
    m_pages->setVisible(isShown);
    m_pages->setPages(std::move(pages));
    if (isShown && !isAncestorOf(focusWidget()))
        m_pages->setFocus();
    updateTools();
    emit ready(isShown);
}

void PrintPreview::turn(QPageLayout::Orientation orientation)
{
    PageSetup setup = m_setup;
    setup.layout.setOrientation(orientation);
    setup.layout.setMargins(m_setup.layout.margins());
    if (!setup.isPrintable() || setup == m_setup) {
        updateTools();
        return;
    }
    setSetup(setup);
    emit setupChanged(m_setup);
}

void PrintPreview::pickZoom(int index)
{
    if (index < kFits)
        m_pages->setFit(index == 0 ? PreviewPages::Fit::Page : PreviewPages::Fit::Width);
    else
        m_pages->setZoom(kZooms[index - kFits] / 100.0);
}

void PrintPreview::typeZoom()
{
    bool isNumber = false;
    const double percent = cmbZoom->currentText().remove(u'%').trimmed().toDouble(&isNumber);
    if (isNumber && percent > 0)
        m_pages->setZoom(percent / 100);
    else if (const int index = cmbZoom->findText(cmbZoom->currentText()); index >= 0)
        pickZoom(index);
    updateTools();
}

void PrintPreview::stepZoom(int direction)
{
    const int percent = qRound(m_pages->zoom() * 100);
    const auto above = std::upper_bound(kZooms.begin(), kZooms.end(), percent);
    const auto notBelow = std::lower_bound(kZooms.begin(), kZooms.end(), percent);
    if (direction > 0 && above != kZooms.end())
        m_pages->setZoom(*above / 100.0);
    else if (direction < 0 && notBelow != kZooms.begin())
        m_pages->setZoom(*std::prev(notBelow) / 100.0);
}

void PrintPreview::updateTools()
{
    const int count = m_pages->count();
    const int page = m_pages->currentPage();
    const QSignalBlocker quiet(txtPage);
    txtPage->setRange(count > 0 ? 1 : 0, count);
    txtPage->setValue(page);
    lblPages->setText(LoadResString(20426).arg(count));
    actPrint->setEnabled(count > 0);
    actFirst->setEnabled(page > 1);
    actPrevious->setEnabled(page > 1);
    actNext->setEnabled(page < count);
    actLast->setEnabled(page < count);
    const bool isLandscape = m_setup.layout.orientation() == QPageLayout::Landscape;
    actPortrait->setChecked(!isLandscape);
    actLandscape->setChecked(isLandscape);
    if (m_pages->fit() == PreviewPages::Fit::None)
        cmbZoom->setEditText(u"%1 %"_s.arg(qRound(m_pages->zoom() * 100)));
    else
        cmbZoom->setCurrentIndex(m_pages->fit() == PreviewPages::Fit::Page ? 0 : 1);
}

void PrintPreview::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

} // namespace engine
