#include "desktop/instance/Instance.h"
#include "support/Rows.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

/// The message itself and the texts that go into it; no process and no socket.
class tst_HandOverMessage : public QObject
{
    Q_OBJECT

private slots:
    void messages_data()
    {
        rows<QByteArray, QByteArray, uint>({
            {"address", {QByteArray("http://a.example/ b  c"), QByteArray("http://a.example/ b  c"), 22U}},
            {"nothing", {QByteArray(), QByteArray("\0", 1), 0U}},
            {"quoted path", {QByteArray("\"/a b.html\""), QByteArray("/a b.html"), 9U}},
            {"text behind the quotes", {QByteArray("\"/a b\" -x"), QByteArray("/a b\" -"), 7U}},
            {"one quote", {QByteArray("\""), QByteArray("\0", 1), 0U}},
            // a with two dots has two bytes, the face has four bytes and two UTF-16 units.
            {"UTF-8", {QByteArray("\xC3\xA4\xF0\x9F\x98\x80"), QByteArray("\xC3\xA4\xF0\x9F\x98\x80"), 3U}},
            {"last character of several bytes", {QByteArray("\"a\xF0\x9F\x98\x80"), QByteArray("a"), 1U}},
        });
    }

    void messages()
    {
        const auto [commandLine, bytes, length] = row<QByteArray, QByteArray, uint>();
        const instance::CopyData message = instance::handOverMessage(commandLine.toStdString());
        QCOMPARE(QByteArray::fromStdString(message.bytes), bytes);
        QCOMPARE(message.dwData, length);
    }

    void wire()
    {
        const std::string bytes = instance::serialize({0x01020304, "xyz"});
        QCOMPARE(QByteArray::fromStdString(bytes), QByteArray("\x04\x03\x02\x01\x03\0\0\0xyz", 11));
        instance::CopyData message;
        // A message that arrives byte by byte is complete with its last byte and not before.
        for (size_t count = 0; count < bytes.size(); ++count)
            QCOMPARE(instance::decode(std::string_view(bytes).substr(0, count), message),
                     instance::Decoded::Incomplete);
        QCOMPARE(instance::decode(bytes + "more", message), instance::Decoded::Complete);
        QCOMPARE(message.dwData, 0x01020304U);
        QCOMPARE(QByteArray::fromStdString(message.bytes), "xyz");
    }

    void commandLines()
    {
        QTemporaryDir folder;
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(folder.path()));
        QFile file(u"a page.html"_s);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(QDir().mkdir(u"folder"_s));
        const auto joined = [](std::initializer_list<const char *> arguments) {
            std::vector<const char *> argv{"corvane"};
            argv.insert(argv.end(), arguments);
            return QString::fromStdString(instance::commandLine(int(argv.size()), argv.data()));
        };
        const QString here = QDir::currentPath();
        QCOMPARE(joined({}), QString());
        QCOMPARE(joined({"a", "", "b c"}), u"a  b c"_s);
        QCOMPARE(joined({"x", "./a page.html"}), u"x "_s + here + u"/./a page.html"_s);
        QCOMPARE(joined({"folder", "absent.html"}), u"folder absent.html"_s);
        QDir::setCurrent(before);
    }
};

QTEST_GUILESS_MAIN(tst_HandOverMessage)
#include "tst_handovermessage.moc"
