#pragma once

#include "model/PracticeSession.h"
#include "platform/Calendar.h"
#include "platform/Date.h"

#include <QList>
#include <QString>

#include <optional>

namespace tamsel {

// What was practised today.
struct DailyLogSection {
    struct Row {
        PracticeSession session;

        bool operator==(const Row&) const = default;
    };

    QList<Row> rows; // at least one
    QString title;   // today's date and how long the rows are together

    // Today's sessions, those of one item that follow each other made one; while something is searched for, those of
    // them whose item's name contains it. The search deliberately heeds case, unlike that of the other sections.
    // Nothing when no row remains.
    static std::optional<DailyLogSection> make(const QList<PracticeSession>& sessions, const QString& searchBarText,
                                               Date now, const Calendar& calendar);
};

} // namespace tamsel
