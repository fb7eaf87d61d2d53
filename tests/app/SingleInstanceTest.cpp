#include "app/SingleInstance.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <optional>
#include <thread>

namespace tamsel {
namespace {

// The second start runs beside the first one's event loop, as it would in a process of its own.
bool knockFromOutside(const QString& folder, const QStringList& urls) {
    bool answered = false;
    QEventLoop loop;
    std::jthread outside([&] {
        answered = SingleInstance::knock(folder, urls);
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
    loop.exec();
    outside.join();
    return answered;
}

TEST(SingleInstance, TheFirstHearsTheSecondsUrls) {
    const QTemporaryDir folder;
    QList<QStringList> heard;
    std::optional<SingleInstance> first(std::in_place, folder.path(), [&](const QStringList& urls) { heard += urls; });
    EXPECT_TRUE(knockFromOutside(folder.path(), {}));
    EXPECT_TRUE(knockFromOutside(folder.path(), {QStringLiteral("tamsel:one"), QStringLiteral("tamsel:zwei?ü")}));
    EXPECT_EQ(heard, QList<QStringList>({{}, {QStringLiteral("tamsel:one"), QStringLiteral("tamsel:zwei?ü")}}));
    const QTemporaryDir other;
    EXPECT_FALSE(knockFromOutside(other.path(), {})) << "another folder has a door of its own";
    first.reset();
    EXPECT_FALSE(knockFromOutside(folder.path(), {}));
}

} // namespace
} // namespace tamsel
