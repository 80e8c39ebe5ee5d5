#include "EngineFixture.h"
#include "base/Files.h"
#include "support/Wait.h"

#include <QApplication>
#include <QDir>
#include <QLineEdit>

using namespace Qt::StringLiterals;

/// What pages want beside their text: windows, the user's acts, message boxes and downloads, and what stands in for a
/// page when something goes wrong or asks for the user.
class WebPages : public QObject
{
    Q_OBJECT

    LoopbackSite m_site;
    LoopbackSite m_secure{LoopbackSite::Security::SelfSigned};
    TestEngine m_test;

    QString at(const QString &path) const { return m_site.address(path); }
    static bool waitForBox(const RecordedBrowser &browser, std::size_t number = 1)
    {
        return waitUntil([&] { return browser.messages.size() >= number; }, 15'000);
    }

private slots:
    void init()
    {
        m_site.clearRequests();
        m_site.page("/plain", "Plain");
        m_site.page("/asks", "Asks",
                    "<script>alert('Hello & <b>you</b>\\n+1%20');"
                    "const c = confirm('Sure?'); const p = prompt('Name?', 'J\u00f6rg');"
                    "fetch('/got?' + encodeURIComponent(JSON.stringify([c, p])))</script>");
    }

    void windowKeepsItsOpenerAndMayCloseItself()
    {
        m_site.page("/opener", "Opener", "<script>open('/opened', 'named')</script>");
        m_site.page("/opened", "Opened",
                    "<script>opener.document.title = 'Touched ' + window.name;"
                    "onload = () => setTimeout(() => close())</script>");
        RecordedBrowser opened(*m_test.engine, m_site);
        RecordedBrowser opener(*m_test.engine, m_site);
        opener.takesWindow = [&] { return &*opened; };
        QVERIFY(opener.open(at(u"/opener"_s)));
        QVERIFY(opened.waitForEnd());
        WAIT_COMPARE(opener->LocationName(), u"Touched named"_s);
        QCOMPARE(opened.count(u"navigate /opened"_s), 1);
        QCOMPARE(opened->LocationURL(), at(u"/opened"_s));
        WAIT_COMPARE(opened.count(u"closing"_s), 1);
    }

    void otherWindowsStayOpenAndAlive()
    {
        m_site.page("/closing", "Closing",
                    "<script>close(); onload = () => setTimeout(() => { close(); fetch('/still-here') })</script>");
        RecordedBrowser browser(*m_test.engine, m_site);
        QVERIFY(browser.open(at(u"/closing"_s)));
        QVERIFY(m_site.waitFor("/still-here"));
        QVERIFY(browser.open(at(u"/plain"_s)));
        QCOMPARE(browser.count(u"closing"_s), 0);
    }

    void emptyWindowsAreClosed()
    {
        m_site.download("/file", "data.bin", "content");
        m_site.page("/opener", "Opener", "<script>open('/file')</script>");
        RecordedBrowser opened(*m_test.engine, m_site);
        RecordedBrowser opener(*m_test.engine, m_site);
        opener.takesWindow = [&] { return &*opened; };
        QVERIFY(opener.open(at(u"/opener"_s)));
        WAIT_COMPARE(opened.count(u"closing"_s), 1);
        QCOMPARE(opened.count(u"end"_s), 1);
    }

    void sourceTextIsTheUsersOwnWindow()
    {
        RecordedBrowser source(*m_test.engine, m_site);
        RecordedBrowser browser(*m_test.engine, m_site);
        QVERIFY(browser.open(at(u"/plain"_s)));
        int clicksSeen = 0;
        browser.takesWindow = [&] {
            clicksSeen = browser->userClicks();
            return &*source;
        };
        browser->Exec(engine::IDM_VIEWSOURCE);
        QVERIFY(source.waitForEnd());
        QVERIFY(clicksSeen > 0);
        QCOMPARE(source->LocationURL(), u"view-source:"_s + at(u"/plain"_s));
        QCOMPARE(source.count(u"closing"_s), 0);
    }

    void whatCountsAsTheUsersAct()
    {
        m_site.page("/keys", "Keys", "<input autofocus><script>onkeydown = e => fetch('/key-' + e.code)</script>");
        RecordedBrowser browser(*m_test.engine, m_site);
        QVERIFY(browser.open(at(u"/keys"_s)));
        QCOMPARE(browser->userClicks(), 0);
        browser.click();
        QVERIFY(browser->userClicks() > 0);
        browser->clearUserClicks();
        QCOMPARE(browser->userClicks(), 0);

        QWidget *page = browser->focusProxy()->focusProxy();
        QTest::keyClick(page, Qt::Key_A);
        QTest::keyClick(page, Qt::Key_Shift);
        QTest::keyClick(page, Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(browser->userClicks(), 0);
        QTest::keyClick(page, Qt::Key_Space);
        QCOMPARE(browser->userClicks(), 1);

        // A key that somebody takes away before the page gets it.
        struct Swallower : QObject
        {
            bool eventFilter(QObject *, QEvent *event) override { return event->type() == QEvent::KeyPress; }
        } swallower;
        qApp->installEventFilter(&swallower);
        QTest::keyClick(page, Qt::Key_Return);
        QCOMPARE(browser->userClicks(), 1);
    }

    void answersReachThePageAndOthersGoOn()
    {
        RecordedBrowser asking(*m_test.engine, m_site);
        RecordedBrowser other(*m_test.engine, m_site);
        asking->Navigate2(at(u"/asks"_s));
        QVERIFY(waitForBox(asking));
        QCOMPARE(asking.messages[0].Prompt, u"Hello & <b>you</b>\n+1%20"_s);
        QCOMPARE(asking.messages[0].origin, at(QString()));
        QVERIFY(asking.messages[0].buttons == engine::MessageButtons::Ok);
        // While that page waits for its user, another one loads as ever.
        QVERIFY(other.open(at(u"/plain"_s)));
        QCOMPARE(asking.messages.size(), 1u);
        QCOMPARE(m_site.count("/got"), 0);

        asking.messages[0].reply(true, {});
        QVERIFY(waitForBox(asking, 2));
        QVERIFY(asking.messages[1].buttons == engine::MessageButtons::OkCancel);
        asking.messages[1].reply(true, {});
        QVERIFY(waitForBox(asking, 3));
        QVERIFY(asking.messages[2].wantsText);
        QCOMPARE(asking.messages[2].defaultText, u"Jörg"_s);
        asking.messages[2].reply(true, u"Zoë =1"_s);
        QVERIFY(m_site.waitFor("/got"));
        QCOMPARE(QByteArray::fromPercentEncoding(m_site.requests().back().target), "/got?[true,\"Zoë =1\"]"_ba);
    }

    void refusals()
    {
        for (const bool isAsked : {true, false}) {
            m_site.clearRequests();
            RecordedBrowser browser(*m_test.engine, m_site);
            browser->setSilent(!isAsked);
            browser->Navigate2(at(u"/asks"_s));
            for (std::size_t number = 1; isAsked && number <= 3; ++number) {
                QVERIFY(waitForBox(browser, number));
                browser.messages[number - 1].reply(false, u"typed"_s);
            }
            QVERIFY(m_site.waitFor("/got"));
            QCOMPARE(QByteArray::fromPercentEncoding(m_site.requests().back().target), "/got?[false,null]"_ba);
        }
    }

    void frameOfAnotherSiteIsNamed()
    {
        m_site.page("/inner", "Inner", "<script>alert('in')</script>");
        m_site.page("/outer", "Outer",
                    "<iframe src=" + m_site.address(u"/inner"_s, u"localhost"_s).toLatin1() + "></iframe>");
        RecordedBrowser browser(*m_test.engine, m_site);
        browser->Navigate2(at(u"/outer"_s));
        QVERIFY(waitForBox(browser));
        QCOMPARE(browser.messages[0].origin, m_site.address(QString(), u"localhost"_s));
        browser.messages[0].reply(true, {});
        QVERIFY(browser.waitForEnd());
    }

    void pageThatAsksAgainAndAgainHoldsNobody()
    {
        m_site.page("/loop", "Loop", "<script>onload = () => setInterval(() => alert('again'), 1)</script>");
        RecordedBrowser browser(*m_test.engine, m_site);
        QVERIFY(browser.open(at(u"/loop"_s)));
        QVERIFY(waitForBox(browser));
        QPointer<QObject> asker = browser.messages[0].asker;
        QVERIFY(asker);
        QVERIFY(browser.open(at(u"/plain"_s)));
        QCOMPARE(browser->LocationURL(), at(u"/plain"_s));
        // The box that was open learns that nobody waits for it, and an answer does no harm.
        QVERIFY(!asker);
        browser.messages[0].reply(true, {});
        // And such a page can simply be closed.
        QVERIFY(browser.open(at(u"/loop"_s)));
        QVERIFY(waitForBox(browser, 2));
    }

    void localFilesFallBackOnPlainAlerts()
    {
        QTemporaryDir folder;
        const QString file = folder.filePath(u"alert.html"_s);
        QVERIFY(writeFileWhole(
            file,
            "<title>File</title><script>alert('from a file'); document.title = 'Went on ' + confirm('x')</script>"));
        RecordedBrowser browser(*m_test.engine, m_site);
        QVERIFY(browser.open(file));
        QCOMPARE(browser.messages.size(), 1u);
        QCOMPARE(browser.messages[0].Prompt, u"from a file"_s);
        WAIT_COMPARE(browser->LocationName(), u"Went on false"_s);
    }

    void badCertificateIsTheUsersChoice()
    {
        m_secure.page("/plain", "Secret");
        RecordedBrowser browser(*m_test.engine, m_secure);
        QVERIFY(browser.open(at(u"/plain"_s)));
        const QString address = m_secure.address(u"/plain"_s, u"localhost"_s);
        QVERIFY(browser.open(address));
        QCOMPARE(m_secure.count("/plain"), 0);
        QVERIFY(browser.press(u"Continue anyway"_s));
        QVERIFY(browser.waitForEnd(3));
        WAIT_COMPARE(browser->LocationName(), u"Secret"_s);
        QVERIFY(!browser->findChild<QWidget *>(u"Overlay"_s));
        // Accepted is not secure.
        QVERIFY(browser.events.filter(u"lock"_s).isEmpty());

        // Parts of other pages are refused without a word, and another host name is asked about anew.
        m_site.page("/mixed", "Mixed", "<img src=" + m_secure.address(u"/image"_s).toLatin1() + ">");
        QVERIFY(browser.open(at(u"/mixed"_s)));
        QVERIFY(!browser->findChild<QWidget *>(u"Overlay"_s));
        QCOMPARE(m_secure.count("/image"), 0);
        QVERIFY(browser.open(m_secure.address(u"/plain"_s)));
        QVERIFY(browser->findChild<QWidget *>(u"Overlay"_s));
    }

    void passwordsAreAskedForInThePage()
    {
        m_site.locked("/vault", "Inside");
        RecordedBrowser browser(*m_test.engine, m_site);
        QVERIFY(browser.open(at(u"/vault"_s)));
        const auto answer = [&](const QString &password) {
            waitUntil([&] { return browser->findChildren<QLineEdit *>().size() == 2; });
            const auto lines = browser->findChildren<QLineEdit *>();
            if (lines.size() != 2)
                return false;
            lines[0]->setText(u"me"_s);
            lines[1]->setText(password);
            return browser.press(u"Sign in"_s);
        };
        // Wrong ones are asked for again, right ones are remembered for this run.
        QVERIFY(answer(u"wrong"_s));
        QVERIFY(browser.waitForEnd(2));
        QCOMPARE(browser->LocationName(), u"Locked"_s);
        QVERIFY(answer(u"secret"_s));
        WAIT_COMPARE(browser->LocationName(), u"Inside"_s);
        RecordedBrowser other(*m_test.engine, m_site);
        QVERIFY(other.open(at(u"/vault"_s)));
        QCOMPARE(other->LocationName(), u"Inside"_s);
    }

    void ownSite()
    {
        RecordedBrowser browser(*m_test.engine, m_site);
        for (const auto &[address, title] :
             {std::pair{u"corvane://www/qtour/INDEX.html"_s, u"Corvane: quick tour"_s},
              {u"corvane://www/%2e%2e/strings/strings.txt"_s, u"There is no such page"_s}}) {
            QVERIFY(browser.open(address));
            WAIT_COMPARE(browser->LocationName(), title);
        }
    }

    void wordsOfferASearch()
    {
        m_test.engine->setSearchAddress(at(u"/search?q=%s"_s));
        RecordedBrowser browser(*m_test.engine, m_site);
        QVERIFY(browser.open(u"two & words"_s));
        QCOMPARE(browser.events.first(), u"navigate two & words"_s);
        QCOMPARE(browser->LocationURL(), u"two & words"_s);
        WAIT_COMPARE(browser->LocationName(), u"This is not an address"_s);
        // Pages cannot put words of theirs where addresses stand.
        m_site.page("/forger", "Forger", "<script>location = 'corvane://words/?w=https://bank.example'</script>");
        QVERIFY(browser.open(at(u"/forger"_s)));
        QVERIFY(browser.open(at(u"/plain"_s)));
        QVERIFY(browser.events.filter(u"bank"_s).isEmpty());
    }

    void downloadsKeepTheirNamesApartAndOutliveTheirPage()
    {
        // Long enough for the engine to start before it has all.
        const QByteArray content(100'000, 'x');
        m_site.download("/late", "data.tar.gz", content, LoopbackSite::Ending::Halved);
        m_site.download("/file", "data.tar.gz", "first");
        {
            RecordedBrowser browser(*m_test.engine, m_site);
            QVERIFY(browser.open(at(u"/file"_s)));
            WAIT_VERIFY(browser.statuses.filter(u"Saved data.tar.gz"_s).size() == 1);
            QVERIFY(browser.open(at(u"/late"_s)));
            WAIT_VERIFY(!browser.statuses.filter(u"Saving data (2).tar.gz"_s).isEmpty());
        }
        m_site.release("/late");
        const QDir folder(m_test.config().downloadFolder);
        WAIT_COMPARE(folder.entryList({u"*.gz"_s}, QDir::Files), (QStringList{u"data (2).tar.gz"_s, u"data.tar.gz"_s}));
        QCOMPARE(readFile(folder.filePath(u"data (2).tar.gz"_s)).value(), content);
    }
};

ENGINE_TEST_MAIN(WebPages)
#include "tst_webpages.moc"
