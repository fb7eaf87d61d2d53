#pragma once

#include "model/History.h"
#include "platform/Platform.h"
#include "reports/ChartData.h"
#include "reports/ItemColors.h"
#include "reports/ReportDestinations.h"
#include "reports/ReportRow.h"
#include "reports/TimeRange.h"
#include "reports/TimeRangeOption.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace tamsel {

// All items by how long they were practised in a range. The rankings are those of the moment of construction; only the
// range changes. Main thread only.
class TopExercisesDetailViewModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the coordinator")

    Q_PROPERTY(QString title READ title CONSTANT FINAL)
    // By its raw value; one that is not offered is ignored.
    Q_PROPERTY(int timeRange READ timeRangeValue WRITE selectTimeRange NOTIFY timeRangeChanged FINAL)
    Q_PROPERTY(QList<tamsel::TimeRangeOption> timeRangeOptions READ timeRangeOptions NOTIFY timeRangeChanged FINAL)
    Q_PROPERTY(QList<tamsel::RankedItem> items READ items NOTIFY timeRangeChanged FINAL)
    Q_PROPERTY(QString valueTitle READ valueTitle CONSTANT FINAL)
    Q_PROPERTY(QString nameTitle READ nameTitle CONSTANT FINAL)
    Q_PROPERTY(QString emptyText READ emptyText NOTIFY timeRangeChanged FINAL)

public:
    TopExercisesDetailViewModel(const History& history, TimeRange timeRange, const Platform& platform,
                                ItemColors& colors);

    using Records = QList<ChartData::ExerciseReportOverTime>;

    TimeRange timeRange() const { return m_timeRange; }
    int timeRangeValue() const { return static_cast<int>(m_timeRange); }
    void selectTimeRange(int value);
    void setTimeRange(TimeRange timeRange);

    const Records& last7DaysData() const { return m_last7DaysData; }
    const Records& last30DaysData() const { return m_last30DaysData; }
    const Records& last90DaysData() const { return m_last90DaysData; }
    const Records& last12MonthsData() const { return m_last12MonthsData; }
    const Records& allMonthsData() const { return m_allMonthsData; }
    // That of the present range.
    const Records& data() const;

    QString title() const { return QStringLiteral("Most Practiced"); }
    QList<TimeRangeOption> timeRangeOptions() const { return tamsel::timeRangeOptions(m_ranges); }
    QList<RankedItem> items() const;
    QString valueTitle() const { return QStringLiteral("Minutes"); }
    QString nameTitle() const { return QStringLiteral("Exercise"); }
    // What to read where the list is empty.
    QString emptyText() const;

    // Opens the practice time of one item in the present range.
    Q_INVOKABLE void openItem(int item);

Q_SIGNALS:
    void timeRangeChanged();
    void destinationRequested(const tamsel::destinations::FromHistoryView& destination);

private:
    ItemColors& m_colors;
    const QList<TimeRange> m_ranges;
    TimeRange m_timeRange;
    Records m_last7DaysData;
    Records m_last30DaysData;
    Records m_last90DaysData;
    Records m_last12MonthsData;
    Records m_allMonthsData;
};

} // namespace tamsel
