#include "EngineFixture.h"
#include "support/Parts.h"
#include "support/Wait.h"

#include "base/Files.h"
#include "base/Strings.h"
#include "base/step.h"
#include "engine/PageFacets.h"
#include "engine/PropertiesDialog.h"

#include <QBuffer>
#include <QDir>
#include <QImage>
#include <QLineEdit>
#include <QPdfDocument>
#include <QPdfSelection>

using namespace Qt::StringLiterals;
using namespace engine;

/// The commands that the browser carries out itself, over the real engine.
class PageCommandsTest : public QObject
{
    Q_OBJECT

    LoopbackSite m_site;
    TestEngine m_test;

    template <typename T>
    static std::optional<T> answered(const std::function<void(std::function<void(T)>)> &ask)
    {
        auto answer = std::make_shared<std::optional<T>>();
        ask([answer](const T &given) { *answer = given; });
        // Not from inside the call: the answer may open windows.
        if (answer->has_value() || !waitUntil([&] { return answer->has_value(); }, 20'000))
            return std::nullopt;
        return *answer;
    }
    static bool save(RecordedBrowser &browser, const QString &path, SaveFormat format)
    {
        return answered<bool>([&](auto done) { browser->saveFacet()->save(path, format, done); }).value_or(false);
    }
    static FindHits find(RecordedBrowser &browser, const QString &text, const FindOptions &options = {})
    {
        return answered<FindHits>([&](auto done) { browser->findFacet()->find(text, options, done); })
            .value_or(FindHits{-1, -1});
    }
    static PageInfo info(RecordedBrowser &browser)
    {
        return answered<PageInfo>([&](auto done) { browser->infoFacet()->read(done); }).value_or(PageInfo());
    }
    /// Text of each page.
    static QStringList textsOf(const QByteArray &pdf)
    {
        QBuffer buffer;
        buffer.setData(pdf);
        buffer.open(QIODevice::ReadOnly);
        QPdfDocument document;
        document.load(&buffer);
        QStringList texts;
        for (int page = 0; page < document.pageCount(); ++page)
            texts << document.getAllText(page).text().simplified();
        return texts;
    }

private slots:
    void init()
    {
        QByteArray png;
        QBuffer buffer(&png);
        buffer.open(QIODevice::WriteOnly);
        QImage red(40, 30, QImage::Format_RGB32);
        red.fill(Qt::red);
        red.save(&buffer, "PNG");
        m_site.add("/red.png", {png, "image/png"});
        m_site.add("/style.css", {"p { color: green }", "text/css"});
        m_site.page("/long", "Long",
                    "<link rel=stylesheet href=/style.css><img src=/red.png onload='document.title = \"Long \" + "
                    "naturalWidth'><p>First apple</p><p style='break-before: page'>Second Apple</p>"
                    "<p style='break-before: page'>Third apple</p>");
    }

    void savesAndOpensAgain()
    {
        const std::initializer_list<std::tuple<SaveFormat, QString, QString>> cases{
            {SaveFormat::Complete, u"a page.html"_s, u"Long 40"_s},    // complete
            {SaveFormat::SingleFile, u"a page.mhtml"_s, u"Long 40"_s}, // single file
            {SaveFormat::HtmlOnly, u"a page.html"_s, u"Long"_s}};      // HTML only
        for (const auto &[format, name, title] : cases) {
            const QTemporaryDir folder;
            const QString path = folder.filePath(name);
            RecordedBrowser browser(*m_test.engine, m_site, u"/long"_s);
            WAIT_COMPARE(browser->LocationName(), u"Long 40"_s);
            // The second time there is something to replace, with a part that the page no longer has.
            for (int time = 0; time < 2; ++time) {
                QVERIFY(save(browser, path, format));
                QStringList expected{name};
                if (format == SaveFormat::Complete)
                    expected << u"a page_files"_s;
                QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                         expected);
                QFile(folder.filePath(u"a page_files/old.js"_s)).open(QIODevice::WriteOnly);
            }
            m_site.clearRequests();
            QVERIFY(browser.open(path));
            const QString &beginning = title;
            WAIT_VERIFY(browser->LocationName().startsWith(beginning));
            QVERIFY(m_site.requests().empty() || format == SaveFormat::HtmlOnly);
            QCOMPARE(find(browser, u"apple"_s).count, 3);
        }
    }

    void keepsWhatCannotBeReplaced()
    {
        const QTemporaryDir folder;
        RecordedBrowser browser(*m_test.engine, m_site, u"/long"_s);
        QVERIFY(!save(browser, folder.filePath(u"missing/a.html"_s), SaveFormat::SingleFile));
        QVERIFY(!save(browser, u"/proc/a.mhtml"_s, SaveFormat::SingleFile));
        QDir(folder.path()).mkdir(u"taken.html"_s);
        QVERIFY(!save(browser, folder.filePath(u"taken.html"_s), SaveFormat::HtmlOnly));

        const QString old = folder.filePath(u"old.html"_s);
        QVERIFY(writeFileWhole(old, "old"));
        QVERIFY(killRenderers() > 0);
        QVERIFY(!save(browser, old, SaveFormat::Complete));
        QCOMPARE(readFile(old).value(), "old");
    }

    void savesPicturesAsTheyAre()
    {
        const QTemporaryDir folder;
        RecordedBrowser browser(*m_test.engine, m_site, u"/red.png"_s);
        QVERIFY(!info(browser).isHtml());
        QVERIFY(save(browser, folder.filePath(u"kept.png"_s), SaveFormat::Original));
        QCOMPARE(QImage(folder.filePath(u"kept.png"_s)).size(), QSize(40, 30));
        QVERIFY(!QFile::exists(m_test.config().downloadFolder + u"/red.png"_s));
    }

    void printsToPdf()
    {
        RecordedBrowser browser(*m_test.engine, m_site, u"/long"_s);
        PageSetup wide;
        wide.layout.setOrientation(QPageLayout::Landscape);
        QPageRanges second;
        second.addPage(2);
        // The engine would answer only one of two orders that come at once.
        const auto made = std::make_shared<std::vector<QByteArray>>();
        const auto take = [made](const QByteArray &pdf) { made->push_back(pdf); };
        browser->printFacet()->makePdf({}, {}, take);
        browser->printFacet()->makePdf(wide, second, take);
        QVERIFY(waitUntil([&] { return made->size() == 2; }, 20'000));
        QCOMPARE(textsOf(made->at(0)), QStringList({u"First apple"_s, u"Second Apple"_s, u"Third apple"_s}));
        QCOMPARE(textsOf(made->at(1)), QStringList(u"Second Apple"_s));

        browser->printFacet()->makePdf({}, {}, take);
        QVERIFY(killRenderers() > 0);
        QVERIFY(waitUntil([&] { return made->size() == 3; }, 20'000));
        QVERIFY(made->at(2).isEmpty());
    }

    void printsBackgroundsAsSetUp()
    {
        m_site.page("/red", "Red", "<body style='background: red; height: 90vh'>");
        RecordedBrowser browser(*m_test.engine, m_site, u"/red"_s);
        for (const bool isPrinted : {false, true, false}) {
            PageSetup setup;
            setup.background = isPrinted;
            QBuffer pdf;
            pdf.setData(answered<QByteArray>([&](auto done) {
                            browser->printFacet()->makePdf(setup, {}, done);
                        }).value_or(QByteArray()));
            pdf.open(QIODevice::ReadOnly);
            QPdfDocument document;
            document.load(&pdf);
            const QColor middle = document.render(0, {100, 140}).pixelColor(50, 30);
            QCOMPARE(middle.alpha() > 0 && middle.green() < 100, isPrinted);
        }
    }

    void finds()
    {
        RecordedBrowser browser(*m_test.engine, m_site, u"/long"_s);
        QCOMPARE(find(browser, u"apple"_s, {.matchCase = true}).count, 2);
        QCOMPARE(find(browser, u"pear"_s).count, 0);
        for (const int expected : {1, 3, 2})
            QCOMPARE(find(browser, u"apple"_s, {.backward = expected != 1}).active, expected);

        // Without the marks the next hit still is the next one.
        const FindOptions plain{.highlightAll = false};
        browser->findFacet()->endFind();
        QVERIFY(browser.open(m_site.address(u"/long"_s)));
        for (const int expected : {1, 2, 3}) {
            QCOMPARE(find(browser, u"apple"_s, plain).active, expected);
            waitUntil([] { return false; }, 50);
        }
    }

    void properties()
    {
        m_site.add("/dated", {"<title>Dated</title>abc",
                              "text/html;charset=iso-8859-2",
                              200,
                              {{"Last-Modified", "Wed, 05 Jun 2019 10:20:30 GMT"}}});
        RecordedBrowser browser(*m_test.engine, m_site, u"/dated"_s);
        const PageInfo told = info(browser);
        QCOMPARE(
            (QStringList{told.title, told.address, told.contentType, told.encoding, told.protocol}),
            (QStringList{u"Dated"_s, m_site.address(u"/dated"_s), u"text/html"_s, u"ISO-8859-2"_s, u"http/1.1"_s}));
        QCOMPARE(told.size, 23);
        QCOMPARE(told.modified.toUTC(), QDateTime({2019, 6, 5}, {10, 20, 30}, Qt::UTC));
        QVERIFY(std::abs(told.loaded.secsTo(QDateTime::currentDateTime())) < 60);
        QCOMPARE(told.security, PageInfo::Security::Open);

        QVERIFY(browser.open(m_site.address(u"/long"_s)));
        QVERIFY(!info(browser).modified.isValid());
        // A page whose process has ended still has an address.
        QVERIFY(killRenderers() > 0);
        QCOMPARE(info(browser).address, m_site.address(u"/long"_s));
    }

    void certificateOfAnExceptedSite()
    {
        LoopbackSite secure(LoopbackSite::Security::SelfSigned);
        secure.page("/", "Secret");
        RecordedBrowser browser(*m_test.engine, secure);
        QVERIFY(browser.open(secure.address()));
        QVERIFY(browser.press(u"Continue anyway"_s));
        WAIT_COMPARE(browser->LocationName(), u"Secret"_s);
        QVERIFY(browser.waitForEnd(2));
        browser->ExecWB(OLECMDID_PROPERTIES, OLECMDEXECOPT_DODEFAULT, {});
        WAIT_VERIFY(browser->findChild<PropertiesDialog *>());
        const auto &dialog = *browser->findChild<PropertiesDialog *>();
        QCOMPARE(part<QLineEdit>(dialog, "txtSecurity").text(), LoadResString(20460));
        WAIT_VERIFY(dialog.findChild<QLineEdit *>(u"txtFingerprint"_s));
        QCOMPARE(part<QLineEdit>(dialog, "txtFingerprint").text().size(), 32 * 3 - 1);
        QVERIFY(part<QLineEdit>(dialog, "txtEncryption").text().startsWith(u"TLS"_s));
    }

    void commandsEndWithTheDocument()
    {
        auto window = std::make_unique<QWidget>();
        WebBrowser *browser = m_test.engine->createBrowser(window.get());
        QVERIFY_THROWS_EXCEPTION(ControlError, browser->ExecWB(9999, 0, {}));
        browser->printFacet()->makePdf({}, {}, [](const QByteArray &) { QFAIL("answered after the end"); });
        window.reset();
        waitUntil([] { return false; }, 100);
    }

    /// The engine does not bear a page to go while its process has an order to print.
    void documentEndsWhileItPrints()
    {
        m_site.page("/print", "Print", "text");
        for (int after = 0; after < 12; ++after) {
            RecordedBrowser browser(*m_test.engine, m_site);
            QVERIFY(browser.open(m_site.address(u"/print"_s)));
            browser->printFacet()->makePdf({}, {}, [](const QByteArray &) {});
            for (const QDeadlineTimer moment(after); !moment.hasExpired();)
                QCoreApplication::processEvents();
        }
    }
};

ENGINE_TEST_MAIN(PageCommandsTest)
#include "tst_pagecommands.moc"
