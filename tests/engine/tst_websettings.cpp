#include "EngineFixture.h"
#include "support/Parts.h"
#include "support/Rows.h"
#include "support/Wait.h"

#include "base/Strings.h"
#include "engine/InternetOptions.h"

#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QListWidget>
#include <QSpinBox>

using namespace Qt::StringLiterals;
using namespace engine;

/// The settings of the engine, chosen in their dialog and seen by a real server.
class WebSettings : public QObject
{
    Q_OBJECT

    LoopbackSite m_site;
    std::unique_ptr<TestEngine> m_test;

    class Dialog
    {
    public:
        explicit Dialog(RecordedBrowser &browser)
        {
            browser->Exec(IDM_OPTIONS, 0, 0);
            m_dialog = browser->window()->findChild<InternetOptions *>();
        }
        template <typename T>
        T &child(const char *name)
        {
            return part<T>(*m_dialog, name);
        }
        void click(const char *name) { clickPart(*m_dialog, name); }
        void type(const char *name, const QString &text) { child<QLineEdit>(name).setText(text); }

    private:
        QPointer<InternetOptions> m_dialog;
    };

    static void choose(RecordedBrowser &browser, const QList<const char *> &buttons)
    {
        Dialog dialog(browser);
        for (const char *button : buttons)
            dialog.click(button);
        dialog.click("btnOk");
    }
    static void clear(RecordedBrowser &browser, const char *what) { choose(browser, {what, "btnClear"}); }
    QByteArray header(const QByteArray &path, const QByteArray &name) const
    {
        QByteArray value;
        for (const LoopbackSite::Request &request : m_site.requests())
            if (request.path() == path)
                value = request.headers.value(name);
        return value;
    }
    QString settingsFile() const { return m_test->config().profileFolder + u"/engine.ini"_s; }
    /// Another run of the program with the same home. The threads of the engine before close its files a moment after
    /// its end, and one that comes in between finds them locked.
    void startAgain()
    {
        m_test->engine.reset();
        QVERIFY(waitUntil([&] {
            const auto files = QDir(u"/proc/self/fd"_s).entryInfoList(QDir::AllEntries | QDir::System);
            return std::none_of(files.begin(), files.end(), [&](const QFileInfo &file) {
                return file.symLinkTarget().startsWith(m_test->folder.path());
            });
        }));
        m_test->engine = makeWebEngine(m_test->config());
    }
    bool open(RecordedBrowser &browser, const QString &path) const { return browser.open(m_site.address(path)); }

    /// waitUntil() for a condition that itself waits.
    template <typename Condition>
    static bool soon(Condition isThere)
    {
        for (const QDeadlineTimer deadline(15'000); !deadline.hasExpired();)
            if (isThere())
                return true;
        return false;
    }

    void addCookiePages()
    {
        const auto give = [&](const QByteArray &path, const QByteArray &body, const QByteArray &cookie) {
            m_site.add(path, {body, "text/html", 200, {{"Set-Cookie", cookie}, {"Cache-Control", "no-store"}}});
        };
        give("/cookies", "<img src='" + elsewhere("/third") + "'>", "first=1; Max-Age=1000");
        give("/third", "", "third=1; SameSite=None; Secure; Max-Age=1000");
    }
    QByteArray elsewhere(const QByteArray &path) const
    {
        return m_site.address(QString::fromLatin1(path), u"localhost"_s).toLatin1();
    }
    bool openCookies(RecordedBrowser &browser)
    {
        m_site.clearRequests();
        return open(browser, u"/cookies"_s) && m_site.waitFor("/third");
    }

private slots:
    void init()
    {
        // Nothing that the engine of the test before still writes gets between.
        m_test = std::make_unique<TestEngine>();
        m_site.clearRequests();
        m_site.page("/page", "Page");
    }

    void requestsTellWhatWasChosen()
    {
        m_site.add("/open", {"", "text/plain", 200, {{"Access-Control-Allow-Origin", "*"}}});
        m_site.page("/asks", "Asks",
                    "<script>fetch('" + elsewhere("/open") +
                        "').then(() => document.title = navigator.language + ' ' + navigator.userAgent)</script>");
        RecordedBrowser browser(*m_test->engine, m_site);
        QVERIFY(open(browser, u"/page"_s));
        const QByteArray own = header("/page", "user-agent");
        QVERIFY(own.contains("QtWebEngine"));
        QCOMPARE(header("/page", "accept-language"), acceptedLanguages(systemLanguages()).toLatin1());
        QVERIFY(header("/page", "dnt").isEmpty());
        // Only a choice of the user sends it.
        browser->setAmbientProperty(DISPID_AMBIENT_USERAGENT, QString(EngineSettings::kOldAgent));
        QVERIFY(open(browser, u"/page"_s));
        QCOMPARE(header("/page", "user-agent"), own);

        Dialog dialog(browser);
        dialog.click("optAgentOld");
        dialog.click("chkDoNotTrack");
        dialog.click("chkSystem");
        auto &languages = dialog.child<QListWidget>("lstLanguages");
        while (languages.count() > 0) {
            languages.setCurrentRow(0);
            dialog.click("btnRemove");
        }
        for (const auto &code : {u"pt-BR"_s, u"fr"_s}) {
            dialog.child<QComboBox>("cmbLanguage").setEditText(code);
            dialog.click("btnAdd");
        }
        dialog.click("btnOk");
        QVERIFY(open(browser, u"/asks"_s));
        WAIT_COMPARE(browser->LocationName(), u"pt-BR "_s + EngineSettings::kOldAgent);
        for (const char *path : {"/asks", "/open"}) {
            QCOMPARE(header(path, "user-agent"), QByteArray(EngineSettings::kOldAgent.latin1()));
            QCOMPARE(header(path, "dnt"), "1");
            QCOMPARE(header(path, "sec-gpc"), "1");
        }
        // The engine leaves the weights out until its next start.
        QVERIFY(header("/asks", "accept-language").startsWith("pt-BR,pt"));
        // The marks make no other site be asked for leave first.
        QCOMPARE(m_site.count("/open"), 1);

        choose(browser, {"optAgentOwn", "chkDoNotTrack", "chkSystem"});
        QVERIFY(open(browser, u"/page"_s));
        QCOMPARE(header("/page", "user-agent"), own);
        QVERIFY(header("/page", "dnt").isEmpty());
    }

    void cookies()
    {
        addCookiePages();
        m_site.page("/asks-on", "Asks on",
                    "<script>let n = 0; setInterval(() => { fetch('/cookies'); new Image().src = '" +
                        elsewhere("/third?") + "' + ++n }, 50)</script>");
        RecordedBrowser browser(*m_test->engine, m_site);
        QVERIFY(open(browser, u"/asks-on"_s));
        const auto sends = [&](const QByteArray &expected) {
            return soon([&] {
                m_site.clearRequests();
                return m_site.waitFor("/cookies", 2) && m_site.waitFor("/third", 2) &&
                       header("/cookies", "cookie") + '|' + header("/third", "cookie") == expected;
            });
        };
        QVERIFY(sends("first=1|third=1"));
        // What is there already is not given out either.
        choose(browser, {"optCookiesNoThirdParties"});
        QVERIFY(sends("first=1|"));
        choose(browser, {"optCookiesNone"});
        QVERIFY(sends("|"));
        m_site.add("/cookies", {});
        m_site.add("/third", {});
        choose(browser, {"optCookiesAll"});
        QVERIFY(sends("first=1|third=1"));
        clear(browser, "chkCookies");
        QVERIFY(sends("|"));
        addCookiePages();
        QVERIFY(sends("first=1|third=1"));
    }

    void whatSitesStoreOutlivesTheProgramOrNot_data()
    {
        rows<QList<const char *>, bool>({
            {"kept", {QList<const char *>(), true}},
            {"forgotten at the end", {{"chkForget"}, false}},
            {"cleared", {{"chkCookies", "btnClear"}, false}},
            {"cleared with the cache", {{"chkCookies", "chkTemp", "btnClear"}, false}},
            {"without the cache", {{"chkTemp", "btnClear"}, true}},
        });
    }

    void whatSitesStoreOutlivesTheProgramOrNot()
    {
        const auto [chosen, isKept] = row<QList<const char *>, bool>();
        addCookiePages();
        m_site.page("/store", "Store", "<script>localStorage.x = 1; document.title = 'Kept'</script>");
        m_site.page("/stored", "", "<script>document.title = 'Stored ' + localStorage.getItem('x')</script>");
        {
            RecordedBrowser browser(*m_test->engine, m_site);
            QVERIFY(openCookies(browser));
            QVERIFY(open(browser, u"/store"_s));
            WAIT_COMPARE(browser->LocationName(), u"Kept"_s);
            choose(browser, chosen);
        }
        startAgain();
        RecordedBrowser browser(*m_test->engine, m_site);
        QVERIFY(openCookies(browser));
        QCOMPARE(header("/cookies", "cookie"), isKept ? "first=1" : "");
        QVERIFY(open(browser, u"/stored"_s));
        WAIT_COMPARE(browser->LocationName(), isKept ? u"Stored 1"_s : u"Stored null"_s);
    }

    void cache()
    {
        m_site.add("/lasting", {"text", "text/plain", 200, {{"Cache-Control", "max-age=1000"}}});
        m_site.add("/uses", {"<script>fetch('/lasting').then(r => r.text()).then(() => fetch('/used'))</script>",
                             "text/html",
                             200,
                             {{"Set-Cookie", "session=1; HttpOnly"}, {"Set-Cookie", "kept=1; Max-Age=1000"}}});
        const auto use = [&](RecordedBrowser &browser) {
            const int before = m_site.count("/used");
            return browser.open(u"about:blank"_s) && open(browser, u"/uses"_s) && m_site.waitFor("/used", before + 1)
                       ? m_site.count("/lasting")
                       : -1;
        };
        {
            RecordedBrowser browser(*m_test->engine, m_site);
            RecordedBrowser other(*m_test->engine, m_site);
            QVERIFY(open(other, u"/page"_s));
            QCOMPARE(use(browser), 1);
            QCOMPARE(use(browser), 1);
            clear(browser, "chkTemp");
            // Every page is whole again, and the user is still signed in.
            WAIT_VERIFY(m_site.count("/used") == 3 && m_site.count("/page") == 2);
            QVERIFY(header("/uses", "cookie").contains("session=1"));
            QVERIFY(header("/uses", "cookie").contains("kept=1"));
            QCOMPARE(use(browser), 2);
            choose(browser, {"optCacheNone"});
            QCOMPARE(use(browser), 2);
        }
        // None counts from the next start.
        startAgain();
        RecordedBrowser browser(*m_test->engine, m_site);
        QCOMPARE(use(browser), 3);
        QCOMPARE(use(browser), 4);
    }

    void cutOffByAnEmptyCache_data()
    {
        using Ending = LoopbackSite::Ending;
        rows<QByteArray, Ending, int>({
            {"a page on its way", {"get", Ending::Held, 2}},
            {"half a page", {"get", Ending::Halved, 2}},
            {"a form on its way", {"post", Ending::Held, 1}},
            {"the answer to a form", {"post", Ending::Complete, 1}},
        });
    }

    /// Every load comes to an end, and no form is sent twice.
    void cutOffByAnEmptyCache()
    {
        const auto [method, ending, times] = row<QByteArray, LoopbackSite::Ending, int>();
        m_site.add("/answer", {"<title>Answer</title>", "text/html", 200, {}, ending});
        m_site.page("/form", "Form",
                    "<form action='/answer' method='" + method +
                        "'></form><script>onload = () => setTimeout(() => document.forms[0].submit())</script>");
        RecordedBrowser browser(*m_test->engine, m_site);
        RecordedBrowser other(*m_test->engine, m_site);
        QVERIFY(open(other, u"/page"_s));
        QVERIFY(open(browser, u"/form"_s));
        QVERIFY(m_site.waitFor("/answer"));
        if (ending == LoopbackSite::Ending::Complete)
            QVERIFY(browser.waitForEnd(2));
        const int ends = browser.count(u"end"_s);
        clear(other, "chkTemp");
        QVERIFY(m_site.waitFor("/page", 2) && m_site.waitFor("/answer", times));
        m_site.release("/answer");
        if (ending != LoopbackSite::Ending::Complete)
            QVERIFY(browser.waitForEnd(ends + 1));
        QCOMPARE(m_site.count("/answer"), times);
    }

    /// The engine would take half a file for the whole one.
    void downloadsOutliveAnEmptyCache()
    {
        m_site.add("/lasting", {"<title>Lasting</title>", "text/html", 200, {{"Cache-Control", "max-age=1000"}}});
        const QByteArray content(100'000, 'x');
        m_site.download("/file", "data.bin", content, LoopbackSite::Ending::Halved);
        {
            RecordedBrowser browser(*m_test->engine, m_site);
            QVERIFY(open(browser, u"/lasting"_s));
            QVERIFY(open(browser, u"/file"_s));
            const QString file = m_test->config().downloadFolder + u"/data.bin"_s;
            WAIT_VERIFY(QFileInfo(file + u".download"_s).size() > 0);
            clear(browser, "chkTemp");
            m_site.release("/file");
            WAIT_COMPARE(QFileInfo(file).size(), content.size());
        }
        startAgain();
        RecordedBrowser browser(*m_test->engine, m_site);
        QVERIFY(open(browser, u"/lasting"_s));
        QCOMPARE(m_site.count("/lasting"), 2);
    }

    void historyIsCleared()
    {
        RecordedBrowser browser(*m_test->engine, m_site);
        QVERIFY(open(browser, u"/page"_s));
        WAIT_COMPARE(m_test->engine->visits().find(u"page"_s, 9).size(), 1U);
        clear(browser, "chkHistory");
        QCOMPARE(m_test->engine->visits().find(u"page"_s, 9).size(), 0U);
    }

    void proxyServer()
    {
        // A site that exists only behind the proxy server, which is the test's own site.
        const QByteArray behind = "http://site.invalid/behind";
        m_site.locked(behind, "Through", 407);
        m_site.add("/beat", {"", "text/plain"});
        m_site.page("/asks-on", "Asks on",
                    "<script>setInterval(() => { fetch('" + behind +
                        "', {mode: 'no-cors'}).catch(() => 0); fetch('/beat') }, 50)</script>");
        RecordedBrowser asking(*m_test->engine, m_site);
        QVERIFY(open(asking, u"/asks-on"_s));
        const auto isUsed = [&] {
            const int before = m_site.count(behind);
            return m_site.waitFor("/beat", m_site.count("/beat") + 5) && m_site.count(behind) > before;
        };
        QVERIFY(!isUsed());
        {
            Dialog dialog(asking);
            dialog.click("optProxyManual");
            dialog.type("txtProxyHost", u"127.0.0.1"_s);
            dialog.child<QSpinBox>("txtProxyPort").setValue(m_site.serverPort());
            dialog.type("txtProxyUser", u"me"_s);
            dialog.click("btnOk");
        }
        QVERIFY(soon(isUsed));

        // Only a page of its own makes the proxy server ask the user, who is known already.
        RecordedBrowser browser(*m_test->engine, m_site);
        QVERIFY(browser.open(QString::fromLatin1(behind)));
        QLineEdit *password = nullptr;
        WAIT_VERIFY([&] {
            for (QLineEdit *line : browser->findChildren<QLineEdit *>())
                if (line->isVisible() && line->echoMode() == QLineEdit::Password)
                    password = line;
            return password != nullptr;
        }());
        password->setText(u"secret"_s);
        QVERIFY(browser.press(LoadResString(20119)));
        WAIT_COMPARE(browser->LocationName(), u"Through"_s);
        QVERIFY(asking->findChildren<QLineEdit *>().isEmpty());

        choose(asking, {"optProxyDirect"});
        QVERIFY(soon([&] { return !isUsed(); }));
    }

    void downloadsGoToTheChosenFolder()
    {
        m_site.download("/file", "data.bin", "content");
        RecordedBrowser browser(*m_test->engine, m_site);
        QVERIFY(open(browser, u"/page"_s));
        const QString folder = m_test->folder.filePath(u"mine/new"_s);
        {
            Dialog dialog(browser);
            dialog.type("txtFolder", folder);
            dialog.click("btnOk");
        }
        QVERIFY(open(browser, u"/file"_s));
        WAIT_VERIFY(QFileInfo::exists(folder + u"/data.bin"_s));
        // The next start knows it too.
        QCOMPARE(EngineSettings::load(settingsFile()).downloadFolder, folder);
    }
};

ENGINE_TEST_MAIN(WebSettings)
#include "tst_websettings.moc"
