#include "metronome/AudioFormat.h"

#include <cmath>

namespace tamsel {

std::optional<AudioFormat> AudioFormat::standard(double sampleRate, int channelCount) {
    if (!std::isfinite(sampleRate) || sampleRate <= 0 || channelCount <= 0)
        return std::nullopt;
    return AudioFormat{sampleRate, channelCount, Layout::NonInterleaved};
}

QString AudioFormat::description() const {
    return QStringLiteral("%1 ch, %2 Hz, Float32, %3")
        .arg(channelCount)
        .arg(sampleRate)
        .arg(layout == Layout::Interleaved ? QStringLiteral("interleaved") : QStringLiteral("non-interleaved"));
}

} // namespace tamsel
