#pragma once

#include "metronome/AudioDevice.h"
#include "metronome/AudioOutput.h"
#include "metronome/ClickMixer.h"
#include "platform/Clock.h"

#include <atomic>
#include <cstdint>
#include <deque>
#include <memory>

namespace tamsel {

// Plays on the system's sound device. The device's stream runs only while a timeline or an alert plays, and every one
// starts with a fresh stream: nothing that an earlier one left in the device's buffers is ever heard.
//
// A sound counts as finished when the device has come within a lead of it. The next one then is there in time although
// a device takes its frames in large blocks, the whole buffer at once when its stream starts, and a scheduler may keep
// as little as one click ahead. The audio callback wakes nobody: the scheduler's queue looks at the count of frames
// taken when the next sound is due, and in short steps from then on until the count has come there.
//
// A device that fails is reported in one console line, and tried again with the next start or alert.
class DeviceOutput final : public AudioOutput {
public:
    // The system's default output.
    DeviceOutput();
    DeviceOutput(std::unique_ptr<AudioDevice> device, std::unique_ptr<const Clock> clock);
    ~DeviceOutput() override;

    double sampleRate() const override { return AudioDevice::sampleRate; }
    void attach(SerialQueue& queue, Finished finished) override;
    void detach() override;
    std::optional<QString> start() override;
    void schedule(const SoundBuffer& sound, qint64 sampleTime) override;
    void play() override;
    std::chrono::nanoseconds hostTime(qint64 sampleTime) override;
    std::chrono::nanoseconds latency() override;
    void stop() override;
    void playAlert(const SoundBuffer& sound) override;

    // How often the queue has looked at the count of frames. Any thread.
    qint64 wakeUps() const { return m_wakeUps.load(); }

private:
    // On the queue, as everything from here on.
    void begin();
    void finishSounds();
    void finishOne();
    std::optional<QString> openStream();
    void runStream();
    void closeStream();
    // Says so, and ends a timeline that it takes with it.
    void deviceFailed(const QString& line);
    void endTimeline();
    void measure();
    void beginAlert(const SoundBuffer& sound);
    void endAlert();

    void look();
    void planLook();
    std::chrono::nanoseconds timeUntilFinish();
    // How far the device is from the lead before the next sound; not above zero when that is finished.
    qint64 framesUntilFinish() const;

    const std::unique_ptr<AudioDevice> m_device;
    const std::unique_ptr<const Clock> m_clock;
    SerialQueue* m_queue = nullptr;
    Finished m_finished;
    ClickMixer m_mixer;

    ClickMixer::Timeline m_timeline = 0;
    bool m_timelineOpen = false;
    bool m_streamOpen = false;
    bool m_streamRuns = false;
    std::deque<qint64> m_inFlight; // sample times of the sounds that are not finished, in order
    std::chrono::nanoseconds m_alertEnd{0};
    std::chrono::nanoseconds m_lastLatency{0}; // the last one measured; zero before the first
    std::chrono::nanoseconds m_streamStart{0}; // when the stream was started
    std::chrono::nanoseconds m_startDelay;     // from there until its first frame is heard, as measured last

    std::atomic<qint64> m_wakeUps = 0;
    std::uint64_t m_plannedLook = 0; // number of the look that counts; those planned before it are void
    qint64 m_framesAtLastLook = 0;
    int m_idleLooks = 0; // looks in a row that found no new frame
};

} // namespace tamsel
