#pragma once

#include "metronome/ClickMixer.h"

#include <QString>

#include <chrono>
#include <optional>

namespace tamsel {

// The system's sound device: one stream of interleaved stereo floats at a time. All of it is called on one thread,
// which it may keep waiting; the mixer's render() is called on a thread of the device's own. What fails gives a
// description of the error.
class AudioDevice {
public:
    static constexpr quint32 sampleRate = 44100;

    virtual ~AudioDevice() = default;

    // Reaches for the system's sound ahead of the first open(), which does so itself where this failed.
    virtual void connect() = 0;

    // Makes a stream, silent until start(). At most one is open.
    [[nodiscard]] virtual std::optional<QString> open(ClickMixer& mixer) = 0;
    // Makes the open stream ask the mixer for frames, from its own frame 0 on.
    [[nodiscard]] virtual std::optional<QString> start() = 0;
    // Ends the stream, with what it had taken and not yet played. On return the mixer is not called any more.
    virtual void close() = 0;

    // Whether the open stream has broken off by itself. Any thread.
    virtual bool failed() const = 0;
    // The frame of the open stream that is being heard; none where the device does not tell.
    virtual std::optional<qint64> position() = 0;
    // How far ahead of what is heard the stream was asked to take its frames.
    virtual std::chrono::nanoseconds requestedLatency() const = 0;

    // Asks the system to run the thread that calls the mixer ahead of ordinary ones, once that thread is known. While
    // the stream runs.
    virtual void hurry() = 0;
};

} // namespace tamsel
