#pragma once

#include "app/Singletons.h"
#include "model/DayOfEvents.h"
#include "model/EventBuckets.h"
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

#include <memory>
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

    const PracticeDayCounts& countsOfPracticeDays() const { return m_lists.countsOfPracticeDays; }
    QList<DayOfEvents> last7DaysOfEvents() const { return daysOfEvents(m_lists.last7Days, *m_journal); }
    QList<DayOfEvents> last30DaysOfEvents() const { return daysOfEvents(m_lists.last30Days, *m_journal); }
    QList<DayOfEvents> last90DaysOfEvents() const { return daysOfEvents(m_lists.last90Days, *m_journal); }
    QList<MonthOfEvents> twelveMonthsOfEvents() const { return monthsOfEvents(m_lists.twelveMonths, *m_journal); }
    QList<MonthOfEvents> allMonthsOfEvents() const { return monthsOfEvents(m_lists.allMonths, *m_journal); }
    // One of rows(), which are days or months as the present range has it.
    DayRow dayRow(int index) const;
    MonthRow monthRow(int index) const;
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
    // Where the events of each list are in the journal: copies of them all would take longer than the rest.
    struct Lists {
        PracticeDayCounts countsOfPracticeDays;
        EventBuckets last7Days;
        EventBuckets last30Days;
        EventBuckets last90Days;
        EventBuckets twelveMonths;
        EventBuckets allMonths;
    };
    static Lists listsOf(const std::optional<Exercise>& exercise, const History& history, const Platform& platform);
    // Of the present range.
    const EventBuckets& list() const;
    QString rowTitle(int index) const;
    void updateChart();

    const Platform m_platform;
    ItemColors& m_colors;
    const QString m_exerciseName;
    const QList<TimeRange> m_ranges;
    TimeRange m_timeRange;
    const std::shared_ptr<const QList<HistoryEvent>> m_journal;
    const Lists m_lists;
    QList<qint64> m_minutes; // of each entry of the present range's list
    Chart m_chart{this};
};

} // namespace tamsel
