#pragma once

#include "model/DailyLog.h"
#include "model/DataFile.h"
#include "model/DataStores.h"
#include "model/Json.h"
#include "model/MemorySettingsStore.h"
#include "platform/Calendar.h"
#include "platform/InlineQueue.h"
#include "tests/support/FakeClock.h"
#include "tests/support/ManualQueue.h"

#include <gtest/gtest.h>

#include <memory>

namespace tamsel::test {

// Fresh identifiers without end, the same in each run.
class CountingUuids final : public UuidSource {
public:
    explicit CountingUuids(quint32 first = 1) : m_next(first) {}
    QUuid next() override { return {m_next++, 0, 0x4000, 0x80, 0, 0, 0, 0, 0, 0, 0}; }

private:
    quint32 m_next;
};

// The stores of a user's data on a settings store, in a time of the test's own. Renames are done at once.
class DataWorld {
public:
    explicit DataWorld(SettingsStore& settings)
        : userDefaults(settings), dailyLog(settings, clock, calendar), exercises(settings, uuids),
          history(dailyLog, settings, clock, calendar, mainQueue, uuids, std::make_unique<InlineQueue>()),
          notes(settings) {}

    DataStores stores() { return {userDefaults, exercises, history, notes}; }
    QByteArray document() { return json::encode(stores().makeDataDump()).value_or(QByteArray()); }

    FakeClock clock;
    Calendar calendar{QStringLiteral("UTC")};
    InlineQueue mainQueue;
    CountingUuids uuids{1000};
    SettingsStore& userDefaults;
    DailyLog dailyLog;
    Exercises exercises;
    History history;
    Notes notes;
};

inline QByteArray testData(const char* name) {
    const auto bytes = datafile::read(QStringLiteral(TAMSEL_TEST_DATA "/") + QLatin1String(name));
    EXPECT_TRUE(bytes) << name;
    return bytes ? *bytes : QByteArray();
}

} // namespace tamsel::test
