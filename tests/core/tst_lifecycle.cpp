#include "MainFixture.h"

#include "base/Files.h"
#include "core/frmPassword.h"
#include "core/state/SettingsTable.h"
#include "desktop/instance/Instance.h"
#include "documents/frmLoad.h"

#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QTimer>
#include <QToolButton>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *kSections[] = {"General", "History", "Sites",   "Sidebar", "CustomLinks",
                                     "Skins",   "Control", "Content", "Forms",   "Popup"};

/// Every key with the names that the store knows it by.
struct Key
{
    const SettingKey &key;
    QString section = QString::fromLatin1(key.section);
    QString name = QString::fromLatin1(key.key);
};

std::vector<Key> everyKey()
{
    std::vector<Key> keys;
    for (const char *section : kSections)
        for (const SettingKey &key : settingKeys(section))
            keys.push_back({key});
    return keys;
}

/// Gives each key a value of its own, the flags one of two: two keys on one value would show in one of the turns.
QHash<QString, QString> valuesOfTurn(int turn)
{
    QHash<QString, QString> values;
    int n = turn;
    for (const Key &each : everyKey()) {
        const bool isFlag = std::holds_alternative<bool Settings::*>(each.key.field);
        values[each.name] = isFlag ? fromBoolean(n % 2 == 0) : QString::number(1000 + n);
        ++n;
    }

    values[u"CustomLinksCount"_s] = u"2"_s;
    return values;
}

} // namespace

/// Start, resize, tray and close of the main window, what a later start of the program brings it, what a start reads
/// into the window and its values, and what a close writes.
class tst_Lifecycle : public QObject
{
    Q_OBJECT

private slots:
    void startAndCloseRunTheirStepsInOrder()
    {
        MainFixture f;
        f.set(u"History", u"CleanAddress", u"True");
        QVERIFY(f.start());
        QCOMPARE(f.trace, (QStringList{u"IsFirstInstance"_s, u"ShowSplash"_s, u"WarmUpEngine"_s, u"LoadMain"_s,
                                       u"LocalizeForm"_s, u"SubclassMainWindow"_s, u"InstallKeyboardHook"_s,
                                       u"InitInterface"_s, u"LoadAllSettings"_s, u"EnableClock"_s,
                                       u"OpenFirstDocument"_s, u"MarkMainWindow"_s, u"ShowMain"_s, u"UnloadSplash"_s}));
        QVERIFY(f.main().isVisible() && f.code->flags.ShortcutsEnabled);
        QCOMPARE(f.main().windowTitle(), u"Corvane v2.0"_s);
        QCOMPARE(f.engine.warmUps, 1);

        const QSignalSpy unloaded(&f.main(), &frmMain::unloaded);
        f.close();
        QCOMPARE(f.trace, (QStringList{u"SaveAllDocuments"_s, u"ClearAddressBar"_s, u"UnsubclassMainWindow"_s,
                                       u"UninstallKeyboardHook"_s, u"SaveAllSettings"_s, u"SaveBandLayout"_s,
                                       u"ResetFont"_s, u"UnloadNavigator"_s, u"RemoveTrayIcon"_s, u"DestroyBands"_s,
                                       u"UnloadForms"_s, u"DisableClock"_s, u"ReleaseInstanceMutex"_s}));
        QCOMPARE(unloaded.count(), 1);
        QCOMPARE(f.code->flags.OpenDocumentCount, 0);
        QVERIFY(!f.main().isVisible() && QFile::exists(f.paths.programFolder + u"/layout.xml"_s));
        // The list was cleaned before it was stored.
        QCOMPARE(f.get(u"Settings", u"HistoryCount"), u"0"_s);
        // A program that starts now is a first one and reads the file.
        QVERIFY(readFile(f.paths.settingsFile).value_or("").contains("HistoryCount=0"));

        f.main().close();
        QCOMPARE(unloaded.count(), 1);
        f.code.reset();
        for (const auto &browser : f.engine.browsers)
            QVERIFY2(!browser, "a browser outlived the window");
    }

    void firstDocument()
    {
        const std::initializer_list<std::tuple<QStringView, QString, QStringView, QStringView, QString>> cases{
            {u"True", u"a"_s, u"True", u"1",
             u"corvane://www/qtour/index.html"_s},                          // first start ignores the command line
            {u"False", u"http://a/ b"_s, u"True", u"1", u"http://a/ b"_s},  // command line
            {u"False", u"\"/a b.html\""_s, u"False", u"1", u"/a b.html"_s}, // quoted
            {u"False", u"\"a\" b"_s, u"True", u"1", u"a\" "_s},             // text behind the quote
            {u"False", u""_s, u"False", u"1", u"home"_s},                   // nothing is saved
            {u"False", u""_s, u"True", u"1", u"saved,home"_s},              // load
            {u"False", u""_s, u"True", u"3", u""_s},                        // never load
            {u"False", u""_s, u"True", u"0", u""_s},                        // unknown action
            {u"perhaps", u""_s, u"False", u"1", u"home"_s}};                // corrupt marker
        for (const auto &[firstTime, command, saveOnExit, loadAction, opened] : cases) {
            MainFixture f;
            f.set(u"Settings", u"FirstTime", firstTime);
            f.set(u"General", u"SaveDocumentOnExit", saveOnExit);
            f.set(u"General", u"LoadAction", loadAction);
            f.set(u"Sites", u"SitesHome1", u"home");
            f.set(u"Settings", u"DocumentCount", u"2");
            f.set(u"Settings", u"Document1", u"saved");
            QVERIFY(f.start(command));
            QCOMPARE(f.opened().join(u','), opened);
            QCOMPARE(f.get(u"Settings", u"FirstTime"), firstTime == u"True" ? u"False"_s : firstTime.toString());
            // Without a document no command was taken out of service: the menu builder's state stands.
            QVERIFY(f.main().m_cMenu->Enabled(f.main().m_cMenu->IndexForKey(u"mnuFileClose"_s)));
        }
    }

    /// The black list from its file to the window and back.
    void firstDocumentIsRefused()
    {
        MainFixture f;
        f.seedQuietStart();
        const QString file = f.paths.programFolder + u"/blacklist.cvd"_s;
        QVERIFY(writeFileWhole(file, "ads.\nx\n"));
        QVERIFY(f.start(u"http://www.ADS.example/"_s));
        // The sound that comes with the program, which its start has put beside the list.
        QCOMPARE(readFile(f.settings().PopupSoundFile).value_or("none").left(4), "RIFF");
        QVERIFY(f.engine.browsers.last()->beforeNavigate(u"http://www.ADS.example/"_s));
        QTRY_COMPARE(f.main().navigator->ListView1.ListItems().Count(), 0);
        QVERIFY(f.main().isVisible());
        QCOMPARE(f.sound.played, QStringList{f.settings().PopupSoundFile});

        // A double click on the sign of the killer switches the list off with it, and on again. Its sound comes from a
        // document.
        controls::StatusBar *bar = f.main().vbalStatusBar1;
        for (const bool on : {false, true}) {
            QTest::mouseDClick(bar, Qt::LeftButton, {}, bar->PanelRect(4).center());
            QCOMPARE(bar->PanelIcon(u"Item4"_s), on ? 3 : 1);
            QCOMPARE(f.sound.played.size(), on ? 2 : 1);
            f.main().LoadNewDoc(u"http://ads.example/"_s);
            QCOMPARE(f.engine.browsers.last()->beforeNavigate(u"http://ads.example/"_s), on);
        }

        f.settings().BlackList += u"from the options"_s;
        f.settings().BlackListCount = 3;
        f.close();
        QCOMPARE(readFile(file).value_or("none"), "ads.\r\nx\r\nfrom the options\r\n");
    }

    void modifyMenuFollowsTheDocuments()
    {
        StartedMain f;
        controls::PopupMenu &menu = *f.main().m_cMenu;
        const auto disabled = [&] {
            QStringList keys;
            for (const int top : menu.Children(0))
                for (const int item : menu.Children(top))
                    if (!menu.Enabled(item))
                        keys += menu.ItemKey(item);
            return keys;
        };
        const auto buttons = [&] {
            QString states;
            for (int i = 0; i < f.main().Toolbar1->ButtonCount(); ++i)
                states += f.main().Toolbar1->ButtonEnabled(i) ? u'+' : u'-';
            return states;
        };
        f.main().LoadNewDoc(u"http://a/"_s);
        f.main().LoadNewDoc(u"http://b/"_s);
        QCOMPARE(disabled(), QStringList());
        // The seventh is a separator.
        QCOMPARE(buttons(), u"+++++++-+++"_s);
        f.main().ActiveForm()->Unload();
        f.main().ActiveForm()->Unload();
        QCOMPARE(disabled().size(), 20);
        QVERIFY(disabled().contains(u"mnuFileClose"_s) && !disabled().contains(u"mnuFileNew"_s));
        QCOMPARE(buttons(), u"+----++-+++"_s);
    }

    void minimisingHidesIntoTheTray()
    {
        const std::initializer_list<std::tuple<bool, bool, QString>> cases{
            {true, true, QString()},      // tray
            {true, true, u"secret"_s},    // locked in the tray
            {true, false, u"secret"_s},   // no tray on this desktop
            {false, false, u"secret"_s}}; // off
        for (const auto &[toTray, hidden, password] : cases) {
            MainFixture f;
            f.tray.available = hidden || !toTray;
            f.seedQuietStart();
            f.set(u"General", u"MinimizeToTray", fromBoolean(toTray));
            f.set(u"General", u"TrayPassword", password);
            f.set(u"Settings", u"MainMaximized", u"True");
            f.set(u"Settings", u"NavigatorVisible", u"True");
            QVERIFY(f.start());
            QCOMPARE(f.tray.tip.isEmpty(), !toTray);
            // The desktop keeps a window above the one that it belongs to.
            QVERIFY(f.main().navigator->isVisible());
            QCOMPARE(f.main().navigator->windowHandle()->transientParent(), f.main().windowHandle());
            f.main().showMinimized();
            QTRY_COMPARE(f.main().isHidden(), hidden);
            QCOMPARE(f.main().navigator->isHidden(), hidden);
            // Only what is locked away leaves the folder to another program.
            instance::Lock other;
            QCOMPARE(other.acquire(f.paths.runtimeFolder.toStdString(), instance::kMutexName),
                     hidden && !password.isEmpty());
            other.release();

            // What a minimised window stores as its geometry is what it had before; the Navigator has only gone with
            // it.
            f.set(u"Settings", u"MainLeft", u"4500");
            f.close();
            QCOMPARE(f.get(u"Settings", u"MainLeft"), u"4500"_s);
            QCOMPARE(f.get(u"Settings", u"MainMaximized"), u"False"_s);
            QCOMPARE(f.get(u"Settings", u"NavigatorVisible"), u"True"_s);
            QCOMPARE(f.tray.tip, QString());
        }
    }

    void trayAsksForThePassword()
    {
        MainFixture f;
        f.seedQuietStart();
        f.set(u"General", u"TrayPassword", u"Secret");
        QVERIFY(f.start());
        f.main().setWindowState(Qt::WindowMinimized);
        QTRY_VERIFY(f.main().isHidden());
        emit f.tray.doubleClicked();
        auto *question = f.main().findChild<frmPassword *>();
        QVERIFY(question && question->isVisible() && !f.code->flags.ShortcutsEnabled);
        for (const QString &wrong : {u"secret"_s, QString()}) {
            question->txtPassword->setText(wrong);
            question->cmdOK->click();
            QVERIFY(question->isVisible() && f.main().isHidden());
        }
        QCOMPARE(f.dialogs.messages.size(), 2);
        QCOMPARE(f.dialogs.styles.first(), desktop::MB_ICONEXCLAMATION);
        question->cmdCancel->click();
        QVERIFY(question->isHidden() && f.main().isHidden() && f.code->flags.ShortcutsEnabled);

        emit f.tray.doubleClicked();
        QCOMPARE(question->txtPassword->text(), QString());
        question->txtPassword->setText(u"Secret"_s);
        question->cmdOK->click();
        QVERIFY(f.main().isVisible() && question->isHidden());
        instance::Lock other;
        QVERIFY(!other.acquire(f.paths.runtimeFolder.toStdString(), instance::kMutexName));
    }

    void closeDuringTheStartIsNotLost()
    {
        // Asked whether to open the saved documents, or while the engine warms up: the picture of the start lets events
        // through.
        for (const bool duringAQuestion : {true, false}) {
            MainFixture f;
            QTimer watch;
            connect(&watch, &QTimer::timeout, &watch, [&] {
                if (QApplication::activeModalWidget())
                    f.main().Unload();
            });
            if (duringAQuestion) {
                f.set(u"Settings", u"DocumentCount", u"1");
                watch.start(0);
            } else {
                f.engine.onWarmUp = [&] { f.main().Unload(); };
            }
            QVERIFY(f.startQuietly(duringAQuestion ? QString() : u"http://a/"_s));
            // The start goes no further than the close: no window, no mark.
            QVERIFY(f.main().isUnloaded() && !f.main().isVisible());
            QVERIFY(!f.code->isMarked());
            QCOMPARE(f.opened(), QStringList());
        }
    }

    void addressBarFollowsTheWindow()
    {
        StartedMain f;
        const auto end = [](const QWidget *control) { return control->x() + control->width(); };
        const frmMain &main = f.main();
        f.main().resize(800, 500);
        QTRY_COMPARE(end(main.goNew), main.frameGeometry().width() - 30);
        QCOMPARE(main.goNew->x() - end(main.Go), 3);
        QCOMPARE(main.Go->x() - end(main.AddressBar), 14);
    }

    void lostScreenBringsTheWindowBack()
    {
        MainFixture f;
        f.seedQuietStart();
        f.set(u"Settings", u"MainLeft", u"90000");
        f.set(u"Settings", u"MainTop", u"-30000");
        f.set(u"Settings", u"MainWidth", u"300000");
        QVERIFY(f.start());
        const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
        QVERIFY2(area.contains(f.main().pos()), qPrintable(QDebug::toString(f.main().geometry())));
        QVERIFY(f.main().width() <= area.width());
    }

    void messageOpensADocument()
    {
        StartedMain f;
        QStringList opened;
        const std::initializer_list<std::tuple<int, QByteArray, QStringList>> cases{
            {9, "http://a/", {u"http://a/"_s}},
            {9, "http://a/", {u"http://a/"_s}}, // gets a new tab each time
            {10, "http://\xc3\xa4/", {u"http://ä/"_s}},
            {1, QByteArray(1, '\0'), {QString()}},
            {9, "http://a/bc", {u"http://a/"_s}},
            {3, QByteArray("a\0b", 3), {u"a"_s}},
            {0, {}, {}},
            {-1, "http://a/", {}}};
        for (const auto &[size, bytes, expected] : cases) {
            f.code->MainWindowProc(size, bytes);
            opened += expected;
            QCOMPARE(f.opened(), opened);
            QCOMPARE(f.main().ActiveForm()->Caption(), opened.last());
        }
    }

    void messageRestoresTheWindow()
    {
        const std::initializer_list<std::tuple<int, QString, bool>> cases{
            {int(Qt::WindowMaximized), QString(), true},    // maximised
            {int(Qt::WindowMinimized), QString(), true},    // in the tray
            {int(Qt::WindowMinimized), u"secret"_s, false}, // locked in the tray
            {int(Qt::WindowMaximized), u"secret"_s, true}}; // password, on the screen
        for (const auto &[state, password, visible] : cases) {
            MainFixture f;
            f.seedQuietStart();
            f.set(u"General", u"TrayPassword", password);
            QVERIFY(f.start());
            f.main().setWindowState(Qt::WindowStates(state));
            if (state == Qt::WindowMinimized)
                QTRY_VERIFY(f.main().isHidden());
            f.code->MainWindowProc(9, QByteArrayLiteral("http://a/"));
            QCOMPARE(f.main().isVisible(), visible);
            QCOMPARE(f.main().windowState() & ~Qt::WindowActive, Qt::WindowNoState);
            QCOMPARE(f.opened(), QStringList{u"http://a/"_s});
        }
    }

    void lateMessageIsDropped()
    {
        StartedMain f;
        f.close();
        f.code->MainWindowProc(9, QByteArrayLiteral("http://a/"));
        QCOMPARE(f.opened(), QStringList());
        // The lock is free again.
        instance::Lock other;
        QVERIFY(other.acquire(f.paths.runtimeFolder.toStdString(), instance::kMutexName));
    }

    void everyKeyComesBack()
    {
        for (const int turn : {0, 1}) {
            const QHash<QString, QString> values = valuesOfTurn(turn);
            MainFixture f;
            f.seedQuietStart();
            for (const Key &each : everyKey())
                f.set(each.section, each.name, values[each.name]);
            f.set(u"CustomLinks", u"CustomLinksName2", u"second");
            f.set(u"CustomLinks", u"CustomLinksURL2", u"http://second.example/");
            QVERIFY(f.start());
            QCOMPARE(f.settings().CustomLinks.Names[2], u"second"_s);
            for (const auto &[key, isOn] : {std::pair{u"mnuContentImage"_s, f.settings().EnableImages},
                                            {u"mnuContentSuppressErrors"_s, f.settings().SuppressErrors},
                                            {u"mnuContentAutoFill"_s, f.settings().AutoFormFill}}) {
                QCOMPARE(f.isChecked(key), isOn);
                // An entry that is off shows its empty box.
                QVERIFY(f.main().m_cMenu->action(f.main().m_cMenu->IndexForKey(key))->isCheckable());
            }
            QCOMPARE(f.main().vbalStatusBar1->PanelIcon(u"Item4"_s), f.settings().PopupKillerEnable ? 3 : 1);

            // Whatever stands in the store now is written over by the values in memory.
            for (const Key &each : everyKey())
                f.set(each.section, each.name, u"overwritten");
            f.set(u"CustomLinks", u"CustomLinksURL2", u"overwritten");
            // The skin of the next run is what is stored, not the one of this run.
            f.main().g_sNextSkin = u"next"_s;
            f.close();
            for (const Key &each : everyKey()) {
                const QString expected = each.name == u"CurrentSkin"_s ? u"next"_s : values[each.name];
                QVERIFY2(f.get(each.section, each.name) == expected, qPrintable(each.name));
            }
            QCOMPARE(f.get(u"CustomLinks", u"CustomLinksURL2"), u"http://second.example/"_s);
        }
    }

    void emptyStoreGivesTheDefaults()
    {
        MainFixture f;
        QVERIFY(f.start());
        QVERIFY(f.main().isMaximized());
        QCOMPARE(f.main().normalGeometry().size(), QSize(433, 433));
        QVERIFY(f.main().navigator->isHidden() && !f.main().goNew->isChecked());
        QCOMPARE(f.main().vbalStatusBar1->PanelIcon(u"Item4"_s), 3);
        f.close();
        for (const Key &each : everyKey())
            if (each.name != u"QNColor"_s) // stored as decimal digits
                QVERIFY2(f.get(each.section, each.name) == defaultOf(each.key, f.paths), qPrintable(each.name));
        QCOMPARE(f.get(u"Sidebar", u"QNColor"), QString::number(0xFF6666));
        QCOMPARE(f.get(u"Settings", u"MainMaximized"), u"True"_s);
    }

    void corruptValuesGiveNothing()
    {
        MainFixture f;
        for (const Key &each : everyKey())
            f.set(each.section, each.name, u"12 monkeys");
        for (const WindowKey &key : windowKeys())
            f.set(u"Settings", QString::fromLatin1(key.key), u"twelve");
        QVERIFY(f.start());
        const Settings &settings = f.settings();
        // False, 0 and empty, not what the tables give.
        QVERIFY(!settings.SaveDocumentOnExit && !settings.EnableImages && !settings.PopupKillerEnable);
        QCOMPARE(settings.LoadAction, 0);
        QCOMPARE(settings.ControlShiftLeft, 0);
        QCOMPARE(settings.QNColor, 0);
        QCOMPARE(settings.SitesHome1, u"12 monkeys"_s);
        QVERIFY(!f.main().isMaximized());
        QCOMPARE(f.main().AddressBar->ListCount(), 1);
        QVERIFY(!f.main().cReBar1->BandVisible(f.main().cReBar1->BandIndexForKey(u"Toolbar1"_s)));
        QVERIFY(f.main().vbalStatusBar1->isHidden() && !f.isChecked(u"mnuViewStatusBar"_s));
    }

    void windowKeysComeBack()
    {
        MainFixture f;
        QList<std::pair<QString, QString>> values;
        for (const QString &line : u"MainLeft=1500 MainTop=900 MainWidth=9000 MainHeight=7500 MainMaximized=False "
                                   "NavigatorLeft=3000 NavigatorTop=1500 NavigatorWidth=6000 NavigatorVisible=True "
                                   "BrowseToolbarVisible=False TabsBarVisible=False SitesToolbarVisible=True "
                                   "GoNew=True StatusBarVisible=False AddressBarVisible=True"_s.split(u' '))
            values.append({line.section(u'=', 0, 0), line.section(u'=', 1)});
        f.seedQuietStart();
        for (const auto &[key, value] : values)
            f.set(u"Settings", key, value);
        QVERIFY(f.start());
        QCOMPARE(f.main().pos(), QPoint(100, 60));
        QCOMPARE(f.main().size(), QSize(600, 500));
        QVERIFY(f.isChecked(u"mnuViewNavigator"_s) && f.isChecked(u"mnuViewAddressBar"_s));
        QVERIFY(!f.isChecked(u"mnuViewTabsBar"_s) && !f.isChecked(u"mnuViewStatusBar"_s));
        for (const auto &[key, value] : values)
            f.set(u"Settings", key, u"overwritten");
        f.close();
        for (const auto &[key, value] : values)
            QVERIFY2(f.get(u"Settings", key) == value, qPrintable(key + u": "_s + f.get(u"Settings", key)));
    }

    void addressListKeepsItsLowestEntries()
    {
        const std::initializer_list<std::tuple<int, int, int>> cases{{0, -1, 0},    // none
                                                                     {51, -1, 51},  // 51
                                                                     {60, -1, 51},  // 60
                                                                     {52, 30, 51}}; // an empty one does not count
        for (const auto &[entries, empty, kept] : cases) {
            StartedMain f;
            QStringList list;
            for (int i = 0; i < entries; ++i)
                list += i == empty ? QString() : u"http://%1.example/"_s.arg(i);
            for (int i = 0; i < entries; ++i)
                f.main().AddressBar->InsertItem(i, list[i]);
            f.close();
            QCOMPARE(f.get(u"Settings", u"HistoryCount"), QString::number(kept));
            if (kept > 0)
                QCOMPARE(f.get(u"Settings", u"HistorySite1"), list.last());

            QVERIFY(f.start());
            list.removeAll(QString());
            QStringList back;
            for (int i = 0; i < f.main().AddressBar->ListCount(); ++i)
                back += f.main().AddressBar->List(i);
            QCOMPARE(back, list.mid(list.size() - kept));
            QCOMPARE(f.main().AddressBar->Text(), QString());
            if (kept > 0)
                QCOMPARE(f.main().AddressBar->ItemIcon(0), 4);
        }
    }
};

QTEST_MAIN(tst_Lifecycle)
#include "tst_lifecycle.moc"
