#include "base/Files.h"
#include "base/Strings.h"
#include "engine/FindBar.h"
#include "engine/PageCommands.h"
#include "engine/PageSetupDialog.h"
#include "engine/PdfPages.h"
#include "engine/PreviewPages.h"
#include "engine/PrintJob.h"
#include "engine/PrintPreview.h"
#include "engine/SaveDialog.h"
#include "engine/WebBrowser.h"
#include "support/Parts.h"
#include "support/Rows.h"

#include <QAction>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPdfWriter>
#include <QSignalSpy>
#include <QSpinBox>
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

} // namespace

class TestPageDialogs : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany)); }

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

    void saveDialog_data()
    {
        rows<int, QString, QString>({
            {"as proposed", {0, QString(), u"A page.html"_s}},
            {"single file", {1, u"one"_s, u"one.mhtml"_s}},
            // An archive under the ending of a page would be shown as text.
            {"wrong ending", {1, u"one.html"_s, u"one.html.mhtml"_s}},
            {"other ending", {2, u"v1.2"_s, u"v1.2.html"_s}},
            {"short ending", {2, u"v.HTM"_s, u"v.HTM"_s}},
        });
    }

    void saveDialog()
    {
        const auto [filter, typed, saved] = row<int, QString, QString>();
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
};

QTEST_MAIN(TestPageDialogs)
#include "tst_pagedialogs.moc"
