#pragma once

#include "app/Singletons.h"
#include "model/DayOfEvents.h"
#include "model/Exercise.h"
#include "model/MonthOfEvents.h"
#include "platform/Platform.h"
#include "reports/Chart.h"
#include "reports/ItemColors.h"
#include "reports/ReportData.h"
#include "reports/ReportDestinations.h"
#include "reports/ReportRow.h"
#include "reports/TimeRange.h"
#include "reports/TimeRangeOption.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QUuid>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace tamsel {

// The practice time of one item or of all, day by day or month by month. The lists and counts are those of the moment
// of construction; only the range changes. Main thread only.
class PracticeTimeDetailViewModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the coordinator")

    Q_PROPERTY(QString title READ title CONSTANT FINAL)
    Q_PROPERTY(QString exerciseName READ exerciseName CONSTANT FINAL)
    // By its raw value; one that is not offered is ignored.
    Q_PROPERTY(int timeRange READ timeRangeValue WRITE selectTimeRange NOTIFY timeRangeChanged FINAL)
    Q_PROPERTY(QList<tamsel::TimeRangeOption> timeRangeOptions READ timeRangeOptions NOTIFY timeRangeChanged FINAL)
    Q_PROPERTY(QList<tamsel::ReportFigure> practiceDayFigures READ practiceDayFigures CONSTANT FINAL)
    Q_PROPERTY(QString practiceDaysTitle READ practiceDaysTitle CONSTANT FINAL)
    Q_PROPERTY(tamsel::Chart* chart READ chart CONSTANT FINAL)
    Q_PROPERTY(QList<tamsel::ReportRow> rows READ rows NOTIFY timeRangeChanged FINAL)
    Q_PROPERTY(QString emptyText READ emptyText NOTIFY timeRangeChanged FINAL)

public:
    PracticeTimeDetailViewModel(Singletons& singletons, const std::optional<Exercise>& exercise, TimeRange timeRange,
                                const Platform& platform, ItemColors& colors);

    struct DayRow {
        int index;
        QString title; // "03/14/24: 1h 5m"
        QUuid id;
        destinations::FromPracticeTimeDetailView route;
    };
    struct MonthRow {
        int index;
        QString title; // "Mar 2024: 25h"
        QUuid id;
        destinations::FromPracticeTimeDetailView route;
    };

    TimeRange timeRange() const { return m_timeRange; }
    int timeRangeValue() const { return static_cast<int>(m_timeRange); }
    void selectTimeRange(int value);
    void setTimeRange(TimeRange timeRange);

    const PracticeDayCounts& countsOfPracticeDays() const { return m_countsOfPracticeDays; }
    const QList<DayOfEvents>& last7DaysOfEvents() const { return m_last7DaysOfEvents; }
    const QList<DayOfEvents>& last30DaysOfEvents() const { return m_last30DaysOfEvents; }
    const QList<DayOfEvents>& last90DaysOfEvents() const { return m_last90DaysOfEvents; }
    const QList<MonthOfEvents>& twelveMonthsOfEvents() const { return m_twelveMonthsOfEvents; }
    const QList<MonthOfEvents>& allMonthsOfEvents() const { return m_allMonthsOfEvents; }
    // Of the present range, newest first; one of the two is empty.
    QList<DayRow> dayRows() const;
    QList<MonthRow> monthRows() const;
    // Of the present range, newest first.
    QList<ChartData::SessionsReport> sessionsReports() const;

    QString title() const { return QStringLiteral("Total Practice Time"); }
    // Whose practice time it is; empty when it is everything's.
    QString exerciseName() const { return m_exerciseName; }
    QList<TimeRangeOption> timeRangeOptions() const { return tamsel::timeRangeOptions(m_ranges); }
    QString practiceDaysTitle() const { return QStringLiteral("Days with practice"); }
    QList<ReportFigure> practiceDayFigures() const;
    Chart* chart() { return &m_chart; }
    QList<ReportRow> rows() const;
    // What to read where there was no practice.
    QString emptyText() const;

    Q_INVOKABLE void openRow(int row);
    // Counted from the oldest.
    Q_INVOKABLE void openBar(int bar);

Q_SIGNALS:
    void timeRangeChanged();
    void destinationRequested(const tamsel::destinations::FromPracticeTimeDetailView& destination);

private:
    // The list of the present range: one of days where there is one, otherwise that of months.
    const QList<DayOfEvents>* days() const;
    const QList<MonthOfEvents>& months() const;
    void updateChart();

    const Platform m_platform;
    ItemColors& m_colors;
    const QString m_exerciseName;
    const QList<TimeRange> m_ranges;
    TimeRange m_timeRange;
    PracticeDayCounts m_countsOfPracticeDays;
    QList<DayOfEvents> m_last7DaysOfEvents;
    QList<DayOfEvents> m_last30DaysOfEvents;
    QList<DayOfEvents> m_last90DaysOfEvents;
    QList<MonthOfEvents> m_twelveMonthsOfEvents;
    QList<MonthOfEvents> m_allMonthsOfEvents;
    QList<qint64> m_minutes; // of each entry of the present range's list
    Chart m_chart{this};
};

} // namespace tamsel
