#include "metronome/MetronomeBeat.h"

namespace tamsel {

QString description(MetronomeBeat beat) {
    return QStringLiteral("MetronomeBeat(beat: %1, subdivision: %2)").arg(beat.beat).arg(beat.subdivision);
}

} // namespace tamsel
