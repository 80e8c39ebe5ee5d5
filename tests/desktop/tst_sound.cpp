#include "base/Files.h"
#include "desktop/SoundPlayer.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_Sound : public QObject
{
    Q_OBJECT

private slots:
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

    void playerEndsByItself_data()
    {
        const QByteArray sound = readFile(u":/shipped/popup.wav"_s).value_or(QByteArray());
        QVERIFY(sound.size() > 1000);
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("no sound") << QByteArray("<html>").repeated(100);
        QTest::newRow("cut off") << sound.left(60);
        QTest::newRow("the sound that is delivered") << sound;
    }

    void playerEndsByItself()
    {
        QFETCH(const QByteArray, content);
        QVERIFY(writeFileWhole(in(u"sound.wav"_s), content));
        QProcess player;
        player.start(QStringLiteral(PLAYER), {in(u"sound.wav"_s)});
        QVERIFY(player.waitForFinished(20000));
        QCOMPARE(player.exitStatus(), QProcess::NormalExit);
    }

private:
    QString in(const QString &name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(tst_Sound)
#include "tst_sound.moc"
