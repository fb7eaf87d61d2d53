#include "app/PracticeYears.h"
#include "app/Singletons.h"
#include "bench/Journal.h"
#include "metronome/OfflineOutput.h"
#include "metronome/SystemAudioSession.h"
#include "model/EventGroups.h"
#include "model/MemorySettingsStore.h"
#include "platform/IcuText.h"
#include "platform/Log.h"
#include "reports/HistoryViewModel.h"
#include "reports/MonthReportViewModel.h"
#include "reports/PracticeDayBreakdownViewModel.h"
#include "reports/PracticeTimeDetailViewModel.h"
#include "reports/ReportData.h"

#include <QCoreApplication>

#include <benchmark/benchmark.h>
#include <unicode/gregocal.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <unordered_map>
#include <vector>

// The reports on a journal of a hundred thousand and of a million events, and what telling the day of each event costs
// by other means. Limits for 100,000 events: grouping 12 ns for each, the history screen 4 ms, the practice-time detail
// 8 ms, a month or a day 1 ms; for 1,000,000 twelve times as much.

namespace tamsel {

namespace {

constexpr const char* zoneName = "Europe/Berlin";

// A player's forty years at several times a player's diligence.
class Journal {
public:
    explicit Journal(qsizetype count) {
        setLogStream(std::fopen("/dev/null", "w"));
        const int diligence = count > 500'000 ? 30 : 3;
        QList<HistoryEvent> events = PracticeYears{40, 1, diligence}.events(m_clock.now(), m_calendar, m_uuids);
        if (events.size() < count)
            std::abort();
        singletons.history.setEvents(events.last(count));
    }

    static Journal& of(qsizetype count) {
        static std::unordered_map<qsizetype, std::unique_ptr<Journal>> journals;
        auto& journal = journals[count];
        if (!journal)
            journal = std::make_unique<Journal>(count);
        return *journal;
    }

private:
    bench::StandingClock m_clock;
    Calendar m_calendar{QString::fromLatin1(zoneName)};
    bench::NoQueue m_queue;
    RandomUuids m_uuids;
    MemorySettingsStore m_store;
    OfflineOutput m_output;
    SystemAudioSession m_session;

public:
    const Platform platform{m_clock, m_calendar, m_queue, m_uuids};
    Singletons singletons{m_store, platform, m_output, m_session};
    const QList<HistoryEvent>& events() const { return singletons.history.events(); }
};

void tellEach(benchmark::State& state) {
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

// Grouping by day for all time, as the day lists do it.
void group(benchmark::State& state) {
    const Journal& journal = Journal::of(state.range(0));
    const Calendar& calendar = journal.platform.calendar;
    const int first = calendar.dayNumber(journal.events().first().date);
    const int last = calendar.dayNumber(journal.platform.clock.now());
    std::vector<int> days(static_cast<std::size_t>(journal.events().size())); // the journal keeps them
    for (auto round : state) {
        std::ranges::transform(journal.events(), days.begin(),
                               [&](const HistoryEvent& event) { return calendar.dayNumber(event.date); });
        const EventGroups groups(days, first, last);
        benchmark::DoNotOptimize(groups.positions(last));
    }
    tellEach(state);
}

// The table of the zone's transitions alone.
void tellDays(benchmark::State& state) {
    const Journal& journal = Journal::of(state.range(0));
    for (auto round : state) {
        for (const HistoryEvent& event : journal.events())
            benchmark::DoNotOptimize(journal.platform.calendar.dayNumber(event.date));
    }
    tellEach(state);
}

void tellDaysWithLocaltime(benchmark::State& state) {
    setenv("TZ", zoneName, 1);
    tzset();
    const Journal& journal = Journal::of(state.range(0));
    for (auto round : state) {
        for (const HistoryEvent& event : journal.events()) {
            const auto seconds = static_cast<time_t>(std::floor(event.date.unixSeconds()));
            tm fields{};
            benchmark::DoNotOptimize(localtime_r(&seconds, &fields));
        }
    }
    tellEach(state);
}

void tellDaysWithIcu(benchmark::State& state) {
    UErrorCode status = U_ZERO_ERROR;
    icu::GregorianCalendar calendar(icu::TimeZone::createTimeZone(toIcu(QString::fromLatin1(zoneName))), status);
    const Journal& journal = Journal::of(state.range(0));
    for (auto round : state) {
        for (const HistoryEvent& event : journal.events()) {
            calendar.setTime(event.date.unixSeconds() * 1000, status);
            benchmark::DoNotOptimize(calendar.get(UCAL_YEAR, status) + calendar.get(UCAL_DAY_OF_YEAR, status));
        }
    }
    tellEach(state);
}

// The whole history screen for a range: both overviews and the ranges on offer.
void historyScreen(benchmark::State& state) {
    Journal& journal = Journal::of(state.range(0));
    const auto range = static_cast<TimeRange>(state.range(1));
    ItemColors colors(journal.singletons.history); // the app keeps them
    for (auto round : state) {
        HistoryViewModel history(journal.singletons, journal.platform, colors, range);
        benchmark::DoNotOptimize(history.practiceTimeOverview()->total());
        benchmark::DoNotOptimize(history.topExercisesOverview()->items());
        benchmark::DoNotOptimize(history.timeRangeOptions());
    }
    state.SetLabel(caseName(range).toStdString());
}

void practiceTimeDetail(benchmark::State& state) {
    Journal& journal = Journal::of(state.range(0));
    ItemColors colors(journal.singletons.history); // the app keeps them
    for (auto round : state) {
        const PracticeTimeDetailViewModel detail(journal.singletons, {}, TimeRange::allMonths, journal.platform,
                                                 colors);
        benchmark::DoNotOptimize(detail.rows());
    }
}

// What the first chart costs besides.
void makeColors(benchmark::State& state) {
    const Journal& journal = Journal::of(state.range(0));
    for (auto round : state)
        benchmark::DoNotOptimize(ItemColors(journal.singletons.history).colorIndex(QStringLiteral("Vibrato")));
}

void openMonth(benchmark::State& state) {
    const Journal& journal = Journal::of(state.range(0));
    const MonthOfEvents month = journal.singletons.history.eventsByMonth(12, false).at(1);
    for (auto round : state) {
        const MonthReportViewModel report(month, journal.singletons.history, journal.platform);
        benchmark::DoNotOptimize(report.rows());
    }
    state.counters["events"] = static_cast<double>(month.events.size());
}

void openDay(benchmark::State& state) {
    const Journal& journal = Journal::of(state.range(0));
    DayOfEvents day;
    for (const DayOfEvents& each : journal.singletons.history.eventsByDay(30)) {
        if (each.events.size() > day.events.size())
            day = each;
    }
    for (auto round : state) {
        const PracticeDayBreakdownViewModel breakdown(day, journal.platform.calendar);
        benchmark::DoNotOptimize(breakdown.reportRows());
    }
    state.counters["events"] = static_cast<double>(day.events.size());
}

// A tap on a bar of the history screen: its day or month found among all events, and that report.
void openBar(benchmark::State& state, TimeRange range) {
    Journal& journal = Journal::of(state.range(0));
    ItemColors colors(journal.singletons.history);
    HistoryViewModel history(journal.singletons, journal.platform, colors, range);
    QObject::connect(&history, &HistoryViewModel::barDestinationRequested, &history, [&](const auto& destination) {
        if (const auto* const month = std::get_if<MonthOfEvents>(&destination.target)) {
            const MonthReportViewModel report(*month, journal.singletons.history, journal.platform);
            benchmark::DoNotOptimize(report.rows());
            return;
        }
        const PracticeDayBreakdownViewModel breakdown(std::get<DayOfEvents>(destination.target),
                                                      journal.platform.calendar);
        benchmark::DoNotOptimize(breakdown.reportRows());
    });
    const int bar = static_cast<int>(history.practiceTimeOverview()->chart()->bars().size()) - 2;
    for (auto round : state)
        history.openBar(bar);
}

// What the first question to a zone costs.
void makeTable(benchmark::State& state) {
    for (auto round : state)
        benchmark::DoNotOptimize(Calendar(QString::fromLatin1(zoneName)).dayNumber(Date::fromUnixSeconds(1710417600)));
}

constexpr qint64 few = 10'000;
constexpr qint64 many = 100'000;
constexpr qint64 veryMany = 1'000'000;

void inEverySize(benchmark::internal::Benchmark* each) {
    each->Arg(few)->Arg(many)->Arg(veryMany);
}

void inEveryRange(benchmark::internal::Benchmark* each) {
    for (const qint64 count : {few, many, veryMany}) {
        for (const TimeRange range : everyTimeRange())
            each->Args({count, static_cast<int>(range)});
    }
}

BENCHMARK(group)->Name("reports/group_by_day")->Apply(inEverySize)->Unit(benchmark::kMillisecond);
BENCHMARK(tellDays)->Name("reports/days/transition_table")->Arg(many)->Unit(benchmark::kMillisecond);
BENCHMARK(tellDaysWithLocaltime)->Name("reports/days/localtime_r")->Arg(many)->Unit(benchmark::kMillisecond);
BENCHMARK(tellDaysWithIcu)->Name("reports/days/icu_calendar")->Arg(many)->Unit(benchmark::kMillisecond);
BENCHMARK(historyScreen)->Name("reports/history_screen")->Apply(inEveryRange)->Unit(benchmark::kMillisecond);
BENCHMARK(practiceTimeDetail)->Name("reports/practice_time_detail")->Apply(inEverySize)->Unit(benchmark::kMillisecond);
BENCHMARK(makeColors)->Name("reports/item_colors")->Apply(inEverySize)->Unit(benchmark::kMillisecond);
BENCHMARK(openMonth)->Name("reports/month")->Apply(inEverySize)->Unit(benchmark::kMillisecond);
BENCHMARK(openDay)->Name("reports/day")->Apply(inEverySize)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(openBar, month, TimeRange::allMonths)
    ->Name("reports/month_from_bar")
    ->Apply(inEverySize)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(openBar, day, TimeRange::last30Days)
    ->Name("reports/day_from_bar")
    ->Apply(inEverySize)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(makeTable)->Name("reports/make_transition_table")->Unit(benchmark::kMicrosecond);

} // namespace

} // namespace tamsel
