#include "EngineFixture.h"
#include "engine/FormRecord.h"
#include "engine/PageFacets.h"
#include "support/Wait.h"

#include <QApplication>
#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

/// Answers by the whole name of an input, and writes down who asked for what.
class NamedRecord : public engine::FormRecord
{
public:
    QHash<QString, QString> values{{u"first"_s, u"Ada"_s},     {u"mail"_s, u"ada@example.org"_s},
                                   {u"card"_s, u"4111"_s},     {u"country"_s, u"Canada"_s},
                                   {u"state"_s, u"Ontario"_s}, {u"title"_s, u"Ms"_s}};
    mutable QStringList asked;
    mutable std::vector<engine::FrameForm> frames;

    void LoadFormData(const QString &) override {}
    void ClearFormData() override {}
    void AddFormField(const QString &, const QString &, bool) override {}
    void SaveFormData(const QString &) override {}
    void GetFormField(const QString &, QString &, bool &) const override {}

    std::vector<engine::FormAnswer> matchForm(const engine::FrameForm &frame, bool) const override
    {
        std::vector<engine::FormAnswer> answers;
        frames.push_back(frame);
        for (const engine::FormInput &input : frame.inputs) {
            asked << input.name;
            // Several inputs of a page can be given the same field: "first.2".
            const QString value = values.value(input.name.section(u'.', 0, 0));
            if (value.isEmpty())
                continue;
            if (input.type == "select-one"_L1) {
                for (std::size_t i = 0; i < input.options.size(); ++i) {
                    if (input.options[i].text == value)
                        answers.push_back({input.number, QString::number(i)});
                }
            } else if (input.type != "radio"_L1 || input.value == value) {
                answers.push_back({input.number, input.type == "radio"_L1 ? u"1"_s : value});
            }
        }
        return answers;
    }
};

const QByteArray kInput = "<input name=first>";
/// Tells the site all values and all marks, and each event as it comes.
const QByteArray kTell = R"(<script>
    const tell = what => fetch('/told?' + encodeURIComponent(what));
    for (const kind of ['keydown', 'input', 'change', 'blur', 'click'])
        addEventListener(kind, e => tell(kind + ' ' + e.target.name + ' ' +
            (e.target.type === 'radio' ? e.target.checked : e.target.value)), true);
</script>)";

} // namespace

/// Filling on real pages: which inputs of which frames are reached, what the page notices, and what it never learns.
class WebForms : public QObject
{
    Q_OBJECT

    LoopbackSite m_site;
    LoopbackSite m_secure{LoopbackSite::Security::SelfSigned};
    TestEngine m_test;
    std::shared_ptr<NamedRecord> m_record;

    QString at(const QString &path, const QString &host = u"127.0.0.1"_s) const { return m_site.address(path, host); }
    QByteArray other(const QByteArray &path) const { return at(QString::fromLatin1(path), u"localhost"_s).toLatin1(); }

    void fill(RecordedBrowser &browser)
    {
        browser.statuses.clear();
        browser->formFacet()->fill(m_record, false);
    }

    static bool waitForFilled(const RecordedBrowser &browser, int count)
    {
        const QString status = count == 0   ? u"Nothing on this page to fill"_s
                               : count == 1 ? u"1 field filled"_s
                                            : u"%1 fields filled"_s.arg(count);
        return waitUntil([&] { return browser.statuses.contains(status); }, 15'000);
    }

    /// What pages have told, one line each.
    QStringList told() const
    {
        QStringList lines;
        for (const LoopbackSite::Request &request : m_site.requests()) {
            if (request.path() == "/told")
                lines << QString::fromUtf8(QByteArray::fromPercentEncoding(request.target.mid(6)));
        }
        return lines;
    }

private slots:
    void init()
    {
        m_record = std::make_shared<NamedRecord>();
        m_site.clearRequests();
        m_site.page("/plain", "Plain", "no inputs");
        m_site.add("/told", {});
        m_site.page("/inner", "Inner", kInput);
        // A frame with an input of the name that its address says, or with whatever else it says.
        m_site.handle("/named", [](const LoopbackSite::Request &request) {
            return LoopbackSite::Answer{QByteArray("<!doctype html><body style='margin:0'><input name=") +
                                        request.target.split('?').last() + " style='width:150px;height:20px'>"};
        });
    }

    void everyKindOfFrame_data()
    {
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<QString>("origin");
        QTest::addColumn<bool>("isSecure");
        const QString own = at(QString()), others = at(QString(), u"localhost"_s);
        const auto row = [](const char *name, const QByteArray &body, const QString &origin, bool isSecure = true) {
            QTest::newRow(name) << body << origin << isSecure;
        };
        row("page", kInput, own);
        row("form", "<form>" + kInput + "</form>", own);
        row("below the fold", "<div style=height:3000px></div>" + kInput, own);
        row("inside what scrolls",
            "<div style='height:100px;overflow:auto'><div style=height:900px></div>" + kInput + "</div>", own);
        row("own frame", "<iframe src=/inner></iframe>", own);
        row("other origin", "<iframe src=" + other("/inner") + "></iframe>", others);
        m_site.page("/nest", "Nest", "<iframe src=" + other("/nest2") + "></iframe>");
        m_site.page("/nest2", "Nest2", "<iframe src=" + at(u"/inner"_s).toLatin1() + "></iframe>");
        row("nested", "<iframe src=" + other("/nest") + " width=400 height=300></iframe>", own);
        row("frame below the fold", "<div style=height:3000px></div><iframe src=" + other("/inner") + "></iframe>",
            others);
        row("srcdoc", "<iframe srcdoc='" + kInput + "'></iframe>", own);
        row("empty frame", "<iframe id=f></iframe><script>f.contentDocument.body.innerHTML = '" + kInput + "'</script>",
            own);
        row("written frame",
            "<iframe id=f></iframe><script>f.contentDocument.write('" + kInput +
                "');f.contentDocument.close()</script>",
            own);
        row("data", "<iframe src='data:text/html," + kInput + "'></iframe>", QString(), false);
        row("sandbox", "<iframe sandbox src=/inner></iframe>", QString());
        row("sandbox with scripts", "<iframe sandbox=allow-scripts src=/inner></iframe>", QString());
        row("shadow root",
            "<div id=h></div><script>h.attachShadow({mode:'open'}).innerHTML = '" + kInput + "'</script>", own);
        row("frame in a shadow root",
            "<div id=h></div><script>h.attachShadow({mode:'open'}).innerHTML = '<iframe src=" + other("/inner") +
                "></iframe>'</script>",
            others);
        row("object", "<object data=/inner type=text/html width=300 height=100></object>", own);
    }

    void everyKindOfFrame()
    {
        QFETCH(QByteArray, body);
        QFETCH(QString, origin);
        QFETCH(bool, isSecure);
        for (const QByteArray &policy :
             {QByteArray(), QByteArray("default-src * 'unsafe-inline' data:; connect-src 'none'")}) {
            LoopbackSite::Answer page{"<!doctype html><title>Top</title>" + body};
            if (!policy.isEmpty())
                page.headers = {{"Content-Security-Policy", policy}};
            m_site.add("/top", page);
            RecordedBrowser browser(*m_test.engine, m_site);
            QVERIFY(browser.open(at(u"/top"_s)));
            fill(browser);
            QVERIFY2(waitForFilled(browser, 1), qPrintable(browser.statuses.join(u'|')));
            QCOMPARE(m_record->asked.count(u"first"_s), policy.isEmpty() ? 1 : 2);
            const auto asking = std::find_if(m_record->frames.begin(), m_record->frames.end(),
                                             [](const engine::FrameForm &frame) { return !frame.inputs.empty(); });
            QCOMPARE(asking->origin, origin);
            QCOMPARE(asking->secure, isSecure);
        }
    }

    void pagesWithoutScripts_data()
    {
        QTest::addColumn<QString>("address");
        QTest::addColumn<int>("content");
        static QTemporaryDir folder;
        QFile file(folder.filePath(u"form.html"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("<!doctype html><title>File</title>" + kInput);
        file.close();
        QTest::newRow("file") << QUrl::fromLocalFile(file.fileName()).toString() << 0x70;
        QTest::newRow("sandboxed page") << at(u"/quiet"_s) << 0x70;
        QTest::newRow("data") << u"data:text/html,"_s + QString::fromLatin1(kInput) << 0x70;
        QTest::newRow("scripts off") << at(u"/inner"_s) << 0xf0;
    }

    void pagesWithoutScripts()
    {
        QFETCH(QString, address);
        QFETCH(int, content);
        LoopbackSite::Answer page{"<!doctype html><title>Quiet</title>" + kInput};
        page.headers = {{"Content-Security-Policy", "default-src 'none'; sandbox"}};
        m_site.add("/quiet", page);
        RecordedBrowser browser(*m_test.engine, m_site);
        // Pictures, videos and sounds; 0x80 more and no scripts.
        browser->setAmbientProperty(engine::DISPID_AMBIENT_DLCONTROL, content);
        QVERIFY(browser.open(address));
        fill(browser);
        QVERIFY(waitForFilled(browser, 1));
        // It holds something now, and a second command leaves it alone.
        fill(browser);
        QVERIFY(waitForFilled(browser, 0));
    }

    void windowsThatAPageOpens_data()
    {
        QTest::addColumn<QByteArray>("script");
        QTest::newRow("loaded") << QByteArray("open('/inner')");
        QTest::newRow("written") << QByteArray("const w = open('about:blank'); w.document.write('") + kInput +
                                        "'); w.document.close()";
    }

    void windowsThatAPageOpens()
    {
        QFETCH(QByteArray, script);
        m_site.page("/opens", "Opens", "<script>" + script + "</script>");
        std::optional<RecordedBrowser> opened;
        RecordedBrowser browser(*m_test.engine, m_site);
        browser.takesWindow = [&] { return &*opened.emplace(*m_test.engine, m_site); };
        QVERIFY(browser.open(at(u"/opens"_s)));
        QVERIFY(opened && opened->waitForEnd());
        fill(*opened);
        QVERIFY(waitForFilled(*opened, 1));
    }

    void protectedPaths_data()
    {
        QTest::addColumn<QString>("page");
        QTest::addColumn<QString>("frame");
        QTest::addColumn<bool>("isSecure");
        const QString far = u"shop.example"_s;
        QTest::newRow("own machine") << at(u"/top"_s) << at(u"/inner"_s, u"localhost"_s) << true;
        QTest::newRow("open way") << at(u"/top"_s, far) << at(u"/inner"_s, far) << false;
        QTest::newRow("in an open page") << at(u"/top"_s, far) << at(u"/inner"_s) << false;
        QTest::newRow("open frame") << at(u"/top"_s) << at(u"/inner"_s, far) << false;
        QTest::newRow("excepted certificate") << m_secure.address(u"/top"_s) << m_secure.address(u"/inner"_s) << false;
    }

    void protectedPaths()
    {
        QFETCH(QString, page);
        QFETCH(QString, frame);
        QFETCH(bool, isSecure);
        for (LoopbackSite *site : {&m_site, &m_secure}) {
            site->page("/inner", "Inner", kInput);
            site->page("/top", "Top", "<iframe src='" + frame.toLatin1() + "'></iframe>");
        }
        RecordedBrowser browser(*m_test.engine, m_site);
        QVERIFY(browser.open(page));
        if (page.startsWith("https"_L1)) {
            QVERIFY(browser.press(u"Continue anyway"_s));
            WAIT_COMPARE(browser->LocationName(), u"Top"_s);
            QVERIFY(browser.waitForEnd(2));
        }
        fill(browser);
        QVERIFY(waitForFilled(browser, 1));
        for (const engine::FrameForm &form : m_record->frames)
            QCOMPARE(form.secure, isSecure);
    }

    void pageNoticesAndInputsThatComeLaterAreFilled()
    {
        m_site.page("/shop", "Shop",
                    kTell + R"(<table><tr><td>Given name:</td><td><input name=first maxlength=3></td></tr></table>
            <label>Mail <input name=mail type=email></label> <input name=card maxlength=3>
            <input type=radio name=title value=Mr> <input type=radio name=title value=Ms>
            <select name=country><option>Choose<option>Austria<option>Canada</select>
            <select name=state><option>Country first</select> <div id=more></div>
            <script>
                // As frameworks do: a value that the page's own setter has seen is no news.
                const own = Object.getOwnPropertyDescriptor(HTMLInputElement.prototype, 'value');
                const mail = document.querySelector('[name=mail]');
                let seen = '';
                Object.defineProperty(mail, 'value', { get() { return own.get.call(this) },
                    set(v) { seen = v; own.set.call(this, v) } });
                mail.addEventListener('input', () => { if (mail.value !== seen) tell('tracked ' + mail.value) });
                document.querySelector('[name=country]').addEventListener('change', () => setTimeout(() => {
                    document.querySelector('[name=state]').innerHTML = '<option>Choose<option>Ontario<option>Quebec';
                    more.innerHTML = '<input name=first.2>';
                }, 300));
            </script>)");
        RecordedBrowser browser(*m_test.engine, m_site);
        QVERIFY(browser.open(at(u"/shop"_s)));
        fill(browser);
        QVERIFY2(waitForFilled(browser, 6), qPrintable(browser.statuses.join(u'|')));
        WAIT_VERIFY(told().contains(u"change first.2 Ada"_s));
        for (const char *line : {"keydown first ", "input first Ada", "change first Ada", "blur first Ada",
                                 "tracked ada@example.org", "click title true", "change title true",
                                 "input country Canada", "change country Canada", "change state Ontario"})
            QVERIFY2(told().contains(QString::fromLatin1(line)), line);
        // Too long for it, and so not cut to something else.
        QVERIFY(told().filter(u"card"_s).isEmpty());
        const engine::FormInput &first = m_record->frames.front().inputs.front();
        QCOMPARE(first.label, u"Given name:"_s);
        QCOMPARE(first.maxLength, 3);
    }

    void whatAPageTakesBackDuringTheFillIsLeftAlone()
    {
        m_site.page("/strict", "Strict",
                    kTell + R"(<input name=first> <input name=mail> <input name=mail.2> <input name=mail.3>
            <input name=mail.4> <fieldset><input name=mail.5></fieldset> <input name=first.2>
            <iframe srcdoc='<input name=mail.6>'></iframe> <iframe srcdoc='<input name=mail.7>'></iframe>
            <script>
                const named = name => document.querySelector('[name="' + name + '"]');
                const filled = [];
                const hear = page => page.addEventListener('input', e => filled.push(e.target.name), true);
                onload = () => [document, frames[0].document, frames[1].document].forEach(hear);
                named('first').addEventListener('input', () => {
                    named('mail').disabled = true;
                    named('mail.2').readOnly = true;
                    named('mail.3').type = 'search';
                    named('mail.4').value = 'my own';
                    document.querySelector('fieldset').disabled = true;
                    frames[0].document.querySelector('input').remove();
                    document.querySelectorAll('iframe')[1].remove();
                });
                named('first.2').addEventListener('change', () => tell(filled.join()));
            </script>)");
        RecordedBrowser browser(*m_test.engine, m_site);
        QVERIFY(browser.open(at(u"/strict"_s)));
        fill(browser);
        QVERIFY2(waitForFilled(browser, 2), qPrintable(browser.statuses.join(u'|')));
        QCOMPARE(m_record->asked.filter(u"mail"_s).size(), 7);
        WAIT_VERIFY(told().contains(u"first,first.2"_s));
    }

    void framesThatMoveOnDuringTheFillGetNothing()
    {
        m_site.page("/moving", "Moving",
                    kTell + QByteArray("<input name=first placeholder=Name>").repeated(10) +
                        R"(<iframe srcdoc='<input name=mail>'></iframe>
            <script>
                const filled = [];
                onload = () => {
                    const left = frames[0].document;
                    left.addEventListener('input', () => filled.push('and filled'), true);
                    document.addEventListener('input', () => {
                        frames[0].location.replace('about:blank');
                        // Longer than a fill goes on without a pause.
                        for (const end = performance.now() + 60; performance.now() < end;);
                        if (!document.querySelector('input:placeholder-shown'))
                            setTimeout(() => tell([frames[0].document === left ? 'there' : 'gone', ...filled]), 300);
                    });
                };
            </script>)");
        RecordedBrowser browser(*m_test.engine, m_site);
        QVERIFY(browser.open(at(u"/moving"_s)));
        fill(browser);
        QVERIFY(waitForFilled(browser, 10));
        WAIT_VERIFY(told().contains(u"gone"_s));
        QCOMPARE(m_record->asked.count(u"mail"_s), 1);
    }

    void whatTheUserCannotSeeIsNotAskedFor()
    {
        // Every trick stands beside the same input without it.
        const QList<QByteArray> tricks{
            "<div style=display:none>@</div>",
            "<div style=visibility:hidden>@</div>",
            "<div style=opacity:0><p>@</p></div>",
            "<div style='filter:opacity(0)'>@</div>",
            "<div style='width:0;height:0;overflow:hidden'>@</div>",
            "<div style='transform:scale(0)'>@</div>",
            "<div style='position:absolute;left:-5000px'>@</div>",
            "<div style='position:absolute;top:-5000px'>@</div>",
            "<div style='position:fixed;left:6000px;top:0'>@</div>",
            "<div style='overflow:hidden;width:100px;height:30px;position:relative'><div "
            "style='position:absolute;left:150px'>@</div></div>",
            "<div style='position:relative'>@<div style='position:absolute;inset:0;background:white'></div></div>",
            "<div style='position:relative'>@<div class=veil></div></div>",
            "<div style='position:relative'>@<div class=veil style='pointer-events:none!important'></div></div>",
            "<div style='position:relative;z-index:0;background:white;height:40px'><div "
            "style='position:absolute;z-index:-1;inset:0'>@</div><div "
            "style='background:white;height:40px'></div></div>",
            "<div style='clip-path:inset(100%)'>@</div>",
            "<div style='height:40px'><div style='position:absolute;clip:rect(0,0,0,0)'>@</div></div>",
            "<div style='-webkit-mask-image:linear-gradient(transparent,transparent)'>@</div>",
            "<div style='-webkit-mask-box-image:linear-gradient(transparent,transparent)'>@</div>",
            "<div style='content-visibility:hidden;height:40px'>@</div>",
            "<details><summary>More</summary>@</details>",
            "<div style=color:transparent>@</div>",
            "<fieldset disabled>@</fieldset>",
            "<div inert>@</div>",
            "<form role=search>@</form>",
        };
        QByteArray body = "<style>input{font:16px sans-serif;color:inherit;display:block;width:80px;height:20px}"
                          ".veil{position:absolute;inset:0;background:white;pointer-events:none}</style>";
        QStringList fair;
        int number = 0;
        for (const QByteArray &trick : tricks) {
            ++number;
            body += QByteArray(trick).replace("@", "<input name=card.hidden" + QByteArray::number(number) + '>');
            body += "<div><p><input name=first." + QByteArray::number(number) + "></p></div>";
            fair << u"first.%1"_s.arg(number);
        }
        for (const char *wrong : {"disabled", "readonly", "value=x", "type=password", "type=search", "type=hidden",
                                  "autocomplete=one-time-code", "style=width:2px"})
            body += QByteArray("<input name='card.") + wrong + "' " + wrong + '>';
        body += "<select name=country id=chosen><option>Choose<option>Austria<option>Canada</select>"
                "<script>chosen.selectedIndex = 1</script><input type=radio name=title value=Mr checked>"
                "<input type=radio name=title value=Ms>";
        // Frames that are not seen themselves, however well their inputs show in them.
        for (const QByteArray &origin : {QByteArray(), other(QByteArray())}) {
            const auto framed = [&](const QByteArray &name) {
                return "<iframe width=200 height=40 src=" + origin + "/named?" + name + " ";
            };
            const QByteArray hidden = framed("card.frame"), name = origin.isEmpty() ? "first.own" : "first.other";
            body += framed(name) + "></iframe>" + hidden + "style='opacity:0'></iframe>" + hidden +
                    "style='position:absolute;left:-900px'></iframe>" + hidden +
                    "style='position:fixed;top:9000px'></iframe>" + hidden + "style='width:1px;height:1px'></iframe>" +
                    hidden + "style='visibility:hidden'></iframe>" + hidden + "style='display:none'></iframe>" +
                    hidden + "style='clip-path:circle(2px)'></iframe>" +
                    "<div style='width:200px;height:10px;overflow:hidden'>" + hidden + "></iframe></div>" +
                    "<div style='position:relative'>" + hidden + "></iframe><div class=veil></div></div>" +
                    "<div class=shade></div><script>document.currentScript.previousSibling.attachShadow({mode:"
                    "'closed'}).innerHTML = \"" +
                    hidden + "style='opacity:0.05'></iframe>\"</script>";
            fair << QString::fromLatin1(name);
        }
        m_site.page("/trap", "Trap", body);
        RecordedBrowser browser(*m_test.engine, m_site);
        browser->window()->resize(900, 3000);
        QVERIFY(browser.open(at(u"/trap"_s)));
        fill(browser);
        QVERIFY2(waitForFilled(browser, static_cast<int>(fair.size())), qPrintable(m_record->asked.join(u'|')));
        QVERIFY(!waitUntil([&] { return !m_record->asked.filter(u"card"_s).isEmpty(); }, 2500));
        QStringList asked = m_record->asked;
        asked.sort();
        fair.sort();
        QCOMPARE(asked, fair);
    }

    void shapesOfEveryOriginHideInputs()
    {
        // The engine takes all of these for painted. Where there are none, a look at the few rules of a page has to do,
        // so every page has one way only.
        const QByteArray none = "linear-gradient(transparent,transparent)", mask = "-webkit-mask:" + none;
        const QList<QByteArray> ways{
            "<style>p{" + mask + "}</style>@",
            "<style>@media all{p{" + mask + "}}</style>@",
            "<style>@import 'data:text/css,p{" + mask + "}';</style>@",
            "<style>i{color:red}</style>@<script>document.styleSheets[0].insertRule('p{" + mask + "}')</script>",
            "@<script>const s = new CSSStyleSheet; s.replaceSync('p{" + mask +
                "}'); document.adoptedStyleSheets = [s]</script>",
            "@<script>document.querySelector('p').animate({clipPath: ['circle(0)', 'circle(0)']}, 1e9)</script>",
            "<div style='-webkit-m\\61sk:" + none + "'>@</div>",
            "<svg><mask id=c></mask><foreignObject width=200 height=60 mask=url(#c)>@</foreignObject></svg>",
            "<div>@</div><script>document.querySelector('div').attachShadow({mode:'open'}).innerHTML = '<b style=\"" +
                mask + "\"><slot></slot></b>'</script>",
            "<div inert>@</div>",
        };
        const QByteArray input = "<p><input name=card></p>", frame = "<iframe width=250 height=70 src=/";
        m_site.page("/fair", "Fair", "<style>p{color:black}</style><p><input name=first></p>");
        for (qsizetype i = 0; i < ways.size(); ++i) {
            m_site.page("/shape", "Shape", QByteArray(ways[i]).replace(ways[i].lastIndexOf('@'), 1, input));
            m_site.page("/shapes", "Shapes", frame + "shape></iframe>" + frame + "fair></iframe>");
            RecordedBrowser browser(*m_test.engine, m_site);
            browser->window()->resize(900, 900);
            QVERIFY(browser.open(at(u"/shapes"_s)));
            fill(browser);
            QVERIFY2(waitForFilled(browser, 1), ways[i].constData());
            QCOMPARE(m_record->asked.join(u'|'), u"first"_s);
            m_record->asked.clear();
        }
    }

    void pageCannotGetInBetween()
    {
        // Whatever the page's scripts can replace hands over what passes through it; and the page tries the channel
        // itself.
        m_site.page("/spy", "Spy", R"(<script>
            const send = fetch, tell = what => send('/told?' + encodeURIComponent(what));
            </script><form><input name=parentNode><input name=elements><input name=shadowRoot>
            <input name=__proto__><input name=getAttribute><input name=first.1></form>
            <img name=querySelectorAll><form name=body></form><form name=documentElement></form>
            <input name=first.2 id=long><script>
            long.id = long.title = 'x'.repeat(1 << 20);
            const caught = [], wrap = (o, k) => { const f = o[k]; if (typeof f === 'function') o[k] = function () {
                caught[caught.length] = k + String(arguments[0]) + String(arguments[1]); return f.apply(this, arguments) } };
            for (const k of ['push', 'map', 'join', 'includes', 'split']) { wrap(Array.prototype, k); wrap(String.prototype, k); }
            wrap(JSON, 'parse'); wrap(JSON, 'stringify'); wrap(window, 'postMessage'); wrap(window, 'fetch');
            wrap(XMLHttpRequest.prototype, 'open'); wrap(XMLHttpRequest.prototype, 'send');
            wrap(Map.prototype, 'set'); wrap(Promise.prototype, 'then'); wrap(window, 'setTimeout');
            wrap(Element.prototype, 'getAttribute'); wrap(EventTarget.prototype, 'dispatchEvent');
            Object.defineProperty(Object.prototype, 'toJSON', { get() { caught[caught.length] = 'toJSON' } });
            Object.defineProperty(HTMLInputElement.prototype, 'value', { get() { caught[caught.length] = 'get' }, set() { caught[caught.length] = 'set' } });
            addEventListener('message', e => caught.push('message'));
            caught.length = 0;
            addEventListener('change', e => {
                if (e.target.name !== 'first.2') return;
                const had = caught.length;
                const token = /[0-9a-f]{32}/.exec(Object.keys(window).map(k => String(window[k])).join() +
                    performance.getEntries().map(e => e.name).join());
                tell('caught ' + had + ' ' + (window.corvaneFill || '') + (token || ''));
                const tries = ['wait', 'inputs', 'done'].flatMap(op => ['', '0'.repeat(32)].map(t => new Promise(done => {
                    const x = new XMLHttpRequest;
                    x.onload = () => done('open'); x.onerror = () => done('shut');
                    x.open('GET', 'engine://fill/' + op + '?t=' + t + '&k=' + t + '&d={"last":true,"inputs":[{"n":1,"name":"card"}]}');
                    x.send();
                })));
                const frame = document.createElement('iframe');
                frame.src = 'engine://fill/wait?t=';
                document.body.append(frame);
                Promise.all(tries).then(all => tell('tries ' + all.join(' ')));
            });
            </script>)");
        RecordedBrowser browser(*m_test.engine, m_site);
        QVERIFY(browser.open(at(u"/spy"_s)));
        fill(browser);
        QVERIFY2(waitForFilled(browser, 2), qPrintable(browser.statuses.join(u'|')));
        WAIT_VERIFY(told().contains(u"tries shut shut shut shut shut shut"_s));
        QVERIFY2(told().contains(u"caught 0 "_s), qPrintable(told().filter(u"caught"_s).join(u'|')));
        QVERIFY(m_record->asked.contains(u"__proto__"_s));
        QVERIFY(!m_record->asked.contains(u"card"_s));
        for (const engine::FrameForm &frame : m_record->frames) {
            for (const engine::FormInput &input : frame.inputs)
                QVERIFY(input.id.size() <= 100 && input.ariaLabel.size() <= 100);
        }
    }

    void leavingEndsTheFill_data()
    {
        QTest::addColumn<QString>("way");
        QTest::newRow("navigation") << u"location = '/next'"_s;
        QTest::newRow("reload") << u"sessionStorage.went || (sessionStorage.went = 1, location.reload())"_s;
        QTest::newRow("form") << u"this.form.submit()"_s;
    }

    void leavingEndsTheFill()
    {
        QFETCH(QString, way);
        m_site.page("/next", "Next", "<input name=card>" + kTell);
        m_site.page("/goes", "Goes",
                    "<form action=/next><input name=first.1 oninput=\"" + way.toLatin1() +
                        "\"></form><input name=mail>");
        RecordedBrowser browser(*m_test.engine, m_site);
        QVERIFY(browser.open(at(u"/goes"_s)));
        fill(browser);
        QVERIFY(browser.waitForEnd(2));
        QVERIFY(m_record->asked.contains(u"first.1"_s));
        const int before = m_record->asked.size();
        QVERIFY(!waitUntil([&] { return m_record->asked.size() > before; }, 1500));
        // The new page takes part in the next fill as ever.
        fill(browser);
        WAIT_VERIFY(m_record->asked.size() > before);
    }

    void oneHundredThousandInputsHoldNobody()
    {
        m_site.page("/flood", "Flood",
                    kInput + "<script>document.body.insertAdjacentHTML('beforeend', "
                             "'<input type=checkbox name=mail>'.repeat(100000))</script>");
        RecordedBrowser browser(*m_test.engine, m_site);
        QVERIFY(browser.open(at(u"/flood"_s)));
        fill(browser);
        QVERIFY(waitUntil([&] { return m_record->asked.contains(u"first"_s); }, 30'000));
        QVERIFY(m_record->asked.size() <= 2000);
        // Others go on meanwhile.
        RecordedBrowser other(*m_test.engine, m_site);
        QVERIFY(other.open(at(u"/inner"_s)));
        fill(other);
        QVERIFY(waitForFilled(other, 1));
    }

    void fillAtTheLoadEndIsQuietWhereNothingIsToFill()
    {
        struct Filling : RecordedBrowser
        {
            using RecordedBrowser::RecordedBrowser;
            std::shared_ptr<NamedRecord> record;
            void WebBro_ProgressChange(int Progress, int ProgressMax) override
            {
                RecordedBrowser::WebBro_ProgressChange(Progress, ProgressMax);
                if (ProgressMax == 0)
                    (*this)->formFacet()->fill(record, false);
            }
        };
        Filling browser(*m_test.engine, m_site);
        browser.record = m_record;
        QVERIFY(browser.open(at(u"/plain"_s)));
        QVERIFY(browser.open(at(u"/inner"_s)));
        QVERIFY(waitForFilled(browser, 1));
        browser.statuses.clear();
        QVERIFY(browser.open(at(u"/plain"_s)));
        QVERIFY(!waitUntil([&] { return !browser.statuses.filter(u"fill"_s).isEmpty(); }, 1000));
        fill(browser);
        QVERIFY(waitForFilled(browser, 0));
    }
};

int main(int argc, char **argv)
{
    // A site that is not this machine.
    qputenv("QTWEBENGINE_CHROMIUM_FLAGS", "--host-resolver-rules=\"MAP shop.example 127.0.0.1\"");
    return runEngineTests<WebForms>(argc, argv);
}
#include "tst_webforms.moc"
