#pragma once

#include <QApplication>
#include <QWidget>

namespace controls {

/// Gives the keyboard to a control. When another window of the program has it, the control's window takes it over and
/// comes to the front; another program keeps it, and so does a dialog that has to be answered first.
inline void giveFocus(QWidget &control, Qt::FocusReason reason = Qt::OtherFocusReason)
{
    control.setFocus(reason);
    QWidget *window = control.window();
    const QWidget *active = QApplication::activeWindow();
    if (active && active != window && window->isVisible() && !QApplication::activeModalWidget())
        window->activateWindow();
}

} // namespace controls
