#include "model/EventBuckets.h"

#include "model/EventCutoff.h"
#include "platform/Checked.h"
#include "platform/FatalError.h"
#include "platform/TimeUnits.h"

#include <algorithm>
#include <limits>

namespace tamsel {

namespace {

// The numbers of the months of numbered days. Most events follow one of the same month.
std::vector<int> monthsOf(std::span<const int> days) {
    std::vector<int> months(days.size(), EventGroups::none);
    int month = 0;
    int firstDay = 0;
    int endDay = 0;
    for (std::size_t i = 0; i < days.size(); ++i) {
        const int day = days[i];
        if (day == EventGroups::none)
            continue;
        if (day < firstDay || day >= endDay) {
            month = Calendar::monthOfDay(day);
            firstDay = Calendar::firstDayOfMonth(month);
            endDay = Calendar::firstDayOfMonth(month + 1);
        }
        months[i] = month;
    }
    return months;
}

QList<HistoryEvent> eventsAt(std::span<const std::uint32_t> positions, const QList<HistoryEvent>& events) {
    if (positions.empty())
        return {};
    // As they follow each other in a journal whose clock was never set back, they are copied as one.
    const auto count = static_cast<qsizetype>(positions.size());
    if (positions.back() - positions.front() + 1 == positions.size())
        return events.sliced(positions.front(), count);
    QList<HistoryEvent> found;
    found.reserve(count);
    for (const std::uint32_t position : positions)
        found += events.at(position);
    return found;
}

} // namespace

std::vector<int> daysOfExercise(const std::optional<Exercise>& exercise, const QList<HistoryEvent>& events,
                                const std::vector<int>& days) {
    std::vector<int> found = days;
    if (!exercise)
        return found;
    for (std::size_t i = 0; i < found.size(); ++i) {
        if (events.at(static_cast<qsizetype>(i)).exerciseName != exercise->name)
            found[i] = EventGroups::none;
    }
    return found;
}

EventBuckets lastDays(int count, std::span<const int> days, Date now, const Calendar& calendar) {
    if (count < 0)
        trap();
    QList<int> numbers;
    numbers.reserve(count);
    for (int i = 0; i < count; ++i)
        numbers += calendar.dayNumber(now - static_cast<double>(checkedMultiply(i, secondsPerDay)));
    const int lowest = numbers.isEmpty() ? 0 : numbers.last();
    const int highest = numbers.isEmpty() ? -1 : numbers.first();
    return {numbers, EventGroups(days, lowest, highest)};
}

EventBuckets lastMonths(int count, bool allMonths, std::span<const int> days, Date now, const Calendar& calendar) {
    const int most = allMonths ? allMonthsCount : count;
    const int currentMonth = calendar.monthNumber(now);
    const int firstMonth = calendar.monthNumber(cutoffOfLastMonths(most, now, calendar));
    const int firstDay = Calendar::firstDayOfMonth(firstMonth);
    int earliestDay = std::numeric_limits<int>::max();
    for (const int day : days) {
        if (day >= firstDay)
            earliestDay = std::min(earliestDay, day);
    }
    const bool isEmpty = earliestDay == std::numeric_limits<int>::max();
    const int earliestMonth = isEmpty ? currentMonth : Calendar::monthOfDay(earliestDay);
    QList<int> numbers;
    for (int i = 0; i < most && !isEmpty; ++i) {
        const int month = calendar.monthNumber(monthsBefore(i, now, calendar));
        if (allMonths && month < earliestMonth)
            break;
        numbers += month;
    }
    return {numbers, EventGroups(monthsOf(days), std::max(firstMonth, earliestMonth), currentMonth)};
}

QList<DayOfEvents> daysOfEvents(const EventBuckets& buckets, const QList<HistoryEvent>& events,
                                const Calendar& calendar) {
    QList<DayOfEvents> list;
    list.reserve(buckets.numbers.size());
    for (const int day : buckets.numbers)
        list += DayOfEvents{calendar.startOfDay(day), eventsAt(buckets.groups.positions(day), events)};
    return list;
}

QList<MonthOfEvents> monthsOfEvents(const EventBuckets& buckets, const QList<HistoryEvent>& events,
                                    const Calendar& calendar) {
    QList<MonthOfEvents> list;
    list.reserve(buckets.numbers.size());
    for (const int month : buckets.numbers)
        list += MonthOfEvents{calendar.startOfMonth(month), eventsAt(buckets.groups.positions(month), events)};
    return list;
}

} // namespace tamsel
