#pragma once

#include "metronome/AudioOutput.h"

#include <QStringList>

#include <semaphore>
#include <vector>

namespace tamsel::test {

// An output that makes no sound: it notes what is asked of it, and finishes a sound when the test says so.
class FakeAudioOutput final : public AudioOutput {
public:
    struct Order {
        const SoundBuffer* sound;
        qint64 sampleTime;
    };

    double sampleRate() const override { return rate; }
    void attach(SerialQueue& queue, Finished finished) override {
        m_queue = &queue;
        m_finished = std::move(finished);
        calls += QStringLiteral("attach");
    }
    void detach() override { calls += QStringLiteral("detach"); }
    std::optional<QString> start() override {
        calls += QStringLiteral("start");
        return startError;
    }
    void schedule(const SoundBuffer& sound, qint64 sampleTime) override {
        if (notesOrders)
            calls += QStringLiteral("schedule %1").arg(sampleTime);
        orders.push_back({&sound, sampleTime});
    }
    void play() override { calls += QStringLiteral("play"); }
    std::chrono::nanoseconds hostTime(qint64) override { return clickHostTime; }
    std::chrono::nanoseconds latency() override { return ownLatency; }
    void stop() override { calls += QStringLiteral("stop"); }
    void playAlert(const SoundBuffer& sound) override { alerts.push_back(&sound); }

    // Reports so many sounds as finished, one after another, and returns when the scheduler has acted on them.
    void finish(int count = 1) {
        m_queue->sync([this, count] {
            for (int i = 0; i < count; ++i)
                m_finished();
        });
    }
    // Returns when all of the scheduler's work that was due, ticks included, is done.
    void settle() {
        std::binary_semaphore done(0);
        m_queue->asyncAfter(std::chrono::nanoseconds::zero(), [&done] { done.release(); });
        done.acquire();
    }

    double rate = 44100;
    std::optional<QString> startError;
    std::chrono::nanoseconds clickHostTime{0};
    std::chrono::nanoseconds ownLatency{0};
    bool notesOrders = true; // among the calls; off, they cost little
    QStringList calls;
    std::vector<Order> orders;
    std::vector<const SoundBuffer*> alerts;

private:
    SerialQueue* m_queue = nullptr;
    Finished m_finished;
};

} // namespace tamsel::test
