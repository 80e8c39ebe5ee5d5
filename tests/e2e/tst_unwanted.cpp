#include "BrowserFixture.h"

#include "base/Files.h"
#include "documents/frmDocument.h"
#include "engine/PageFacets.h"
#include "engine/VisitLog.h"
#include "engine/WebBrowser.h"
#include "support/LoopbackSite.h"
#include "support/Wait.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

/// Tells the site when the page stands on the screen and takes clicks.
const QByteArray kTellsWhenPainted =
    "<script>requestAnimationFrame(() => requestAnimationFrame(() => fetch('/painted')))</script>";

QByteArray script(const QByteArray &code)
{
    return "<script>" + code + "</script>";
}

/// The whole page is the element that is clicked.
QByteArray cover(const QByteArray &element)
{
    return "<style>.c { position: fixed; inset: 0; width: 100%; height: 100%; border: 0 }</style>" + element +
           kTellsWhenPainted;
}

/// Runs `code` when the test lets "/go" go on, which no load waits for.
QByteArray later(const QByteArray &code)
{
    return script("fetch('/go').then(() => { " + code + " })");
}

QByteArray dataFile(const char *name)
{
    return readFile(QStringLiteral(E2E_DATA "/") + QLatin1StringView(name)).value();
}

/// Everything that the policy is about, in a page ("m") and in a frame of another site ("f"). Each part asks the site
/// for an address of its own when it is loaded or runs.
QByteArray everything(const QByteArray &where)
{
    return dataFile("everything.html").replace("%1", where);
}

struct Choice
{
    const char *name;
    bool Settings::*value;
    /// What the site is not asked for without it.
    QByteArrayList parts;
};

const std::vector<Choice> kChoices{
    {"EnableImages", &Settings::EnableImages, {"image", "background", "picture"}},
    {"EnableSound", &Settings::EnableSound, {}},
    {"EnableVideo", &Settings::EnableVideo, {"video", "video-source", "video-blob", "video-loose", "video-shadow"}},
    {"EnableScripts",
     &Settings::EnableScripts,
     {"script", "assembly", "video-blob", "video-loose", "video-shadow", "worker.wasm"}},
    {"EnableJava", &Settings::EnableJava, {"assembly", "worker.wasm"}},
    {"EnableActiveXRUN", &Settings::EnableActiveXRUN, {"object", "embed"}}};

} // namespace

/// What pages may not do: the windows they open, the parts they load, the sites that nobody wants, over the real
/// engine.
class tst_Unwanted : public QObject
{
    Q_OBJECT

    LoopbackSite m_site;
    std::unique_ptr<BrowserFixture> m_browser;

    BrowserFixture &f() { return *m_browser; }
    QString at(const QString &path) const { return m_site.address(path); }
    Settings &settings() { return f().main().mainCode().settings; }
    frmDocument &document(int position) { return dynamic_cast<frmDocument &>(f().document(position)); }
    /// What the user does, in the words of the table of windows.
    void act(const QByteArray &what)
    {
        const QPoint middle(200, 150);
        if (what == "go") {
            QVERIFY(m_site.waitFor("/go"));
            m_site.release("/go");
        } else if (what == "click") {
            f().clickPage(middle);
        } else if (what.endsWith("click")) {
            const bool isMiddle = what.startsWith("middle");
            QTest::mouseClick(f().page(), isMiddle ? Qt::MiddleButton : Qt::LeftButton,
                              isMiddle ? Qt::NoModifier : Qt::ControlModifier, middle);
        }
        if (what == "close")
            f().document(2).Unload();
        if (what == "close" || what == "leave")
            f().document(1).NavigateDoc(at(u"/target"_s));
    }

private slots:
    void initTestCase()
    {
        m_site.page("/plain", "Plain");
        m_site.add("/held", {"", "image/png", 200, {}, LoopbackSite::Ending::Held});
        m_site.add("/go", {"", "text/plain", 200, {}, LoopbackSite::Ending::Held});
        m_site.page("/target", "Target");
        m_site.page("/opens", "Opens", script("open('/target')"));
        m_browser = std::make_unique<BrowserFixture>();
        f().set(u"Popup"_s, u"PopupPlaySound"_s, u"False"_s);
        QVERIFY(f().start(at(u"/plain"_s)));
        QVERIFY(f().waitForPage(1, u"Plain"_s));
    }

    void cleanupTestCase() { m_browser.reset(); }
    void init()
    {
        Settings &now = settings();
        now.PopupKillerEnable = now.PopupCtrlEnable = true;
        now.EnableImages = now.EnableSound = now.EnableVideo = now.EnableScripts = now.EnableJava = true;
        now.EnableActiveXDL = now.EnableActiveXRUN = now.EnableFlash = true;
        while (f().count() > 1)
            f().document(f().count()).Unload();
        // No other page is in front, and no act of the user in it is remembered.
        f().document(1).NavigateDoc(at(u"/plain"_s));
        QVERIFY(f().waitForPage(1, u"Plain"_s));
        f().document(1).customWB()->ClearUserClick();
        document(1).tmrKillPopup.setEnabled(false);
        m_site.clearRequests();
    }

    void windows_data()
    {
        QTest::addColumn<QByteArrayList>("row");
        int count = 0;
        for (const QByteArray &line : dataFile("windows.txt").split('\n')) {
            if (line.isEmpty() || line.startsWith(';'))
                continue;
            const QByteArrayList cells = QByteArray(line).replace(" | ", "|").split('|');
            QCOMPARE(cells.size(), 4);
            QTest::newRow(cells[0].constData()) << cells;
            ++count;
        }
        QCOMPARE_GE(count, 25);
    }

    void windows()
    {
        QFETCH(const QByteArrayList, row);
        const QByteArray &act = row[1];
        const QByteArray &fate = row[2];
        const bool isCovered = row[3].contains("class=c");
        const bool withAlt = row[0].startsWith("Alt");
        settings().PopupCtrlEnable = !row[0].contains("not allowed");
        settings().PopupKillerEnable = row[0] != "killer off";
        const QByteArray inner = m_site.address(u"/inner-frame"_s, u"localhost"_s).toLatin1();
        m_site.page("/outer-frame", "Frame", "<iframe src=" + inner + "></iframe>");
        m_site.page("/inner-frame", "Frame", script("open('/target')"));
        m_site.page("/waiting-frame", "Frame", later("open('/target')"));
        m_site.page("/link-frame", "Frame", cover("<a class=c href=/target target=_blank>link</a>"));
        m_site.page("/page", "Page", isCovered ? cover(row[3]) : row[3]);

        if (withAlt)
            QTest::keyPress(f().main().windowHandle(), Qt::Key_Alt, Qt::AltModifier);
        if (act == "close")
            f().main().LoadNewDoc(at(u"/page"_s));
        else
            f().document(1).NavigateDoc(at(u"/page"_s));
        QVERIFY(m_site.waitFor("/page"));

        if (isCovered)
            QVERIFY(m_site.waitFor("/painted", row[3].contains("link-frame") ? 2 : 1));
        if (row[0].startsWith("at rest") && act != "none")
            WAIT_VERIFY(!document(1).isLoading() && m_site.count("/page") == 1);
        this->act(act);

        const int tabs = fate == "tab" || fate == "one of two" ? 2 : 1;
        const bool kills = fate == "killed" || fate == "one of two";
        if (tabs == 2)
            QVERIFY(f().waitForPage(2, u"Target"_s));
        if (kills) {
            const bool isKilled = waitUntil([&] { return document(1).tmrKillPopup.Enabled(); }, kPatience);
            QVERIFY2(isKilled, qPrintable(u"%1 documents"_s.arg(f().count())));
        }
        if (fate == "same tab")
            QVERIFY(f().waitForPage(1, u"Target"_s));
        // A page that goes with its document often has no time to send anything.
        if (act == "leave")
            QVERIFY(m_site.waitFor("/gone"));
        if (withAlt)
            QTest::keyRelease(f().main().windowHandle(), Qt::Key_Alt);
        QCOMPARE(f().count(), tabs);
        QCOMPARE(m_site.count("/target"), fate == "killed" ? 0 : 1);
        QCOMPARE(document(1).tmrKillPopup.Enabled(), kills);
        QCOMPARE(f().disorder(), QString());
    }

    void windowsWithoutEnd()
    {
        m_site.page("/flood", "Flood",
                    later("let n = 0; for (let i = 0; i < 10000; ++i) n += open('') ? 1 : 0; fetch('/done')"));
        f().document(1).NavigateDoc(at(u"/flood"_s));
        QVERIFY(f().waitForPage(1, u"Flood"_s));
        act("go");
        // The window works meanwhile.
        f().main().LoadNewDoc(at(u"/target"_s));
        QVERIFY(m_site.waitFor("/target"));
        QVERIFY(m_site.waitFor("/done", 1, 60'000));
        QCOMPARE_LE(f().count(), 22);
        QCOMPARE(f().disorder(), QString());
    }

    void content_data()
    {
        QTest::addColumn<QByteArray>("off");
        QTest::newRow("all on") << QByteArray();
        QTest::newRow("all off") << "Enable"_ba;
        for (const Choice &choice : kChoices)
            QTest::newRow(choice.name) << QByteArray(choice.name);
    }

    void content()
    {
        QFETCH(QByteArray, off);
        // Once in a window that a page opens.
        const bool isOpened = off == "Enable";
        m_site.page("/opener", "Opener", later("open('/everything')"));
        f().document(1).NavigateDoc(at(u"/opener"_s));
        QVERIFY(f().waitForPage(1, u"Opener"_s));

        QSet<QByteArray> with;
        QSet<QByteArray> without;
        for (const Choice &choice : kChoices) {
            const bool isOn = off.isEmpty() || !QByteArray(choice.name).startsWith(off);
            settings().*choice.value = isOn;
            (isOn ? with : without) += QSet(choice.parts.begin(), choice.parts.end());
        }
        with -= without;
        (settings().EnableScripts ? without : with) += "noscript";
        (settings().EnableSound || settings().EnableVideo ? with : without) += "audio";

        m_site.page("/frame", "Frame", everything("f"));
        m_site.page("/everything", "Everything",
                    everything("m") + "<iframe src=" + m_site.address(u"/frame"_s, u"localhost"_s).toLatin1() +
                        "></iframe>");
        if (isOpened)
            act("go");
        else
            f().document(1).NavigateDoc(at(u"/everything"_s));
        for (const QByteArray &name : with)
            QVERIFY2(m_site.waitFor("/m-" + name) && m_site.waitFor("/f-" + name), name);
        const int position = isOpened ? 2 : 1;
        QVERIFY(f().waitForPage(position, u"Everything"_s));
        QCOMPARE(document(position).browser()->contentFacet()->isMuted(), !settings().EnableSound);
        // What would come late has come when another page has.
        f().document(position).NavigateDoc(at(u"/plain"_s));
        QVERIFY(f().waitForPage(position, u"Plain"_s));
        for (const QByteArray &name : without)
            QVERIFY2(m_site.count("/m-" + name) == 0 && m_site.count("/f-" + name) == 0, name);
    }

    void downloads()
    {
        const QDir folder(f().downloadFolder());
        m_site.download("/driven", "driven.bin", "x");
        m_site.download("/framed", "framed.bin", "x");
        m_site.download("/wanted", "wanted.bin", "x");
        m_site.redirect("/moved", "/typed");
        m_site.download("/typed", "typed.bin", "x");
        m_site.page("/start", "Start",
                    cover("<a class=c href=/wanted>link</a>") + "<iframe src=/framed></iframe>" +
                        script("onload = () => { const a = document.createElement('a'); a.href = '/driven'; "
                               "a.download = ''; a.click(); fetch('/tried') }"));
        const auto tryAll = [&](bool isAllowed) {
            settings().EnableActiveXDL = isAllowed;
            m_site.clearRequests();
            f().document(1).NavigateDoc(at(u"/start"_s));
            QVERIFY(m_site.waitFor("/painted") && m_site.waitFor("/tried") && m_site.waitFor("/framed"));
            f().document(1).NavigateDoc(at(u"/moved"_s));
            WAIT_VERIFY(folder.exists(u"typed.bin"_s));
            QCOMPARE(folder.exists(u"framed.bin"_s), isAllowed);
            if (isAllowed)
                WAIT_VERIFY(folder.exists(u"driven.bin"_s));
            else
                QVERIFY(!folder.exists(u"driven.bin"_s));
        };
        tryAll(false);
        f().clickPage(QPoint(200, 150));
        WAIT_VERIFY(folder.exists(u"wanted.bin"_s));
        QVERIFY(QFile::remove(folder.filePath(u"typed.bin"_s)));
        tryAll(true);
    }

    void flash()
    {
        m_site.add("/tells.js", {dataFile("tells.js"), "text/javascript"});
        m_site.page("/cage", "Frame",
                    "<embed id=framed type=application/x-shockwave-flash src=a.swf width=120 height=60>"
                    "<script src=/tells.js></script>");
        m_site.page("/flash", "Flash",
                    dataFile("flash.html").replace("%1", m_site.address(u"/cage"_s, u"localhost"_s).toLatin1()));
        settings().EnableFlash = false;
        f().document(1).NavigateDoc(at(u"/flash"_s));
        QVERIFY(m_site.waitFor("/box-object-400x300"));
        QVERIFY(m_site.waitFor("/box-framed-120x60", 2));
        act("go");
        QVERIFY(m_site.waitFor("/box-late-88x31"));
        QCOMPARE(m_site.count("/a.swf"), 0);

        // The box leads the way back.
        f().clickPage(QPoint(200, 150));
        QVERIFY(m_site.waitFor("/flash", 2));
        QVERIFY(settings().EnableFlash);
        QVERIFY(f().waitForPage(1, u"Flash"_s));
        QCOMPARE(document(1).LocationURL(), at(u"/flash"_s));
        act("go");
        QCOMPARE(m_site.count("/box-object-400x300"), 1);

        // As the first address of a document it reloads the others, once, and not again whenever all are reloaded.
        f().main().LoadNewDoc(at(u"/x-EnableFlash"_s));
        QVERIFY(m_site.waitFor("/flash", 3));
        QVERIFY(f().choose(u"mnuContentImage"_s));
        QVERIFY(m_site.waitFor("/flash", 4));
        QVERIFY(f().waitForPage(1, u"Flash"_s));
        QVERIFY(!settings().EnableFlash);
        QCOMPARE(m_site.count("/flash"), 4);
        QCOMPARE(m_site.count("/x-EnableFlash"), 0);

        // A page that goes there whenever it loads does it once, too, until the user acts in it.
        m_site.page("/page", "Page", "<iframe src=/y-EnableFlash></iframe>");
        f().document(2).NavigateDoc(at(u"/page"_s));
        QVERIFY(m_site.waitFor("/page", 2));
        QVERIFY(f().waitForPage(2, u"Page"_s));
        f().document(1).NavigateDoc(at(u"/plain"_s));
        QVERIFY(f().waitForPage(1, u"Plain"_s));
        QVERIFY(settings().EnableFlash);
        QCOMPARE(m_site.count("/page"), 2);
    }

    void listedSiteIsNeverAsked()
    {
        settings().BlackList = {QString(), u"LOCALHOST"_s};
        settings().BlackListCount = 1;
        settings().PopupPlaySound = true;
        f().sound.played.clear();
        const QString listed = m_site.address(u"/plain"_s, u"localhost"_s);
        // A connection that asks for nothing would be the engine's own, ahead of the page.
        const auto silent = [this] { return m_site.connections() - static_cast<int>(m_site.requests().size()); };
        const int before = silent();
        f().main().LoadNewDoc(listed);
        QCOMPARE(f().count(), 2);
        WAIT_COMPARE(f().sound.played.size(), 1);
        m_site.page("/page", "Page", cover("<a class=c target=_blank href=" + listed.toLatin1() + ">link</a>"));
        f().document(1).NavigateDoc(at(u"/page"_s));
        QVERIFY(m_site.waitFor("/painted"));
        f().clickPage(QPoint(200, 150));
        WAIT_COMPARE(f().sound.played.size(), 2);
        QCOMPARE(f().count(), 1);
        // One that was open before may have asked since.
        WAIT_VERIFY(silent() <= before);
        for (const LoopbackSite::Request &request : m_site.requests())
            QVERIFY(request.headers.value("host").startsWith("127."));
        QVERIFY(f().visits().find(u"localhost"_s, 10).empty());

        // An open page may go there.
        f().document(1).NavigateDoc(listed);
        WAIT_COMPARE(document(1).LocationURL(), listed);
        settings().BlackListCount = 0;
        settings().PopupPlaySound = false;
    }
};

BROWSER_TEST_MAIN(tst_Unwanted)
#include "tst_unwanted.moc"
