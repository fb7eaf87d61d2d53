#pragma once

#include "model/History.h"
#include "platform/Observable.h"
#include "platform/Platform.h"
#include "reports/ChartData.h"
#include "reports/ItemColors.h"
#include "reports/ReportRow.h"
#include "reports/TimeRange.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <memory>
#include <optional>

namespace tamsel {

// The items practised most in a range, at most five. Follows the journal. Main thread only.
class TopExercisesOverviewViewModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the history screen's model")

    Q_PROPERTY(QString heading READ heading CONSTANT FINAL)
    Q_PROPERTY(QString topExercise READ topExerciseText NOTIFY dataChanged FINAL)
    Q_PROPERTY(QList<tamsel::RankedItem> items READ items NOTIFY dataChanged FINAL)
    Q_PROPERTY(QString explanation READ explanation NOTIFY dataChanged FINAL)
    Q_PROPERTY(QString rankingText READ rankingText CONSTANT FINAL)
    Q_PROPERTY(QString valueTitle READ valueTitle CONSTANT FINAL)
    Q_PROPERTY(QString nameTitle READ nameTitle CONSTANT FINAL)

public:
    TopExercisesOverviewViewModel(History& history, TimeRange timeRange, const Platform& platform, ItemColors& colors);

    TimeRange timeRange() const { return m_timeRange; }
    // The largest first. Deliberately empty for all months, whose zero days reach back to tomorrow.
    const QList<ChartData::ExerciseReportOverTime>& data() const { return m_data; }
    const std::optional<QString>& topExercise() const { return m_topExercise; }

    QString heading() const { return QStringLiteral("You most practiced"); }
    QString topExerciseText() const { return m_topExercise.value_or(QString()); }
    QList<RankedItem> items() const;
    // What to read where there is no ranking; empty where there is one.
    QString explanation() const;
    // Of the button below the explanation.
    QString rankingText() const { return QStringLiteral("Full ranking"); }
    QString valueTitle() const { return QStringLiteral("Minutes"); }
    QString nameTitle() const { return QStringLiteral("Name"); }

Q_SIGNALS:
    void dataChanged();

private:
    void compute();

    const History& m_history;
    const TimeRange m_timeRange;
    const Platform m_platform;
    ItemColors& m_colors;
    QList<ChartData::ExerciseReportOverTime> m_data;
    std::optional<QString> m_topExercise;
    std::shared_ptr<TopExercisesOverviewViewModel*> m_self = std::make_shared<TopExercisesOverviewViewModel*>(this);
    Observable::Subscription m_subscription;
};

} // namespace tamsel
