#include "support/DocumentFixture.h"

#include "blocking/PopupKiller.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString kPanel = u"Item4"_s;

/// A killer as it is delivered.
void switchOn(DocumentFixture &f)
{
    f.settings.PopupKillerEnable = f.settings.PopupCtrlEnable = f.settings.PopupPlaySound = true;
    f.settings.PopupSoundFile = u"popup.wav"_s;
    f.statusBar.setPanelIcon(kPanel, kPopupKillerOn);
}

/// A request for a window; true when it was refused.
bool isKilled(frmDocument &document)
{
    engine::WebBrowser *ppDisp = nullptr;
    bool cancel = false;
    document.WebBro_NewWindow2(ppDisp, cancel);
    return cancel && !ppDisp;
}

} // namespace

/// Windows and sites that a document refuses.
class tst_WindowsAndSites : public QObject
{
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(DocumentFixture::anyWarning()); }

    void windows_data()
    {
        QTest::addColumn<QString>("state");
        QTest::addColumn<bool>("killed");
        QTest::newRow("at rest") << QString() << false;
        QTest::newRow("loading") << u"loading"_s << true;
        QTest::newRow("load has ended") << u"loading ended"_s << false;
        QTest::newRow("loading, clicked") << u"loading clicked"_s << false;
        QTest::newRow("loading, Alt") << u"loading Alt"_s << false;
        QTest::newRow("loading, Alt without effect") << u"loading Alt noAlt"_s << true;
        QTest::newRow("killer off") << u"loading off"_s << false;
        QTest::newRow("closing") << u"closing"_s << true;
        QTest::newRow("click before the navigation") << u"clicked loading"_s << false;
    }

    void windows()
    {
        QFETCH(const QString, state);
        QFETCH(const bool, killed);
        DocumentFixture f;
        switchOn(f);
        frmDocument &document = f.open(u"http://a/"_s);
        ScriptedBrowser &browser = f.lastBrowser();
        f.settings.PopupKillerEnable = !state.contains(u"off");
        f.settings.PopupCtrlEnable = !state.contains(u"noAlt");
        f.flags.AltDown = state.contains(u"Alt");
        browser.clicks = state.contains(u"clicked") ? 1 : 0;
        if (state.contains(u"loading"))
            browser.beforeNavigate(u"http://a/2"_s);
        if (state.contains(u"ended"))
            browser.events().WebBro_ProgressChange(0, 0);
        const int before = f.count();
        browser.calls.clear();
        if (state == u"closing")
            document.Unload();

        QCOMPARE(isKilled(document), killed);
        QCOMPARE(f.sound.played, killed ? QStringList{u"popup.wav"_s} : QStringList());
        QCOMPARE(f.disorder(), QString());
        if (state == u"closing")
            return;
        QCOMPARE(f.count(), before + (killed ? 0 : 1));
        QCOMPARE(document.tmrKillPopup.Enabled(), killed);
        QCOMPARE(browser.calls, killed ? QStringList{u"Silent True"_s} : QStringList());
        // The next request of the same click is one too many, whatever became of this one.
        QCOMPARE(browser.clicks, 0);
        QCOMPARE(isKilled(document), killed || state.contains(u"clicked"));
    }

    void silenceAfterAKill()
    {
        DocumentFixture f;
        switchOn(f);
        f.settings.SuppressScriptErrors = true;
        f.settings.PopupPlaySound = false;
        frmDocument &document = f.open(u"http://a/"_s);
        ScriptedBrowser &browser = f.lastBrowser();
        browser.beforeNavigate(u"http://a/"_s);
        QVERIFY(isKilled(document));
        QVERIFY(browser.silent && document.tmrSilent.Enabled());
        QCOMPARE(f.sound.played, QStringList());
        // It ends the same for everybody; the choice of the user is taken up at the next activation.
        QTRY_VERIFY(!browser.silent && !document.tmrSilent.Enabled());
        f.open(u"http://b/"_s);
        f.mdi.activateForm(&document);
        QVERIFY(browser.silent);
    }

    void blink_data()
    {
        QTest::addColumn<QString>("during"); // what happens at the third tick
        QTest::addColumn<QList<int>>("icons");
        QTest::newRow("whole") << QString() << QList<int>{5, 3, 5, 3, 5, 3};
        QTest::newRow("second kill") << u"kill"_s << QList<int>{5, 3, 5, 3, 5, 3, 5, 3, 3};
        QTest::newRow("switched off") << u"off"_s << QList<int>{5, 3, 5, 5, 3, 1};
        QTest::newRow("closed") << u"close"_s << QList<int>{5, 3, 5};
    }

    void blink()
    {
        QFETCH(const QString, during);
        QFETCH(const QList<int>, icons);
        DocumentFixture f;
        switchOn(f);
        frmDocument &document = f.open(u"http://a/"_s);
        document.tmrKillPopup.setInterval(1);
        f.lastBrowser().beforeNavigate(u"http://a/"_s);
        QVERIFY(isKilled(document));
        QList<int> seen;
        connect(&document.tmrKillPopup, &QTimer::timeout, this, [&] {
            seen += f.statusBar.PanelIcon(kPanel);
            if (seen.size() != 3)
                return;
            if (during == u"kill") {
                QVERIFY(isKilled(document));
            } else if (during == u"off") {
                f.settings.PopupKillerEnable = false;
                f.statusBar.setPanelIcon(kPanel, kPopupKillerOff);
            } else if (during == u"close") {
                document.Unload();
            }
        });
        QTRY_VERIFY(!document.tmrKillPopup.Enabled());
        QCOMPARE(seen, icons);
        if (during != u"close")
            QCOMPARE(document.tmrKillPopup.Tag(), u"0"_s);
        DocumentFixture::deleteClosed();
        QCOMPARE(f.statusBar.PanelIcon(kPanel), icons.last());
    }

    void sites_data()
    {
        QTest::addColumn<QString>("how");
        QTest::addColumn<bool>("refused");
        QTest::newRow("first address") << QString() << true;
        QTest::newRow("killer off") << u"off"_s << false;
        QTest::newRow("second address") << u"second"_s << false;
        QTest::newRow("window of a page") << u"window"_s << true;
        QTest::newRow("not listed") << u"other"_s << false;
    }

    void sites()
    {
        QFETCH(const QString, how);
        QFETCH(const bool, refused);
        DocumentFixture f;
        switchOn(f);
        f.settings.PopupKillerEnable = how != u"off";
        f.settings.BlackList += {u"HTTP://b/"_s, u"ads."_s};
        f.settings.BlackListCount = 2;
        f.open(u"http://a/"_s);
        if (how == u"window" || how == u"second")
            f.lastBrowser().load(u"http://a/"_s, u"A"_s);
        if (how == u"window")
            QVERIFY(!isKilled(f.document(1)));
        const int position = f.count();
        frmDocument &document = f.document(position);
        f.addressBar.setText(u"before"_s);
        f.lastBrowser().calls.clear();
        f.settings.EnableImages = false;

        const QString url = how == u"other" ? u"http://a.ds/"_s : u"http://www.ADS.example/"_s;
        QCOMPARE(f.lastBrowser().beforeNavigate(url), refused);
        QCOMPARE(document.isLoading(), !refused);
        QCOMPARE(f.addressBar.Text(), refused ? u"before"_s : url);
        QCOMPARE(f.lastBrowser().calls.size(), refused ? 0 : 1); // the new download control value
        QCOMPARE(document.tmrKillWindow.Enabled(), refused);
        QVERIFY(f.sound.played.isEmpty());
        if (!refused)
            return;
        // Whatever it tries until it is closed is refused as well.
        QVERIFY(f.lastBrowser().beforeNavigate(url));
        QTRY_COMPARE(f.count(), position - 1);
        QCOMPARE(f.sound.played, QStringList{u"popup.wav"_s});
        QCOMPARE(f.statusBar.PanelIcon(kPanel), kPopupKillerOn);
        QCOMPARE(f.disorder(), QString());
        DocumentFixture::deleteClosed();
        QCOMPARE(f.main.ActiveForm() != nullptr, how == u"window");
    }

    void flashCommandOfARefusedSite()
    {
        // The command is carried out also where its address is refused, and an address that is only the command keeps
        // nothing open that the list does not want.
        DocumentFixture f;
        switchOn(f);
        f.settings.BlackList += u"b"_s;
        f.settings.BlackListCount = 1;
        f.open(u"http://b/"_s);
        QVERIFY(f.lastBrowser().beforeNavigate(u"http://b/EnableFlash"_s));
        QVERIFY(f.main.calls.contains(u"mnuContentFlash"_s));
        QTRY_COMPARE(f.count(), 0);
    }
};

QTEST_MAIN(tst_WindowsAndSites)
#include "tst_windowsandsites.moc"
