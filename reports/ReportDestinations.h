#pragma once

#include "model/DayOfEvents.h"
#include "model/Exercise.h"
#include "model/MonthOfEvents.h"
#include "reports/TimeRange.h"

#include <QHashFunctions>

#include <optional>
#include <variant>

// Where the reports can lead, as values.
namespace tamsel::destinations {

// From the history screen.
struct FromHistoryView {
    // The ranking of all items.
    struct Exercises {
        TimeRange timeRange;
        bool operator==(const Exercises&) const = default;
    };
    // The practice time of one item or of all.
    struct PracticeTime {
        std::optional<Exercise> exercise;
        TimeRange timeRange;
        bool operator==(const PracticeTime&) const = default;
    };

    std::variant<Exercises, PracticeTime> target;
    bool operator==(const FromHistoryView&) const = default;
};

// From the list of days or months.
struct FromPracticeTimeDetailView {
    std::variant<DayOfEvents, MonthOfEvents> target;
    bool operator==(const FromPracticeTimeDetailView&) const = default;
};

// From a month to one of its days.
struct FromMonthReport {
    DayOfEvents dayBreakdown;
    bool operator==(const FromMonthReport&) const = default;
};

inline size_t qHash(const FromHistoryView::Exercises& target, size_t seed = 0) {
    return qHashMulti(seed, static_cast<int>(target.timeRange));
}
inline size_t qHash(const FromHistoryView::PracticeTime& target, size_t seed = 0) {
    return qHashMulti(seed, target.exercise.has_value(), target.exercise.value_or(Exercise()),
                      static_cast<int>(target.timeRange));
}
inline size_t qHash(const FromHistoryView& destination, size_t seed = 0) {
    return std::visit([&](const auto& target) { return qHashMulti(seed, destination.target.index(), target); },
                      destination.target);
}
inline size_t qHash(const FromPracticeTimeDetailView& destination, size_t seed = 0) {
    return std::visit([&](const auto& target) { return qHashMulti(seed, destination.target.index(), target); },
                      destination.target);
}
inline size_t qHash(const FromMonthReport& destination, size_t seed = 0) {
    return qHash(destination.dayBreakdown, seed);
}

} // namespace tamsel::destinations
