#include "controls/GlyphButton.h"
#include "controls/PopupMenu.h"
#include "documents/TabStrip.h"
#include "support/DocumentFixture.h"

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

} // namespace

class tst_TabStrip : public QObject
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
};

QTEST_MAIN(tst_TabStrip)
#include "tst_tabstrip.moc"
