#include "base/Files.h"
#include "desktop/DesktopDialogs.h"
#include "desktop/Paths.h"
#include "desktop/SystemTrayIcon.h"

#include <QApplication>
#include <QFileInfo>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;
using desktop::Paths;

/// What is no permission of the owner.
constexpr auto kOthers = QFileDevice::Permissions(0x0077);

class tst_Desktop : public QObject
{
    Q_OBJECT

private slots:
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
        QVERIFY(!paths.runtimeFolder.isEmpty());
        QVERIFY(!paths.downloadFolder.isEmpty());
    }

    void messageBoxes_data()
    {
        using namespace desktop;
        QTest::addColumn<int>("style");
        QTest::addColumn<QString>("press");
        QTest::addColumn<int>("answer");
        QTest::newRow("plain") << 0 << u"&OK"_s << IDOK;
        QTest::newRow("warning") << MB_ICONEXCLAMATION << u"&OK"_s << IDOK;
        QTest::newRow("yes") << (MB_YESNO | MB_ICONQUESTION) << u"&Yes"_s << IDYES;
        QTest::newRow("no") << (MB_YESNO | MB_ICONQUESTION) << u"&No"_s << IDNO;
        QTest::newRow("closed") << (MB_YESNO | MB_ICONINFORMATION) << QString() << IDNO;
    }

    void messageBoxes()
    {
        QFETCH(int, style);
        QFETCH(QString, press);
        QFETCH(int, answer);
        const QString prompt = u"<b>a & b</b>"_s;
        QTimer::singleShot(0, this, [&] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            QVERIFY(box);
            QCOMPARE(box->text(), prompt);
            QCOMPARE(box->textFormat(), Qt::PlainText);
            QCOMPARE(box->windowTitle(), u"Corvane"_s);
            const QHash<int, QMessageBox::Icon> icons{
                {32, QMessageBox::Question}, {48, QMessageBox::Warning}, {64, QMessageBox::Information}};
            QCOMPARE(box->icon(), icons.value(style & 0xF0, QMessageBox::NoIcon));
            for (QAbstractButton *button : box->buttons()) {
                if (button->text() == press)
                    button->click();
            }
            if (press.isEmpty())
                QTest::keyClick(box, Qt::Key_Escape);
        });
        QTest::ignoreMessage(QtWarningMsg, "This plugin does not support propagateSizeHints()");
        QCOMPARE(desktop::DesktopDialogs().messageBox(nullptr, prompt, style), answer);
    }

    void filters_data()
    {
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QString>("result");
        QTest::newRow("one") << u"Wave files|*.wav"_s << u"Wave files (*.wav)"_s;
        QTest::newRow("several patterns") << u"Bitmaps (*.bmp; *.jpg)|*.bmp; *.jpg"_s << u"Bitmaps (*.bmp *.jpg)"_s;
        QTest::newRow("several filters") << u"Text|*.txt|All files|*.*"_s << u"Text (*.txt);;All files (*)"_s;
        QTest::newRow("no pattern") << u"Text"_s << QString();
        QTest::newRow("empty") << QString() << QString();
    }

    void filters()
    {
        QFETCH(QString, filter);
        QTEST(desktop::qtFilter(filter), "result");
    }
};

QTEST_MAIN(tst_Desktop)
#include "tst_desktop.moc"
