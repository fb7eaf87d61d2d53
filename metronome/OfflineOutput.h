#pragma once

#include "metronome/AudioOutput.h"
#include "metronome/ClickMixer.h"

#include <atomic>
#include <span>
#include <vector>

namespace tamsel {

// Renders to memory, as fast as it is asked to. The scheduler gets its turn at every sound that begins before the next
// frame is made, so that the result depends neither on the size of the blocks nor on the speed of any thread.
class OfflineOutput final : public AudioOutput {
public:
    static constexpr int channelCount = 2;

    explicit OfflineOutput(double sampleRate = 44100.0);

    // Makes the next frames: interleaved stereo. Silence where nothing plays. Not on the queue.
    void render(std::span<float> samples);
    // The same, as a new block.
    std::vector<float> render(qint64 frames);

    // Returns when all of the scheduler's work that was due, ticks included, is done. Not on the queue.
    void settle();

    // The host time at which every timeline counts as taken from its sample 0. Unless set, so long ago that every tick
    // is due as soon as its click has been scheduled.
    void setTimelineStart(std::chrono::nanoseconds hostTime) { m_timelineStart.store(hostTime); }
    void setLatency(std::chrono::nanoseconds latency) { m_latency.store(latency); }
    // Ends the timeline as a device that goes would. Not on the queue.
    void fail();
    // Makes every start fail with that error, until it is set to none. Not while a start is under way.
    void setStartError(std::optional<QString> error) { m_startError = std::move(error); }

    double sampleRate() const override { return m_sampleRate; }
    void attach(SerialQueue& queue, Finished finished) override;
    void detach() override;
    std::optional<QString> start() override;
    void schedule(const SoundBuffer& sound, qint64 sampleTime) override;
    void play() override;
    std::chrono::nanoseconds hostTime(qint64 sampleTime) override;
    std::chrono::nanoseconds latency() override { return m_latency.load(); }
    void stop() override;
    void playAlert(const SoundBuffer& sound) override;

private:
    // On the queue.
    void passOnNotices();
    void endTimeline();

    const double m_sampleRate;
    std::atomic<std::chrono::nanoseconds> m_timelineStart;
    std::atomic<std::chrono::nanoseconds> m_latency = std::chrono::nanoseconds::zero();
    std::optional<QString> m_startError;
    SerialQueue* m_queue = nullptr;
    Finished m_finished;
    ClickMixer m_mixer;
    ClickMixer::Timeline m_timeline = 0;
    int m_inFlight = 0;
};

} // namespace tamsel
