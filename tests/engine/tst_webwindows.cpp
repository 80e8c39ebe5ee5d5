#include "EngineFixture.h"
#include "support/Wait.h"

#include <QApplication>
#include <QTimer>

using namespace Qt::StringLiterals;

/// Windows that pages ask for and close, and what counts as the user's act.
class WebWindows : public QObject
{
    Q_OBJECT

    LoopbackSite m_site;
    TestEngine m_test;

    QString at(const QString &path) const { return m_site.address(path); }

private slots:
    void init()
    {
        m_site.clearRequests();
        m_site.page("/plain", "Plain");
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
};

ENGINE_TEST_MAIN(WebWindows)
#include "tst_webwindows.moc"
