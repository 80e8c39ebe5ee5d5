#include "BrowserFixture.h"

#include "controls/PopupMenu.h"
#include "controls/ToolBar.h"
#include "engine/WBCustomizer.h"
#include "support/LoopbackSite.h"
#include "support/Rows.h"
#include "support/Wait.h"

#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>

using namespace Qt::StringLiterals;

namespace {

/// Tells the site which keys the page gets.
const QByteArray kTellsKeys = "<p>text</p><script>onkeydown = e => fetch('/key/' + e.key)</script>";

} // namespace

/// Tabs, keys and commands of the main window, worked by mouse and keyboard over real pages.
class tst_Commands : public QObject
{
    Q_OBJECT

    LoopbackSite m_site;

    QString at(const QString &path) const { return m_site.address(path); }
    /// Opens the pages in documents of their own, the last one in front.
    bool open(BrowserFixture &f, const QStringList &paths) const
    {
        f.set(u"Sites"_s, u"SitesHome1"_s, at(u"/home"_s));
        if (!f.start(at(paths.first())))
            return false;
        for (const QString &path : paths.mid(1))
            f.main().LoadNewDoc(at(path));
        return waitUntil([&] {
            for (int n = 1; n <= f.count(); ++n)
                if (f.state(n) != u"Completed"_s || !f.caption(n).startsWith(u"Page"_s))
                    return false;
            return true;
        });
    }

    /// Presses a key until the active page gets it. What was pressed before has arrived then, if ever.
    bool keysArrive(BrowserFixture &f, Qt::Key key = Qt::Key_Z, const QByteArray &pageName = "z") const
    {
        return waitUntil([&] {
            f.press(key);
            return m_site.waitFor("/key/" + pageName, 1, 100);
        });
    }

private slots:
    void init()
    {
        m_site.clearRequests();
        for (const QByteArray name : {"A", "B", "C"})
            m_site.page('/' + name.toLower(), "Page " + name, kTellsKeys);
        m_site.page("/home", "Home", kTellsKeys);
    }

    void clicksOnTabs_data()
    {
        rows<Qt::MouseButton, Qt::KeyboardModifier, int, QString>({
            {"left", {Qt::LeftButton, Qt::NoModifier, 1, u"active"_s}},
            {"shift and left", {Qt::LeftButton, Qt::ShiftModifier, 1, u"active refreshed"_s}},
            {"ctrl counts as shift", {Qt::LeftButton, Qt::ControlModifier, 1, u"active refreshed"_s}},
            {"right", {Qt::RightButton, Qt::NoModifier, 1, u"closed"_s}},
            {"middle counts as right", {Qt::MiddleButton, Qt::NoModifier, 1, u"closed"_s}},
            {"shift and right", {Qt::RightButton, Qt::ShiftModifier, 1, u"active menu"_s}},
            {"double", {Qt::LeftButton, Qt::NoModifier, 2, u"active shrunk"_s}},
        });
    }

    void clicksOnTabs()
    {
        const auto [button, modifier, clicks, effect] = row<Qt::MouseButton, Qt::KeyboardModifier, int, QString>();
        BrowserFixture f;
        QVERIFY(open(f, {u"/a"_s, u"/b"_s}));
        QMenu *menu = f.main().m_cTabMenu->menu();
        const auto seen = [&] {
            QStringList effects;
            if (f.count() == 1)
                return f.caption(1) == u"Page B"_s ? u"closed"_s : f.caption(1);
            if (f.main().ActiveForm()->position() == 1)
                effects << u"active"_s;
            if (m_site.count("/a") > 1)
                effects << u"refreshed"_s;
            if (menu->isVisible())
                effects << u"menu"_s;
            if (f.caption(1) == u"Pag"_s && f.tab(1).IconIndex() == 9)
                effects << u"shrunk"_s;
            return effects.join(u' ');
        };
        controls::TabControl *tabs = f.main().vbalDTabControl1;
        const QPoint place = tabs->tabRect(0).center();
        QTest::mouseClick(tabs, button, modifier, place);
        if (clicks == 2)
            QTest::mouseDClick(tabs, button, modifier, place);
        QTRY_COMPARE(seen(), effect);
        QCOMPARE(f.disorder(), QString());

        if (menu->isVisible()) {
            // Its entries act on the tab under the mouse.
            QAction *duplicate = f.main().m_cTabMenu->action(f.main().m_cTabMenu->IndexForKey(u"mnuTabDuplicate"_s));
            QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(duplicate).center());
            QVERIFY(f.waitForPage(3, u"Page A"_s));
        }
    }

    void clicksOnTheEmptyStrip()
    {
        BrowserFixture f;
        QVERIFY(open(f, {u"/a"_s}));
        controls::TabControl *tabs = f.main().vbalDTabControl1;
        const QPoint empty(tabs->width() - 10, tabs->height() / 2);
        QTest::mouseClick(tabs, Qt::RightButton, {}, empty);
        QMenu *menu = f.main().m_cNew->menu();
        QTRY_VERIFY(menu->isVisible());
        QTest::keyClick(menu, Qt::Key_Escape);
        QTRY_VERIFY(!menu->isVisible());
        QCOMPARE(f.count(), 1);
        QTest::mouseDClick(tabs, Qt::LeftButton, {}, empty);
        QVERIFY(f.waitForPage(2, u"Home"_s));
        QCOMPARE(f.count(), 2);
    }

    void hookedKeys_data()
    {
        // The name is what pages call the key, where they must not get it.
        rows<Qt::Key, Qt::KeyboardModifiers, QString, QByteArray>({
            {"Alt+D", {Qt::Key_D, Qt::AltModifier, u"3 documents, 3 in front, address bar"_s, "d"}},
            {"Ctrl+Tab", {Qt::Key_Tab, Qt::ControlModifier, u"3 documents, 1 in front"_s, "Tab"}},
            {"Ctrl+Shift+Tab",
             {Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier, u"3 documents, 2 in front"_s, "Tab"}},
            {"Ctrl+F4", {Qt::Key_F4, Qt::ControlModifier, u"2 documents, 2 in front"_s, {}}},
            {"Alt+Home", {Qt::Key_Home, Qt::AltModifier, u"3 documents, 3 in front, home in 3"_s, "Home"}},
            {"Ctrl+N", {Qt::Key_N, Qt::ControlModifier, u"4 documents, 4 in front, home in 4"_s, "n"}},
            {"Ctrl+O", {Qt::Key_O, Qt::ControlModifier, u"4 documents, 4 in front, home in 4, file asked for"_s, "o"}},
        });
    }

    void hookedKeys()
    {
        const auto [key, modifiers, effect, name] = row<Qt::Key, Qt::KeyboardModifiers, QString, QByteArray>();
        BrowserFixture f;
        f.dialogs.file = at(u"/home"_s);
        QVERIFY(open(f, {u"/a"_s, u"/b"_s, u"/c"_s}));
        const auto seen = [&] {
            const Document *active = f.main().ActiveForm();
            QString text = u"%1 documents, %2 in front"_s.arg(f.count()).arg(active ? active->position() : 0);
            for (int n = 1; n <= f.count(); ++n)
                if (f.caption(n) == u"Home"_s && f.state(n) == u"Completed"_s)
                    text += u", home in %1"_s.arg(n);
            if (f.main().g_Focus())
                text += u", address bar"_s;
            if (!f.dialogs.asked.isEmpty())
                text += u", file asked for"_s;
            return text;
        };
        f.clickPage();
        QVERIFY(keysArrive(f));
        f.press(key, modifiers);
        QTRY_COMPARE_WITH_TIMEOUT(seen(), effect, kPatience);
        QCOMPARE(f.disorder(), QString());

        m_site.clearRequests();
        f.clickPage();
        QVERIFY(keysArrive(f));
        QVERIFY(name.isEmpty() || m_site.count("/key/" + name) == 0);
    }

    void escStopsAndReachesThePage()
    {
        m_site.add("/slow",
                   {"<title>Page S</title>" + kTellsKeys, "text/html", 200, {}, LoopbackSite::Ending::Endless});
        BrowserFixture f;
        QVERIFY(f.start(at(u"/slow"_s)));
        QTRY_COMPARE_WITH_TIMEOUT(f.caption(1), u"Page S"_s, kPatience);
        f.clickPage();
        QVERIFY(keysArrive(f));
        QVERIFY(f.state(1) != u"Completed"_s);
        f.press(Qt::Key_Escape);
        QTRY_COMPARE(f.state(1), u"Completed"_s);
        // The engine takes no keys for a moment after the end of a load.
        QVERIFY(keysArrive(f, Qt::Key_Escape, "Escape"));
    }

    void captionShortcuts()
    {
        BrowserFixture f;
        for (const QString &site : {u"Mail"_s, u"Search"_s, u"News"_s}) {
            m_site.page('/' + site.toLatin1(), site.toLatin1(), kTellsKeys);
            f.set(u"Sites"_s, u"Sites"_s + site, at(u'/' + site));
        }
        QVERIFY(open(f, {u"/a"_s}));
        const auto textSize = [&] {
            return f.document(1).ExecWBDoc(engine::OLECMDID_ZOOM, engine::OLECMDEXECOPT_DONTPROMPTUSER).toInt();
        };
        f.clickPage();
        QVERIFY(keysArrive(f));
        f.press(Qt::Key_I, Qt::ControlModifier);
        QTRY_COMPARE(textSize(), 3);
        for (int time = 0; time < 2; ++time)
            f.press(Qt::Key_E, Qt::ControlModifier);
        QTRY_COMPARE(textSize(), 1);
        QVERIFY(f.choose(u"mnuEditResetFont"_s));
        QCOMPARE(textSize(), 2);

        QGuiApplication::clipboard()->clear();
        f.press(Qt::Key_A, Qt::ControlModifier);
        QVERIFY(waitUntil([&] {
            f.choose(u"mnuEditCopy"_s);
            return waitUntil([] { return QGuiApplication::clipboard()->text() == u"text"_s; }, 100);
        }));
        for (const auto &[key, site] : {std::pair{Qt::Key_M, u"Mail"}, {Qt::Key_S, u"Search"}, {Qt::Key_W, u"News"}}) {
            f.press(key, Qt::ControlModifier);
            QVERIFY(f.waitForPage(1, QString::fromUtf16(site)));
        }
        QCOMPARE(f.count(), 1);
        // Keys that no caption shows.
        f.press(Qt::Key_Left, Qt::AltModifier);
        QVERIFY(f.waitForPage(1, u"Search"_s));
        f.press(Qt::Key_Right, Qt::AltModifier);
        QVERIFY(f.waitForPage(1, u"News"_s));
        const int asked = m_site.count("/News");
        f.press(Qt::Key_F5);
        QVERIFY(m_site.waitFor("/News", asked + 1));
        QVERIFY(f.waitForPage(1, u"News"_s));
        // In the address bar the letter belongs to the text.
        f.press(Qt::Key_D, Qt::AltModifier);
        QTRY_VERIFY(f.main().g_Focus());
        QLineEdit *edit = f.main().AddressBar->lineEdit();
        QCOMPARE(edit->selectedText(), at(u"/News"_s));
        edit->deselect();
        f.press(Qt::Key_D, Qt::AltModifier); // from the bar itself too
        QCOMPARE(edit->selectedText(), at(u"/News"_s));
        edit->deselect();
        f.press(Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(edit->selectedText(), at(u"/News"_s));
    }

    /// Each command opens its window, and none outlives its document.
    void windowsOfCommands()
    {
        BrowserFixture f;
        QVERIFY(open(f, {u"/a"_s, u"/b"_s}));
        const auto shown = [](const char *name) -> QWidget * {
            const QWidgetList windows = QApplication::topLevelWidgets();
            const auto found = std::find_if(windows.begin(), windows.end(), [&](const QWidget *window) {
                return window->isVisible() && window->inherits(name);
            });
            return found == windows.end() ? nullptr : *found;
        };
        const QList<std::pair<QString, const char *>> commands{{u"mnuFileProperties"_s, "engine::PropertiesDialog"},
                                                               {u"mnuFilePageSetup"_s, "engine::PageSetupDialog"},
                                                               {u"mnuFilePrintPreview"_s, "engine::PrintPreview"},
                                                               {u"mnuFilePrint"_s, "QPrintDialog"},
                                                               {u"mnuFileSaveAs"_s, "QFileDialog"}};
        for (const auto &[key, window] : commands) {
            QVERIFY(f.choose(key));
            QTRY_VERIFY_WITH_TIMEOUT(shown(window), kPatience);
        }
        f.main().ActiveForm()->Unload();
        for (const auto &[key, window] : commands)
            QTRY_VERIFY2(!shown(window), window);
        QCOMPARE(f.count(), 1);

        // No key of the hook acts while one of these is up.
        for (const auto &[key, window] : {std::pair{u"mnuViewInternetOptions"_s, "engine::InternetOptions"},
                                          {u"F9"_s, "frmQSearch"},
                                          {u"mnuHelpAbout"_s, "QDialog"}}) {
            if (key == u"F9"_s)
                f.press(Qt::Key_F9);
            else
                QVERIFY(f.choose(key));
            QTRY_VERIFY(shown(window));
            QVERIFY(QTest::qWaitForWindowActive(shown(window)));
            QTest::keyClick(shown(window)->windowHandle(), Qt::Key_N, Qt::ControlModifier);
            QTest::keyClick(shown(window), Qt::Key_Escape);
            QTRY_VERIFY(!shown(window));
        }
        QCOMPARE(f.count(), 1);
    }

    void editCommands()
    {
        m_site.page("/a", "Page A",
                    "<p>text</p><textarea id=t style='width: 400px; height: 300px'></textarea><script>t.oninput = () "
                    "=> fetch('/is/' + "
                    "t.value); t.onkeydown = e => fetch('/key/' + e.key)</script>");
        BrowserFixture f;
        QVERIFY(open(f, {u"/a"_s}));
        QClipboard &clipboard = *QGuiApplication::clipboard();
        clipboard.clear();
        f.clickPage({100, 150});
        QVERIFY(keysArrive(f, Qt::Key_X, "x"));
        f.press(Qt::Key_A, Qt::ControlModifier);
        f.press(Qt::Key_Y);
        QVERIFY(m_site.waitFor("/is/y"));
        f.press(Qt::Key_A, Qt::ControlModifier);
        QVERIFY(f.choose(u"mnuEditCut"_s));
        QVERIFY(m_site.waitFor("/is/"));
        QVERIFY(waitUntil([&] { return clipboard.text() == u"y"_s; }));
        QVERIFY(f.choose(u"mnuEditPaste"_s));
        QVERIFY(f.choose(u"mnuEditPaste"_s));
        QVERIFY(m_site.waitFor("/is/yy"));

        QLineEdit *edit = f.main().AddressBar->lineEdit();
        f.press(Qt::Key_D, Qt::AltModifier);
        QTRY_VERIFY(edit->hasFocus());
        edit->setText(u"one"_s);
        edit->selectAll();
        QVERIFY(f.choose(u"mnuEditCopy"_s));
        QTRY_COMPARE(clipboard.text(), u"one"_s);
        edit->end(false);
        QVERIFY(f.choose(u"mnuEditPaste"_s));
        QTRY_COMPARE(edit->text(), u"oneone"_s);
        edit->selectAll();
        QVERIFY(f.choose(u"mnuEditCut"_s));
        QTRY_COMPARE(edit->text(), QString());
        // An empty clipboard, then nothing that has the focus.
        clipboard.clear();
        QVERIFY(f.choose(u"mnuEditPaste"_s));
        edit->clearFocus();
        for (const QString &key : {u"mnuEditCut"_s, u"mnuEditCopy"_s, u"mnuEditPaste"_s})
            QVERIFY(f.choose(key));
        QTest::qWait(0);
        QCOMPARE(edit->text(), QString());
    }

    void historyListNavigatesAnew()
    {
        BrowserFixture f;
        QVERIFY(open(f, {u"/a"_s}));
        f.enterAddress(at(u"/b"_s));
        QVERIFY(f.waitForPage(1, u"Page B"_s));
        f.enterAddress(at(u"/c"_s));
        QVERIFY(f.waitForPage(1, u"Page C"_s));

        // The arrow stands at the right end of the button.
        const controls::ToolBar *bar = f.main().Toolbar1;
        QWidget *back = bar->childAt(bar->ButtonLeft(u"Back"_s) + 4, bar->height() / 2);
        QVERIFY(back && back != bar);
        QTest::mouseClick(back, Qt::LeftButton, {}, QPoint(back->width() - 3, back->height() / 2));
        QTRY_VERIFY(qobject_cast<QMenu *>(QApplication::activePopupWidget()));
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QStringList lines;
        for (const QAction *line : menu->actions())
            lines << line->text();
        QCOMPARE(lines, QStringList({u"Page B"_s, u"Page A"_s}));
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(menu->actions().at(1)).center());
        QVERIFY(f.waitForPage(1, u"Page A"_s));
        const engine::WBCustomizer *custom = f.document(1).customWB();
        QCOMPARE(custom->BackCount(), 3);
        QCOMPARE(custom->ForwardCount(), 0);

        // The button itself goes one page back.
        QTest::mouseClick(back, Qt::LeftButton, {}, QPoint(4, back->height() / 2));
        QVERIFY(f.waitForPage(1, u"Page C"_s));
        QCOMPARE(custom->ForwardCount(), 1);
    }

    void findBar()
    {
        m_site.page("/a", "Page A", "<p>one two</p><p>Two two</p>" + kTellsKeys);
        BrowserFixture f;
        QVERIFY(open(f, {u"/a"_s}));
        f.clickPage();
        QVERIFY(keysArrive(f));
        f.press(Qt::Key_F, Qt::ControlModifier);
        const auto part = [&](const char *name) { return f.document(1).findChild<QWidget *>(QLatin1StringView(name)); };
        QTRY_VERIFY(part("txtFind") && part("txtFind")->hasFocus());
        QTest::keyClicks(QApplication::focusWidget(), u"two"_s);
        auto *hits = qobject_cast<QLabel *>(part("lblHits"));
        QTRY_COMPARE(hits->text(), u"1 of 3"_s);
        f.press(Qt::Key_Return);
        QTRY_COMPARE(hits->text(), u"2 of 3"_s);
        f.press(Qt::Key_Return, Qt::ShiftModifier);
        QTRY_COMPARE(hits->text(), u"1 of 3"_s);
        QTest::mouseClick(part("chkCase"), Qt::LeftButton);
        QTRY_COMPARE(hits->text(), u"1 of 2"_s);

        f.press(Qt::Key_Escape);
        QTRY_VERIFY(!part("FindBar")->isVisible());
        m_site.clearRequests();
        QVERIFY(keysArrive(f));
    }
};

BROWSER_TEST_MAIN(tst_Commands)
#include "tst_commands.moc"
