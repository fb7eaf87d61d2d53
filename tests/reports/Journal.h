#pragma once

#include "model/HistoryEvent.h"
#include "tests/support/World.h"

#include <QList>
#include <QString>

namespace tamsel::test {

// A world whose journal a test writes itself. It is noon of Thursday, 2024-03-14, UTC.
class Journal : public World {
public:
    static constexpr double day = 86400;

    // An event so many seconds before now.
    void add(double secondsAgo, const char* exercise, qint64 minutes) {
        addAt(clock.now() - secondsAgo, exercise, minutes);
    }
    void addAt(Date date, const char* exercise, qint64 minutes) {
        QList<HistoryEvent> events = singletons->history.events();
        events += HistoryEvent::make(date, QString::fromUtf8(exercise), minutes, uuids);
        singletons->history.setEvents(events);
    }
    History& history() { return singletons->history; }
};

} // namespace tamsel::test
