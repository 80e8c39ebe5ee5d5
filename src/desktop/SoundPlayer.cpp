#include "desktop/SoundPlayer.h"

#include <QCoreApplication>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace desktop {

namespace {

/// A player that is killed is gone after a moment; the program's end waits no longer than this.
constexpr int kEndMs = 500;

} // namespace

SoundPlayer::SoundPlayer(const QString &program, QObject *parent)
    : QObject(parent)
    , m_program(program.isEmpty() ? QCoreApplication::applicationDirPath() + u"/corvane-sound"_s : program)
{
    m_process.setStandardInputFile(QProcess::nullDevice());
    m_process.setStandardOutputFile(QProcess::nullDevice());
    m_process.setStandardErrorFile(QProcess::nullDevice());
    connect(&m_process, &QProcess::finished, this, &SoundPlayer::playNext);
}

SoundPlayer::~SoundPlayer()
{
    m_process.disconnect(this);
    m_process.kill();
    m_process.waitForFinished(kEndMs);
}

void SoundPlayer::play(const QString &file)
{
    // A pipe would be waited for.
    if (!QFileInfo(file).isFile())
        return;
    m_next = file;
    if (m_process.state() == QProcess::NotRunning)
        playNext();
    else
        m_process.kill();
}

void SoundPlayer::playNext()
{
    if (const QString file = std::exchange(m_next, {}); !file.isEmpty())
        m_process.start(m_program, {file}, QIODevice::NotOpen);
}

} // namespace desktop
