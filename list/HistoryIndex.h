#pragma once

#include "model/History.h"
#include "platform/Date.h"

#include <QHash>
#include <QString>

#include <optional>
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
    // Sums of minutes, none of which is too large for it.
    __extension__ typedef __int128 WideMinutes;

    struct Practice {
        Date date;
        qint64 minutes;
        WideMinutes earlier; // the minutes of all practices before it
    };
    struct Item {
        std::vector<Practice> practices; // by date; never empty
        bool isInOrder = true;
    };

    static void putInOrder(Item& item);

    const History& m_history;
    quint64 m_generation = 0;
    qsizetype m_known = 0; // events taken in so far
    QHash<QString, Item> m_items;
};

} // namespace tamsel
