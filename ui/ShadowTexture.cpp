#include "ui/ShadowTexture.h"

#include <QStringList>
#include <QtMath>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace tamsel {

namespace {

// One value for each unit of length. Shadows change so slowly that this is enough, whatever the screen's resolution.
// What it holds is the same upside down, so that only the upper half of the rows is kept.
class Field {
public:
    Field(int width, int height)
        : m_width(width), m_height(height), m_values(size_t(width) * size_t((height + 1) / 2)) {}

    int width() const { return m_width; }
    int height() const { return m_height; }
    int keptRows() const { return (m_height + 1) / 2; }
    float* keptRow(int y) { return m_values.data() + size_t(y) * size_t(m_width); }
    const float* row(int y) const { return m_values.data() + size_t(std::min(y, m_height - 1 - y)) * size_t(m_width); }

    // Three box blurs come close to a Gaussian one. Together they reach `reach` cells to each side.
    void blur(int reach) {
        Field before(m_width, m_height);
        for (int pass = 0; pass < 3; ++pass) {
            const int radius = (reach + pass) / 3;
            std::swap(m_values, before.m_values);
            blurRows(before, radius);
            std::swap(m_values, before.m_values);
            blurColumns(before, radius);
        }
    }

private:
    void blurRows(const Field& source, int radius) {
        const float share = 1.0F / float(2 * radius + 1);
        for (int y = 0; y < keptRows(); ++y) {
            const float* const from = source.row(y);
            float* const to = keptRow(y);
            float sum = 0;
            for (int x = -radius; x < m_width; ++x) {
                if (x + radius < m_width)
                    sum += from[x + radius];
                if (x >= 0)
                    to[x] = sum * share;
                if (x - radius >= 0)
                    sum -= from[x - radius];
            }
        }
    }

    // All columns at once, row by row, as they lie in memory.
    void blurColumns(const Field& source, int radius) {
        const float share = 1.0F / float(2 * radius + 1);
        std::vector<float> sums(static_cast<size_t>(m_width));
        for (int y = -radius; y < keptRows(); ++y) {
            if (y + radius < m_height)
                std::transform(sums.begin(), sums.end(), source.row(y + radius), sums.begin(), std::plus<>());
            if (y >= 0)
                std::transform(sums.begin(), sums.end(), keptRow(y), [share](float sum) { return sum * share; });
            if (y - radius >= 0)
                std::transform(sums.begin(), sums.end(), source.row(y - radius), sums.begin(), std::minus<>());
        }
    }

    const int m_width;
    const int m_height;
    std::vector<float> m_values;
};

// A place between two neighbouring cells.
struct Between {
    int first;
    float share; // of the second one

    // Of so many cells.
    static Between at(float coordinate, int count) {
        const float inside = std::clamp(coordinate, 0.0F, float(count - 2));
        const float whole = std::floor(inside);
        return {int(whole), inside - whole};
    }
    float mix(float one, float other) const { return one * (1 - share) + other * share; }
};

// A rounded rectangle with its upper left corner at (0, 0).
class Outline {
public:
    Outline(QSize size, int radius)
        : m_halfWidth(float(size.width()) / 2), m_halfHeight(float(size.height()) / 2),
          m_radius(std::min({float(radius), m_halfWidth, m_halfHeight})) {}

    // How far a point lies beyond the centres of the corners' circles.
    float across(float x) const { return std::abs(x - m_halfWidth) - (m_halfWidth - m_radius); }
    float down(float y) const { return std::abs(y - m_halfHeight) - (m_halfHeight - m_radius); }

    // How much of a square of this side around that point lies inside, 0 to 1.
    float covers(float across, float down, float side) const {
        const bool inCorner = across > 0 && down > 0;
        const float distance = inCorner ? std::sqrt(across * across + down * down) : std::max(across, down);
        return std::clamp(0.5F - (distance - m_radius) / side, 0.0F, 1.0F);
    }

private:
    const float m_halfWidth;
    const float m_halfHeight;
    const float m_radius;
};

// The premultiplied colour in a share of its strength, of 255.
QRgb faded(QRgb premultiplied, int share) {
    const auto part = [share](int value) { return (value * share + 127) / 255; };
    return qRgba(part(qRed(premultiplied)), part(qGreen(premultiplied)), part(qBlue(premultiplied)),
                 part(qAlpha(premultiplied)));
}

QRgb over(QRgb upper, QRgb lower) {
    const QRgb rest = faded(lower, 255 - qAlpha(upper));
    return qRgba(qRed(upper) + qRed(rest), qGreen(upper) + qGreen(rest), qBlue(upper) + qBlue(rest),
                 qAlpha(upper) + qAlpha(rest));
}

// What colour a shade from -1 (full light) to 1 (full shadow) has, on a ground or on nothing.
class Palette {
public:
    Palette(const QColor& dark, const QColor& light, QRgb ground) {
        for (int step = 0; step <= 2 * steps; ++step) {
            QColor color = step < steps ? light : dark;
            color.setAlphaF(color.alphaF() * float(std::abs(step - steps)) / steps);
            m_colors[size_t(step)] = over(qPremultiply(color.rgba()), ground);
        }
    }

    QRgb color(float shade) const { return m_colors[size_t(shade * steps + middle)]; }

private:
    static constexpr int steps = 255;
    // Where no shade lies among the colours; a position is cut off to a whole number, so a half more rounds it.
    static constexpr float middle = steps + 0.5F;

    std::array<QRgb, 2 * steps + 1> m_colors;
};

std::optional<QColor> colorFromId(const QString& text) {
    if (text.size() != 6 && text.size() != 8)
        return {};
    bool valid = false;
    const uint value = text.toUInt(&valid, 16);
    if (!valid)
        return {};
    return text.size() == 8 ? QColor::fromRgba(value) : QColor::fromRgb(value);
}

std::optional<QSize> sizeFromId(const QString& text) {
    const QStringList sides = text.split(QLatin1Char('x'));
    if (sides.size() != 2)
        return {};
    const QSize size(sides[0].toInt(), sides[1].toInt());
    return size.isEmpty() ? std::optional<QSize>() : size;
}

std::optional<ShadowTexture::Relief> reliefFromId(const QString& text) {
    if (text == QLatin1String("raised"))
        return ShadowTexture::Relief::raised;
    if (text == QLatin1String("pressed"))
        return ShadowTexture::Relief::pressed;
    return {};
}

} // namespace

std::optional<ShadowTexture> ShadowTexture::fromId(const QString& id) {
    const QStringList parts = id.split(QLatin1Char('/'));
    if (parts.size() != 9)
        return {};
    const auto relief = reliefFromId(parts[0]);
    const auto size = sizeFromId(parts[1]);
    const auto body = colorFromId(parts[5]);
    const auto dark = colorFromId(parts[6]);
    const auto light = colorFromId(parts[7]);
    if (!relief || !size || !body || !dark || !light)
        return {};
    const ShadowTexture texture{*relief, *size, parts[2].toInt(), parts[3].toInt(),   parts[4].toInt(),
                                *body,   *dark, *light,           parts[8].toDouble()};
    return texture.isValid() ? std::optional(texture) : std::nullopt;
}

bool ShadowTexture::isValid() const {
    const auto within = [](int length) { return length >= 0 && length <= largestSide; };
    if (!within(size.width()) || !within(size.height()) || !within(radius) || !within(offset) || !within(blur))
        return false;
    const double side = std::max(size.width(), size.height()) + 2 * (offset + blur);
    return devicePixelRatio > 0 && side * std::max(1.0, devicePixelRatio) <= largestSide;
}

int ShadowTexture::margin() const {
    return relief == Relief::raised ? offset + blur : 0;
}

QImage ShadowTexture::paint() const {
    const Outline outline(size, radius);
    // Around the body lies as much ground as the shadows reach, also where only those inside the body show, and as much
    // again as they are moved, so that every place that is looked at has its cells.
    const int ground = 2 * offset + blur + 2;
    Field shadow(size.width() + 2 * ground, size.height() + 2 * ground);
    for (int y = ground; y < shadow.keptRows(); ++y) {
        const float down = outline.down(float(y - ground) + 0.5F);
        for (int x = 0; x < size.width(); ++x)
            shadow.keptRow(y)[x + ground] = outline.covers(outline.across(float(x) + 0.5F), down, 1);
    }
    shadow.blur(blur);

    const bool raised = relief == Relief::raised;
    const QRgb bodyColor = qPremultiply(body.rgba());
    const Palette palette(raised ? dark : light, raised ? light : dark, raised ? QRgb(0) : bodyColor);
    const float unit = float(1 / devicePixelRatio);
    QImage image(qCeil((size.width() + 2 * margin()) * devicePixelRatio),
                 qCeil((size.height() + 2 * margin()) * devicePixelRatio), QImage::Format_ARGB32_Premultiplied);
    // Where the middle of a pixel lies on the body, and the cells of the dark shadow there. Those of the light one lie
    // `apart` cells further right and below.
    const int apart = 2 * offset;
    const auto place = [&](int pixel) { return (float(pixel) + 0.5F) * unit - float(margin()); };
    const auto cells = [&](float at, int count) { return Between::at(at + float(ground - offset) - 0.5F, count); };
    struct Column {
        float across;
        Between cells;
    };
    std::vector<Column> columns;
    for (int column = 0; column < image.width(); ++column)
        columns.push_back({outline.across(place(column)), cells(place(column), shadow.width() - apart)});

    std::vector<float> shades(size_t(shadow.width() - apart));
    for (int row = 0; row < image.height(); ++row) {
        const float down = outline.down(place(row));
        const Between rows = cells(place(row), shadow.height() - apart);
        const float* const darkAbove = shadow.row(rows.first);
        const float* const darkBelow = shadow.row(rows.first + 1);
        const float* const lightAbove = shadow.row(rows.first + apart) + apart;
        const float* const lightBelow = shadow.row(rows.first + 1 + apart) + apart;
        // Light falls from the upper left. Where both shadows meet they cancel, instead of greying each other.
        for (size_t x = 0; x < shades.size(); ++x)
            shades[x] = rows.mix(darkAbove[x], darkBelow[x]) - rows.mix(lightAbove[x], lightBelow[x]);

        auto* pixel = reinterpret_cast<QRgb*>(image.scanLine(row));
        for (const Column& column : columns) {
            const float inside = outline.covers(column.across, down, unit);
            // A raised body hides the shadows beneath it; there are none around a pressed one.
            if (inside == (raised ? 1.0F : 0.0F)) {
                *pixel++ = raised ? bodyColor : 0;
                continue;
            }
            const float* const shade = shades.data() + column.cells.first;
            const QRgb color = palette.color(column.cells.mix(shade[0], shade[1]));
            if (inside == (raised ? 0.0F : 1.0F)) {
                *pixel++ = color;
                continue;
            }
            // Cut off to a whole number; the half keeps a body that is covered but for a rounding error whole.
            const int share = int(inside * 255.5F);
            *pixel++ = raised ? over(faded(bodyColor, share), color) : faded(color, share);
        }
    }
    return image;
}

} // namespace tamsel
