#pragma once

#include "metronome/MetronomeBeat.h"

namespace tamsel {

class Metronome;

// Hears the metronome's ticks.
class MetronomeDelegate {
public:
    virtual ~MetronomeDelegate() = default;

    // A click is being heard. Called on the metronome's queue, never on the main thread: hop over before touching
    // anything that a screen shows, and call nothing of the metronome's that waits for the queue.
    virtual void metronomeTicking(Metronome& metronome, MetronomeBeat beat) = 0;

    // The metronome has stopped by itself, because its output failed. On the metronome's queue as well.
    virtual void metronomeHasStopped(Metronome&) {}
};

} // namespace tamsel
