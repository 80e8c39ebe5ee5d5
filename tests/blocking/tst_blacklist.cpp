#include "base/Files.h"
#include "blocking/BlackListFile.h"
#include "blocking/BlackListSearch.h"
#include "blocking/SiteBlocker.h"
#include "core/state/Settings.h"

#include <QDir>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

/// The black list: its file in every state that a user or a disk can bring it to, and its test against the plain walk.
class tst_BlackList : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(u"."_s));
        QDir(m_folder.path()).removeRecursively();
        QVERIFY(QDir().mkpath(m_folder.path()));
    }

    void lines_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QStringList>("entries");
        QTest::addColumn<QByteArray>("written");
        const QByteArray two = "ads.\r\nB%41D /x \r\n";
        const QStringList entries{u"ads."_s, u"B%41D /x "_s};
        QTest::newRow("empty") << QByteArray() << QStringList() << QByteArray();
        QTest::newRow("CR LF") << two << entries << two;
        QTest::newRow("LF, no final end") << QByteArray("ads.\nB%41D /x ") << entries << two;
        QTest::newRow("CR") << QByteArray("ads.\rB%41D /x \r") << entries << two;
        QTest::newRow("empty lines") << QByteArray("\n\r\r\na") << QStringList{{}, {}, {}, u"a"_s}
                                     << QByteArray("\r\n\r\n\r\na\r\n");
        const QByteArray marks = "\xEF\xBB\xBF\xEF\xBB\xBF-x\r\n";
        QTest::newRow("byte order mark") << marks.mid(3) << QStringList{u"-x"_s} << marks.mid(6);
        QTest::newRow("two of them") << marks << QStringList{u"\uFEFF-x"_s} << marks;
        QTest::newRow("NUL") << QByteArray("a\0b", 3) << QStringList{QString(u"a\0b"_s)} << QByteArray("a\0b\r\n", 5);
        QTest::newRow("beyond ASCII") << QByteArray("ä😀\n") << QStringList{u"ä😀"_s} << QByteArray("ä😀\r\n");
        const QByteArray stray = "\xE4.example \xF0\x9F\x98 \xED\xA0\x80\xED\xB2\x80 \xC0\xAFx";
        QTest::newRow("no UTF-8") << stray << QStringList() << stray + "\r\n";
        const QByteArray large(1 << 20, 'x');
        QTest::newRow("1 MB") << large << QStringList{QString::fromLatin1(large)} << large + "\r\n";
        QTest::newRow("1 MB of strays") << QByteArray(1 << 20, '\xFE') << QStringList()
                                        << QByteArray(1 << 20, '\xFE') + "\r\n";
    }

    void lines()
    {
        QFETCH(const QByteArray, content);
        QFETCH(const QStringList, entries);
        QFETCH(const QByteArray, written);
        const QStringList read = parseBlackList(content);
        if (!entries.isEmpty())
            QCOMPARE(read, entries);
        QCOMPARE(blackListContent(read), written);
        QCOMPARE(parseBlackList(written), read);
    }

    void anyBytesSurvive()
    {
        QRandomGenerator random(1);
        for (int round = 0; round < 2000; ++round) {
            QByteArray content;
            for (int n = random.bounded(12); n > 0; --n)
                content += random.bounded(3) == 0 ? QByteArray("😀").left(random.bounded(5))
                                                  : QByteArray(1, static_cast<char>(random.bounded(256)));
            const QByteArray written = blackListContent(parseBlackList("-" + content));
            QByteArray asLines = "-" + content;
            asLines.replace("\r\n", "\n").replace('\r', '\n');
            if (!asLines.endsWith('\n'))
                asLines += '\n';
            QCOMPARE(QByteArray(written).replace("\r\n", "\n"), asLines);
        }
    }

    void fileComesBack_data()
    {
        QTest::addColumn<QByteArray>("there");    // null: nothing
        QTest::addColumn<QByteArray>("obstacle"); // what stands in the place of a file
        QTest::newRow("missing") << QByteArray() << QByteArray();
        QTest::newRow("some") << QByteArray("one\r\n\r\ntwo\r\n") << QByteArray();
        QTest::newRow("folder") << QByteArray() << QByteArray("folder");
        QTest::newRow("unreadable") << QByteArray("one\r\n") << QByteArray("unreadable");
    }

    void fileComesBack()
    {
        QFETCH(const QByteArray, there);
        QFETCH(const QByteArray, obstacle);
        if (!there.isNull())
            QVERIFY(writeFileWhole(m_file, there));
        if (obstacle == "folder")
            QVERIFY(QDir().mkpath(m_file + u"/inside"_s));
        // Root may read everything; a file above the limit is unreadable for everybody.
        if (obstacle == "unreadable")
            QVERIFY(QFile::resize(m_file, qint64{65} * 1024 * 1024));

        Settings settings;
        SiteBlocker blocker(settings, m_folder.path());
        blocker.ReadBlackList();
        QCOMPARE(settings.BlackListCount, obstacle.isEmpty() ? there.count('\n') : 0);
        QCOMPARE(blocker.isListed(u"http://any/"_s), there.contains("\r\n\r\n"));
        blocker.WriteBlackList();
        QCOMPARE(readFile(m_file).value_or("none"), obstacle.isEmpty() ? there : QByteArray());
        const QString kept = m_file + u".damaged"_s;
        QCOMPARE(QFileInfo::exists(kept), !obstacle.isEmpty());
        if (obstacle == "folder")
            QVERIFY(QFileInfo::exists(kept + u"/inside"_s));
        else if (!obstacle.isEmpty())
            QVERIFY(QFileInfo(kept).size() > 64 * 1024 * 1024);
    }

    void settingsDecide()
    {
        Settings settings;
        SiteBlocker blocker(settings, m_folder.path());
        const QString address = u"http://www.ADS.example/?x"_s;
        QVERIFY(!blocker.isListed(address));
        settings.BlackList += {u"other"_s, u".Ads."_s};
        settings.BlackListCount = 2;
        QVERIFY(blocker.isListed(address));
        settings.BlackList[2] = u"nothing"_s;
        QVERIFY(!blocker.isListed(address));
        settings.BlackList[1] = u"/?X"_s;
        QVERIFY(blocker.isListed(address));
        settings.BlackListCount = 0;
        QVERIFY(!blocker.isListed(address));
        settings.BlackListCount = 2;
        blocker.WriteBlackList();
        QCOMPARE(readFile(m_file).value_or("none"), "/?X\r\nnothing\r\n");
    }

    void manyEntries()
    {
        // More than a 16-bit number counts.
        QByteArray content;
        for (int i = 0; i < 100'000; ++i)
            content += QByteArray::number(i).rightJustified(12, '0') + ".example\r\n";
        QVERIFY(writeFileWhole(m_file, content));
        Settings settings;
        SiteBlocker blocker(settings, m_folder.path());
        blocker.ReadBlackList();
        QCOMPARE(settings.BlackListCount, 100'000);
        const QString filler(90, u'0');
        for (const int listed : {0, 1, 40'000, 99'999})
            QVERIFY(
                blocker.isListed(filler + QString::number(listed).rightJustified(12, u'0') + u".EXAMPLE/"_s + filler));
        QVERIFY(!blocker.isListed(filler + u"000000100000.example/"_s + filler));
        blocker.WriteBlackList();
        QCOMPARE(readFile(m_file).value_or("none"), content);
    }

    void sameAnswersAsThePlainWalk()
    {
        // Few letters, so that entries overlap, begin with each other and are found; among them all kinds of case:
        // letters outside ASCII and outside the first plane, signs that fold to ASCII letters, and letters whose full
        // folding would be longer.
        const QList<QString> letters{u"a"_s, u"A"_s, u"b"_s,      u"."_s,      u"k"_s,          u"\u212A"_s,    u"s"_s,
                                     u"ſ"_s, u"ß"_s, u"\u1E9E"_s, u"\u0130"_s, u"ς"_s,          u"Σ"_s,         u"ä"_s,
                                     u"Ä"_s, u"ŉ"_s, u"😀"_s,      u"\uFEFF"_s, u"\U00010400"_s, u"\U00010428"_s};
        QRandomGenerator random(2);
        const auto text = [&](int longest, int kinds) {
            QString result;
            for (int n = random.bounded(longest + 1); n > 0; --n)
                result += letters[random.bounded(kinds)];
            return result;
        };
        int hits = 0;
        constexpr int kRounds = 20'000;
        for (int round = 0; round < kRounds; ++round) {
            const int kinds = 2 + random.bounded(static_cast<int>(letters.size()) - 1);
            QStringList entries;
            for (int n = random.bounded(8); n > 0; --n)
                entries +=
                    text(4, kinds) + letters[random.bounded(kinds)] + (round % 16 == 0 ? QString() : text(3, kinds));
            if (round % 64 == 0)
                entries += QString();
            const QString address = text(round % 100 == 0 ? 700 : 24, kinds);
            const bool listed = std::any_of(entries.begin(), entries.end(), [&](const QString &entry) {
                return address.contains(entry, Qt::CaseInsensitive);
            });
            if (BlackListSearch(entries).findsAnyIn(address) != listed)
                QFAIL(qPrintable(u"'%1' in '%2'"_s.arg(address, entries.join(u"', '"_s))));
            hits += listed;
        }
        QVERIFY2(hits > kRounds / 5 && hits < kRounds * 4 / 5, qPrintable(QString::number(hits)));
    }

    void strayBytesAreInNoAddress()
    {
        // The second half of this sign has the number that the stray byte is kept under.
        const QString sign = u"\U0001F4E9"_s;
        const QStringList entries = parseBlackList("\xE9");
        QCOMPARE(entries.first().at(0), sign.at(1));
        QVERIFY(!BlackListSearch(entries).findsAnyIn(u"http://a/"_s + sign));
    }

private:
    QTemporaryDir m_folder;
    const QString m_file = m_folder.filePath(u"blacklist.cvd"_s);
};

QTEST_GUILESS_MAIN(tst_BlackList)
#include "tst_blacklist.moc"
