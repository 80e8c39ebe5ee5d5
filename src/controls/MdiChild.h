#pragma once

#include <QMdiSubWindow>
#include <QPointer>

class QWindowStateChangeEvent;

namespace controls {

class MdiFrame;

/// The window of one form inside an MdiFrame.
///
/// It is never maximised in Qt's sense: that would write the title of the main window, push buttons into its menu bar
/// and lay the form out twice. A maximised child is an ordinary one that is placed so that its title bar and borders
/// lie just outside the frame. So nothing is reparented and no window flag changes, whatever the state.
class MdiChild : public QMdiSubWindow
{
    Q_OBJECT
public:
    MdiChild(MdiFrame &frame, QWidget *form);

    QWidget *form() const { return m_form; }
    /// Lets the form go: it has no parent afterwards and is hidden.
    void release();
    /// The form is being destroyed: it must not be touched any more.
    void forget() { m_form.clear(); }

    /// Place while neither maximised nor minimised; invalid until the child was shown so for the first time.
    QRect normalPlace;
    /// Grows with each activation: the highest number belongs to the form that was used last.
    quint64 lastUsed = 0;
    /// What formExposed told last.
    bool exposed = true;

signals:
    void maximiseRequested();
    /// The child was minimised, or is no longer.
    void minimisedChanged(bool minimised);
    void minimiseStarts();
    void closeRequested();
    /// The user has moved the child or changed its size.
    void placed();
    /// Another style or font: the borders and the title bar may have another size.
    void bordersChanged();

protected:
    bool eventFilter(QObject *object, QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void moveEvent(QMoveEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void stateChanged(QWindowStateChangeEvent *event);

    QPointer<QWidget> m_form;
};

} // namespace controls
