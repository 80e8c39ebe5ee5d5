#include "options/frmOptions1.h"

#include "base/Strings.h"
#include "core/state/ProcessFlags.h"
#include "options/FormsPage.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QIcon>
#include <QPushButton>
#include <QScreen>
#include <QStackedWidget>
#include <QTreeWidget>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kTitle = 8000;
constexpr int kTreeWidth = 176;
constexpr int kPictureEdge = 16;

template <typename Page>
OptionsPage *make(const OptionsContext &context)
{
    return new Page(context);
}

/// The pages in the order of their numbers, which is also the order in which they are loaded and saved. A page joins
/// the dialog with a line here.
struct PageEntry
{
    /// 1 to 10.
    int number;
    /// Key of the node, and name of its picture in the resources.
    QStringView key;
    QStringView picture;
    int caption;
    QStringView frame;
    OptionsPage *(*make)(const OptionsContext &context);
};

constexpr PageEntry kPages[] = {
    {9, u"Form", u"form", 8082, u"frameForm", make<FormsPage>},
};

QIcon pictureOf(QStringView name)
{
    return QIcon(u":/icons/options/%1.svg"_s.arg(name));
}

} // namespace

frmOptions1::frmOptions1(QWidget *owner, const OptionsContext &context)
    : QDialog(owner)
    , m_context(context)
{
    setObjectName(u"frmOptions1"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    setProperty(kTag, kTitle);
    setModal(true);
    buildControls();
    Form_Load();
}

frmOptions1::~frmOptions1()
{
    m_context.flags.OptionsStartPage = 1;
    m_context.flags.ShortcutsEnabled = true;
}

void frmOptions1::buildControls()
{
    TreeView1 = new QTreeWidget(this);
    TreeView1->setObjectName(u"TreeView1"_s);
    TreeView1->setHeaderHidden(true);
    TreeView1->setFixedWidth(kTreeWidth);
    TreeView1->setIconSize(QSize(kPictureEdge, kPictureEdge));
    TreeView1->setRootIsDecorated(false);
    TreeView1->setItemsExpandable(false);
    TreeView1->setExpandsOnDoubleClick(false);
    TreeView1->setAccessibleName(LoadResString(20614));
    m_frames = new QStackedWidget(this);
    for (const PageEntry &entry : kPages) {
        OptionsPage *frame = entry.make(m_context);
        frame->setObjectName(entry.frame.toString());
        frame->setAccessibleName(LoadResString(entry.caption));
        m_frames->addWidget(frame);
        m_pages.push_back({entry.number, frame, nullptr});
    }
    btnOk = new QPushButton(this);
    btnOk->setObjectName(u"btnOk"_s);
    btnOk->setProperty(kTag, 3017);
    btnOk->setDefault(true);
    btnCancel = new QPushButton(this);
    btnCancel->setObjectName(u"btnCancel"_s);
    btnCancel->setProperty(kTag, 3018);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(btnOk);
    buttons->addWidget(btnCancel);
    auto *all = new QGridLayout(this);
    all->setContentsMargins(12, 12, 12, 12);
    all->setHorizontalSpacing(12);
    all->setVerticalSpacing(12);
    all->addWidget(TreeView1, 0, 0);
    all->addWidget(m_frames, 0, 1);
    all->addLayout(buttons, 1, 0, 1, 2);
    all->setColumnStretch(1, 1);
    all->setRowStretch(0, 1);
}

void frmOptions1::Form_Load()
{
    LocalizeForm(this);
    m_context.flags.ShortcutsEnabled = false;
    for (const Place &page : m_pages)
        page.frame->Prepare();
    buildTree();
    LoadAllPages();
    // The first page that there is stands in for one that is not there.
    ShowPage(m_pages.front().number);
    ShowPage(m_context.flags.OptionsStartPage);
    moveToMiddle();
    connect(TreeView1, &QTreeWidget::currentItemChanged, this, &frmOptions1::TreeView1_NodeClick);
    connect(btnOk, &QPushButton::clicked, this, &frmOptions1::btnOk_Click);
    connect(btnCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmOptions1::moveToMiddle()
{
    adjustSize();
    const QWidget *owner = parentWidget();
    const QRect area = (owner ? owner->screen() : screen())->availableGeometry();
    QRect place(QPoint(), size());
    place.moveCenter(area.center());
    move(place.topLeft());
}

void frmOptions1::buildTree()
{
    auto *root = new QTreeWidgetItem(TreeView1, {LoadResString(kTitle)});
    root->setIcon(0, pictureOf(u"options"));
    for (std::size_t i = 0; i < m_pages.size(); ++i) {
        m_pages[i].node = new QTreeWidgetItem(root, {LoadResString(kPages[i].caption)});
        m_pages[i].node->setIcon(0, pictureOf(kPages[i].picture));
        m_pages[i].node->setData(0, Qt::UserRole, kPages[i].key.toString());
    }
    root->setData(0, Qt::UserRole, u"CVOptions"_s);
    root->setExpanded(true);
}

void frmOptions1::ShowPage(int page)
{
    const auto place =
        std::find_if(m_pages.begin(), m_pages.end(), [page](const Place &one) { return one.number == page; });
    if (place == m_pages.end())
        return;
    m_frames->setCurrentWidget(place->frame);
    TreeView1->setCurrentItem(place->node);
}

void frmOptions1::TreeView1_NodeClick()
{
    for (const Place &page : m_pages) {
        if (page.node == TreeView1->currentItem())
            m_frames->setCurrentWidget(page.frame);
    }
}

void frmOptions1::LoadAllPages()
{
    for (const Place &page : m_pages)
        page.frame->LoadPage();
}

bool frmOptions1::SaveAllPages()
{
    return std::all_of(m_pages.begin(), m_pages.end(), [](const Place &page) { return page.frame->SavePage(); });
}

void frmOptions1::btnOk_Click()
{
    if (SaveAllPages())
        accept();
}
