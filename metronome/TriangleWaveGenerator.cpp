#include "metronome/TriangleWaveGenerator.h"

#include "platform/Checked.h"
#include "platform/FatalError.h"
#include "platform/Log.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

namespace tamsel {

namespace {

constexpr double clickSeconds = 0.02;
constexpr float clickAmplitude = 2.0F;

quint32 clickFrames(const AudioFormat& format) {
    const qint64 frames = checkedTruncate(format.sampleRate * clickSeconds);
    if (frames < 0 || frames > std::numeric_limits<quint32>::max())
        trap();
    return static_cast<quint32>(frames);
}

// The shortest decimal text that reads back to the same float, always with a fraction.
QString floatText(float value) {
    std::array<char, 32> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    QString text = QString::fromLatin1(buffer.data(), result.ptr - buffer.data());
    if (!text.contains(QLatin1Char('.')) && !text.contains(QLatin1Char('e')))
        text += QLatin1String(".0");
    return text;
}

} // namespace

void TriangleWaveGenerator::fill(SoundBuffer& buffer) {
    log(QStringLiteral("Buffer: %1 %2").arg(buffer.format().description(), buffer.description()));
    const float step = freqHz / sampleRate;
    const int channelCount = buffer.format().channelCount;
    const bool interleaved = buffer.format().layout == AudioFormat::Layout::Interleaved;
    for (quint32 i = 0; i < buffer.frameLength(); ++i) {
        const float phase = std::fmod(step * static_cast<float>(i), 1.0F);
        const float value = amplitude * (std::fabs(2.0F - 4.0F * phase) - 1.0F);
        for (int channel = 0; channel < channelCount; ++channel) {
            const std::size_t frame = i;
            if (interleaved)
                buffer.frames()[frame * static_cast<std::size_t>(channelCount) + static_cast<std::size_t>(channel)] =
                    value;
            else
                buffer.channel(channel)[frame] = value;
        }
    }
    frameCount = static_cast<float>(buffer.frameLength());
}

SoundBuffer makeClickBuffer(const AudioFormat& format, float freqHz) {
    const quint32 frames = clickFrames(format);
    std::optional<SoundBuffer> buffer = SoundBuffer::make(format, frames);
    if (!buffer)
        fatalError(QStringLiteral("Unable to create sound buffer: ") + floatText(freqHz));
    buffer->setFrameLength(frames);
    TriangleWaveGenerator generator(clickAmplitude, 0, freqHz, static_cast<float>(format.sampleRate));
    generator.fill(*buffer);
    return *std::move(buffer);
}

} // namespace tamsel
