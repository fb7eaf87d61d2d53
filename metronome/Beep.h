#pragma once

#include "metronome/Rhythm.h"

namespace tamsel {

// One click of a rhythm. Declared as a type only: nothing makes or reads one.
struct Beep {
    Rhythm rhythmSelection = Rhythm::zeroFour;
    qint64 beepCount = 0;

    bool operator==(const Beep&) const = default;
};

} // namespace tamsel
