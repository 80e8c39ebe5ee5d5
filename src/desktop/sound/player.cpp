// Plays one sound file and ends: corvane-sound <file.wav>. Started by the browser for each sound.

#include <QAudioDevice>
#include <QCoreApplication>
#include <QFile>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QUrl>
#include <unistd.h>

namespace {

/// A sound that is not over by then, or a sound service that does not answer, is given up; the kernel sees to it.
constexpr unsigned kLongestSeconds = 30;

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2)
        return 2;
    alarm(kLongestSeconds);
    QCoreApplication application(argc, argv);
    // Without one nothing would ever be told of the sound's end.
    if (QMediaDevices::defaultAudioOutput().isNull())
        return 1;
    QSoundEffect sound;
    const auto endWhenOver = [&sound] {
        if (sound.status() == QSoundEffect::Error)
            QCoreApplication::exit(1);
        else if (sound.status() == QSoundEffect::Ready && !sound.isPlaying())
            QCoreApplication::exit(0);
    };
    QObject::connect(&sound, &QSoundEffect::statusChanged, &application, endWhenOver, Qt::QueuedConnection);
    QObject::connect(&sound, &QSoundEffect::playingChanged, &application, endWhenOver, Qt::QueuedConnection);
    sound.setSource(QUrl::fromLocalFile(QFile::decodeName(argv[1])));
    sound.play();
    return QCoreApplication::exec();
}
