// make_life YEARS FOLDER: stores so many years of a made-up player's practice there.
#include "bench/Life.h"
#include "model/SqliteSettingsStore.h"
#include "platform/Clock.h"

#include <QString>

#include <cstdio>

int main(int argc, char* argv[]) {
    using namespace tamsel;
    if (argc != 3) {
        std::fputs("usage: make_life YEARS FOLDER\n", stderr);
        return 2;
    }
    const auto opened = SqliteSettingsStore::open(QString::fromLocal8Bit(argv[2]));
    if (!opened.store) {
        std::fprintf(stderr, "%s\n", opened.failure.toUtf8().constData());
        return 1;
    }
    const SystemClock clock;
    const bench::Life life{QString::fromLocal8Bit(argv[1]).toInt()};
    life.store(*opened.store, clock.now(), Calendar::device());
    return opened.store->writeFailure() ? 1 : 0;
}
