#include "app/App.h"
#include "model/BackupFile.h"
#include "model/DataFile.h"
#include "model/SettingsKeys.h"
#include "platform/InlineQueue.h"
#include "tests/support/LogCapture.h"
#include "tests/support/World.h"

#include <QDir>
#include <QFile>
#include <QLocale>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <optional>

namespace tamsel {
namespace {

using namespace std::chrono_literals;

// The program on data of the test's own, with a folder for backups and documents.
class DataViewModelTest : public testing::Test {
protected:
    DataViewModelTest() {
        QLocale::setDefault(QLocale::c());
        world.singletons.reset();
        start();
        app->backups().setFolder(backupFolder());
    }

    void start() {
        app.reset();
        app.emplace(world.store, world.platform, world.output, world.session, 1, std::nullopt, nullptr,
                    std::make_unique<InlineQueue>());
    }
    void settle() { world.mainQueue.runDue(); }

    DataViewModel& data() { return *app->content().dataViewModel(); }
    BackupsViewModel& backups() { return *data().backups(); }
    QString backupFolder() const { return folder.filePath(QStringLiteral("backups")); }
    QByteArray document() { return json::encode(app->singletons().dataStores().makeDataDump()).value_or(QByteArray()); }
    QList<BackupFile> made() const { return backups::list(backupFolder()); }

    void importFrom(const QString& path) {
        data().importFrom(QUrl::fromLocalFile(path));
        settle();
    }
    void replace() {
        data().replace();
        settle();
    }

    const test::LogCapture console;
    const QTemporaryDir folder;
    test::World world;
    std::optional<App> app;
    const QString small = QStringLiteral(TAMSEL_TEST_DATA "/export.tamsel");
};

TEST_F(DataViewModelTest, WhatIsSavedOrCopiedIsTheDocument) {
    EXPECT_EQ(data().suggestedFile().fileName(), QStringLiteral("Tamsel 2024-03-14.tamsel"));
    const QString path = folder.filePath(QStringLiteral("mine"));
    data().save(QUrl::fromLocalFile(path));
    EXPECT_TRUE(data().isBusy());
    settle();
    EXPECT_FALSE(data().isBusy());
    EXPECT_EQ(*datafile::read(path + QStringLiteral(".tamsel")), document()) << "a name without an end gets one";
    EXPECT_EQ(data().statusText(), QStringLiteral("Saved as “mine.tamsel”."));
    QString copied;
    QObject::connect(&data(), &DataViewModel::copied, [&copied](const QString& text) { copied = text; });
    data().copy();
    settle();
    EXPECT_EQ(copied.toUtf8(), document());
    EXPECT_EQ(data().statusText(), QStringLiteral("All data is on the clipboard, as text."));
    data().save(QUrl::fromLocalFile(folder.filePath(QStringLiteral("none/mine.tamsel"))));
    settle();
    EXPECT_EQ(data().statusText(), QStringLiteral("“mine.tamsel” could not be saved: No such file or directory."));
}

TEST_F(DataViewModelTest, AFileThatNobodyWasAskedAboutIsNotReplaced) {
    const QString path = folder.filePath(QStringLiteral("mine"));
    ASSERT_EQ(datafile::write(path + QStringLiteral(".tamsel"), "another journal"), std::nullopt);
    data().save(QUrl::fromLocalFile(path));
    settle();
    EXPECT_EQ(*datafile::read(path + QStringLiteral(".tamsel")), QByteArray("another journal"));
    EXPECT_EQ(*datafile::read(path), document());
}

TEST_F(DataViewModelTest, WhatLiesOnNoDiskOfThisDeviceIsRefused) {
    const auto before = QDir::current().entryList(QDir::AllEntries | QDir::Hidden);
    const QUrl away(QStringLiteral("smb://server/share/mine.tamsel"));
    data().save(away);
    EXPECT_EQ(data().statusText(), QStringLiteral("“mine.tamsel” could not be saved: it does not lie on this device."));
    data().importFrom(away);
    EXPECT_EQ(data().statusText(), QStringLiteral("“mine.tamsel” cannot be used. Nothing was changed. (it does not "
                                                  "lie on this device.)"));
    backups().chooseFolder(QUrl(QStringLiteral("smb://server/share")));
    EXPECT_EQ(backups().warning(),
              QStringLiteral("Backups cannot be kept in “smb://server/share”: it does not lie on this device."));
    EXPECT_EQ(app->backups().folder(), backupFolder());
    EXPECT_EQ(QDir::current().entryList(QDir::AllEntries | QDir::Hidden), before);
}

TEST_F(DataViewModelTest, ADocumentThatIsOpenedMeanwhileWaitsItsTurn) {
    data().save(QUrl::fromLocalFile(folder.filePath(QStringLiteral("mine.tamsel"))));
    app->content().openDocument(small);
    EXPECT_FALSE(data().previewIsPresented());
    settle();
    EXPECT_EQ(data().previewTitle(), QStringLiteral("Replace all data with “export.tamsel”?"));
    data().replace();
    app->content().openDocument(QStringLiteral(TAMSEL_TEST_DATA "/everything.tamsel"));
    settle();
    EXPECT_EQ(document(), *datafile::read(small)) << "what was asked about is what was put in place";
    EXPECT_EQ(data().previewTitle(), QStringLiteral("Replace all data with “everything.tamsel”?"));
}

TEST_F(DataViewModelTest, TheShareActionOfTheHistoryScreenPresentsAllData) {
    app->content().tabViewModel()->historyViewModel()->share();
    EXPECT_TRUE(data().sheetIsPresented());
}

TEST_F(DataViewModelTest, AnImportIsShownThenDoneThenTakenBack) {
    const auto before = UserData::of(world.store);
    const QByteArray own = document();
    importFrom(small);
    ASSERT_TRUE(data().previewIsPresented());
    EXPECT_EQ(data().previewTitle(), QStringLiteral("Replace all data with “export.tamsel”?"));
    ASSERT_EQ(data().previewRows().size(), 6);
    EXPECT_EQ(data().previewRows().at(0).spokenText, QStringLiteral("Items: now 1, then 2"));
    EXPECT_EQ(data().previewRows().at(4).then, QStringLiteral("14 March 2024"));
    EXPECT_EQ(UserData::of(world.store), before) << "nothing is touched yet";
    EXPECT_FALSE(data().canUndo());

    replace();
    EXPECT_FALSE(data().previewIsPresented());
    EXPECT_EQ(document(), *datafile::read(small));
    ASSERT_EQ(made().size(), 1);
    EXPECT_EQ(UserData(*backups::read(made().first().path)), before);
    EXPECT_EQ(data().statusText(), QStringLiteral("All data is now that of “export.tamsel”."));

    ASSERT_TRUE(data().canUndo());
    data().undo();
    settle();
    EXPECT_EQ(UserData::of(world.store), before);
    EXPECT_EQ(document(), own);
    EXPECT_FALSE(data().canUndo());
    EXPECT_EQ(made().size(), 2) << "what was imported is not lost either";
}

TEST_F(DataViewModelTest, CancellingChangesNothing) {
    const auto before = world.store.dictionaryRepresentation();
    importFrom(small);
    data().cancelReplace();
    EXPECT_FALSE(data().previewIsPresented());
    replace();
    EXPECT_EQ(world.store.dictionaryRepresentation(), before);
    EXPECT_TRUE(made().isEmpty());
}

TEST_F(DataViewModelTest, WhatCannotBeUsedGetsOneSentenceAndTouchesNothing) {
    const auto before = world.store.dictionaryRepresentation();
    const QString path = folder.filePath(QStringLiteral("bad.tamsel"));
    for (const QByteArray& bytes : {QByteArray(), QByteArray("[]"), QByteArray("{\"allExercises\":[]}")}) {
        ASSERT_EQ(datafile::write(path, bytes), std::nullopt);
        importFrom(path);
        EXPECT_FALSE(data().previewIsPresented());
        EXPECT_TRUE(
            data().statusText().startsWith(QStringLiteral("“bad.tamsel” cannot be used. Nothing was changed. (")))
            << data().statusText().toStdString();
    }
    app->content().openDocument(folder.filePath(QStringLiteral("none.tamsel")));
    settle();
    EXPECT_TRUE(data().sheetIsPresented()) << "the sentence has a place";
    EXPECT_TRUE(data().statusText().contains(QStringLiteral("No such file")));
    EXPECT_EQ(world.store.dictionaryRepresentation(), before);
}

TEST_F(DataViewModelTest, WithoutABackupNothingIsReplaced) {
    const auto before = UserData::of(world.store);
    ASSERT_TRUE(QDir(backupFolder()).removeRecursively());
    QFile inTheWay(backupFolder());
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    importFrom(small);
    replace();
    EXPECT_EQ(UserData::of(world.store), before);
    EXPECT_FALSE(data().canUndo());
    EXPECT_TRUE(
        data().statusText().startsWith(QStringLiteral("Nothing was changed, because no backup could be made: ")));
    EXPECT_NE(backups().warning(), QString());
}

TEST_F(DataViewModelTest, LaterPracticeEndsTheOfferToTakeItBack) {
    importFrom(small);
    replace();
    Singletons& singletons = app->singletons();
    const Exercise item = singletons.exercises.items().first();
    singletons.history.record(*PracticeSession::make(world.clock.now(), item, 90, SessionType::timer));
    EXPECT_FALSE(data().canUndo());
    data().undo();
    settle();
    EXPECT_EQ(singletons.history.events().size(), 3);
}

TEST_F(DataViewModelTest, WhatRunsIsRecordedBeforeTheBackupAndTheScreenIsLeft) {
    auto& stack = *app->content().tabViewModel()->practiceNavigationStack();
    ASSERT_EQ(stack.depth(), 1) << "the one item opens at launch";
    qobject_cast<PracticeViewModel*>(stack.screenModel(0))->startStopwatch();
    world.mainQueue.advance(75s);
    app->content().openDocument(small);
    settle();
    replace();
    EXPECT_EQ(stack.depth(), 0);
    const auto saved = DataSummary::of(UserData(*backups::read(made().first().path)));
    EXPECT_EQ(saved->events, 1);
    EXPECT_EQ(document(), *datafile::read(small));
}

// Backups

TEST_F(DataViewModelTest, BackupsAreListedLookedThroughAndRestored) {
    backups().setIsPresented(true);
    EXPECT_NE(backups().emptyText(), QString());
    app->backups().makeDaily();
    settle();
    const QByteArray own = document();
    importFrom(small);
    replace();
    backups().setIsPresented(true);
    ASSERT_EQ(backups().rows().size(), 2);
    EXPECT_FALSE(backups().rows().first().isUsable) << "not before it was looked through";
    settle();
    EXPECT_EQ(backups().rows().first().title, QStringLiteral("14 March 2024, 12:00"));
    EXPECT_EQ(backups().rows().last().title, QStringLiteral("14 March 2024"));
    for (const BackupRow& row : backups().rows()) {
        EXPECT_TRUE(row.isUsable);
        EXPECT_TRUE(row.detail.contains(QStringLiteral(" kB, verified"))) << row.detail.toStdString();
    }
    EXPECT_TRUE(backups().rows().first().detail.endsWith(QStringLiteral(", before an import")));
    EXPECT_TRUE(backups().rows().last().detail.endsWith(QStringLiteral(", verified")));
    data().restore(1);
    settle();
    EXPECT_EQ(data().previewTitle(), QStringLiteral("Replace all data with “14 March 2024”?"));
    replace();
    EXPECT_EQ(document(), own);
    data().undo();
    settle();
    EXPECT_EQ(document(), *datafile::read(small));

    ASSERT_EQ(datafile::write(made().last().path, "damaged"), std::nullopt);
    backups().setIsPresented(true);
    settle();
    EXPECT_TRUE(backups().rows().last().isDamaged);
    data().restore(static_cast<int>(backups().rows().size()) - 1);
    settle();
    EXPECT_FALSE(data().previewIsPresented());
    EXPECT_TRUE(data().statusText().contains(QStringLiteral("cannot be used")));
}

TEST_F(DataViewModelTest, AnotherFolderForBackupsIsChosenAndGivenUp) {
    const QString other = folder.filePath(QStringLiteral("other"));
    backups().chooseFolder(QUrl::fromLocalFile(other));
    settle();
    EXPECT_EQ(backups().folderText(), other);
    EXPECT_EQ(backups::list(other).size(), 1) << "today's is made at once";
    backups().chooseFolder(QUrl::fromLocalFile(QStringLiteral("/proc/none")));
    EXPECT_TRUE(backups().warning().contains(QStringLiteral("/proc/none")));
    EXPECT_EQ(backups().folderText(), other);
    backups().useStandardFolder();
    EXPECT_FALSE(backups().folderIsChosen());
}

// Practice that a crash has cut off

TEST_F(DataViewModelTest, APracticeThatWasCutOffIsKeptOrDiscardedWhenAsked) {
    const Exercise item = app->singletons().exercises.items().first();
    for (const char* answer : {"keep", "discard"}) {
        auto& stack = *app->content().tabViewModel()->practiceNavigationStack();
        qobject_cast<PracticeViewModel*>(stack.screenModel(0))->startStopwatch();
        world.mainQueue.advance(125s);
        const auto crashed = world.store.dictionaryRepresentation();
        app.reset();
        for (const QString& key : world.store.dictionaryRepresentation().keys())
            world.store.remove(key);
        for (auto each = crashed.cbegin(); each != crashed.cend(); ++each)
            world.store.set(each.key(), each.value());

        start();
        LeftPracticeViewModel* left = app->content().leftPractice();
        ASSERT_TRUE(left->isPresented());
        EXPECT_EQ(left->text(), QStringLiteral("Tamsel was ended while you practised: Untitled practice, 2m. You can "
                                               "keep it with this time, or discard it."));
        const qsizetype events = app->singletons().history.events().size();
        left->decideLater();
        EXPECT_FALSE(left->isPresented());
        start();
        left = app->content().leftPractice();
        ASSERT_TRUE(left->isPresented()) << "it is asked again";
        const bool keeps = qstrcmp(answer, "keep") == 0;
        if (keeps)
            left->keep();
        else
            left->discard();
        EXPECT_EQ(app->singletons().history.events().size(), events + (keeps ? 1 : 0));
        if (keeps) {
            EXPECT_EQ(app->singletons().history.events().last().practiceTime, 2);
            EXPECT_EQ(app->singletons().dailyLog.practiceSessions().last().exercise, item);
        }
        EXPECT_EQ(world.store.value(keys::runningPractice), std::nullopt);
        start();
        EXPECT_FALSE(app->content().leftPractice()->isPresented());
    }
}

TEST_F(DataViewModelTest, APracticeOfYesterdayIsKeptInTheJournalAndNotInTodaysLog) {
    auto& stack = *app->content().tabViewModel()->practiceNavigationStack();
    qobject_cast<PracticeViewModel*>(stack.screenModel(0))->startStopwatch();
    world.mainQueue.advance(125s);
    const auto crashed = world.store.dictionaryRepresentation();
    app.reset();
    for (auto each = crashed.cbegin(); each != crashed.cend(); ++each)
        world.store.set(each.key(), each.value());
    world.store.remove(keys::practiceSessions);
    const Date began = world.clock.now();
    world.clock.advance(24h);
    start();
    const qsizetype events = app->singletons().history.events().size();
    const Exercise item = app->singletons().exercises.items().first();
    app->singletons().history.record(*PracticeSession::make(world.clock.now(), item, 90, SessionType::timer));
    app->content().leftPractice()->keep();
    ASSERT_EQ(app->singletons().history.events().size(), events + 2);
    EXPECT_LT(app->singletons().history.events().last().date, began);
    ASSERT_EQ(app->singletons().dailyLog.practiceSessions().size(), 1);
    EXPECT_EQ(app->singletons().dailyLog.practiceSessions().first().seconds, 90);
}

} // namespace
} // namespace tamsel
