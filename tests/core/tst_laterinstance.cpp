#include "MainFixture.h"

#include "desktop/instance/Instance.h"
#include "support/Rows.h"

#include <thread>

using namespace Qt::StringLiterals;

/// A later start of the program.
class tst_LaterInstance : public QObject
{
    Q_OBJECT
private slots:
    void messageOpensADocument()
    {
        MainFixture f;
        QVERIFY(f.startQuietly());
        QStringList opened;
        const std::initializer_list<std::tuple<int, QByteArray, QStringList>> cases{
            {9, "http://a/", {u"http://a/"_s}},
            {9, "http://a/", {u"http://a/"_s}}, // gets a new tab each time
            {10, "http://\xc3\xa4/", {u"http://ä/"_s}},
            {1, QByteArray(1, '\0'), {QString()}},
            {9, "http://a/bc", {u"http://a/"_s}},
            {3, QByteArray("a\0b", 3), {u"a"_s}},
            {0, {}, {}},
            {-1, "http://a/", {}}};
        for (const auto &[size, bytes, expected] : cases) {
            f.code->MainWindowProc(size, bytes);
            opened += expected;
            QCOMPARE(f.opened(), opened);
            QCOMPARE(f.main().ActiveForm()->Caption(), opened.last());
        }
    }

    void messageRestoresTheWindow_data()
    {
        rows<int, QString, bool>({
            {"maximised", {int(Qt::WindowMaximized), QString(), true}},
            {"in the tray", {int(Qt::WindowMinimized), QString(), true}},
            {"locked in the tray", {int(Qt::WindowMinimized), u"secret"_s, false}},
            {"password, on the screen", {int(Qt::WindowMaximized), u"secret"_s, true}},
        });
    }

    void messageRestoresTheWindow()
    {
        const auto [state, password, visible] = row<int, QString, bool>();
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
