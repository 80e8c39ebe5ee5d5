#include "base/Files.h"
#include "base/FullDisk.h"
#include "base/ShortcutFile.h"
#include "base/StringTable.h"
#include "base/Strings.h"
#include "base/step.h"

#include <QAction>
#include <QCheckBox>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QMenuBar>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

/// Ids below this one belong to the table that is fixed; a translation changes texts, never ids.
constexpr int kFirstOwnId = 20000;

/// Files that are written whole, shortcuts, the table of strings and the forms that take their texts from it.
class tst_FilesAndStrings : public QObject
{
    Q_OBJECT

private slots:
    void reading()
    {
        QVERIFY(writeFileWhole(in(u"ten"_s), "0123456789"));
        QCOMPARE(readFile(in(u"ten"_s), 10).value_or("none"), "0123456789");
        QVERIFY(!readFile(in(u"ten"_s), 9) && !readFile(in(u"absent"_s)) && !readFile(m_folder.path()));
        // Neither of these ever ends.
        QVERIFY(!readFile(u"/dev/zero"_s));
        QCOMPARE(mkfifo(QFile::encodeName(in(u"pipe"_s)).constData(), 0600), 0);
        QVERIFY(!readFile(in(u"pipe"_s)));
    }

    void writingIsWholeAndPrivate()
    {
        const QString path = in(u"file"_s);
        QVERIFY(writeFileWhole(path, "old"));
        QFile::setPermissions(path, QFile::permissions(path) | QFileDevice::ReadGroup | QFileDevice::ReadOther);
        QVERIFY(writeFileWhole(path, "new"));
        QCOMPARE(readFile(path).value_or("none"), "new");
        constexpr auto kOthers = QFileDevice::Permissions(0x0077);
        QVERIFY(!(QFile::permissions(path) & kOthers));

        for (const int size : {10000, 100000}) {
            const FullDisk full(1000);
            QVERIFY(!writeFileWhole(path, QByteArray(size, 'x')));
            QCOMPARE(readFile(path).value_or("none"), "new");
        }
        QVERIFY(!writeFileWhole(in(u"no/such/folder"_s), "x"));
        QCOMPARE(QDir(m_folder.path()).entryList({u"file*"_s}, QDir::Files), QStringList{u"file"_s});
    }

    void damagedFilesAreKept()
    {
        const QString path = in(u"list"_s);
        QVERIFY(!keepAside(path));
        for (const char *content : {"first", "second"}) {
            QVERIFY(writeFileWhole(path, content));
            const auto kept = keepAside(path);
            QVERIFY(kept && !QFileInfo::exists(path));
            QCOMPARE(readFile(*kept).value_or("none"), content);
        }
        QCOMPARE(readFile(in(u"list.damaged"_s)).value_or("none"), "first");
    }

    void shortcuts()
    {
        const std::initializer_list<std::pair<QByteArray, QString>> cases{
            {"[InternetShortcut]\r\nURL=http://a.example/B?url=c\r\n", u"http://a.example/B?url=c"_s},
            {"\x01 [InternetShortcut] \x02\n\t URL=http://a.example/B \t\n", u"http://a.example/B"_s},
            {"netshortcut url=x", u"x"_s}, // both in one line
            {"[InternetShortcut]\nBASEURL=x\nURL=y", u"x"_s},
            {"URL=x\n[InternetShortcut]\nURL=y", u"y"_s},
            {"[InternetShortcut]\nURL=\nURL=y", QString()},
            {"[InternetShortcut]\nURL\n", QString()},
            {"[InternetShortcut]\nURL=http://\xC3\xA4.example/", u"http://ä.example/"_s},
            {"[InternetShortcut]\n\xC4\xB0\xC4\xB0URL=x", u"x"_s}}; // a letter whose lower case is longer
        for (const auto &[content, address] : cases)
            QCOMPARE(shortcutURLOf(content), address);

        const QByteArray head = "[InternetShortcut]\nURL=";
        for (const QString &name : {u"lower.url"_s, u"UPPER.URL"_s, u"mixed [1*].Url"_s})
            QVERIFY(writeFileWhole(in(name), head + name.toUtf8()));
        QCOMPARE(ReadShortcutURL(in(u"lower"_s)), u"lower.url"_s);
        QCOMPARE(ReadShortcutURL(in(u"UPPER"_s)), u"UPPER.URL"_s);
        QCOMPARE(ReadShortcutURL(in(u"mixed [1*]"_s)), u"mixed [1*].Url"_s);
        QCOMPARE(ReadShortcutURL(in(u"absent"_s)), QString());
        QVERIFY(writeFileWhole(in(u"huge.url"_s), head + QByteArray(2 * 1024 * 1024, 'x')));
        QCOMPARE(ReadShortcutURL(in(u"huge"_s)), QString());
    }

    void everyStringOfTheTable()
    {
        // One string a line, id|text|, so that blanks at the end of a text can be seen.
        QFile file(QStringLiteral(EXPECTED_STRINGS));
        QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Text));
        int count = 0;
        while (!file.atEnd()) {
            QString line = QString::fromUtf8(file.readLine());
            line.chop(2);
            const int id = line.section(u'|', 0, 0).toInt();
            const QString text = line.section(u'|', 1).replace(u"\\t"_s, u"\t"_s);
            QCOMPARE(LoadResString(id), text);
            ++count;
        }
        QCOMPARE(count, 338);

        int present = 0;
        for (int id = -1; id < kFirstOwnId; ++id)
            present += step([&] { LoadResString(id); });
        QCOMPARE(present, count);
        QVERIFY_THROWS_EXCEPTION(ControlError, LoadResString(65636)); // 100 in 16 bits
    }

    void noLineIsLost()
    {
        const QByteArray content = readFile(u":/strings/strings.txt"_s).value();
        qsizetype lines = 0;
        for (const QByteArray &line : content.split('\n'))
            lines += !line.isEmpty() && !line.startsWith('#');
        // A line in a wrong form or a second line for an id would be missing.
        QCOMPARE(parseStringTable(content).size(), lines);
    }

    void forms()
    {
        const std::initializer_list<std::pair<QByteArray, QString>> cases{
            {"7 \"a\"\n", u"a"_s},
            {"6 \"b\"\r\n7 \"a\"", u"a"_s},
            {"7 \"\\\\t\\t\\\"\\\\\"", u"\\t\t\"\\"_s},
            {"7 \" \xC3\xA4 \"", u" ä "_s},
            {"7 \"a\"\n7 \"b\"", u"a"_s}, // the first counts
            {"#7 \"a\"\n\n", {}},
            {"7 \"\"", {}}, // an empty text is absent
            {"7 a\n7\n7 \"\n7 \"a", {}},
            {"7 \"a\"b\"\n7 \"\\x\"\n7 \"\\\"", {}}, // a bare quote, an unknown escape, none
            {"x \"a\"\n \"a\"\n99999999999 \"a\"", {}}};
        for (const auto &[file, text] : cases)
            QCOMPARE(parseStringTable(file).value(7), text);
    }

    void numbers()
    {
        // What becomes of the title of a window, the caption of a control and a label, which holds its number itself.
        const QString old = u"old"_s;
        const QString load = u"Load Now"_s;
        const QString manual = u"Manual Loading Only"_s;
        const std::initializer_list<std::tuple<QString, QString, QString, QString>> cases{
            {u"8007"_s, load, load, load},           // number
            {u" 80 07x"_s, old, load, u" 80 07x"_s}, // blanks and more text
            {u"8006.5"_s, manual, manual, manual},   // rounded to even
            {u"Label1"_s, old, old, u"Label1"_s},    // text
            {u"8024"_s, old, old, u"8024"_s},        // absent
            {u"73543"_s, old, old, u"73543"_s},      // beyond 16 bits
            {QString(), old, old, QString()}};       // empty
        for (const auto &[number, title, caption, labelText] : cases) {
            QDialog form;
            form.setWindowTitle(u"old"_s);
            form.setProperty(kTag, number);
            auto *frame = new QGroupBox(u"old"_s, &form);
            auto *button = new QPushButton(u"old"_s, frame);
            auto *check = new QCheckBox(u"old"_s, frame);
            auto *text = new QLineEdit(u"old"_s, frame);
            for (QWidget *control : std::initializer_list<QWidget *>{frame, button, check, text}) {
                control->setProperty(kTag, number);
                control->setToolTip(number);
            }
            QLabel label(number, &form);
            LocalizeForm(&form);
            QCOMPARE(form.windowTitle(), title);
            QCOMPARE((QStringList{frame->title(), button->text(), check->text()}), QStringList(3, caption));
            QCOMPARE(label.text(), labelText);
            // A text box has no caption; its content stays.
            QCOMPARE(text->text(), u"old"_s);
            QCOMPARE(text->toolTip(), caption == u"old"_s ? number : caption);
        }
    }

    void menusTabsAndHeaders()
    {
        QMainWindow form;
        QMenu *file = form.menuBar()->addMenu(u"1000"_s);
        const QAction *open = file->addAction(u"1002"_s);
        const QAction *dash = file->addAction(u"-"_s);
        const QAction *status = file->addMenu(u"1019"_s)->addAction(u"1021"_s);
        QTabWidget pages;
        form.setCentralWidget(&pages);
        auto *bar = pages.findChild<QTabBar *>();
        pages.addTab(new QWidget, u"General"_s);
        pages.addTab(new QWidget, u"Own"_s);
        bar->setTabData(0, u"8027"_s);
        bar->setTabToolTip(0, u"8015"_s);
        auto *list = new QTreeWidget(&pages);
        list->setHeaderLabels({u"a"_s, u"b"_s});
        list->headerItem()->setData(0, kTagRole, u"2503"_s);
        LocalizeForm(&form);
        QCOMPARE((QStringList{file->title(), open->text(), dash->text(), status->text()}),
                 (QStringList{u"&File"_s, u"&Open\tCtrl+O"_s, u"-"_s, u"Status &Bar"_s}));
        QCOMPARE((QStringList{pages.tabText(0), pages.tabToolTip(0), pages.tabText(1)}),
                 (QStringList{u"User Sites"_s, u"History"_s, u"Own"_s}));
        QCOMPARE((QStringList{list->headerItem()->text(0), list->headerItem()->text(1)}),
                 (QStringList{u"Site"_s, u"b"_s}));
    }

    void formsInsideAreLeftAlone()
    {
        QMainWindow form;
        auto *area = new QMdiArea;
        form.setCentralWidget(area);
        auto *document = new QLabel(u"100"_s);
        area->addSubWindow(document);
        QDialog dialog(&form);
        const QLabel count(u"102"_s, &dialog);
        LocalizeForm(&form);
        QCOMPARE(document->text(), u"100"_s);
        QCOMPARE(count.text(), u"102"_s);
    }

private:
    QString in(const QString &name) const { return m_folder.filePath(name); }
    QTemporaryDir m_folder;
};

QTEST_MAIN(tst_FilesAndStrings)
#include "tst_filesandstrings.moc"
