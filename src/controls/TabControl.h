#pragma once

#include <QTabBar>
#include <memory>
#include <vector>

namespace controls {

class ImageList;
class TabControl;

/// One tab. Lives until it is removed from its control.
class Tab
{
public:
    QString Caption() const;
    void setCaption(const QString &caption);
    QString ToolTipText() const;
    void setToolTipText(const QString &text);
    /// Index into the control's image list.
    int IconIndex() const { return m_iconIndex; }
    void setIconIndex(int index);
    /// Free text of the program's own.
    QString Tag() const { return m_tag; }
    void setTag(const QString &tag) { m_tag = tag; }
    bool Selected() const;
    /// True selects the tab. That is no click: no event is raised.
    void setSelected(bool selected);
    /// Position, counted from 1.
    int Index() const;

private:
    friend class TabControl;
    explicit Tab(TabControl &control) : m_control(control) {}

    TabControl &m_control;
    QString m_caption;
    QString m_tag;
    int m_iconIndex = 0;
};

/// A strip of tabs. Tabs are counted from 1. Every accessor throws ControlError for a position outside the collection.
class TabControl : public QTabBar
{
    Q_OBJECT
public:
    explicit TabControl(QWidget *parent = nullptr);
    ~TabControl() override;

    /// The tabs as the rules see them: Tabs().Count(), Tabs(n), Tabs().Add, Tabs().Remove.
    class Collection
    {
    public:
        int Count() const;
        Tab &operator()(int n) const;
        Tab &Add(const QString &caption, int iconIndex);
        void Remove(int n);

    private:
        friend class TabControl;
        explicit Collection(TabControl &control) : m_control(control) {}
        TabControl &m_control;
    };
    Collection Tabs() { return Collection(*this); }
    Tab &Tabs(int n) { return Collection(*this)(n); }
    /// Null when no tab is selected.
    Tab *SelectedTab();

    void setImageList(const ImageList *images);
    const ImageList *imageList() const { return m_images; }

    /// A number as text; "0" at rest, "1" while the program itself selects a tab.
    QString Tag() const { return m_tag; }
    void setTag(const QString &tag) { m_tag = tag; }

signals:
    /// `iButton`: 1 left, 2 right, 4 middle. `Shift`: 1 Shift, 2 Ctrl, 4 Alt, added up. Pixels inside the control.
    void tabClick(controls::Tab &theTab, int iButton, int Shift, double x, double y);
    void tabDoubleClick(controls::Tab &theTab);
    /// The close button of the selected tab. The tab has left the collection; it ends after the handlers.
    void tabClose(controls::Tab &theTab, bool &cancel);
    /// A click on the empty part of the strip. The double click there comes as button 1, shift 2, x and y -1.0.
    void barClick(int iButton, int Shift, double x, double y);

private:
    friend class Tab;
    friend class Collection;
    std::vector<std::unique_ptr<Tab>> m_tabs;
    const ImageList *m_images = nullptr;
    QString m_tag = QStringLiteral("0");
};

} // namespace controls
