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

    void absentIds()
    {
        for (const int id : {0, -1, 101, 1004, 8024, 8063, 15017, 65636})
            QVERIFY_THROWS_EXCEPTION(ControlError, LoadResString(id));
    }

    void forms_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("text7");

        QTest::newRow("LF") << QByteArray("7 \"a\"\n") << u"a"_s;
        QTest::newRow("CR LF, no end of line") << QByteArray("6 \"b\"\r\n7 \"a\"") << u"a"_s;
        QTest::newRow("escapes") << QByteArray(R"(7 "\\t\t\"\\")") << u"\\t\t\"\\"_s;
        QTest::newRow("UTF-8 and blanks") << QByteArray("7 \" \xC3\xA4 \"") << u" ä "_s;
        QTest::newRow("the first counts") << QByteArray("7 \"a\"\n7 \"b\"") << u"a"_s;
        QTest::newRow("comment") << QByteArray("#7 \"a\"\n\n") << QString();
        QTest::newRow("empty text is absent") << QByteArray("7 \"\"") << QString();
        QTest::newRow("no quotes") << QByteArray("7 a\n7\n7 \"\n7 \"a") << QString();
        QTest::newRow("bare quote or unknown escape inside")
            << QByteArray("7 \"a\"b\"\n7 \"\\x\"\n7 \"\\\"") << QString();
        QTest::newRow("no id") << QByteArray("x \"a\"\n \"a\"\n99999999999 \"a\"") << QString();
    }

    void forms()
    {
        QFETCH(QByteArray, file);
        QFETCH(QString, text7);
        QCOMPARE(parseStringTable(file).value(7), text7);
    }
};

QTEST_GUILESS_MAIN(tst_Strings)
#include "tst_strings.moc"
