#pragma once

#include <QKeyEvent>

namespace controls {

/// The virtual key code of a key press: letters and digits are their capital's character code, the others have the
/// numbers of the classic keyboard table (Back 8, Tab 9, Enter 13, Esc 27, Home 36, F1 112, ...). 0 for a key that has
/// none.
int virtualKey(const QKeyEvent &event);

/// 1 Shift, 2 Ctrl, 4 Alt, added up.
int shiftState(Qt::KeyboardModifiers modifiers);

} // namespace controls
