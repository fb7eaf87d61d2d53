#include "ctl/ReportCommand.h"

#include "model/SettingsKeys.h"
#include "model/SqliteSettingsStore.h"
#include "tests/ctl/Tamselctl.h"
#include "tests/reports/Journal.h"
#include "tests/support/LogCapture.h"
#include "tests/support/UsEnglish.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tamsel {
namespace {

using test::tamselctl;

constexpr double day = test::Journal::day;

class ReportCommandTest : public testing::Test {
protected:
    static void SetUpTestSuite() { test::speakUsEnglish(); }

    ctl::Answer answer(const char* words) {
        return ctl::answer(ctl::askedReport, QString::fromUtf8(words).split(QLatin1Char(' '), Qt::SkipEmptyParts),
                           *journal.singletons, journal.platform);
    }

    test::Journal journal;
    const test::LogCapture console;
};

TEST_F(ReportCommandTest, EveryReportSaysWhatItsScreenShows) {
    journal.add(60, "Scales", 65);
    journal.add(2 * day, "Étude \"9\"", 5);
    journal.add(2 * day, "Scales", 3);
    QList<HistoryEvent> events = journal.history().events();
    events[1].thumbsUp = 3;
    events[1].thumbsDown = 1;
    journal.history().setEvents(events);
    struct Case {
        const char* words;
        const char* output;
    };
    const Case cases[] = {
        {"ranges --json", R"(["7 days","30 days","12 months"])"},
        {"ranges", "7 days\n30 days\n12 months"},
        {"practice-time --json --range last7Days",
         R"({"range":"last7Days","subtitle":"Over the last week you've practiced","total":"1 hour, 13 minutes",)"
         R"("totalMinutes":73,"practiceDays":{"days7":2,"days30":2,"days365":2,"allTime":2},)"
         R"("average":24.333333333333332,"rows":[{"date":"2024-03-14","title":"03/14/24: 1h 5m","minutes":65},)"
         R"({"date":"2024-03-13","title":"03/13/24: 0m","minutes":0},)"
         R"({"date":"2024-03-12","title":"03/12/24: 8m","minutes":8},)"
         R"({"date":"2024-03-11","title":"03/11/24: 0m","minutes":0},)"
         R"({"date":"2024-03-10","title":"03/10/24: 0m","minutes":0},)"
         R"({"date":"2024-03-09","title":"03/09/24: 0m","minutes":0},)"
         R"({"date":"2024-03-08","title":"03/08/24: 0m","minutes":0}]})"},
        {"practice-time --json --range allMonths --exercise Scales",
         R"({"range":"allMonths","subtitle":"In total, you've practiced","total":"1 hour, 8 minutes",)"
         R"("totalMinutes":68,"practiceDays":{"days7":2,"days30":2,"days365":2,"allTime":2},"average":68,)"
         R"("rows":[{"date":"2024-03","title":"Mar 2024: 1h 8m","minutes":68}]})"},
        {"top --json --range last30Days",
         R"({"range":"last30Days","overview":[{"exercise":"Scales","minutes":68},{"exercise":"Étude \"9\"","minutes":5}],)"
         R"("detail":[{"exercise":"Scales","minutes":68},{"exercise":"Étude \"9\"","minutes":5}]})"},
        {"top --json --range allMonths",
         R"({"range":"allMonths","overview":[],)"
         R"("detail":[{"exercise":"Scales","minutes":68},{"exercise":"Étude \"9\"","minutes":5}]})"},
        {"top --range last7Days", "You most practiced Scales\n\nScales: 1h 8m\nÉtude \"9\": 5m"},
        {"month 2024-03 --json",
         R"({"mode":"multipleExercises","sections":[{"title":"3/14/24: 1h 5m","rows":[{"exercise":"Scales","minutes":65}]},)"
         R"({"title":"3/12/24: 8m","rows":[{"exercise":"Étude \"9\"","minutes":5},{"exercise":"Scales","minutes":3}]}]})"},
        {"month 2024-03", "March 2024\n3/14/24: 1h 5m\n  Scales: 1h 5m\n3/12/24: 8m\n  Étude \"9\": 5m\n  Scales: 3m"},
        {"month 2024-02 --json", R"({"mode":"singleExercise","rows":[]})"},
        {"day 2024-03-12 --json",
         R"({"rows":[{"title":"Étude \"9\", 5m","detail":"👍 3 👎 1"},{"title":"Scales, 3m","detail":""}]})"},
        {"day 2024-03-12", "Étude \"9\", 5m 👍 3 👎 1\nScales, 3m"},
        {"day 1999-12-31", "Nothing recorded."},
    };
    for (const Case& test : cases) {
        const ctl::Answer given = answer(test.words);
        EXPECT_EQ(given.code, ctl::exitDone) << test.words;
        EXPECT_EQ(given.text, QString::fromUtf8(test.output) + QLatin1Char('\n')) << given.text.toStdString();
    }
    EXPECT_TRUE(answer("practice-time --range last7Days")
                    .text.endsWith(QStringLiteral("Days with practice: 2 in 7 days, 2 in 30 days, 2 in 365 days, 2 in "
                                                  "all\nAverage: 24 minutes\n")));
}

TEST_F(ReportCommandTest, WrongWordsAreToldWhatWouldBeRight) {
    struct Case {
        const char* words;
        const char* hint;
    };
    for (const Case& test :
         {Case{"", "practice-time, top, month YYYY-MM, day YYYY-MM-DD or ranges"},
          Case{"yearly", "practice-time, top, month YYYY-MM, day YYYY-MM-DD or ranges"},
          Case{"practice-time", "last7Days, last30Days, last90Days, last12Months, allMonths"},
          Case{"top --range 7", "last7Days, last30Days, last90Days, last12Months, allMonths"},
          Case{"top --range last7Days --exercise A", "--exercise does not go with report top"},
          Case{"top --range last7Days more", "unexpected argument: more"}, Case{"month", "YYYY-MM"},
          Case{"month 2024-13", "YYYY-MM"}, Case{"month 2024-3", "YYYY-MM"}, Case{"day 2023-02-29", "YYYY-MM-DD"},
          Case{"day 2024-03", "YYYY-MM-DD"}, Case{"day 2024-03-14 --range last7Days", "--range does not go"},
          Case{"ranges --weekly", "weekly"}}) {
        const ctl::Answer given = answer(test.words);
        EXPECT_EQ(given.code, ctl::exitUsage) << test.words;
        EXPECT_TRUE(given.text.contains(QLatin1String(test.hint))) << given.text.toStdString();
        EXPECT_FALSE(given.text.contains(QLatin1Char('\n')));
    }
}

TEST_F(ReportCommandTest, TheProgramReadsAndLeavesTheDataAsItIs) {
    const QTemporaryDir home;
    const QStringList ranges = {QStringLiteral("report"), QStringLiteral("ranges"), QStringLiteral("--json")};
    const QStringList allMonths = {QStringLiteral("report"), QStringLiteral("practice-time"), QStringLiteral("--range"),
                                   QStringLiteral("allMonths"), QStringLiteral("--json")};
    const auto here = [&home](const QStringList& arguments, const char* zone = "UTC",
                              const char* language = "C.UTF-8") {
        return tamselctl(arguments, {{QStringLiteral("XDG_DATA_HOME"), home.path()},
                                     {QStringLiteral("TZ"), QString::fromLatin1(zone)},
                                     {QStringLiteral("LC_ALL"), QString()},
                                     {QStringLiteral("LC_MESSAGES"), QString()},
                                     {QStringLiteral("LANG"), QString::fromLatin1(language)}});
    };
    EXPECT_EQ(here(ranges).output, QByteArray("[\"7 days\",\"30 days\",\"12 months\"]\n"));
    EXPECT_FALSE(QFile::exists(home.filePath(QStringLiteral("tamsel")))) << "nothing is made where nothing is";

    const QString folder = home.filePath(QStringLiteral("tamsel"));
    QFile empty(SqliteSettingsStore::filePath(folder));
    ASSERT_TRUE(QDir().mkpath(folder) && empty.open(QIODevice::WriteOnly));
    EXPECT_EQ(here(ranges).exitCode, 0);
    EXPECT_EQ(empty.size(), 0) << "nor out of an empty file";
    {
        const auto opened = SqliteSettingsStore::open(folder);
        // 2001-01-01 00:30 UTC.
        opened.store->setData(keys::historyEvents, R"([{"date":1800,"exerciseName":"A","practiceTime":1,)"
                                                   R"("id":"3F2504E0-4F89-41D3-9A0C-0305E82C3301"}])");
    }
    const auto bytes = [&folder] {
        QFile file(SqliteSettingsStore::filePath(folder));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    const QByteArray before = bytes();
    EXPECT_TRUE(here(ranges).output.contains("All months"));
    const QByteArray utc = here(allMonths).output;
    EXPECT_TRUE(utc.endsWith("{\"date\":\"2001-01\",\"title\":\"Jan 2001: 1m\",\"minutes\":1}]}\n"))
        << utc.right(200).toStdString();
    EXPECT_TRUE(here(allMonths, "America/New_York").output.contains("\"date\":\"2000-12\"")) << "it follows TZ";
    EXPECT_TRUE(here(allMonths, "UTC", "de_DE.UTF-8").output.contains("\"total\":\"1 Minute\"")) << "and LANG";
    // Clocks behind those of UTC by more than half an hour, as GNU date shows for each.
    for (const char* const zone : {":America/New_York", "/usr/share/zoneinfo/America/New_York",
                                   "EST5EDT,M3.2.0,M11.1.0", "UTC+1", "<-0031>0:31"}) {
        EXPECT_EQ(here({QStringLiteral("report"), QStringLiteral("day"), QStringLiteral("2000-12-31")}, zone).output,
                  QByteArray("A, 1m\n"))
            << zone;
    }
    const auto list = here({QStringLiteral("list"), QStringLiteral("--sort"), QStringLiteral("practiceTime")});
    EXPECT_EQ(list.output, QByteArray("No items.\n")) << list.errors.toStdString();
    EXPECT_EQ(here({QStringLiteral("log")}).output, QByteArray("Nothing recorded.\n"));
    EXPECT_EQ(bytes(), before) << "the order asked for is not kept, nor is anything else";

    const auto wrong = here({QStringLiteral("report"), QStringLiteral("day"), QStringLiteral("today")});
    EXPECT_EQ(wrong.exitCode, 2);
    EXPECT_EQ(wrong.errors.count('\n'), 1) << wrong.errors.toStdString();
    EXPECT_EQ(wrong.output, QByteArray());
    SqliteSettingsStore::open(folder).store->setData(keys::historyEvents, "[{}]");
    const auto damaged = here(ranges);
    EXPECT_EQ(damaged.exitCode, 1);
    EXPECT_EQ(damaged.errors.count('\n'), 1) << damaged.errors.toStdString();
    EXPECT_EQ(here({QStringLiteral("report"), QStringLiteral("day")}).exitCode, 2) << "that takes no data";
    EXPECT_TRUE(here({QStringLiteral("list"), QStringLiteral("--help")}).output.contains("--sort"));
}

} // namespace
} // namespace tamsel
