#include "list/HistoryIndex.h"

#include "platform/FatalError.h"

#include <algorithm>

namespace tamsel {

void HistoryIndex::update() {
    const QList<HistoryEvent>& events = m_history.events();
    if (m_history.generation() != m_generation || events.size() < m_known) {
        m_generation = m_history.generation();
        m_known = 0;
        m_items.clear();
    }
    // Many events of one item follow each other; `item` saves looking it up again.
    const QString* name = nullptr;
    Item* item = nullptr;
    bool someAreDisordered = false;
    for (; m_known < events.size(); ++m_known) {
        const HistoryEvent& event = events.at(m_known);
        if (name == nullptr || *name != event.exerciseName) {
            name = &event.exerciseName;
            item = &m_items[*name];
        }
        std::vector<Practice>& practices = item->practices;
        const WideMinutes earlier = practices.empty() ? 0 : practices.back().earlier + practices.back().minutes;
        if (!practices.empty() && event.date < practices.back().date) {
            item->isInOrder = false;
            someAreDisordered = true;
        }
        practices.push_back({event.date, event.practiceTime, earlier});
    }
    if (!someAreDisordered)
        return;
    for (Item& each : m_items) {
        if (!each.isInOrder)
            putInOrder(each);
    }
}

void HistoryIndex::putInOrder(Item& item) {
    std::ranges::stable_sort(item.practices, {}, &Practice::date);
    WideMinutes earlier = 0;
    for (Practice& practice : item.practices) {
        practice.earlier = earlier;
        earlier += practice.minutes;
    }
    item.isInOrder = true;
}

std::optional<Date> HistoryIndex::lastPracticedDate(const QString& name) const {
    const auto item = m_items.constFind(name);
    return item == m_items.cend() ? std::nullopt : std::optional(item->practices.back().date);
}

qint64 HistoryIndex::practiceTime(const QString& name, std::optional<Date> since) const {
    const auto item = m_items.constFind(name);
    if (item == m_items.cend())
        return 0;
    const std::vector<Practice>& practices = item->practices;
    const auto first = since ? std::ranges::lower_bound(practices, *since, {}, &Practice::date) : practices.cbegin();
    if (first == practices.cend())
        return 0;
    const WideMinutes minutes = practices.back().earlier + practices.back().minutes - first->earlier;
    if (minutes != static_cast<qint64>(minutes))
        trap();
    return static_cast<qint64>(minutes);
}

} // namespace tamsel
