#include "BrowserFixture.h"

#include "engine/EngineFixture.h"
#include "options/FormsPage.h"
#include "options/frmOptions1.h"
#include "support/LoopbackSite.h"
#include "support/Wait.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

/// Tells the site when the page stands on the screen and takes clicks.
const QByteArray kTellsWhenPainted =
    "<script>requestAnimationFrame(() => requestAnimationFrame(() => fetch('/painted' + location.pathname)))</script>";

/// A checkout that tells the site what arrives in its inputs.
const QByteArray kShop = "<form><input name=fname><input name=email><select name=country><option>Belgium<option>Canada"
                         "</select><input name=cardnumber><input name=message></form><script>"
                         "addEventListener('change', e => fetch('/got', {method: 'POST', body: e.target.name + '=' + "
                         "e.target.value}))</script>";

} // namespace

/// The user browses and fills forms: the main window, the engine and a server are real, and so are mouse and keys.
class tst_Browsing : public QObject
{
    Q_OBJECT

    LoopbackSite m_site;

    QString at(const QString &path) const { return m_site.address(path); }
    /// What has arrived in the inputs of the shop, in order of the names.
    QStringList got() const
    {
        QStringList values;
        for (const LoopbackSite::Request &request : m_site.requests())
            if (request.path() == "/got")
                values += QString::fromUtf8(request.body);
        values.sort();
        return values;
    }

    /// Closed; nobody waits for its deletion, which only the outermost event loop does.
    static bool isGone(const QPointer<frmOptions1> &dialog)
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return !dialog;
    }

private slots:
    void init()
    {
        m_site.clearRequests();
        for (const QByteArray name : {"A", "B", "C"})
            m_site.page('/' + name.toLower(), "Page " + name);
    }

    void addressesLinksAndCommands()
    {
        m_site.page("/links", "Links", "<a style='position: fixed; inset: 0' href=/b>link</a>" + kTellsWhenPainted);
        BrowserFixture f;
        QVERIFY(f.start(at(u"/a"_s)));
        QVERIFY(f.waitForPage(1, u"Page A"_s));
        f.enterAddress(at(u"/links"_s));
        QVERIFY(f.waitForPage(1, u"Links"_s));
        QVERIFY(m_site.waitFor("/painted/links"));
        f.clickPage();
        QVERIFY(f.waitForPage(1, u"Page B"_s));
        QCOMPARE(f.address(), at(u"/b"_s));
        QCOMPARE(f.caption(1), u"Page B"_s);

        QVERIFY(f.choose(u"mnuNavigateBack"_s));
        QVERIFY(f.waitForPage(1, u"Links"_s));
        QVERIFY(f.choose(u"mnuNavigateBack"_s));
        QVERIFY(f.waitForPage(1, u"Page A"_s));
        QVERIFY(f.choose(u"mnuNavigateForward"_s));
        QVERIFY(f.waitForPage(1, u"Links"_s));
        QCOMPARE(f.address(), at(u"/links"_s));

        const int asked = m_site.count("/links");
        QVERIFY(f.choose(u"mnuNavigateRefresh"_s));
        QVERIFY(m_site.waitFor("/links", asked + 1));
        QVERIFY(f.waitForPage(1, u"Links"_s));

        // With the button down an address gets a document of its own.
        QTest::mouseClick(f.main().goNew, Qt::LeftButton);
        f.enterAddress(at(u"/c"_s));
        QVERIFY(f.waitForPage(2, u"Page C"_s));
        QCOMPARE(f.caption(1), u"Links"_s);
        QCOMPARE(f.disorder(), QString());
    }

    void screenfulsAndDrops()
    {
        m_site.page("/film", "Film",
                    "<body style='height: 100vh' onclick='document.body.requestFullscreen()'><script>"
                    "document.onfullscreenchange = () => fetch('/full/' + !!document.fullscreenElement)</script>" +
                        kTellsWhenPainted);
        BrowserFixture f;
        QVERIFY(f.start(at(u"/a"_s)));
        QVERIFY(f.waitForPage(1, u"Page A"_s));
        f.enterAddress(at(u"/film"_s));
        QVERIFY(f.waitForPage(1, u"Film"_s));
        QVERIFY(m_site.waitFor("/painted/film"));
        const auto screen = [] {
            const QWidgetList windows = QApplication::topLevelWidgets();
            const auto found = std::find_if(windows.begin(), windows.end(), [](const QWidget *window) {
                return window->isVisible() && window->inherits("engine::FullScreenWindow");
            });
            return found == windows.end() ? nullptr : *found;
        };
        f.clickPage();
        QVERIFY(m_site.waitFor("/full/true"));
        WAIT_VERIFY(screen());
        WAIT_VERIFY(screen()->isActiveWindow());
        QTest::keyClick(screen()->windowHandle(), Qt::Key_Escape);
        QVERIFY(m_site.waitFor("/full/false"));
        QVERIFY(!screen());
        WAIT_VERIFY(f.main().isActiveWindow());

        f.press(Qt::Key_F11);
        WAIT_VERIFY(screen());
        f.main().LoadNewDoc(at(u"/b"_s)); // covers it
        QVERIFY(!screen());
        QVERIFY(f.waitForPage(2, u"Page B"_s));
        QVERIFY(f.page()->window() == &f.main());
        // What is dropped on the bars gets a document of its own.
        QMimeData links;
        links.setUrls({QUrl(at(u"/c"_s))});
        QDragEnterEvent enter({}, Qt::CopyAction, &links, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&f.main(), &enter);
        QDropEvent drop({}, Qt::CopyAction, &links, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&f.main(), &drop);
        QVERIFY(f.waitForPage(3, u"Page C"_s));
        f.press(Qt::Key_F11);
        WAIT_VERIFY(screen());
        f.main().ActiveForm()->Unload();
        WAIT_VERIFY(!screen());
        QCOMPARE(f.count(), 2);
    }

    void killedPageIsReloadedOnDemand()
    {
        m_site.page("/busy", "Busy", "<img src=/image>");
        m_site.add("/image", {{}, "image/png", 200, {}, LoopbackSite::Ending::Held});
        BrowserFixture f;
        QVERIFY(f.start(at(u"/busy"_s)));
        QVERIFY(m_site.waitFor("/image"));
        QVERIFY(f.state(1) != u"Completed"_s);
        QVERIFY(killRenderers() > 0);
        WAIT_VERIFY(f.button(u"Reload"_s));
        WAIT_COMPARE(f.state(1), u"Completed"_s);
        QCOMPARE(f.address(), at(u"/busy"_s));

        // The others go on, and nothing is loaded again before the user says so.
        f.main().LoadNewDoc(at(u"/b"_s));
        QVERIFY(f.waitForPage(2, u"Page B"_s));
        QVERIFY(!f.button(u"Reload"_s));
        QCOMPARE(m_site.count("/busy"), 1);
        f.clickTab(1);
        WAIT_VERIFY(f.button(u"Reload"_s));
        m_site.page("/image", "");
        QTest::mouseClick(f.button(u"Reload"_s), Qt::LeftButton);
        QVERIFY(m_site.waitFor("/busy", 2));
        QVERIFY(f.waitForPage(1, u"Busy"_s));
        QVERIFY(!f.button(u"Reload"_s));
        QCOMPARE(f.disorder(), QString());
    }

    void badServers_data()
    {
        QTest::addColumn<QString>("address");
        QTest::addColumn<QString>("title"); // empty: the engine's own
        QTcpServer closed;
        closed.listen(QHostAddress::LocalHost);
        QTest::newRow("missing page") << at(u"/missing"_s) << u"Missing"_s;
        QTest::newRow("missing page without a word") << at(u"/bare"_s) << QString();
        QTest::newRow("cut off") << at(u"/half"_s) << QString();
        QTest::newRow("no answer at all") << at(u"/silent"_s) << QString();
        QTest::newRow("nobody there") << u"http://127.0.0.1:%1/"_s.arg(closed.serverPort()) << QString();
        QTest::newRow("large title") << at(u"/title"_s) << QString(50, u'x') + u"..."_s;
        QTest::newRow("no address") << u"two words"_s << u"This is not an address"_s;
    }

    void badServers()
    {
        QFETCH(const QString, address);
        QFETCH(const QString, title);
        m_site.add("/bare", {{}, "text/html", 404});
        m_site.add("/half", {"<title>Half</title><p>part", "text/html", 200, {}, LoopbackSite::Ending::CutOff});
        m_site.add("/silent", {"late", "text/html", 200, {}, LoopbackSite::Ending::Held});
        m_site.page("/title", QByteArray(1'000'000, 'x'));
        BrowserFixture f;
        QVERIFY(f.start(at(u"/a"_s)));
        QVERIFY(f.waitForPage(1, u"Page A"_s));
        f.enterAddress(address);
        if (address.endsWith(u"/silent"_s)) {
            QVERIFY(m_site.waitFor("/silent"));
            QVERIFY(f.choose(u"mnuNavigateStop"_s));
            QTRY_COMPARE(f.state(1), u"Completed"_s);
            QCOMPARE(f.caption(1), u"Page A"_s);
        } else if (title.isEmpty()) {
            QTRY_COMPARE_WITH_TIMEOUT(f.document(1).LocationURL(), address, kPatience);
        } else {
            QTRY_COMPARE_WITH_TIMEOUT(f.caption(1), title, kPatience);
        }
        QTRY_COMPARE_WITH_TIMEOUT(f.state(1), u"Completed"_s, kPatience);
        QVERIFY(f.tab(1).ToolTipText().size() < 10'000);

        // Nothing stays behind in the way of the next page.
        f.enterAddress(at(u"/b"_s));
        QVERIFY(f.waitForPage(1, u"Page B"_s));
        QCOMPARE(f.caption(1), u"Page B"_s);
        QCOMPARE(f.count(), 1);
    }

    void recordReachesTheShop()
    {
        m_site.page("/shop", "Shop", kShop);
        BrowserFixture f;
        QVERIFY(f.start(m_site.address(u"/shop"_s)));
        QVERIFY(f.waitForPage(1, u"Shop"_s));

        QVERIFY(f.choose(u"mnuContentFormData"_s));
        QPointer<frmOptions1> dialog = f.main().findChild<frmOptions1 *>();
        QVERIFY(dialog && dialog->isVisible());
        auto *page = dialog->findChild<FormsPage *>();
        QTest::keyClicks(page->firstname, u"Ann"_s);
        QTest::keyClicks(page->mail, u"ann@example.org"_s);
        QTest::keyClicks(page->Country, u"Can"_s);
        QTest::keyClicks(page->CardNumber, u"4111111111111111"_s);
        QTest::keyClicks(page->Password, u"pass"_s);
        QTest::keyClicks(page->Confirm, u"pass"_s);
        page->Protect->click();
        QTest::mouseClick(dialog->btnOk, Qt::LeftButton);
        QVERIFY(isGone(dialog));

        // The card stays out until its password has been given.
        const QStringList open{u"country=Canada"_s, u"email=ann@example.org"_s, u"fname=Ann"_s};
        QVERIFY(f.choose(u"mnuContentFillForm"_s));
        WAIT_COMPARE(got(), open);
        f.main().mainCode().flags.CreditUnlocked = true; // as the right answer to its question does
        QVERIFY(f.dialogs.messages.isEmpty());
        // What is filled already stays, so only the card is new.
        QVERIFY(f.choose(u"mnuContentFillForm"_s));
        WAIT_COMPARE(got(), QStringList{u"cardnumber=4111111111111111"_s} + open);

        // By itself, at the end of the next load and of the next run's.
        QVERIFY(f.choose(u"mnuContentAutoFill"_s));
        m_site.clearRequests();
        QVERIFY(f.choose(u"mnuNavigateRefresh"_s));
        WAIT_COMPARE(got(), QStringList{u"cardnumber=4111111111111111"_s} + open);
        f.end();
        m_site.clearRequests();
        QVERIFY(f.start(m_site.address(u"/shop"_s)));
        WAIT_COMPARE(got(), open);
    }
};

BROWSER_TEST_MAIN(tst_Browsing)
#include "tst_browsing.moc"
