#pragma once

// clang-format off
#include <QObject> // first: the meta-object compiler cannot read a header of the standard library before one of Qt's
// clang-format on
#include "model/DayOfEvents.h"
#include "model/History.h"
#include "model/MonthOfEvents.h"
#include "platform/Platform.h"
#include "reports/ReportDestinations.h"
#include "reports/ReportRow.h"

#include <QList>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <variant>

namespace tamsel {

// The days of one month with practice, newest first. Worked out once, at construction. Main thread only.
class MonthReportViewModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the coordinator")

    Q_PROPERTY(QString title READ title CONSTANT FINAL)
    Q_PROPERTY(QList<tamsel::ReportRow> rows READ rows CONSTANT FINAL)
    Q_PROPERTY(QString emptyText READ emptyText CONSTANT FINAL)

public:
    MonthReportViewModel(const MonthOfEvents& month, const History& history, const Platform& platform);

    struct MultipleExercisesRow {
        DayOfEvents dayOfEvents; // the whole day
        QString exerciseName;
        QList<HistoryEvent> events; // the item's of that day
    };
    struct SingleExerciseRow {
        QString title;
        QString id; // the title
    };
    struct Section {
        QString sectionTitle;
        QList<MultipleExercisesRow> rows;
    };
    struct MultipleExercises {
        QList<Section> sections;
    };
    struct SingleExercise {
        QList<SingleExerciseRow> rows;
    };
    using Mode = std::variant<SingleExercise, MultipleExercises>;

    const QList<HistoryEvent>& events() const { return m_events; }
    const History& history() const { return m_history; }
    Date startOfMonth() const { return m_startOfMonth; }
    const Mode& mode() const { return m_mode; }

    // "March 2024".
    QString title() const;
    // With several items, a heading for each day and a line for each of its items; otherwise a line for each day.
    QList<ReportRow> rows() const { return m_rows; }
    // What to read where the list is empty.
    QString emptyText() const;

    // Opens the day that the line is about.
    Q_INVOKABLE void openRow(int row);

Q_SIGNALS:
    void destinationRequested(const tamsel::destinations::FromMonthReport& destination);

private:
    QList<DayOfEvents> days() const;
    void showDaysOfOneExercise(const QList<DayOfEvents>& days);
    void showDaysByExercise(const QList<DayOfEvents>& days);

    const History& m_history;
    const Platform m_platform;
    const QList<HistoryEvent> m_events;
    const Date m_startOfMonth;
    Mode m_mode;
    QList<ReportRow> m_rows;
    QList<DayOfEvents> m_rowDays; // of each line, its day
};

} // namespace tamsel
