#include "support/DocumentFixture.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// Windows and sites that a document refuses. The words of a row are what holds when it has to decide.
class tst_WindowsAndSites : public QObject
{
    Q_OBJECT

private slots:
    void windows_data() { rows({"loading", "closing"}, {"at rest", "loading ended", "loading clicked"}); }

    void windows()
    {
        QFETCH(const bool, refused);
        const QByteArray state = QTest::currentDataTag();
        DocumentFixture f;
        frmDocument &document = openWithKiller(f);
        ScriptedBrowser &browser = f.lastBrowser();
        document.tmrSilent.setInterval(1);
        browser.clicks = state.contains("clicked") ? 1 : 0;
        if (state.contains("loading"))
            browser.beforeNavigate(u"http://a/2"_s);
        if (state.contains("ended"))
            browser.events().WebBro_ProgressChange(0, 0);
        browser.calls.clear();
        if (state == "closing")
            document.Unload();
        const int before = f.count();

        QCOMPARE(isKilled(document), refused);
        QCOMPARE(f.sound.played, refused ? QStringList{u"popup.wav"_s} : QStringList());
        QCOMPARE(f.count(), before + !refused);
        QCOMPARE(f.disorder(), QString());
        if (state == "closing")
            return;
        // The next request of the same click is one too many, whatever became of this one.
        QCOMPARE(isKilled(document), refused || state.contains("clicked"));
        // The silence after a refusal ends the same whatever the settings say.
        QCOMPARE(browser.silent, refused || state.contains("clicked"));
        f.settings.SuppressScriptErrors = true;
        QTRY_VERIFY(!browser.silent && !document.tmrSilent.Enabled());
    }

    void blink_data()
    {
        QTest::addColumn<QList<int>>("icons");
        // What happens at the third tick.
        QTest::newRow("nothing") << QList<int>{5, 3, 5, 3, 5, 3};
        QTest::newRow("second kill") << QList<int>{5, 3, 5, 3, 5, 3, 5, 3, 3};
        QTest::newRow("switched off") << QList<int>{5, 3, 5, 5, 3, 1};
        QTest::newRow("closed") << QList<int>{5, 3, 5};
    }

    void blink()
    {
        QFETCH(const QList<int>, icons);
        const QByteArray during = QTest::currentDataTag();
        DocumentFixture f;
        frmDocument &document = openWithKiller(f);
        document.tmrKillPopup.setInterval(1);
        f.lastBrowser().beforeNavigate(u"http://a/"_s);
        QVERIFY(isKilled(document));
        QList<int> seen;
        connect(&document.tmrKillPopup, &QTimer::timeout, this, [&] {
            seen += f.statusBar.PanelIcon(u"Item4"_s);
            if (seen.size() != 3)
                return;
            if (during == "second kill")
                QVERIFY(isKilled(document));
            if (during == "closed")
                document.Unload();
            f.settings.PopupKillerEnable = during != "switched off";
            if (during == "switched off")
                f.statusBar.setPanelIcon(u"Item4"_s, 1);
        });
        const QPointer<frmDocument> alive(&document);
        QTRY_VERIFY(!alive || !alive->tmrKillPopup.Enabled());
        DocumentFixture::deleteClosed();
        QCOMPARE(seen, icons);
        QCOMPARE(f.statusBar.PanelIcon(u"Item4"_s), icons.last());
    }

    void sites_data() { rows({"first address", "window of a page"}, {"killer off", "second address"}); }

    void sites()
    {
        QFETCH(const bool, refused);
        const QByteArray how = QTest::currentDataTag();
        DocumentFixture f;
        openWithKiller(f);
        f.settings.PopupKillerEnable = how != "killer off";
        f.settings.BlackList += {u"HTTP://b/"_s, u"ads."_s};
        f.settings.BlackListCount = 2;
        if (how != "first address")
            f.lastBrowser().load(u"http://a/"_s, u"A"_s);
        if (how == "window of a page")
            QVERIFY(!isKilled(f.document(1)));
        const int position = f.count();
        f.addressBar.setText(u"before"_s);

        // The command in the address is carried out where the address itself is refused, too.
        const QString url = u"http://www.ADS.example/EnableFlash"_s;
        QVERIFY(f.lastBrowser().beforeNavigate(url));
        QVERIFY(f.main.calls.contains(u"mnuContentFlash"_s));
        QCOMPARE(f.document(position).isLoading(), !refused);
        QCOMPARE(f.addressBar.Text(), refused ? u"before"_s : url);
        QTRY_COMPARE(f.count(), position - refused);
        QCOMPARE(f.sound.played, refused ? QStringList{u"popup.wav"_s} : QStringList());
    }

private:
    static void rows(const QList<const char *> &refused, const QList<const char *> &accepted)
    {
        QTest::addColumn<bool>("refused");
        for (const char *name : refused)
            QTest::newRow(name) << true;
        for (const char *name : accepted)
            QTest::newRow(name) << false;
    }

    /// A document, and the killer as it is delivered.
    static frmDocument &openWithKiller(DocumentFixture &f)
    {
        f.settings.PopupKillerEnable = f.settings.PopupCtrlEnable = f.settings.PopupPlaySound = true;
        f.settings.PopupSoundFile = u"popup.wav"_s;
        f.statusBar.setPanelIcon(u"Item4"_s, 3);
        return f.open(u"http://a/"_s);
    }

    /// A request for a window; true when it was refused.
    static bool isKilled(frmDocument &document)
    {
        engine::WebBrowser *ppDisp = nullptr;
        bool cancel = false;
        document.WebBro_NewWindow2(ppDisp, cancel);
        return cancel && !ppDisp;
    }
};

QTEST_MAIN(tst_WindowsAndSites)
#include "tst_windowsandsites.moc"
