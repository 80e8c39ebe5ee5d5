#include "support/DocumentFixture.h"

#include "controls/PageBox.h"

#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

/// What each event of a browser does to the tab, the Navigator's line, the title and the shared controls, and which
/// windows and sites are refused. The words of a row of these are what holds when it has to decide.
class tst_BrowserEvents : public QObject
{
    Q_OBJECT

private slots:
    void progress()
    {
        // What is reported, the status, and the icon of a normal tab that showed 10 before.
        const std::initializer_list<std::tuple<int, int, QString, int>> cases{
            {0, 100, u"0%"_s, 0},
            {25, 100, u"25%"_s, 2},
            {1, 2, u"50%"_s, 4},
            {75, 100, u"75%"_s, 6},
            {7, 7, u"100%"_s, 10},               // 100 leaves the icon
            {101, 100, QString(), 10},           // more than all
            {1, 0, QString(), 10},               // more than nothing
            {21474836, 21474836, u"100%"_s, 10}, // largest product
            {21474837, 21474837, u"0%"_s, 0},    // overflow
            {INT_MIN, -1, u"0%"_s, 0}};
        for (const auto &[now, maximum, status, icon] : cases) {
            DocumentFixture f;
            frmDocument &document = f.open(u"a"_s);
            for (const bool shrunk : {false, true}) {
                f.tab(1).setTag(shrunk ? u"1"_s : QString());
                f.tab(1).setIconIndex(shrunk ? 11 : 10);
                f.lastBrowser().events().WebBro_ProgressChange(now, maximum);
                QCOMPARE(f.tab(1).IconIndex(), icon + shrunk);
            }
            QCOMPARE(f.status(1), status);
            QCOMPARE(document.isLoading(), !status.isEmpty());
            QCOMPARE(f.navigator.tmrLoading.Enabled(), !status.isEmpty());
            QCOMPARE(f.statusBar.Tag() + u'%', status.isEmpty() ? u"0%"_s : status);
        }
    }

    void endOfALoad()
    {
        DocumentFixture f;
        frmDocument &behind = f.open(u"http://behind/"_s);
        frmDocument &active = f.open(u"http://a/"_s);
        f.tab(1).setTag(u"1"_s);
        f.settings.SaveDocumentOnExit = true;
        f.main.calls.clear();
        DocumentFixture::browserOf(behind).events().WebBro_ProgressChange(10, 100);
        f.lastBrowser().load(u"http://a/2"_s, u"Title"_s);
        QCOMPARE(f.status(2), u"Completed"_s);
        QCOMPARE(f.tab(2).IconIndex(), 8);
        QVERIFY(!active.isLoading() && behind.isLoading() && !active.Highlight.Enabled());
        QCOMPARE(f.main.calls, QStringList{u"SaveAllDocuments"_s});
        // The other one still loads, and yet the animation rests until its next progress.
        QVERIFY(!f.navigator.tmrLoading.Enabled());
        QCOMPARE(f.navigator.Caption(), u"Navigator"_s);

        // In the background nothing but the own tab and line moves.
        f.settings.SaveDocumentOnExit = false;
        f.statusBar.setTag(u"77"_s);
        DocumentFixture::browserOf(behind).load(u"http://behind/2"_s, u"Behind"_s);
        QCOMPARE(f.statusBar.Tag(), u"77"_s);
        QCOMPARE(f.addressBar.Text(), u"http://a/2"_s);
        QCOMPARE(f.status(1), u"Completed"_s);
        QCOMPARE(f.tab(1).IconIndex(), 9);
        QVERIFY(behind.Highlight.Enabled());
        QCOMPARE(f.main.calls.size(), 1);
    }

    void flashOfABackgroundTab()
    {
        // To its end, opened in the dark and in the light phase, a new load.
        const std::initializer_list<std::pair<int, QList<int>>> cases{
            {99, {10, 8, 10, 8, 10, 8, 10, 8}}, {1, {10, 8}}, {2, {10, 8, 8}}, {99, QList<int>(8, 4)}};
        for (const auto &[activatedAfter, icons] : cases) {
            const int last = activatedAfter;
            DocumentFixture f;
            frmDocument &a = f.open(u"a"_s);
            f.open(u"b"_s);
            DocumentFixture::browserOf(a).load(u"a"_s, u"A"_s);
            if (icons.contains(4))
                DocumentFixture::browserOf(a).events().WebBro_ProgressChange(60, 100);
            a.Highlight.setInterval(1);
            QList<int> seen;
            connect(&a.Highlight, &QTimer::timeout, this, [&] {
                seen += f.tab(1).IconIndex();
                if (seen.size() == last)
                    f.mdi.activateForm(&a);
            });
            QTRY_VERIFY(!a.Highlight.Enabled());
            QCOMPARE(seen, icons);
        }
    }

    void titles()
    {
        const QString fifty(50, u'x');
        const QString pair = u"xx\U0001F600"_s;
        const std::initializer_list<std::tuple<QString, QString, QString>> cases{
            {u"ab"_s, u"ab"_s, u"ab"_s},                                // short
            {fifty, fifty, u"xxx"_s},                                   // 50 characters
            {fifty + u'y', fifty + u"..."_s, u"xxx"_s},                 // 51 characters
            {pair + fifty, pair + fifty.left(46) + u"..."_s, u"xx"_s}}; // no half characters
        for (const auto &[title, caption, shrunk] : cases) {
            DocumentFixture f;
            frmDocument &document = f.open(u"a"_s);
            f.tab(1).setIconIndex(9);
            f.lastBrowser().events().WebBro_TitleChange(title);
            QCOMPARE(document.Caption(), title);
            QCOMPARE(f.line(1).Text(), title);
            QCOMPARE(f.tab(1).Caption(), caption);
            f.tab(1).setTag(u"1"_s);
            f.lastBrowser().events().WebBro_TitleChange(title);
            QCOMPARE(f.tab(1).Caption(), shrunk);
            QCOMPARE(f.tab(1).IconIndex(), 9);
            QCOMPARE(f.tab(1).ToolTipText(), title);
        }
    }

    void addressBarText()
    {
        for (const auto &[active, typing] : {std::pair{true, false}, {false, false}, {true, true}}) {
            DocumentFixture f;
            frmDocument &document = f.open(u"http://a/"_s);
            if (!active)
                f.open(u"http://b/"_s);
            ScriptedBrowser &browser = DocumentFixture::browserOf(document);
            f.main.focusInAddressBar = typing;
            const bool isShown = active && !typing;
            const auto shows = [&](const QString &address) {
                return f.addressBar.Text() == (isShown ? address : u"before"_s);
            };
            f.addressBar.setText(u"before"_s);
            QVERIFY(!browser.beforeNavigate(u"http://frame/"_s));
            QVERIFY(shows(u"http://frame/"_s) && document.isLoading());
            f.addressBar.setText(u"before"_s);
            browser.events().WebBro_ProgressChange(0, 0);
            QVERIFY(shows(u"http://a/"_s));
            f.addressBar.setText(u"before"_s);
            browser.address = u"http://a/#jump"_s;
            browser.events().WebBro_LocationChange(browser.address);
            QVERIFY(shows(u"http://a/#jump"_s) && !document.isLoading());
        }
    }

    void pageMessages()
    {
        for (const bool isQuestion : {false, true}) {
            DocumentFixture f;
            frmDocument &document = f.open(u"a"_s);
            QList<bool> answers;
            const auto ask = [&] {
                engine::PageMessage message; // without a text, as alert() may be
                message.buttons = isQuestion ? engine::MessageButtons::OkCancel : engine::MessageButtons::Ok;
                message.reply = [&, browser = QPointer(&f.lastBrowser())](bool accepted, const QString &) {
                    answers += accepted;
                    QVERIFY(browser);
                };
                document.WBMessages_ShowMessage(message);
            };
            f.settings.SuppressErrors = true;
            ask();
            QCOMPARE(answers, QList<bool>{!isQuestion});
            QVERIFY(!document.findChild<controls::PageBox *>());

            f.settings.SuppressErrors = false;
            ask();
            const QList<QPushButton *> choices =
                document.findChild<controls::PageBox *>()->findChildren<QPushButton *>();
            QCOMPARE(choices.size(), isQuestion ? 2 : 1);
            for (QPushButton *choice : choices)
                if (choice->text() == u"&OK")
                    choice->click();
            QCOMPARE(answers, (QList<bool>{!isQuestion, true}));

            // A question that is still open when its document closes is a refusal, in time for the browser.
            ask();
            document.Unload();
            DocumentFixture::deleteClosed();
            QCOMPARE(answers, (QList<bool>{!isQuestion, true, false}));
        }
    }

    void windows()
    {
        for (const QByteArray state : {"loading", "closing", "at rest", "loading ended", "loading clicked"}) {
            const bool refused = state == "loading" || state == "closing";
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
                continue;
            // The next request of the same click is one too many, whatever became of this one.
            QCOMPARE(isKilled(document), refused || state.contains("clicked"));
            // The silence after a refusal ends the same whatever the settings say.
            QCOMPARE(browser.silent, refused || state.contains("clicked"));
            f.settings.SuppressScriptErrors = true;
            QTRY_VERIFY(!browser.silent && !document.tmrSilent.Enabled());
        }
    }

    void blink()
    {
        // What happens at the third tick.
        const std::initializer_list<std::pair<QByteArray, QList<int>>> cases{
            {"nothing", {5, 3, 5, 3, 5, 3}},
            {"second kill", {5, 3, 5, 3, 5, 3, 5, 3, 3}},
            {"switched off", {5, 3, 5, 5, 3, 1}},
            {"closed", {5, 3, 5}}};
        for (const auto &[what, icons] : cases) {
            const QByteArray during = what;
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
    }

    void sites()
    {
        for (const QByteArray how : {"first address", "window of a page", "killer off", "second address"}) {
            const bool refused = how == "first address" || how == "window of a page";
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
            // What is refused was no first address: the next one is looked at again, until the document closes.
            QCOMPARE(f.lastBrowser().beforeNavigate(u"http://b/"_s), refused);
            QTRY_COMPARE(f.count(), position - refused);
            QCOMPARE(f.sound.played, refused ? QStringList{u"popup.wav"_s} : QStringList());
        }
    }

private:
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

QTEST_MAIN(tst_BrowserEvents)
#include "tst_browserevents.moc"
