#pragma once

#include <QString>

#include <span>

namespace tamsel {

// Writes interleaved stereo samples, which must lie within ±1, as a WAV file of 16-bit linear PCM. `sampleRate` is a
// whole number of frames per second. False when the file cannot be written whole.
[[nodiscard]] bool writeWav(const QString& path, std::span<const float> samples, double sampleRate);

} // namespace tamsel
