#pragma once

#include <QMenu>
#include <QObject>
#include <QPointer>
#include <QString>
#include <map>
#include <memory>
#include <vector>

class QMenuBar;

namespace controls {

class ImageList;

/// A popup menu of keyed items, with submenus. An item's index is given at AddItem, stays and is never given again; a
/// parent index of 0 means the top level. Index accessors throw ControlError for an unknown index.
///
/// A click changes no mark: marks are what the program writes. Items may come and go in any handler, also while their
/// menu opens.
class PopupMenu : public QObject
{
    Q_OBJECT
public:
    explicit PopupMenu(QWidget *owner);
    ~PopupMenu() override;

    /// Returns the new index, from 1. A caption of "-" is a separator; a tab in the caption separates the shortcut
    /// text.
    int AddItem(const QString &caption, const QString &helpText, int itemData, int parentIndex, int icon, bool checked,
                bool enabled, const QString &key);
    /// Index of the item with this key, 0 when there is none. A key that stands more than once gives the first.
    int IndexForKey(const QString &key) const;
    QString ItemKey(int index) const;
    int ItemData(int index) const;
    QString Caption(int index) const;
    bool Checked(int index) const;
    void setChecked(int index, bool checked);
    bool RadioChecked(int index) const;
    /// True takes the radio mark from the other items of the same parent.
    void setRadioChecked(int index, bool checked);
    bool Enabled(int index) const;
    void setEnabled(int index, bool enabled);
    /// Removes the children of an item; it stays a submenu.
    void ClearSubItems(int index);
    /// Indices of the children in order; of the top level for 0.
    std::vector<int> Children(int parentIndex) const;
    /// Opens at a screen position, without an event loop of its own.
    void ShowPopupMenu(int x, int y);
    void setImageList(const ImageList *images);

    /// Shows the top-level items in a menu bar.
    void attachTo(QMenuBar *bar);
    QMenu *menu() const;
    QAction *action(int index) const;

signals:
    void Click(int itemNumber);
    /// The submenu of this item is about to open.
    void InitPopupMenu(int parentItemNumber);

private:
    struct Item;
    const Item &item(int index) const;
    Item &item(int index);
    /// The menu that holds the children of an item, made at the first child.
    QMenu &menuOf(int index);
    void removeItem(int index);
    void clicked(int index);

    std::unique_ptr<QMenu> m_menu;
    /// By index, so that the order is the order of adding.
    std::map<int, Item> m_items;
    int m_lastIndex = 0;
    const ImageList *m_images = nullptr;
    QPointer<QMenuBar> m_bar;
};

} // namespace controls
