#include "ui/ShadowTexture.h"

#include <QPainter>

#include <gtest/gtest.h>

#include <cmath>

namespace tamsel {
namespace {

const QString plain = QStringLiteral("raised/90x80/20/7/16/E9EDF3/8C9EACC4/F2FFFFFF/1");
const QString hollow = QStringLiteral("pressed/90x80/20/7/16/E9EDF3/8C9EACC4/F2FFFFFF/1");

QImage paint(const QString& id) {
    const auto texture = ShadowTexture::fromId(id);
    return texture ? texture->paint() : QImage();
}

TEST(ShadowTexture, ReadsItsIdentifier) {
    const auto texture = ShadowTexture::fromId(plain);
    ASSERT_TRUE(texture);
    EXPECT_EQ(texture->size, QSize(90, 80));
    EXPECT_EQ(texture->body, QColor(0xE9, 0xED, 0xF3));
    EXPECT_EQ(texture->dark, QColor(0x9E, 0xAC, 0xC4, 0x8C));
    EXPECT_EQ(texture->margin(), 23);
    EXPECT_EQ(ShadowTexture::fromId(hollow)->margin(), 0);
}

TEST(ShadowTexture, RefusesWhatIsNoPicture) {
    for (const char* id :
         {"", "raised", "sunken/90x80/20/7/16/E9EDF3/8C9EACC4/F2FFFFFF/1",
          "raised/90/20/7/16/E9EDF3/8C9EACC4/F2FFFFFF/1", "raised/0x80/20/7/16/E9EDF3/8C9EACC4/F2FFFFFF/1",
          "raised/-40x80/20/7/16/E9EDF3/8C9EACC4/F2FFFFFF/1", "raised/90x80/-20/7/16/E9EDF3/8C9EACC4/F2FFFFFF/1",
          "raised/90x80/20/7/16/red/8C9EACC4/F2FFFFFF/1", "raised/90x80/20/7/16/E9EDF3/8C9EACC4/F2FFFFFF/0",
          "raised/90x80/20/7/16/E9EDF3/8C9EACC4/F2FFFFFF/nan", "raised/90x80/20/7/16/E9EDF3/8C9EACC4/F2FFFFFF/1e9",
          "raised/2000000000x2000000000/20/7/16/E9EDF3/8C9EACC4/F2FFFFFF/1",
          "raised/90x80/20/7/2000000000/E9EDF3/8C9EACC4/F2FFFFFF/1"})
        EXPECT_FALSE(ShadowTexture::fromId(QString::fromLatin1(id))) << id;
}

TEST(ShadowTexture, TheBodyIsExactlyWhereItIsExpected) {
    for (const int ratio : {1, 2, 3}) {
        const QImage image = paint(plain.chopped(1) + QString::number(ratio));
        ASSERT_EQ(image.size(), QSize((90 + 46) * ratio, (80 + 46) * ratio));
        const int margin = 23 * ratio;
        const QRgb body = qRgb(0xE9, 0xED, 0xF3);
        const int middle = image.height() / 2;
        EXPECT_EQ(image.pixel(margin, middle), body);
        EXPECT_EQ(image.pixel(image.width() - margin - 1, middle), body);
        EXPECT_LT(qAlpha(image.pixel(margin - 1, middle)), 255);
        EXPECT_LT(qAlpha(image.pixel(margin + 1, margin + 1)), 255) << "the corner is round";
    }
}

TEST(ShadowTexture, LightFallsFromTheUpperLeft) {
    const QImage raised = paint(plain);
    const auto brightness = [](const QImage& image, int x, int y) {
        QImage ground(image.size(), QImage::Format_RGB32);
        ground.fill(QColor(0xE9, 0xED, 0xF3));
        QPainter(&ground).drawImage(0, 0, image);
        return qGray(ground.pixel(x, y));
    };
    const int middle = 63;
    EXPECT_GT(brightness(raised, 20, middle), 245);
    EXPECT_LT(brightness(raised, 23 + 90 + 2, middle), 215);
    EXPECT_GT(brightness(raised, 68, 20), 245);
    EXPECT_LT(brightness(raised, 68, 23 + 80 + 2), 215);
    const QImage pressed = paint(hollow);
    EXPECT_LT(brightness(pressed, 2, 40), 220);
    EXPECT_GT(brightness(pressed, 87, 40), 240);
}

TEST(ShadowTexture, ShadowsEndWithinThePicture) {
    const QImage image = paint(plain);
    for (int x = 0; x < image.width(); ++x) {
        EXPECT_LE(qAlpha(image.pixel(x, 0)), 1);
        EXPECT_LE(qAlpha(image.pixel(x, image.height() - 1)), 1);
    }
    for (int y = 0; y < image.height(); ++y) {
        EXPECT_LE(qAlpha(image.pixel(0, y)), 1);
        EXPECT_LE(qAlpha(image.pixel(image.width() - 1, y)), 1);
    }
    EXPECT_EQ(qAlpha(paint(hollow).pixel(0, 0)), 0) << "nothing lies around a pressed body";
}

// What BorderImage stretches must look the same all along: a wide picture is the narrow one with its middle repeated.
TEST(ShadowTexture, TheMiddleOfASideLooksTheSameAnywhere) {
    for (const QString& relief : {QStringLiteral("raised"), QStringLiteral("pressed")}) {
        // The shortest sides that are stretched: two corners and two shadows' ends, and one more.
        const QString id = relief + QStringLiteral("/%1x87/20/7/16/E9EDF3/8C9EACC4/F2FFFFFF/1");
        const QImage narrow = paint(id.arg(87));
        const QImage wide = paint(id.arg(187));
        ASSERT_EQ(wide.width() - narrow.width(), 100);
        const int middle = narrow.width() / 2;
        const auto distance = [](QRgb a, QRgb b) {
            return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                             std::abs(qBlue(a) - qBlue(b)), std::abs(qAlpha(a) - qAlpha(b))});
        };
        int worst = 0;
        for (int y = 0; y < wide.height(); ++y)
            for (int x = 0; x < wide.width(); ++x) {
                const int source = x < middle ? x : x < middle + 100 ? middle : x - 100;
                worst = std::max(worst, distance(wide.pixel(x, y), narrow.pixel(source, y)));
            }
        EXPECT_LE(worst, 1) << qPrintable(relief);
    }
}

TEST(ShadowTexture, OpaqueAndTransparentColoursStayPremultiplied) {
    const QImage image = paint(QStringLiteral("raised/40x40/20/3/8/22262F/73000000/0EFFFFFF/1"));
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = reinterpret_cast<const QRgb*>(image.constScanLine(y))[x];
            ASSERT_LE(std::max({qRed(pixel), qGreen(pixel), qBlue(pixel)}), qAlpha(pixel)) << x << ", " << y;
        }
}

} // namespace
} // namespace tamsel
