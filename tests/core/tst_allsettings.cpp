#include "MainFixture.h"

#include "core/state/SettingsTable.h"

#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *kSections[] = {"General", "History", "Sites",   "Sidebar", "CustomLinks",
                                     "Skins",   "Control", "Content", "Forms",   "Popup"};

/// Gives each key a value of its own, the flags one of two: two keys on one value would show in one of the turns.
QHash<QString, QString> valuesOfTurn(int turn)
{
    QHash<QString, QString> values;
    int n = turn;
    for (const char *section : kSections) {
        for (const SettingKey &key : settingKeys(section)) {
            const QString name = QString::fromLatin1(key.key);
            values[name] = std::holds_alternative<bool Settings::*>(key.field) ? fromBoolean(n % 2 == 0)
                                                                               : QString::number(1000 + n);
            ++n;
        }
    }

    values[u"CustomLinksCount"_s] = u"2"_s;
    return values;
}

QString sectionOf(const SettingKey &key)
{
    return QString::fromLatin1(key.section);
}

QString nameOf(const SettingKey &key)
{
    return QString::fromLatin1(key.key);
}

} // namespace

/// What a start reads into the window and its values, and what a close writes.
class tst_AllSettings : public QObject
{
    Q_OBJECT
private slots:
    void init() { QTest::failOnWarning(DocumentFixture::anyWarning()); }

    void everyKeyComesBack_data()
    {
        QTest::addColumn<int>("turn");
        QTest::newRow("even") << 0;
        QTest::newRow("odd") << 1;
    }

    void everyKeyComesBack()
    {
        QFETCH(const int, turn);
        const QHash<QString, QString> values = valuesOfTurn(turn);
        MainFixture f;
        f.seedQuietStart();
        for (const char *section : kSections)
            for (const SettingKey &key : settingKeys(section))
                f.set(sectionOf(key), nameOf(key), values[nameOf(key)]);
        f.set(u"CustomLinks", u"CustomLinksName2", u"second");
        f.set(u"CustomLinks", u"CustomLinksURL2", u"http://second.example/");
        QVERIFY(f.start());
        QCOMPARE(f.settings().CustomLinks.Names[2], u"second"_s);
        const auto isMarked = [&](const QString &key) {
            return f.main().m_cMenu->Checked(f.main().m_cMenu->IndexForKey(key));
        };
        QCOMPARE(isMarked(u"mnuContentImage"_s), f.settings().EnableImages);
        QCOMPARE(isMarked(u"mnuContentSuppressErrors"_s), f.settings().SuppressErrors);
        QCOMPARE(isMarked(u"mnuContentAutoFill"_s), f.settings().AutoFormFill);
        QCOMPARE(f.main().vbalStatusBar1->PanelIcon(u"Item4"_s), f.settings().PopupKillerEnable ? 3 : 1);

        // Whatever stands in the store now is written over by the values in memory.
        for (const char *section : kSections)
            for (const SettingKey &key : settingKeys(section))
                f.set(sectionOf(key), nameOf(key), u"overwritten");
        f.set(u"CustomLinks", u"CustomLinksURL2", u"overwritten");
        // The skin of the next run is what is stored, not the one of this run.
        f.main().g_sNextSkin = u"next"_s;
        f.close();
        for (const char *section : kSections) {
            for (const SettingKey &key : settingKeys(section)) {
                const QString expected = nameOf(key) == u"CurrentSkin"_s ? u"next"_s : values[nameOf(key)];
                QVERIFY2(f.get(sectionOf(key), nameOf(key)) == expected, key.key);
            }
        }
        QCOMPARE(f.get(u"CustomLinks", u"CustomLinksURL2"), u"http://second.example/"_s);
    }

    void emptyStoreGivesTheDefaults()
    {
        MainFixture f;
        QVERIFY(f.start());
        QVERIFY(f.main().isMaximized());
        QCOMPARE(f.main().normalGeometry().size(), QSize(433, 433));
        QVERIFY(f.main().navigator->isHidden());
        QVERIFY(!f.main().goNew->isChecked());
        QCOMPARE(f.main().vbalStatusBar1->PanelIcon(u"Item4"_s), 3);
        QCOMPARE(f.tray.tip, u"Corvane v2.0.0025"_s);
        f.close();
        for (const char *section : kSections)
            for (const SettingKey &key : settingKeys(section))
                if (nameOf(key) != u"QNColor"_s) // stored as decimal digits
                    QVERIFY2(f.get(sectionOf(key), nameOf(key)) == defaultOf(key, f.paths), key.key);
        QCOMPARE(f.get(u"Sidebar", u"QNColor"), QString::number(0xFF6666));
        QCOMPARE(f.get(u"Settings", u"MainMaximized"), u"True"_s);
    }

    void corruptValuesGiveNothing()
    {
        MainFixture f;
        for (const char *section : kSections)
            for (const SettingKey &key : settingKeys(section))
                f.set(sectionOf(key), nameOf(key), u"12 monkeys");
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
        QVERIFY(f.main().vbalStatusBar1->isHidden());
        QVERIFY(!f.main().m_cMenu->Checked(f.main().m_cMenu->IndexForKey(u"mnuViewStatusBar"_s)));
        QVERIFY(f.main().isVisible());
    }

    void windowKeysComeBack()
    {
        MainFixture f;
        const QList<std::pair<QString, QString>> values{{u"MainLeft"_s, u"1500"_s},
                                                        {u"MainTop"_s, u"900"_s},
                                                        {u"MainWidth"_s, u"9000"_s},
                                                        {u"MainHeight"_s, u"7500"_s},
                                                        {u"MainMaximized"_s, u"False"_s},
                                                        {u"NavigatorLeft"_s, u"3000"_s},
                                                        {u"NavigatorTop"_s, u"1500"_s},
                                                        {u"NavigatorWidth"_s, u"6000"_s},
                                                        {u"NavigatorVisible"_s, u"True"_s},
                                                        {u"BrowseToolbarVisible"_s, u"False"_s},
                                                        {u"TabsBarVisible"_s, u"False"_s},
                                                        {u"SitesToolbarVisible"_s, u"True"_s},
                                                        {u"GoNew"_s, u"True"_s},
                                                        {u"StatusBarVisible"_s, u"False"_s},
                                                        {u"AddressBarVisible"_s, u"True"_s}};
        f.seedQuietStart();
        for (const auto &[key, value] : values)
            f.set(u"Settings", key, value);
        QVERIFY(f.start());
        QCOMPARE(f.main().pos(), QPoint(100, 60));
        QCOMPARE(f.main().size(), QSize(600, 500));
        const auto checked = [&](QStringView key) {
            return f.main().m_cMenu->Checked(f.main().m_cMenu->IndexForKey(key.toString()));
        };
        QVERIFY(checked(u"mnuViewNavigator") && checked(u"mnuViewAddressBar"));
        QVERIFY(!checked(u"mnuViewTabsBar") && !checked(u"mnuViewStatusBar"));
        for (const auto &[key, value] : values)
            f.set(u"Settings", key, u"overwritten");
        f.close();
        for (const auto &[key, value] : values)
            QVERIFY2(f.get(u"Settings", key) == value, qPrintable(key + u": "_s + f.get(u"Settings", key)));
    }

    void addressListKeepsItsLowestEntries_data()
    {
        QTest::addColumn<int>("entries");
        QTest::addColumn<int>("empty");
        QTest::addColumn<int>("kept");
        QTest::newRow("none") << 0 << -1 << 0;
        QTest::newRow("50") << 50 << -1 << 50;
        QTest::newRow("51") << 51 << -1 << 51;
        QTest::newRow("60") << 60 << -1 << 51;
        QTest::newRow("an empty one does not count") << 52 << 30 << 51;
    }

    void addressListKeepsItsLowestEntries()
    {
        QFETCH(const int, entries);
        QFETCH(const int, empty);
        QFETCH(const int, kept);
        MainFixture f;
        f.seedQuietStart();
        QVERIFY(f.start());
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
};

QTEST_MAIN(tst_AllSettings)
#include "tst_allsettings.moc"
