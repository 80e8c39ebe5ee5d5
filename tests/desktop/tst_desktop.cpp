#include "base/Files.h"
#include "desktop/DesktopDialogs.h"
#include "desktop/InstanceMark.h"
#include "desktop/Paths.h"
#include "desktop/SoundPlayer.h"
#include "desktop/instance/Instance.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFileInfo>
#include <QLocalSocket>
#include <QMessageBox>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <csignal>
#include <future>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using desktop::InstanceMark;
using desktop::Paths;

namespace {

/// A main window as far as later processes can see it.
struct Window
{
    explicit Window(const QString &folder)
        : mark(std::make_unique<InstanceMark>(folder, [this](int32_t, const QByteArray &bytes) { received += bytes; }))
    {}
    QByteArrayList received;
    std::unique_ptr<InstanceMark> mark;
};

QString onlyMark(const QString &folder)
{
    return QString::fromStdString(instance::FindRunningInstance(folder.toStdString()));
}

/// What is no permission of the owner.
constexpr auto kOthers = QFileDevice::Permissions(0x0077);

} // namespace

/// The desktop: the one running program with its lock, its mark and the messages of later starts; paths, message boxes
/// and sounds.
class tst_Desktop : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_home = std::make_unique<QTemporaryDir>();
        qputenv("CORVANE_HOME", m_home->path().toUtf8());
        m_run = QString::fromStdString(instance::runtimeFolder());
        m_lock = std::make_unique<instance::Lock>();
        QVERIFY(m_lock->acquire(m_run.toStdString(), instance::kMutexName));
        QVERIFY(m_lock->held());
    }

    void cleanup() { m_lock.reset(); }

    void lockHasOneOwner()
    {
        const std::string folder = m_run.toStdString();
        instance::Lock second;
        QVERIFY(!second.acquire(folder, instance::kMutexName));
        QVERIFY(instance::isOwned(folder, instance::kMutexName));

        // Given back for the way to the tray, taken by another program, and gone for the first until that has ended.
        m_lock->release();
        QVERIFY(!instance::isOwned(folder, instance::kMutexName));
        {
            instance::Lock third;
            QVERIFY(third.acquire(folder, instance::kMutexName));
            QVERIFY(!m_lock->acquire(folder, instance::kMutexName));
        }
        QVERIFY(m_lock->acquire(folder, instance::kMutexName));
    }

    void lockWithoutAFolder()
    {
        // Whatever else fails counts as owning it: the program starts.
        for (const char *folder : {"", "/proc/no/such/folder", "/dev/null"}) {
            instance::Lock lock;
            QVERIFY(lock.acquire(folder, instance::kMutexName));
            QVERIFY(!lock.held() && !instance::isOwned(folder, instance::kMutexName));
        }
    }

    void runtimeFolders()
    {
        const QByteArray run = m_run.toUtf8();
        const auto modeOf = [](const QByteArray &path) {
            struct stat info = {};
            return stat(path.constData(), &info) == 0 ? info.st_mode & 0777 : 0;
        };
        QCOMPARE(modeOf(run), 0700U);
        // Opened to others by somebody: closed again.
        chmod(run.constData(), 0777);
        QCOMPARE(QString::fromStdString(instance::runtimeFolder()), m_run);
        QCOMPARE(modeOf(run), 0700U);
        const Window window(m_run);
        QCOMPARE(modeOf(onlyMark(m_run).toUtf8()), 0600U);

        // A link may lead to where others can write.
        QTemporaryDir other;
        qputenv("CORVANE_HOME", other.path().toUtf8());
        QCOMPARE(symlink(run.constData(), other.filePath(u"run"_s).toUtf8().constData()), 0);
        QCOMPARE(instance::runtimeFolder(), std::string());

        const QByteArray usual = qgetenv("XDG_RUNTIME_DIR");
        qunsetenv("CORVANE_HOME");
        qputenv("XDG_RUNTIME_DIR", m_home->path().toUtf8());
        QCOMPARE(QString::fromStdString(instance::runtimeFolder()), m_home->filePath(u"corvane"_s));
        qputenv("XDG_RUNTIME_DIR", "/proc/none");
        qputenv("TMPDIR", m_home->path().toUtf8());
        QCOMPARE(QString::fromStdString(instance::runtimeFolder()), m_home->filePath(u"corvane-%1"_s.arg(geteuid())));
        qunsetenv("TMPDIR");
        qputenv("XDG_RUNTIME_DIR", usual);
    }

    void handOver()
    {
        const auto waiting = launch({u"x"_s}); // there is a first program, but it is still loading
        QTRY_COMPARE(waiting->state(), QProcess::NotRunning);
        QCOMPARE(waiting->exitCode(), 0);

        // The receiver opens a document and lets events through meanwhile, also the next message.
        const QByteArray large(100 * 1024, 'x');
        QStringList steps;
        QEventLoop loop;
        std::unique_ptr<QProcess> second;
        std::unique_ptr<InstanceMark> mark;
        mark = std::make_unique<InstanceMark>(m_run, [&](int32_t size, const QByteArray &text) {
            QCOMPARE(size, text.size());
            if (text == "last") {
                mark.reset(); // and the program ends while it has a message
                return;
            }
            steps += text == large ? u"begin large"_s : u"begin first"_s;
            if (text == "first") {
                second = launch({QString::fromLatin1(large)});
                loop.exec();
            } else {
                loop.quit();
            }
            steps += u"end"_s;
        });
        const auto first = launch({u"first"_s});
        connect(first.get(), &QProcess::finished, this, [&] { steps += u"first process"_s; });
        QTRY_COMPARE(first->state(), QProcess::NotRunning);
        QTRY_COMPARE(second->state(), QProcess::NotRunning);
        QCOMPARE(steps, (QStringList{u"begin first"_s, u"begin large"_s, u"end"_s, u"end"_s, u"first process"_s}));

        const auto last = launch({u"last"_s});
        QTRY_COMPARE(last->state(), QProcess::NotRunning);
        QCOMPARE(last->exitCode(), 0);
        QCOMPARE(onlyMark(m_run), QString());
    }

    void deadSockets()
    {
        // A process that was killed leaves its socket; the lowest number makes sure that it is looked at first.
        const std::string dead = instance::socketPath(m_run.toStdString(), 0, 1);
        const int descriptor = instance::listenOn(dead);
        QVERIFY(descriptor >= 0);
        close(descriptor);
        // So may other things with such a name.
        const QString other = QString::fromStdString(instance::socketPath(m_run.toStdString(), 0, 2));
        QVERIFY(writeFileWhole(other, "x"));
        Window window(m_run);
        QVERIFY(handsOver("x", window));
        QVERIFY(!QFileInfo::exists(QString::fromStdString(dead)) && QFileInfo::exists(other));

        // A home whose path is longer than the address of a socket may be.
        qputenv("CORVANE_HOME", m_home->filePath(QString(150, u'h')).toUtf8());
        const QString deep = QString::fromStdString(instance::runtimeFolder());
        Window hidden(deep);
        QVERIFY(hidden.mark->isListening());
        auto sent = std::async(std::launch::async, [&] {
            return instance::SendUrlToInstance(instance::FindRunningInstance(deep.toStdString()), {1, "deep"}, 5000);
        });
        QTRY_COMPARE(hidden.received, QByteArrayList{"deep"});
        QVERIFY(sent.get());
    }

    void foreignBytes()
    {
        const QByteArray huge(10 * 1024 * 1024, 'x');
        const std::initializer_list<std::pair<QByteArray, bool>> cases{
            {"GET / HTTP/1.1\r\n\r\n", false},
            {huge, false},
            {QByteArray("\0\0\0\0\0\0\xA0\0", 8) + huge, false},    // 10 MB announced
            {QByteArray("\x01\0\0\0\x01\0\0\0x", 9) + huge, true}}; // 10 MB behind a message
        for (const auto &[bytes, isMessage] : cases) {
            Window window(m_run);
            QLocalSocket sender;
            sender.connectToServer(onlyMark(m_run));
            QVERIFY(sender.waitForConnected());
            sender.write(bytes);
            // Refused or answered, in both cases it ends at once and not by the time limit.
            QTRY_COMPARE_WITH_TIMEOUT(sender.state(), QLocalSocket::UnconnectedState, 1500);
            QCOMPARE(window.received.size(), isMessage ? 1 : 0);
            QVERIFY(handsOver("after", window));
        }
    }

    void silentAndSlowSenders()
    {
        Window window(m_run);
        QLocalSocket silent;
        QLocalSocket stuck;
        QLocalSocket slow;
        for (QLocalSocket *sender : {&silent, &stuck, &slow}) {
            sender->connectToServer(onlyMark(m_run));
            QVERIFY(sender->waitForConnected());
        }
        stuck.write(QByteArray("\x05\0\0\0\x05\0\0\0ab", 10));
        // They hold nobody up.
        QVERIFY(handsOver("x", window));
        window.received.clear();
        for (const char byte : QByteArray("\x05\0\0\0\x05\0\0\0abcde", 13)) {
            slow.write(&byte, 1);
            slow.flush();
            QTest::qWait(1);
        }
        QTRY_COMPARE(window.received, QByteArrayList{"abcde"});
        QTRY_COMPARE(slow.bytesAvailable(), 1);
        QTRY_COMPARE(silent.state(), QLocalSocket::UnconnectedState);
        QTRY_COMPARE(stuck.state(), QLocalSocket::UnconnectedState);
        QCOMPARE(window.received.size(), 1);
    }

    void nobodyAnswers()
    {
        // A program that hangs: it listens and does nothing more.
        const std::string path = instance::socketPath(m_run.toStdString(), 1, 1);
        const int descriptor = instance::listenOn(path);
        QVERIFY(descriptor >= 0);
        QElapsedTimer timer;
        timer.start();
        QVERIFY(!instance::SendUrlToInstance(path, {1, "x"}, 300));
        // More than the socket takes without a reader.
        QVERIFY(!instance::SendUrlToInstance(path, {1, std::string(instance::kMaxBytes, 'x')}, 300));
        QVERIFY(timer.elapsed() >= 600 && timer.elapsed() < 10000);
        close(descriptor);
        QVERIFY(!instance::SendUrlToInstance(path, {1, "x"}, 300));
    }

    void messages()
    {
        const std::initializer_list<std::tuple<QByteArray, QByteArray, uint>> cases{
            {QByteArray("http://a.example/ b  c"), QByteArray("http://a.example/ b  c"), 22U}, // address
            {QByteArray(), QByteArray("\0", 1), 0U},                                           // nothing
            {QByteArray("\"/a b.html\""), QByteArray("/a b.html"), 9U},                        // quoted path
            {QByteArray("\"/a b\" -x"), QByteArray("/a b\" -"), 7U},                           // text behind the quotes
            {QByteArray("\""), QByteArray("\0", 1), 0U},                                       // one quote
            // a with two dots has two bytes, the face has four bytes and two UTF-16 units.
            {QByteArray("\xC3\xA4\xF0\x9F\x98\x80"), QByteArray("\xC3\xA4\xF0\x9F\x98\x80"), 3U}, // UTF-8
            {QByteArray("\"a\xF0\x9F\x98\x80"), QByteArray("a"), 1U}}; // last character of several bytes
        for (const auto &[commandLine, bytes, length] : cases) {
            const instance::CopyData message = instance::handOverMessage(commandLine.toStdString());
            QCOMPARE(QByteArray::fromStdString(message.bytes), bytes);
            QCOMPARE(message.dwData, length);
        }
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
        QVERIFY(writeFileWhole(u"a page.html"_s, {}) && QDir().mkdir(u"folder"_s));
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

    void pathsOfAUser()
    {
        QTemporaryDir home;
        qunsetenv("CORVANE_HOME");
        qputenv("XDG_DATA_HOME", home.filePath(u"data"_s).toUtf8());
        qputenv("XDG_CONFIG_HOME", home.filePath(u"config"_s).toUtf8());
        qputenv("XDG_CACHE_HOME", home.filePath(u"cache"_s).toUtf8());
        const Paths paths = Paths::fromEnvironment();
        QCOMPARE(paths.programFolder, home.filePath(u"data/Corvane"_s));
        QCOMPARE(QFileInfo(paths.settingsFile).path(), home.filePath(u"config/Corvane"_s));
        QCOMPARE(paths.cacheFolder, home.filePath(u"cache/Corvane"_s));
        for (const QString &folder :
             {paths.programFolder, paths.profileFolder, paths.cacheFolder, QFileInfo(paths.settingsFile).path()}) {
            QVERIFY2(QFileInfo(folder).isDir(), qPrintable(folder));
            QVERIFY(!(QFile::permissions(folder) & kOthers));
        }
    }

    void messageBoxes()
    {
        using namespace desktop;
        // The style, the button that is pressed, or none, and the answer.
        const std::initializer_list<std::tuple<int, QString, int>> cases{
            {0, u"&OK"_s, IDOK},
            {MB_ICONEXCLAMATION, u"&OK"_s, IDOK},
            {MB_YESNO | MB_ICONQUESTION, u"&Yes"_s, IDYES},
            {MB_YESNO | MB_ICONQUESTION, u"&No"_s, IDNO},
            {MB_YESNO | MB_ICONINFORMATION, QString(), IDNO}};
        const QHash<int, QMessageBox::Icon> icons{
            {32, QMessageBox::Question}, {48, QMessageBox::Warning}, {64, QMessageBox::Information}};
        for (const auto &[style, press, answer] : cases) {
            QTimer::singleShot(0, this, [&, style = style, press = press] {
                auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
                QVERIFY(box);
                QCOMPARE(box->textFormat(), Qt::PlainText);
                QCOMPARE(box->icon(), icons.value(style & 0xF0, QMessageBox::NoIcon));
                for (QAbstractButton *button : box->buttons())
                    if (button->text() == press)
                        button->click();
                if (press.isEmpty())
                    QTest::keyClick(box, Qt::Key_Escape);
            });
            QTest::ignoreMessage(QtWarningMsg, "This plugin does not support propagateSizeHints()");
            QCOMPARE(DesktopDialogs().messageBox(nullptr, u"<b>a & b</b>"_s, style), answer);
        }
    }

    void filters()
    {
        const auto qt = desktop::qtFilter;
        QCOMPARE(qt(u"Bitmaps (*.bmp; *.jpg)|*.bmp; *.jpg"_s), u"Bitmaps (*.bmp *.jpg)"_s);
        QCOMPARE(qt(u"Text|*.txt|All files|*.*"_s), u"Text (*.txt);;All files (*)"_s);
        QCOMPARE(qt(u"Text"_s), QString());
    }

    void newSoundEndsTheOneBefore()
    {
        // A player that writes down what it plays and goes on for long.
        const QString player = in(u"player"_s);
        const QString log = in(u"log"_s);
        QVERIFY(writeFileWhole(player, "#!/bin/sh\necho $1 >> '" + log.toUtf8() + "'\nexec sleep 60\n"));
        QFile::setPermissions(player, QFile::ReadOwner | QFile::ExeOwner);
        for (const auto &sound : {u"a b"_s, u"c"_s, u"d"_s})
            QVERIFY(writeFileWhole(in(sound), "x"));
        desktop::SoundPlayer sound(player);
        sound.play(in(u"missing"_s));
        sound.play(m_folder.path());
        sound.play(in(u"a b"_s));
        QTRY_COMPARE(readFile(log).value_or(QByteArray()), in(u"a b\n"_s).toUtf8());
        // Of two that come at once the later one counts.
        sound.play(in(u"c"_s));
        sound.play(in(u"d"_s));
        QTRY_COMPARE(readFile(log).value_or(QByteArray()), in(u"a b\n"_s).toUtf8() + in(u"d\n"_s).toUtf8());
    }

    void playerEndsByItself()
    {
        const QByteArray shipped = readFile(u":/shipped/popup.wav"_s).value();
        QVERIFY(shipped.size() > 1000);
        for (const QByteArray &content : {QByteArray("<html>").repeated(100), shipped.left(60), shipped}) {
            QVERIFY(writeFileWhole(in(u"sound.wav"_s), content));
            QProcess player;
            player.start(QStringLiteral(PLAYER), {in(u"sound.wav"_s)});
            QVERIFY(player.waitForFinished(20000));
            QCOMPARE(player.exitStatus(), QProcess::NormalExit);
        }
    }

private:
    /// The real launcher with a home of its own; finished or failed after some seconds.
    std::unique_ptr<QProcess> launch(const QStringList &arguments, const QString &program = QStringLiteral(LAUNCHER))
    {
        auto process = std::make_unique<QProcess>();
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"CORVANE_HOME"_s, m_home->path());
        process->setProcessEnvironment(environment);
        process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process->start(program, arguments);
        return process;
    }

    bool handsOver(const QByteArray &text, Window &window)
    {
        window.received.clear();
        const auto process = launch({QString::fromUtf8(text)});
        return QTest::qWaitFor([&] { return process->state() == QProcess::NotRunning; }, 5000) &&
               process->exitCode() == 0 && window.received == QByteArrayList{text};
    }

    std::unique_ptr<QTemporaryDir> m_home;
    QString m_run;
    std::unique_ptr<instance::Lock> m_lock;

    QString in(const QString &name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
};

QTEST_MAIN(tst_Desktop)
#include "tst_desktop.moc"
