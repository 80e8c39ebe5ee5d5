#include "base/Files.h"
#include "base/Strings.h"
#include "engine/FindBar.h"
#include "engine/InternetOptions.h"
#include "engine/PageCommands.h"
#include "engine/PageSetupDialog.h"
#include "engine/PdfPages.h"
#include "engine/PreviewPages.h"
#include "engine/PrintJob.h"
#include "engine/PrintPreview.h"
#include "engine/SaveDialog.h"
#include "engine/WebBrowser.h"
#include "support/Parts.h"

#include <QAction>
#include <QBuffer>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPdfWriter>
#include <QPointer>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace engine;

namespace {

/// A page that makes five sheets (three in landscape), and answers when it is told to.
struct FakePage : PrintFacet, SaveFacet, InfoFacet, FindFacet
{
    std::vector<PageSetup> setups;
    std::vector<std::function<void()>> waiting;
    QStringList asked;
    QByteArray made;
    PageInfo page;
    FindHits hits;
    bool saves = true;

    static QByteArray pdf(const PageSetup &setup)
    {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        QPdfWriter writer(&buffer);
        writer.setPageLayout(setup.layout);
        QPainter painter(&writer);
        const int count = setup.layout.orientation() == QPageLayout::Landscape ? 3 : 5;
        for (int i = 1; i < count; ++i)
            writer.newPage();
        painter.end();
        return bytes;
    }

    void makePdf(const PageSetup &setup, const QPageRanges &ranges,
                 std::function<void(const QByteArray &)> done) override
    {
        setups.push_back(setup);
        asked << u"pdf %1"_s.arg(ranges.toString());
        waiting.push_back([=, this] { done(made = pdf(setup)); });
    }

    void save(const QString &path, SaveFormat format, std::function<void(bool)> done) override
    {
        asked << u"save %1 %2"_s.arg(QFileInfo(path).fileName()).arg(static_cast<int>(format));
        waiting.push_back([this, done] { done(saves); });
    }

    bool isSaving() const override { return false; }
    PageInfo known() const override { return page; }
    void read(std::function<void(const PageInfo &)> done) override
    {
        waiting.push_back([this, done] { done(page); });
    }

    void find(const QString &, const FindOptions &, std::function<void(FindHits)> done) override
    {
        waiting.push_back([hits = hits, done] { done(hits); });
    }

    void endFind() override {}
    void showFindBar() override {}
    void hideFindBar() override {}

    void answerAll()
    {
        for (const auto &answer : std::exchange(waiting, {}))
            answer();
    }
};

struct FakeHost : OptionsHost
{
    EngineSettings present;
    int applied = 0;
    bool stores = true;
    const EngineSettings &settings() const override { return present; }
    bool apply(const EngineSettings &settings) override
    {
        present = settings;
        ++applied;
        return stores;
    }
    void clear(Traces) override {}
    QString ownAgent() const override { return u"Engine/1"_s; }
    QString systemDownloadFolder() const override { return QDir::tempPath(); }
};

} // namespace

/// The dialogs of the engine's commands and settings, over pages and hosts that answer when they are told to.
class TestDialogs : public QObject
{
    Q_OBJECT

    FakeHost m_host;
    QPointer<InternetOptions> m_dialog;

    template <typename T>
    T &child(const char *name)
    {
        return part<T>(*m_dialog, name);
    }
    void click(const char *name) { clickPart(*m_dialog, name); }
    bool isEnabled(const char *name) { return child<QWidget>(name).isEnabled(); }
    QString problem() { return child<QLabel>("lblProblem").text(); }
    QStringList languages()
    {
        QStringList codes;
        const auto &list = child<QListWidget>("lstLanguages");
        for (int row = 0; row < list.count(); ++row)
            codes << list.item(row)->text().section(u'[', -1).remove(u']');
        return codes;
    }
    void openDialog()
    {
        delete m_dialog;
        m_dialog = new InternetOptions(m_host, nullptr);
        m_dialog->open();
    }

private slots:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany)); }
    void cleanup()
    {
        delete m_dialog;
        m_host = {};
    }

    void pageSetupInAFile()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(u"page-setup"_s);
        PageSetup setup;
        setup.layout.setPageSize(QPageSize(QPageSize::A5));
        setup.layout.setOrientation(QPageLayout::Landscape);
        setup.layout.setMargins({10, 20.5, 30, 0});
        setup.background = true;
        PageMemory(file).setSetup(setup);
        QVERIFY(PageMemory(file).setup() == setup && PageMemory(folder.filePath(u"none"_s)).setup() == PageSetup());
        // The last one would leave nothing of the sheet.
        for (const char *damaged : {"\xff=\n==\npaper\n", "paper=Napkin\n", "margins=1 2 3\n", "margins=nan 2 3 inf\n",
                                    "margins=-5 2 3 4\n", "paper=A4\nmargins=80 80 80 200\n"}) {
            QCOMPARE(PageSetup::fromText(damaged).layout, PageSetup::standardLayout());
        }
    }

    void fileName()
    {
        const std::initializer_list<std::tuple<QString, QString, QString>> cases{
            {u"../../etc/passwd"_s, u"http://x.org/"_s, u"etc passwd"_s},                      // path
            {u"What? \"A\" <b>:\n*|c\\"_s, u"http://x.org/"_s, u"What A b c"_s},               // forbidden
            {u"a\u202Egnp.exe"_s, u"http://x.org/"_s, u"a gnp.exe"_s},                         // direction override
            {u"http://x.org/a/list.html?q=1"_s, u"http://x.org/a/list.html?q=1"_s, u"list"_s}, // without title
            {u"/"_s, u"http://x.org/"_s, u"x.org"_s},                                          // only host
            {u"?"_s, u"about:"_s, u"page"_s}};                                                 // nothing at all
        for (const auto &[title, address, name] : cases) {
            PageInfo info;
            info.title = title;
            info.address = address;
            info.url = QUrl(address);
            QCOMPARE(fileNameFor(info), name);

            info.title = QString(100, u'ä') + QString::fromUcs4(U"\U0001F600").repeated(40);
            const QString cut = fileNameFor(info);
            QVERIFY(cut.toUtf8().size() <= 200 && !cut.back().isHighSurrogate());
        }
    }

    void saveDialog()
    {
        const std::initializer_list<std::tuple<int, QString, QString>> cases{
            {0, QString(), u"A page.html"_s}, // as proposed
            {1, u"one"_s, u"one.mhtml"_s},    // single file
            // An archive under the ending of a page would be shown as text.
            {1, u"one.html"_s, u"one.html.mhtml"_s}, // wrong ending
            {2, u"v1.2"_s, u"v1.2.html"_s},          // other ending
            {2, u"v.HTM"_s, u"v.HTM"_s}};            // short ending
        for (const auto &[filter, typed, saved] : cases) {
            const QTemporaryDir folder;
            QWidget page;
            PageInfo info;
            info.title = u"A page"_s;
            QString path;
            SaveFormat format = SaveFormat::Original;
            QFileDialog *dialog = showSaveDialog(info, folder.path(), &page, [&](const QString &chosen, SaveFormat as) {
                path = chosen;
                format = as;
            });
            dialog->selectNameFilter(dialog->nameFilters().at(filter));
            emit dialog->filterSelected(dialog->nameFilters().at(filter));
            if (!typed.isEmpty())
                dialog->selectFile(typed);
            QMetaObject::invokeMethod(dialog, "accept");
            QCOMPARE(QFileInfo(path).absolutePath(), folder.path());
            QCOMPARE(QFileInfo(path).fileName(), saved);
            QCOMPARE(format, static_cast<SaveFormat>(filter)); // complete, single file, HTML only
        }
    }

    void pageSetupDialog()
    {
        PageSetup setup;
        setup.layout.setMargins({10, 20, 30, 40});
        QWidget page;
        auto *dialog = new PageSetupDialog(setup, &page);
        QVERIFY(dialog->setup() == setup);
        PageSetup chosen;
        connect(dialog, &PageSetupDialog::chosen, this, [&](const PageSetup &given) { chosen = given; });
        auto &paper = part<QComboBox>(*dialog, "cmbPaper");
        paper.setCurrentIndex(paper.findData(QPageSize::A6));
        auto *ok = dialog->findChild<QDialogButtonBox *>()->buttons().first();
        part<QDoubleSpinBox>(*dialog, "txtMargin0").setValue(80);
        QVERIFY(!ok->isEnabled());
        part<QDoubleSpinBox>(*dialog, "txtMargin0").setValue(5);
        clickPart(*dialog, "optLandscape");
        clickPart(*dialog, "chkBackground");
        ok->click();
        PageSetup expected;
        expected.layout =
            QPageLayout(QPageSize(QPageSize::A6), QPageLayout::Landscape, {5, 20, 30, 40}, QPageLayout::Millimeter);
        expected.background = true;
        QVERIFY(chosen == expected);
    }

    void findBarLateAnswers()
    {
        FakePage page;
        auto bar = std::make_unique<FindBar>(page, nullptr);
        bar->open();
        auto *text = &part<QLineEdit>(*bar, "txtFind");
        auto *count = &part<QLabel>(*bar, "lblHits");
        text->setText(u"a"_s);
        page.hits = {1, 99};
        bar->findNext();
        page.hits = {1, 1};
        bar->findNext();
        std::swap(page.waiting[0], page.waiting[1]);
        page.answerAll();
        QCOMPARE(count->text(), u"1 of 1"_s);

        bar->findNext();
        bar->pageChanged();
        page.answerAll();
        QCOMPARE(count->text(), QString());

        bar->findNext();
        bar.reset();
        page.answerAll();
    }

    void preview()
    {
        FakePage page;
        QWidget document;
        PrintPreview window(document, page, PageSetup(), u"A page"_s);
        window.setAttribute(Qt::WA_DeleteOnClose, false);
        window.show();
        page.answerAll();
        auto &number = part<QSpinBox>(window, "txtPage");
        PreviewPages &pages = window.pages();
        QCOMPARE(pages.count(), 5);
        number.setValue(4);
        QCOMPARE(pages.currentPage(), 4);
        // Another paper makes other pages, and the one that was shown is gone.
        for (QAction *action : window.findChildren<QAction *>())
            if (action->text() == LoadResString(20428))
                action->trigger();
        QCOMPARE(page.setups.back().layout.orientation(), QPageLayout::Landscape);
        page.answerAll();
        QCOMPARE(pages.count(), 3);
        QCOMPARE(number.value(), 3);
    }

    void printsToAFile()
    {
        const QTemporaryDir folder;
        for (const QString &name : {u"out.pdf"_s, u"missing/out.pdf"_s}) {
            FakePage page;
            QWidget document;
            QStringList told;
            const auto tell = [&](const QString &text) { told << text; };
            auto *job = new PrintJob(document, page, PageSetup(), u"A page"_s, u"A page"_s, tell);
            QSignalSpy gone(job, &QObject::destroyed);
            const QString file = folder.filePath(name);
            job->printer().setOutputFormat(QPrinter::PdfFormat);
            job->printer().setOutputFileName(file);
            job->printer().setPrintRange(QPrinter::PageRange);
            job->printer().setFromTo(2, 3);
            job->print();
            page.answerAll();
            QVERIFY(gone.wait());
            QCOMPARE(page.asked, QStringList{u"pdf 2-3"_s});
            const bool isThere = name == u"out.pdf"_s;
            QCOMPARE(readFile(file), isThere ? std::optional(page.made) : std::nullopt);
            QCOMPARE(told.last() == LoadResString(20416).arg(file), isThere);
            QVERIFY(told.last().contains(file));
        }
        QVERIFY(openPdf(QByteArray("no PDF")) == nullptr);
    }

    void warnsOfWhatWasNotSaved()
    {
        const QTemporaryDir folder;
        FakePage fake;
        fake.page.title = u"A page"_s;
        fake.saves = false;
        QWidget page;
        PageMemory memory{QString()};
        memory.setFolder(folder.path());
        QString warned;
        PageCommands commands(
            page, {fake, fake, fake}, memory, [](const QString &) {},
            [&](const QString &, const QString &text) { warned = text; });
        // A second order while the first one is at work asks for nothing more.
        QVERIFY(commands.run(OLECMDID_SAVEAS) && commands.run(OLECMDID_SAVEAS));
        fake.answerAll();
        QMetaObject::invokeMethod(page.findChild<QFileDialog *>(), "accept");
        fake.answerAll();
        QCOMPARE(fake.asked, QStringList{u"save A page.html 0"_s});
        QVERIFY(warned.contains(folder.filePath(u"A page.html"_s)));
    }

    void everySettingArrives()
    {
        openDialog();
        QVERIFY(!isEnabled("btnApply"));
        click("optCacheLimited");
        child<QSpinBox>("txtCacheSize").setValue(40);
        click("optProxyManual");
        child<QComboBox>("cmbProxyType").setCurrentIndex(1);
        child<QLineEdit>("txtProxyHost").setText(u" proxy.example "_s);
        child<QSpinBox>("txtProxyPort").setValue(1080);
        child<QLineEdit>("txtProxyUser").setText(u"me"_s);
        click("optCookiesNone");
        click("chkForget");
        click("chkDoNotTrack");
        click("chkSystem");
        child<QLineEdit>("txtFolder").setText(u"~/a/../files/"_s);
        click("optAgentOld");

        auto expected = *EngineSettings::fromText(
            "proxy=manual\nproxy-type=socks5\nproxy-host=proxy.example\nproxy-port=1080\nproxy-user=me\ncookies="
            "none\nforget-at-exit=1\ndo-not-track=1\ncache=limited\ncache-megabytes=40\nagent=old\n");
        expected.languages = systemLanguages();
        expected.downloadFolder = QDir::homePath() + u"/files"_s;
        click("btnApply");
        QCOMPARE(m_host.present, expected);
        QVERIFY(!isEnabled("btnApply") && m_dialog->isVisible());

        // A new dialog shows what was applied, and changes nothing by that.
        openDialog();
        QVERIFY(!isEnabled("btnApply"));
        click("btnOk");
        QVERIFY(!m_dialog->isVisible());
        QCOMPARE(m_host.applied, 1);
        QCOMPARE(m_host.present, expected);
    }

    void wrongInputIsToldAndNotApplied()
    {
        const std::initializer_list<std::tuple<QByteArray, QByteArray, QString, int>> cases{
            {"optProxyManual", "txtProxyHost", {}, 20564},                // no proxy server
            {"optProxyManual", "txtProxyHost", u"http://proxy"_s, 20565}, // address of one
            {"optAgentOld", "txtFolder", {}, 20567},                      // no folder
            {"optAgentOld", "txtFolder", u"files"_s, 20567},              // relative folder
            {"optAgentCustom", "txtAgent", {}, 20569},                    // no name
            {"optAgentCustom", "txtAgent", u"\u00e9"_s, 20570}};          // name outside ASCII
        for (const auto &[choice, field, text, message] : cases) {
            cleanup();
            openDialog();
            click(choice);
            auto &line = child<QLineEdit>(field);
            line.selectAll();
            line.insert(text);
            QVERIFY(problem().endsWith(LoadResString(message)) && !isEnabled("btnOk") && !isEnabled("btnApply"));
            line.selectAll();
            line.insert(field == "txtProxyHost" ? u"host"_s : u"/host"_s);
            QVERIFY(problem().isEmpty());
            click("btnOk");
            QCOMPARE(m_host.applied, 1);
        }
    }

    void listOfLanguages()
    {
        openDialog();
        child<QTabWidget>("tabPages").setCurrentWidget(&child<QWidget>("Languages"));
        click("chkSystem");
        QCOMPARE(languages(), systemLanguages());
        auto &name = *child<QComboBox>("cmbLanguage").lineEdit();
        name.setFocus();
        const auto add = [&](const QString &text) {
            name.setText(text);
            QTest::keyClick(&name, Qt::Key_Return);
        };
        add(u"pt-BR"_s);
        add(u"Nederlands [nl]"_s);
        add(u"PT-br"_s);
        QVERIFY(m_dialog->isVisible());
        QCOMPARE(languages(), systemLanguages() + QStringList({u"pt-BR"_s, u"nl"_s}));
        add(u"nonsense!"_s);
        QCOMPARE(problem(), LoadResString(20552).arg(u"nonsense!"_s));
        name.clear();
        auto &list = child<QListWidget>("lstLanguages");
        list.setCurrentRow(list.count() - 1);
        while (isEnabled("btnUp"))
            click("btnUp");
        QCOMPARE(languages().first(), u"nl"_s);
        while (isEnabled("btnRemove"))
            click("btnRemove");
        QCOMPARE(problem(), LoadResString(20566));
        add(u"fr"_s);
        click("btnApply");
        QCOMPARE(m_host.present.languages, QStringList{u"fr"_s});
        click("chkSystem");
        click("btnOk");
        QCOMPARE(m_host.present.languages, QStringList());
    }

    void whatCouldNotBeStoredIsTold()
    {
        openDialog();
        m_host.stores = false;
        click("optCookiesNone");
        click("btnOk");
        QCOMPARE(problem(), LoadResString(20571));
        QVERIFY(m_dialog->isVisible());
        click("btnOk");
        QTRY_VERIFY(!m_dialog);
        QCOMPARE(m_host.applied, 1);
    }
};

QTEST_MAIN(TestDialogs)
#include "tst_dialogs.moc"
