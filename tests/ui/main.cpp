#include <QGuiApplication>

#include <gtest/gtest.h>

// Off screen and without a GPU, so that the tests need no display and draw the same everywhere.
int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    // A finger's moves are taken in at once and not with the next frame, for which no test waits.
    qputenv("QML_NO_TOUCH_COMPRESSION", "1");
    testing::InitGoogleTest(&argc, argv);
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
