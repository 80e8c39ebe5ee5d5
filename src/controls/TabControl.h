#pragma once

#include <QTabBar>
#include <memory>
#include <vector>

namespace controls {

class GlyphButton;
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
    explicit Tab(TabControl &control)
        : m_control(control)
    {}

    TabControl &m_control;
    QString m_caption;
    QString m_toolTip;
    QString m_tag;
    int m_iconIndex = 0;
    /// What is drawn of the caption, and the width that the whole tab would like to have, in pixels.
    QString m_line;
    int m_width = 0;
};

/// A strip of tabs. Tabs are counted from 1. Every accessor throws ControlError for a position outside the collection.
///
/// The program alone selects: a press only raises tabClick, and the program's answer, the activation of the document,
/// selects the tab. Tabs are as wide as caption and icon ask for, then narrow down together; when even that is too
/// much, two buttons (and the wheel) scroll. The selected tab carries the close button.
class TabControl : public QTabBar
{
    Q_OBJECT
public:
    explicit TabControl(QWidget *parent = nullptr);
    ~TabControl() override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

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
        explicit Collection(TabControl &control)
            : m_control(control)
        {}
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
    /// The close button of the selected tab. The tab has left the collection; it ends after the handlers, or goes back
    /// to its place when one of them sets `cancel`.
    void tabClose(controls::Tab &theTab, bool &cancel);
    /// A click on the empty part of the strip. The double click there comes as button 1, shift 2, x and y -1.0.
    void barClick(int iButton, int Shift, double x, double y);

protected:
    QSize tabSizeHint(int index) const override;
    QSize minimumTabSizeHint(int index) const override;
    void tabLayoutChange() override;
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    friend class Tab;
    friend class Collection;

    int indexOf(const Tab *tab) const;
    void insert(int index, std::unique_ptr<Tab> tab);
    std::unique_ptr<Tab> take(int index);
    void select(int index);
    void closeSelected();
    void userSelected(int index);

    void measure(Tab &tab) const;
    void measureAll();
    void captionChanged(Tab &tab);
    void nameTab(int index);
    bool scrolls() const;
    void placeCloseButton();
    void paintTab(QPainter &painter, int index) const;
    void press(QMouseEvent *event);

    std::vector<std::unique_ptr<Tab>> m_tabs;
    const ImageList *m_images = nullptr;
    QString m_tag = QStringLiteral("0");
    GlyphButton *m_close = nullptr;
    QWidget *m_scrollLeft = nullptr;
    QWidget *m_scrollRight = nullptr;
    /// Above 0 while the selection is the program's doing.
    int m_selecting = 0;
    /// The tab that the last press hit; only compared, never used.
    const Tab *m_pressed = nullptr;
    bool m_pressedEmpty = false;
    int m_wheel = 0;
    /// Position of the tab under the pointer, -1 for none.
    int m_hot = -1;
};

} // namespace controls
