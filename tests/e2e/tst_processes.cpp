#include "Program.h"
#include "Surroundings.h"

#include "core/state/SettingsStore.h"
#include "desktop/Paths.h"
#include "support/HomeFolder.h"
#include "support/LoopbackSite.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTest>
#include <csignal>
#include <sys/resource.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

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

        // A file of the folder where the second one is started.
        const HomeFolder elsewhere;
        QFile file(elsewhere.filePath(u"a page.html"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("<title>File</title>");
        file.close();
        Program third(home());
        third.setFolder(elsewhere.path());
        QVERIFY(third.start({u"a page.html"_s}));
        QCOMPARE(third.waitForEnd(8000), 0);

        Program empty(home());
        QVERIFY(empty.start());
        QCOMPARE(empty.waitForEnd(8000), 0);
        QVERIFY(first.isRunning());
        QCOMPARE(first.end(SIGTERM), 0);
        QCOMPARE(first.complaints(), QStringList());
        QCOMPARE(get(u"DocumentCount"_s), u"4"_s);
        QCOMPARE(get(u"Document2"_s), at(u"/b"_s));
        QCOMPARE(get(u"Document3"_s), u"file://"_s + QFileInfo(file).canonicalPath() + u"/a%20page.html"_s);

        // Nobody is there any more: the next one is a first one again.
        Program again(home());
        QVERIFY(again.start({at(u"/a"_s)}));
        QVERIFY(m_site.waitFor("/loaded/a", 2));
        QCOMPARE(again.end(SIGTERM), 0);
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
        QCOMPARE(program.end(signal), 0);
        // Two seconds are promised; a busy machine that runs all tests at once gets as much again.
        QVERIFY2(time.elapsed() < 4000, qPrintable(QString::number(time.elapsed())));
        QCOMPARE(program.complaints(), QStringList());
        QCOMPARE(get(u"DocumentCount"_s), u"1"_s);
        QCOMPARE(get(u"Document1"_s), at(u"/page"_s));
        QCOMPARE(get(u"MainLeft"_s), u"600"_s);
        QCOMPARE(get(u"MainWidth"_s), u"9000"_s);
        QCOMPARE(get(u"HistorySite1"_s), at(u"/page"_s));
        QVERIFY(QFile::exists(home() + u"/layout.xml"_s));
    }

    void savedDocumentsComeBack()
    {
        set(u"General"_s, u"LoadAction"_s, u"1"_s);
        set(u"Settings"_s, u"DocumentCount"_s, u"2"_s);
        set(u"Settings"_s, u"Document1"_s, at(u"/a"_s));
        set(u"Settings"_s, u"Document2"_s, at(u"/b"_s));
        for (int run = 1; run <= 2; ++run) {
            Program program(home());
            QVERIFY(program.start());
            QVERIFY(m_site.waitFor("/loaded/a", run));
            QVERIFY(m_site.waitFor("/loaded/b", run));
            QCOMPARE(program.end(SIGTERM), 0);
            QCOMPARE(program.complaints(), QStringList());
            QCOMPARE(get(u"DocumentCount"_s), u"2"_s);
        }
    }

    void secondProgramOnTheSameFolder()
    {
        LoopbackSite::Answer answer{"<title>Cookie</title><script>onload = () => fetch('/loaded/cookie')</script>"};
        answer.headers = {{"Set-Cookie", "kept=yes; Max-Age=3600"}};
        m_site.add("/cookie", answer);
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
            QCOMPARE(second.end(SIGTERM), 0);
            QCOMPARE(second.complaints(), QStringList());
            QCOMPARE(first.end(SIGTERM), 0);
            QCOMPARE(first.complaints(), QStringList());
        }
        Program third(home());
        QVERIFY(third.start({at(u"/c"_s)}));
        QVERIFY(m_site.waitFor("/loaded/c"));
        QCOMPARE(m_site.requests().back().headers.value("cookie"), "kept=yes"_ba);
        QCOMPARE(third.end(SIGTERM), 0);
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
                program.beforeStart([] {
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
        QCOMPARE(program.end(SIGTERM), 0);
        QVERIFY(isReadOnly || QFileInfo(home() + folder + u"/settings.ini"_s).size() > 0);
        QFile::setPermissions(home(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
};

int main(int argc, char **argv)
{
    allowRoot();
    QCoreApplication app(argc, argv);
    tst_Processes tests;
    return QTest::qExec(&tests, argc, argv);
}
#include "tst_processes.moc"
