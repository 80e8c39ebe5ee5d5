#include "controls/PopupMenu.h"
#include "documents/TabStrip.h"
#include "support/DocumentFixture.h"

#include <QTest>

namespace {

/// Three documents named Alpha, Beta and Gamma behind a strip with its rules; Gamma is the active one.
struct Strip : DocumentFixture
{
    controls::PopupMenu tabMenu{&window};
    controls::PopupMenu newMenu{&window};
    TabStrip rules{{main, settings, mdi, navigator.ListView1, tabs, tabMenu, newMenu}};

    Strip()
    {
        settings.SitesHome1 = QStringLiteral("http://home/");
        settings.ControlLeft = 0;
        settings.ControlShiftLeft = 4;
        settings.ControlRight = 1;
        settings.ControlShiftRight = 3;
        settings.ControlDouble = 2;
        for (const char *key : {"mnuTabRefresh", "mnuTabClose", "mnuTabToggleShrink", "mnuTabDuplicate",
                                "mnuTabAutoRefresh1", "mnuTabAutoRefreshStop", "mnuTabAdd2Fav"})
            tabMenu.AddItem(QString::fromLatin1(key), {}, 0, 0, -1, true, true, QString::fromLatin1(key));
        for (const char *name : {"Alpha", "Beta", "Gamma"}) {
            const QString address = QStringLiteral("http://%1/").arg(QString::fromLatin1(name).toLower());
            browserOf(open(address)).load(address, QString::fromLatin1(name));
        }
        for (const auto &browser : engine.browsers)
            browser->calls.clear();
        main.opened.clear();
    }

    int active() { return main.ActiveForm() ? main.ActiveForm()->position() : 0; }
    QStringList calls(int n) { return browserOf(document(n)).calls; }
    void choose(const char *key) { rules.m_cTabMenu_Click(tabMenu.IndexForKey(QString::fromLatin1(key))); }
    QStringList captions()
    {
        QStringList list;
        for (int n = 1; n <= tabs.Tabs().Count(); ++n)
            list << tab(n).Caption();
        return list;
    }
};

} // namespace

class tst_TabStrip : public QObject
{
    Q_OBJECT
private slots:
    void init() { QTest::failOnWarning(DocumentFixture::anyWarning()); }

    void programmaticSelectionRunsNoRule()
    {
        Strip strip;
        strip.settings.ControlLeft = 1;
        strip.mdi.activateForm(&strip.document(1)); // selects the tab
        QCOMPARE(strip.active(), 1);
        QCOMPARE(strip.count(), 3);
        strip.tabs.setTag(QStringLiteral("1"));
        emit strip.tabs.tabClick(strip.tab(2), 1, 0, 0, 0);
        QCOMPARE(strip.active(), 1);
        QCOMPARE(strip.count(), 3);
    }

    void shrinking()
    {
        Strip strip; // Gamma is selected
        strip.rules.ShrinkAllbutActive();
        QCOMPARE(strip.captions(),
                 QStringList({QStringLiteral("Alp"), QStringLiteral("Bet"), QStringLiteral("Gamma")}));
        strip.rules.ShrinkActive();
        QCOMPARE(strip.captions(), QStringList({QStringLiteral("Alp"), QStringLiteral("Bet"), QStringLiteral("Gam")}));
        strip.rules.ToggleActiveTab();
        QCOMPARE(strip.captions(),
                 QStringList({QStringLiteral("Alp"), QStringLiteral("Bet"), QStringLiteral("Gamma")}));
        strip.rules.ShrinkAll();
        QCOMPARE(strip.captions(), QStringList({QStringLiteral("Alp"), QStringLiteral("Bet"), QStringLiteral("Gam")}));
        // a shrunk tab keeps three characters of each new title
        Strip::browserOf(strip.document(1)).events().WebBro_TitleChange(QStringLiteral("Another name"));
        QCOMPARE(strip.captions().first(), QStringLiteral("Ano"));
        QCOMPARE(strip.tab(1).ToolTipText(), QStringLiteral("Another name"));
        // a reset takes the page's name, not what the tab showed
        Strip::browserOf(strip.document(2)).title = QStringLiteral("Beta, renamed");
        strip.rules.ResetAll();
        QCOMPARE(strip.captions().at(1), QStringLiteral("Beta, renamed"));
        QCOMPARE(strip.tab(1).IconIndex() % 2, 0);
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
        QCOMPARE(strip.captions(), QStringList({QStringLiteral("Alpha"), QStringLiteral("Beta")}));
        strip.rules.stepThroughTabs(false);
        QCOMPARE(strip.count(), 1);
        strip.rules.stepThroughTabs(false); // with one tab nothing happens
        QCOMPARE(strip.count(), 1);
    }

    void tabMenu()
    {
        Strip strip;
        strip.choose("mnuTabRefresh");
        QCOMPARE(strip.calls(3), QStringList(QStringLiteral("Refresh2 3")));
        strip.choose("mnuTabToggleShrink");
        QCOMPARE(strip.tab(3).Caption(), QStringLiteral("Gam"));
        QStringList forwarded;
        connect(&strip.rules, &TabStrip::tabMenuCommand, this, [&](const QString &key) { forwarded << key; });
        strip.choose("mnuTabAutoRefresh1");
        strip.choose("mnuTabAdd2Fav");
        QCOMPARE(forwarded, QStringList({QStringLiteral("mnuTabAutoRefresh1"), QStringLiteral("mnuTabAdd2Fav")}));
        strip.choose("mnuTabDuplicate");
        QCOMPARE(strip.main.opened, QStringList(QStringLiteral("http://gamma/")));
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
