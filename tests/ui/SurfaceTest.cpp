#include "tests/ui/WarningCollector.h"
#include "ui/Ui.h"

#include <QImage>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickImageProvider>
#include <QQuickItem>
#include <QQuickWindow>
#include <QStringList>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

namespace tamsel {
namespace {

// Notes which pictures are asked for.
class NotingProvider final : public QQuickImageProvider {
public:
    explicit NotingProvider(QStringList& ids) : QQuickImageProvider(Image), m_ids(ids) {}

    QImage requestImage(const QString& id, QSize* size, const QSize&) override {
        m_ids += id.section(QLatin1Char('/'), 0, 2); // relief, size, radius
        *size = QSize(50, 50);
        return {50, 50, QImage::Format_ARGB32_Premultiplied};
    }

private:
    QStringList& m_ids;
};

class SurfaceTest : public testing::Test {
protected:
    void SetUp() override {
        ui::registerWith(engine);
        engine.addImageProvider(QStringLiteral("tamsel-shadow"), new NotingProvider(ids));
        QQmlComponent component(&engine);
        component.setData("import QtQuick\nimport Tamsel.Ui\n"
                          "Item { Surface { anchors.fill: parent; radius: 10; depth: Theme.Shallow } }",
                          QUrl());
        root.reset(qobject_cast<QQuickItem*>(component.create()));
        ASSERT_NE(root, nullptr) << qPrintable(component.errorString());
        root->setParentItem(window.contentItem());
        surface = root->childItems().first();
        window.resize(400, 400);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    }
    void TearDown() override { EXPECT_EQ(warnings.text(), ""); }

    // What was asked for up to the next frame.
    QStringList askedFor() {
        window.grabWindow();
        return std::exchange(ids, {});
    }
    QQuickItem& picture() { return *surface->property("picture").value<QQuickItem*>(); }

    const test::WarningCollector warnings;
    QStringList ids;
    QQmlEngine engine;
    QQuickWindow window;
    std::unique_ptr<QQuickItem> root;
    QQuickItem* surface = nullptr;
};

TEST_F(SurfaceTest, OnePictureOfTheSizeThatAFrameShows) {
    askedFor();
    for (const int side : {12, 20, 29})
        root->setSize(QSizeF(side, 30));
    EXPECT_EQ(askedFor(), QStringList(QStringLiteral("raised/29x30/10")));
    // Sides that the shadows do not reach from both ends are stretched.
    root->setSize(QSizeF(200, 100));
    EXPECT_EQ(askedFor(), QStringList(QStringLiteral("raised/43x43/10")));
    root->setSize(QSizeF(300, 90));
    EXPECT_EQ(askedFor(), QStringList());
    EXPECT_EQ(picture().size(), QSizeF(322, 112)) << "the shadows lie outside";
    surface->setProperty("radius", 400);
    EXPECT_EQ(askedFor(), QStringList(QStringLiteral("raised/113x90/45")));
}

TEST_F(SurfaceTest, NothingIsPaintedForWhatIsFlatOrCannotBeSeen) {
    constexpr int flat = 0;
    constexpr int pressed = 2;
    askedFor();
    surface->setProperty("relief", flat);
    root->setSize(QSizeF(30, 30));
    EXPECT_EQ(askedFor(), QStringList());
    EXPECT_FALSE(picture().isVisible());
    root->setVisible(false);
    surface->setProperty("relief", pressed);
    EXPECT_EQ(askedFor(), QStringList());
    root->setVisible(true);
    EXPECT_EQ(askedFor(), QStringList(QStringLiteral("pressed/30x30/10")));
    EXPECT_TRUE(picture().isVisible());
    EXPECT_EQ(picture().size(), QSizeF(30, 30));
    EXPECT_EQ(picture().position(), QPointF());
}

} // namespace
} // namespace tamsel
