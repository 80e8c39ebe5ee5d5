#include "support/DocumentFixture.h"

#include "controls/PageBox.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

/// What each event of a browser does to the tab, the Navigator's line, the title and the shared controls.
class tst_BrowserEvents : public QObject
{
    Q_OBJECT
private slots:
    void init() { QTest::failOnWarning(DocumentFixture::anyWarning()); }

    void progress_data();
    void progress();
    void endOfALoad();
    void flashOfABackgroundTab_data();
    void flashOfABackgroundTab();
    void titles_data();
    void titles();
    void addressBarText_data();
    void addressBarText();
    void flashAddressIsACommand_data();
    void flashAddressIsACommand();
    void pageMessages_data();
    void pageMessages();
};

void tst_BrowserEvents::progress_data()
{
    QTest::addColumn<int>("now");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<QString>("status");
    QTest::addColumn<int>("icon"); // of a normal tab that showed 10 before
    QTest::newRow("begin") << 0 << 100 << u"0%"_s << 0;
    QTest::newRow("24") << 24 << 100 << u"24%"_s << 0;
    QTest::newRow("25") << 25 << 100 << u"25%"_s << 2;
    QTest::newRow("50") << 1 << 2 << u"50%"_s << 4;
    QTest::newRow("75") << 75 << 100 << u"75%"_s << 6;
    QTest::newRow("99") << 9999 << 10000 << u"99%"_s << 6;
    QTest::newRow("100 leaves the icon") << 7 << 7 << u"100%"_s << 10;
    QTest::newRow("-1 is 100") << -1 << 3 << u"100%"_s << 10;
    QTest::newRow("more than all") << 101 << 100 << QString() << 10;
    QTest::newRow("more than nothing") << 1 << 0 << QString() << 10;
    QTest::newRow("largest product") << 21474836 << 21474836 << u"100%"_s << 10;
    QTest::newRow("overflow") << 21474837 << 21474837 << u"0%"_s << 0;
    QTest::newRow("overflow of the largest") << INT_MAX << INT_MAX << u"0%"_s << 0;
    QTest::newRow("both most negative") << INT_MIN << -1 << u"0%"_s << 0;
}

void tst_BrowserEvents::progress()
{
    QFETCH(const int, now);
    QFETCH(const int, maximum);
    QFETCH(const QString, status);
    QFETCH(const int, icon);
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

void tst_BrowserEvents::endOfALoad()
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
    QVERIFY(!active.isLoading() && behind.isLoading());
    QVERIFY(!active.Highlight.Enabled());
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

void tst_BrowserEvents::flashOfABackgroundTab_data()
{
    QTest::addColumn<bool>("shrunk");
    QTest::addColumn<int>("activatedAfter");
    QTest::addColumn<QList<int>>("icons");
    QTest::newRow("normal") << false << 99 << QList<int>{10, 8, 10, 8, 10, 8, 10, 8};
    QTest::newRow("shrunk") << true << 99 << QList<int>{11, 9, 11, 9, 11, 9, 11, 9};
    QTest::newRow("opened in the dark phase") << false << 1 << QList<int>{10, 8};
    QTest::newRow("opened in the light phase") << true << 2 << QList<int>{11, 9, 9};
    QTest::newRow("new load") << false << 99 << QList<int>(8, 4);
}

void tst_BrowserEvents::flashOfABackgroundTab()
{
    QFETCH(const bool, shrunk);
    QFETCH(const int, activatedAfter);
    QFETCH(const QList<int>, icons);
    DocumentFixture f;
    frmDocument &a = f.open(u"a"_s);
    f.open(u"b"_s);
    f.tab(1).setTag(shrunk ? u"1"_s : QString());
    DocumentFixture::browserOf(a).load(u"a"_s, u"A"_s);
    if (icons.contains(4))
        DocumentFixture::browserOf(a).events().WebBro_ProgressChange(60, 100);
    a.Highlight.setInterval(1);
    QList<int> seen;
    connect(&a.Highlight, &QTimer::timeout, this, [&] {
        seen += f.tab(1).IconIndex();
        if (seen.size() == activatedAfter)
            f.mdi.activateForm(&a);
    });
    QTRY_VERIFY(!a.Highlight.Enabled());
    QCOMPARE(seen, icons);
    QCOMPARE(a.Highlight.Tag(), u"0"_s);
}

void tst_BrowserEvents::titles_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("shrunk");
    const QString fifty(50, u'x');
    QTest::newRow("empty") << QString() << QString() << QString();
    QTest::newRow("short") << u"ab"_s << u"ab"_s << u"ab"_s;
    QTest::newRow("50 characters") << fifty << fifty << u"xxx"_s;
    QTest::newRow("51 characters") << fifty + u'y' << fifty + u"..."_s << u"xxx"_s;
    QTest::newRow("1 MB") << QString(1 << 20, u'x') << fifty + u"..."_s << u"xxx"_s;
    const QString pair = u"xx\U0001F600"_s;
    QTest::newRow("no half characters") << pair + fifty << pair + fifty.left(46) + u"..."_s << u"xx"_s;
}

void tst_BrowserEvents::titles()
{
    QFETCH(const QString, title);
    QFETCH(const QString, caption);
    QFETCH(const QString, shrunk);
    DocumentFixture f;
    frmDocument &document = f.open(u"a"_s);
    f.tab(1).setIconIndex(9);
    f.lastBrowser().events().WebBro_TitleChange(title);
    QCOMPARE(document.Caption(), title);
    QCOMPARE(f.line(1).Text(), title);
    QCOMPARE(f.tab(1).ToolTipText(), title);
    QCOMPARE(f.tab(1).Caption(), caption);
    QCOMPARE(f.tab(1).IconIndex(), 8);
    f.tab(1).setTag(u"1"_s);
    f.lastBrowser().events().WebBro_TitleChange(title);
    QCOMPARE(f.tab(1).Caption(), shrunk);
    QCOMPARE(f.tab(1).IconIndex(), 9);
    QCOMPARE(f.tab(1).ToolTipText(), title);
}

void tst_BrowserEvents::addressBarText_data()
{
    QTest::addColumn<bool>("active");
    QTest::addColumn<bool>("typing");
    QTest::newRow("active") << true << false;
    QTest::newRow("background") << false << false;
    QTest::newRow("user is typing") << true << true;
}

void tst_BrowserEvents::addressBarText()
{
    QFETCH(const bool, active);
    QFETCH(const bool, typing);
    DocumentFixture f;
    frmDocument &document = f.open(u"http://a/"_s);
    if (!active)
        f.open(u"http://b/"_s);
    ScriptedBrowser &browser = DocumentFixture::browserOf(document);
    f.main.focusInAddressBar = typing;
    const auto shows = [&](const QString &address) {
        return f.addressBar.Text() == (active && !typing ? address : u"before"_s);
    };
    f.addressBar.setText(u"before"_s);
    QVERIFY(!browser.beforeNavigate(u"http://frame/"_s));
    QVERIFY(shows(u"http://frame/"_s));
    QVERIFY(document.isLoading());
    f.addressBar.setText(u"before"_s);
    browser.events().WebBro_ProgressChange(0, 0);
    QVERIFY(shows(u"http://a/"_s));
    f.addressBar.setText(u"before"_s);
    browser.address = u"http://a/#jump"_s;
    browser.events().WebBro_LocationChange(browser.address);
    QVERIFY(shows(u"http://a/#jump"_s));
    QVERIFY(!document.isLoading());
}

void tst_BrowserEvents::flashAddressIsACommand_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<bool>("command");
    QTest::newRow("capitals") << u"corvane://flash/ENABLEFLASH"_s << true;
    QTest::newRow("any case, any site") << u"http://a/enableFlash"_s << true;
    QTest::newRow("not at the end") << u"http://a/enableflash/"_s << false;
    QTest::newRow("empty") << QString() << false;
}

void tst_BrowserEvents::flashAddressIsACommand()
{
    QFETCH(const QString, url);
    DocumentFixture f;
    frmDocument &document = f.open(u"a"_s);
    QTEST(f.lastBrowser().beforeNavigate(url), "command");
    QTEST(f.main.calls.contains(u"mnuContentFlash"_s), "command");
    QVERIFY(document.isLoading());
    QCOMPARE(f.addressBar.Text(), url);
}

void tst_BrowserEvents::pageMessages_data()
{
    QTest::addColumn<int>("buttons");
    QTest::newRow("alert") << 0;
    QTest::newRow("confirm or prompt") << 1;
}

void tst_BrowserEvents::pageMessages()
{
    QFETCH(const int, buttons);
    DocumentFixture f;
    frmDocument &document = f.open(u"a"_s);
    QList<bool> answers;
    const auto ask = [&] {
        engine::PageMessage message;
        message.Prompt = u"<b>question</b>"_s;
        message.buttons = static_cast<engine::MessageButtons>(buttons);
        message.origin = u"http://origin.example"_s;
        message.reply = [&, browser = QPointer(&f.lastBrowser())](bool accepted, const QString &) {
            answers += accepted;
            QVERIFY(browser);
        };
        document.WBMessages_ShowMessage(message);
    };
    f.settings.SuppressErrors = true;
    ask();
    QCOMPARE(answers, QList<bool>{buttons == 0});
    QVERIFY(!document.findChild<controls::PageBox *>());

    f.settings.SuppressErrors = false;
    answers.clear();
    ask();
    QVERIFY(answers.isEmpty());
    auto *box = document.findChild<controls::PageBox *>();
    QVERIFY(box && box->isVisible());
    QString texts;
    for (const QLabel *label : box->findChildren<QLabel *>())
        texts += label->text() + u'\n';
    QVERIFY2(texts.contains(u"http://origin.example") && texts.contains(u"Corvane"), qPrintable(texts));
    const QList<QPushButton *> choices = box->findChildren<QPushButton *>();
    QCOMPARE(choices.size(), buttons == 0 ? 1 : 2);
    for (QPushButton *choice : choices) {
        if (choice->text() == u"&OK")
            choice->click();
    }
    QCOMPARE(answers, QList<bool>{true});

    // A question that is still open when its document closes is a refusal, in time for the browser.
    ask();
    document.Unload();
    DocumentFixture::deleteClosed();
    QCOMPARE(answers, (QList<bool>{true, false}));
}

QTEST_MAIN(tst_BrowserEvents)
#include "tst_browserevents.moc"
