#include "MainFixture.h"

#include "base/Files.h"
#include "core/KeyboardHook.h"
#include "core/frmWindows.h"
#include "core/state/ProcessFlags.h"
#include "engine/WBCustomizer.h"
#include "forms/FormLock.h"
#include "forms/FormStore.h"
#include "options/FormsPage.h"
#include "options/frmOptions1.h"
#include "support/Rows.h"

#include <QCheckBox>
#include <QClipboard>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// A main window over a form record, whose documents and dialogs are asked for it.
struct FormMain : MainFixture
{
    FormMain()
    {
        seedQuietStart();
        record(u"Ann"_s);
    }
    /// Stores a form record, as another program might.
    void record(const QString &name)
    {
        FormKeys keys(paths.programFolder);
        FormStore store(keys);
        store.AddFormField(u"name"_s, name, false);
        store.SaveFormData(formFileIn(paths.programFolder));
    }
    QStringList fills(int browser) { return engine.browsers[browser]->calls.filter(u"fill"_s); }
    frmOptions1 &dialog() { return *main().findChild<frmOptions1 *>(); }
    bool isMarked() { return isChecked(u"mnuContentAutoFill"_s); }
    void run(const QString &key) { QVERIFY(main().commands().run(key)); }
};

} // namespace

/// The seven menus, the keys of the window, and what their commands do, also with the form record.
class tst_Menus : public QObject
{
    Q_OBJECT

private slots:
    void everyKeyHasAnEntry()
    {
        StartedMain f;
        const frmMain &main = f.main();
        // The tab strip answers these itself.
        const QStringList elsewhere{u"mnuTabRefresh"_s, u"mnuTabClose"_s, u"mnuTabToggleShrink"_s, u"mnuTabDuplicate"_s,
                                    u"mnuTabCancel"_s};
        QStringList missing;
        int items = 0;
        const std::function<void(const controls::PopupMenu &, int)> walk = [&](const controls::PopupMenu &menu,
                                                                               int parent) {
            for (const int item : menu.Children(parent)) {
                ++items;
                const QString key = menu.ItemKey(item);
                walk(menu, item);
                const bool silent =
                    menu.Caption(item) == u"-"_s || !menu.Children(item).empty() || key.startsWith(u"mnuWin"_s);
                if (!silent && !elsewhere.contains(key) && !Commands::knows(key))
                    missing += key;
            }
        };
        for (const auto &menu : {&main.m_cMenu, &main.m_cNew, &main.m_cNavToolbar, &main.m_cSitesToolbar,
                                 &main.m_cTabMenu, &main.m_cRefresh, &main.m_cStop})
            walk(**menu, 0);
        QCOMPARE(missing, QStringList());
        QCOMPARE(items, 100 + 10 + 5 + 7 + 16 + 1 + 1);
        for (int i = 0; i < main.Toolbar1->ButtonCount(); ++i)
            QVERIFY(main.Toolbar1->ButtonKey(i).isEmpty() || Commands::knows(main.Toolbar1->ButtonKey(i)));
    }

    void windowMenuListsDocuments()
    {
        StartedMain f;
        controls::PopupMenu &menu = *f.main().m_cMenu;
        const auto opened = [&] {
            openMenu(f.main(), u"mnuWindow"_s);
            openMenu(f.main(), u"mnuWindow"_s);
            return menu.Children(menu.IndexForKey(u"mnuWindow"_s));
        };
        std::vector<int> items = opened();
        QCOMPARE(static_cast<int>(items.size()), 9);
        QVERIFY(!menu.Enabled(items[7]) && !menu.Enabled(items[8]));

        for (int i = 1; i <= 12; ++i)
            f.main().LoadNewDoc(u"http://%1.example/"_s.arg(i));
        f.main().mdi->activateForm(f.main().mdi->forms().at(1));
        f.main().ActiveForm()->setCaption(QString(33, u'x'));
        items = opened();
        QCOMPARE(static_cast<int>(items.size()), 9 + 1 + 11);
        QVERIFY(menu.Enabled(items[7]) && menu.Enabled(items[8]));
        items.erase(items.begin(), items.begin() + 10);
        QCOMPARE(menu.ItemKey(items[0]), u"mnuWin(8)"_s);
        QStringList captions;
        for (const int item : items) {
            QCOMPARE(menu.Checked(item), item == items[0]); // the active document comes first
            captions += menu.Caption(item);
        }
        QCOMPARE(captions.mid(0, 3), (QStringList{u"&1) "_s + QString(32, u'x') + u"..."_s, u"&2) http://1.example/"_s,
                                                  u"&3) http://3.example/"_s}));
        QCOMPARE(captions.last(), u"&More Windows..."_s);
        emit menu.Click(items.back());
        auto *windows = f.main().findChild<frmWindows *>();
        QVERIFY(windows);
        QCOMPARE(windows->lstWindows->count(), 12);
        QCOMPARE(windows->lstWindows->currentRow(), 1);
        windows->lstWindows->setCurrentRow(11);
        windows->btnOk->click();
        QCOMPARE(f.main().mdi->activeForm(), f.main().mdi->forms().at(11));
    }

    void windowMenuActivates()
    {
        StartedMain f;
        for (const char16_t *url : {u"http://1/", u"http://2/", u"http://3/"})
            f.main().LoadNewDoc(QString::fromUtf16(url));
        const QList<QWidget *> forms = f.main().mdi->forms();
        openMenu(f.main(), u"mnuWindow"_s);
        click(f.main(), u"mnuWin(9)"_s);
        QCOMPARE(f.main().mdi->activeForm(), forms[0]);

        // The document behind a line goes while the menu is open.
        openMenu(f.main(), u"mnuWindow"_s);
        qobject_cast<Document *>(forms[1])->Unload();
        DocumentFixture::deleteClosed();
        click(f.main(), u"mnuWin(9)"_s);
        QCOMPARE(f.main().mdi->activeForm(), forms[0]);

        openMenu(f.main(), u"mnuWindow"_s);
        click(f.main(), u"mnuWin(5)"_s);
        QCOMPARE(f.main().mdi->activeForm(), forms[2]);
        click(f.main(), u"mnuWin(0)"_s);
        QCOMPARE(f.main().mdi->WindowState(forms[0]), controls::vbNormal);
        click(f.main(), u"mnuWin(3)"_s);
        QCOMPARE(f.main().mdi->WindowState(forms[0]), controls::vbMinimized);
        QCOMPARE(f.main().mdi->WindowState(forms[2]), controls::vbMinimized);
    }

    void togglesMoveTheirMark()
    {
        StartedMain f;
        frmMain &main = f.main();
        const auto band = [&](const char16_t *key) {
            return [&main, name = QString::fromUtf16(key)] {
                return main.cReBar1->BandVisible(main.cReBar1->BandIndexForKey(name));
            };
        };
        const std::initializer_list<std::pair<QString, std::function<bool()>>> toggles{
            {u"mnuViewBrowseToolbar"_s, band(u"Toolbar1")},
            {u"mnuViewSitesToolbar"_s, band(u"Toolbar2")},
            {u"mnuViewAddressBar"_s, band(u"Addressbar")},
            {u"mnuViewTabsBar"_s, band(u"Tabbar")},
            {u"mnuViewStatusBar"_s, [&] { return main.vbalStatusBar1->isVisible(); }},
            {u"mnuViewNavigator"_s, [&] { return main.navigator->isVisible(); }}};
        for (const auto &[key, isShown] : toggles) {
            bool expected = isShown();
            for (int i = 0; i < 2; ++i) {
                click(main, key);
                expected = !expected;
                QVERIFY2(isShown() == expected, qPrintable(key));
                QCOMPARE(f.isChecked(key), expected);
            }
        }
        click(main, u"mnuViewNavigator"_s);
        main.navigator->close();
        QVERIFY(!f.isChecked(u"mnuViewNavigator"_s));
    }

    void contentChoicesReachAllDocuments()
    {
        StartedMain f(u"http://1/"_s);
        f.main().LoadNewDoc(u"http://2/"_s);
        const auto forget = [&] {
            for (const auto &browser : f.engine.browsers)
                browser->calls.clear();
        };
        forget();
        click(f.main(), u"mnuContentImage"_s);
        QVERIFY(!f.settings().EnableImages && !f.isChecked(u"mnuContentImage"_s));
        for (const auto &browser : f.engine.browsers)
            QCOMPARE(browser->calls, (QStringList{u"ambient -5512 96"_s, u"Refresh2 3"_s}));

        // Flash has no bit of its own: the pages are only loaded anew. Page errors touch nothing else.
        forget();
        f.main().mnuContentFlash();
        QVERIFY(!f.settings().EnableFlash);
        click(f.main(), u"mnuContentSuppressErrors"_s);
        for (const auto &browser : f.engine.browsers)
            QCOMPARE(browser->calls, QStringList{u"Refresh2 3"_s});

        forget();
        click(f.main(), u"mnuContentSuppressScriptErrors"_s);
        QCOMPARE(f.engine.browsers[0]->calls, QStringList());
        QCOMPARE(f.engine.browsers[1]->calls, QStringList{u"Silent True"_s});
    }

    void closingDuringARefreshSkipsNobody()
    {
        StartedMain f(u"http://a/"_s);
        f.main().LoadNewDoc(u"http://b/"_s);
        f.main().LoadNewDoc(u"http://c/"_s);
        // The change of a setting lets events through before each reload.
        QMetaObject::invokeMethod(&f.main().navigator->document(1), &Document::Unload, Qt::QueuedConnection);
        QVERIFY(f.main().commands().run(u"mnuContentImage"_s));
        QCOMPARE(f.code->flags.OpenDocumentCount, 2);
        for (int n = 1; n <= 2; ++n)
            QVERIFY(f.engine.browsers[n]->calls.endsWith(u"Refresh2 3"_s));
    }

    void siteCommands()
    {
        // A key, whether a new tab is asked for, and what is sent without and with a document.
        const std::initializer_list<std::tuple<QString, bool, QString, QString>> cases{
            {u"mnuNavigateHome1"_s, true, u"h1,h1"_s, u"x,h1"_s},
            {u"mnuNavigateMail"_s, true, u"mail,mail"_s, u"x,mail"_s},
            {u"Home"_s, false, u"h1,h1"_s, u"x,h1"_s},
            {u"Home"_s, true, u"h1"_s, u"x|h1"_s},
            {u"Mail"_s, true, u"mail"_s, u"x|mail"_s},
            {u"New"_s, false, u"h1"_s, u"x|h1"_s},
            {u"mnuFileNew"_s, false, u"h1"_s, u"x|h1"_s},
            {u"mnuNewCurrent"_s, false, u"h1"_s, u"x|x"_s},
            {u"mnuNavigateHome2"_s, true, u"h2"_s, u"x,h2"_s}, // the only one that is not sent a second time
            {u"mnuNewClipboard"_s, false, u"clip"_s, u"x|clip"_s},
            {u"mnuHelpContents"_s, false, u"corvane://www/help.html"_s, u"x|corvane://www/help.html"_s}};
        for (const auto &[key, newTabSetting, withoutDocument, withDocument] : cases) {
            QGuiApplication::clipboard()->setText(u"clip"_s);
            for (const bool document : {false, true}) {
                MainFixture f;
                f.seedQuietStart();
                for (const auto &[name, address] : {std::pair{u"SitesHome1", u"h1"},
                                                    {u"SitesHome2", u"h2"},
                                                    {u"SitesMail", u"mail"},
                                                    {u"SitesSearch", u"search"},
                                                    {u"SitesNews", u"news"}})
                    f.set(u"Sites", name, address);
                f.set(u"Control", u"ControlNavNew", fromBoolean(newTabSetting));
                QVERIFY(f.start(document ? u"x"_s : QString()));
                if (document)
                    f.engine.browsers[0]->address = u"x"_s;
                QVERIFY(f.main().commands().run(key));
                QStringList sent;
                for (const auto &browser : f.engine.browsers)
                    sent += browser->calls.filter(u"Navigate2"_s).join(u',').remove(u"Navigate2 "_s);
                QCOMPARE(sent.join(u'|'), document ? withDocument : withoutDocument);
            }
        }
    }

    /// A document that was opened from a file is called after the file until its page has a title.
    void openedFile()
    {
        StartedMain f;
        click(f.main(), u"mnuFileOpen"_s); // which is left without a choice
        QVERIFY(!f.main().ActiveForm());
        f.dialogs.file = f.folder.filePath(u"a.url"_s);
        QVERIFY(writeFileWhole(f.dialogs.file, "[InternetShortcut]\r\nURL=http://in.side/\r\n"));
        click(f.main(), u"mnuFileOpen"_s);
        QVERIFY(f.engine.browsers.last()->calls.contains(u"Navigate2 http://in.side/"_s));
        QCOMPARE(f.main().ActiveForm()->Caption(), f.dialogs.file);
    }

    void textSizeStaysInItsRange()
    {
        StartedMain f;
        // No document: nothing to do, nothing goes wrong.
        for (const char16_t *key :
             {u"mnuEditIncFont", u"mnuEditResetFont", u"mnuFilePrint", u"mnuNavigateBack", u"mnuFileClose"})
            click(f.main(), QString::fromUtf16(key));

        f.main().LoadNewDoc(u"x"_s);
        ScriptedBrowser &browser = *f.engine.browsers.last();
        const auto written = [&](int now, QStringView key) {
            browser.execResult = now;
            browser.calls.clear();
            click(f.main(), key.toString());
            return browser.calls.last();
        };
        QVERIFY(written(4, u"mnuEditIncFont").endsWith(u" 4"_s));
        QVERIFY(written(2, u"mnuEditIncFont").endsWith(u" 3"_s));
        QVERIFY(written(0, u"mnuEditDecFont").endsWith(u" 0"_s));
        QVERIFY(written(3, u"mnuEditDecFont").endsWith(u" 2"_s));
    }

    void alignMovesTheBands()
    {
        StartedMain f(u"x"_s);
        frmMain &main = f.main();
        main.resize(600, 500);
        QTRY_VERIFY(main.picHolder->y() < main.mdi->y());
        click(main, u"mnuAlignBottom"_s);
        QTRY_VERIFY(main.picHolder->y() > main.mdi->y());
        QVERIFY(main.picHolder->geometry().bottom() < main.vbalStatusBar1->y());
        QVERIFY(main.m_cMenu->RadioChecked(main.m_cMenu->IndexForKey(u"mnuAlignBottom"_s)));
        QVERIFY(!main.m_cMenu->RadioChecked(main.m_cMenu->IndexForKey(u"mnuAlignTop"_s)));
    }

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

    void endOfLoad()
    {
        const std::initializer_list<std::tuple<bool, bool, bool, QStringList>> cases{
            {false, true, false, QStringList()},                    // not by itself
            {true, false, false, QStringList{u"fill open Ann"_s}},  // open
            {true, true, false, QStringList{u"fill locked Ann"_s}}, // locked
            {true, true, true, QStringList{u"fill open Ann"_s}}};   // unlocked
        for (const auto &[isAuto, isProtected, isUnlocked, filled] : cases) {
            FormMain f;
            QVERIFY(f.start(u"http://a/"_s));
            f.settings().AutoFormFill = isAuto;
            f.settings().ProtectCreditInfo = isProtected;
            f.code->flags.CreditUnlocked = isUnlocked;
            const engine::WBCustomizer *tools = f.main().ActiveForm()->customWB();
            f.engine.browsers[0]->load(u"http://a/"_s, u"A"_s);
            QCOMPARE(f.fills(0), filled);
            QCOMPARE(tools->formLocked(), isProtected && !isUnlocked);

            // A failing fill costs nothing else of the end of the load.
            f.engine.browsers[0]->failing += u"fill"_s;
            f.engine.browsers[0]->load(u"http://a/"_s, u"A"_s);
            QCOMPARE(f.main().navigator->ListView1.ListItems(1).ListSubItems(1).Text(), u"Completed"_s);
        }
    }

    void commands()
    {
        FormMain f;
        QVERIFY(f.start(u"http://a/"_s));
        f.main().LoadNewDoc(u"http://b/"_s);
        f.run(u"mnuContentFillForm"_s);
        QCOMPARE(f.fills(1), QStringList{u"fill open Ann"_s});
        QVERIFY(f.fills(0).isEmpty() && !f.isMarked());
        // Switching on fills at once, switching off does not.
        f.settings().ProtectCreditInfo = true;
        f.run(u"mnuContentAutoFill"_s);
        QCOMPARE(f.fills(1).last(), u"fill locked Ann"_s);
        QVERIFY(f.isMarked() && f.settings().AutoFormFill);
        f.run(u"mnuContentAutoFill"_s);
        QVERIFY(!f.isMarked() && !f.settings().AutoFormFill);
        QCOMPARE(static_cast<int>(f.fills(1).size()), 2);

        f.engine.browsers[1]->failing += u"fill"_s;
        f.run(u"mnuContentFillForm"_s);
        f.run(u"mnuFileClose"_s);
        f.run(u"mnuFileClose"_s);
        f.run(u"mnuContentFillForm"_s);
        f.run(u"mnuContentAutoFill"_s);
        QVERIFY(f.isMarked());
    }

    void dialogReachesEveryDocument()
    {
        FormMain f;
        QVERIFY(f.start(u"http://a/"_s));
        f.main().LoadNewDoc(u"http://b/"_s);
        f.run(u"mnuContentFormData"_s);
        auto *page = f.dialog().findChild<FormsPage *>();
        QVERIFY(page->isVisible() && f.dialog().isModal());
        f.run(u"mnuContentFormData"_s);
        QCOMPARE(static_cast<int>(f.main().findChildren<frmOptions1 *>().size()), 1);
        page->firstname->setText(u"Bea"_s);
        page->chkAutoFormFill->setChecked(true);
        f.dialog().btnOk->click();
        QVERIFY(f.isMarked());
        for (int i = 0; i < 2; ++i) {
            f.engine.browsers[i]->load(u"http://x/"_s, u"X"_s);
            QCOMPARE(f.fills(i), QStringList{u"fill open Bea "_s});
        }
        // Documents read the file again, also when nothing was confirmed.
        DocumentFixture::deleteClosed();
        QCOMPARE(f.code->flags.OptionsStartPage, 1);
        f.run(u"mnuViewOptions"_s);
        f.record(u"Cleo"_s);
        f.dialog().btnCancel->click();
        f.run(u"mnuContentFillForm"_s);
        QCOMPARE(f.fills(1).last(), u"fill open Cleo"_s);
        QVERIFY(f.isMarked());
    }

    void closingWithTheDialogOpen()
    {
        FormMain f;
        QVERIFY(f.start(u"http://a/"_s));
        f.run(u"mnuContentFormData"_s);
        QPointer<frmOptions1> open = &f.dialog();
        open->findChild<FormsPage *>()->firstname->setText(u"Bea"_s);
        f.close();
        QVERIFY(f.main().isUnloaded());
        f.code.reset();
        QVERIFY(!open);
        FormKeys keys(f.paths.programFolder);
        FormStore store(keys);
        store.LoadFormData(formFileIn(f.paths.programFolder));
        QCOMPARE(store.fields().front().value, u"Ann"_s);
    }

private:
    static void click(frmMain &main, const QString &key)
    {
        const int item = main.m_cMenu->IndexForKey(key);
        QVERIFY(item > 0);
        emit main.m_cMenu->Click(item);
    }

    static void openMenu(frmMain &main, const QString &key)
    {
        emit main.m_cMenu->InitPopupMenu(main.m_cMenu->IndexForKey(key));
    }

    KeyboardHook::Actions recording()
    {
        const auto note = [this](const char *name) { return [this, name] { m_done += name; }; };
        const auto step = [this](bool back) { m_done += back ? "previous" : "next"; };
        return {note("address"), note("stop"), step,         note("close"),
                note("home"),    note("new"),  note("open"), note("search")};
    }

    QByteArray m_done;
};

QTEST_MAIN(tst_Menus)
#include "tst_menus.moc"
