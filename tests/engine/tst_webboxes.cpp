#include "EngineFixture.h"
#include "support/Wait.h"

#include <QApplication>

using namespace Qt::StringLiterals;

/// Message boxes of pages: what the page gets back, who is named, and that nobody else has to wait.
class WebBoxes : public QObject
{
    Q_OBJECT

    LoopbackSite m_site;
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

    void refusals_data()
    {
        QTest::addColumn<bool>("isAsked");
        QTest::newRow("cancelled") << true;
        QTest::newRow("silent") << false;
    }

    void refusals()
    {
        QFETCH(const bool, isAsked);
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
        QFile file(folder.filePath(u"alert.html"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(
            "<title>File</title><script>alert('from a file'); document.title = 'Went on ' + confirm('x')</script>");
        file.close();
        RecordedBrowser browser(*m_test.engine, m_site);
        QVERIFY(browser.open(file.fileName()));
        QCOMPARE(browser.messages.size(), 1u);
        QCOMPARE(browser.messages[0].Prompt, u"from a file"_s);
        WAIT_COMPARE(browser->LocationName(), u"Went on false"_s);
    }
};

ENGINE_TEST_MAIN(WebBoxes)
#include "tst_webboxes.moc"
