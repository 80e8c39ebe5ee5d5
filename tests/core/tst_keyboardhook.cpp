#include "core/KeyboardHook.h"
#include "core/state/ProcessFlags.h"

#include <QTest>

class tst_KeyboardHook : public QObject
{
    Q_OBJECT
private slots:
    void table_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("with");
        QTest::addColumn<QString>("action");
        QTest::addColumn<bool>("swallowed");
        const auto row = [](const char *name, int key, const char *with, const char *action, bool swallowed) {
            QTest::newRow(name) << key << QString::fromLatin1(with) << QString::fromLatin1(action) << swallowed;
        };
        row("Alt+D", 68, "alt", "address", true);
        row("Alt+D held", 68, "alt repeat", "", false);
        row("Esc", 27, "", "stop", false);
        row("Esc held", 27, "repeat", "", false);
        row("Ctrl+Tab", 9, "ctrl", "next", true);
        row("Ctrl+Shift+Tab", 9, "ctrl shift", "previous", true);
        row("Ctrl+Tab held or released", 9, "ctrl repeat", "", false);
        row("Ctrl+25", 25, "ctrl", "next", true);
        row("Ctrl+F4", 115, "ctrl", "close", false);
        row("Alt+Home", 36, "alt", "home", true);
        row("Ctrl+N", 78, "ctrl", "new", true);
        row("Ctrl+Alt+N", 78, "ctrl alt", "new", true);
        row("Ctrl+O", 79, "ctrl", "open", true);
        row("F9", 120, "", "search", true);
        row("F9 held", 120, "repeat", "", false);
        row("another key", 65, "ctrl", "", false);
    }

    void table()
    {
        QFETCH(int, key);
        QFETCH(QString, with);
        QFETCH(QString, action);
        QFETCH(bool, swallowed);
        ProcessFlags flags;
        flags.ShortcutsEnabled = true;
        m_done.clear();
        KeyboardHook hook(flags, recording());
        uint32_t bits = 0;
        if (with.contains(QLatin1String("alt")))
            bits |= KeyboardHook::kAltBit;
        if (with.contains(QLatin1String("repeat")))
            bits |= KeyboardHook::kRepeatBit;
        const int result = hook.KeyboardHookProc(0, key, bits, with.contains(QLatin1String("ctrl")),
                                                 with.contains(QLatin1String("shift")));
        QCOMPARE(result, swallowed ? 1 : 0);
        QCOMPARE(m_done.join(u' '), action);
        // the repeat bit hides the modifiers from the table only
        QCOMPARE(flags.CtrlDown, with.contains(QLatin1String("ctrl")));
        QCOMPARE(flags.AltDown, with.contains(QLatin1String("alt")));
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
        QCOMPARE(m_done, QStringList());
    }

private:
    KeyboardHook::Actions recording()
    {
        const auto note = [this](const char *name) { return [this, name] { m_done << QString::fromLatin1(name); }; };
        return {note("address"),
                note("stop"),
                [this](bool back) { m_done << (back ? QStringLiteral("previous") : QStringLiteral("next")); },
                note("close"),
                note("home"),
                note("new"),
                note("open"),
                note("search")};
    }

    QStringList m_done;
};

QTEST_MAIN(tst_KeyboardHook)
#include "tst_keyboardhook.moc"
