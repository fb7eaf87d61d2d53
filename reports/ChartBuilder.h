#pragma once

#include "platform/Calendar.h"
#include "reports/Chart.h"
#include "reports/ChartData.h"
#include "reports/ItemColors.h"
#include "reports/TimeRange.h"

namespace tamsel {

// The chart of a range's reports, which are newest first; time runs from left to right in it. The most practised items
// have a colour and a place in the legend each, the others share one.
ChartContent buildChart(const QList<ChartData::SessionsReport>& reports, TimeRange range, const Calendar& calendar,
                        ItemColors& colors);

// The distance of the marks on the axis of minutes: a round one of which at most four are needed to reach `minutes`.
qint64 markDistance(qint64 minutes);

} // namespace tamsel
