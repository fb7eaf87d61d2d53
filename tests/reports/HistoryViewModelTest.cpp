#include "list/HistoryNavigationStackViewModel.h"
#include "list/OpenReport.h"
#include "model/SettingsKeys.h"
#include "reports/MonthReportViewModel.h"
#include "reports/PracticeDayBreakdownViewModel.h"
#include "reports/PracticeTimeDetailViewModel.h"
#include "reports/TopExercisesDetailViewModel.h"
#include "tests/reports/Journal.h"
#include "tests/support/LogCapture.h"
#include "tests/support/UsEnglish.h"

#include <gtest/gtest.h>

namespace tamsel {
namespace {

constexpr double day = test::Journal::day;

QStringList namesOf(const QList<ChartData::ExerciseReportOverTime>& records) {
    QStringList names;
    for (const auto& record : records)
        names += record.exercise;
    return names;
}

QStringList titlesOf(const QList<ReportRow>& rows) {
    QStringList titles;
    for (const ReportRow& row : rows)
        titles += row.detail.isEmpty() ? row.title : row.title + QStringLiteral(" | ") + row.detail;
    return titles;
}

class HistoryViewModelTest : public testing::Test {
protected:
    static void SetUpTestSuite() { test::speakUsEnglish(); }

    HistoryNavigationStackViewModel& stack() {
        if (!m_stack)
            m_stack.emplace(*journal.singletons, journal.platform, coordinator);
        return *m_stack;
    }
    HistoryViewModel& history() { return *stack().historyViewModel(); }
    QString selectedLabel() {
        for (const TimeRangeOption& option : history().timeRangeOptions()) {
            if (option.value == history().timeRangeValue())
                return option.label;
        }
        return {};
    }
    template <class T>
    T& top() {
        auto* const model = stack().depth() == 0 ? nullptr : qobject_cast<T*>(stack().screenModel(stack().depth() - 1));
        if (model == nullptr)
            throw std::runtime_error("another screen is on top");
        return *model;
    }

    test::Journal journal;
    const test::LogCapture console;
    const Coordinator coordinator{*journal.singletons, journal.platform, 1};

private:
    std::optional<HistoryNavigationStackViewModel> m_stack;
};

TEST_F(HistoryViewModelTest, AnEmptyJournalHasSlotsButNoPractice) {
    EXPECT_TRUE(history().isEmpty());
    PracticeTimeOverviewViewModel& overview = *history().practiceTimeOverview();
    EXPECT_EQ(overview.subtitle(), QStringLiteral("Over the last week you've practiced"));
    EXPECT_EQ(overview.total(), QStringLiteral("0 minutes"));
    EXPECT_EQ(overview.sessionsReports().size(), 7);
    EXPECT_TRUE(overview.chart()->isEmpty());
    EXPECT_EQ(overview.chart()->bars().size(), 7);
    EXPECT_EQ(history().topExercisesOverview()->topExercise(), std::nullopt);
    EXPECT_NE(history().topExercisesOverview()->explanation(), QString());

    history().openPracticeTime();
    auto& detail = top<PracticeTimeDetailViewModel>();
    EXPECT_EQ(titlesOf(detail.rows()).first(), QStringLiteral("03/14/24: 0m"));
    EXPECT_EQ(detail.rows().size(), 7);
    detail.setTimeRange(TimeRange::allMonths);
    EXPECT_TRUE(detail.rows().isEmpty());
    EXPECT_NE(detail.emptyText(), QString());
    detail.openRow(0);
    detail.openBar(0);
    EXPECT_EQ(stack().depth(), 1) << "there is nothing to open";
}

TEST_F(HistoryViewModelTest, TheSentencesFollowTheRange) {
    journal.add(60, "A", 60);
    journal.add(20 * day, "A", 65);
    struct Case {
        TimeRange range;
        const char* subtitle;
        const char* total;
        qsizetype slots;
    };
    for (const Case& test :
         {Case{TimeRange::last7Days, "Over the last week you've practiced", "1 hour", 7},
          Case{TimeRange::last30Days, "Over the last month you've practiced", "2 hours, 5 minutes", 30},
          Case{TimeRange::last90Days, "Over the last three months you've practiced", "2 hours, 5 minutes", 90},
          Case{TimeRange::last12Months, "Over the last year you've practiced", "2 hours, 5 minutes", 12},
          Case{TimeRange::allMonths, "In total, you've practiced", "2 hours, 5 minutes", 2}}) {
        history().setTimeRange(test.range);
        const PracticeTimeOverviewViewModel& overview = *history().practiceTimeOverview();
        EXPECT_EQ(overview.subtitle(), QLatin1String(test.subtitle));
        EXPECT_EQ(overview.total(), QLatin1String(test.total)) << test.subtitle;
        EXPECT_EQ(overview.sessionsReports().size(), test.slots);
    }
}

TEST_F(HistoryViewModelTest, TheRangeIsRememberedAndBeginsWhereTheJournalOffersIt) {
    savePreferredTimeRange(journal.store, TimeRange::allMonths);
    EXPECT_EQ(history().timeRange(), TimeRange::last7Days) << "the journal is too young";
    EXPECT_EQ(console.lines().last(), QStringLiteral("Unable to use saved timeRange, likely experimental"));
    history().selectTimeRange(365);
    EXPECT_EQ(selectedLabel(), QStringLiteral("12 months"));
    EXPECT_EQ(journal.store.data(keys::preferredTimeRange), QByteArray("365"));
    history().selectTimeRange(0);
    history().selectTimeRange(12);
    EXPECT_EQ(selectedLabel(), QStringLiteral("12 months")) << "all months are not offered, and 12 is no range";
    EXPECT_EQ(HistoryNavigationStackViewModel(*journal.singletons, journal.platform, coordinator)
                  .historyViewModel()
                  ->timeRange(),
              TimeRange::last12Months);
    journal.add(800 * day, "A", 1);
    savePreferredTimeRange(journal.store, TimeRange::allMonths);
    EXPECT_EQ(HistoryNavigationStackViewModel(*journal.singletons, journal.platform, coordinator)
                  .historyViewModel()
                  ->timeRange(),
              TimeRange::allMonths);
}

TEST_F(HistoryViewModelTest, TheOverviewsFollowTheJournalOnTheMainQueue) {
    int changes = 0;
    QObject::connect(&history(), &HistoryViewModel::overviewsChanged, &history(), [&changes] { ++changes; });
    const TopExercisesOverviewViewModel& before = *history().topExercisesOverview();
    journal.add(60, "Scales", 10);
    journal.add(60, "Étude", 20);
    EXPECT_EQ(before.topExercise(), std::nullopt) << "until the main queue turns";
    EXPECT_EQ(changes, 0);
    journal.mainQueue.runDue();
    EXPECT_EQ(changes, 1) << "once for both";
    EXPECT_EQ(before.topExercise(), QStringLiteral("Étude"));
    EXPECT_EQ(history().topExercisesOverview()->topExercise(), QStringLiteral("Étude"));
    EXPECT_EQ(history().practiceTimeOverview()->total(), QStringLiteral("30 minutes"));
}

TEST_F(HistoryViewModelTest, MidnightIsNoticedWhenTheScreenAppears) {
    journal.add(60, "Scales", 10);
    ASSERT_EQ(history().practiceTimeOverview()->chart()->bars().last().spokenText,
              QStringLiteral("March 14: 10 minutes"));
    journal.clock.advance(std::chrono::hours(24));
    history().openBar(6);
    EXPECT_EQ(top<PracticeDayBreakdownViewModel>().title(), QStringLiteral("March 14, 2024"))
        << "what the bar still stands for";
    history().onAppear();
    EXPECT_EQ(history().practiceTimeOverview()->chart()->bars().last().spokenText,
              QStringLiteral("March 15: 0 minutes"));
    const auto* const made = history().practiceTimeOverview();
    history().onAppear();
    EXPECT_EQ(history().practiceTimeOverview(), made) << "nothing has changed since";
}

TEST_F(HistoryViewModelTest, FiveLeadTheOverviewAndAllAreInTheDetail) {
    const char* const names[] = {"A", "B", "C", "D", "E", "F"};
    for (int i = 0; i < 6; ++i)
        journal.add(60, names[i], 10 + i);
    journal.add(400 * day, "Long ago", 500);
    EXPECT_EQ(namesOf(history().topExercisesOverview()->data()).join(QString()), QStringLiteral("FEDCB"));
    EXPECT_EQ(history().topExercisesOverview()->items().first().spokenText, QStringLiteral("1. F: 15 minutes"));

    history().setTimeRange(TimeRange::allMonths);
    EXPECT_TRUE(history().topExercisesOverview()->data().isEmpty()) << "deliberately";
    EXPECT_TRUE(history().topExercisesOverview()->explanation().contains(QStringLiteral("one tap away")));
    history().openTopExercises();
    auto& detail = top<TopExercisesDetailViewModel>();
    EXPECT_EQ(namesOf(detail.data()).join(QLatin1Char(',')), QStringLiteral("Long ago,F,E,D,C,B,A"));
    EXPECT_EQ(namesOf(detail.last12MonthsData()).join(QString()), QStringLiteral("FEDCBA"));
    EXPECT_EQ(detail.items().last().share, 10.0 / 500);
    journal.add(60, "New", 1);
    EXPECT_EQ(detail.allMonthsData().size(), 7) << "fixed when it was opened";
    EXPECT_TRUE(console.lines().contains(QStringLiteral("TopExercisesDetailViewModel.init")));
}

TEST_F(HistoryViewModelTest, BarsAndRowsLeadToTheirDayAndMonth) {
    journal.add(60, "Scales", 65);
    journal.add(2 * day, "Étude", 5);
    journal.add(40 * day, "Étude", 7);
    EXPECT_EQ(history().practiceTimeOverview()->chart()->bars()[4].spokenText, QStringLiteral("March 12: 5 minutes"));
    history().openBar(4);
    EXPECT_EQ(titlesOf(top<PracticeDayBreakdownViewModel>().reportRows()).join(QLatin1Char('/')),
              QStringLiteral("Étude, 5m"));
    EXPECT_EQ(top<PracticeDayBreakdownViewModel>().title(), QStringLiteral("March 12, 2024"));
    stack().pop();
    EXPECT_EQ(stack().depth(), 0);

    history().setTimeRange(TimeRange::last12Months);
    history().openBar(10);
    EXPECT_EQ(top<MonthReportViewModel>().title(), QStringLiteral("February 2024"));
    stack().pop();

    history().openPracticeTime();
    auto& detail = top<PracticeTimeDetailViewModel>();
    EXPECT_EQ(detail.rows().size(), 12);
    EXPECT_EQ(detail.rows().first().title, QStringLiteral("Mar 2024: 1h 10m"));
    detail.openRow(0);
    auto& month = top<MonthReportViewModel>();
    EXPECT_EQ(titlesOf(month.rows()), (QStringList{QStringLiteral("3/14/24: 1h 5m"), QStringLiteral("Scales | 1h 5m"),
                                                   QStringLiteral("3/12/24: 5m"), QStringLiteral("Étude | 5m")}));
    month.openRow(2);
    EXPECT_EQ(top<PracticeDayBreakdownViewModel>().title(), QStringLiteral("March 12, 2024"));
    EXPECT_EQ(stack().depth(), 3);
    stack().pop();
    stack().pop();
    detail.setTimeRange(TimeRange::last7Days);
    detail.openBar(6);
    EXPECT_EQ(top<PracticeDayBreakdownViewModel>().title(), QStringLiteral("March 14, 2024"));
}

TEST_F(HistoryViewModelTest, TheDetailOfOneItemIsFixedWhenItIsOpened) {
    journal.add(60, "Scales", 65);
    journal.add(60, "Étude", 5);
    journal.add(day, "Scales", 20);
    openReport(stack(), coordinator,
               destinations::FromHistoryView{destinations::FromHistoryView::PracticeTime{
                   Exercise{QStringLiteral("Scales"), QUuid()}, TimeRange::last30Days}});
    auto& detail = top<PracticeTimeDetailViewModel>();
    journal.history().record(*PracticeSession::make(journal.clock.now(), Exercise{QStringLiteral("Scales"), QUuid()},
                                                    600, SessionType::timer));
    journal.add(120, "Scales", 1);
    EXPECT_EQ(titlesOf(detail.rows()).mid(0, 3),
              (QStringList{QStringLiteral("03/14/24: 1h 5m"), QStringLiteral("03/13/24: 20m"),
                           QStringLiteral("03/12/24: 0m")}));
    EXPECT_EQ(detail.countsOfPracticeDays(), (PracticeDayCounts{2, 2, 2, 2}));
    EXPECT_EQ(detail.last7DaysOfEvents(), detail.last30DaysOfEvents().first(7));
    EXPECT_EQ(detail.last7DaysOfEvents().first().events.size(), 1);
    EXPECT_EQ(detail.last90DaysOfEvents().size(), 90);
    EXPECT_EQ(detail.twelveMonthsOfEvents().size(), 12);
    EXPECT_EQ(detail.allMonthsOfEvents().size(), 1);
    EXPECT_EQ(detail.chart()->averageSpokenText(), QStringLiteral("Average: 43 minutes")); // 85 over 2 days
    EXPECT_TRUE(console.lines().contains(QStringLiteral("PracticeTimeDetailViewModel.init")));
}

TEST_F(HistoryViewModelTest, AMonthOfOneItemIsAListOfItsDays) {
    const auto month = [&](const QList<HistoryEvent>& events) {
        return MonthReportViewModel({Date::fromUnixSeconds(1709251200), events}, journal.history(), journal.platform);
    };
    EXPECT_TRUE(std::get<MonthReportViewModel::SingleExercise>(month({}).mode()).rows.isEmpty());
    EXPECT_TRUE(console.lines().contains(QStringLiteral("MonthReportViewModel.init")));
    journal.add(2 * day, "Scales", 5);
    journal.add(60, "Scales", 10);
    journal.add(3600, "Scales", 50);
    const auto single = std::get<MonthReportViewModel::SingleExercise>(month(journal.history().events()).mode());
    ASSERT_EQ(single.rows.size(), 2);
    EXPECT_EQ(single.rows.first().title, QStringLiteral("03/14/24: 1h"));
    EXPECT_EQ(single.rows.first().id, single.rows.first().title);
    EXPECT_EQ(single.rows.last().title, QStringLiteral("03/12/24: 5m"));

    journal.add(60, "scales", 10);
    const MonthReportViewModel several = month(journal.history().events());
    const auto& multiple = std::get<MonthReportViewModel::MultipleExercises>(several.mode());
    ASSERT_EQ(multiple.sections.size(), 2);
    EXPECT_EQ(multiple.sections.first().rows.size(), 2);
    EXPECT_EQ(multiple.sections.first().rows.first().events.size(), 2);
    EXPECT_EQ(multiple.sections.first().rows.first().dayOfEvents.events.size(), 3);
    EXPECT_EQ(multiple.sections.last().rows.size(), 1);
}

TEST_F(HistoryViewModelTest, ADayTellsItsThumbs) {
    struct Case {
        std::optional<qint64> up;
        std::optional<qint64> down;
        const char* detail;
    };
    DayOfEvents events{journal.clock.now(), {}};
    const QList<Case> cases = {{0, {}, ""}, {3, 1, "👍 3 👎 1"}, {{}, 2, "👎 2"}, {1, 0, "👍 1"}, {{}, {}, ""}};
    for (const Case& test : cases)
        events.events += HistoryEvent{journal.clock.now(), QStringLiteral("Scales"), 25, test.up, test.down, QUuid()};
    const PracticeDayBreakdownViewModel breakdown(events, journal.calendar);
    for (qsizetype i = 0; i < cases.size(); ++i) {
        EXPECT_EQ(breakdown.rows()[i].title(), QStringLiteral("Scales, 25m"));
        EXPECT_EQ(breakdown.rows()[i].detail(), QString::fromUtf8(cases[i].detail));
    }
    EXPECT_EQ(breakdown.totalText(), QStringLiteral("2h 5m"));
}

} // namespace
} // namespace tamsel
