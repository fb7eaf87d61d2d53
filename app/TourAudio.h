#pragma once

#include "metronome/OfflineOutput.h"
#include "platform/Clock.h"

#include <QString>
#include <QTimer>

#include <vector>

namespace tamsel {

// An audio output in real time without a device: what would be heard goes to a WAV file. Main thread only.
class TourAudio {
public:
    explicit TourAudio(const Clock& clock);

    TourAudio(const TourAudio&) = delete;
    TourAudio& operator=(const TourAudio&) = delete;

    AudioOutput& output() { return m_output; }

    // Before the metronome starts: its ticks come at the times of the clicks from here on.
    void beginTimeline();

    // Where clicks began so far, as frames: the first loud sample after a silence.
    std::vector<qint64> onsets() const;

    // Everything heard so far, 16-bit stereo. False when the file cannot be written.
    bool write(const QString& path) const;

private:
    void renderUntilNow();

    const Clock& m_clock;
    const std::chrono::nanoseconds m_start;
    OfflineOutput m_output;
    std::vector<float> m_samples; // interleaved stereo
    QTimer m_timer;
};

} // namespace tamsel
