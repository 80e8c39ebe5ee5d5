#include "controls/GlyphButton.h"
#include "controls/PopupMenu.h"
#include "documents/AddressBarRules.h"
#include "documents/AddressCompletion.h"
#include "documents/TabStrip.h"
#include "engine/VisitLog.h"
#include "support/DocumentFixture.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// Three documents named Alpha, Beta and Gamma behind a strip with its rules; Gamma is the active one.
struct Strip : DocumentFixture
{
    controls::PopupMenu tabMenu{&window};
    controls::PopupMenu newMenu{&window};
    TabStrip rules{{main, settings, mdi, navigator.ListView1, tabs, tabMenu, newMenu}};

    Strip()
    {
        settings.SitesHome1 = u"http://home/"_s;
        settings.ControlLeft = 0;
        settings.ControlShiftLeft = 4;
        settings.ControlRight = 1;
        settings.ControlShiftRight = 3;
        settings.ControlDouble = 2;
        for (const char *key : {"mnuTabRefresh", "mnuTabClose", "mnuTabToggleShrink", "mnuTabDuplicate",
                                "mnuTabAutoRefresh1", "mnuTabAutoRefreshStop", "mnuTabAdd2Fav"})
            tabMenu.AddItem(QString::fromLatin1(key), {}, 0, 0, -1, true, true, QString::fromLatin1(key));
        for (const char *name : {"Alpha", "Beta", "Gamma"}) {
            const QString address = u"http://%1/"_s.arg(QString::fromLatin1(name).toLower());
            browserOf(open(address)).load(address, QString::fromLatin1(name));
        }
        main.opened.clear();
    }

    int active() { return main.ActiveForm() ? main.ActiveForm()->position() : 0; }
    void choose(const char *key) { rules.m_cTabMenu_Click(tabMenu.IndexForKey(QString::fromLatin1(key))); }
    QString captions()
    {
        QStringList list;
        for (int n = 1; n <= tabs.Tabs().Count(); ++n)
            list << tab(n).Caption();
        return list.join(u' ');
    }
};

struct Bar : DocumentFixture
{
    QPushButton Go;
    QCheckBox goNew;
    AddressBarRules rules{{main, flags, addressBar, Go, goNew, nullptr}};

    void enter(const QString &text)
    {
        addressBar.setText(text);
        int key = 13;
        rules.AddressBar_Key(key, 0);
    }

    void pick(const QString &text)
    {
        addressBar.setText(text);
        rules.AddressBar_Click();
    }

    QStringList list()
    {
        QStringList entries;
        for (int n = 0; n < addressBar.ListCount(); ++n)
            entries << addressBar.List(n);
        return entries;
    }

    QStringList navigations() { return lastBrowser().calls.filter(u"Navigate2"_s); }
};

QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(u' ', Qt::SkipEmptyParts);
}

} // namespace

/// The shared controls with their rules: the tab strip, the Navigator's window and the address bar.
class tst_SharedControls : public QObject
{
    Q_OBJECT

private slots:
    void programmaticSelectionRunsNoRule()
    {
        Strip strip;
        strip.settings.ControlLeft = 1;
        strip.mdi.activateForm(&strip.document(1)); // selects the tab
        QCOMPARE(strip.active(), 1);
        QCOMPARE(strip.count(), 3);
        strip.tabs.setTag(u"1"_s);
        emit strip.tabs.tabClick(strip.tab(2), 1, 0, 0, 0);
        QCOMPARE(strip.active(), 1);
        QCOMPARE(strip.count(), 3);
    }

    void closeButtonClosesItsDocument()
    {
        Strip strip;
        strip.mdi.activateForm(&strip.document(1));
        QTest::mouseClick(strip.tabs.findChild<controls::GlyphButton *>(), Qt::LeftButton);
        QCOMPARE(strip.captions(), u"Beta Gamma"_s);
        QCOMPARE(strip.disorder(), QString());
        // What the others report from now on goes to their new places.
        Strip::browserOf(strip.document(2)).load(u"http://late/"_s, u"Late"_s);
        QCOMPARE(strip.captions(), u"Beta Late"_s);
        QCOMPARE(strip.line(1).Text() + strip.line(2).Text() + strip.status(2), u"BetaLateCompleted"_s);
    }

    void shrinking()
    {
        Strip strip; // Gamma is selected
        strip.rules.ShrinkAllbutActive();
        QCOMPARE(strip.captions(), u"Alp Bet Gamma"_s);
        strip.rules.ToggleActiveTab();
        QCOMPARE(strip.captions(), u"Alp Bet Gam"_s);
        // A reset takes the page's name, not what the tab showed.
        Strip::browserOf(strip.document(2)).title = u"Renamed"_s;
        strip.rules.ResetAll();
        QCOMPARE(strip.captions(), u"Alpha Renamed Gamma"_s);
        QCOMPARE(strip.tab(1).IconIndex() % 2, 0);
        strip.rules.ShrinkAll();
        QCOMPARE(strip.captions(), u"Alp Ren Gam"_s);
    }

    void stepping()
    {
        Strip strip;
        strip.rules.stepThroughTabs(false); // round the end
        QCOMPARE(strip.active(), 1);
        strip.rules.stepThroughTabs(true);
        QCOMPARE(strip.active(), 3);
        strip.rules.stepThroughTabs(true);
        QCOMPARE(strip.active(), 2);
        strip.settings.ControlLeft = 1; // the left click rule runs as well: the tab that is reached closes
        strip.rules.stepThroughTabs(false);
        QCOMPARE(strip.captions(), u"Alpha Beta"_s);
        strip.rules.stepThroughTabs(false);
        QCOMPARE(strip.count(), 1);
        strip.rules.stepThroughTabs(false); // with one tab nothing happens
        QCOMPARE(strip.count(), 1);
    }

    void tabMenu()
    {
        Strip strip;
        strip.choose("mnuTabToggleShrink");
        QStringList forwarded;
        connect(&strip.rules, &TabStrip::tabMenuCommand, this, [&](const QString &key) { forwarded << key; });
        strip.choose("mnuTabAutoRefresh1");
        strip.choose("mnuTabAdd2Fav");
        QCOMPARE(forwarded, QStringList({u"mnuTabAutoRefresh1"_s, u"mnuTabAdd2Fav"_s}));
        strip.choose("mnuTabDuplicate");
        QCOMPARE(strip.main.opened, QStringList(u"http://gamma/"_s));
        QCOMPARE(strip.tab(4).Tag(), QString()); // a new tab starts at normal width
        strip.choose("mnuTabClose");
        QCOMPARE(strip.count(), 3);
        while (strip.count() > 0)
            strip.choose("mnuTabClose");
        strip.choose("mnuTabRefresh"); // with nothing open
        strip.choose("mnuTabDuplicate");
        QCOMPARE(strip.count(), 0);
    }

    void captionCounts()
    {
        DocumentFixture f;
        f.navigator.tmrLoading.setInterval(1);
        QStringList seen;
        connect(&f.navigator.tmrLoading, &QTimer::timeout, this, [&] {
            seen += f.navigator.Caption().mid(9);
            if (seen.size() == 7)
                f.navigator.endLoading();
        });
        f.navigator.tmrLoading.setEnabled(true);
        QTRY_COMPARE(seen, QStringList({u"."_s, u".."_s, u"..."_s, u"...."_s, u"....."_s, u""_s, u"."_s}));
        QCOMPARE(f.navigator.Caption(), u"Navigator"_s);
    }

    void heightMovesInSteps()
    {
        const std::initializer_list<std::tuple<double, QString, double>> cases{
            {600.0, u"0"_s, 5100.0}, // grow
            {1305.0, u"1"_s, 405.0}, // shrink past the bound
            {600.0, u"1"_s, 600.0}}; // at the lower bound
        for (const auto &[from, direction, to] : cases) {
            DocumentFixture f;
            f.navigator.setHeight(from);
            f.navigator.Timer1.setInterval(1);
            f.navigator.Timer1.setTag(direction);
            f.navigator.Timer1.setEnabled(true);
            QTRY_VERIFY(!f.navigator.Timer1.Enabled());
            QCOMPARE(f.navigator.Height(), to);
        }
    }

    void pointerAndFocusGiveTheDirection()
    {
        DocumentFixture f;
        f.navigator.Timer1.setInterval(1000000);
        f.navigator.show();
        f.navigator.MDIForm_MouseMove();
        QCOMPARE(f.navigator.Timer1.Tag(), u"1"_s);
        QVERIFY(f.navigator.Timer1.Enabled());
        QTest::mouseMove(f.navigator.ListView1.viewport(), QPoint(3, 3));
        QTRY_COMPARE(f.navigator.Timer1.Tag(), u"0"_s);
        f.navigator.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&f.navigator));
        f.window.activateWindow();
        QTRY_COMPARE(f.navigator.Timer1.Tag(), u"1"_s);
    }

    void clickedLineComesToTheFront()
    {
        DocumentFixture f;
        frmDocument &a = f.open(u"a"_s);
        f.open(u"b"_s);
        f.navigator.setHeight(5000);
        f.navigator.show();
        const QRect rect = f.navigator.ListView1.visualItemRect(f.navigator.ListView1.topLevelItem(0));
        QTest::mouseClick(f.navigator.ListView1.viewport(), Qt::LeftButton, {}, rect.center());
        QVERIFY(a.isActive());
        QTRY_VERIFY(f.navigator.isActiveWindow());
    }

    void toolbarActsOnTheSelectedLine()
    {
        DocumentFixture f;
        frmNavigator &navigator = f.navigator;
        f.open(u"a"_s);
        f.open(u"b"_s);
        ScriptedBrowser &a = DocumentFixture::browserOf(f.document(1));
        a.calls.clear();
        f.lastBrowser().calls.clear();
        for (const QString &text : {u"Refresh"_s, u"Stop"_s, u"Close"_s})
            button(navigator, text)->trigger();
        QCOMPARE(f.count(), 2);
        QVERIFY(f.lastBrowser().calls.isEmpty());

        navigator.ListView1.setCurrentItem(navigator.ListView1.topLevelItem(0));
        button(navigator, u"Refresh"_s)->trigger();
        button(navigator, u"Stop"_s)->trigger();
        QCOMPARE(a.calls, (QStringList{u"Refresh2 3"_s, u"Stop"_s}));
        button(navigator, u"Close"_s)->trigger();
        QCOMPARE(f.disorder(), QString());
        QCOMPARE(f.line(1).Text(), u"b"_s);
        navigator.show();
        navigator.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&navigator));
        button(navigator, u"New"_s)->trigger();
        QCOMPARE(f.main.opened.last(), u"http://home.example/"_s);
        // The new document takes the keyboard.
        QTRY_VERIFY(f.window.isActiveWindow());
    }

    void closeOnlyHides()
    {
        DocumentFixture f;
        frmDocument &document = f.open(u"a"_s);
        f.navigator.show();
        f.main.menuChecks.insert(u"mnuViewNavigator"_s, true);
        QVERIFY(!f.navigator.close());
        QVERIFY(!f.navigator.isVisible() && !f.main.menuChecks.value(u"mnuViewNavigator"_s));
        QCOMPARE(f.disorder(), QString());

        f.navigator.setTag(u"1"_s);
        QVERIFY(f.navigator.Unload());
        // The register still serves the documents that close after it.
        QCOMPARE(f.disorder(), QString());
        document.Unload();
        QCOMPARE(f.count(), 0);
    }

    void enterOpensOrNavigates()
    {
        Bar bar;
        bar.enter(QString());
        QCOMPARE(bar.main.opened, QStringList());
        bar.enter(u"http://a/"_s); // nothing is open
        QCOMPARE(bar.main.opened, words("http://a/"));
        bar.document(1).setCaption(u"A title"_s);
        bar.enter(u"no address"_s);
        QCOMPARE(bar.document(1).Caption(), QString());
        QCOMPARE(bar.navigations().last(), u"Navigate2 no address"_s);
        bar.goNew.setChecked(true);
        bar.enter(u"http://b/"_s);
        QCOMPARE(bar.main.opened, words("http://a/ http://b/"));
    }

    void ctrlEnterCompletes()
    {
        Bar bar;
        bar.open(u"http://a/"_s);
        bar.flags.CtrlDown = true;
        bar.enter(u"example"_s);
        QCOMPARE(bar.navigations().last(), u"Navigate2 http://www.example.com"_s);
        QCOMPARE(bar.list().first(), u"http://www.example.com"_s);
        bar.enter(QString()); // also an empty box
        QCOMPARE(bar.navigations().last(), u"Navigate2 http://www..com"_s);
    }

    void listRules()
    {
        Bar bar;
        bar.open(u"x"_s);
        for (const QString &address : words("a b c"))
            bar.enter(address);
        QCOMPARE(bar.list(), words("c b a x"));
        bar.enter(u"a"_s); // Enter compares the whole list
        QCOMPARE(bar.list(), words("c b a x"));
        bar.enter(u"A"_s); // with its letters' case
        QCOMPARE(bar.list(), words("A c b a x"));
        bar.pick(u"A"_s); // a pick compares the top entry only
        QCOMPARE(bar.list(), words("A c b a x"));
        bar.pick(u"b"_s);
        QCOMPARE(bar.list(), words("b A c b a x"));
        QCOMPARE(bar.addressBar.ItemIcon(0), 4);
        bar.goNew.setChecked(true);
        bar.pick(u"c"_s); // which looks at no check box
        QCOMPARE(bar.count(), 1);
        QCOMPARE(bar.navigations().last(), u"Navigate2 c"_s);
        // A new document shows the address that was made of what was typed; the list has it once.
        connect(&bar.mdi, &controls::MdiFrame::formActivated, this, [&] { bar.addressBar.setText(u"http://d/"_s); });
        bar.enter(u"d"_s);
        QCOMPARE(bar.list(), words("d c b A c b a x"));
    }

    void go()
    {
        Bar bar;
        QVERIFY(!bar.Go.isEnabled());
        bar.addressBar.setText(u"http://a/"_s);
        bar.Go.click();
        QCOMPARE(bar.main.opened, words("http://a/"));
        bar.goNew.setChecked(true);
        bar.Go.click();
        QCOMPARE(bar.count(), 2);
        bar.addressBar.setText(QString());
        QVERIFY(!bar.Go.isEnabled());
    }

    void typingIsNoPick()
    {
        Bar bar;
        bar.open(u"http://a/"_s);
        QVERIFY(QTest::qWaitForWindowActive(&bar.window));
        bar.addressBar.lineEdit()->setFocus();
        QTRY_VERIFY(bar.rules.g_Focus());
        bar.addressBar.lineEdit()->selectAll();
        const auto before = bar.navigations();
        QTest::keyClicks(bar.addressBar.lineEdit(), u"http://a/"_s);
        QVERIFY(bar.rules.bAddressEditing());
        bar.rules.AddressBar_Click();
        QCOMPARE(bar.navigations(), before);
        QSignalSpy sent(&bar.rules, &AddressBarRules::addressSent);
        QTest::keyClick(bar.addressBar.lineEdit(), Qt::Key_Return);
        QCOMPARE(bar.navigations().size(), before.size() + 1);
        QCOMPARE(sent.count(), 1);
    }

    /// The suggestion that Enter picks goes out in place of what was typed, and like any pick it looks at no check box.
    void suggestionPickedByKey()
    {
        Bar bar;
        bar.open(u"http://a/"_s);
        bar.addressBar.InsertItem(0, u"http://shop/"_s);
        bar.goNew.setChecked(true);
        QVERIFY(QTest::qWaitForWindowActive(&bar.window));
        bar.addressBar.setFocus();
        bar.addressBar.lineEdit()->selectAll();
        QTest::keyClicks(bar.addressBar.lineEdit(), u"sho"_s);
        QTRY_VERIFY(QApplication::activePopupWidget());
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Down);
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
        QCOMPARE(bar.navigations(), (QStringList{u"Navigate2 http://a/"_s, u"Navigate2 http://shop/"_s}));
        QCOMPARE(bar.list(), words("http://shop/ http://a/"));
        QVERIFY(!QApplication::activePopupWidget());
    }

    void suggestions()
    {
        Bar bar;
        engine::VisitLog visits(bar.folder.filePath(u"visits.sqlite"_s));
        visits.addVisit(u"https://news.example.org/today"_s, u"Today"_s);
        AddressCompletion completion(bar.addressBar, &visits, this);
        for (const QString &address : words("http://shop.example.com/ https://www.example.net/ http://a.b/?q=exam"))
            bar.addressBar.InsertItem(0, address);
        QCOMPARE(
            completion.suggestions(u"exam"_s),
            words(
                "https://www.example.net/ http://a.b/?q=exam http://shop.example.com/ https://news.example.org/today"));
        QCOMPARE(completion.suggestions(u"  "_s), QStringList());
    }

private:
    static QAction *button(frmNavigator &navigator, const QString &text)
    {
        for (QAction *action : navigator.Toolbar1.actions())
            if (action->text() == text)
                return action;
        return nullptr;
    }
};

QTEST_MAIN(tst_SharedControls)
#include "tst_sharedcontrols.moc"
