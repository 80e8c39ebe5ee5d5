#pragma once

#include <cstdint>

/// Process-wide values of MainCode. One object, a member of MainCode, handed by reference to whoever needs it.
struct ProcessFlags
{
    bool IsNT = false;
    bool IsXP = false;
    /// Page that the options dialog opens on, 1 to 10.
    int32_t OptionsStartPage = 0;
    /// Lets the keyboard hook act; False while a dialog is up.
    bool ShortcutsEnabled = false;
    /// Number of open documents, never below 0.
    int16_t OpenDocumentCount = 0;
    /// State of the modifier keys at the last key event that the keyboard hook saw.
    bool CtrlDown = false;
    bool AltDown = false;
    bool CreditUnlocked = false;
    bool FormLocked = false;
};
