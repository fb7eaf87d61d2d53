#include "list/HistoryIndex.h"

#include "platform/Checked.h"

#include <algorithm>
#include <utility>

namespace tamsel {

std::size_t HistoryIndex::placeOf(const QString& name) {
    const auto place = static_cast<std::size_t>(m_names.indexOf(name));
    if (place == m_items.size())
        m_items.emplace_back();
    return place;
}

void HistoryIndex::Item::add(Date date, qint64 minutes) {
    isInOrder = isInOrder && (practices.empty() || practices.back().date <= date);
    qint64 sum = 0;
    isPlain = isPlain && minutes >= 0 && !__builtin_add_overflow(static_cast<qint64>(total), minutes, &sum);
    practices.push_back({date, total});
    total += static_cast<quint64>(minutes);
}

qint64 HistoryIndex::Item::minutesAt(std::size_t index) const {
    const quint64 after = index + 1 < practices.size() ? practices[index + 1].earlier : total;
    return static_cast<qint64>(after - practices[index].earlier);
}

void HistoryIndex::Item::putInOrder() {
    std::vector<std::pair<Date, qint64>> all;
    all.reserve(practices.size());
    for (std::size_t i = 0; i < practices.size(); ++i)
        all.emplace_back(practices[i].date, minutesAt(i));
    std::ranges::stable_sort(all, {}, &std::pair<Date, qint64>::first);
    *this = {};
    practices.reserve(all.size());
    for (const auto& [date, minutes] : all)
        add(date, minutes);
}

void HistoryIndex::update() {
    const QList<HistoryEvent>& events = m_history.events();
    if (m_history.generation() != m_generation || events.size() < m_known) {
        m_generation = m_history.generation();
        m_known = 0;
        m_names = {};
        m_items.clear();
    }
    const std::span<const HistoryEvent> unknown(events.cbegin() + m_known, events.cend());
    m_known = events.size();
    constexpr std::size_t many = 256; // below it, setting out for many would take longer than the events
    if (unknown.size() >= many) {
        addMany(unknown);
    } else {
        for (const HistoryEvent& event : unknown)
            m_items[placeOf(event.exerciseName)].add(event.date, event.practiceTime);
    }
    for (Item& item : m_items) {
        if (!item.isInOrder)
            item.putInOrder();
    }
}

// All are counted before they are taken in, so that no item's practices are moved about or have room to spare.
void HistoryIndex::addMany(std::span<const HistoryEvent> events) {
    std::vector<std::size_t> places;
    places.reserve(events.size());
    for (const HistoryEvent& event : events)
        places.push_back(placeOf(event.exerciseName));
    std::vector<std::size_t> counts(m_items.size());
    for (const std::size_t place : places)
        ++counts[place];
    for (std::size_t i = 0; i < counts.size(); ++i)
        m_items[i].practices.reserve(m_items[i].practices.size() + counts[i]);
    for (std::size_t i = 0; i < events.size(); ++i)
        m_items[places[i]].add(events[i].date, events[i].practiceTime);
}

const HistoryIndex::Item* HistoryIndex::find(const QString& name) const {
    const int place = m_names.find(name);
    return place < 0 ? nullptr : &m_items[static_cast<std::size_t>(place)];
}

std::optional<Date> HistoryIndex::lastPracticedDate(const QString& name) const {
    const Item* const item = find(name);
    return item == nullptr ? std::nullopt : std::optional(item->practices.back().date);
}

qint64 HistoryIndex::practiceTime(const QString& name, std::optional<Date> since) const {
    const Item* const item = find(name);
    if (item == nullptr)
        return 0;
    const std::vector<Practice>& practices = item->practices;
    const auto first = since ? std::ranges::lower_bound(practices, *since, {}, &Practice::date) : practices.cbegin();
    if (first == practices.cend())
        return 0;
    if (item->isPlain)
        return static_cast<qint64>(item->total - first->earlier);
    qint64 minutes = 0;
    for (auto i = static_cast<std::size_t>(first - practices.cbegin()); i < practices.size(); ++i)
        minutes = checkedAdd(minutes, item->minutesAt(i));
    return minutes;
}

} // namespace tamsel
