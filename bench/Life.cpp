#include "bench/Life.h"

#include "app/PracticeYears.h"
#include "model/ExerciseSettings.h"
#include "model/Json.h"
#include "model/Note.h"
#include "model/SettingsKeys.h"
#include "platform/UuidSource.h"

#include <QHash>

#include <random>

namespace tamsel::bench {

namespace {

constexpr int sessionsADay = 5; // of a diligent player: five times as many as one who is not
constexpr int itemsPerYear = 67;
constexpr int notesPerItem = 10;
constexpr int archivedOf = 3;
constexpr double secondsPerYear = 365.25 * 86400;

// Always the same identifiers.
class SeededUuids final : public UuidSource {
public:
    QUuid next() override {
        const auto low = m_random();
        const auto high = m_random();
        return {static_cast<uint>(low),
                static_cast<ushort>(low >> 32),
                static_cast<ushort>(0x4000 | (low >> 48 & 0xFFF)),
                static_cast<uchar>(0x80 | (high & 0x3F)),
                static_cast<uchar>(high >> 8),
                static_cast<uchar>(high >> 16),
                static_cast<uchar>(high >> 24),
                static_cast<uchar>(high >> 32),
                static_cast<uchar>(high >> 40),
                static_cast<uchar>(high >> 48),
                static_cast<uchar>(high >> 56)};
    }

private:
    std::mt19937_64 m_random{7};
};

template <class T>
void put(SettingsStore& store, const QString& key, const T& value) {
    store.setData(key, *json::encode(value));
}

} // namespace

void Life::store(SettingsStore& settingsStore, Date now, const Calendar& calendar) const {
    SeededUuids uuids;
    QList<HistoryEvent> events = PracticeYears{years, 1, sessionsADay}.events(now, calendar, uuids);
    // A piece comes back after years under a name of its own.
    QList<QString> names;
    QHash<QString, int> known;
    for (HistoryEvent& event : events) {
        const auto year =
            static_cast<int>((now.secondsSinceReference - event.date.secondsSinceReference) / secondsPerYear);
        if (year > 0)
            event.exerciseName += QStringLiteral(", %1 years ago").arg(year);
        if (!known.contains(event.exerciseName)) {
            known.insert(event.exerciseName, 0);
            names.prepend(event.exerciseName);
        }
    }
    for (int number = 1; names.size() < years * itemsPerYear; ++number)
        names.append(QStringLiteral("Étude No. %1").arg(number));

    QList<Exercise> items;
    QList<Exercise> archived;
    for (const QString& name : names) {
        const Exercise exercise{name, uuids.next()};
        const bool isArchived = items.size() > archivedOf * (archived.size() + 1);
        (isArchived ? archived : items) += exercise;
        QList<Note> notes;
        for (int i = 0; i < notesPerItem; ++i)
            notes +=
                Note{now + (-86400.0 * i), uuids.next(), QStringLiteral("Keep the wrist low; slower in bar %1").arg(i)};
        put(settingsStore, keys::notes(exercise), notes);
        put(settingsStore, keys::settings(exercise.id), ExerciseSettings{});
    }
    put(settingsStore, keys::exercises, items);
    put(settingsStore, keys::archivedExercises, archived);
    put(settingsStore, keys::historyEvents, events);
}

} // namespace tamsel::bench
