#include "MainFixture.h"

#include "desktop/instance/Instance.h"

#include <thread>

using namespace Qt::StringLiterals;

/// A later start of the program.
class tst_LaterInstance : public QObject
{
    Q_OBJECT
private slots:
    void messageOpensADocument_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("cbData");
        QTest::addColumn<QStringList>("opened");
        QTest::newRow("address") << QByteArrayLiteral("http://a/") << 9 << QStringList{u"http://a/"_s};
        QTest::newRow("umlaut") << QByteArray("http://\xc3\xa4/") << 10 << QStringList{u"http://ä/"_s};
        QTest::newRow("empty command line") << QByteArray(1, '\0') << 1 << QStringList{QString()};
        QTest::newRow("shorter than the bytes") << QByteArrayLiteral("http://a/bc") << 9 << QStringList{u"http://a/"_s};
        QTest::newRow("text behind a NUL") << QByteArray("a\0b", 3) << 3 << QStringList{u"a"_s};
        QTest::newRow("nothing") << QByteArray() << 0 << QStringList();
        QTest::newRow("negative") << QByteArrayLiteral("http://a/") << -1 << QStringList();
    }

    void messageOpensADocument()
    {
        QFETCH(const QByteArray, bytes);
        QFETCH(const int, cbData);
        QFETCH(const QStringList, opened);
        MainFixture f;
        f.seedQuietStart();
        // A handed-over address gets a new tab whatever the address bar would do.
        QVERIFY(f.start());
        f.code->MainWindowProc(cbData, bytes);
        QCOMPARE(f.opened(), opened);
        if (!opened.isEmpty()) {
            QCOMPARE(f.main().ActiveForm()->Caption(), opened.first());
            f.code->MainWindowProc(cbData, bytes);
            QCOMPARE(f.code->flags.OpenDocumentCount, 2);
        }
    }

    void messageRestoresTheWindow_data()
    {
        QTest::addColumn<int>("state");
        QTest::addColumn<QString>("password");
        QTest::addColumn<bool>("visible");
        QTest::newRow("maximised") << int(Qt::WindowMaximized) << QString() << true;
        QTest::newRow("in the tray") << int(Qt::WindowMinimized) << QString() << true;
        QTest::newRow("locked in the tray") << int(Qt::WindowMinimized) << u"secret"_s << false;
        QTest::newRow("password, on the screen") << int(Qt::WindowMaximized) << u"secret"_s << true;
    }

    void messageRestoresTheWindow()
    {
        QFETCH(const int, state);
        QFETCH(const QString, password);
        QFETCH(const bool, visible);
        MainFixture f;
        f.seedQuietStart();
        f.set(u"General", u"TrayPassword", password);
        QVERIFY(f.start());
        f.main().setWindowState(Qt::WindowStates(state));
        if (state == Qt::WindowMinimized)
            QTRY_VERIFY(f.main().isHidden());
        f.code->MainWindowProc(9, QByteArrayLiteral("http://a/"));
        QCOMPARE(f.main().isVisible(), visible);
        QCOMPARE(f.main().windowState() & ~Qt::WindowActive, Qt::WindowNoState);
        QCOMPARE(f.opened(), QStringList{u"http://a/"_s});
    }

    void lateMessageIsDropped()
    {
        MainFixture f;
        QVERIFY(f.startQuietly());
        f.close();
        f.code->MainWindowProc(9, QByteArrayLiteral("http://a/"));
        QCOMPARE(f.opened(), QStringList());
        // The lock is free again.
        instance::Lock other;
        QVERIFY(other.acquire(f.paths.runtimeFolder.toStdString(), instance::kMutexName));
    }
};

QTEST_MAIN(tst_LaterInstance)
#include "tst_laterinstance.moc"
