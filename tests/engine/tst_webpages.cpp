#include "EngineFixture.h"
#include "base/Files.h"
#include "base/step.h"
#include "support/Wait.h"

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QTcpServer>

using namespace Qt::StringLiterals;

/// Pages on the real engine: what a browser reports of their loads, what they want beside their text (windows, the
/// user's acts, message boxes and downloads), and what stands in for one when something goes wrong or asks for the
/// user.
class WebPages : public QObject
{
    Q_OBJECT

    LoopbackSite m_site;
    LoopbackSite m_secure{LoopbackSite::Security::SelfSigned};
    TestEngine m_test;

    QString at(const QString &path) const { return m_site.address(path); }
    static bool waitForBox(const RecordedBrowser &browser, std::size_t number = 1)
    {
        return waitUntil([&] { return browser.messages.size() >= number; });
    }

private slots:
    void init()
    {
        m_site.clearRequests();
        m_site.page("/plain", "Plain", "<p id=low>text</p>");
        m_site.page("/other", "Other");
        m_site.redirect("/moved", "/plain");
        m_site.add("/failing", {"<title>Broken</title>", "text/html", 500});
        m_site.add("/empty", {"", "text/html", 204});
        m_site.add("/cut", {"<title>Half</title>", "text/html", 200, {}, LoopbackSite::Ending::CutOff});
        m_site.add("/go", {"", "text/plain", 200, {}, LoopbackSite::Ending::Held});
        m_site.download("/file", "data.bin", QByteArray(5000, 'x'));
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
        std::optional<RecordedBrowser> opened;
        RecordedBrowser opener(*m_test.engine, m_site);
        opener.takesWindow = [&] { return &*opened.emplace(*m_test.engine, m_site); };
        QVERIFY(opener.open(at(u"/opener"_s)));
        QVERIFY(opened && opened->waitForEnd());
        WAIT_COMPARE(opener->LocationName(), u"Touched named"_s);
        QCOMPARE(opened->count(u"navigate /opened"_s), 1);
        QCOMPARE((*opened)->LocationURL(), at(u"/opened"_s));
        WAIT_COMPARE(opened->count(u"closing"_s), 1);
    }

    void otherWindowsStayOpenAndAlive()
    {
        m_site.page("/closing", "Closing",
                    "<script>close(); onload = () => setTimeout(() => { close(); fetch('/still-here') })</script>");
        RecordedBrowser browser(*m_test.engine, m_site, u"/closing"_s);
        QVERIFY(m_site.waitFor("/still-here"));
        QVERIFY(browser.open(at(u"/plain"_s)));
        QCOMPARE(browser.count(u"closing"_s), 0);
    }

    void emptyWindowsAreClosed()
    {
        m_site.download("/file", "data.bin", "content");
        m_site.page("/opener", "Opener", "<script>open('/file')</script>");
        std::optional<RecordedBrowser> opened;
        RecordedBrowser opener(*m_test.engine, m_site);
        opener.takesWindow = [&] { return &*opened.emplace(*m_test.engine, m_site); };
        QVERIFY(opener.open(at(u"/opener"_s)));
        QVERIFY(opened);
        WAIT_COMPARE(opened->count(u"closing"_s), 1);
        QCOMPARE(opened->count(u"end"_s), 1);
    }

    void sourceTextIsTheUsersOwnWindow()
    {
        std::optional<RecordedBrowser> source;
        RecordedBrowser browser(*m_test.engine, m_site, u"/plain"_s);
        int clicksSeen = 0;
        browser.takesWindow = [&] {
            clicksSeen = browser->userClicks();
            return &*source.emplace(*m_test.engine, m_site);
        };
        browser->Exec(engine::IDM_VIEWSOURCE);
        WAIT_VERIFY(source);
        QVERIFY(source->waitForEnd());
        QVERIFY(clicksSeen > 0);
        QCOMPARE((*source)->LocationURL(), u"view-source:"_s + at(u"/plain"_s));
        QCOMPARE(source->count(u"closing"_s), 0);
    }

    void whatCountsAsTheUsersAct()
    {
        m_site.page("/keys", "Keys", "<input autofocus><script>onkeydown = e => fetch('/key-' + e.code)</script>");
        RecordedBrowser browser(*m_test.engine, m_site, u"/keys"_s);
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
        RecordedBrowser browser(*m_test.engine, m_site, u"/loop"_s);
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
        RecordedBrowser browser(*m_test.engine, m_site, u"/vault"_s);
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
        RecordedBrowser other(*m_test.engine, m_site, u"/vault"_s);
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
            RecordedBrowser browser(*m_test.engine, m_site, u"/file"_s);
            WAIT_VERIFY(browser.statuses.filter(u"Saved data.tar.gz"_s).size() == 1);
            QVERIFY(browser.open(at(u"/late"_s)));
            WAIT_VERIFY(!browser.statuses.filter(u"Saving data (2).tar.gz"_s).isEmpty());
        }
        m_site.release("/late");
        const QDir folder(m_test.config().downloadFolder);
        WAIT_COMPARE(folder.entryList({u"*.gz"_s}, QDir::Files), (QStringList{u"data (2).tar.gz"_s, u"data.tar.gz"_s}));
        QCOMPARE(readFile(folder.filePath(u"data (2).tar.gz"_s)).value(), content);
    }

    void orderOfEvents()
    {
        const std::initializer_list<std::tuple<QString, QString, QStringList>> cases{
            {u"/plain"_s, u"Plain"_s, {}},
            {u"/plain"_s, u"Plain"_s, {u"navigate /moved"_s}},
            {u"/missing"_s, u"Missing"_s, {}},
            // How much of such a page the engine still shows is not told.
            {u"/cut"_s, {}, {}},
            {u"/empty"_s, u"/empty"_s, {}},
            {u"/file"_s, u"/file"_s, {}},
            {u"about:blank"_s, u"about:blank"_s, {}}};
        for (const auto &[address, title, before] : cases) {
            const QStringList expected = QStringList(before) << u"navigate "_s + address << u"end"_s;
            const auto full = [&](const QString &text) { return text.startsWith(u'/') ? m_site.address(text) : text; };

            RecordedBrowser browser(*m_test.engine, m_site);
            QVERIFY(browser.open(full(expected.first().section(u' ', 1))));
            QCOMPARE(browser.events.at(1), u"progress"_s);
            QStringList events = browser.events;
            // How often the engine reports progress in between is its own affair, and a title may come after the end.
            events.removeIf(
                [](const QString &event) { return event == u"progress"_s || event.startsWith(u"title "_s); });
            QCOMPARE(events, expected);
            QCOMPARE(browser->LocationURL(), full(address));
            if (!title.isNull())
                WAIT_COMPARE(browser.events.filter(u"title "_s).last(), u"title "_s + full(title));

            // A second end of the first load would come within the time of the next one.
            QVERIFY(browser.open(at(u"/other"_s)));
            QCOMPARE(browser.count(u"end"_s), 2);
        }
    }

    void failuresAreNoVisits()
    {
        RecordedBrowser browser(*m_test.engine, m_site);
        QTcpServer server;
        server.listen(QHostAddress::LocalHost);
        const QString refused = u"http://127.0.0.1:%1/"_s.arg(server.serverPort());
        server.close();
        QVERIFY(browser.open(refused));
        QCOMPARE(browser->LocationURL(), refused);
        QVERIFY(browser.open(at(u"/failing"_s)));
        QVERIFY(m_test.engine->visits().find(refused, 1).empty());
        QVERIFY(m_test.engine->visits().find(u"failing"_s, 1).empty());
    }

    void slowPageKeepsTheRequestedAddress()
    {
        m_site.add("/held", {"<title>Late</title>", "text/html", 200, {}, LoopbackSite::Ending::Held});
        RecordedBrowser browser(*m_test.engine, m_site);
        browser->Navigate2(at(u"/held"_s).mid(7));
        QCOMPARE(browser->LocationURL(), at(u"/held"_s));
        QVERIFY(browser.events.isEmpty());
        QVERIFY(m_site.waitFor("/held"));
        QCOMPARE(browser->LocationName(), at(u"/held"_s));
        QCOMPARE(browser.count(u"end"_s), 0);
        browser->Stop();
        QVERIFY(browser.waitForEnd());
        QCOMPARE(browser->LocationURL(), at(u"/held"_s));
        // Refreshing what never came asks for it again.
        browser->Refresh2(engine::REFRESH_COMPLETELY);
        QVERIFY(m_site.waitFor("/held", 2));
        m_site.release("/held");
        QVERIFY(browser.waitForEnd(2));
        QCOMPARE(browser->LocationName(), u"Late"_s);
    }

    void refusedNavigations()
    {
        RecordedBrowser browser(*m_test.engine, m_site, u"/plain"_s);
        browser.refuses = [](const QString &url) { return url.endsWith(u"/other"_s); };
        browser.events.clear();
        QVERIFY(browser.open(at(u"/other"_s)));
        QCOMPARE(browser.events, (QStringList{u"navigate /other"_s, u"end"_s}));
        QCOMPARE(m_site.count("/other"), 0);
        QCOMPARE(browser->LocationURL(), at(u"/plain"_s));
        // Refused while a page still loads: that load ends with one event too.
        m_site.page("/leaving", "Leaving", "<script>location='/other'</script>");
        browser.events.clear();
        QVERIFY(browser.open(at(u"/leaving"_s)));
        QVERIFY(browser.open(at(u"/plain"_s)));
        QCOMPARE(browser.count(u"end"_s), 2);
        QCOMPARE(m_site.count("/other"), 0);
    }

    void framesOfARestingPageEndOnce()
    {
        for (const QString &path : {u"/other"_s, u"/refused"_s}) {
            m_site.clearRequests();
            m_site.page("/mover", "Mover",
                        "<iframe name=f src=/plain></iframe><script>fetch('/go').then(() => { f.location = '" +
                            path.toLatin1() + "' })</script>");
            RecordedBrowser browser(*m_test.engine, m_site);
            browser.refuses = [](const QString &url) { return url.endsWith(u"/refused"_s); };
            QVERIFY(browser.open(at(u"/mover"_s)));
            QCOMPARE(browser.count(u"frame /plain"_s), 1);
            QCOMPARE(browser.count(u"end"_s), 1);
            QVERIFY(m_site.waitFor("/go"));
            m_site.release("/go");
            QVERIFY(browser.waitForEnd(2));
            QCOMPARE(browser.count(u"frame "_s + path), 1);
            // The end follows the frame's own and is no time-out.
            QVERIFY(browser.open(at(u"/plain"_s)));
            QCOMPARE(browser.count(u"end"_s), 3);
            QCOMPARE(m_site.count("/refused"), 0);
        }
    }

    void jumpsInsideThePage()
    {
        RecordedBrowser browser(*m_test.engine, m_site, u"/plain"_s);
        browser.events.clear();
        QVERIFY(browser.open(at(u"/plain#low"_s)));
        QCOMPARE(browser.events, (QStringList{u"navigate /plain#low"_s, u"location /plain#low"_s, u"end"_s}));
        QCOMPARE(m_site.count("/plain"), 1);
        browser.refuses = [](const QString &) { return true; };
        browser.events.clear();
        QVERIFY(browser.open(at(u"/plain#refused"_s)));
        QCOMPARE(browser->LocationURL(), at(u"/plain#low"_s));
        // What the page does to its address by itself is no navigation.
        browser.refuses = nullptr;
        m_site.page("/pushing", "Pushing",
                    "<script>fetch('/go').then(() => history.pushState(0, '', '/pushed'))</script>");
        QVERIFY(browser.open(at(u"/pushing"_s)));
        browser.events.clear();
        QVERIFY(m_site.waitFor("/go"));
        m_site.release("/go");
        WAIT_COMPARE(browser.events, QStringList{u"location /pushed"_s});
        QCOMPARE(browser->LocationURL(), at(u"/pushed"_s));
    }

    void titlesAreNotReplacedByAddresses()
    {
        m_site.add("/late",
                   {"<title></title><p>x</p><script>setTimeout(() => { document.title = 'Late' }, 100)</script>"});
        m_site.add("/untitled", {"<p>nothing</p>"});
        RecordedBrowser browser(*m_test.engine, m_site, u"/plain"_s);
        WAIT_COMPARE(browser->LocationName(), u"Plain"_s);
        browser.events.clear();
        QVERIFY(browser.open(at(u"/untitled"_s)));
        WAIT_COMPARE(browser.events.filter(u"title "_s), QStringList{u"title "_s + at(u"/untitled"_s)});
        QVERIFY(browser.open(at(u"/late"_s)));
        WAIT_COMPARE(browser->LocationName(), u"Late"_s);
        // The title that came after the end still reaches the file of visits.
        WAIT_COMPARE(m_test.engine->visits().find(u"/late"_s, 1).at(0).title, u"Late"_s);
    }

    void refusalsAndScriptErrors()
    {
        RecordedBrowser browser(*m_test.engine, m_site);
        QVERIFY_THROWS_EXCEPTION(ControlError, browser->GoBack());
        QVERIFY_THROWS_EXCEPTION(ControlError, browser->GoForward());
        QVERIFY_THROWS_EXCEPTION(ControlError, browser->ExecWB(engine::OLECMDID_ZOOM, 0, 5));
        m_site.page("/faulty", "Faulty", "<script>nothingHere()</script>");
        QVERIFY(browser.open(at(u"/faulty"_s)));
        WAIT_VERIFY(browser.statuses.contains(u"Error on page (1)"_s));
        browser->setSilent(true);
        browser.statuses.clear();
        QVERIFY(browser.open(at(u"/faulty"_s)));
        QVERIFY(browser.open(at(u"/plain"_s)));
        QVERIFY(browser.statuses.filter(u"Error"_s).isEmpty());
    }

    void coveredPagesAreHiddenFromTheirScripts()
    {
        m_site.page("/seen", "Seen",
                    "<script>document.onvisibilitychange = () => document.title = document.visibilityState</script>");
        RecordedBrowser browser(*m_test.engine, m_site, u"/seen"_s);
        browser->setExposed(false);
        WAIT_COMPARE(browser->LocationName(), u"hidden"_s);
        browser->setExposed(true);
        WAIT_COMPARE(browser->LocationName(), u"visible"_s);
    }

    void endOfTheLoadBeforeEndsNothing()
    {
        m_site.add("/held", {"", "image/png", 200, {}, LoopbackSite::Ending::Held});
        m_site.page("/opens", "Opens", "<img src=/held><script>open('/plain')</script>");
        RecordedBrowser browser(*m_test.engine, m_site);
        // The engine is caught at another point of its work each time.
        for (int n = 0; n < 15; ++n) {
            browser->Navigate2(at(u"/plain"_s));
            WAIT_COMPARE(browser->LocationName(), u"Plain"_s);
            browser.events.clear();
            browser->Navigate2(at(u"/opens"_s));
            WAIT_COMPARE(browser.count(u"window"_s), 1);
            const auto since = [&] { return browser.events.mid(browser.events.indexOf(u"navigate /opens"_s)); };
            const QString before = since().join(u", "_s);
            QVERIFY2(!before.contains(u"end"_s) && !before.contains(u"location"_s), qPrintable(before));
            // The picture may only be asked for now.
            QVERIFY(waitUntil([&] { return m_site.release("/held"), since().contains(u"end"_s); }));
        }
    }
};

ENGINE_TEST_MAIN(WebPages)
#include "tst_webpages.moc"
