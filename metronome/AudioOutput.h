#pragma once

#include "metronome/SoundBuffer.h"
#include "platform/SerialQueue.h"

#include <QString>

#include <chrono>
#include <functional>
#include <optional>
#include <utility>

namespace tamsel {

// Plays prepared sounds at given samples of a running clock. The clock belongs to a timeline: play() starts one at
// sample 0, stop() ends it and takes every sound that has not been heard with it.
//
// The sounds are not copied: they must outlive the attachment. Everything but stop() and playAlert() is called on the
// queue given to attach().
class AudioOutput {
public:
    // One scheduled sound needs nothing more from its scheduler: it begins so soon that it can only be played, or its
    // timeline has ended. On the queue.
    using Finished = std::function<void()>;

    // The output has ended the timeline by itself: its device would not start, or has gone. On the queue, before the
    // timeline's sounds are finished.
    using Failed = std::function<void()>;

    virtual ~AudioOutput() = default;

    // Before attach().
    void setFailed(Failed failed) { m_failed = std::move(failed); }

    // Frames per second of the sample clock. Any thread; constant.
    virtual double sampleRate() const = 0;

    // Connects a scheduler. Called before its queue runs any work for it; `finished` is called on the queue.
    virtual void attach(SerialQueue& queue, Finished finished) = 0;
    // Ends the attachment and silences everything; on return nothing refers to the scheduler or its sounds any more.
    virtual void detach() = 0;

    // Gets ready to play; gives the error's description where that fails. Does nothing when it is ready already.
    [[nodiscard]] virtual std::optional<QString> start() = 0;
    // Plays the sound at that sample of the present timeline, or of the next one when none is running.
    virtual void schedule(const SoundBuffer& sound, qint64 sampleTime) = 0;
    virtual void play() = 0;

    // When the output takes that sample of the timeline, in host time (see Clock); it is heard latency() later.
    virtual std::chrono::nanoseconds hostTime(qint64 sampleTime) = 0;
    virtual std::chrono::nanoseconds latency() = 0;

    // Main thread. On return no further frame of the timeline is made; finished() follows for each of its sounds.
    virtual void stop() = 0;
    // Main thread. Plays the sound once, now, whether or not a timeline runs.
    virtual void playAlert(const SoundBuffer& sound) = 0;

protected:
    void tellFailure() const {
        if (m_failed)
            m_failed();
    }

private:
    Failed m_failed;
};

} // namespace tamsel
