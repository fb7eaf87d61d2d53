#pragma once

#include "model/HistoryEvent.h"

#include <QList>

#include <cstdint>
#include <limits>
#include <span>
#include <vector>

namespace tamsel {

// Events by a whole number, such as that of their day: which ones have it, in the order of the list. Two passes without
// a look-up, whatever the order of the events.
class EventGroups {
public:
    // A key for events that belong to no group.
    static constexpr int none = std::numeric_limits<int>::min();

    // Groups for the keys from `lowest` to `highest`, which must be above `none`; events with others are left out.
    template <class KeyOf>
    EventGroups(const QList<HistoryEvent>& events, int lowest, int highest, const KeyOf& keyOf)
        : m_lowest(lowest), m_firsts(highest < lowest ? 2 : static_cast<std::size_t>(highest - lowest) + 2) {
        std::vector<std::int32_t> keys(static_cast<std::size_t>(events.size()));
        std::size_t at = 0;
        std::size_t found = 0;
        for (const HistoryEvent& event : events) {
            const int key = keyOf(event);
            const bool isIn = key >= lowest && key <= highest;
            keys[at++] = isIn ? key - lowest : -1;
            if (isIn) {
                ++m_firsts[static_cast<std::size_t>(key - lowest) + 1];
                ++found;
            }
        }
        for (std::size_t i = 1; i < m_firsts.size(); ++i)
            m_firsts[i] += m_firsts[i - 1];
        m_positions.resize(found);
        std::vector<std::uint32_t> next = m_firsts;
        for (std::size_t i = 0; i < keys.size(); ++i) {
            if (keys[i] >= 0)
                m_positions[next[static_cast<std::size_t>(keys[i])]++] = static_cast<std::uint32_t>(i);
        }
    }

    // Positions in the list; empty for a key without events.
    std::span<const std::uint32_t> positions(int key) const {
        const auto index = static_cast<std::size_t>(key - m_lowest);
        if (key < m_lowest || index + 1 >= m_firsts.size())
            return {};
        return {m_positions.data() + m_firsts[index], m_positions.data() + m_firsts[index + 1]};
    }

    static QList<HistoryEvent> at(std::span<const std::uint32_t> positions, const QList<HistoryEvent>& events) {
        QList<HistoryEvent> found;
        found.reserve(static_cast<qsizetype>(positions.size()));
        for (const std::uint32_t position : positions)
            found += events.at(position);
        return found;
    }

private:
    const int m_lowest;
    std::vector<std::uint32_t> m_firsts; // where each group begins among the positions, and where the last one ends
    std::vector<std::uint32_t> m_positions;
};

} // namespace tamsel
