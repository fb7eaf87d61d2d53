#pragma once

#include <QColor>
#include <QImage>
#include <QSize>
#include <QString>

#include <optional>

namespace tamsel {

// A rounded rectangle that stands out of the ground or is pressed into it, as one picture: the body and its two soft
// shadows, the dark one to the lower right and the light one to the upper left. Lengths are in units of the screen's
// layout, not in pixels. Any thread.
struct ShadowTexture {
    enum class Relief { raised, pressed };

    Relief relief = Relief::raised;
    QSize size;
    int radius = 0;
    // How far the shadows are moved away from the body, and how far each fades.
    int offset = 0;
    int blur = 0;
    QColor body;
    QColor dark;
    QColor light;
    qreal devicePixelRatio = 1;

    // Reads "raised/87x87/20/7/16/E9EDF3/8C9EACC4/F2FFFFFF/2": relief, size, radius, offset, blur, body, dark and light
    // as RRGGBB or AARRGGBB, pixels per unit. Nothing if the text is none, or asks for more than `largestSide` pixels.
    static std::optional<ShadowTexture> fromId(const QString& id);

    // Whether all lengths are sensible and the picture is not larger than `largestSide` pixels.
    bool isValid() const;

    // How far a raised picture reaches beyond the body on each side; 0 for a pressed one.
    int margin() const;

    // The size of the body and twice the margin, in pixels, premultiplied. Its device pixel ratio stays 1, because the
    // one who draws it measures borders in pixels.
    QImage paint() const;

    static constexpr int largestSide = 2048;
};

} // namespace tamsel
