#pragma once

#include <QString>

namespace desktop {

/// Short sounds.
class Sound
{
public:
    virtual ~Sound() = default;
    /// Begins to play a sound file (WAV) and returns at once; a sound that still plays ends. What is no sound file is
    /// silence.
    virtual void play(const QString &file) = 0;
};

} // namespace desktop
