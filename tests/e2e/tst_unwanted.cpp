#include "BrowserFixture.h"

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

/// Keeps a page loading for ever.
const QByteArray kNeverEnds = "<img src=/held>";

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

enum class Act { None, Go, Click, MiddleClick, CtrlClick, Leave, Close };
enum class Fate { Killed, Tab, OneOfTwo, Nothing };

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
    void act(Act what);

private slots:
    void initTestCase();
    void cleanupTestCase() { m_browser.reset(); }
    void init();
    void windows_data();
    void windows();
    void windowsWithoutEnd();
    void content_data();
    void content();
    void downloads();
    void flash();
    void listedSiteIsNeverAsked();
};

void tst_Unwanted::initTestCase()
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

void tst_Unwanted::init()
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

void tst_Unwanted::act(Act what)
{
    const QPoint middle(200, 150);
    switch (what) {
    case Act::None:
        return;
    case Act::Go:
        QVERIFY(m_site.waitFor("/go"));
        m_site.release("/go");
        return;
    case Act::Click:
        f().clickPage(middle);
        return;
    case Act::MiddleClick:
        QTest::mouseClick(f().page(), Qt::MiddleButton, {}, middle);
        return;
    case Act::CtrlClick:
        QTest::mouseClick(f().page(), Qt::LeftButton, Qt::ControlModifier, middle);
        return;
    case Act::Close:
        f().document(2).Unload();
        [[fallthrough]];
    case Act::Leave:
        f().document(1).NavigateDoc(at(u"/target"_s));
        return;
    }
}

void tst_Unwanted::windows_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<Act>("act");
    QTest::addColumn<Fate>("fate");
    const auto row = [](const char *name, const QByteArray &body, Act act, Fate fate) {
        QTest::newRow(name) << body << act << fate;
    };
    const QByteArray open = "open('/target')";
    const QByteArray plain = "<a class=c href=/target>link</a>";
    const QByteArray link = "<a class=c href=/target target=_blank>link</a>";
    const QByteArray form = "<form action=/target target=_blank><button class=c>go</button></form>";
    const QByteArray clickLink = script("document.querySelector('a').click()");
    const auto onClick = [](const QByteArray &code) { return "<div class=c onclick='" + code + "'>text</div>"; };

    row("loading: script", script(open), Act::None, Fate::Killed);
    row("loading: load handler", script("onload = () => { " + open + " }"), Act::None, Fate::Killed);
    row("loading: timer", kNeverEnds + script("setTimeout(() => { " + open + " }, 50)"), Act::None, Fate::Killed);
    row("loading: noopener", script("open('/target', '', 'noopener')"), Act::None, Fate::Killed);
    row("loading: named, with a size", script("open('/target', 'ad', 'width=200')"), Act::None, Fate::Killed);
    row("loading: empty, then sent on", script("const w = open(''); w.location = '/target'"), Act::None, Fate::Killed);
    row("loading: form", kNeverEnds + form + script("document.forms[0].submit()"), Act::None, Fate::Killed);
    row("loading: link clicked by a script", kNeverEnds + link + clickLink, Act::None, Fate::Killed);
    row("loading: base target", "<base target=_blank>" + kNeverEnds + plain + clickLink, Act::None, Fate::Killed);
    row("loading: frame of another site in a frame", kNeverEnds + "<iframe src=/outer-frame></iframe>", Act::None,
        Fate::Killed);
    row("goes on by itself", "<meta http-equiv=refresh content='0; url=/target'>", Act::None, Fate::Nothing);
    const QByteArray leaving = cover(script("for (const when of ['beforeunload', 'pagehide', 'unload']) "
                                            "addEventListener(when, () => { open('/opens'); "
                                            "navigator.sendBeacon('/gone') })"));
    row("as its page is left", leaving, Act::Leave, Fate::Nothing);
    row("as its document closes", leaving, Act::Close, Fate::Nothing);

    row("at rest: script", later(open), Act::Go, Fate::Tab);
    row("at rest: right behind the load", script("onload = () => setTimeout(() => { " + open + " })"), Act::None,
        Fate::Tab);
    row("at rest: empty, then sent on", later("const w = open(''); w.location = '/target'"), Act::Go, Fate::Tab);
    row("at rest: frame", "<iframe src=/waiting-frame></iframe>", Act::Go, Fate::Tab);
    row("at rest but for a frame that never ends", "<iframe src=/held></iframe>" + later(open), Act::Go, Fate::Tab);
    row("click: link", cover(link), Act::Click, Fate::Tab);
    row("click: named target", cover("<a class=c href=/target target=other>link</a>"), Act::Click, Fate::Tab);
    row("click: base target", "<base target=_blank>" + cover(plain), Act::Click, Fate::Tab);
    row("click: form", cover(form), Act::Click, Fate::Tab);
    row("middle click", cover(plain), Act::MiddleClick, Fate::Tab);
    row("Ctrl and click", cover(plain), Act::CtrlClick, Fate::Tab);

    // The user's act counts while the page loads too, and lets one window through.
    row("loading: clicked link", kNeverEnds + cover(link), Act::Click, Fate::Tab);
    row("loading: clicked link in a frame", kNeverEnds + cover("<iframe class=c src=/link-frame></iframe>"), Act::Click,
        Fate::Tab);
    row("loading: timer after a click", kNeverEnds + cover(onClick("setTimeout(() => window.open(\"/target\"), 100)")),
        Act::Click, Fate::Tab);
    row("loading: two by one click", kNeverEnds + cover(onClick("for (const n of [1, 2]) window.open(\"/target\")")),
        Act::Click, Fate::OneOfTwo);
    row("click, then a page that opens one", cover("<a class=c href=/opens>link</a>"), Act::Click, Fate::Tab);

    row("Alt held", script(open), Act::None, Fate::Tab);
    row("Alt held, not allowed", script(open), Act::None, Fate::Killed);
    row("killer off", script(open), Act::None, Fate::Tab);
}

void tst_Unwanted::windows()
{
    QFETCH(QByteArray, body);
    QFETCH(Act, act);
    QFETCH(Fate, fate);
    const QByteArray row = QTest::currentDataTag();
    const bool withAlt = row.startsWith("Alt");
    settings().PopupCtrlEnable = !row.contains("not allowed");
    settings().PopupKillerEnable = row != "killer off";
    const QByteArray inner = m_site.address(u"/inner-frame"_s, u"localhost"_s).toLatin1();
    m_site.page("/outer-frame", "Frame", "<iframe src=" + inner + "></iframe>");
    m_site.page("/inner-frame", "Frame", script("open('/target')"));
    m_site.page("/waiting-frame", "Frame", later("open('/target')"));
    m_site.page("/link-frame", "Frame", cover("<a class=c href=/target target=_blank>link</a>"));
    m_site.page("/page", "Page", body);

    if (withAlt)
        QTest::keyPress(f().main().windowHandle(), Qt::Key_Alt, Qt::AltModifier);
    if (act == Act::Close)
        f().main().LoadNewDoc(at(u"/page"_s));
    else
        f().document(1).NavigateDoc(at(u"/page"_s));
    QVERIFY(m_site.waitFor("/page"));

    if (body.contains("/painted"))
        QVERIFY(m_site.waitFor("/painted"));
    if (body.contains("link-frame"))
        QVERIFY(m_site.waitFor("/painted", 2));
    if (row.startsWith("at rest") && act != Act::None)
        WAIT_VERIFY(!document(1).isLoading() && m_site.count("/page") == 1);
    this->act(act);

    const int tabs = fate == Fate::Tab || fate == Fate::OneOfTwo ? 2 : 1;
    const bool kills = fate == Fate::Killed || fate == Fate::OneOfTwo;
    if (tabs == 2)
        QVERIFY(f().waitForPage(2, u"Target"_s));
    if (kills) {
        const bool isKilled = waitUntil([&] { return document(1).tmrKillPopup.Enabled(); }, kPatience);
        QVERIFY2(isKilled, qPrintable(u"%1 documents"_s.arg(f().count())));
    }
    if (fate == Fate::Nothing)
        QVERIFY(f().waitForPage(1, u"Target"_s));
    // A page that goes with its document often has no time to send anything.
    if (act == Act::Leave)
        QVERIFY(m_site.waitFor("/gone"));
    if (withAlt)
        QTest::keyRelease(f().main().windowHandle(), Qt::Key_Alt);
    QCOMPARE(f().count(), tabs);
    QCOMPARE(m_site.count("/target"), fate == Fate::Killed ? 0 : 1);
    QCOMPARE(document(1).tmrKillPopup.Enabled(), kills);
    QCOMPARE(f().disorder(), QString());
}

void tst_Unwanted::windowsWithoutEnd()
{
    m_site.page("/flood", "Flood",
                later("let n = 0; for (let i = 0; i < 10000; ++i) n += open('') ? 1 : 0; fetch('/done')"));
    f().document(1).NavigateDoc(at(u"/flood"_s));
    QVERIFY(f().waitForPage(1, u"Flood"_s));
    act(Act::Go);
    // The window works meanwhile.
    f().main().LoadNewDoc(at(u"/target"_s));
    QVERIFY(m_site.waitFor("/target"));
    QVERIFY(m_site.waitFor("/done", 1, 60'000));
    QCOMPARE_LE(f().count(), 22);
    QCOMPARE(f().disorder(), QString());
}

namespace {

/// Everything that the policy is about, in a page and in a frame of another site: %1 is "m" or "f". Each part asks the
/// site for an address of its own when it is loaded or runs.
const QByteArray kEverything = R"HTML(
<style>div { width: 9px; height: 9px; background: url(/%1-background) }</style><div></div>
<img src=/%1-image><picture><source srcset=/%1-picture><img></picture>
<audio src=/%1-audio></audio><video src=/%1-video></video><video><source src=/%1-video-source></video>
<object data=/%1-object type=application/pdf></object><embed src=/%1-embed type=text/html>
<noscript><link rel=stylesheet href=/%1-noscript></noscript>
<script>
const blob = document.createElement('video');
blob.onerror = () => fetch('/%1-video-blob');
blob.src = URL.createObjectURL(new Blob(['no film']));
document.body.append(blob);
const loose = document.createElement('video');
loose.setAttribute('src', '/%1-video-loose');
loose.load();
const shadow = document.createElement('p').attachShadow({ mode: 'closed' });
shadow.innerHTML = '<video src=/%1-video-shadow></video>';
document.body.append(shadow.host);
fetch('/%1-script');
if (self.WebAssembly) fetch('/%1-assembly');
new Worker(URL.createObjectURL(new Blob(["fetch('" + location.origin + "/%1-worker.wasm')"])));
</script>)HTML";

struct Choice
{
    const char *name;
    bool Settings::*value;
    /// What the site is not asked for without it.
    QByteArrayList parts;
};

std::vector<Choice> choices()
{
    return {
        {"EnableImages", &Settings::EnableImages, {"image", "background", "picture"}},
        {"EnableSound", &Settings::EnableSound, {}},
        {"EnableVideo", &Settings::EnableVideo, {"video", "video-source", "video-blob", "video-loose", "video-shadow"}},
        {"EnableScripts",
         &Settings::EnableScripts,
         {"script", "assembly", "video-blob", "video-loose", "video-shadow", "worker.wasm"}},
        {"EnableJava", &Settings::EnableJava, {"assembly", "worker.wasm"}},
        {"EnableActiveXRUN", &Settings::EnableActiveXRUN, {"object", "embed"}}};
}

} // namespace

void tst_Unwanted::content_data()
{
    QTest::addColumn<QByteArray>("off");
    QTest::newRow("all on") << QByteArray();
    QTest::newRow("all off") << "Enable"_ba;
    for (const Choice &choice : choices())
        QTest::newRow(choice.name) << QByteArray(choice.name);
}

void tst_Unwanted::content()
{
    QFETCH(QByteArray, off);
    // Once in a window that a page opens.
    const bool isOpened = off == "Enable";
    m_site.page("/opener", "Opener", later("open('/everything')"));
    f().document(1).NavigateDoc(at(u"/opener"_s));
    QVERIFY(f().waitForPage(1, u"Opener"_s));

    QSet<QByteArray> with{"audio"};
    QSet<QByteArray> without;
    for (const Choice &choice : choices()) {
        const bool isOn = off.isEmpty() || !QByteArray(choice.name).startsWith(off);
        settings().*choice.value = isOn;
        (isOn ? with : without) += QSet(choice.parts.begin(), choice.parts.end());
    }
    with -= without;
    (settings().EnableScripts ? without : with) += "noscript";

    m_site.page("/frame", "Frame", QByteArray(kEverything).replace("%1", "f"));
    m_site.page("/everything", "Everything",
                QByteArray(kEverything).replace("%1", "m") +
                    "<iframe src=" + m_site.address(u"/frame"_s, u"localhost"_s).toLatin1() + "></iframe>");
    if (isOpened)
        act(Act::Go);
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

void tst_Unwanted::downloads()
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

void tst_Unwanted::flash()
{
    // Each element tells the site the size of what stands in its place.
    const QByteArray tells =
        script("setInterval(() => { for (const e of document.querySelectorAll('[id]')) { "
               "const box = e.previousElementSibling; if (box && !e.told && "
               "getComputedStyle(e).display === 'none') { e.told = 1; "
               "fetch('/box-' + e.id + '-' + box.offsetWidth + 'x' + box.offsetHeight) } } }, 50)");
    const QByteArray movie = " type=application/x-shockwave-flash ";
    m_site.page("/cage", "Frame", "<embed id=framed" + movie + "src=a.swf width=120 height=60>" + tells);
    m_site.page("/flash", "Flash",
                "<style>body { margin: 0 } span, a { display: none !important; width: 1px !important; font: 3px serif "
                "!important }</style><b></b>"
                "<object id=object classid='clsid:D27CDB6E-AE6D-11cf-96B8-444553540000' width=400 height=300>"
                "<param name=movie value=a.swf><embed src=a.swf></object>"
                "<b></b><iframe src=/cage></iframe><iframe sandbox=allow-scripts src='" +
                    m_site.address(u"/cage"_s, u"localhost"_s).toLatin1() + "'></iframe>" + tells +
                    later("document.body.insertAdjacentHTML('beforeend', "
                          "'<b></b><embed id=late src=b.swf?x style=\"width: 88px; height: 31px\">')"));
    settings().EnableFlash = false;
    f().document(1).NavigateDoc(at(u"/flash"_s));
    QVERIFY(m_site.waitFor("/box-object-400x300"));
    QVERIFY(m_site.waitFor("/box-framed-120x60", 2));
    act(Act::Go);
    QVERIFY(m_site.waitFor("/box-late-88x31"));
    QCOMPARE(m_site.count("/a.swf"), 0);

    // The box leads the way back.
    f().clickPage(QPoint(200, 150));
    QVERIFY(m_site.waitFor("/flash", 2));
    QVERIFY(settings().EnableFlash);
    QVERIFY(f().waitForPage(1, u"Flash"_s));
    QCOMPARE(document(1).LocationURL(), at(u"/flash"_s));
    act(Act::Go);
    QCOMPARE(m_site.count("/box-object-400x300"), 1);
}

void tst_Unwanted::listedSiteIsNeverAsked()
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
    WAIT_COMPARE(silent(), before);
    for (const LoopbackSite::Request &request : m_site.requests())
        QVERIFY(request.headers.value("host").startsWith("127."));
    QVERIFY(f().visits().find(u"localhost"_s, 10).empty());

    // An open page may go there.
    f().document(1).NavigateDoc(listed);
    WAIT_COMPARE(document(1).LocationURL(), listed);
    settings().BlackListCount = 0;
    settings().PopupPlaySound = false;
}

int main(int argc, char **argv)
{
    return runBrowserTests<tst_Unwanted>(argc, argv);
}
#include "tst_unwanted.moc"
