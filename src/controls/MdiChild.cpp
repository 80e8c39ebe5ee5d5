#include "controls/MdiChild.h"

#include "controls/MdiFrame.h"

#include <QAction>
#include <QCloseEvent>
#include <QMenu>

namespace controls {

MdiChild::MdiChild(MdiFrame &frame, QWidget *form)
    : QMdiSubWindow(frame.viewport())
    , m_form(form)
{
    setWidget(form);
    form->show();
    // The keys of the frame are the program's own.
    const QList<QAction *> actions = systemMenu()->actions();
    for (QAction *action : actions)
        action->setShortcuts({});
}

void MdiChild::release()
{
    if (!m_form)
        return;
    QWidget *form = m_form;
    m_form.clear();
    setWidget(nullptr);
    form->hide();
}

void MdiChild::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::WindowStateChange)
        stateChanged(static_cast<QWindowStateChangeEvent *>(event));
    else
        QMdiSubWindow::changeEvent(event);
    if (event->type() == QEvent::StyleChange || event->type() == QEvent::FontChange)
        emit bordersChanged();
}

void MdiChild::stateChanged(QWindowStateChangeEvent *event)
{
    const bool wasMinimised = event->oldState() & Qt::WindowMinimized;
    if (windowState() & Qt::WindowMaximized) {
        // The title bar's button or a double click on it. Take the state back unseen and ask the frame instead.
        overrideWindowState(windowState() & ~Qt::WindowMaximized);
        if (wasMinimised) {
            QWindowStateChangeEvent restored(Qt::WindowMinimized);
            QMdiSubWindow::changeEvent(&restored);
            emit minimisedChanged(false);
        }
        emit maximiseRequested();
        return;
    }
    const bool isMinimisedNow = windowState() & Qt::WindowMinimized;
    if (isMinimisedNow && !wasMinimised)
        emit minimiseStarts();
    QMdiSubWindow::changeEvent(event);
    if (isMinimisedNow != wasMinimised)
        emit minimisedChanged(isMinimisedNow);
}

void MdiChild::closeEvent(QCloseEvent *event)
{
    event->ignore();
    emit closeRequested();
}

// QMdiSubWindow activates itself and takes the focus when it or its form is shown. Here the frame says who is active,
// and coming into sight is no reason.
void MdiChild::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event); // NOLINT(bugprone-parent-virtual-call)
}

bool MdiChild::eventFilter(QObject *object, QEvent *event)
{
    if (object == m_form && event->type() == QEvent::Show)
        return false;
    return QMdiSubWindow::eventFilter(object, event);
}

void MdiChild::moveEvent(QMoveEvent *event)
{
    QMdiSubWindow::moveEvent(event);
    emit placed();
}

void MdiChild::resizeEvent(QResizeEvent *event)
{
    QMdiSubWindow::resizeEvent(event);
    emit placed();
}

} // namespace controls
