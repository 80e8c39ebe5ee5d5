#pragma once

#include <QObject>
#include <cstdint>
#include <functional>

struct ProcessFlags;
class QKeyEvent;

/// The global shortcuts of the main window. Sees every key event of the program before the window that has the focus
/// does, and swallows those that it takes.
class KeyboardHook : public QObject
{
    Q_OBJECT
public:
    /// What the keys do.
    struct Actions
    {
        std::function<void()> focusAddressBar;
        std::function<void()> stop;
        std::function<void(bool backwards)> stepThroughTabs;
        std::function<void()> closeActiveForm;
        std::function<void()> home1;
        std::function<void()> newDocument;
        std::function<void()> openFile;
        std::function<void()> quickSearch;
    };

    /// Bits of the third argument of KeyboardHookProc.
    static constexpr uint32_t kAltBit = 1u << 29;
    /// Set on a key-up and on an auto-repeat.
    static constexpr uint32_t kRepeatBit = 1u << 30;

    KeyboardHook(ProcessFlags &flags, Actions actions, QObject *parent = nullptr);

    /// Begins and ends to act.
    void install();
    void uninstall();

    /// One key event: `virtualKey` in the numbers of the classic keyboard table, `shiftDown` and `ctrlDown` the state
    /// of those keys at the event. Returns 1 for a swallowed key, else 0. A `code` below 0 passes.
    int KeyboardHookProc(int code, int virtualKey, uint32_t bits, bool ctrlDown, bool shiftDown);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    int hook(const QKeyEvent &event);

    ProcessFlags &m_flags;
    Actions m_actions;
};
