#include "base/Files.h"
#include "desktop/DesktopDialogs.h"
#include "desktop/Paths.h"
#include "desktop/SoundPlayer.h"

#include <QApplication>
#include <QFileInfo>
#include <QMessageBox>
#include <QProcess>
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
    QString in(const QString &name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
};

QTEST_MAIN(tst_Desktop)
#include "tst_desktop.moc"
