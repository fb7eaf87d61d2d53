#pragma once

#include "model/HistoryEvent.h"
#include "model/NameIndex.h"

#include <QList>
#include <QString>

#include <vector>

namespace tamsel {

// The names of a journal's events as numbers, from 0 in the order in which they first come: whoever looks through all
// events by item then needs no texts. One thread at a time.
class EventNames {
public:
    // Numbers the names of the events behind those that it knows.
    void update(const QList<HistoryEvent>& events) {
        // Only the first time: taking in one more must not move all.
        if (m_numbers.empty())
            m_numbers.reserve(static_cast<std::size_t>(events.size()));
        for (auto i = static_cast<qsizetype>(m_numbers.size()); i < events.size(); ++i)
            m_numbers.push_back(m_names.indexOf(events.at(i).exerciseName));
    }

    // Of the events, in their order.
    const std::vector<int>& numbers() const { return m_numbers; }
    // By their numbers.
    const QList<QString>& names() const { return m_names.names(); }
    // -1 for a name that no event has.
    int find(const QString& name) const { return m_names.find(name); }

private:
    mutable NameIndex m_names; // remembers what is looked for
    std::vector<int> m_numbers;
};

} // namespace tamsel
