#pragma once

#include "desktop/Sound.h"

#include <QProcess>

namespace desktop {

/// Plays in a small process of its own, `corvane-sound`, which is started for each sound: the sound libraries cost the
/// browser nothing until then, and a sound service that hangs or complains does so out of the browser's way.
class SoundPlayer : public QObject, public Sound
{
    Q_OBJECT
public:
    /// `program`: the player, by default the one beside this program.
    explicit SoundPlayer(const QString &program = {}, QObject *parent = nullptr);
    /// Ends the sound that plays.
    ~SoundPlayer() override;
    void play(const QString &file) override;

private:
    void playNext();

    QString m_program;
    /// What plays when the sound before it has ended.
    QString m_next;
    QProcess m_process;
};

} // namespace desktop
