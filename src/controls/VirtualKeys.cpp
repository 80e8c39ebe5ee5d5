#include "controls/VirtualKeys.h"

#include <array>

namespace controls {

namespace {

struct Pair
{
    Qt::Key key;
    int code;
};

constexpr std::array kTable{
    Pair{Qt::Key_Backspace, 8},    Pair{Qt::Key_Tab, 9},       Pair{Qt::Key_Backtab, 9},  Pair{Qt::Key_Return, 13},
    Pair{Qt::Key_Enter, 13},       Pair{Qt::Key_Shift, 16},    Pair{Qt::Key_Control, 17}, Pair{Qt::Key_Alt, 18},
    Pair{Qt::Key_Pause, 19},       Pair{Qt::Key_CapsLock, 20}, Pair{Qt::Key_Escape, 27},  Pair{Qt::Key_Space, 32},
    Pair{Qt::Key_PageUp, 33},      Pair{Qt::Key_PageDown, 34}, Pair{Qt::Key_End, 35},     Pair{Qt::Key_Home, 36},
    Pair{Qt::Key_Left, 37},        Pair{Qt::Key_Up, 38},       Pair{Qt::Key_Right, 39},   Pair{Qt::Key_Down, 40},
    Pair{Qt::Key_Insert, 45},      Pair{Qt::Key_Delete, 46},   Pair{Qt::Key_Menu, 93},    Pair{Qt::Key_NumLock, 144},
    Pair{Qt::Key_ScrollLock, 145},
};

} // namespace

int virtualKey(const QKeyEvent &event)
{
    const int key = event.key();
    if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9))
        return key;
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return 112 + (key - Qt::Key_F1);
    for (const Pair &pair : kTable) {
        if (pair.key == key)
            return pair.code;
    }
    return 0;
}

int shiftState(Qt::KeyboardModifiers modifiers)
{
    return (modifiers & Qt::ShiftModifier ? 1 : 0) + (modifiers & Qt::ControlModifier ? 2 : 0) +
           (modifiers & Qt::AltModifier ? 4 : 0);
}

} // namespace controls
