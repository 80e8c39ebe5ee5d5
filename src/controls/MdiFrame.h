#pragma once

#include <QMdiArea>
#include <QPointer>
#include <vector>

namespace controls {

class MdiChild;

/// How Arrange lays the children out.
inline constexpr int vbCascade = 0;
inline constexpr int vbTileHorizontal = 1;
/// Window states.
inline constexpr int vbNormal = 0;
inline constexpr int vbMinimized = 1;
inline constexpr int vbMaximized = 2;

/// The client area of the main window, with the forms of the documents as children. It adds to QMdiArea what that
/// lacks:
/// - no shortcuts of its own (Ctrl+F4, Ctrl+Tab), no menu of the child in the menu bar, the window title stays ours;
/// - a form that is activated again is no new activation, and losing all activation (minimising) is none either;
/// - while the children are maximised, covered ones are not shown, so they neither paint nor run at full speed;
///   switching lays out only the one that comes up.
/// One state counts for all: either the children are maximised or they are not; each may be minimised besides.
class MdiFrame : public QMdiArea
{
    Q_OBJECT
public:
    explicit MdiFrame(QWidget *parent = nullptr);
    ~MdiFrame() override;

    /// Shows `form` as a new child, in the state of the present ones (maximised when it is the first), and activates
    /// it. The frame owns the child window; the form is its widget.
    void showForm(QWidget *form);
    /// Takes the form out at once and hides it; it then belongs to nobody but who made it. The frame activates the form
    /// that was used last before it. A form that leaves is not deactivated any more: formDeactivated carries null then.
    void removeForm(QWidget *form);
    /// Brings a form to the front and makes it the active one; restores it when it was minimised.
    void activateForm(QWidget *form);
    QWidget *activeForm() const;
    /// Forms in the order in which they were shown.
    QList<QWidget *> forms() const;
    /// vbTileHorizontal or vbCascade; minimised children stay so.
    void Arrange(int how);
    /// vbNormal, vbMinimized or vbMaximized. Throws ControlError for a form that is not in the frame.
    int WindowState(QWidget *form) const;
    /// Maximising or restoring one form does so for all. Minimising the active one activates another.
    void setWindowState(QWidget *form, int state);
    void setCaption(QWidget *form, const QString &caption);
    void activateNext();
    void activatePrevious();
    /// Three flat buttons for the active form (minimise, restore, close), which a maximised child lacks. The main
    /// window puts them into a layout of its own; they are seen only while the children are maximised.
    QWidget *childControls();

signals:
    /// Exactly one pair for each change of the active form; either may be null.
    void formDeactivated(QWidget *form);
    void formActivated(QWidget *form);
    /// A form became covered (false) or can be seen again (true).
    void formExposed(QWidget *form, bool exposed);
    /// The user closes a child by its close box.
    void formCloseRequested(QWidget *form);
    /// The mouse moves over the empty part. `button` is the sum of 1 left, 2 right, 4 middle; `shift` of 1 Shift, 2
    /// Ctrl, 4 Alt; pixels inside the frame.
    void mouseMoved(int button, int shift, int x, int y);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    MdiChild *childOf(const QWidget *form) const;
    MdiChild *lastUsedChild() const;
    void connectChild(MdiChild *child);
    void subWindowCameUp(QMdiSubWindow *window);
    void setActive(MdiChild *child, bool restore);
    void announce(bool anyway);
    void bringUp(MdiChild *child, bool restore);
    void leave(MdiChild *child);
    void setMaximised(bool maximised);
    void minimisedChanged(MdiChild *child, bool minimised);
    void place(MdiChild *child);
    void placeAll();
    void tile();
    void cascade();
    QRect cascadePlace(int step) const;
    void showOrCover();
    void activateNeighbour(int step);
    void paintBackground();
    QWidget *makeChildControls();

    /// In the order in which they were shown.
    std::vector<MdiChild *> m_children;
    QPointer<MdiChild> m_active;
    /// The form that formActivated told of last.
    QPointer<QWidget> m_told;
    QPointer<QWidget> m_controls;
    quint64 m_uses = 0;
    int m_cascadeStep = 0;
    bool m_maximised = true;
    /// The children stand as Arrange has tiled them, and nobody has moved one since.
    bool m_tiled = false;
    /// Above 0 while the frame itself moves, shows or activates children.
    int m_working = 0;
};

} // namespace controls
