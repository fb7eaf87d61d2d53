// record_session FOLDER NAME SECONDS: what a program does that starts, records one finished session and ends. It loads
// the journal and writes today's log and the journal durably, as the app does.
#include "model/DailyLog.h"
#include "model/History.h"
#include "model/SqliteSettingsStore.h"
#include "platform/Calendar.h"
#include "platform/Clock.h"
#include "platform/MainQueue.h"
#include "platform/UuidSource.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char* argv[]) {
    using namespace tamsel;
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 4) {
        std::fputs("usage: record_session FOLDER NAME SECONDS\n", stderr);
        return 2;
    }
    SystemClock clock;
    Calendar calendar = Calendar::device();
    MainQueue mainQueue;
    RandomUuids uuids;
    const auto opened = SqliteSettingsStore::open(arguments.at(1));
    if (!opened.store) {
        std::fprintf(stderr, "%s\n", opened.failure.toUtf8().constData());
        return 1;
    }
    DailyLog dailyLog(*opened.store, clock, calendar);
    History history(dailyLog, *opened.store, clock, calendar, mainQueue, uuids);
    const Exercise exercise{arguments.at(2), uuids.next()};
    const auto session =
        PracticeSession::make(clock.now(), exercise, arguments.at(3).toLongLong(), SessionType::stopwatch);
    if (!session)
        return 2;
    history.record(*session);
    return opened.store->writeFailure() ? 1 : 0;
}
