#pragma once

#include "tests/metronome/SoundServer.h"

#include <QString>

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace tamsel::test {

// Records what a sink plays: interleaved stereo floats at 44100 Hz.
class Recorder {
public:
    static constexpr int channelCount = 2;

    explicit Recorder(const QString& sink = QStringLiteral("test"));
    ~Recorder();

    // Returns when that many frames have come in; false when they do not within a generous time.
    bool waitForFrames(qint64 frames);
    // Returns when a sound has come in after that frame, and its first frame; -1 when none does within a generous time.
    qint64 waitForSound(qint64 fromFrame);

    qint64 frameCount() const;
    // A copy of the samples of all frames from that one on.
    std::vector<float> samplesFrom(qint64 frame) const;
    // When that frame came in, in host time: not before it was played, and little after.
    std::chrono::nanoseconds arrival(qint64 frame) const;

private:
    struct Chunk {
        qint64 endFrame;
        std::chrono::nanoseconds arrival;
    };

    void read();

    std::unique_ptr<ChildProcess> m_process;
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<float> m_samples;
    std::vector<Chunk> m_chunks;
    std::thread m_thread;
};

} // namespace tamsel::test
