#include "model/DataDump.h"

#include "model/DataCheck.h"
#include "model/DataSummary.h"
#include "model/SettingsKeys.h"
#include "model/SqliteSettingsStore.h"
#include "model/StoredSettings.h"
#include "tests/model/DataWorld.h"
#include "tests/model/TemporaryFolder.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

#include <csignal>

namespace tamsel {
namespace {

const QByteArray emptyDocument =
    R"({"allArchivedExercises":[],"allExercises":[],"allExerciseSettings":[],"allHistory":[],"allNotes":[]})";

const Exercise scales{QStringLiteral("C Major Scales"), QUuid("3F2504E0-4F89-41D3-9A0C-0305E82C3301")};
const Exercise etude{QStringLiteral("Étude 9 “Winter”"), QUuid("9B2E7A40-55C3-4C8E-8F43-6A1D0F5E7B21")};
const Exercise longTones{QStringLiteral("Long Tones"), QUuid("0C6C5A7B-8D2F-4E0B-A6B1-3D9C1E2F4A55")};

QByteArray replaced(const QByteArray& document, const char* from, const char* to) {
    EXPECT_TRUE(document.contains(from)) << from;
    return QByteArray(document).replace(from, to);
}

class DataDumpTest : public testing::Test {
protected:
    const test::LogCapture console;
    MemorySettingsStore store;
};

TEST_F(DataDumpTest, AUserWithoutDataExportsFiveEmptyLists) {
    EXPECT_EQ(json::encode(DataDump()), emptyDocument);
    test::DataWorld world(store);
    world.exercises.setItems({});
    EXPECT_EQ(world.document(), emptyDocument);
    EXPECT_EQ(*json::decode<DataDump>(emptyDocument), DataDump());
}

TEST_F(DataDumpTest, TheFrozenDocumentReadsAsItWasMeantAndIsWrittenTheSame) {
    const QByteArray frozen = test::testData("export.tamsel");
    const auto dump = json::decode<DataDump>(frozen);
    ASSERT_TRUE(dump) << dump.error().message.toStdString();
    EXPECT_EQ(dump->allArchivedExercises, QList<Exercise>{longTones});
    EXPECT_EQ(dump->allExercises, (QList<Exercise>{scales, etude}));
    ExerciseSettings settings;
    settings.bookmarks = {60, 72, 96};
    settings.bookmarksEnabled = settings.thumbsUpCounterEnabled = true;
    settings.tempo = 72;
    EXPECT_EQ(dump->allExerciseSettings.value(0), std::pair(scales, settings));
    EXPECT_EQ(dump->allExerciseSettings.value(1), std::pair(etude, ExerciseSettings()));
    EXPECT_EQ(dump->allHistory.value(0),
              (HistoryEvent{{732110400.25}, scales.name, 12, 5, 1, QUuid("5D0C1C0E-7B0A-4F5E-9C42-1B8A7E6D3F90")}));
    EXPECT_EQ(dump->allHistory.value(1).thumbsUp, std::nullopt);
    ASSERT_EQ(dump->allNotes.size(), 1);
    EXPECT_EQ(dump->allNotes.first().second.value(0).value, QStringLiteral("Left hand alone from bar 9"));
    EXPECT_EQ(json::encode(*dump), frozen);
}

TEST_F(DataDumpTest, ExportImportExportIsTheSameToTheByteAlsoAfterARestart) {
    for (const char* name : {"export.tamsel", "everything.tamsel"}) {
        const QByteArray frozen = test::testData(name);
        const auto dump = checkDataDump(frozen);
        ASSERT_TRUE(dump) << name << ": " << dump.error().message.toStdString();
        const test::TemporaryFolder folder;
        const auto opened = SqliteSettingsStore::open(folder.path());
        {
            test::DataWorld world(*opened.store);
            world.stores().replace(*dump);
            EXPECT_EQ(world.document(), frozen) << name;
        }
        test::DataWorld restarted(*opened.store);
        EXPECT_EQ(restarted.document(), frozen) << name;
        EXPECT_EQ(*DataSummary::of(UserData::of(*opened.store)), DataSummary::of(*dump)) << name;
    }
}

TEST_F(DataDumpTest, ArchivedItemsAreListedWithoutTheirSettingsAndNotes) {
    test::DataWorld world(store);
    world.exercises.setItems({scales});
    world.exercises.setArchivedItems({etude});
    for (const Exercise& each : {scales, etude}) {
        storeSettings(store, each.id, ExerciseSettings());
        world.notes.add({{1}, QUuid::createUuid(), QStringLiteral("note")}, each);
    }
    const DataDump dump = world.stores().makeDataDump();
    EXPECT_EQ(dump.allArchivedExercises, QList<Exercise>{etude});
    ASSERT_EQ(dump.allExerciseSettings.size(), 1);
    EXPECT_EQ(dump.allExerciseSettings.first().first, scales);
    ASSERT_EQ(dump.allNotes.size(), 1);
    EXPECT_EQ(dump.allNotes.first().first, scales);
}

TEST_F(DataDumpTest, TheDocumentOfWhatIsStoredIsThatOfTheStores) {
    test::DataWorld world(store);
    EXPECT_EQ(*makeDataDump(store.dictionaryRepresentation()), world.stores().makeDataDump());
    world.stores().replace(*checkDataDump(test::testData("everything.tamsel")));
    EXPECT_EQ(*makeDataDump(store.dictionaryRepresentation()), world.stores().makeDataDump());
    // What the stores cannot read they take for nothing.
    const QUuid id = world.exercises.items().first().id;
    store.setData(keys::archivedExercises, "damaged");
    store.setData(keys::settings(id), "damaged");
    store.setData(keys::notes(world.exercises.items().first()), "damaged");
    test::DataWorld restarted(store);
    EXPECT_EQ(*makeDataDump(store.dictionaryRepresentation()), restarted.stores().makeDataDump());
    store.setData(keys::historyEvents, "[{}]");
    EXPECT_EQ(makeDataDump(store.dictionaryRepresentation()).error().message,
              QStringLiteral("history.events[0].date: missing"));
}

TEST_F(DataDumpTest, NotesAreThereWhenTheItemHasAnEntryEvenAnEmptyOne) {
    test::DataWorld world(store);
    world.exercises.setItems({scales, etude});
    const Note note{{1}, QUuid::createUuid(), QStringLiteral("note")};
    world.notes.add(note, etude);
    world.notes.remove(note, etude);
    const DataDump dump = world.stores().makeDataDump();
    EXPECT_EQ(dump.allNotes, (QList<std::pair<Exercise, QList<Note>>>{{etude, {}}}));
}

TEST_F(DataDumpTest, TwoEqualActiveItemsStopTheProgram) {
    test::DataWorld world(store);
    world.exercises.setItems({scales, etude, scales});
    EXPECT_EXIT((void)world.stores().makeDataDump(), testing::KilledBySignal(SIGABRT), "");
}

// What is refused

struct Refused {
    const char* from; // in the frozen document
    const char* to;
    const char* message;
    bool decodes; // but an import refuses it
};

TEST_F(DataDumpTest, WhatIsNoWholeDocumentIsRefusedWithThePlace) {
    const QByteArray frozen = test::testData("export.tamsel");
    const Refused cases[] = {
        {"allArchivedExercises", "other", "allArchivedExercises: missing", false},
        {"\"allExercises\"", "\"other\"", "allExercises: missing", false},
        {"allExerciseSettings", "other", "allExerciseSettings: missing", false},
        {"allHistory", "other", "allHistory: missing", false},
        {"allNotes", "other", "allNotes: missing", false},
        {"\"allNotes\":[", "\"allNotes\":[{\"name\":\"\",\"id\":\"3F2504E0-4F89-41D3-9A0C-0305E82C3301\"},[],",
         "allNotes[2]: an item of this identifier stands before it", true},
        {"\"practiceTime\":8", "\"practiceTime\":\"8\"", "allHistory[1].practiceTime: expected integer", false},
        {"\"practiceTime\":8", "\"practiceTime\":1e30", "allHistory[1].practiceTime: expected integer", false},
        {"\"practiceTime\":8", "\"practiceTime\":9e15", "allHistory[1].practiceTime: the number is too large", true},
        {"\"practiceTime\":8", "\"practiceTime\":-1", "allHistory[1].practiceTime: the time is negative", true},
        {"\"thumbsUp\":5", "\"thumbsUp\":4000000000", "allHistory[0].thumbsUp: the number is too large", true},
        {"\"date\":732196800", "\"date\":1e300", "allHistory[1].date: the date is not within the years 1 to 9999",
         true},
        {"\"date\":732110712.5", "\"date\":-1e12", "allNotes[1][0].date: the date is not within the years 1 to 9999",
         true},
        {"\"tempo\":72", "\"tempo\":72.5", "allExerciseSettings[1].tempo: expected integer", false},
        {"\"tempo\":72", "\"tempo\":9007199254740991", "allExerciseSettings[1].tempo: the number is too large", true},
        {"[60,72,96]", "[60,72,-2000000000]", "allExerciseSettings[1].bookmarks[2]: the number is too large", true},
        {"7E57D004-2B97-4E7A-B45F-5387367791CD", "5D0C1C0E-7B0A-4F5E-9C42-1B8A7E6D3F90",
         "allHistory[1]: an event of this identifier stands before it", true},
        {"\"allArchivedExercises\":[",
         "\"allArchivedExercises\":[{\"name\":\"x\",\"id\":\"9B2E7A40-55C3-4C8E-8F43-6A1D0F5E7B21\"},",
         "allExercises[1]: an item of this identifier stands before it", true},
        {"\"id\":\"A3BB1890-2C44-4F7C-9F0D-7C1B0E5C2D11\",", "", "allNotes[1][0].id: missing", false},
    };
    for (const Refused& each : cases) {
        const QByteArray document = replaced(frozen, each.from, each.to);
        const auto checked = checkDataDump(document);
        ASSERT_FALSE(checked) << each.to;
        EXPECT_EQ(checked.error().message.toStdString(), each.message);
        EXPECT_EQ(bool(json::decode<DataDump>(document)), each.decodes) << each.message;
    }
    // One element too many, another shape, and every beginning of a document.
    EXPECT_FALSE(
        checkDataDump(replaced(emptyDocument, "\"allNotes\":[",
                               "\"allNotes\":[{\"name\":\"\",\"id\":\"3F2504E0-4F89-41D3-9A0C-0305E82C3301\"}")));
    EXPECT_FALSE(checkDataDump("[]"));
    EXPECT_EQ(checkDataDump("").error().message, QStringLiteral("empty document"));
    for (qsizetype length = 1; length < frozen.size(); ++length) {
        const auto checked = checkDataDump(frozen.first(length));
        ASSERT_FALSE(checked) << length;
        ASSERT_TRUE(checked.error().message.endsWith(QStringLiteral(", at its end")))
            << length << checked.error().message.toStdString();
    }
}

struct Misspelt {
    const char* from; // in the frozen document; the fault comes with the last byte that is put in its place
    const char* to;
};

TEST_F(DataDumpTest, WhatIsNoJsonIsRefusedWithTheByte) {
    const QByteArray frozen = test::testData("export.tamsel");
    const Misspelt cases[] = {
        {"\"allExercises\"", "a"},
        {"\"allExercises\":", "\"allExercises\"["},
        {"\"allExercises\":[", "\"allExercises\":[,"},
        {"\"practiceTime\":8,", "\"practiceTime\":08"},
        {"\"practiceTime\":8,", "\"practiceTime\":+"},
        {"\"practiceTime\":8,", "\"practiceTime\":8.,"},
        {"\"practiceTime\":8,", "\"practiceTime\":8e,"},
        {"\"practiceTime\":8,", "\"practiceTime\":8,,"},
        {"\"practiceTime\":8,", "\"practiceTime\":8\""},
        {"\"practiceTime\":8,", "\"practiceTime\":N"},
        {"\"bookmarksEnabled\":true", "\"bookmarksEnabled\":trua"},
        {"Left hand", "Left\t"},
        {"Left hand", "Left \n"},
        {"Left hand", "Left \xFF"},
        {"Left hand", "Left \xC3h"},
        {"Left hand", "Left \xE0\x80"},
        {"Left hand", "Left \xED\xA0"},
        {"Left hand", "Left \xF4\x90"},
        {"Left hand", "Left \\h"},
        {"Left hand", "Left \\u12g"},
        {"Left hand", "Left \\ud83c "},
    };
    for (const Misspelt& each : cases) {
        const QByteArray document = replaced(frozen, each.from, each.to);
        const qsizetype byte = frozen.indexOf(each.from) + qsizetype(qstrlen(each.to));
        const auto checked = checkDataDump(document);
        ASSERT_FALSE(checked) << each.to;
        EXPECT_TRUE(checked.error().message.endsWith(QStringLiteral(", at byte %1").arg(byte)))
            << each.to << ": " << checked.error().message.toStdString() << ", not " << byte;
    }
    EXPECT_EQ(checkDataDump(frozen + '}').error().message,
              QStringLiteral("unexpected content behind the document, at byte %1").arg(frozen.size() + 1));
    EXPECT_EQ(checkDataDump(QByteArray(100, '[')).error().message, QStringLiteral("expected object, at its end"));
    EXPECT_EQ(checkDataDump("{\"x\":" + QByteArray(100'000, '[')).error().message,
              QStringLiteral("nested too deeply, at byte %1").arg(5 + 100));
    // Everything that JSON allows is passed over.
    EXPECT_EQ(checkDataDump("\t{ \"\\u00e9\\ud83c\\udfbb\\n\" :\r\n[ -0.5E+3, 1e-2, true,false,null,{},[] ] } ")
                  .error()
                  .message,
              QStringLiteral("allArchivedExercises: missing"));
}

TEST_F(DataDumpTest, AFileThatIsNoDocumentReadsAsNothing) {
    const test::TemporaryFolder folder;
    const QString path = folder.filePath(QStringLiteral("a.tamsel"));
    EXPECT_EQ(readDataDump(path), std::nullopt);
    ASSERT_EQ(datafile::write(path, replaced(emptyDocument, "allNotes", "notes")), std::nullopt);
    EXPECT_EQ(readDataDump(path), std::nullopt);
    ASSERT_EQ(datafile::write(path, emptyDocument), std::nullopt);
    EXPECT_EQ(readDataDump(path), DataDump());
    EXPECT_EQ(readDataDump(folder.path()), std::nullopt);
}

// Replacing

// Stores with everything in them that an import has to remove, some of it written by hand.
void fill(test::DataWorld& world, SettingsStore& store) {
    const QByteArray byHand = "[ {\"date\":1,\"exerciseName\":\"Old\",\"practiceTime\":3,"
                              "\"id\":\"11111111-0000-4000-8000-000000000000\"} ]";
    store.setData(keys::historyEvents, byHand);
    world.history.reload();
    world.exercises.setItems({{QStringLiteral("Old"), QUuid("AAAAAAAA-0000-4000-8000-000000000000")}, scales});
    world.exercises.setArchivedItems({{QStringLiteral("Older"), QUuid("BBBBBBBB-0000-4000-8000-000000000000")}});
    for (const Exercise& each : world.exercises.items() + world.exercises.archivedItems()) {
        storeSettings(store, each.id, ExerciseSettings());
        world.notes.add({{1}, each.id, QStringLiteral("note")}, each);
    }
    store.setData(QStringLiteral("Settings.CCCCCCCC-0000-4000-8000-000000000000"), "of an item that is gone");
    store.setInteger(keys::numberOfPromptsForReview, 2);
}

TEST_F(DataDumpTest, AnImportLeavesTheDocumentAndNothingOfTheOldData) {
    test::DataWorld world(store);
    fill(world, store);
    int published = 0;
    const auto count = [&published] { ++published; };
    const auto items = world.exercises.itemsChanged().subscribe(count);
    const auto archived = world.exercises.archivedItemsChanged().subscribe(count);
    const auto events = world.history.eventsChanged().subscribe(count);
    const QByteArray frozen = test::testData("export.tamsel");
    world.stores().replace(*checkDataDump(frozen));
    EXPECT_EQ(published, 3);
    EXPECT_EQ(world.document(), frozen);
    const QStringList left = UserData::of(store).values().keys();
    EXPECT_EQ(left, (QStringList{keys::settings(scales.id), keys::settings(etude.id), keys::archivedExercises,
                                 keys::exercises, keys::historyEvents, keys::notes(scales)}));
    EXPECT_EQ(store.integer(keys::numberOfPromptsForReview), 2) << "preferences are not the document's";
}

TEST_F(DataDumpTest, TakingItBackBringsBackEveryByte) {
    test::DataWorld world(store);
    fill(world, store);
    const auto all = store.dictionaryRepresentation();
    const UserData before = UserData::of(store);
    const QList<HistoryEvent> events = world.history.events();
    world.stores().replace(*checkDataDump(test::testData("everything.tamsel")));
    EXPECT_NE(UserData::of(store), before);
    world.stores().replace(before);
    EXPECT_EQ(store.dictionaryRepresentation(), all);
    EXPECT_EQ(world.history.events(), events);
    EXPECT_EQ(world.exercises.items().value(1), scales);
    // What is recorded next goes behind bytes that this program has not written.
    world.history.record(*PracticeSession::make(world.clock.now(), scales, 60, SessionType::timer));
    EXPECT_EQ(json::decode<QList<HistoryEvent>>(*store.data(keys::historyEvents))->size(), 2);
}

TEST_F(DataDumpTest, ARenameUnderWayIsFinishedOnTheOldDataAndLeavesTheNewAlone) {
    test::FakeClock clock;
    Calendar calendar{QStringLiteral("UTC")};
    test::ManualQueue main{clock};
    test::CountingUuids uuids;
    DailyLog dailyLog(store, clock, calendar);
    Exercises exercises(store, uuids);
    auto work = std::make_unique<test::ManualQueue>(clock);
    test::ManualQueue& queue = *work;
    History history(dailyLog, store, clock, calendar, main, uuids, std::move(work));
    Notes notes(store);
    const DataStores stores{store, exercises, history, notes};
    history.setEvents({HistoryEvent::make(clock.now(), scales.name, 5, uuids)});
    int completed = 0;
    history.renameExercise(scales.name, QStringLiteral("Scales"), [&] { ++completed; });
    queue.runDue();
    history.finishRenames();
    const UserData before = UserData::of(store);
    EXPECT_TRUE(store.data(keys::historyEvents)->contains("\"Scales\""));
    stores.replace(*checkDataDump(test::testData("export.tamsel")));
    main.runDue();
    EXPECT_EQ(completed, 1);
    EXPECT_EQ(history.events().first().exerciseName, scales.name) << "the document's own";
    stores.replace(before);
    EXPECT_EQ(history.events().first().exerciseName, QStringLiteral("Scales"));
}

} // namespace
} // namespace tamsel
