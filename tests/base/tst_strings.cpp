#include "base/StringTable.h"
#include "base/Strings.h"
#include "base/step.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

/// Ids below this one belong to the table that is fixed; a translation changes texts, never ids.
constexpr int kFirstOwnId = 20000;

class tst_Strings : public QObject
{
    Q_OBJECT

private slots:
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
        QFile file(u":/strings/strings.txt"_s);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray content = file.readAll();
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
};

QTEST_GUILESS_MAIN(tst_Strings)
#include "tst_strings.moc"
