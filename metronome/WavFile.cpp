#include "metronome/WavFile.h"

#include <QtEndian>

#include <algorithm>
#include <cmath>

namespace tamsel {

namespace {

constexpr quint16 channelCount = 2;
constexpr quint16 bytesPerSample = 2;
constexpr quint16 bytesPerFrame = channelCount * bytesPerSample;
constexpr quint16 linearPcm = 1;
constexpr quint32 formatChunkBytes = 16;
// "WAVE", the format chunk with its name and length, and the name and length of the data chunk.
constexpr quint32 bytesBesideSamples = 4 + 8 + formatChunkBytes + 8;
constexpr float fullScale = 32767.0F;

template <class T>
void append(QByteArray& bytes, T value) {
    const T littleEndian = qToLittleEndian(value);
    bytes.append(reinterpret_cast<const char*>(&littleEndian), sizeof littleEndian);
}

QByteArray heading(double sampleRate, qint64 frames) {
    const auto rate = static_cast<quint32>(sampleRate);
    const auto dataBytes = static_cast<quint32>(frames * bytesPerFrame);
    QByteArray bytes("RIFF");
    append(bytes, bytesBesideSamples + dataBytes);
    bytes.append("WAVEfmt ");
    append(bytes, formatChunkBytes);
    append(bytes, linearPcm);
    append(bytes, channelCount);
    append(bytes, rate);
    append(bytes, rate * bytesPerFrame);
    append(bytes, bytesPerFrame);
    append(bytes, static_cast<quint16>(bytesPerSample * 8));
    bytes.append("data");
    append(bytes, dataBytes);
    return bytes;
}

} // namespace

WavFile::WavFile(const QString& path, double sampleRate, qint64 frames) : m_file(path) {
    if (m_file.open(QIODevice::WriteOnly))
        m_file.write(heading(sampleRate, frames));
}

void WavFile::write(std::span<const float> samples) {
    if (!m_file.isOpen())
        return;
    QByteArray bytes;
    bytes.reserve(static_cast<qsizetype>(samples.size() * bytesPerSample));
    for (const float sample : samples)
        append(bytes, static_cast<qint16>(std::lround(std::clamp(sample, -1.0F, 1.0F) * fullScale)));
    m_file.write(bytes);
}

bool WavFile::finish() {
    return m_file.isOpen() && m_file.commit();
}

} // namespace tamsel
