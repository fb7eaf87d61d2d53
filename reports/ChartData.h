#pragma once

#include "platform/Date.h"

#include <QList>
#include <QString>
#include <QUuid>

// What the charts are drawn from.
namespace tamsel::ChartData {

// One event's share of a report: the item's name, and whole minutes.
struct Session {
    QString item;
    qint64 minutes = 0;

    bool operator==(const Session&) const = default;
};

// A day or a month, with one session for each of its events, in their order.
struct SessionsReport {
    Date date; // its start
    QUuid id;
    QList<Session> sessions;
    qint64 minutes = 0; // of all of them
};

// How long one item was practised, in whole minutes.
struct ExerciseReportOverTime {
    QString exercise;
    qint64 minutes = 0;
    QUuid id;
};

} // namespace tamsel::ChartData

Q_DECLARE_TYPEINFO(tamsel::ChartData::Session, Q_RELOCATABLE_TYPE);
Q_DECLARE_TYPEINFO(tamsel::ChartData::SessionsReport, Q_RELOCATABLE_TYPE);
Q_DECLARE_TYPEINFO(tamsel::ChartData::ExerciseReportOverTime, Q_RELOCATABLE_TYPE);
