#include "model/Json.h"

#include "model/JsonCoding.h"
#include "tests/support/SequentialUuids.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace tamsel {

namespace {

// A record of a larger document, as an export has it.
struct Collection {
    QList<Exercise> exercises;
    QList<std::pair<Exercise, QList<Note>>> notes;

    bool operator==(const Collection&) const = default;
};

} // namespace

template <>
struct json::Fields<Collection> {
    static constexpr std::tuple all{
        Field{"exercises", &Collection::exercises},
        Field{"notes", &Collection::notes},
    };
};

namespace {

using test::SequentialUuids;

const QUuid someId(QStringLiteral("3f2504e0-4f89-41d3-9a0c-0305e82c3301"));
const QByteArray someIdText = "3F2504E0-4F89-41D3-9A0C-0305E82C3301";

template <class T>
void expectDocument(const T& value, const QByteArray& document) {
    const auto encoded = json::encode(value);
    ASSERT_TRUE(encoded) << document.constData();
    EXPECT_EQ(*encoded, document);
    const auto decoded = json::decode<T>(document, QStringLiteral("place"));
    ASSERT_TRUE(decoded) << decoded.error().message.toStdString();
    EXPECT_TRUE(*decoded == value) << document.constData();
}

template <class T>
QString refusal(const QByteArray& document) {
    const auto decoded = json::decode<T>(document, QStringLiteral("place"));
    return decoded ? QStringLiteral("accepted") : decoded.error().message;
}

template <class T>
void expectRefusal(const QByteArray& document, const char* message) {
    EXPECT_EQ(refusal<T>(document).toStdString(), message) << document.left(200).constData();
}

// The document of an event with this text in place of one value.
QByteArray eventWith(const QByteArray& key, const QByteArray& value) {
    QByteArray document = R"({"date":60,"exerciseName":"Scales","practiceTime":12,"thumbsUp":3,"thumbsDown":4,"id":")" +
                          someIdText + R"("})";
    const qsizetype start = document.indexOf('"' + key + "\":") + key.size() + 3;
    const qsizetype end = document.indexOf(key == "id" ? '}' : ',', start);
    return document.replace(start, end - start, value);
}

const HistoryEvent someEvent{Date{60}, QStringLiteral("Scales"), 12, 3, 4, someId};

// Names long and odd enough that the cuts of a long list fall into them, and dates of every shape.
QList<HistoryEvent> manyEvents(qsizetype count) {
    const QStringList names{QStringLiteral("Scales"), QStringLiteral("a},{\"date\":1},{b"), QStringLiteral("[{\\\"},{"),
                            QStringLiteral("Étude №5 🎻"), QString(300, QLatin1Char('}')) + QLatin1String(",{")};
    std::mt19937_64 random(7);
    QList<HistoryEvent> events;
    for (qsizetype i = 0; i < count; ++i) {
        HistoryEvent event{Date{static_cast<double>(random() % 1'000'000'000) / 8},
                           names.at(static_cast<qsizetype>(random() % 5)),
                           static_cast<qint64>(random() % 90),
                           {},
                           {},
                           SequentialUuids::numbered(static_cast<uchar>(i))};
        if (random() % 2 == 0)
            event.thumbsUp = static_cast<qint64>(random() % 9);
        events += event;
    }
    return events;
}

TEST(JsonTest, RecordsAreExactDocuments) {
    const Exercise exercise{QStringLiteral("C Major Scales"), someId};
    const QByteArray exerciseDocument = R"({"name":"C Major Scales","id":")" + someIdText + R"("})";
    expectDocument(exercise, exerciseDocument);
    expectDocument(QList<Exercise>{}, "[]");
    expectDocument(QList<Exercise>{exercise, exercise}, '[' + exerciseDocument + ',' + exerciseDocument + ']');

    expectDocument(someEvent, eventWith("date", "60"));
    HistoryEvent bare = someEvent;
    bare.thumbsUp = bare.thumbsDown = std::nullopt;
    expectDocument(bare, R"({"date":60,"exerciseName":"Scales","practiceTime":12,"id":")" + someIdText + R"("})");
    bare.thumbsDown = 0;
    expectDocument(QList<HistoryEvent>{bare},
                   R"([{"date":60,"exerciseName":"Scales","practiceTime":12,"thumbsDown":0,"id":")" + someIdText +
                       R"("}])");

    expectDocument(Note{Date{60.5}, someId, QStringLiteral("slower")},
                   R"({"date":60.5,"id":")" + someIdText + R"(","value":"slower"})");
    expectDocument(PracticeSession{Date{-1}, exercise, 30, SessionType::timer},
                   R"({"date":-1,"exercise":)" + exerciseDocument + R"(,"seconds":30,"type":{"timer":{}}})");
    expectDocument(QList<PracticeSession>{{Date{0}, exercise, 3, SessionType::stopwatch}},
                   R"([{"date":0,"exercise":)" + exerciseDocument + R"(,"seconds":3,"type":{"stopwatch":{}}}])");
}

const QByteArray newSettings =
    R"({"advancedSubdivisionsEnabled":false,"bookmarks":[],"bookmarksEnabled":false,"quickNotesEnabled":false,)"
    R"("subdivisionsEnabled":false,"tapTempoEnabled":false,"thumbsDownCounterEnabled":false,)"
    R"("thumbsUpCounterEnabled":false,"autoSavedTempo":true,"tempo":60,"snapToStandardTempi":false,)"
    R"("clearThumbsDownOnTempoChanges":true,"clearThumbsDownOnThumbsUp":false,"clearThumbsUpOnTempoChanges":true,)"
    R"("clearThumbsUpOnThumbsDown":false})";

TEST(JsonTest, SettingsAreExactDocumentsWithEachKeyForItsOwnMember) {
    expectDocument(ExerciseSettings{}, newSettings);

    using Flag = bool ExerciseSettings::*;
    using S = ExerciseSettings;
    const std::vector<std::pair<QByteArray, Flag>> flags{
        {"advancedSubdivisionsEnabled", &S::advancedSubdivisionsEnabled},
        {"bookmarksEnabled", &S::bookmarksEnabled},
        {"quickNotesEnabled", &S::quickNotesEnabled},
        {"subdivisionsEnabled", &S::subdivisionsEnabled},
        {"tapTempoEnabled", &S::tapTempoEnabled},
        {"thumbsDownCounterEnabled", &S::thumbsDownCounterEnabled},
        {"thumbsUpCounterEnabled", &S::thumbsUpCounterEnabled},
        {"autoSavedTempo", &S::autoSavedTempo},
        {"snapToStandardTempi", &S::snapToStandardTempi},
        {"clearThumbsDownOnTempoChanges", &S::clearThumbsDownOnTempoChanges},
        {"clearThumbsDownOnThumbsUp", &S::clearThumbsDownOnThumbsUp},
        {"clearThumbsUpOnTempoChanges", &S::clearThumbsUpOnTempoChanges},
        {"clearThumbsUpOnThumbsDown", &S::clearThumbsUpOnThumbsDown},
    };
    for (const auto& [key, member] : flags) {
        ExerciseSettings settings;
        settings.*member = !(settings.*member);
        const QByteArray before = '"' + key + (settings.*member ? "\":false" : "\":true");
        const QByteArray after = '"' + key + (settings.*member ? "\":true" : "\":false");
        expectDocument(settings, QByteArray(newSettings).replace(before, after));
    }
    expectDocument(ExerciseSettings{.bookmarks = {60, -1, 72}, .tempo = 208},
                   QByteArray(newSettings).replace("[]", "[60,-1,72]").replace("\"tempo\":60", "\"tempo\":208"));
}

// The settings document without one key.
QByteArray without(QByteArray document, const QByteArray& key) {
    const qsizetype start = document.indexOf('"' + key + '"');
    const qsizetype comma = document.indexOf(',', start);
    if (comma < 0)
        return document.left(start - 1) + '}';
    return document.remove(start, comma + 1 - start);
}

TEST(JsonTest, OldSettingsLackThreeKeysThatFallBackDifferently) {
    QByteArray old = newSettings;
    for (const char* key : {"tapTempoEnabled", "snapToStandardTempi", "autoSavedTempo"})
        old = without(old, key);
    const auto decoded = json::decode<ExerciseSettings>(old);
    ASSERT_TRUE(decoded) << decoded.error().message.toStdString();
    EXPECT_FALSE(decoded->tapTempoEnabled);
    EXPECT_FALSE(decoded->snapToStandardTempi);
    EXPECT_TRUE(decoded->autoSavedTempo);

    const auto null = json::decode<ExerciseSettings>(
        QByteArray(newSettings).replace("\"autoSavedTempo\":true", "\"autoSavedTempo\":null"));
    ASSERT_TRUE(null);
    EXPECT_TRUE(null->autoSavedTempo);
}

TEST(JsonTest, OfSeveralFaultsInSettingsTheFirstInReadingOrderIsNamed) {
    const QList<QByteArray> order{"advancedSubdivisionsEnabled",
                                  "bookmarks",
                                  "bookmarksEnabled",
                                  "quickNotesEnabled",
                                  "subdivisionsEnabled",
                                  "tempo",
                                  "thumbsDownCounterEnabled",
                                  "thumbsUpCounterEnabled",
                                  "clearThumbsDownOnTempoChanges",
                                  "clearThumbsDownOnThumbsUp",
                                  "clearThumbsUpOnTempoChanges",
                                  "clearThumbsUpOnThumbsDown",
                                  "tapTempoEnabled",
                                  "snapToStandardTempi",
                                  "autoSavedTempo"};
    // From the last key to the first, one more is missing or (those that may be) of a wrong type.
    QByteArray document = newSettings;
    for (auto key = order.crbegin(); key != order.crend(); ++key) {
        const bool mayBeMissing = key - order.crbegin() < 3;
        if (mayBeMissing)
            document.replace('"' + *key + "\":", '"' + *key + "\":3,\"x\":");
        else
            document = without(document, *key);
        const QByteArray expected = "place." + *key + (mayBeMissing ? ": expected boolean" : ": missing");
        expectRefusal<ExerciseSettings>(document, expected);
    }
    expectRefusal<ExerciseSettings>(QByteArray(newSettings)
                                        .replace("\"thumbsUpCounterEnabled\":false", "\"thumbsUpCounterEnabled\":0")
                                        .replace("\"tempo\":60", "\"tempo\":\"60\""),
                                    "place.tempo: expected integer");
}

TEST(JsonTest, DatesAreTheShortestNumbersThatReadBackTheSame) {
    const std::vector<std::pair<double, QByteArray>> table{
        {0, "0"},
        {-0.0, "-0"},
        {60, "60"},
        {-60, "-60"},
        {100000, "100000"},
        {731234567, "731234567"},
        {731234567.123456, "731234567.123456"},
        {0.1, "0.1"},
        {0.1 + 0.2, "0.30000000000000004"},
        {1.0 / 3, "0.3333333333333333"},
        {0.0001, "0.0001"},
        {0.00001, "1e-05"},
        {9007199254740993, "9007199254740992"},
        {18014398509481984, "18014398509481984"},
        {1e17, "1e+17"},
        {1.5e300, "1.5e+300"},
        {std::numeric_limits<double>::max(), "1.7976931348623157e+308"},
        {std::numeric_limits<double>::denorm_min(), "5e-324"},
    };
    for (const auto& [date, text] : table) {
        HistoryEvent event = someEvent;
        event.date = Date{date};
        expectDocument(event, eventWith("date", text));
    }
}

TEST(JsonTest, EveryFiniteDateSurvives) {
    std::mt19937_64 random(1);
    QList<Note> notes;
    while (notes.size() < 20000) {
        const auto date = std::bit_cast<double>(random());
        if (std::isfinite(date))
            notes += Note{Date{date}, someId, {}};
        notes += Note{Date{static_cast<double>(random() % 2'000'000'000'000) / 1000}, someId, {}};
    }
    const auto decoded = json::decode<QList<Note>>(*json::encode(notes));
    ASSERT_TRUE(decoded) << decoded.error().message.toStdString();
    ASSERT_EQ(decoded->size(), notes.size());
    for (qsizetype i = 0; i < notes.size(); ++i) {
        ASSERT_EQ(std::bit_cast<std::uint64_t>(decoded->at(i).date.secondsSinceReference),
                  std::bit_cast<std::uint64_t>(notes.at(i).date.secondsSinceReference));
    }
}

TEST(JsonTest, WhatIsNotFiniteHasNoDocument) {
    for (const double date : {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
                              -std::numeric_limits<double>::infinity()}) {
        HistoryEvent event = someEvent;
        event.date = Date{date};
        EXPECT_EQ(json::encode(event), std::nullopt);
        EXPECT_EQ(json::encode(QList<HistoryEvent>{someEvent, event}), std::nullopt);
        QByteArray document = "before";
        EXPECT_FALSE(json::append(document, event));
        EXPECT_EQ(document, "before");
    }
}

TEST(JsonTest, TextsAreEscapedWhereJsonWantsItAndUtf8Otherwise) {
    const std::vector<std::pair<QString, QByteArray>> table{
        {QString(), ""},
        {QStringLiteral("a\"b\\c/d"), R"(a\"b\\c/d)"},
        {QStringLiteral("\b\f\n\r\t"), R"(\b\f\n\r\t)"},
        {QString(QChar(0)) + QChar(1) + QChar(0x1F) + QChar(0x7F), "\\u0000\\u0001\\u001f\x7F"},
        {QStringLiteral("Étude"), "Étude"},
        {QString(QChar(0x7FF)) + QChar(0x800) + QChar(0xFFFF) + QChar(0x2028), "\u07FF\u0800\uFFFF\u2028"},
        {QStringLiteral("🎻 and 👩🏽‍🎤"), "🎻 and 👩🏽‍🎤"},
        {QStringLiteral("exactly eight and then\nmore of it"), R"(exactly eight and then\nmore of it)"},
    };
    for (const auto& [text, written] : table)
        expectDocument(Note{Date{60}, someId, text},
                       R"({"date":60,"id":")" + someIdText + R"(","value":")" + written + R"("})");
}

TEST(JsonTest, EveryCharacterSurvivesAtEveryPlaceOfAText) {
    QList<Exercise> exercises;
    for (char32_t code = 0; code <= 0x10FFFF; code += code < 0x300 ? 1 : 0x3F1) {
        if (code >= 0xD800 && code < 0xE000)
            continue;
        const QString character = QString::fromUcs4(&code, 1);
        const auto length = static_cast<qsizetype>(code % 19);
        exercises += Exercise{QString(length, QLatin1Char('x')) + character + QString(18 - length, QLatin1Char('y')),
                              SequentialUuids::numbered(1)};
    }
    const auto decoded = json::decode<QList<Exercise>>(*json::encode(exercises));
    ASSERT_TRUE(decoded) << decoded.error().message.toStdString();
    EXPECT_EQ(*decoded, exercises);
}

TEST(JsonTest, HalfACharacterIsReplaced) {
    const QChar high(0xD83C);
    const QChar low(0xDFBB);
    const QString halves = QString(low) + high + QLatin1Char('x') + high + high + low + high;
    const QString replaced = QStringLiteral("\uFFFD\uFFFDx\uFFFD🎻\uFFFD");
    EXPECT_EQ(*json::encode(Exercise{halves, someId}), *json::encode(Exercise{replaced, someId}));
    const auto decoded = json::decode<Exercise>(*json::encode(Exercise{halves, someId}));
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->name, replaced);
}

TEST(JsonTest, ReadsWhateverMeansTheSameToJson) {
    const QByteArray id = '"' + someIdText + '"';
    const std::vector<QByteArray> table{
        R"({"id":)" + id + R"(,"thumbsDown":4,"thumbsUp":3,"practiceTime":12,"exerciseName":"Scales","date":60})",
        " {\n\t\"date\" : 60.0e0 ,\r\"exerciseName\" : \"Scales\" , \"practiceTime\" : 12 , \"thumbsUp\" : 3 ,"
        "\"thumbsDown\" : 4 , \"id\" : " +
            id + " } \n",
        eventWith("id", "\"3f2504e0-4F89-41d3-9a0c-0305e82c3301\""),
        eventWith("id", "\"3F2504E0-4F89-41D3-9A0C-0305E82C330\\u0031\""),
        eventWith("exerciseName", "\"\\u0053c\\u0061les\""),
        eventWith("date", "6e1"),
        eventWith("practiceTime", "12.0"),
        eventWith("practiceTime", "1.2e1"),
        eventWith("practiceTime", "3, \"practice\\u0054ime\": 12"),
        eventWith("practiceTime",
                  "12, \"comment\": \"\\\"}\\u00e9\", \"more\": [1, [], {\"a\": {\"b\": null}}, -1.5e-3]"),
        eventWith("practiceTime", "12, \"\": true, \"no\\nne\": false, \"practice\": \"x\", \"practiceTimes\": 1"),
        eventWith("thumbsUp", "null, \"thumbsUp\": 3"),
    };
    for (const QByteArray& document : table) {
        const auto decoded = json::decode<HistoryEvent>(document, QStringLiteral("place"));
        ASSERT_TRUE(decoded) << document.constData() << decoded.error().message.toStdString();
        EXPECT_TRUE(*decoded == someEvent) << document.constData();
    }
}

TEST(JsonTest, ANullCountIsAnAbsentOneAndTheLastOfTwoCounts) {
    EXPECT_EQ(json::decode<HistoryEvent>(eventWith("thumbsUp", "null"))->thumbsUp, std::nullopt);
    EXPECT_EQ(json::decode<HistoryEvent>(eventWith("thumbsUp", "7, \"thumbsUp\": null"))->thumbsUp, std::nullopt);
    EXPECT_EQ(json::decode<HistoryEvent>(eventWith("thumbsUp", "7, \"thumbsUp\": 9"))->thumbsUp, 9);
    EXPECT_EQ(json::decode<HistoryEvent>(eventWith("practiceTime", "-0"))->practiceTime, 0);
    const auto settings = json::decode<ExerciseSettings>(
        QByteArray(newSettings).replace("\"bookmarks\":[]", "\"bookmarks\":[1,2],\"bookmarks\":[3]"));
    EXPECT_EQ(settings->bookmarks, QList<qint64>{3});
}

TEST(JsonTest, WholeNumbersReachToTheirLimits) {
    for (const auto& [text, number] :
         std::vector<std::pair<QByteArray, qint64>>{{"9223372036854775807", std::numeric_limits<qint64>::max()},
                                                    {"-9223372036854775808", std::numeric_limits<qint64>::min()},
                                                    {"9007199254740991.0", 9007199254740991}}) {
        const auto decoded = json::decode<HistoryEvent>(eventWith("practiceTime", text));
        ASSERT_TRUE(decoded) << text.constData();
        EXPECT_EQ(decoded->practiceTime, number);
        EXPECT_EQ(json::decode<HistoryEvent>(*json::encode(*decoded))->practiceTime, number);
    }
}

TEST(JsonTest, RefusesAnythingElseAndNamesThePlace) {
    struct Case {
        const char* key;
        const char* value;
        const char* message;
    };
    const std::vector<Case> table{
        {"practiceTime", "1.5", "place.practiceTime: expected integer"},
        {"practiceTime", "\"12\"", "place.practiceTime: expected integer"},
        {"practiceTime", "null", "place.practiceTime: expected integer"},
        {"practiceTime", "true", "place.practiceTime: expected integer"},
        {"practiceTime", "[12]", "place.practiceTime: expected integer"},
        {"practiceTime", "9223372036854775808", "place.practiceTime: expected integer"},
        {"practiceTime", "9007199254740993.0", "place.practiceTime: expected integer"},
        {"practiceTime", "012", "place.practiceTime: expected integer"},
        {"practiceTime", "+12", "place.practiceTime: expected integer"},
        {"practiceTime", "0x12", "place.practiceTime: expected integer"},
        {"practiceTime", "12 13", "place: malformed JSON"},
        {"practiceTime", "12,,\"x\":1", "place: malformed JSON"},
        {"practiceTime", "", "place: malformed JSON"},
        {"practiceTime", "12,\"practiceTime\":\"x\"", "place.practiceTime: expected integer"},
        {"practiceTime", "\"x\",\"practiceTime\":12", "place.practiceTime: expected integer"},
        {"thumbsUp", "3.5", "place.thumbsUp: expected integer"},
        {"thumbsUp", "nul", "place.thumbsUp: expected integer"},
        {"date", "\"60\"", "place.date: expected number"},
        {"date", "null", "place.date: expected number"},
        {"date", "NaN", "place.date: expected number"},
        {"date", "Infinity", "place.date: expected number"},
        {"date", "1e400", "place.date: expected number"},
        {"date", "-1e400", "place.date: expected number"},
        {"date", "1.", "place.date: expected number"},
        {"date", ".5", "place.date: expected number"},
        {"date", "1e", "place.date: expected number"},
        {"date", "-", "place.date: expected number"},
        {"exerciseName", "5", "place.exerciseName: expected string"},
        {"exerciseName", "null", "place.exerciseName: expected string"},
        {"exerciseName", "{}", "place.exerciseName: expected string"},
        {"exerciseName", "\"a\\x\"", "place.exerciseName: malformed JSON"},
        {"exerciseName", "\"a\\u12\"", "place.exerciseName: malformed JSON"},
        {"exerciseName", "\"\\ud83c\"", "place.exerciseName: malformed JSON"},
        {"exerciseName", "\"a\nb\"", "place: malformed JSON"},
        {"exerciseName", "\"a\xFF\"", "place: not UTF-8"},
        {"exerciseName", "\"\xED\xA0\xBC\"", "place: not UTF-8"},
        {"exerciseName", "\"\xC0\x80\"", "place: not UTF-8"},
        {"exerciseName", "'Scales'", "place.exerciseName: expected string"},
        {"id", "\"3F2504E0-4F89-41D3-9A0C-0305E82C330\"", "place.id: expected UUID"},
        {"id", "\"3F2504E0-4F89-41D3-9A0C-0305E82C33011\"", "place.id: expected UUID"},
        {"id", "\"3F2504E0-4F89-41D3-9A0C-0305E82C330G\"", "place.id: expected UUID"},
        {"id", "\"3F2504E0-4F89-41D3-9A0C0-305E82C3301\"", "place.id: expected UUID"},
        {"id", "\"{3F2504E0-4F89-41D3-9A0C-0305E82C330}\"", "place.id: expected UUID"},
        {"id", "\"3F2504E04F8941D39A0C0305E82C3301\"", "place.id: expected UUID"},
        {"id", "\"3F2504E0-4F89-41D3-9A0C-0305E82C33\\u00e9\"", "place.id: expected UUID"},
        {"id", "7", "place.id: expected UUID"},
        // What no record knows must be JSON too.
        {"practiceTime", "12,\"x\":tru", "place: malformed JSON"},
        {"practiceTime", "12,\"x\":nulll", "place: malformed JSON"},
        {"practiceTime", "12,\"x\":01", "place: malformed JSON"},
        {"practiceTime", "12,\"x\":1e999", "place: malformed JSON"},
        {"practiceTime", "12,\"x\":\"\\q\"", "place: malformed JSON"},
        {"practiceTime", "12,\"x\\q\":1", "place: malformed JSON"},
        {"practiceTime", "12,\"x\":[1 2]", "place: malformed JSON"},
        {"practiceTime", "12,\"x\":[1,]", "place: malformed JSON"},
        {"practiceTime", "12,\"x\":[1}", "place: malformed JSON"},
        {"practiceTime", "12,\"x\":{\"a\":1,}", "place: malformed JSON"},
        {"practiceTime", "12,\"x\":{\"a\" 1}", "place: malformed JSON"},
        {"practiceTime", "12,\"x\":{1:2}", "place: malformed JSON"},
        {"practiceTime", "12,\"x\"", "place: malformed JSON"},
        {"practiceTime", "12,x:1", "place: malformed JSON"},
        {"practiceTime", "12,\"x\":\"\xFE\"", "place: not UTF-8"},
        {"practiceTime", "12 /* minutes */", "place: malformed JSON"},
    };
    for (const auto& [key, value, message] : table)
        expectRefusal<HistoryEvent>(eventWith(key, value), message);
}

TEST(JsonTest, RefusesDocumentsOfAnotherShape) {
    const QByteArray event = eventWith("date", "60");
    expectRefusal<HistoryEvent>("", "place: empty document");
    expectRefusal<HistoryEvent>(" \n", "place: empty document");
    expectRefusal<HistoryEvent>("[]", "place: expected object");
    expectRefusal<HistoryEvent>("60", "place: expected object");
    expectRefusal<HistoryEvent>("{}", "place.date: missing");
    expectRefusal<HistoryEvent>(event + '}', "place: unexpected content behind the document");
    expectRefusal<HistoryEvent>(event + " 5", "place: malformed JSON");
    expectRefusal<HistoryEvent>(event + event, "place: unexpected content behind the document");
    expectRefusal<HistoryEvent>(event + '\0', "place: malformed JSON");
    expectRefusal<HistoryEvent>("\xEF\xBB\xBF" + event, "place: expected object");
    expectRefusal<QList<HistoryEvent>>("", "place: empty document");
    expectRefusal<QList<HistoryEvent>>(event, "place: expected array");
    expectRefusal<QList<HistoryEvent>>("null", "place: expected array");
    expectRefusal<QList<HistoryEvent>>("[null]", "place[0]: expected object");
    expectRefusal<QList<HistoryEvent>>('[' + event + ",]", "place[1]: expected object");
    expectRefusal<QList<HistoryEvent>>('[' + event + "][]", "place: unexpected content behind the document");
    expectRefusal<QList<HistoryEvent>>('[' + event + ' ' + event + ']', "place[1]: malformed JSON");
    expectRefusal<QList<HistoryEvent>>('[' + event + ",{\"date\":60}]", "place[1].exerciseName: missing");
    expectRefusal<ExerciseSettings>(QByteArray(newSettings).replace("[]", "[1,2,true]"),
                                    "place.bookmarks[2]: expected integer");
    expectRefusal<ExerciseSettings>(QByteArray(newSettings).replace("[]", "{}"), "place.bookmarks: expected array");

    EXPECT_EQ(json::decode<HistoryEvent>("{}").error().message, QStringLiteral("date: missing"));
    EXPECT_EQ(json::decode<HistoryEvent>("").error().message, QStringLiteral("empty document"));
}

TEST(JsonTest, EveryTruncationOfADocumentIsRefused) {
    const QByteArray document = *json::encode(QList<HistoryEvent>{someEvent, someEvent});
    for (qsizetype length = 0; length < document.size(); ++length)
        EXPECT_NE(refusal<QList<HistoryEvent>>(document.left(length)), QStringLiteral("accepted")) << length;
}

TEST(JsonTest, ASessionTypeIsOneKeyWithAnObject) {
    const auto session = [](const QByteArray& type) {
        return R"([{"date":0,"exercise":{"name":"","id":")" + someIdText + R"("},"seconds":3,"type":)" + type + "}]";
    };
    const std::vector<std::pair<QByteArray, SessionType>> accepted{
        {R"({"timer":{}})", SessionType::timer},
        {R"({"stopwatch":{"later":[1]}})", SessionType::stopwatch},
        {R"({"t\u0069mer":{}})", SessionType::timer},
    };
    for (const auto& [text, type] : accepted) {
        const auto decoded = json::decode<QList<PracticeSession>>(session(text));
        ASSERT_TRUE(decoded) << text.constData() << decoded.error().message.toStdString();
        EXPECT_EQ(decoded->first().type, type);
    }
    const char* wrongCount = "place[0].type: Invalid number of keys found, expected one.";
    const std::vector<std::pair<QByteArray, const char*>> refused{
        {"{}", wrongCount},
        {R"({"timer":{},"stopwatch":{}})", wrongCount},
        {R"({"timer":{},"timer":{}})", wrongCount},
        {R"({"timer":{},"x":5})", wrongCount},
        {R"({"metronome":{}})", "place[0].type: unknown case"},
        {R"({"Timer":{}})", "place[0].type: unknown case"},
        {R"({"timer":null})", "place[0].type.timer: expected object"},
        {R"({"timer":[]})", "place[0].type.timer: expected object"},
        {"\"timer\"", "place[0].type: expected object"},
        {"0", "place[0].type: expected object"},
        {R"({"timer":{"x":tru}})", "place[0].type: malformed JSON"},
    };
    for (const auto& [type, message] : refused)
        expectRefusal<QList<PracticeSession>>(session(type), message);
    expectRefusal<QList<PracticeSession>>(session(R"({"timer":{}})").replace("\"name\":\"\"", "\"name\":5"),
                                          "place[0].exercise.name: expected string");
}

TEST(JsonTest, PayloadFreeEnumerationsAreDocumentsOfTheirOwn) {
    EXPECT_EQ(json::encodeCase(QLatin1String("name")), "{\"name\":{}}");
    const auto decode = [](const QByteArray& document) {
        return json::decodeCase(document, {QLatin1String("name"), QLatin1String("practiceTime")},
                                QStringLiteral("sortOrder"));
    };
    EXPECT_EQ(*decode("{\"name\":{}}"), 0);
    EXPECT_EQ(*decode("{\"practiceTime\":{}}"), 1);
    for (const char* document : {"{}", "{\"name\":{},\"practiceTime\":{}}"})
        EXPECT_EQ(decode(document).error().message,
                  QStringLiteral("sortOrder: Invalid number of keys found, expected one."));
    EXPECT_EQ(decode("{\"other\":{}}").error().message, QStringLiteral("sortOrder: unknown case"));
    EXPECT_EQ(decode("{\"name\":{}} x").error().message, QStringLiteral("sortOrder: malformed JSON"));
    EXPECT_FALSE(decode("3"));
}

TEST(JsonTest, ABareNumberIsADocument) {
    expectDocument(qint64(30), "30");
    expectDocument(std::numeric_limits<qint64>::min(), "-9223372036854775808");
    EXPECT_EQ(*json::decode<qint64>(" 3.0e1 "), 30);
    for (const char* document : {"30.5", "\"30\"", "[30]", "3000000000000000000000000", "null"})
        expectRefusal<qint64>(document, "place: expected integer");
    for (const char* document : {"30 30", "30]"})
        expectRefusal<qint64>(document, "place: unexpected content behind the document");
    expectRefusal<qint64>("", "place: empty document");
}

TEST(JsonTest, AppendingToADocumentThatIsThereGivesTheWholeList) {
    const QList<HistoryEvent> events = manyEvents(50);
    QByteArray document = "[";
    for (const HistoryEvent& event : events) {
        if (document.size() > 1)
            document += ',';
        ASSERT_TRUE(json::append(document, event));
    }
    const QByteArray snapshot = document; // what is shared is left alone
    EXPECT_EQ(document + ']', *json::encode(events));
    ASSERT_TRUE(json::append(document, someEvent));
    EXPECT_EQ(snapshot, document.left(snapshot.size()));
    EXPECT_EQ(document.mid(snapshot.size()), *json::encode(someEvent));
}

TEST(JsonTest, NamesThatRepeatAreStoredOnce) {
    const QList<HistoryEvent> events = manyEvents(3000);
    const auto decoded = json::decode<QList<HistoryEvent>>(*json::encode(events));
    ASSERT_TRUE(decoded);
    QHash<QString, const QChar*> storage;
    for (const HistoryEvent& event : *decoded) {
        if (event.exerciseName.size() > 100)
            continue; // long texts are not looked up
        const QChar*& known = storage[event.exerciseName];
        EXPECT_TRUE(known == nullptr || known == event.exerciseName.constData());
        known = event.exerciseName.constData();
    }
    EXPECT_EQ(storage.size(), 4);
}

TEST(JsonTest, MoreNamesThanAreRememberedStayThemselves) {
    QList<Exercise> exercises;
    for (int i = 0; i < 30000; ++i)
        exercises += Exercise{QStringLiteral("Exercise number ") + QString::number(i * 7919 % 20011), someId};
    const auto decoded = json::decode<QList<Exercise>>(*json::encode(exercises));
    ASSERT_TRUE(decoded);
    EXPECT_EQ(*decoded, exercises);
}

TEST(JsonTest, ALongListIsReadWhole) {
    const QList<HistoryEvent> events = manyEvents(20000);
    const QByteArray document = *json::encode(events);
    ASSERT_GT(document.size(), 8 * json::ListWindows::usualSize);
    const auto decoded = json::decode<QList<HistoryEvent>>(document);
    ASSERT_TRUE(decoded) << decoded.error().message.toStdString();
    EXPECT_TRUE(*decoded == events);

    // As another program may have written it.
    const QByteArray indented = QJsonDocument::fromJson(document).toJson();
    const auto again = json::decode<QList<HistoryEvent>>(indented);
    ASSERT_TRUE(again) << again.error().message.toStdString();
    EXPECT_TRUE(*again == events);
}

TEST(JsonTest, FaultsFarIntoALongListAreNamedByTheirPlace) {
    const QList<HistoryEvent> events = manyEvents(20000);
    QByteArray document = "[";
    for (qsizetype i = 0; i < events.size(); ++i)
        document += *json::encode(events.at(i)) + ",\n";
    const qsizetype end = document.size() - 2;
    document = document.left(end) + ']';
    ASSERT_TRUE(json::decode<QList<HistoryEvent>>(document));

    qsizetype place = 0;
    for (qsizetype i = 0; i < 15432; ++i)
        place = document.indexOf('\n', place) + 1;
    const auto with = [&document, place](const QByteArray& before, const QByteArray& after) {
        QByteArray changed = document;
        return changed.replace(document.indexOf(before, place), before.size(), after);
    };
    const auto expect = [](const QByteArray& changed, const char* message) {
        expectRefusal<QList<HistoryEvent>>(changed, message);
    };
    expect(with("\"practiceTime\":", "\"practiceTime\":0.5,\"x\":"), "place[15432].practiceTime: expected integer");
    expect(with("\"id\":", "\"ID\":"), "place[15432].id: missing");
    expect(with("\n", " "), "accepted");
    expect(with("},\n{", "} {"), "place[15433]: malformed JSON");
    expect(with("Scales", "Sc\xFFles"), "place: not UTF-8");
    // A text without an end turns all that follows inside out.
    EXPECT_NE(refusal<QList<HistoryEvent>>(with("\"practiceTime\":", "\"practiceTime\":\"")),
              QStringLiteral("accepted"));
    for (const qsizetype length : {place, place + 1, place + 30, document.size() / 3, end, document.size() - 1})
        EXPECT_NE(refusal<QList<HistoryEvent>>(document.left(length)), QStringLiteral("accepted")) << length;
}

TEST(JsonTest, ListsWithinARecordDoNotMisleadTheCuts) {
    // Nested lists of objects, with all that a cut looks for, longer than what is read at a time.
    QByteArray nested = "[";
    while (nested.size() < 3 * json::ListWindows::usualSize)
        nested += "{\"a\":1},{\"b\":[{},{}]},";
    nested = nested.left(nested.size() - 1) + ']';
    QByteArray document = "[";
    for (int i = 0; i < 9; ++i)
        document += eventWith("practiceTime", QByteArray::number(i) + ",\"x\":" + nested) + ',';
    document = document.left(document.size() - 1) + ']';
    const auto decoded = json::decode<QList<HistoryEvent>>(document);
    ASSERT_TRUE(decoded) << decoded.error().message.toStdString();
    ASSERT_EQ(decoded->size(), 9);
    for (qint64 i = 0; i < 9; ++i)
        EXPECT_EQ(decoded->at(i).practiceTime, i);
}

TEST(JsonTest, AbsurdNestingIsRefused) {
    constexpr qsizetype size = 100'000'000;
    const QByteArray flood(size, '[');
    EXPECT_NE(refusal<QList<HistoryEvent>>(flood), QStringLiteral("accepted"));
    expectRefusal<HistoryEvent>(flood, "place: nested too deeply");
    expectRefusal<HistoryEvent>("{\"x\":" + flood, "place: nested too deeply");
    EXPECT_NE(refusal<QList<HistoryEvent>>("[{\"x\":" + flood), QStringLiteral("accepted"));
    EXPECT_NE(refusal<QList<HistoryEvent>>('[' + QByteArray("{\"a\":").repeated(size / 5)), QStringLiteral("accepted"));

    // Balanced, and therefore JSON, but of no use.
    const auto nested = [](qsizetype depth) {
        return eventWith("practiceTime", "12,\"x\":" + QByteArray(depth, '[') + QByteArray(depth, ']'));
    };
    EXPECT_TRUE(json::decode<HistoryEvent>(nested(90)));
    expectRefusal<HistoryEvent>(nested(10000), "place: nested too deeply");
    expectRefusal<HistoryEvent>(nested(1'000'000), "place: nested too deeply");
    expectRefusal<QList<HistoryEvent>>('[' + nested(1000) + ']', "place[0]: nested too deeply");
    // Brackets in a text nest nothing.
    EXPECT_TRUE(
        json::decode<Exercise>(R"({"name":")" + QByteArray(200'000, '[') + R"(\"[","id":")" + someIdText + R"("})"));
}

TEST(JsonTest, RecordsNestInALargerDocument) {
    const Exercise scales{QStringLiteral("Scales"), someId};
    const Note note{Date{60}, someId, QStringLiteral("slower")};
    const QByteArray exercise = *json::encode(scales);
    const QByteArray notes = *json::encode(QList<Note>{note, note});
    expectDocument(Collection{}, R"({"exercises":[],"notes":[]})");
    expectDocument(Collection{{scales}, {{scales, {note, note}}, {scales, {}}}},
                   R"({"exercises":[)" + exercise + R"(],"notes":[)" + exercise + ',' + notes + ',' + exercise +
                       R"(,[]]})");
    expectRefusal<Collection>(R"({"exercises":[)" + exercise + R"(]})", "place.notes: missing");
    expectRefusal<Collection>(R"({"exercises":[],"notes":[)" + exercise + "]}",
                              "place.notes: expected an even number of elements");
    expectRefusal<Collection>(R"({"exercises":[],"notes":[)" + exercise + ',' + exercise + "]}",
                              "place.notes[1]: expected array");
    expectRefusal<Collection>(R"({"exercises":[],"notes":[)" + exercise + ',' +
                                  QByteArray(notes).replace("\"value\"", "\"text\"") + "]}",
                              "place.notes[1][0].value: missing");
}

// Whatever happens to a document: no crash, and nothing is taken for JSON that an independent reader refuses.
TEST(JsonTest, DamagedDocumentsAreRefusedOrStillJson) {
    const QList<QByteArray> pieces{"{", "}",    "[",   "]",    ",",    ":",  "\"",   "\\", "\\u",    "0",   "-", "1e5",
                                   ".", "null", "tru", "\xC3", "\xF0", "\n", "\\\"", "{}", "\"x\":", "},{", "\0"};
    const QByteArray original =
        *json::encode(QList<HistoryEvent>{someEvent, manyEvents(3).at(1), manyEvents(3).at(2), someEvent});
    std::mt19937 random(99);
    int accepted = 0;
    for (int round = 0; round < 30000; ++round) {
        QByteArray document = original;
        for (unsigned change = 0; change <= random() % 3; ++change) {
            const auto at = static_cast<qsizetype>(random() % static_cast<unsigned>(document.size()));
            const QByteArray& piece =
                pieces.at(static_cast<qsizetype>(random() % static_cast<unsigned>(pieces.size())));
            const auto removed = static_cast<qsizetype>(random() % 4);
            document.replace(at, removed, random() % 3 == 0 ? QByteArray() : piece);
        }
        const auto decoded = json::decode<QList<HistoryEvent>>(document);
        if (!decoded)
            continue;
        ++accepted;
        QJsonParseError error;
        QJsonDocument::fromJson(document, &error);
        EXPECT_EQ(error.error, QJsonParseError::NoError) << document.constData();
        EXPECT_TRUE(*json::decode<QList<HistoryEvent>>(*json::encode(*decoded)) == *decoded);
    }
    EXPECT_GT(accepted, 100);
}

TEST(ListWindowsTest, WindowsHoldTheWholeListBetweenTheirBrackets) {
    const QByteArray list = R"( [{"a":1} , {"b":[{},{}]},{"c":"},{"},
        {} ,{"d":{}}] )";
    for (qsizetype size = 1; size < list.size() + 2; ++size) {
        json::ListWindows windows(list, size);
        QByteArray joined;
        for (bool isFirst = true;; isFirst = false) {
            std::string_view text = windows.text();
            ASSERT_GE(static_cast<qsizetype>(text.size()), std::min<qsizetype>(size, 3));
            EXPECT_EQ(text.data()[text.size()], '\0');
            if (!isFirst) {
                EXPECT_EQ(text.front(), '[');
                text.remove_prefix(1);
                joined += ',';
            }
            if (!windows.isLast()) {
                EXPECT_EQ(text.back(), ']');
                text.remove_suffix(1);
            }
            joined.append(text.data(), static_cast<qsizetype>(text.size()));
            if (windows.isLast())
                break;
            windows.next();
        }
        EXPECT_EQ(joined, list) << size;
    }
}

TEST(ListWindowsTest, AWindowGrowsUntilItIsTheRest) {
    const QByteArray list = '[' + QByteArray("{\"a\":1},").repeated(1000) + "{}]";
    json::ListWindows windows(list, 20);
    qsizetype before = windows.size();
    while (windows.enlarge()) {
        EXPECT_TRUE(windows.isLast() || windows.size() >= 2 * before);
        before = windows.size();
    }
    EXPECT_TRUE(windows.isLast());
    EXPECT_EQ(windows.size(), list.size());
}

TEST(ListWindowsTest, WithoutACutNearEnoughThereIsNoWindow) {
    const QByteArray list = "[{\"a\":\"" + QByteArray(json::ListWindows::longestSize, 'x') + "\"},{}]";
    json::ListWindows windows(list);
    EXPECT_EQ(windows.size(), 0);
    EXPECT_FALSE(windows.isLast());
    EXPECT_FALSE(windows.enlarge());
    EXPECT_TRUE(windows.text().empty());
}

} // namespace
} // namespace tamsel
