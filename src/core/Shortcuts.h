#pragma once

class Commands;
class QWidget;
struct ProcessFlags;
namespace controls {
class PopupMenu;
}

/// Makes the shortcuts work that the captions of a menu show and that the keyboard hook does not serve, as ordinary
/// actions of `window`: a text box that uses the same key goes first, and an entry that is out of service does nothing.
/// So do the keys that no caption shows and that every browser has.
void addShortcuts(QWidget &window, controls::PopupMenu &menu, Commands &commands, const ProcessFlags &flags);
