#pragma once

#include <QString>

namespace tamsel {

// Which click of the pattern a tick is. Both numbers count from 1.
struct MetronomeBeat {
    int beat = 1;        // within the bar
    int subdivision = 1; // click within the beat

    bool operator==(const MetronomeBeat&) const = default;
};

// The printed form, such as "MetronomeBeat(beat: 2, subdivision: 1)".
QString description(MetronomeBeat beat);

} // namespace tamsel
