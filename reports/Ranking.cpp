#include "reports/Ranking.h"

#include "reports/Formats.h"

#include <algorithm>

namespace tamsel {

QList<RankedItem> rankedItems(const QList<ChartData::ExerciseReportOverTime>& records, ItemColors& colors) {
    QList<RankedItem> items;
    items.reserve(records.size());
    const double most = records.isEmpty() ? 1 : std::max(1.0, static_cast<double>(records.first().minutes));
    for (const ChartData::ExerciseReportOverTime& record : records) {
        const qsizetype place = items.size();
        items += {QStringLiteral("ranked_item_%1").arg(place),
                  record.exercise,
                  practiceTimeText(record.minutes),
                  QStringLiteral("%1. %2: %3").arg(place + 1).arg(record.exercise, spokenMinutes(record.minutes)),
                  std::max(0.0, static_cast<double>(record.minutes) / most),
                  colors.colorIndex(record.exercise)};
    }
    return items;
}

} // namespace tamsel
