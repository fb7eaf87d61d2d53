#include "reports/TimeRange.h"

#include "model/Json.h"
#include "model/SettingsKeys.h"
#include "platform/FatalError.h"
#include "platform/Log.h"

#include <algorithm>

namespace tamsel {

const QList<TimeRange>& everyTimeRange() {
    static const QList<TimeRange> ranges = {TimeRange::last7Days, TimeRange::last30Days, TimeRange::last90Days,
                                            TimeRange::last12Months, TimeRange::allMonths};
    return ranges;
}

const QList<TimeRange>& offeredTimeRanges() {
    static const QList<TimeRange> ranges = {TimeRange::last7Days, TimeRange::last30Days, TimeRange::last12Months,
                                            TimeRange::allMonths};
    return ranges;
}

QString label(TimeRange range) {
    switch (range) {
    case TimeRange::last7Days:
        return QStringLiteral("7 days");
    case TimeRange::last30Days:
        return QStringLiteral("30 days");
    case TimeRange::last90Days:
        return QStringLiteral("90 days");
    case TimeRange::last12Months:
        return QStringLiteral("12 months");
    case TimeRange::allMonths:
        return QStringLiteral("All months");
    }
    trap();
}

QString caseName(TimeRange range) {
    switch (range) {
    case TimeRange::last7Days:
        return QStringLiteral("last7Days");
    case TimeRange::last30Days:
        return QStringLiteral("last30Days");
    case TimeRange::last90Days:
        return QStringLiteral("last90Days");
    case TimeRange::last12Months:
        return QStringLiteral("last12Months");
    case TimeRange::allMonths:
        return QStringLiteral("allMonths");
    }
    trap();
}

std::optional<TimeRange> timeRangeFromCaseName(const QString& name) {
    const auto found = std::ranges::find(everyTimeRange(), name, caseName);
    return found == everyTimeRange().cend() ? std::nullopt : std::optional(*found);
}

std::optional<TimeRange> timeRangeOf(qint64 rawValue) {
    for (const TimeRange range : everyTimeRange()) {
        if (rawValue == static_cast<int>(range))
            return range;
    }
    return std::nullopt;
}

std::optional<TimeRange> preferredTimeRange(const SettingsStore& store) {
    const auto data = store.data(keys::preferredTimeRange);
    if (!data)
        return std::nullopt;
    const auto number = json::decode<qint64>(*data, keys::preferredTimeRange);
    const auto range = number ? timeRangeOf(*number) : std::nullopt;
    if (!range)
        return std::nullopt;
    if (!offeredTimeRanges().contains(*range)) {
        log(QStringLiteral("Unable to use saved timeRange, likely experimental"));
        return std::nullopt;
    }
    return range;
}

void savePreferredTimeRange(SettingsStore& store, TimeRange range) {
    store.setData(keys::preferredTimeRange, QByteArray::number(static_cast<int>(range)));
}

} // namespace tamsel
