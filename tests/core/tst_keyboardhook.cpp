#include "core/KeyboardHook.h"
#include "core/state/ProcessFlags.h"
#include "support/Rows.h"

#include <QTest>

class tst_KeyboardHook : public QObject
{
    Q_OBJECT
private slots:
    void table_data()
    {
        rows<int, QByteArray, QByteArray, bool>({
            {"Alt+D", {68, "alt", "address", true}},
            {"Alt+D held", {68, "alt repeat", "", false}},
            {"Esc", {27, "", "stop", false}},
            {"Esc held", {27, "repeat", "", false}},
            {"Ctrl+Tab", {9, "ctrl", "next", true}},
            {"Ctrl+Shift+Tab", {9, "ctrl shift", "previous", true}},
            {"Ctrl+Tab held or released", {9, "ctrl repeat", "", false}},
            {"Ctrl+25", {25, "ctrl", "next", true}},
            {"Ctrl+F4", {115, "ctrl", "close", false}},
            {"Alt+Home", {36, "alt", "home", true}},
            {"Ctrl+N", {78, "ctrl", "new", true}},
            {"Ctrl+Alt+N", {78, "ctrl alt", "new", true}},
            {"Ctrl+O", {79, "ctrl", "open", true}},
            {"F9", {120, "", "search", true}},
            {"F9 held", {120, "repeat", "", false}},
            {"another key", {65, "ctrl", "", false}},
        });
    }

    void table()
    {
        const auto [key, with, action, swallowed] = row<int, QByteArray, QByteArray, bool>();
        ProcessFlags flags;
        flags.ShortcutsEnabled = true;
        m_done.clear();
        KeyboardHook hook(flags, recording());
        const uint32_t bits = (with.contains("alt") ? KeyboardHook::kAltBit : 0) |
                              (with.contains("repeat") ? KeyboardHook::kRepeatBit : 0);
        const int result = hook.KeyboardHookProc(0, key, bits, with.contains("ctrl"), with.contains("shift"));
        QCOMPARE(result, swallowed ? 1 : 0);
        QCOMPARE(m_done, action);
        // the repeat bit hides the modifiers from the table only
        QCOMPARE(flags.CtrlDown, with.contains("ctrl"));
        QCOMPARE(flags.AltDown, with.contains("alt"));
    }

    void flagsAndSwitch()
    {
        ProcessFlags flags;
        flags.AltDown = true;
        m_done.clear();
        KeyboardHook hook(flags, recording());
        QCOMPARE(hook.KeyboardHookProc(0, 78, 0, true, false), 0); // while a dialog is up
        QVERIFY(flags.AltDown);                                    // and the state stands still
        QVERIFY(!flags.CtrlDown);
        flags.ShortcutsEnabled = true;
        QCOMPARE(hook.KeyboardHookProc(-1, 78, 0, true, false), 0);
        for (const int plain : {68, 9, 115, 36, 79})
            QCOMPARE(hook.KeyboardHookProc(0, plain, 0, false, false), 0);
        QCOMPARE(m_done, QByteArray());
    }

private:
    KeyboardHook::Actions recording()
    {
        const auto note = [this](const char *name) { return [this, name] { m_done += name; }; };
        const auto step = [this](bool back) { m_done += back ? "previous" : "next"; };
        return {note("address"), note("stop"), step,         note("close"),
                note("home"),    note("new"),  note("open"), note("search")};
    }

    QByteArray m_done;
};

QTEST_MAIN(tst_KeyboardHook)
#include "tst_keyboardhook.moc"
