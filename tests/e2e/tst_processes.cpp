#include "Surroundings.h"

#include "core/state/SettingsStore.h"
#include "desktop/Paths.h"
#include "desktop/instance/Instance.h"
#include "support/HomeFolder.h"
#include "support/LoopbackSite.h"
#include "support/Wait.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>
#include <csignal>
#include <sys/resource.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

/// The program as its user starts it, in a process of its own: the launcher with some arguments.
class Program
{
public:
    /// `home` becomes the program folder.
    explicit Program(const QString &home)
        : m_home(home)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"CORVANE_HOME"_s, home);
        environment.insert(u"QT_LOGGING_RULES"_s, u"*.debug=false;qt.webenginecontext.info=false"_s);
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::MergedChannels);
    }
    ~Program()
    {
        if (!isRunning())
            return;
        process.kill();
        process.waitForFinished();
    }
    Program(const Program &) = delete;

    bool start(const QStringList &arguments = {})
    {
        process.start(QStringLiteral(PROGRAM_FOLDER "/corvane"), arguments);
        return process.waitForStarted();
    }
    /// Waits until later starts find the window.
    bool waitForWindow() const
    {
        const std::string folder = (m_home + u"/run"_s).toStdString();
        return waitUntil([&] { return !instance::FindRunningInstance(folder).empty(); });
    }
    bool isRunning() const { return process.state() == QProcess::Running; }
    /// Waits for the end, while the loopback site answers; the exit code, -1 for any other end or none in time.
    int waitForEnd(int milliseconds)
    {
        const bool hasEnded = waitUntil([&] { return !isRunning(); }, milliseconds);
        return hasEnded && process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }
    /// Ends the program by a signal, as log-out does: what is wrong with its end and its output.
    QStringList end(int signal)
    {
        ::kill(static_cast<int>(process.processId()), signal);
        const int code = waitForEnd(5000);
        return (code == 0 ? QStringList() : QStringList(u"it ended with %1"_s.arg(code))) + complaints();
    }
    /// Lines of its output that a flawless run does not have.
    QStringList complaints()
    {
        static const QRegularExpression usual(
            u"^\\s*$|This plugin does not support|Sandboxing disabled by user|No suitable graphics backend"_s);
        QStringList lines = QString::fromUtf8(process.readAll()).split(u'\n');
        lines.removeIf([](const QString &line) { return usual.match(line).hasMatch(); });
        return lines;
    }

    QProcess process;

private:
    QString m_home;
};

/// The real executables: start, hand-over, end and bad surroundings.
class tst_Processes : public QObject
{
    Q_OBJECT

    LoopbackSite m_site;
    std::unique_ptr<HomeFolder> m_home;

    QString at(const QString &path) const { return m_site.address(path); }
    QString home() const { return m_home->path(); }
    QString settingsFile() const { return desktop::Paths::below(home()).settingsFile; }
    void set(const QString &section, const QString &key, const QString &value) const
    {
        SettingsStore(settingsFile()).SaveSetting(appTitle(), section, key, value);
    }

    QString get(const QString &key) const
    {
        return SettingsStore(settingsFile()).GetSetting(appTitle(), u"Settings"_s, key, u"(absent)"_s);
    }

private slots:
    void init()
    {
        allowRoot();
        m_home = std::make_unique<HomeFolder>();
        QVERIFY(m_home->isValid());
        set(u"Settings"_s, u"FirstTime"_s, u"False"_s);
        set(u"Settings"_s, u"MainMaximized"_s, u"False"_s);
        // The offscreen platform warns of its missing tray.
        set(u"General"_s, u"MinimizeToTray"_s, u"False"_s);
        set(u"General"_s, u"SaveDocumentOnExit"_s, u"True"_s);
        m_site.clearRequests();
        for (const QByteArray path : {"/a", "/b", "/c"})
            m_site.page(path, "Page " + path, "<script>onload = () => fetch('/loaded' + location.pathname)</script>");
    }

    void handOver()
    {
        Program first(home());
        QVERIFY(first.start({at(u"/a"_s)}));
        QVERIFY(first.waitForWindow());
        QVERIFY(m_site.waitFor("/loaded/a"));

        Program second(home());
        QVERIFY(second.start({at(u"/b"_s)}));
        // Far less than the ten seconds that it would wait for an answer.
        QCOMPARE(second.waitForEnd(8000), 0);
        QVERIFY(m_site.waitFor("/loaded/b"));
        QCOMPARE(second.complaints(), QStringList());

        Program empty(home());
        QVERIFY(empty.start());
        QCOMPARE(empty.waitForEnd(8000), 0);
        QVERIFY(first.isRunning());
        QCOMPARE(first.end(SIGTERM), QStringList());
        QCOMPARE(get(u"DocumentCount"_s), u"3"_s);
        QCOMPARE(get(u"Document2"_s), at(u"/b"_s));

        // Nobody is there any more: the next one is a first one again.
        Program again(home());
        QVERIFY(again.start({at(u"/a"_s)}));
        QVERIFY(m_site.waitFor("/loaded/a", 2));
        QCOMPARE(again.end(SIGTERM), QStringList());
    }

    void signalsRunTheOrdinaryClose_data()
    {
        QTest::addColumn<int>("signal");
        QTest::addColumn<QByteArray>("script");
        QTest::newRow("SIGTERM") << SIGTERM << QByteArray();
        QTest::newRow("SIGHUP") << SIGHUP << QByteArray();
        QTest::newRow("page hangs") << SIGTERM << QByteArrayLiteral("for (;;);");
        QTest::newRow("page hangs in its farewell") << SIGTERM << QByteArrayLiteral("onpagehide = () => { for (;;); }");
        QTest::newRow("page asks") << SIGTERM << QByteArrayLiteral("alert('Wait!')");
        QTest::newRow("page would be asked") << SIGTERM << QByteArrayLiteral("onbeforeunload = () => 'Stay!'");
    }

    void signalsRunTheOrdinaryClose()
    {
        QFETCH(const int, signal);
        QFETCH(const QByteArray, script);
        m_site.page("/page", "Page",
                    "<script>onload = () => setTimeout(() => { fetch('/ready'); setTimeout(() => {" + script +
                        "}) })</script>");
        set(u"Settings"_s, u"MainLeft"_s, u"600"_s);
        set(u"Settings"_s, u"MainWidth"_s, u"9000"_s);
        Program program(home());
        QVERIFY(program.start({at(u"/page"_s)}));
        QVERIFY(m_site.waitFor("/ready"));
        QVERIFY(program.waitForWindow());

        QElapsedTimer time;
        time.start();
        QCOMPARE(program.end(signal), QStringList());
        // Two seconds are promised; a busy machine that runs all tests at once gets as much again.
        QVERIFY2(time.elapsed() < 4000, qPrintable(QString::number(time.elapsed())));
        QCOMPARE(get(u"DocumentCount"_s), u"1"_s);
        QCOMPARE(get(u"Document1"_s), at(u"/page"_s));
        QCOMPARE(get(u"MainLeft"_s), u"600"_s);
        QCOMPARE(get(u"MainWidth"_s), u"9000"_s);
        QCOMPARE(get(u"HistorySite1"_s), at(u"/page"_s));
        QVERIFY(QFile::exists(home() + u"/layout.xml"_s));
    }

    void secondProgramOnTheSameFolder()
    {
        m_site.add("/cookie", {"<title>Cookie</title><script>onload = () => fetch('/loaded/cookie')</script>",
                               "text/html",
                               200,
                               {{"Set-Cookie", "kept=yes; Max-Age=3600"}}});
        {
            Program first(home());
            QVERIFY(first.start({at(u"/cookie"_s)}));
            QVERIFY(m_site.waitFor("/loaded/cookie"));
            QVERIFY(first.waitForWindow());
            // A first program that has gone to the tray with a password gives its lock back like this.
            QDir run(home() + u"/run"_s);
            for (const QString &name : run.entryList({u"*MUTEX*"_s}, QDir::AllEntries | QDir::System))
                QVERIFY(run.remove(name));

            Program second(home());
            QVERIFY(second.start({at(u"/b"_s)}));
            QVERIFY(m_site.waitFor("/loaded/b"));
            QVERIFY(QFileInfo(home() + u"/Profile-2"_s).isDir());
            QVERIFY(!m_site.requests().back().headers.contains("cookie"));
            QCOMPARE(second.end(SIGTERM), QStringList());
            QCOMPARE(first.end(SIGTERM), QStringList());
        }
        Program third(home());
        QVERIFY(third.start({at(u"/c"_s)}));
        QVERIFY(m_site.waitFor("/loaded/c"));
        QCOMPARE(m_site.requests().back().headers.value("cookie"), "kept=yes"_ba);
        QCOMPARE(third.end(SIGTERM), QStringList());
    }

    void badProgramFolder_data()
    {
        QTest::addColumn<QString>("folder"); // below the home
        QTest::addColumn<bool>("isReadOnly");
        QTest::newRow("missing") << u"/a/b c"_s << false;
        QTest::newRow("read-only") << QString() << true;
    }

    void badProgramFolder()
    {
        QFETCH(const QString, folder);
        QFETCH(const bool, isReadOnly);
        constexpr int kNobody = 65534;
        Program program(home() + folder);
        if (isReadOnly) {
            // Root may write everywhere, so somebody else starts the program then.
            if (geteuid() == 0) {
                for (const QString &path : {home(), settingsFile()})
                    QCOMPARE(chown(qPrintable(path), kNobody, kNobody), 0);
                program.process.setChildProcessModifier([] {
                    if (setgid(kNobody) != 0 || setuid(kNobody) != 0 ||
                        access(PROGRAM_FOLDER "/corvane-browser", X_OK) != 0)
                        _exit(77);
                });
            }
            QVERIFY(QFile::setPermissions(home(), QFile::ReadOwner | QFile::ExeOwner));
        }
        QVERIFY(program.start({at(u"/a"_s)}));
        if (isReadOnly) {
            const bool isLoaded = m_site.waitFor("/loaded/a");
            if (!program.isRunning() && program.waitForEnd(0) == 77)
                QSKIP("another user cannot reach the program from here");
            QVERIFY(isLoaded);
        } else {
            QVERIFY(program.waitForWindow());
        }
        program.end(SIGTERM); // it may complain of the folder
        QCOMPARE(program.waitForEnd(0), 0);
        QVERIFY(isReadOnly || QFileInfo(home() + folder + u"/settings.ini"_s).size() > 0);
        QFile::setPermissions(home(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
};

QTEST_GUILESS_MAIN(tst_Processes)
#include "tst_processes.moc"
