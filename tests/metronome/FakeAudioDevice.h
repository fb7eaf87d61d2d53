#pragma once

#include "metronome/AudioDevice.h"

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

namespace tamsel::test {

// What a test sets and sees of a device that a DeviceOutput owns.
struct FakeDeviceState {
    // Set before the call that they concern.
    std::optional<QString> openError;
    std::optional<QString> startError;
    std::atomic<bool> failed = false;
    std::optional<qint64> position;
    qint64 firstBlock = 3308; // frames taken at once when a stream starts
    bool runsFreely = false;  // a thread of its own goes on taking frames, as fast as it can

    int opened = 0;
    int started = 0;
    std::vector<float> recording; // of the present stream, or the last

    ClickMixer* mixer = nullptr; // while a stream is open

    // Takes frames as the device's thread would. While a stream runs that does not run freely.
    void take(qint64 frames) {
        const std::size_t before = recording.size();
        recording.resize(before + static_cast<std::size_t>(frames * ClickMixer::channelCount));
        mixer->render(std::span(recording).subspan(before));
    }

    // Returns when so many streams have been closed.
    void waitForClosed(int count) {
        std::unique_lock lock(mutex);
        changed.wait(lock, [&] { return closed >= count; });
    }

    std::mutex mutex;
    std::condition_variable changed;
    int closed = 0;
};

class FakeAudioDevice final : public AudioDevice {
public:
    explicit FakeAudioDevice(FakeDeviceState& state) : m_state(state) {}
    ~FakeAudioDevice() override { endThread(); }

    void connect() override {}
    std::optional<QString> open(ClickMixer& mixer) override {
        if (m_state.openError)
            return m_state.openError;
        ++m_state.opened;
        m_state.failed = false;
        m_state.mixer = &mixer;
        m_state.recording.clear();
        return std::nullopt;
    }
    std::optional<QString> start() override {
        if (m_state.startError)
            return m_state.startError;
        ++m_state.started;
        m_state.take(m_state.firstBlock);
        if (m_state.runsFreely)
            m_thread = std::thread([this] { run(); });
        return std::nullopt;
    }
    void close() override {
        endThread();
        const std::lock_guard lock(m_state.mutex);
        m_state.mixer = nullptr;
        ++m_state.closed;
        m_state.changed.notify_all();
    }
    bool failed() const override { return m_state.failed; }
    std::optional<qint64> position() override { return m_state.position; }
    std::chrono::nanoseconds requestedLatency() const override { return std::chrono::milliseconds(75); }
    void hurry() override {}

private:
    void run() {
        std::vector<float> block(2 * 441);
        while (!m_ending) {
            m_state.mixer->render(block);
            std::this_thread::yield();
        }
    }
    void endThread() {
        m_ending = true;
        if (m_thread.joinable())
            m_thread.join();
        m_ending = false;
    }

    FakeDeviceState& m_state;
    std::thread m_thread;
    std::atomic<bool> m_ending = false;
};

} // namespace tamsel::test
