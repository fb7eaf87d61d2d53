#include "metronome/AudioFormat.h"

#include <cmath>

namespace tamsel {

std::optional<AudioFormat> AudioFormat::standard(double sampleRate, int channelCount) {
    if (!std::isfinite(sampleRate) || sampleRate <= 0 || channelCount <= 0)
        return std::nullopt;
    return AudioFormat{sampleRate, channelCount, Layout::NonInterleaved};
}

QString description(const AudioFormat& format) {
    const bool interleaved = format.layout == AudioFormat::Layout::Interleaved;
    return QStringLiteral("%1 ch, %2 Hz, Float32, %3")
        .arg(format.channelCount)
        .arg(format.sampleRate)
        .arg(interleaved ? QStringLiteral("interleaved") : QStringLiteral("non-interleaved"));
}

} // namespace tamsel
