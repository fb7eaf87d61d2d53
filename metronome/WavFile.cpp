#include "metronome/WavFile.h"

#include <QFile>
#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <limits>

namespace tamsel {

namespace {

constexpr quint16 channelCount = 2;
constexpr quint16 bytesPerSample = 2;
constexpr quint16 linearPcm = 1;
constexpr quint32 formatChunkBytes = 16;
// "WAVE", the format chunk with its name and length, and the name and length of the data chunk.
constexpr quint32 bytesBesideSamples = 4 + 8 + formatChunkBytes + 8;

template <class T>
void append(QByteArray& bytes, T value) {
    const T littleEndian = qToLittleEndian(value);
    bytes.append(reinterpret_cast<const char*>(&littleEndian), sizeof littleEndian);
}

} // namespace

bool writeWav(const QString& path, std::span<const float> samples, double sampleRate) {
    const std::size_t dataBytes = samples.size() * bytesPerSample;
    if (dataBytes > std::numeric_limits<quint32>::max() - bytesBesideSamples)
        return false; // the format counts in 32 bits
    const auto rate = static_cast<quint32>(sampleRate);
    QByteArray bytes("RIFF");
    bytes.reserve(static_cast<qsizetype>(dataBytes + bytesBesideSamples + 8));
    append(bytes, static_cast<quint32>(bytesBesideSamples + dataBytes));
    bytes.append("WAVEfmt ");
    append(bytes, formatChunkBytes);
    append(bytes, linearPcm);
    append(bytes, channelCount);
    append(bytes, rate);
    append(bytes, rate * channelCount * bytesPerSample);
    append(bytes, static_cast<quint16>(channelCount * bytesPerSample));
    append(bytes, static_cast<quint16>(bytesPerSample * 8));
    bytes.append("data");
    append(bytes, static_cast<quint32>(dataBytes));
    for (const float sample : samples)
        append(bytes, static_cast<qint16>(std::lround(std::clamp(sample, -1.0F, 1.0F) * 32767.0F)));
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
}

} // namespace tamsel
