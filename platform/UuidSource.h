#pragma once

#include <QRandomGenerator>
#include <QUuid>

#include <array>

namespace tamsel {

// Where fresh identifiers come from.
class UuidSource {
public:
    virtual ~UuidSource() = default;
    virtual QUuid next() = 0;
};

class RandomUuids final : public UuidSource {
public:
    // As Qt makes them (version 4), but of its generator, which the system seeds once: to ask the system each time
    // costs more than all else of a chart's bar.
    QUuid next() override {
        std::array<quint32, 4> bits{};
        QRandomGenerator::global()->fillRange(bits.data(), static_cast<qsizetype>(bits.size()));
        const auto byte = [&bits](unsigned index) {
            return static_cast<uchar>(bits[2 + index / 4] >> (index % 4 * 8));
        };
        constexpr quint32 version = 0x4000;
        constexpr uchar variant = 0x80;
        return {bits[0],
                static_cast<ushort>(bits[1] >> 16),
                static_cast<ushort>((bits[1] & 0x0fff) | version),
                static_cast<uchar>((byte(0) & 0x3f) | variant),
                byte(1),
                byte(2),
                byte(3),
                byte(4),
                byte(5),
                byte(6),
                byte(7)};
    }
};

} // namespace tamsel
