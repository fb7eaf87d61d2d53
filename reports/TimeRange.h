#pragma once

#include "model/SettingsStore.h"

#include <QList>
#include <QString>

#include <optional>

namespace tamsel {

// A stretch of the past. The value is what is stored: a count of days, 0 for no limit.
enum class TimeRange : int {
    last7Days = 7,
    last30Days = 30,
    last90Days = 90,
    last12Months = 365,
    allMonths = 0,
};

// Every case, in the order of declaration.
const QList<TimeRange>& everyTimeRange();

constexpr bool isInMonths(TimeRange range) {
    return range == TimeRange::last12Months || range == TimeRange::allMonths;
}

// The ranges offered to the user. Deliberately without `last90Days`, which is complete in every other respect.
const QList<TimeRange>& offeredTimeRanges();

// "7 days", "30 days", "90 days", "12 months", "All months".
QString label(TimeRange range);

// "last7Days" and so on: the name of the case, for scripts.
QString caseName(TimeRange range);
std::optional<TimeRange> timeRangeFromCaseName(const QString& name);

// The range of a stored value; nothing for a value that is none.
std::optional<TimeRange> timeRangeOf(qint64 rawValue);

// The range that the user prefers, kept under "preferredTimeRange" as its bare number. Nothing when none is stored, it
// cannot be read, or it is not among those offered (then with a line on the console).
std::optional<TimeRange> preferredTimeRange(const SettingsStore& store);
void savePreferredTimeRange(SettingsStore& store, TimeRange range);

} // namespace tamsel
