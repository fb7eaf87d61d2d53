#pragma once

#include "model/EventGroups.h"
#include "model/HistoryEvent.h"
#include "platform/Date.h"

#include <QList>
#include <QString>
#include <QUuid>

#include <cstdint>
#include <memory>
#include <span>
#include <utility>

// What the charts are drawn from.
namespace tamsel::ChartData {

// One event's share of a report: the item's name, and whole minutes. Not to be kept: the events may move.
struct Session {
    const QString& item;
    const qint64 minutes;
};

// The sessions of a report, read where the events are: copies would take longer than all else of a report.
class Sessions {
public:
    class Iterator {
    public:
        Iterator(const HistoryEvent* events, const std::uint32_t* position) : m_events(events), m_position(position) {}
        Session operator*() const { return {m_events[*m_position].exerciseName, m_events[*m_position].practiceTime}; }
        Iterator& operator++() {
            ++m_position;
            return *this;
        }
        bool operator==(const Iterator& other) const { return m_position == other.m_position; }

    private:
        const HistoryEvent* m_events;
        const std::uint32_t* m_position;
    };

    // Of the events at these positions, which are among those of the groups.
    Sessions(std::shared_ptr<const QList<HistoryEvent>> events, std::shared_ptr<const EventGroups> groups,
             std::span<const std::uint32_t> positions)
        : m_events(std::move(events)), m_groups(std::move(groups)), m_positions(positions) {}

    bool isEmpty() const { return m_positions.empty(); }
    Iterator begin() const { return {m_events->constData(), m_positions.data()}; }
    Iterator end() const { return {m_events->constData(), m_positions.data() + m_positions.size()}; }

private:
    std::shared_ptr<const QList<HistoryEvent>> m_events;
    std::shared_ptr<const EventGroups> m_groups; // keeps the positions
    std::span<const std::uint32_t> m_positions;
};

// A day or a month, with one session for each of its events, in their order.
struct SessionsReport {
    Date date; // its start
    QUuid id;
    Sessions sessions;
    qint64 minutes = 0; // of all of them
};

// How long one item was practised, in whole minutes.
struct ExerciseReportOverTime {
    QString exercise;
    qint64 minutes = 0;
    QUuid id;
};

} // namespace tamsel::ChartData

Q_DECLARE_TYPEINFO(tamsel::ChartData::SessionsReport, Q_RELOCATABLE_TYPE);
Q_DECLARE_TYPEINFO(tamsel::ChartData::ExerciseReportOverTime, Q_RELOCATABLE_TYPE);
