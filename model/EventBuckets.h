#pragma once

#include "model/DayOfEvents.h"
#include "model/EventGroups.h"
#include "model/Exercise.h"
#include "model/HistoryEvent.h"
#include "model/MonthOfEvents.h"
#include "platform/Calendar.h"
#include "platform/Date.h"

#include <QList>

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

// The two groupings by the calendar on which every report rests, from the events' days as the journal tells them. Pure
// functions.
namespace tamsel {

// The events' days, with EventGroups::none for the events of other items where one is given.
std::vector<int> daysOfExercise(const std::optional<Exercise>& exercise, const QList<HistoryEvent>& events,
                                const std::vector<int>& days);

// Days or months, newest first, and the positions of the events of each.
struct EventBuckets {
    struct Bucket {
        int number;
        Date start;
    };

    QList<Bucket> list;
    std::shared_ptr<const EventGroups> groups; // by the numbers; never null

    std::span<const std::uint32_t> positions(const Bucket& bucket) const { return groups->positions(bucket.number); }
};

// The last so many days, today first, counted in steps of 86,400 seconds: where the
// clocks change, a day may come twice or be left out. A count below zero stops the program.
EventBuckets lastDays(int count, std::span<const int> days, Date now, const Calendar& calendar);
// The last so many months, the current one first; with `allMonths`, every month back to the earliest event. None,
// deliberately, when that time holds no event.
EventBuckets lastMonths(int count, bool allMonths, std::span<const int> days, Date now, const Calendar& calendar);

// The events at these positions, in their order.
QList<HistoryEvent> eventsAt(std::span<const std::uint32_t> positions, const QList<HistoryEvent>& events);

// The buckets with their events, which are those that the days were told of.
QList<DayOfEvents> daysOfEvents(const EventBuckets& buckets, const QList<HistoryEvent>& events);
QList<MonthOfEvents> monthsOfEvents(const EventBuckets& buckets, const QList<HistoryEvent>& events);

} // namespace tamsel
