#include "EngineFixture.h"
#include "support/Wait.h"

#include <QDir>
#include <QLineEdit>

using namespace Qt::StringLiterals;

/// What stands in for a page when something goes wrong or asks for the user, the program's own site, and downloads.
class WebFaults : public QObject
{
    Q_OBJECT

    LoopbackSite m_site;
    LoopbackSite m_secure{LoopbackSite::Security::SelfSigned};
    TestEngine m_test;

    QString at(const QString &path) const { return m_site.address(path); }

private slots:
    void init()
    {
        m_site.clearRequests();
        m_site.page("/plain", "Plain");
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
        WAIT_COMPARE(folder.entryList(QDir::Files), (QStringList{u"data (2).tar.gz"_s, u"data.tar.gz"_s}));
        QFile second(folder.filePath(u"data (2).tar.gz"_s));
        QVERIFY(second.open(QIODevice::ReadOnly));
        QCOMPARE(second.readAll(), content);
    }
};

ENGINE_TEST_MAIN(WebFaults)
#include "tst_webfaults.moc"
