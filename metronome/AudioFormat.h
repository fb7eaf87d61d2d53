#pragma once

#include <QString>

#include <optional>

namespace tamsel {

// 32-bit float samples.
struct AudioFormat {
    enum class Layout { NonInterleaved, Interleaved };

    double sampleRate = 0; // frames per second
    int channelCount = 0;
    Layout layout = Layout::NonInterleaved;

    // The standard (non-interleaved) format; none where the rate is not a positive, finite number or the channel count
    // is not positive.
    static std::optional<AudioFormat> standard(double sampleRate, int channelCount);

    // The printed form, such as "2 ch, 44100 Hz, Float32, non-interleaved".
    QString description() const;

    bool operator==(const AudioFormat&) const = default;
};

} // namespace tamsel
