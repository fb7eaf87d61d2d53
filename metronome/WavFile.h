#pragma once

#include <QSaveFile>
#include <QString>

#include <limits>
#include <span>

namespace tamsel {

// A WAV file of 16-bit linear PCM, stereo, written piece by piece. It appears under its name only when it is whole.
class WavFile {
public:
    // The format counts bytes in 32 bits, of which the heading takes some.
    static constexpr qint64 maximumFrames = (std::numeric_limits<quint32>::max() - 64) / 4;

    // `sampleRate` is a whole number of frames per second; `frames`, at most maximumFrames, is how many will be
    // written.
    WavFile(const QString& path, double sampleRate, qint64 frames);

    // Interleaved stereo; samples beyond ±1 are clipped.
    void write(std::span<const float> samples);

    // Puts the finished file in its place. False when that or any write before it failed; nothing is left then.
    [[nodiscard]] bool finish();
    QString errorText() const { return m_file.errorString(); }

private:
    QSaveFile m_file;
};

} // namespace tamsel
