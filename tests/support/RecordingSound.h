#pragma once

#include "desktop/Sound.h"

#include <QStringList>

/// Sounds without a loudspeaker: records the files that were to be played.
class RecordingSound : public desktop::Sound
{
public:
    void play(const QString &file) override { played += file; }

    QStringList played;
};
