#include "base/Files.h"
#include "blocking/BlackListFile.h"
#include "blocking/BlackListSearch.h"
#include "blocking/SiteBlocker.h"
#include "core/state/Settings.h"

#include <QFileInfo>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

/// The black list: its file in every state that a user or a disk can bring it to, and its test against the plain walk.
class tst_BlackList : public QObject
{
    Q_OBJECT

private slots:
    void lines()
    {
        const QByteArray two = "ads.\r\nB%41 /x \r\n";
        const QByteArray marks = "\xEF\xBB\xBF\xEF\xBB\xBF-x\r\n";
        // Bytes that are no UTF-8; one of them is kept under the number that the second half of this sign has.
        const QByteArray stray = "\xE4.\xF0\x9F\x98 \xED\xA0\x80\xC0\xAF\xE9\r\n\xE9\r\n";
        QVERIFY(!BlackListSearch(parseBlackList("\xE9")).findsAnyIn(u"http://a/\U0001F4E9"_s));
        const std::initializer_list<std::tuple<QByteArray, QStringList, QByteArray>> cases{
            {QByteArray("ads.\nB%41 /x "), QStringList{u"ads."_s, u"B%41 /x "_s}, two},          // LF, no final end
            {QByteArray("ads.\rB%41 /x \r"), QStringList{u"ads."_s, u"B%41 /x "_s}, two},        // CR
            {QByteArray("\n\r\r\nä"), QStringList{{}, {}, {}, u"ä"_s}, "\r\n\r\n\r\nä\r\n"_ba},  // mixed
            {QByteArray("a\0b", 3), QStringList{QString(u"a\0b"_s)}, QByteArray("a\0b\r\n", 5)}, // NUL
            {marks.mid(3), QStringList{u"-x"_s}, marks.mid(6)},                                  // byte order mark
            {marks, QStringList{u"\uFEFF-x"_s}, marks},                                          // two of them
            {stray, parseBlackList(stray), stray}};                                              // no text
        for (const auto &[content, entries, written] : cases) {
            QCOMPARE(parseBlackList(content), entries);
            QCOMPARE(blackListContent(parseBlackList(content)), written);
        }
    }

    void unreadFileIsKept()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(u"blacklist.cvd"_s);
        // Larger than anything sensible.
        QVERIFY(writeFileWhole(file, "one\r\n") && QFile::resize(file, qint64{65} * 1024 * 1024));
        Settings settings;
        SiteBlocker blocker(settings, folder.path());
        blocker.ReadBlackList();
        QVERIFY(!blocker.isListed(u"http://one/"_s));
        blocker.WriteBlackList();
        QCOMPARE(readFile(file).value_or("none"), "");
        QVERIFY(QFileInfo(file + u".damaged"_s).size() > 64 * 1024 * 1024);
    }

    void longListFollowsItsSettings()
    {
        const QTemporaryDir folder;
        QByteArray content;
        for (int i = 0; i < 100'000; ++i)
            content += QByteArray::number(i).rightJustified(12, '0') + ".Example\r\n";
        QVERIFY(writeFileWhole(folder.filePath(u"blacklist.cvd"_s), content));
        Settings settings;
        SiteBlocker blocker(settings, folder.path());
        QVERIFY(!blocker.isListed(u"000000000000.example"_s));
        blocker.ReadBlackList();
        QCOMPARE(settings.BlackListCount, 100'000);
        const QString filler(90, u'0');
        for (const auto &listed : {u"000000000000.EXAMPLE"_s, u"000000040000.example"_s, u"000000099999.example"_s})
            QVERIFY(blocker.isListed(filler + listed + filler));
        QVERIFY(!blocker.isListed(filler + u"000000100000.example"_s + filler));

        blocker.WriteBlackList();
        QCOMPARE(readFile(folder.filePath(u"blacklist.cvd"_s)).value_or("none"), content);
        settings.BlackList[7] = u"100000.ex"_s;
        QVERIFY(blocker.isListed(filler + u"000000100000.example"_s));
        settings.BlackListCount = 0;
        QVERIFY(!blocker.isListed(u"000000100000.example"_s));
    }

    void sameAnswersAsThePlainWalk()
    {
        // Few letters, so that entries overlap, begin with each other and are found; among them all kinds of case:
        // letters outside ASCII and outside the first plane, signs that fold to ASCII letters, and letters whose full
        // folding would be longer.
        const QStringList letters{u"a"_s, u"A"_s,      u"b"_s, u"k"_s, u"\u212A"_s, u"s"_s,      u"ſ"_s,
                                  u"ß"_s, u"\u1E9E"_s, u"İ"_s, u"ς"_s, u"Σ"_s,      u"\uFEFF"_s, u"ŉ"_s,
                                  u"Ä"_s, u"ä"_s,      u"😀"_s, u"𐐀"_s, u"𐐨"_s};
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
                    text(4, kinds) + text(4, kinds) + (round % 64 == 0 ? QString() : letters[random.bounded(kinds)]);
            // In long texts the walk looks in another way.
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
};

QTEST_GUILESS_MAIN(tst_BlackList)
#include "tst_blacklist.moc"
