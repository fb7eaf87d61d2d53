#include "ui/ShadowTexture.h"

#include <QPainter>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <vector>

namespace tamsel {

namespace {

// Shadows fade over so wide a range that one value for each unit of length is enough, whatever the screen's resolution.
class Coverage {
public:
    Coverage(int width, int height) : m_width(width), m_height(height), m_values(size_t(width) * size_t(height)) {}

    float& at(int x, int y) { return m_values[size_t(y) * size_t(m_width) + size_t(x)]; }

    // Between the values, and 0 outside.
    float sample(float x, float y) const {
        const float left = std::floor(x);
        const float top = std::floor(y);
        const int column = int(left);
        const int row = int(top);
        const float across = x - left;
        const float down = y - top;
        const float upper = value(column, row) * (1 - across) + value(column + 1, row) * across;
        const float lower = value(column, row + 1) * (1 - across) + value(column + 1, row + 1) * across;
        return upper * (1 - down) + lower * down;
    }

    // Three box blurs come close to a Gaussian one; together they reach `reach` units to each side.
    void blur(int reach) {
        for (int pass = 0; pass < 3; ++pass) {
            const int radius = (reach + pass) / 3;
            if (radius == 0)
                continue;
            for (int y = 0; y < m_height; ++y)
                boxBlur(&m_values[size_t(y) * size_t(m_width)], m_width, 1, radius);
            for (int x = 0; x < m_width; ++x)
                boxBlur(&m_values[size_t(x)], m_height, m_width, radius);
        }
    }

private:
    float value(int x, int y) const {
        if (x < 0 || y < 0 || x >= m_width || y >= m_height)
            return 0;
        return m_values[size_t(y) * size_t(m_width) + size_t(x)];
    }

    void boxBlur(float* line, int count, int stride, int radius) {
        m_line.resize(size_t(count));
        for (int i = 0; i < count; ++i)
            m_line[size_t(i)] = line[i * stride];
        const auto before = [&](int i) { return i >= 0 && i < count ? m_line[size_t(i)] : 0.0F; };
        const float share = 1.0F / float(2 * radius + 1);
        float sum = 0;
        for (int i = -radius; i < radius; ++i)
            sum += before(i);
        for (int i = 0; i < count; ++i) {
            sum += before(i + radius);
            line[i * stride] = sum * share;
            sum -= before(i - radius);
        }
    }

    const int m_width;
    const int m_height;
    std::vector<float> m_values;
    std::vector<float> m_line;
};

// How much of the point lies inside the rounded rectangle (0, 0, width, height), for points one `unit` wide.
float insideRoundedRectangle(float x, float y, float width, float height, float radius, float unit) {
    const float acrossCorner = std::abs(x - width / 2) - (width / 2 - radius);
    const float downCorner = std::abs(y - height / 2) - (height / 2 - radius);
    const float outside = std::hypot(std::max(acrossCorner, 0.0F), std::max(downCorner, 0.0F));
    const float distance = outside + std::min(std::max(acrossCorner, downCorner), 0.0F) - radius;
    return std::clamp(0.5F - distance / unit, 0.0F, 1.0F);
}

struct Premultiplied {
    float red = 0;
    float green = 0;
    float blue = 0;
    float alpha = 0;

    static Premultiplied from(const QColor& color, float coverage) {
        const float alpha = float(color.alphaF()) * coverage;
        return {float(color.redF()) * alpha, float(color.greenF()) * alpha, float(color.blueF()) * alpha, alpha};
    }

    Premultiplied over(const Premultiplied& below) const {
        const float rest = 1 - alpha;
        return {red + below.red * rest, green + below.green * rest, blue + below.blue * rest,
                alpha + below.alpha * rest};
    }

    Premultiplied scaled(float share) const { return {red * share, green * share, blue * share, alpha * share}; }

    QRgb toRgb() const {
        const auto byte = [](float value) { return int(std::lround(std::clamp(value, 0.0F, 1.0F) * 255)); };
        return qRgba(byte(red), byte(green), byte(blue), byte(alpha));
    }
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
    ShadowTexture texture{*relief, *size, parts[2].toInt(), parts[3].toInt(),   parts[4].toInt(),
                          *body,   *dark, *light,           parts[8].toDouble()};
    if (texture.radius < 0 || texture.offset < 0 || texture.blur < 0 || !(texture.devicePixelRatio > 0))
        return {};
    const int side = std::max(size->width(), size->height()) + 2 * texture.margin();
    if (!(side * texture.devicePixelRatio <= largestSide))
        return {};
    return texture;
}

int ShadowTexture::margin() const {
    return relief == Relief::raised ? offset + blur : 0;
}

QImage ShadowTexture::paint() const {
    // The blur needs to see the ground around a pressed body too.
    const int ground = offset + blur;
    const float width = float(size.width());
    const float height = float(size.height());
    const float corner = std::min(float(radius), std::min(width, height) / 2);

    Coverage shadow(size.width() + 2 * ground, size.height() + 2 * ground);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            shadow.at(x + ground, y + ground) =
                insideRoundedRectangle(float(x) + 0.5F, float(y) + 0.5F, width, height, corner, 1);
    shadow.blur(blur);

    const float unit = float(1 / devicePixelRatio);
    QImage image(qCeil((size.width() + 2 * margin()) * devicePixelRatio),
                 qCeil((size.height() + 2 * margin()) * devicePixelRatio), QImage::Format_ARGB32_Premultiplied);
    for (int row = 0; row < image.height(); ++row) {
        auto* pixels = reinterpret_cast<QRgb*>(image.scanLine(row));
        const float y = (float(row) + 0.5F) * unit - float(margin());
        for (int column = 0; column < image.width(); ++column) {
            const float x = (float(column) + 0.5F) * unit - float(margin());
            const float inside = insideRoundedRectangle(x, y, width, height, corner, unit);
            // Light falls from the upper left. Where both shadows meet, they cancel instead of greying each other.
            const float shade =
                shadow.sample(x - float(offset) + float(ground) - 0.5F, y - float(offset) + float(ground) - 0.5F) -
                shadow.sample(x + float(offset) + float(ground) - 0.5F, y + float(offset) + float(ground) - 0.5F);
            const float depth = relief == Relief::raised ? shade : -shade;
            const auto relievo = Premultiplied::from(depth > 0 ? dark : light, std::abs(depth));
            const auto ground_ = relief == Relief::raised ? Premultiplied::from(body, inside).over(relievo)
                                                          : relievo.over(Premultiplied::from(body, 1)).scaled(inside);
            pixels[column] = ground_.toRgb();
        }
    }
    return image;
}

} // namespace tamsel
