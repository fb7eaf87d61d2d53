#pragma once

#include "model/History.h"
#include "model/NameIndex.h"
#include "platform/Date.h"

#include <QString>

#include <optional>
#include <span>
#include <vector>

namespace tamsel {

// The history by the names of the items: what a list of thousands of items asks of a hundred thousand events. Made once
// and kept in step: what was recorded since is added, a list that was replaced is read anew. Main thread only.
class HistoryIndex {
public:
    explicit HistoryIndex(const History& history) : m_history(history) { update(); }

    // Takes in what changed in the history since the last call.
    void update();

    // The latest practice of the item of that name; nothing when there was none.
    std::optional<Date> lastPracticedDate(const QString& name) const;

    // Whole minutes of practice of that name at or after `since`, or of all time. An overflow stops the program.
    qint64 practiceTime(const QString& name, std::optional<Date> since) const;

private:
    struct Practice {
        Date date;
        quint64 earlier; // the minutes of all practices before it, as they come out in 64 bits
    };
    struct Item {
        std::vector<Practice> practices; // by date; never empty
        quint64 total = 0;               // the minutes of all of them, likewise
        bool isInOrder = true;
        bool isPlain = true; // no minutes are below zero, and all together are a number

        void add(Date date, qint64 minutes);
        qint64 minutesAt(std::size_t index) const;
        void putInOrder();
    };
    // The place of the name's item in m_items; a new one where there is none.
    std::size_t placeOf(const QString& name);
    void addMany(std::span<const HistoryEvent> events);
    const Item* find(const QString& name) const;

    const History& m_history;
    quint64 m_generation = 0;
    qsizetype m_known = 0; // events taken in so far
    NameIndex m_names;
    std::vector<Item> m_items; // by the numbers of their names
};

} // namespace tamsel
