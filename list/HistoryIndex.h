#pragma once

#include "model/History.h"
#include "platform/Date.h"

#include <QString>

#include <optional>
#include <vector>

namespace tamsel {

// The history by the names of the items: what a list of thousands of items asks of a hundred thousand events. Kept in
// step: what was recorded since is added, a list that was replaced is read anew. Main thread only.
class HistoryIndex {
public:
    struct Practice {
        std::optional<Date> last; // nothing when there was none
        qint64 minutes = 0;       // of the span, whole

        bool operator==(const Practice&) const = default;
    };

    explicit HistoryIndex(const History& history) : m_history(history) {}

    // Takes in what changed in the history since the last call. The span begins at `since`, or is all time. Another
    // span costs a look at its events, not at those before it.
    void update(std::optional<Date> since);

    // Of the item of that name, as of the last update. An overflow stops the program.
    Practice practice(const QString& name) const;

private:
    struct Sum {
        qint64 minutes = 0;
        bool isNoNumber = false; // it does not fit

        void add(qint64 more) { isNoNumber |= __builtin_add_overflow(minutes, more, &minutes); }
    };
    struct Item {
        Date last;
        Sum ofSpan;
        Sum all;
    };

    // Before this position, no event belongs to the span.
    qsizetype earliestOfSpan(Date since) const;

    const History& m_history;
    quint64 m_generation = 0;
    qsizetype m_known = 0;       // events taken in so far
    std::optional<Date> m_since; // where the items' spans begin; while nothing, they count nothing
    std::vector<Item> m_items;   // by the numbers of their names
    // The latest date of all events up to the end of each stretch of them. It only rises, whatever the order of the
    // events, and so tells where a span may begin.
    std::vector<Date> m_latest;
};

} // namespace tamsel
