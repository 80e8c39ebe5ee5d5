#include "core/KeyboardHook.h"

#include "controls/VirtualKeys.h"
#include "core/state/ProcessFlags.h"

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>

namespace {

constexpr int kTab = 9;
constexpr int kBackTab = 25; // goes with Tab; no common layout has a key behind it
constexpr int kEsc = 27;
constexpr int kHome = 36;
constexpr int kD = 68;
constexpr int kN = 78;
constexpr int kO = 79;
constexpr int kF4 = 115;
constexpr int kF9 = 120;

} // namespace

KeyboardHook::KeyboardHook(ProcessFlags &flags, Actions actions, QObject *parent)
    : QObject(parent)
    , m_flags(flags)
    , m_actions(std::move(actions))
{}

void KeyboardHook::install()
{
    QApplication::instance()->installEventFilter(this);
}

void KeyboardHook::uninstall()
{
    QApplication::instance()->removeEventFilter(this);
}

int KeyboardHook::KeyboardHookProc(int code, int virtualKey, uint32_t bits, bool ctrlDown, bool shiftDown)
{
    if (!m_flags.ShortcutsEnabled || code < 0)
        return 0;
    m_flags.CtrlDown = ctrlDown;
    m_flags.AltDown = (bits & kAltBit) != 0;
    const bool repeat = (bits & kRepeatBit) != 0;
    const bool ctrl = m_flags.CtrlDown && !repeat;
    const bool alt = m_flags.AltDown && !repeat;

    switch (virtualKey) {
    case kD:
        if (!alt)
            return 0;
        m_actions.focusAddressBar();
        return 1;
    case kEsc:
        if (!repeat)
            m_actions.stop();
        return 0; // the page or the dialog gets it too
    case kTab:
    case kBackTab:
        if (!ctrl)
            return 0;
        m_actions.stepThroughTabs(shiftDown);
        return 1;
    case kF4:
        if (ctrl)
            m_actions.closeActiveForm();
        return 0;
    case kHome:
        if (!alt)
            return 0;
        m_actions.home1();
        return 1;
    case kN:
        if (!ctrl)
            return 0;
        m_actions.newDocument();
        return 1;
    case kO:
        if (!ctrl)
            return 0;
        m_actions.openFile();
        return 1;
    case kF9:
        if (repeat)
            return 0;
        m_actions.quickSearch();
        return 1;
    default:
        return 0;
    }
}

int KeyboardHook::hook(const QKeyEvent &event)
{
    // The state of the event itself, brought up to date by the key that it is about: no question to the display server.
    const bool press = event.type() == QEvent::KeyPress;
    const auto down = [&](Qt::Key key, Qt::KeyboardModifier modifier) {
        return event.key() == key ? press : event.modifiers().testFlag(modifier);
    };
    uint32_t bits = 0;
    if (down(Qt::Key_Alt, Qt::AltModifier))
        bits |= kAltBit;
    if (!press || event.isAutoRepeat())
        bits |= kRepeatBit;
    return KeyboardHookProc(0, controls::virtualKey(event), bits, down(Qt::Key_Control, Qt::ControlModifier),
                            down(Qt::Key_Shift, Qt::ShiftModifier));
}

bool KeyboardHook::eventFilter(QObject *watched, QEvent *event)
{
    // A key event visits its window first and its widget later; once is enough.
    const auto type = event->type();
    if ((type != QEvent::KeyPress && type != QEvent::KeyRelease) || !watched->isWindowType())
        return false;
    const auto &key = static_cast<const QKeyEvent &>(*event);
    // In a dialog they would work unseen behind it, and its own keys would not. Esc stops the page from there too.
    if (key.key() != Qt::Key_Escape && qobject_cast<QDialog *>(QApplication::activeWindow()))
        return false;
    return hook(key) != 0;
}
