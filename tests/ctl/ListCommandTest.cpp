#include "ctl/ListCommand.h"

#include "tests/reports/Journal.h"
#include "tests/support/LogCapture.h"
#include "tests/support/UsEnglish.h"

#include <gtest/gtest.h>

namespace tamsel {
namespace {

class ListCommandTest : public testing::Test {
protected:
    static void SetUpTestSuite() { test::speakUsEnglish(); }

    ctl::Answer answer(ctl::Understand command, const QStringList& words) {
        const ctl::Answer given = ctl::answer(command, words, *journal.singletons, journal.platform);
        journal.mainQueue.runDue();
        return given;
    }

    test::Journal journal;
    const test::LogCapture console;
};

TEST_F(ListCommandTest, TheListShowsWhatItsScreenShows) {
    Singletons& stores = *journal.singletons;
    stores.exercises.setItems({});
    const QString names[] = {QStringLiteral("Étude 10"), QStringLiteral("Étude 9"), QStringLiteral("Scales"),
                             QStringLiteral("Old \"song\"")};
    for (const QString& name : names)
        stores.exercises.add(name);
    const QList<Exercise> items = stores.exercises.items();
    stores.exercises.archive(items.first());
    journal.add(3 * test::Journal::day, "Étude 10", 40);
    journal.add(20 * test::Journal::day, "Étude 9", 65);
    stores.history.record(*PracticeSession::make(journal.clock.now(), items.at(1), 90, SessionType::stopwatch));

    struct Case {
        QStringList words;
        const char* output;
    };
    const QString json = QStringLiteral("--json");
    const Case cases[] = {
        {{json},
         R"({"dailyLog":[{"exercise":"Scales","seconds":90,"type":"stopwatch"}],)"
         R"("exercises":[{"name":"Étude 9","lastPracticed":"2024-02-23","practiceMinutes":0},)"
         R"({"name":"Étude 10","lastPracticed":"2024-03-11","practiceMinutes":40}],)"
         R"("archive":[{"name":"Old \"song\""}]})"},
        {{json, QStringLiteral("--sort"), QStringLiteral("practiceTime"), QStringLiteral("--range"),
          QStringLiteral("last90Days"), QStringLiteral("--search"), QStringLiteral("ÉTUDE")},
         R"({"dailyLog":[],"exercises":[{"name":"Étude 9","lastPracticed":"2024-02-23","practiceMinutes":65},)"
         R"({"name":"Étude 10","lastPracticed":"2024-03-11","practiceMinutes":40}],"archive":[]})"},
        {{QStringLiteral("--sort"), QStringLiteral("practiceRecency")},
         "Mar 14 2024 1m\n  Scales: 1m, Stopwatch\nItems\n  Étude 10, Mar 11 2024, 40m\n  Étude 9, Feb 23 2024\n"
         "Archive\n  Old \"song\""},
    };
    for (const Case& test : cases) {
        const ctl::Answer given = answer(ctl::askedList, test.words);
        EXPECT_EQ(given.code, ctl::exitDone);
        EXPECT_EQ(given.text, QString::fromUtf8(test.output) + QLatin1Char('\n')) << given.text.toStdString();
    }
    EXPECT_EQ(answer(ctl::askedLog, {json}).text,
              QStringLiteral("{\"title\":\"Mar 14 2024 1m\",\"rows\":[{\"exercise\":\"Scales\",\"seconds\":90,"
                             "\"type\":\"stopwatch\"}]}\n"));
}

TEST_F(ListCommandTest, NothingIsShownWhereNothingIs) {
    journal.singletons->exercises.setItems({});
    EXPECT_EQ(answer(ctl::askedList, {}).text, QStringLiteral("No items.\n"));
    EXPECT_EQ(answer(ctl::askedList, {QStringLiteral("--json")}).text,
              QStringLiteral("{\"dailyLog\":[],\"exercises\":[],\"archive\":[]}\n"));
    EXPECT_EQ(answer(ctl::askedLog, {}).text, QStringLiteral("Nothing recorded.\n"));
    EXPECT_EQ(answer(ctl::askedLog, {QStringLiteral("--json")}).text, QStringLiteral("{\"title\":\"\",\"rows\":[]}\n"));
}

TEST_F(ListCommandTest, WrongWordsAreToldWhatWouldBeRight) {
    struct Case {
        ctl::Understand command;
        QStringList words;
        const char* hint;
    };
    const Case cases[] = {
        {ctl::askedList, {QStringLiteral("--sort"), QStringLiteral("length")}, "name, practiceRecency or practiceTime"},
        {ctl::askedList, {QStringLiteral("--range"), QStringLiteral("7")}, "last7Days"},
        {ctl::askedList, {QStringLiteral("scales")}, "unexpected argument: scales"},
        {ctl::askedLog, {QStringLiteral("--search"), QStringLiteral("a")}, "search"},
    };
    for (const Case& test : cases) {
        const ctl::Answer given = answer(test.command, test.words);
        EXPECT_EQ(given.code, ctl::exitUsage);
        EXPECT_TRUE(given.text.contains(QLatin1String(test.hint))) << given.text.toStdString();
    }
}

} // namespace
} // namespace tamsel
