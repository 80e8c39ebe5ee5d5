#include "base/Files.h"
#include "base/FullDisk.h"
#include "base/ShortcutFile.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

class tst_Files : public QObject
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

private:
    QString in(const QString &name) const { return m_folder.filePath(name); }
    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(tst_Files)
#include "tst_files.moc"
