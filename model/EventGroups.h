#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <numeric>
#include <span>
#include <vector>

namespace tamsel {

// The events of a list by a whole number, such as that of their day: which ones have it, in the order of the list. Two
// passes without a look-up, whatever the order of the events; quick where most follow one of the same number.
class EventGroups {
public:
    // The key of events that belong to no group.
    static constexpr int none = std::numeric_limits<int>::min();

    // `numbers` are those of the events, in the order of the list, and `keyOf` tells the key that a number belongs to.
    // Groups for the keys from `lowest`, which must be above `none`, to `highest`; events with others are left out.
    template <class KeyOf = std::identity>
    EventGroups(std::span<const int> numbers, int lowest, int highest, KeyOf keyOf = {})
        : m_lowest(lowest), m_firsts(highest < lowest ? 1 : static_cast<std::size_t>(highest - lowest) + 2) {
        const std::size_t groups = m_firsts.size() - 1;
        // Runs of events with the same number: their group, the position of the first, and how many they are.
        const auto forEachRun = [&](const auto& take) {
            for (std::size_t first = 0; first < numbers.size();) {
                std::size_t end = first + 1;
                while (end < numbers.size() && numbers[end] == numbers[first])
                    ++end;
                if (const std::size_t group = groupOf(keyOf(numbers[first])); group < groups)
                    take(group, static_cast<std::uint32_t>(first), static_cast<std::uint32_t>(end - first));
                first = end;
            }
        };
        forEachRun([this](std::size_t group, std::uint32_t, std::uint32_t count) { m_firsts[group + 1] += count; });
        for (std::size_t i = 1; i <= groups; ++i)
            m_firsts[i] += m_firsts[i - 1];
        m_positions.resize(m_firsts.back());
        std::vector<std::uint32_t> next = m_firsts;
        forEachRun([&](std::size_t group, std::uint32_t first, std::uint32_t count) {
            std::iota(m_positions.begin() + next[group], m_positions.begin() + next[group] + count, first);
            next[group] += count;
        });
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
