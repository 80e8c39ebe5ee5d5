#pragma once

#include <QPointer>
#include <QTreeWidget>

namespace controls {

class ImageList;
class ListView;

/// A cell behind the first one.
class ListSubItem
{
public:
    QString Text() const;
    void setText(const QString &text);
    bool Bold() const;
    void setBold(bool bold);

private:
    friend class ListItem;
    ListSubItem(QTreeWidgetItem &item, int column)
        : m_item(item)
        , m_column(column)
    {}
    QTreeWidgetItem &m_item;
    int m_column;
};

/// A line of a list. Sub items are counted from 1.
class ListItem : private QTreeWidgetItem
{
public:
    QString Text() const;
    void setText(const QString &text);
    bool Bold() const;
    void setBold(bool bold);
    /// The object that the line stands for; null once it is gone.
    QObject *Tag() const { return m_tag; }
    void setTag(QObject *object) { m_tag = object; }
    /// Position, counted from 1.
    int Index() const;
    bool Selected() const;
    /// Adds an empty sub item.
    void AddListSubItem();
    ListSubItem ListSubItems(int n);

private:
    friend class ListView;
    QPointer<QObject> m_tag;
    int m_subItems = 0;
};

/// A list in report view. Items are counted from 1. Every accessor throws ControlError for a position outside the
/// collection.
class ListView : public QTreeWidget
{
    Q_OBJECT
public:
    explicit ListView(QWidget *parent = nullptr);

    class Collection
    {
    public:
        int Count() const;
        ListItem &operator()(int n) const;
        /// `icon` counts from 1, 0 is none.
        ListItem &Add(const QString &text = {}, int icon = 0);
        void Remove(int n);

    private:
        friend class ListView;
        explicit Collection(ListView &view)
            : m_view(view)
        {}
        ListView &m_view;
    };
    Collection ListItems() { return Collection(*this); }
    ListItem &ListItems(int n) { return Collection(*this)(n); }
    /// The selected line, null when there is none.
    ListItem *SelectedItem();
    void setImageList(const ImageList *images) { m_images = images; }

private:
    friend class Collection;
    const ImageList *m_images = nullptr;
};

} // namespace controls
