#include "model/DailyLog.h"
#include "model/Exercises.h"
#include "model/History.h"
#include "model/JournalReading.h"
#include "model/Json.h"
#include "model/LegacySettings.h"
#include "model/MemorySettingsStore.h"
#include "model/Migration.h"
#include "model/Notes.h"
#include "model/SettingsKeys.h"
#include "model/SqliteSettingsStore.h"
#include "model/StoredSettings.h"
#include "platform/Calendar.h"
#include "tests/support/FakeClock.h"
#include "tests/support/LogCapture.h"
#include "tests/support/ManualQueue.h"
#include "tests/support/SequentialUuids.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cmath>
#include <csignal>
#include <memory>

namespace tamsel {
namespace {

using test::SequentialUuids;

QStringList names(const QList<Exercise>& exercises) {
    QStringList result;
    for (const Exercise& exercise : exercises)
        result += exercise.name;
    return result;
}

// Stores on an in-memory settings store, in a time of the test's own.
class StoresTest : public testing::Test {
protected:
    Exercises makeExercises() { return {store, uuids}; }
    DailyLog makeDailyLog() { return {store, clock, calendar}; }
    std::unique_ptr<History> makeHistory(DailyLog& dailyLog) {
        auto queue = std::make_unique<test::ManualQueue>(clock);
        historyQueue = queue.get();
        return std::make_unique<History>(dailyLog, store, clock, calendar, mainQueue, uuids, std::move(queue));
    }
    QByteArray stored(const QString& key) { return store.data(key).value_or(QByteArray("(absent)")); }
    PracticeSession session(const Exercise& exercise, qint64 seconds) {
        return *PracticeSession::make(clock.now(), exercise, seconds, SessionType::timer);
    }

    test::FakeClock clock;
    Calendar calendar{QStringLiteral("UTC")};
    test::ManualQueue mainQueue{clock};
    test::ManualQueue* historyQueue = nullptr;
    SequentialUuids uuids;
    MemorySettingsStore store;
    const Exercise scales{QStringLiteral("C Major Scales"), SequentialUuids::numbered(101)};
    const Exercise etude{QStringLiteral("Étude 9"), SequentialUuids::numbered(102)};
};

// Exercises

TEST_F(StoresTest, AFreshStoreHasOneItemThatKeepsItsIdentity) {
    const Exercises first = makeExercises();
    ASSERT_EQ(names(first.items()), QStringList(QStringLiteral("Untitled practice")));
    EXPECT_EQ(makeExercises().items(), first.items()) << "after a restart it must be the same item";
    EXPECT_TRUE(first.archivedItems().isEmpty());
}

TEST_F(StoresTest, DeletingTheLastItemIsRemembered) {
    Exercises exercises = makeExercises();
    exercises.remove(exercises.items().first());
    EXPECT_EQ(stored(keys::exercises), QByteArray("[]"));
    EXPECT_TRUE(makeExercises().items().isEmpty()) << "the first item must not come back";
}

TEST_F(StoresTest, EditsAreSavedPublishedAndLogged) {
    Exercises exercises = makeExercises();
    exercises.setItems({});
    int published = 0;
    int archivePublished = 0;
    const auto items = exercises.itemsChanged().subscribe([&] { ++published; });
    const auto archive = exercises.archivedItemsChanged().subscribe([&] { ++archivePublished; });
    const test::LogCapture log;

    const Exercise a = exercises.add(QStringLiteral("A"));
    const Exercise b = exercises.add(QStringLiteral("B"));
    EXPECT_EQ(names(makeExercises().items()), QStringList({QStringLiteral("B"), QStringLiteral("A")}));
    exercises.move(0, 1);
    EXPECT_EQ(names(makeExercises().items()), QStringList({QStringLiteral("A"), QStringLiteral("B")}));

    Exercise renamed;
    exercises.rename(a, QStringLiteral("A2"), [&](const Exercise& exercise) { renamed = exercise; });
    EXPECT_EQ(renamed, (Exercise{QStringLiteral("A2"), a.id}));
    EXPECT_EQ(makeExercises().items(), (QList<Exercise>{renamed, b}));

    Exercise archived;
    exercises.archive(renamed, [&](const Exercise& exercise) { archived = exercise; });
    EXPECT_EQ(archived, renamed);
    EXPECT_EQ(makeExercises().items(), QList<Exercise>{b});
    EXPECT_EQ(makeExercises().archivedItems(), QList<Exercise>{renamed});

    exercises.unarchive(renamed);
    EXPECT_EQ(makeExercises().items(), (QList<Exercise>{renamed, b})) << "back at the front";
    EXPECT_FALSE(store.value(keys::archivedExercises)) << "an empty archive has no key";

    EXPECT_EQ(published, 6);
    EXPECT_EQ(archivePublished, 2);
    EXPECT_EQ(log.lines().first(), QStringLiteral("saving exercises: [A]"));
    EXPECT_TRUE(log.lines().contains(QStringLiteral("saving 1 exercises to Archive")));
    EXPECT_EQ(log.lines().last(), QStringLiteral("saving 0 exercises to Archive"));
}

TEST_F(StoresTest, AnItemOfAnotherNameOrUnknownIsNotArchived) {
    Exercises exercises = makeExercises();
    const QList<Exercise> before = exercises.items();
    exercises.archive({QStringLiteral("other name"), before.first().id});
    exercises.unarchive(scales);
    EXPECT_EQ(exercises.items(), before);
    EXPECT_TRUE(exercises.archivedItems().isEmpty());
}

TEST_F(StoresTest, DeletingRemovesTheThirteenOldestKeysOnly) {
    Exercises exercises = makeExercises();
    exercises.setArchivedItems({scales});
    const QString id = keys::uuidText(scales.id);
    for (const QString& suffix : keys::legacy::suffixes)
        store.setInteger(id + suffix, 1);
    storeSettings(store, scales.id, {});
    store.setInteger(keys::uuidText(etude.id) + keys::legacy::tempo, 80);
    exercises.remove(scales);
    ASSERT_EQ(keys::legacy::suffixes.size(), 13);
    for (const QString& suffix : keys::legacy::suffixes)
        EXPECT_FALSE(store.value(id + suffix)) << suffix.toStdString();
    EXPECT_TRUE(storedSettings(store, scales.id));
    EXPECT_EQ(store.integer(keys::uuidText(etude.id) + keys::legacy::tempo), 80);
    EXPECT_FALSE(store.value(keys::archivedExercises));
}

TEST_F(StoresTest, UnreadableListsAreEmptyAndACopyStays) {
    store.setData(keys::exercises, "[{\"name\":1}]");
    store.setData(keys::archivedExercises, "not json");
    store.setData(keys::practiceSessions, "[{}]");
    {
        Exercises exercises = makeExercises();
        EXPECT_TRUE(exercises.items().isEmpty());
        EXPECT_TRUE(exercises.archivedItems().isEmpty());
        EXPECT_TRUE(makeDailyLog().practiceSessions().isEmpty());
        exercises.add(QStringLiteral("A"));
        exercises.archive(exercises.items().first());
    }
    EXPECT_EQ(stored(QStringLiteral("unreadable.exercises")), QByteArray("[{\"name\":1}]"));
    EXPECT_EQ(stored(QStringLiteral("unreadable.archive.items")), QByteArray("not json"));
    EXPECT_EQ(stored(QStringLiteral("unreadable.DailyLog.practiceSessions")), QByteArray("[{}]"));
    // So is a value that is no document at all.
    store.setInteger(keys::practiceSessions, 7);
    makeDailyLog();
    EXPECT_EQ(store.integer(QStringLiteral("unreadable.DailyLog.practiceSessions.2")), 7);
    // Other unreadable data later: both copies stay; the same data once more adds none.
    store.setData(keys::exercises, "worse");
    makeExercises();
    makeExercises();
    EXPECT_EQ(stored(QStringLiteral("unreadable.exercises")), QByteArray("[{\"name\":1}]"));
    EXPECT_EQ(stored(QStringLiteral("unreadable.exercises.2")), QByteArray("worse"));
    EXPECT_FALSE(store.value(QStringLiteral("unreadable.exercises.3")));
}

// Today's log

TEST_F(StoresTest, OnlyTodaysSessionsAreLoaded) {
    DailyLog log = makeDailyLog();
    log.add(session(scales, 30));
    clock.advance(std::chrono::hours(11)); // 23:00
    log.add(session(etude, 40));
    EXPECT_EQ(makeDailyLog().practiceSessions(), log.practiceSessions());
    clock.advance(std::chrono::hours(1));
    EXPECT_TRUE(makeDailyLog().practiceSessions().isEmpty());
    EXPECT_EQ(log.practiceSessions().size(), 2) << "a log that is open is not emptied by midnight";
}

TEST_F(StoresTest, RenamingAnItemMovesItsSessionsToEndNow) {
    DailyLog log = makeDailyLog();
    log.add(session(scales, 30));
    log.add(session(etude, 40));
    const PracticeSession untouched = log.practiceSessions().at(1);
    clock.advance(std::chrono::minutes(5));
    log.renameExercise(scales.name, QString());
    EXPECT_EQ(log.practiceSessions().at(0).exercise, scales) << "an empty name renames nothing";
    log.renameExercise(scales.name, QStringLiteral("Scales"));
    const PracticeSession renamed = log.practiceSessions().at(0);
    EXPECT_EQ(renamed.exercise, (Exercise{QStringLiteral("Scales"), scales.id}));
    EXPECT_EQ(renamed.date, clock.now() - 30.0);
    EXPECT_EQ(renamed.seconds, 30);
    EXPECT_EQ(log.practiceSessions().at(1), untouched);
    EXPECT_EQ(makeDailyLog().practiceSessions(), log.practiceSessions());
}

TEST_F(StoresTest, RemovingSessionsKeepsTheOrderOfTheRest) {
    DailyLog log = makeDailyLog();
    for (const qint64 seconds : {10, 20, 30, 40})
        log.add(session(seconds == 20 || seconds == 40 ? scales : etude, seconds));
    int published = 0;
    const auto subscription = log.practiceSessionsChanged().subscribe([&] { ++published; });
    log.removeSessions([&](const PracticeSession& each) { return each.exercise == scales; });
    ASSERT_EQ(log.practiceSessions().size(), 2);
    EXPECT_EQ(log.practiceSessions().at(0).seconds, 10);
    EXPECT_EQ(log.practiceSessions().at(1).seconds, 30);
    EXPECT_EQ(published, 1);
    EXPECT_EQ(makeDailyLog().practiceSessions(), log.practiceSessions());
}

// History

TEST_F(StoresTest, RecordingFollowsTheTwoThresholds) {
    struct Case {
        qint64 seconds;
        qint64 minutes; // 0: no event
    };
    for (const Case& test : {Case{3, 0}, Case{59, 0}, Case{60, 1}, Case{119, 1}, Case{120, 2}, Case{3600, 60}}) {
        store = MemorySettingsStore();
        DailyLog log = makeDailyLog();
        const auto history = makeHistory(log);
        const PracticeSession recorded = session(scales, test.seconds);
        history->record(recorded);
        EXPECT_EQ(log.practiceSessions(), QList<PracticeSession>{recorded}) << test.seconds;
        if (test.minutes == 0) {
            EXPECT_TRUE(history->events().isEmpty()) << test.seconds;
            continue;
        }
        ASSERT_EQ(history->events().size(), 1) << test.seconds;
        const HistoryEvent event = history->events().first();
        EXPECT_EQ(event, (HistoryEvent{recorded.date, scales.name, test.minutes, {}, {}, event.id}));
        EXPECT_FALSE(event.id.isNull());
    }
}

TEST_F(StoresTest, EveryRecordingLeavesTheDocumentThatEncodingTheWholeGives) {
    DailyLog log = makeDailyLog();
    auto history = makeHistory(log);
    for (int i = 0; i < 20; ++i) {
        history->record(session(i % 3 == 0 ? etude : scales, 60 + i));
        EXPECT_EQ(stored(keys::historyEvents), json::encode(history->events()));
        if (i == 10)
            history = makeHistory(log);
        if (i == 15)
            history->setEvents(history->events().first(4));
    }
    EXPECT_EQ(makeHistory(log)->events(), history->events());
}

TEST_F(StoresTest, ADocumentEditedByHandIsStillExtended) {
    store.setData(keys::historyEvents, " [ ] \n");
    DailyLog log = makeDailyLog();
    const auto history = makeHistory(log);
    history->record(session(scales, 60));
    EXPECT_EQ(stored(keys::historyEvents), json::encode(history->events()));
    store.setData(keys::historyEvents, *store.data(keys::historyEvents) + "\n");
    const auto again = makeHistory(log);
    again->record(session(scales, 120));
    EXPECT_EQ(stored(keys::historyEvents), json::encode(again->events()));
    ASSERT_EQ(again->events().size(), 2);
}

TEST_F(StoresTest, RenamingRebuildsTheEventsOfTheOldName) {
    DailyLog log = makeDailyLog();
    const auto history = makeHistory(log);
    const HistoryEvent counted{clock.now(), scales.name, 5, 3, 1, SequentialUuids::numbered(50)};
    const HistoryEvent other{clock.now(), etude.name, 7, 2, {}, SequentialUuids::numbered(51)};
    history->setEvents({counted, other});
    int completed = 0;
    history->renameExercise(scales.name, QStringLiteral("Scales"), [&] { ++completed; });
    EXPECT_EQ(history->events().first(), counted) << "nothing changes before the queue has done its work";
    historyQueue->runDue();
    EXPECT_EQ(history->events().first(), counted) << "nor before the main queue takes it over";
    history->record(session(scales, 60)); // meanwhile, still under the old name
    mainQueue.runDue();
    ASSERT_EQ(completed, 1);
    ASSERT_EQ(history->events().size(), 3);
    const HistoryEvent renamed = history->events().first();
    EXPECT_EQ(renamed, (HistoryEvent{counted.date, QStringLiteral("Scales"), 5, {}, {}, renamed.id}));
    EXPECT_NE(renamed.id, counted.id);
    EXPECT_FALSE(renamed.id.isNull());
    EXPECT_EQ(history->events().at(1), other);
    EXPECT_EQ(history->events().at(2).exerciseName, QStringLiteral("Scales")) << "recorded during the rename";
    EXPECT_EQ(makeHistory(log)->events(), history->events());
}

TEST_F(StoresTest, ARenameOfAListThatWasReplacedMeanwhileStartsOver) {
    DailyLog log = makeDailyLog();
    const auto history = makeHistory(log);
    const HistoryEvent old{clock.now(), scales.name, 5, {}, {}, SequentialUuids::numbered(50)};
    const HistoryEvent imported{clock.now(), scales.name, 9, {}, {}, SequentialUuids::numbered(52)};
    history->setEvents({old});
    history->renameExercise(scales.name, QStringLiteral("Scales"));
    history->setEvents({imported});
    for (int i = 0; i < 2; ++i) {
        historyQueue->runDue();
        mainQueue.runDue();
    }
    ASSERT_EQ(history->events().size(), 1);
    EXPECT_EQ(history->events().first().exerciseName, QStringLiteral("Scales"));
    EXPECT_EQ(history->events().first().practiceTime, 9);
}

TEST_F(StoresTest, ARenameThatWasNotFinishedIsDoneWhenTheStoreGoes) {
    DailyLog log = makeDailyLog();
    auto history = makeHistory(log);
    history->setEvents({{clock.now(), scales.name, 5, {}, {}, SequentialUuids::numbered(50)}});
    bool completed = false;
    history->renameExercise(scales.name, QStringLiteral("Scales"), [&] { completed = true; });
    historyQueue->runDue();
    history.reset();
    mainQueue.runDue();
    EXPECT_FALSE(completed);
    const auto again = makeHistory(log);
    ASSERT_EQ(again->events().size(), 1);
    EXPECT_EQ(again->events().first().exerciseName, QStringLiteral("Scales"));
}

TEST_F(StoresTest, UnreadableHistoryStopsTheProgramAndStaysAsItIs) {
    store.setData(keys::historyEvents, "[{\"date\":1,\"exerciseName\":\"A\",\"practiceTime\":1.5}]");
    DailyLog log = makeDailyLog();
    EXPECT_EXIT(
        {
            setLogStream(stderr);
            makeHistory(log);
        },
        testing::KilledBySignal(SIGABRT),
        "^The history in memory cannot be read: history.events\\[0\\].practiceTime: expected integer\nFatal error\n$");
    EXPECT_EQ(stored(keys::historyEvents), QByteArray("[{\"date\":1,\"exerciseName\":\"A\",\"practiceTime\":1.5}]"));
}

TEST_F(StoresTest, AHistoryOfAnotherKindStopsTheProgramToo) {
    store.setInteger(keys::historyEvents, 7);
    DailyLog log = makeDailyLog();
    EXPECT_EXIT(makeHistory(log), testing::KilledBySignal(SIGABRT), "Fatal error\n$");
}

TEST_F(StoresTest, HistoryTakesOverWhatAnotherThreadHasRead) {
    const QTemporaryDir folder;
    const auto open = [&] { return SqliteSettingsStore::open(folder.path()).store; };
    const auto events = [&](SettingsStore& settings, JournalReading reading, qint64 minutes = 0) {
        DailyLog log(settings, clock, calendar);
        History history(log, settings, clock, calendar, mainQueue, uuids, std::make_unique<test::ManualQueue>(clock),
                        std::move(reading));
        if (minutes > 0)
            history.record(session(scales, minutes * 60));
        return history.events();
    };
    auto settings = open();
    EXPECT_TRUE(events(*settings, JournalReading(*settings)).isEmpty());
    const auto first = events(*settings, JournalReading(*settings), 5);
    const auto both = events(*settings, JournalReading(*settings), 6);
    ASSERT_EQ(both.size(), 2);
    EXPECT_EQ(both.first(), first.first());
    settings = open();
    EXPECT_EQ(events(*settings, JournalReading(*settings)), both) << "what is recorded behind what was read is kept";

    // A file that cannot be found any more is not made anew; the store itself still has it.
    const QString away = folder.filePath(QStringLiteral("away"));
    ASSERT_TRUE(QFile::rename(settings->location(), away));
    JournalReading reading(*settings);
    EXPECT_EQ(events(*settings, std::move(reading)), both);
    EXPECT_FALSE(QFile::exists(settings->location()));
    ASSERT_TRUE(QFile::rename(away, settings->location()));

    settings->setData(keys::historyEvents, "[{}]");
    EXPECT_EXIT(
        {
            setLogStream(stderr);
            events(*settings, JournalReading(*settings));
        },
        testing::KilledBySignal(SIGABRT), "standard.sqlite cannot be read: history.events\\[0\\].*\nFatal error\n$");
}

// Notes

TEST_F(StoresTest, NotesBelongToTheItemsIdentity) {
    Notes notes(store);
    const Exercise namesake{scales.name, etude.id};
    const Note first{clock.now(), SequentialUuids::numbered(1), QStringLiteral("slower")};
    const Note second{clock.now(), SequentialUuids::numbered(2), QStringLiteral("faster")};
    EXPECT_FALSE(notes.notes(scales));
    notes.add(first, scales);
    notes.add(second, scales);
    EXPECT_EQ(notes.notes(scales), (QList<Note>{first, second}));
    EXPECT_FALSE(notes.notes(namesake));

    const Note edited{first.date, first.id, QStringLiteral("slower still")};
    notes.update(edited, scales);
    EXPECT_EQ(notes.notes(scales), (QList<Note>{edited, second}));
    notes.remove(second, scales);
    notes.remove(edited, scales);
    EXPECT_EQ(stored(keys::notes(scales)), QByteArray("[]")) << "an empty list, not an absent one";
    notes.remove(edited, scales);
}

TEST_F(StoresTest, EditingNotesOfAnItemWithoutAnyStopsTheProgram) {
    Notes notes(store);
    EXPECT_EXIT(notes.remove({}, scales), testing::KilledBySignal(SIGABRT), "Expected a note to delete\n$");
    EXPECT_EXIT(notes.update({}, scales), testing::KilledBySignal(SIGABRT), "Expected a note to update\n$");
}

TEST_F(StoresTest, AddingANoteOverUnreadableOnesKeepsACopy) {
    Notes notes(store);
    store.setData(keys::notes(scales), "[{]");
    const test::LogCapture log;
    EXPECT_FALSE(notes.notes(scales));
    const Note note{clock.now(), SequentialUuids::numbered(1), QStringLiteral("new")};
    notes.add(note, scales);
    EXPECT_EQ(notes.notes(scales), QList<Note>{note});
    EXPECT_EQ(stored(QStringLiteral("unreadable.") + keys::notes(scales)), QByteArray("[{]"));
    EXPECT_EQ(log.lines().size(), 1);
}

// Settings of an item, and migrations

TEST_F(StoresTest, SettingsThatCannotBeReadCountAsNoneAndAreKeptWhenReplaced) {
    EXPECT_FALSE(storedSettings(store, scales.id));
    ExerciseSettings settings;
    settings.tempo = 96;
    storeSettings(store, scales.id, settings);
    EXPECT_EQ(storedSettings(store, scales.id), settings);
    store.setData(keys::settings(scales.id), "{}");
    EXPECT_FALSE(storedSettings(store, scales.id));
    const test::LogCapture log;
    storeSettings(store, scales.id, settings);
    storeSettings(store, scales.id, settings);
    EXPECT_EQ(log.lines().size(), 1);
    EXPECT_EQ(storedSettings(store, scales.id), settings);
    EXPECT_EQ(stored(QStringLiteral("unreadable.") + keys::settings(scales.id)), QByteArray("{}"));
}

const MigrationKeys steps{QStringLiteral("old"), QStringLiteral("didMigrate"), QStringLiteral("new")};

QList<Exercise> shouted(const QList<Exercise>& exercises) {
    QList<Exercise> result = exercises;
    for (Exercise& exercise : result)
        exercise.name = exercise.name.toUpper();
    return result;
}

TEST_F(StoresTest, AMigrationRunsOnce) {
    store.setData(steps.oldKey, *json::encode(QList<Exercise>{scales}));
    migrate<QList<Exercise>, QList<Exercise>>(store, steps, shouted);
    EXPECT_FALSE(store.value(steps.oldKey));
    EXPECT_TRUE(store.boolean(steps.flagKey));
    EXPECT_EQ(stored(steps.newKey), json::encode(shouted({scales})));
    const auto before = store.dictionaryRepresentation();
    store.setData(steps.oldKey, "anything");
    migrate<QList<Exercise>, QList<Exercise>>(store, steps, shouted);
    EXPECT_EQ(stored(steps.oldKey), QByteArray("anything")) << "the flag is set: the old key is left alone";
    store.remove(steps.oldKey);
    EXPECT_EQ(store.dictionaryRepresentation(), before);
}

TEST_F(StoresTest, AMigrationOfAnArrayOfDocuments) {
    store.setArray(steps.oldKey, {{*json::encode(scales)}, {*json::encode(etude)}});
    migrateArray<Exercise, QList<Exercise>>(store, steps, shouted);
    EXPECT_EQ(stored(steps.newKey), json::encode(shouted({scales, etude})));
    EXPECT_FALSE(store.value(steps.oldKey));
}

TEST_F(StoresTest, AMigrationWithoutOldDataWritesNothingAndABrokenOneStops) {
    migrate<QList<Exercise>, QList<Exercise>>(store, steps, shouted);
    EXPECT_TRUE(store.dictionaryRepresentation().isEmpty());
    store.setData(steps.oldKey, "[1]");
    EXPECT_EXIT((migrate<QList<Exercise>, QList<Exercise>>(store, steps, shouted)), testing::KilledBySignal(SIGABRT),
                "Unable to decode existing data for migration\n$");
    store.setData(steps.oldKey, "[]");
    const auto unencodable = [](const QList<Exercise>&) { return Note{{std::nan("")}, {}, {}}; };
    EXPECT_EXIT((migrate<QList<Exercise>, Note>(store, steps, unencodable)), testing::KilledBySignal(SIGABRT),
                "Unable to encode transformed data for migration\n$");
}

TEST_F(StoresTest, SettingsOfTheOldestFormatAreCarriedOver) {
    namespace legacy = keys::legacy;
    const QString id = keys::uuidText(scales.id);
    store.setBoolean(id + legacy::advancedSubdivisions, true);
    store.setArray(id + legacy::bookmarks, {{qint64(60)}, {qint64(90)}});
    store.setBoolean(id + legacy::tempoBookmarks, true);
    store.setBoolean(id + legacy::quickNotes, true);
    store.setBoolean(id + legacy::subdivisions, true);
    store.setBoolean(id + legacy::tapTempoEnabled, true);
    store.setBoolean(id + legacy::thumbsUpCounter, true);
    store.setBoolean(id + legacy::thumbsDownCounter, true);
    store.setInteger(id + legacy::tempo, 132);
    store.setBoolean(id + legacy::clearThumbsUpOnTempoChanges, false);
    store.setBoolean(id + legacy::clearThumbsDownOnTempoChanges, false);
    store.setBoolean(id + legacy::clearThumbsUpOnThumbsDown, true);
    store.setBoolean(id + legacy::clearThumbsDownOnThumbsUp, true);
    ExerciseSettings kept;
    kept.tempo = 77;
    storeSettings(store, etude.id, kept);
    store.setInteger(keys::uuidText(etude.id) + legacy::tempo, 80);

    migrateLegacySettings(store, {scales, etude});

    ExerciseSettings expected;
    expected.advancedSubdivisionsEnabled = expected.bookmarksEnabled = expected.quickNotesEnabled =
        expected.subdivisionsEnabled = expected.tapTempoEnabled = expected.thumbsUpCounterEnabled =
            expected.thumbsDownCounterEnabled = expected.clearThumbsUpOnThumbsDown =
                expected.clearThumbsDownOnThumbsUp = true;
    expected.clearThumbsUpOnTempoChanges = expected.clearThumbsDownOnTempoChanges = false;
    expected.bookmarks = {60, 90};
    expected.tempo = 132;
    EXPECT_EQ(storedSettings(store, scales.id), expected);
    EXPECT_EQ(storedSettings(store, etude.id), kept) << "a record that is there already wins";
    for (const QString& suffix : legacy::suffixes) {
        EXPECT_FALSE(store.value(id + suffix)) << suffix.toStdString();
        EXPECT_FALSE(store.value(keys::uuidText(etude.id) + suffix)) << suffix.toStdString();
    }
    // Once only: what appears later under the old keys is nobody's.
    store.setInteger(id + legacy::tempo, 50);
    migrateLegacySettings(store, {scales, etude});
    EXPECT_EQ(store.integer(id + legacy::tempo), 50);
}

} // namespace
} // namespace tamsel
