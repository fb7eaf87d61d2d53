#pragma once

#include "reports/ChartData.h"
#include "reports/ItemColors.h"
#include "reports/ReportRow.h"

#include <QList>

namespace tamsel {

// A ranking as a screen shows it.
QList<RankedItem> rankedItems(const QList<ChartData::ExerciseReportOverTime>& records, ItemColors& colors);

} // namespace tamsel
