#pragma once

#include "metronome/AudioFormat.h"

#include <QString>

#include <memory>
#include <optional>
#include <span>

namespace tamsel {

// A short sound in memory: an owned block of samples with a frame length of its own. Moving it moves no sample.
class SoundBuffer {
public:
    // A silent buffer whose frame length is 0; none where it would hold no frame or memory does not suffice.
    static std::optional<SoundBuffer> make(const AudioFormat& format, quint32 frameCapacity);

    const AudioFormat& format() const { return m_format; }
    quint32 frameCapacity() const { return m_frameCapacity; }
    quint32 frameLength() const { return m_frameLength; }
    // At most the capacity.
    void setFrameLength(quint32 frames);

    // The samples of one channel, frameLength() of them. Non-interleaved buffers only.
    std::span<float> channel(int index);
    std::span<const float> channel(int index) const;

    // All samples, frame after frame, frameLength() × channel count of them. Interleaved buffers only.
    std::span<float> frames();
    std::span<const float> frames() const;

    // The printed form, such as "882 of 882 frames".
    QString description() const;

private:
    SoundBuffer(const AudioFormat& format, quint32 frameCapacity, std::unique_ptr<float[]> samples);

    AudioFormat m_format;
    quint32 m_frameCapacity;
    quint32 m_frameLength = 0;
    std::unique_ptr<float[]> m_samples;
};

} // namespace tamsel
