#include "controls/ListView.h"

#include "base/step.h"
#include "controls/ImageList.h"
#include "controls/Texts.h"

#include <QHeaderView>
#include <QStyledItemDelegate>

namespace controls {

namespace {

/// Draws no more of a text than can be seen; the item keeps all of it.
class OneLineDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QString displayText(const QVariant &value, const QLocale &) const override
    {
        constexpr int kLimit = 300;
        return drawableLine(value.toString(), kLimit);
    }
};

bool isBold(const QTreeWidgetItem &item, int column)
{
    return item.font(column).bold();
}

void makeBold(QTreeWidgetItem &item, int column, bool bold)
{
    if (isBold(item, column) == bold)
        return;
    QFont font = item.font(column);
    font.setBold(bold);
    item.setFont(column, font);
}

} // namespace

QString ListSubItem::Text() const
{
    return m_item.text(m_column);
}

void ListSubItem::setText(const QString &text)
{
    m_item.setText(m_column, text);
}

bool ListSubItem::Bold() const
{
    return isBold(m_item, m_column);
}

void ListSubItem::setBold(bool bold)
{
    makeBold(m_item, m_column, bold);
}

QString ListItem::Text() const
{
    return text(0);
}

void ListItem::setText(const QString &text)
{
    QTreeWidgetItem::setText(0, text);
}

bool ListItem::Bold() const
{
    return isBold(*this, 0);
}

void ListItem::setBold(bool bold)
{
    makeBold(*this, 0, bold);
}

int ListItem::Index() const
{
    return treeWidget()->indexOfTopLevelItem(const_cast<ListItem *>(this)) + 1;
}

bool ListItem::Selected() const
{
    return isSelected();
}

void ListItem::AddListSubItem()
{
    ++m_subItems;
    if (treeWidget()->columnCount() <= m_subItems)
        treeWidget()->setColumnCount(m_subItems + 1);
}

ListSubItem ListItem::ListSubItems(int n)
{
    if (n < 1 || n > m_subItems)
        throw ControlError("no such sub item");
    return {*this, n};
}

ListView::ListView(QWidget *parent)
    : QTreeWidget(parent)
{
    setItemDelegate(new OneLineDelegate(this));
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setExpandsOnDoubleClick(false);
    setMouseTracking(true);
    header()->setSectionsMovable(false);
}

int ListView::Collection::Count() const
{
    return m_view.topLevelItemCount();
}

ListItem &ListView::Collection::operator()(int n) const
{
    QTreeWidgetItem *item = m_view.topLevelItem(n - 1);
    if (!item)
        throw ControlError("no such line");
    return static_cast<ListItem &>(*item);
}

ListItem &ListView::Collection::Add(const QString &text, int icon)
{
    auto *item = new ListItem;
    item->setText(text);
    if (m_view.m_images && icon > 0)
        item->setIcon(0, m_view.m_images->icon(icon - 1));
    m_view.addTopLevelItem(item);
    return *item;
}

void ListView::Collection::Remove(int n)
{
    ListItem *item = &(*this)(n);
    m_view.takeTopLevelItem(n - 1);
    delete item;
}

ListItem *ListView::SelectedItem()
{
    const QList<QTreeWidgetItem *> selected = selectedItems();
    return selected.isEmpty() ? nullptr : static_cast<ListItem *>(selected.constFirst());
}

} // namespace controls
