#include "metronome/AlertSound.h"

#include "platform/Checked.h"
#include "platform/FatalError.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <optional>
#include <utility>

namespace tamsel {

namespace {
constexpr double alertSeconds = 0.08;
constexpr double fadeSeconds = 0.005;
constexpr double alertHz = 880.0; // clearly another note than the clicks' C6 and G6
constexpr double alertAmplitude = 0.8;
} // namespace

SoundBuffer makeAlertBuffer(const AudioFormat& format) {
    const qint64 frames = checkedTruncate(format.sampleRate * alertSeconds);
    std::optional<SoundBuffer> buffer;
    if (frames <= std::numeric_limits<quint32>::max())
        buffer = SoundBuffer::make(format, static_cast<quint32>(frames));
    if (!buffer)
        fatalError(QStringLiteral("Unable to create sound buffer: ") + alertSoundName.toString());
    buffer->setFrameLength(static_cast<quint32>(frames));
    for (qint64 i = 0; i < frames; ++i) {
        const double seconds = static_cast<double>(i) / format.sampleRate;
        const double edge = std::min(seconds, alertSeconds - seconds);
        const double gain = alertAmplitude * std::clamp(edge / fadeSeconds, 0.0, 1.0);
        const auto value = static_cast<float>(gain * std::sin(2.0 * std::numbers::pi * alertHz * seconds));
        for (int channel = 0; channel < format.channelCount; ++channel)
            buffer->channel(channel)[static_cast<std::size_t>(i)] = value;
    }
    return *std::move(buffer);
}

} // namespace tamsel
