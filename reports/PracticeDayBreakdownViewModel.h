#pragma once

// clang-format off
#include <QObject> // first: the meta-object compiler cannot read a header of the standard library before one of Qt's
// clang-format on
#include "model/DayOfEvents.h"
#include "platform/Calendar.h"
#include "reports/ReportRow.h"

#include <QList>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace tamsel {

// One day's events, in the order of recording. Worked out once, at construction. Main thread only.
class PracticeDayBreakdownViewModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the coordinator")

    Q_PROPERTY(QString title READ title CONSTANT FINAL)
    Q_PROPERTY(QString totalText READ totalText CONSTANT FINAL)
    Q_PROPERTY(QList<tamsel::ReportRow> rows READ reportRows CONSTANT FINAL)
    Q_PROPERTY(QString emptyText READ emptyText CONSTANT FINAL)

public:
    PracticeDayBreakdownViewModel(const DayOfEvents& day, const Calendar& calendar);

    struct Row {
        HistoryEvent event;

        QString title() const;  // "C Major Scales, 25m"
        QString detail() const; // "👍 3 👎 1"; a count of 0 is left out
    };

    const QList<Row>& rows() const { return m_rows; }

    // "March 14, 2024".
    QString title() const { return m_title; }
    // "1h 5m"; empty without an event.
    QString totalText() const { return m_totalText; }
    QList<ReportRow> reportRows() const;
    // What to read where the list is empty.
    QString emptyText() const;

private:
    const QString m_title;
    const QString m_totalText;
    QList<Row> m_rows;
};

} // namespace tamsel
