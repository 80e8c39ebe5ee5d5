#pragma once

#include <QMdiArea>
#include <QPointer>

namespace controls {

/// How Arrange lays the children out.
inline constexpr int vbCascade = 0;
inline constexpr int vbTileHorizontal = 1;
/// Window states.
inline constexpr int vbNormal = 0;
inline constexpr int vbMinimized = 1;
inline constexpr int vbMaximized = 2;

/// The client area of the main window, with the forms of the documents as children. It adds to QMdiArea what that lacks:
/// - no shortcuts of its own (Ctrl+F4, Ctrl+Tab), no menu of the child in the menu bar, the window title stays ours;
/// - a form that is activated again is no new activation, and losing all activation (minimising) is none either;
/// - while the children are maximised, covered ones are not shown, so they neither paint nor run at full speed;
///   switching lays out only the one that comes up.
class MdiFrame : public QMdiArea
{
    Q_OBJECT
public:
    explicit MdiFrame(QWidget *parent = nullptr);

    /// Shows `form` as a new child, in the state of the present ones (maximised when it is the first), and activates it.
    /// The frame owns the child window; the form is its widget.
    void showForm(QWidget *form);
    /// Takes the form out at once; its child window ends. The frame activates the next one.
    void removeForm(QWidget *form);
    /// Brings a form to the front and makes it the active one; restores it when it was minimised.
    void activateForm(QWidget *form);
    QWidget *activeForm() const;
    /// Forms in the order in which they were shown.
    QList<QWidget *> forms() const;
    void Arrange(int how);
    int WindowState(QWidget *form) const;
    void setWindowState(QWidget *form, int state);
    void setCaption(QWidget *form, const QString &caption);
    void activateNext();
    void activatePrevious();

signals:
    /// Exactly one pair for each change of the active form; either may be null.
    void formDeactivated(QWidget *form);
    void formActivated(QWidget *form);
    /// A form became covered (false) or can be seen again (true).
    void formExposed(QWidget *form, bool exposed);
    /// The user closes a child by its close box.
    void formCloseRequested(QWidget *form);
    void mouseMoved(int button, int shift, int x, int y);
};

} // namespace controls
