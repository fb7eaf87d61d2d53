#include "list/HistoryIndex.h"

#include "platform/FatalError.h"

#include <algorithm>

namespace tamsel {

namespace {

constexpr qsizetype stretch = 1024; // events

} // namespace

void HistoryIndex::update(std::optional<Date> since) {
    const QList<HistoryEvent>& events = m_history.events();
    const std::vector<int>& names = m_history.names().numbers();
    const auto nameOf = [&names](qsizetype event) {
        return static_cast<std::size_t>(names[static_cast<std::size_t>(event)]);
    };
    if (m_history.generation() != m_generation || events.size() < m_known) {
        m_generation = m_history.generation();
        m_known = 0;
        m_items.clear();
        m_latest.clear();
    }
    if (since != m_since) {
        m_since = since;
        for (Item& item : m_items)
            item.ofSpan = {};
        for (qsizetype i = since ? earliestOfSpan(*since) : m_known; i < m_known; ++i) {
            if (const HistoryEvent& event = events.at(i); event.date >= *since)
                m_items[nameOf(i)].ofSpan.add(event.practiceTime);
        }
    }
    for (; m_known < events.size(); ++m_known) {
        const HistoryEvent& event = events.at(m_known);
        const std::size_t place = nameOf(m_known);
        if (place == m_items.size())
            m_items.push_back({event.date, {}, {}});
        Item& item = m_items[place];
        item.last = std::max(item.last, event.date);
        item.all.add(event.practiceTime);
        if (since && event.date >= *since)
            item.ofSpan.add(event.practiceTime);
        if (m_known % stretch == 0)
            m_latest.push_back(m_latest.empty() ? event.date : m_latest.back());
        m_latest.back() = std::max(m_latest.back(), event.date);
    }
}

qsizetype HistoryIndex::earliestOfSpan(Date since) const {
    const auto found = std::lower_bound(m_latest.cbegin(), m_latest.cend(), since);
    return std::min(std::distance(m_latest.cbegin(), found) * stretch, m_known);
}

HistoryIndex::Practice HistoryIndex::practice(const QString& name) const {
    const int place = m_history.names().find(name);
    if (place < 0 || static_cast<std::size_t>(place) >= m_items.size())
        return {};
    const Item& item = m_items[static_cast<std::size_t>(place)];
    const Sum& sum = m_since ? item.ofSpan : item.all;
    if (sum.isNoNumber)
        trap();
    return {item.last, sum.minutes};
}

} // namespace tamsel
