#include "list/HistoryIndex.h"

#include "platform/Checked.h"

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
    for (; m_known < events.size(); ++m_known) {
        const HistoryEvent& event = events.at(m_known);
        if (name == nullptr || *name != event.exerciseName) {
            name = &event.exerciseName;
            item = &m_items[*name];
        }
        item->last = item->practices.empty() ? event.date : std::max(item->last, event.date);
        item->practices.push_back({event.date, event.practiceTime});
    }
}

std::optional<Date> HistoryIndex::lastPracticedDate(const QString& name) const {
    const auto item = m_items.constFind(name);
    return item == m_items.cend() ? std::nullopt : std::optional(item->last);
}

qint64 HistoryIndex::practiceTime(const QString& name, std::optional<Date> since) const {
    const auto item = m_items.constFind(name);
    if (item == m_items.cend() || (since && item->last < *since))
        return 0;
    qint64 minutes = 0;
    for (const Practice& practice : item->practices) {
        if (!since || practice.date >= *since)
            minutes = checkedAdd(minutes, practice.minutes);
    }
    return minutes;
}

} // namespace tamsel
