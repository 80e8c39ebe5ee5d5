#include "MainFixture.h"

#include "core/state/SettingsTable.h"

#include <QToolButton>

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

/// What a start reads into the window and its values, and what a close writes.
class tst_AllSettings : public QObject
{
    Q_OBJECT
private slots:
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

QTEST_MAIN(tst_AllSettings)
#include "tst_allsettings.moc"
