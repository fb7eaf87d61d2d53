#include <QCoreApplication>

#include <gtest/gtest.h>

int main(int argc, char* argv[]) {
    testing::InitGoogleTest(&argc, argv);
    // A death test starts over in a process of its own, so that it is sound beside running threads.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
