#pragma once

#include "model/History.h"
#include "platform/Platform.h"
#include "reports/Chart.h"
#include "reports/ChartData.h"
#include "reports/ItemColors.h"
#include "reports/TimeRange.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace tamsel {

// How much was practised in a range: a sentence and a chart, as the journal was at construction. Main thread only.
class PracticeTimeOverviewViewModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the history screen's model")

    Q_PROPERTY(QString subtitle READ subtitle CONSTANT FINAL)
    Q_PROPERTY(QString total READ total CONSTANT FINAL)
    Q_PROPERTY(tamsel::Chart* chart READ chart CONSTANT FINAL)

public:
    PracticeTimeOverviewViewModel(const History& history, TimeRange timeRange, const Platform& platform,
                                  ItemColors& colors);

    // Newest first.
    const QList<ChartData::SessionsReport>& sessionsReports() const { return m_sessionsReports; }
    TimeRange timeRange() const { return m_timeRange; }

    // "Over the last week you've practiced", and what that was: "2 hours, 5 minutes".
    QString subtitle() const { return subtitle(m_timeRange); }
    QString total() const;
    Chart* chart() { return &m_chart; }

    static QString subtitle(TimeRange timeRange);
    static QString total(const QList<ChartData::SessionsReport>& reports);

private:
    const TimeRange m_timeRange;
    const QList<ChartData::SessionsReport> m_sessionsReports;
    Chart m_chart{this};
};

} // namespace tamsel
