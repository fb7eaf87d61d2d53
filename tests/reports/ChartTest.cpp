#include "reports/ChartBuilder.h"
#include "reports/ReportData.h"
#include "tests/reports/Journal.h"
#include "tests/support/UsEnglish.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tamsel {
namespace {

constexpr double day = test::Journal::day;

class ChartTest : public testing::Test {
protected:
    static void SetUpTestSuite() { test::speakUsEnglish(); }

    ChartContent chart(TimeRange range) {
        return buildChart(sessionsReports(journal.history(), range, journal.platform), range, journal.calendar, colors);
    }
    static QString texts(const QList<ChartMark>& marks) {
        QStringList texts;
        for (const ChartMark& mark : marks)
            texts += mark.text;
        return texts.join(QLatin1Char(' '));
    }

    test::Journal journal;
    ItemColors colors{journal.history()};
};

TEST_F(ChartTest, TheValueAxisFitsFromMinutesToHundredsOfHours) {
    struct Case {
        qint64 minutes;
        const char* marks;
    };
    for (const Case& test : {Case{0, "0 15m"}, Case{1, "0 1m"}, Case{3, "0 1m 2m 3m"}, Case{5, "0 2m 4m 6m"},
                             Case{45, "0 15m 30m 45m"}, Case{61, "0 20m 40m 1h 1h 20m"}, Case{240, "0 1h 2h 3h 4h"},
                             Case{241, "0 2h 4h 6h"}, Case{1440, "0 10h 20h 30h"}, Case{18000, "0 100h 200h 300h"},
                             Case{1'000'000, "0 5,000h 10,000h 15,000h 20,000h"}}) {
        test::Journal own;
        if (test.minutes > 0)
            own.add(60, "A", test.minutes);
        ItemColors ownColors{own.history()};
        const ChartContent content = buildChart(sessionsReports(own.history(), TimeRange::last7Days, own.platform),
                                                TimeRange::last7Days, own.calendar, ownColors);
        EXPECT_EQ(texts(content.valueMarks), QLatin1String(test.marks)) << test.minutes;
        EXPECT_EQ(content.valueMarks.last().position, 1);
        EXPECT_LE(content.bars.last().height, 1);
        EXPECT_EQ(content.bars.last().height > 0, test.minutes > 0);
    }
}

TEST_F(ChartTest, DistancesAreEnoughAndNotTooManyForAnyHeight) {
    for (double exact = 1; exact < 9e18; exact *= 1.37) {
        const auto minutes = static_cast<qint64>(exact);
        const qint64 distance = markDistance(minutes);
        EXPECT_GE(static_cast<double>(distance) * 4, static_cast<double>(minutes) - 4);
        EXPECT_TRUE(minutes < 4 || static_cast<double>(distance) < static_cast<double>(minutes)) << minutes;
    }
}

TEST_F(ChartTest, TimeRunsFromLeftToRight) {
    journal.add(900 * day, "A", 10);
    struct Case {
        TimeRange range;
        const char* title;
        const char* marks;
        const char* firstBar;
        const char* lastBar;
    };
    for (const Case& test : {Case{TimeRange::last7Days, "Days", "Fri Sat Sun Mon Tue Wed Thu", "March 8: 0 minutes",
                                  "March 14: 65 minutes"},
                             Case{TimeRange::last30Days, "Days", "Feb 15 Feb 22 Feb 29 Mar 7 Mar 14",
                                  "February 14: 0 minutes", "March 14: 65 minutes"},
                             Case{TimeRange::last12Months, "Months", "A M J J A S O N D J F M", "April 2023: 0 minutes",
                                  "March 2024: 65 minutes"},
                             Case{TimeRange::allMonths, "Months", "Nov 21 Jun 22 Jan 23 Aug 23 Mar 24",
                                  "September 2021: 10 minutes", "March 2024: 65 minutes"}}) {
        journal.history().setEvents(journal.history().events().first(1));
        journal.add(60, "A", 60);
        journal.add(60, "B", 5);
        const ChartContent content = chart(test.range);
        EXPECT_EQ(content.timeTitle, QLatin1String(test.title));
        EXPECT_EQ(texts(content.timeMarks), QLatin1String(test.marks)) << test.firstBar;
        EXPECT_EQ(content.bars.first().spokenText, QLatin1String(test.firstBar));
        EXPECT_EQ(content.bars.last().spokenText, QLatin1String(test.lastBar));
        EXPECT_LT(content.bars.first().position, content.bars.last().position);
        EXPECT_LE(content.bars.last().position + content.bars.last().width, 1);
    }
    journal.add(3000 * day, "A", 10);
    EXPECT_EQ(texts(chart(TimeRange::allMonths).timeMarks), QStringLiteral("2016 2018 2020 2022 2024"));
}

TEST_F(ChartTest, BarsAreStackedByItemAndFillTheirHeight) {
    journal.add(60, "Little", 10);
    journal.add(60, "Much", 30);
    journal.add(day, "Little", 5);
    journal.add(60, "Much", 20);
    journal.add(60, "Nothing", 0);
    journal.add(60, "Nonsense", -5);
    const ChartContent content = chart(TimeRange::last7Days);
    ASSERT_EQ(content.segments.size(), 3);
    const ChartSegment& little = content.segments.at(2);
    const ChartSegment& much = content.segments.at(1);
    EXPECT_EQ(content.segments.at(0).colorIndex, little.colorIndex) << "yesterday's";
    EXPECT_EQ(much.foot, 0);
    EXPECT_DOUBLE_EQ(little.foot, much.height);
    EXPECT_DOUBLE_EQ(little.foot + little.height, content.bars.last().height);
    EXPECT_DOUBLE_EQ(much.height, 5 * little.height);
    EXPECT_TRUE(little.isTop && !much.isTop);
    ASSERT_EQ(content.legend.size(), 2);
    EXPECT_EQ(content.legend.first().name, QStringLiteral("Much"));
    EXPECT_EQ(content.legend.first().colorIndex, much.colorIndex);
}

TEST_F(ChartTest, AnItemKeepsItsColorAndTheLeastPracticedShareOne) {
    for (int i = 0; i < 9; ++i)
        journal.add(60, QStringLiteral("Item %1").arg(i).toUtf8().constData(), 10 + i);
    journal.add(20 * day, "Item 0", 500);
    const ChartContent week = chart(TimeRange::last7Days);
    ASSERT_EQ(week.legend.size(), 7);
    EXPECT_EQ(week.legend.last().colorIndex, ItemColors::shared);
    EXPECT_EQ(week.legend.first().name, QStringLiteral("Item 8"));
    EXPECT_EQ(week.legend.first().colorIndex, colors.colorIndex(QStringLiteral("Item 8")));
    EXPECT_EQ(week.segments.size(), 7) << "those that share a colour are one";
    EXPECT_NEAR(week.segments.last().foot + week.segments.last().height, week.bars.last().height, 1e-12);

    const int before = colors.colorIndex(QStringLiteral("Item 3"));
    journal.add(30, "New", 1000);
    EXPECT_EQ(colors.colorIndex(QStringLiteral("Item 3")), before) << "what came later changes no colour";
    EXPECT_EQ(ItemColors(journal.history()).colorIndex(QStringLiteral("Item 3")), before) << "nor does another screen";
    EXPECT_EQ(chart(TimeRange::last30Days).legend.first().name, QStringLiteral("New"));
}

TEST_F(ChartTest, ItemsOfOneColorHaveTonesOfItsInOneChart) {
    for (int i = 0; i <= ItemColors::paletteSize; ++i)
        journal.add(i % ItemColors::paletteSize == 0 ? 60 : 20 * day,
                    QStringLiteral("Item %1").arg(i).toUtf8().constData(), 10 + i);
    ASSERT_EQ(colors.colorIndex(QStringLiteral("Item 0")), colors.colorIndex(QStringLiteral("Item 12")));
    const QList<ChartLegendEntry> legend = chart(TimeRange::last7Days).legend;
    ASSERT_EQ(legend.size(), 2);
    EXPECT_EQ(legend.first().name, QStringLiteral("Item 12"));
    EXPECT_EQ(legend.first().colorIndex, colors.colorIndex(QStringLiteral("Item 12")))
        << "the most practised has its own";
    EXPECT_EQ(legend.last().colorIndex, legend.first().colorIndex + ItemColors::paletteSize);
}

TEST_F(ChartTest, AJournalFromTheMiddleAgesStillHasBarsForOneScreen) {
    journal.addAt(Date::fromUnixSeconds(-21142000000), "A", 10);
    const ChartContent content = chart(TimeRange::allMonths);
    EXPECT_EQ(content.bars.size(), 1200);
    EXPECT_EQ(content.bars.last().spokenText, QStringLiteral("March 2024: 0 minutes"));
}

} // namespace
} // namespace tamsel
