#include "EngineFixture.h"
#include "support/Rows.h"
#include "support/Wait.h"

#include "base/step.h"

#include <QTcpServer>

using namespace Qt::StringLiterals;

/// What a browser reports of loads, over the real engine and a real server.
class WebLoads : public QObject
{
    Q_OBJECT

    LoopbackSite m_site;
    TestEngine m_test;

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
    }

    void orderOfEvents_data()
    {
        rows<QString, QString, QStringList>({
            {"page", {u"/plain"_s, u"Plain"_s, {}}},
            {"redirect", {u"/plain"_s, u"Plain"_s, {u"navigate /moved"_s}}},
            {"missing", {u"/missing"_s, u"Missing"_s, {}}},
            // How much of such a page the engine still shows is not told.
            {"cut off", {u"/cut"_s, {}, {}}},
            {"no content", {u"/empty"_s, u"/empty"_s, {}}},
            {"download", {u"/file"_s, u"/file"_s, {}}},
            {"blank", {u"about:blank"_s, u"about:blank"_s, {}}},
        });
    }

    void orderOfEvents()
    {
        const auto [address, title, before] = row<QString, QString, QStringList>();
        const QStringList expected = QStringList(before) << u"navigate "_s + address << u"end"_s;
        const auto full = [&](const QString &text) { return text.startsWith(u'/') ? m_site.address(text) : text; };

        RecordedBrowser browser(*m_test.engine, m_site);
        QVERIFY(browser.open(full(expected.first().section(u' ', 1))));
        QCOMPARE(browser.events.at(1), u"progress"_s);
        QStringList events = browser.events;
        // How often the engine reports progress in between is its own affair, and a title may come after the end.
        events.removeIf([](const QString &event) { return event == u"progress"_s || event.startsWith(u"title "_s); });
        QCOMPARE(events, expected);
        QCOMPARE(browser->LocationURL(), full(address));
        if (!title.isNull())
            WAIT_COMPARE(browser.events.filter(u"title "_s).last(), u"title "_s + full(title));

        // A second end of the first load would come within the time of the next one.
        QVERIFY(browser.open(m_site.address(u"/other"_s)));
        QCOMPARE(browser.count(u"end"_s), 2);
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
        QVERIFY(browser.open(m_site.address(u"/failing"_s)));
        QVERIFY(m_test.engine->visits().find(refused, 1).empty());
        QVERIFY(m_test.engine->visits().find(u"failing"_s, 1).empty());
    }

    void slowPageKeepsTheRequestedAddress()
    {
        m_site.add("/held", {"<title>Late</title>", "text/html", 200, {}, LoopbackSite::Ending::Held});
        RecordedBrowser browser(*m_test.engine, m_site);
        browser->Navigate2(m_site.address(u"/held"_s).mid(7));
        QCOMPARE(browser->LocationURL(), m_site.address(u"/held"_s));
        QVERIFY(browser.events.isEmpty());
        QVERIFY(m_site.waitFor("/held"));
        QCOMPARE(browser->LocationName(), m_site.address(u"/held"_s));
        QCOMPARE(browser.count(u"end"_s), 0);
        browser->Stop();
        QVERIFY(browser.waitForEnd());
        QCOMPARE(browser->LocationURL(), m_site.address(u"/held"_s));
        // Refreshing what never came asks for it again.
        browser->Refresh2(engine::REFRESH_COMPLETELY);
        QVERIFY(m_site.waitFor("/held", 2));
        m_site.release("/held");
        QVERIFY(browser.waitForEnd(2));
        QCOMPARE(browser->LocationName(), u"Late"_s);
    }

    void refusedNavigations()
    {
        RecordedBrowser browser(*m_test.engine, m_site);
        QVERIFY(browser.open(m_site.address(u"/plain"_s)));
        browser.refuses = [](const QString &url) { return url.endsWith(u"/other"_s); };
        browser.events.clear();
        QVERIFY(browser.open(m_site.address(u"/other"_s)));
        QCOMPARE(browser.events, (QStringList{u"navigate /other"_s, u"end"_s}));
        QCOMPARE(m_site.count("/other"), 0);
        QCOMPARE(browser->LocationURL(), m_site.address(u"/plain"_s));
        // Refused while a page still loads: that load ends with one event too.
        m_site.page("/leaving", "Leaving", "<script>location='/other'</script>");
        browser.events.clear();
        QVERIFY(browser.open(m_site.address(u"/leaving"_s)));
        QVERIFY(browser.open(m_site.address(u"/plain"_s)));
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
            QVERIFY(browser.open(m_site.address(u"/mover"_s)));
            QCOMPARE(browser.count(u"frame /plain"_s), 1);
            QCOMPARE(browser.count(u"end"_s), 1);
            QVERIFY(m_site.waitFor("/go"));
            m_site.release("/go");
            QVERIFY(browser.waitForEnd(2));
            QCOMPARE(browser.count(u"frame "_s + path), 1);
            // The end follows the frame's own and is no time-out.
            QVERIFY(browser.open(m_site.address(u"/plain"_s)));
            QCOMPARE(browser.count(u"end"_s), 3);
            QCOMPARE(m_site.count("/refused"), 0);
        }
    }

    void jumpsInsideThePage()
    {
        RecordedBrowser browser(*m_test.engine, m_site);
        QVERIFY(browser.open(m_site.address(u"/plain"_s)));
        browser.events.clear();
        QVERIFY(browser.open(m_site.address(u"/plain#low"_s)));
        QCOMPARE(browser.events, (QStringList{u"navigate /plain#low"_s, u"location /plain#low"_s, u"end"_s}));
        QCOMPARE(m_site.count("/plain"), 1);
        browser.refuses = [](const QString &) { return true; };
        browser.events.clear();
        QVERIFY(browser.open(m_site.address(u"/plain#refused"_s)));
        QCOMPARE(browser->LocationURL(), m_site.address(u"/plain#low"_s));
        // What the page does to its address by itself is no navigation.
        browser.refuses = nullptr;
        m_site.page("/pushing", "Pushing",
                    "<script>fetch('/go').then(() => history.pushState(0, '', '/pushed'))</script>");
        QVERIFY(browser.open(m_site.address(u"/pushing"_s)));
        browser.events.clear();
        QVERIFY(m_site.waitFor("/go"));
        m_site.release("/go");
        WAIT_COMPARE(browser.events, QStringList{u"location /pushed"_s});
        QCOMPARE(browser->LocationURL(), m_site.address(u"/pushed"_s));
    }

    void titlesAreNotReplacedByAddresses()
    {
        m_site.add("/late",
                   {"<title></title><p>x</p><script>setTimeout(() => { document.title = 'Late' }, 100)</script>"});
        m_site.add("/untitled", {"<p>nothing</p>"});
        RecordedBrowser browser(*m_test.engine, m_site);
        QVERIFY(browser.open(m_site.address(u"/plain"_s)));
        WAIT_COMPARE(browser->LocationName(), u"Plain"_s);
        browser.events.clear();
        QVERIFY(browser.open(m_site.address(u"/untitled"_s)));
        WAIT_COMPARE(browser.events.filter(u"title "_s), QStringList{u"title "_s + m_site.address(u"/untitled"_s)});
        QVERIFY(browser.open(m_site.address(u"/late"_s)));
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
        QVERIFY(browser.open(m_site.address(u"/faulty"_s)));
        WAIT_VERIFY(browser.statuses.contains(u"Error on page (1)"_s));
        browser->setSilent(true);
        browser.statuses.clear();
        QVERIFY(browser.open(m_site.address(u"/faulty"_s)));
        QVERIFY(browser.open(m_site.address(u"/plain"_s)));
        QVERIFY(browser.statuses.filter(u"Error"_s).isEmpty());
    }

    void coveredPagesAreHiddenFromTheirScripts()
    {
        m_site.page("/seen", "Seen",
                    "<script>document.onvisibilitychange = () => document.title = document.visibilityState</script>");
        RecordedBrowser browser(*m_test.engine, m_site);
        QVERIFY(browser.open(m_site.address(u"/seen"_s)));
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
            browser->Navigate2(m_site.address(u"/plain"_s));
            WAIT_COMPARE(browser->LocationName(), u"Plain"_s);
            browser.events.clear();
            browser->Navigate2(m_site.address(u"/opens"_s));
            WAIT_COMPARE(browser.count(u"window"_s), 1);
            const QString before = browser.events.join(u", "_s);
            QVERIFY2(!before.contains(u"end"_s) && !before.contains(u"location"_s), qPrintable(before));
            m_site.release("/held");
            QVERIFY(browser.waitForEnd());
        }
    }
};

ENGINE_TEST_MAIN(WebLoads)
#include "tst_webloads.moc"
