#include "base/Files.h"
#include "desktop/SoundPlayer.h"

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>

using namespace Qt::StringLiterals;

class tst_Sound : public QObject
{
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(u"."_s)); }

    void newSoundEndsTheOneBefore()
    {
        // A player that writes down what it plays, and its own number, and goes on for long.
        const QString player = in(u"player"_s);
        const QString log = in(u"log"_s);
        QVERIFY(writeFileWhole(player, "#!/bin/sh\necho $$ $1 >> '" + log.toUtf8() + "'\nexec sleep 60\n"));
        QFile::setPermissions(player, QFile::ReadOwner | QFile::ExeOwner);
        const QString sounds[] = {in(u"a b.wav"_s), in(u"c.wav"_s), in(u"d.wav"_s)};
        for (const QString &sound : sounds)
            QVERIFY(writeFileWhole(sound, "x"));
        const auto played = [&] {
            QStringList lines =
                QString::fromUtf8(readFile(log).value_or(QByteArray())).split(u'\n', Qt::SkipEmptyParts);
            for (QString &line : lines) {
                m_last = line.section(u' ', 0, 0).toInt();
                line = line.section(u' ', 1);
            }
            return lines;
        };
        {
            desktop::SoundPlayer sound(player);
            sound.play(in(u"missing.wav"_s));
            sound.play(m_folder.path());
            sound.play(sounds[0]);
            QTRY_COMPARE(played(), QStringList{sounds[0]});
            // Of two that come at once the later one counts.
            sound.play(sounds[1]);
            sound.play(sounds[2]);
            QTRY_COMPARE(played(), (QStringList{sounds[0], sounds[2]}));
        }
        QVERIFY(kill(m_last, 0) != 0);
    }

    void missingPlayerIsSilence()
    {
        QVERIFY(writeFileWhole(in(u"a.wav"_s), "x"));
        desktop::SoundPlayer sound(in(u"no player"_s));
        sound.play(in(u"a.wav"_s));
        sound.play(in(u"a.wav"_s));
        QTest::qWait(0);
    }

    void playerEndsByItself_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("no sound") << QByteArray("<html>").repeated(100);
        QTest::newRow("cut off") << readFile(u":/shipped/popup.wav"_s).value_or(QByteArray()).left(60);
        QTest::newRow("the sound that is delivered") << readFile(u":/shipped/popup.wav"_s).value_or(QByteArray());
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
    int m_last = 0;
};

QTEST_GUILESS_MAIN(tst_Sound)
#include "tst_sound.moc"
