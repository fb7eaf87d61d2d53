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
class MonthOfDay {
public:
    int operator()(int day) {
        if (day == EventGroups::none)
            return EventGroups::none;
        if (day < m_firstDay || day >= m_endDay) {
            m_month = Calendar::monthOfDay(day);
            m_firstDay = Calendar::firstDayOfMonth(m_month);
            m_endDay = Calendar::firstDayOfMonth(m_month + 1);
        }
        return m_month;
    }

private:
    int m_month = 0;
    int m_firstDay = 0;
    int m_endDay = 0;
};

} // namespace

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
    QList<EventBuckets::Bucket> list;
    list.reserve(count);
    for (int i = 0; i < count; ++i) {
        const int day = calendar.dayNumber(now - static_cast<double>(checkedMultiply(i, secondsPerDay)));
        list += {day, calendar.startOfDay(day)};
    }
    const int lowest = list.isEmpty() ? 0 : list.last().number;
    const int highest = list.isEmpty() ? -1 : list.first().number;
    return {list, std::make_shared<EventGroups>(days, lowest, highest)};
}

EventBuckets lastMonths(int count, bool allMonths, std::span<const int> days, Date now, const Calendar& calendar) {
    const int most = allMonths ? allMonthsCount : count;
    const int currentMonth = calendar.monthNumber(now);
    const int firstMonth = calendar.monthNumber(cutoffOfLastMonths(most, now, calendar));
    const int firstDay = Calendar::firstDayOfMonth(firstMonth);
    int earliestDay = std::numeric_limits<int>::max();
    for (const int day : days)
        earliestDay = day >= firstDay ? std::min(earliestDay, day) : earliestDay;
    const bool isEmpty = earliestDay == std::numeric_limits<int>::max();
    const int earliestMonth = isEmpty ? currentMonth : Calendar::monthOfDay(earliestDay);
    QList<EventBuckets::Bucket> list;
    for (int i = 0; i < most && !isEmpty; ++i) {
        const int month = calendar.monthNumber(monthsBefore(i, now, calendar));
        if (allMonths && month < earliestMonth)
            break;
        list += {month, calendar.startOfMonth(month)};
    }
    return {list, std::make_shared<EventGroups>(days, std::max(firstMonth, earliestMonth), currentMonth, MonthOfDay())};
}

namespace {

template <class Each>
QList<Each> withEvents(const EventBuckets& buckets, const QList<HistoryEvent>& events) {
    QList<Each> list;
    list.reserve(buckets.list.size());
    for (const auto& bucket : buckets.list)
        list += Each{bucket.start, eventsAt(buckets.positions(bucket), events)};
    return list;
}

} // namespace

QList<DayOfEvents> daysOfEvents(const EventBuckets& buckets, const QList<HistoryEvent>& events) {
    return withEvents<DayOfEvents>(buckets, events);
}

QList<MonthOfEvents> monthsOfEvents(const EventBuckets& buckets, const QList<HistoryEvent>& events) {
    return withEvents<MonthOfEvents>(buckets, events);
}

} // namespace tamsel
