#pragma once

#include "reports/TimeRange.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace tamsel {

// One range of a time range picker.
struct TimeRangeOption {
    Q_GADGET
    QML_VALUE_TYPE(timeRangeOption)
    Q_PROPERTY(QString identifier MEMBER identifier FINAL)
    Q_PROPERTY(QString label MEMBER label FINAL)
    Q_PROPERTY(bool isSelected MEMBER isSelected FINAL)

public:
    QString identifier; // "time_range_7_days"
    QString label;
    bool isSelected = false;
};

inline QList<TimeRangeOption> timeRangeOptions(const QList<TimeRange>& ranges, TimeRange selected) {
    QList<TimeRangeOption> options;
    for (const TimeRange range : ranges) {
        const QString word = label(range).toLower().replace(QLatin1Char(' '), QLatin1Char('_'));
        options += {QStringLiteral("time_range_") + word, label(range), range == selected};
    }
    return options;
}

} // namespace tamsel
