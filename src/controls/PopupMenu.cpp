#include "controls/PopupMenu.h"

#include "base/step.h"
#include "controls/ImageList.h"

#include <QAction>
#include <QActionGroup>
#include <QMenuBar>

namespace controls {

struct PopupMenu::Item
{
    QString key;
    QString caption;
    int itemData = 0;
    int parent = 0;
    int icon = -1;
    bool checked = false;
    bool radio = false;
    /// Owned by the menu that shows it; ends in the next event loop turn after the item, because it may be the one that
    /// is being triggered.
    QAction *action = nullptr;
    /// Null without children.
    QMenu *submenu = nullptr;
};

PopupMenu::PopupMenu(QWidget *owner)
    : QObject(owner)
    , m_menu(std::make_unique<QMenu>(owner))
{}

PopupMenu::~PopupMenu() = default;

const PopupMenu::Item &PopupMenu::item(int index) const
{
    const auto it = m_items.find(index);
    if (it == m_items.end())
        throw ControlError("no such menu item");
    return it->second;
}

PopupMenu::Item &PopupMenu::item(int index)
{
    return const_cast<Item &>(std::as_const(*this).item(index));
}

QMenu &PopupMenu::menuOf(int index)
{
    if (index == 0)
        return *m_menu;
    Item &parent = item(index);
    if (!parent.submenu) {
        parent.submenu = new QMenu(&menuOf(parent.parent));
        parent.action->setMenu(parent.submenu);
        connect(parent.submenu, &QMenu::aboutToShow, this, [this, index] { emit InitPopupMenu(index); });
    }
    return *parent.submenu;
}

int PopupMenu::AddItem(const QString &caption, const QString &helpText, int itemData, int parentIndex, int icon,
                       bool checked, bool enabled, const QString &key)
{
    QMenu &menu = menuOf(parentIndex);
    const int index = ++m_lastIndex;
    Item &added = m_items[index];
    added.key = key;
    added.caption = caption;
    added.itemData = itemData;
    added.parent = parentIndex;
    added.icon = icon;
    const bool separator = caption == u"-";
    added.action = new QAction(separator ? QString() : caption, &menu);
    added.action->setSeparator(separator);
    added.action->setStatusTip(helpText);
    // The roles that a desktop guesses from captions ("About", "Options") would move items elsewhere.
    added.action->setMenuRole(QAction::NoRole);
    added.action->setEnabled(enabled);
    if (m_images)
        added.action->setIcon(m_images->icon(icon));
    connect(added.action, &QAction::triggered, this, [this, index] { clicked(index); });
    menu.addAction(added.action);
    if (parentIndex == 0 && m_bar)
        m_bar->addAction(added.action);
    if (checked)
        setChecked(index, true);
    return index;
}

void PopupMenu::clicked(int index)
{
    const auto it = m_items.find(index);
    if (it == m_items.end())
        return;
    // The action has flipped itself.
    if (it->second.action->isCheckable())
        it->second.action->setChecked(it->second.checked || it->second.radio);
    emit Click(index);
}

int PopupMenu::IndexForKey(const QString &key) const
{
    for (const auto &[index, candidate] : m_items) {
        if (candidate.key == key)
            return index;
    }
    return 0;
}

QString PopupMenu::ItemKey(int index) const
{
    return item(index).key;
}

int PopupMenu::ItemData(int index) const
{
    return item(index).itemData;
}

QString PopupMenu::Caption(int index) const
{
    return item(index).caption;
}

bool PopupMenu::Checked(int index) const
{
    return item(index).checked;
}

void PopupMenu::setChecked(int index, bool checked)
{
    Item &target = item(index);
    target.checked = checked;
    // Whatever is told its mark is a switch, which shows an empty box without one.
    target.action->setCheckable(true);
    target.action->setChecked(target.checked || target.radio);
}

bool PopupMenu::RadioChecked(int index) const
{
    return item(index).radio;
}

void PopupMenu::setRadioChecked(int index, bool checked)
{
    Item &target = item(index);
    if (checked) {
        for (auto &[otherIndex, other] : m_items) {
            if (otherIndex != index && other.parent == target.parent && other.radio)
                setRadioChecked(otherIndex, false);
        }
    }
    target.radio = checked;
    // A group of its own has the mark drawn as a dot; which siblings exclude each other is decided above.
    if (!target.action->actionGroup())
        (new QActionGroup(target.action))->addAction(target.action);
    target.action->setCheckable(true);
    target.action->setChecked(target.checked || target.radio);
}

bool PopupMenu::Enabled(int index) const
{
    return item(index).action->isEnabled();
}

void PopupMenu::setEnabled(int index, bool enabled)
{
    item(index).action->setEnabled(enabled);
}

void PopupMenu::removeItem(int index)
{
    Item &gone = item(index);
    if (gone.submenu) {
        for (const int child : Children(index))
            removeItem(child);
        gone.submenu->deleteLater();
    }
    gone.action->setMenu(nullptr);
    menuOf(gone.parent).removeAction(gone.action);
    gone.action->deleteLater();
    m_items.erase(index);
}

void PopupMenu::ClearSubItems(int index)
{
    item(index);
    for (const int child : Children(index))
        removeItem(child);
}

std::vector<int> PopupMenu::Children(int parentIndex) const
{
    std::vector<int> children;
    for (const auto &[index, candidate] : m_items) {
        if (candidate.parent == parentIndex)
            children.push_back(index);
    }
    return children;
}

void PopupMenu::ShowPopupMenu(int x, int y)
{
    m_menu->popup(QPoint(x, y));
}

void PopupMenu::setImageList(const ImageList *images)
{
    m_images = images;
    for (auto &[index, each] : m_items)
        each.action->setIcon(images ? images->icon(each.icon) : QIcon());
}

void PopupMenu::attachTo(QMenuBar *bar)
{
    if (m_bar) {
        for (const int index : Children(0))
            m_bar->removeAction(item(index).action);
    }
    m_bar = bar;
    if (m_bar) {
        for (const int index : Children(0))
            m_bar->addAction(item(index).action);
    }
}

QMenu *PopupMenu::menu() const
{
    return m_menu.get();
}

QAction *PopupMenu::action(int index) const
{
    return item(index).action;
}

} // namespace controls
