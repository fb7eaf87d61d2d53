#include "metronome/SoundBuffer.h"

#include "platform/FatalError.h"

#include <new>
#include <utility>

namespace tamsel {

std::optional<SoundBuffer> SoundBuffer::make(const AudioFormat& format, quint32 frameCapacity) {
    if (frameCapacity == 0 || format.channelCount < 0)
        return std::nullopt;
    const std::size_t sampleCount = std::size_t{frameCapacity} * static_cast<std::size_t>(format.channelCount);
    std::unique_ptr<float[]> samples(new (std::nothrow) float[sampleCount]());
    if (samples == nullptr)
        return std::nullopt;
    return SoundBuffer(format, frameCapacity, std::move(samples));
}

SoundBuffer::SoundBuffer(const AudioFormat& format, quint32 frameCapacity, std::unique_ptr<float[]> samples)
    : m_format(format), m_frameCapacity(frameCapacity), m_samples(std::move(samples)) {}

void SoundBuffer::setFrameLength(quint32 frames) {
    if (frames > m_frameCapacity)
        trap();
    m_frameLength = frames;
}

std::span<float> SoundBuffer::channel(int index) {
    return {m_samples.get() + static_cast<std::size_t>(index) * m_frameCapacity, m_frameLength};
}

std::span<const float> SoundBuffer::channel(int index) const {
    return {m_samples.get() + static_cast<std::size_t>(index) * m_frameCapacity, m_frameLength};
}

std::span<float> SoundBuffer::frames() {
    return {m_samples.get(), std::size_t{m_frameLength} * static_cast<std::size_t>(m_format.channelCount)};
}

std::span<const float> SoundBuffer::frames() const {
    return {m_samples.get(), std::size_t{m_frameLength} * static_cast<std::size_t>(m_format.channelCount)};
}

QString SoundBuffer::description() const {
    return QStringLiteral("%1 of %2 frames").arg(m_frameLength).arg(m_frameCapacity);
}

} // namespace tamsel
