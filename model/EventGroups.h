#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

namespace tamsel {

// The events of a list by a whole number, such as that of their day: which ones have it, in the order of the list. Two
// passes without a look-up, whatever the order of the events.
class EventGroups {
public:
    // The key of events that belong to no group.
    static constexpr int none = std::numeric_limits<int>::min();

    // `keys` are those of the events, in the order of the list. Groups for the keys from `lowest`, which must be above
    // `none`, to `highest`; events with others are left out.
    EventGroups(std::span<const int> keys, int lowest, int highest)
        : m_lowest(lowest), m_firsts(highest < lowest ? 1 : static_cast<std::size_t>(highest - lowest) + 2) {
        const std::size_t groups = m_firsts.size() - 1;
        for (const int key : keys) {
            if (const std::size_t group = groupOf(key); group < groups)
                ++m_firsts[group + 1];
        }
        for (std::size_t i = 1; i <= groups; ++i)
            m_firsts[i] += m_firsts[i - 1];
        m_positions.resize(m_firsts.back());
        std::vector<std::uint32_t> next = m_firsts;
        for (std::size_t i = 0; i < keys.size(); ++i) {
            if (const std::size_t group = groupOf(keys[i]); group < groups)
                m_positions[next[group]++] = static_cast<std::uint32_t>(i);
        }
    }

    // Positions in the list; empty for a key without events.
    std::span<const std::uint32_t> positions(int key) const {
        const std::size_t group = groupOf(key);
        if (group + 1 >= m_firsts.size())
            return {};
        return {m_positions.data() + m_firsts[group], m_positions.data() + m_firsts[group + 1]};
    }

private:
    // Keys below the lowest come out as numbers above every group's.
    std::size_t groupOf(int key) const {
        return static_cast<std::uint32_t>(key) - static_cast<std::uint32_t>(m_lowest);
    }

    const int m_lowest;
    std::vector<std::uint32_t> m_firsts; // where each group begins among the positions, and where the last one ends
    std::vector<std::uint32_t> m_positions;
};

} // namespace tamsel
