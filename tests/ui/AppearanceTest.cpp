#include "ui/Appearance.h"

#include "ui/IconProvider.h"

#include <QDir>
#include <QGuiApplication>
#include <QPalette>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace tamsel {
namespace {

class SystemPalette {
public:
    explicit SystemPalette(const QColor& window) : m_before(QGuiApplication::palette()) {
        QPalette palette = m_before;
        palette.setColor(QPalette::Window, window);
        QGuiApplication::setPalette(palette);
        QCoreApplication::processEvents();
    }
    ~SystemPalette() { QGuiApplication::setPalette(m_before); }
    SystemPalette(const SystemPalette&) = delete;
    SystemPalette& operator=(const SystemPalette&) = delete;

private:
    const QPalette m_before;
};

TEST(Appearance, FollowsTheSystemsColoursAtRunTime) {
    const SystemPalette day(QColor(0xEFEFEF));
    const Appearance appearance;
    QSignalSpy changes(&appearance, &Appearance::darkChanged);
    EXPECT_FALSE(appearance.isDark());
    {
        const SystemPalette night(QColor(0x202020));
        EXPECT_TRUE(appearance.isDark());
        EXPECT_EQ(changes.count(), 1);
        const SystemPalette laterNight(QColor(0x101010));
        EXPECT_EQ(changes.count(), 1) << "dark it was already";
    }
    EXPECT_FALSE(appearance.isDark());
}

TEST(Appearance, AChosenSchemeOverridesTheSystem) {
    const SystemPalette night(QColor(0x202020));
    Appearance appearance;
    EXPECT_TRUE(appearance.isDark());
    appearance.setScheme(Appearance::Scheme::Light);
    EXPECT_FALSE(appearance.isDark());
    const SystemPalette day(QColor(0xEFEFEF));
    appearance.setScheme(Appearance::Scheme::Dark);
    EXPECT_TRUE(appearance.isDark());
    appearance.setScheme(Appearance::Scheme::System);
    EXPECT_FALSE(appearance.isDark());
}

TEST(Appearance, TheTextSizeStaysWithinItsRange) {
    Appearance appearance;
    for (const auto& [asked, got] :
         {std::pair(0.1, 0.85), std::pair(1.3, 1.3), std::pair(2.0, 2.0), std::pair(7.0, 2.0)}) {
        appearance.setTextScale(asked);
        EXPECT_DOUBLE_EQ(appearance.textScale(), got);
    }
}

TEST(Appearance, SetsAndTellsOnlyChanges) {
    Appearance appearance;
    appearance.setTextScale(1.5);
    QSignalSpy text(&appearance, &Appearance::textScaleChanged);
    QSignalSpy motion(&appearance, &Appearance::reducedMotionChanged);
    QSignalSpy ratio(&appearance, &Appearance::devicePixelRatioChanged);
    appearance.setTextScale(1.5);
    appearance.setReducedMotion(false);
    appearance.setDevicePixelRatio(appearance.devicePixelRatio());
    appearance.setDevicePixelRatio(0);
    EXPECT_EQ(text.count() + motion.count() + ratio.count(), 0);
    appearance.setReducedMotion(true);
    appearance.setDevicePixelRatio(appearance.devicePixelRatio() + 1);
    EXPECT_EQ(motion.count() + ratio.count(), 2);
}

TEST(IconProvider, DrawsEveryIconInTheAskedColourAndSize) {
    const QStringList drawings = QDir(QStringLiteral(":/tamsel/icons")).entryList();
    ASSERT_GE(drawings.size(), 10);
    IconProvider provider;
    for (const QString& drawing : drawings) {
        QSize size;
        const QString name = drawing.chopped(4);
        const QImage image = provider.requestImage(name + QStringLiteral("/4a55c9"), &size, QSize(48, 48));
        ASSERT_EQ(image.size(), QSize(48, 48)) << qPrintable(drawing);
        int drawn = 0;
        for (int y = 0; y < 48; ++y)
            for (int x = 0; x < 48; ++x)
                if (qAlpha(image.pixel(x, y)) == 255) {
                    EXPECT_EQ(image.pixel(x, y), qRgb(0x4A, 0x55, 0xC9));
                    ++drawn;
                }
        EXPECT_GT(drawn, 20) << qPrintable(drawing);
        EXPECT_EQ(qAlpha(image.pixel(0, 0)), 0) << qPrintable(drawing);
    }
}

TEST(IconProvider, AnUnknownIconIsNoPicture) {
    IconProvider provider;
    QSize size;
    EXPECT_TRUE(provider.requestImage(QStringLiteral("no-such-icon/4a55c9"), &size, {}).isNull());
    EXPECT_TRUE(provider.requestImage(QStringLiteral("plus/no-colour"), &size, {}).isNull());
}

} // namespace
} // namespace tamsel
