#pragma once

#include "reports/TimeRange.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace tamsel {

// One range of a time range picker.
struct TimeRangeOption {
    Q_GADGET
    QML_VALUE_TYPE(timeRangeOption)
    Q_PROPERTY(QString identifier MEMBER identifier FINAL)
    Q_PROPERTY(QString label MEMBER label FINAL)
    Q_PROPERTY(int value MEMBER value FINAL)

public:
    QString identifier; // "time_range_7_days"
    QString label;
    int value = 0; // the range's raw value
};

inline QList<TimeRangeOption> timeRangeOptions(const QList<TimeRange>& ranges) {
    QList<TimeRangeOption> options;
    for (const TimeRange range : ranges) {
        const QString word = label(range).toLower().replace(QLatin1Char(' '), QLatin1Char('_'));
        options += {QStringLiteral("time_range_") + word, label(range), static_cast<int>(range)};
    }
    return options;
}

// The one of these ranges that has the raw value; nothing where none has.
inline std::optional<TimeRange> rangeOfValue(const QList<TimeRange>& ranges, int value) {
    const auto range = timeRangeOf(value);
    return range && ranges.contains(*range) ? range : std::nullopt;
}

} // namespace tamsel
