#include "app/App.h"

#include "app/LaunchRequests.h"
#include "platform/InlineQueue.h"
#include "tests/support/LogCapture.h"
#include "tests/support/World.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tamsel {
namespace {

using namespace std::chrono_literals;

// A store whose disk is full while the test says so.
class FullDiskStore final : public MemorySettingsStore {
public:
    std::optional<QString> writeFailure() const override {
        return m_isFull ? std::optional(QStringLiteral("the disk is full")) : std::nullopt;
    }
    bool retryFailedWrites() override {
        ++retries;
        return !m_isFull;
    }
    void setFull(bool full) {
        m_isFull = full;
        notifyWriteFailureChanged();
    }

    int retries = 0;

private:
    bool m_isFull = false;
};

class AppTest : public testing::Test {
protected:
    test::World world;
};

TEST_F(AppTest, TheAudioSessionIsSetUpInItsOrder) {
    world.singletons.reset();
    world.session.steps.clear();
    const App app(world.store, world.platform, world.output, world.session, 1);
    // The metronome's own two steps come first: its engine is made before the app's session is configured.
    EXPECT_EQ(world.session.steps, QStringList({QStringLiteral("setCategory mixing"), QStringLiteral("activate"),
                                                QStringLiteral("setCategory"), QStringLiteral("activate"),
                                                QStringLiteral("remote control")}));
}

TEST_F(AppTest, AFailingAudioSessionIsSaidAndTheAppGoesOn) {
    world.singletons.reset();
    for (const bool failsAtCategory : {true, false}) {
        auto& error = failsAtCategory ? world.session.categoryError : world.session.activateError;
        error = QStringLiteral("the session is busy");
        world.session.steps.clear();
        const test::LogCapture log;
        App app(world.store, world.platform, world.output, world.session, 1);
        EXPECT_TRUE(
            log.lines().contains(QStringLiteral("Failed to set audio session category.  Error: the session is busy")));
        EXPECT_FALSE(world.session.steps.contains(QStringLiteral("remote control"))) << "the rest is skipped";
        EXPECT_EQ(app.singletons().exercises.items().size(), 1);
        error.reset();
    }
}

TEST_F(AppTest, ALaunchUrlIsLoggedAndNothingElse) {
    world.singletons.reset();
    App app(world.store, world.platform, world.output, world.session, 1);
    const auto before = world.store.dictionaryRepresentation();
    const test::LogCapture log;
    app.content().handleLaunchURL(QUrl(QStringLiteral("tamsel://open?item=%C3%89tude")));
    EXPECT_EQ(log.lines(), QStringList(QStringLiteral("launching app, unhandled url: tamsel://open?item=%C3%89tude")));
    EXPECT_EQ(world.store.dictionaryRepresentation(), before);
    EXPECT_EQ(app.content().tabViewModel()->selectedTabIndex(), 0);
}

TEST_F(AppTest, AFileIsTakenOverAndAnyOtherRequestIsAUrl) {
    world.singletons.reset();
    App app(world.store, world.platform, world.output, world.session, 1, std::nullopt, nullptr,
            std::make_unique<InlineQueue>());
    const QTemporaryDir folder;
    const QString oddName = folder.filePath(QStringLiteral("take:2.tamsel"));
    ASSERT_TRUE(QFile(oddName).open(QIODevice::WriteOnly));
    struct Case {
        QString argument;
        QStringList lines;
    };
    const QString document = QStringLiteral("opening document: ");
    const QString url = QStringLiteral("launching app, unhandled url: ");
    for (const Case& one : {
             Case{QStringLiteral("journal.tamsel"), {document + folder.filePath(QStringLiteral("journal.tamsel"))}},
             Case{QStringLiteral("./a/../b c"), {document + folder.filePath(QStringLiteral("b c"))}},
             Case{QStringLiteral("/somewhere/é"), {document + QStringLiteral("/somewhere/é")}},
             Case{QStringLiteral("take:2.tamsel"), {document + oddName}},
             Case{QStringLiteral("take:3.tamsel"), {url + QStringLiteral("take:3.tamsel")}},
             Case{QStringLiteral("https://example.org/x"), {url + QStringLiteral("https://example.org/x")}},
             Case{QStringLiteral("file:///a%20b"),
                  {url + QStringLiteral("file:///a%20b"), document + QStringLiteral("/a b")}},
             Case{QString(), {}},
         }) {
        const test::LogCapture log;
        for (const QString& request : launchRequests({one.argument}, QDir(folder.path())))
            app.content().open(request);
        EXPECT_EQ(log.lines(), one.lines) << one.argument.toStdString();
    }
    EXPECT_EQ(app.content().tabViewModel()->selectedTabIndex(), 0);
}

TEST_F(AppTest, AnUnwrittenChangeStandsOnTheScreenUntilItIsOnDisk) {
    world.singletons.reset();
    FullDiskStore store;
    App app(store, world.platform, world.output, world.session, 1);
    int notified = 0;
    QObject::connect(&app.content(), &ContentViewModel::storageWarningChanged, [&] { ++notified; });
    EXPECT_EQ(app.content().storageWarning(), QString());
    store.setFull(true);
    EXPECT_NE(app.content().storageWarning(), QString());
    EXPECT_EQ(notified, 1);
    world.mainQueue.advance(7s);
    EXPECT_EQ(store.retries, 3) << "every two seconds";
    store.setFull(false);
    EXPECT_EQ(app.content().storageWarning(), QString());
    world.mainQueue.advance(10s);
    EXPECT_EQ(store.retries, 4) << "and no more once all is written";
    EXPECT_TRUE(world.mainQueue.empty());
}

TEST_F(AppTest, LeavingSavesWhatRuns) {
    world.singletons.reset();
    App app(world.store, world.platform, world.output, world.session, 1);
    PracticeViewModel* const practice = app.content().tabViewModel()->practiceNavigationStack()->practiceViewModel();
    ASSERT_NE(practice, nullptr) << "the one item opens at launch";
    practice->startStopwatch();
    world.mainQueue.advance(75s);
    app.content().leave();
    app.content().leave();
    ASSERT_EQ(app.singletons().history.events().size(), 1);
    EXPECT_EQ(app.singletons().dailyLog.practiceSessions().first().seconds, 75);
}

} // namespace
} // namespace tamsel
