#pragma once

#include "metronome/AudioFormat.h"
#include "metronome/SoundBuffer.h"

#include <QStringView>

namespace tamsel {

// The name of the alert sound.
inline constexpr QStringView alertSoundName = u"BEEP!";

// The alert: a soft-edged 80-millisecond tone, short enough that three of them 110 milliseconds apart stay three. The
// format must be non-interleaved. Stops the program where the buffer cannot be made.
SoundBuffer makeAlertBuffer(const AudioFormat& format);

} // namespace tamsel
