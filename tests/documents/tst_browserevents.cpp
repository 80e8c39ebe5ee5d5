#include "support/DocumentFixture.h"

#include "controls/PageBox.h"
#include "support/Rows.h"

#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

/// What each event of a browser does to the tab, the Navigator's line, the title and the shared controls.
class tst_BrowserEvents : public QObject
{
    Q_OBJECT
private slots:
    void progress_data()
    {
        // of a normal tab that showed 10 before
        rows<int, int, QString, int>({
            {"begin", {0, 100, u"0%"_s, 0}},
            {"25", {25, 100, u"25%"_s, 2}},
            {"50", {1, 2, u"50%"_s, 4}},
            {"75", {75, 100, u"75%"_s, 6}},
            {"100 leaves the icon", {7, 7, u"100%"_s, 10}},
            {"more than all", {101, 100, QString(), 10}},
            {"more than nothing", {1, 0, QString(), 10}},
            {"largest product", {21474836, 21474836, u"100%"_s, 10}},
            {"overflow", {21474837, 21474837, u"0%"_s, 0}},
            {"both most negative", {INT_MIN, -1, u"0%"_s, 0}},
        });
    }

    void progress()
    {
        const auto [now, maximum, status, icon] = row<int, int, QString, int>();
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

    void flashOfABackgroundTab_data()
    {
        rows<int, QList<int>>({
            {"to its end", {99, {10, 8, 10, 8, 10, 8, 10, 8}}},
            {"opened in the dark phase", {1, {10, 8}}},
            {"opened in the light phase", {2, {10, 8, 8}}},
            {"new load", {99, QList<int>(8, 4)}},
        });
    }

    void flashOfABackgroundTab()
    {
        const auto [activatedAfter, icons] = row<int, QList<int>>();
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
            for (QPushButton *choice : choices) {
                if (choice->text() == u"&OK")
                    choice->click();
            }
            QCOMPARE(answers, (QList<bool>{!isQuestion, true}));

            // A question that is still open when its document closes is a refusal, in time for the browser.
            ask();
            document.Unload();
            DocumentFixture::deleteClosed();
            QCOMPARE(answers, (QList<bool>{!isQuestion, true, false}));
        }
    }
};

QTEST_MAIN(tst_BrowserEvents)
#include "tst_browserevents.moc"
