#include "model/DataCheck.h"
#include "model/RunningPractice.h"
#include "model/SqliteSettingsStore.h"
#include "model/StoredSettings.h"
#include "platform/Log.h"
#include "tests/model/DataWorld.h"
#include "tests/model/TemporaryFolder.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <optional>
#include <random>

namespace tamsel {
namespace {

// Edits, recordings and imports one after another. What each does follows from its number and the data before it, so
// that a second storm on data of its own goes through the same states.
class Storm {
public:
    explicit Storm(SettingsStore& store) : m_world(store), m_running(store, m_world.clock) {}

    void change(int number) {
        m_random.seed(static_cast<unsigned>(number));
        m_world.uuids = test::CountingUuids(static_cast<quint32>(number) * 100'000);
        m_world.clock.wall = test::FakeClock().wall + number;
        const QList<Exercise>& items = m_world.exercises.items();
        const int kind = items.size() < 3 ? 0 : below(12);
        const Exercise item = items.isEmpty() ? Exercise() : items.at(below(static_cast<int>(items.size())));
        const QString name = QStringLiteral("Item %1 🎻").arg(number);
        switch (kind) {
        case 0:
            m_world.exercises.add(name);
            break;
        case 1:
            m_world.exercises.rename(item, name);
            break;
        case 2:
            m_world.history.renameExercise(item.name, name);
            break;
        case 3:
            m_world.exercises.archive(item);
            break;
        case 4:
            if (!m_world.exercises.archivedItems().isEmpty())
                m_world.exercises.unarchive(m_world.exercises.archivedItems().first());
            break;
        case 5:
            m_world.exercises.remove(item);
            break;
        case 6:
            m_world.exercises.move(0, items.size() - 1);
            break;
        case 7:
            m_world.notes.add({m_world.clock.now(), m_world.uuids.next(), name.repeated(below(3000))}, item);
            break;
        case 8:
            storeSettings(m_world.userDefaults, item.id, settings());
            break;
        case 9:
            if (m_running.left().isEmpty())
                m_running.update(item, SessionType::timer, 3 + below(1000));
            else
                m_running.forgetLeft();
            break;
        case 10:
            m_world.stores().replace(document());
            break;
        default:
            m_world.history.record(
                *PracticeSession::make(m_world.clock.now(), item, 3 + below(300), SessionType::stopwatch));
        }
    }

private:
    int below(int bound) { return static_cast<int>(m_random() % static_cast<unsigned>(bound)); }

    ExerciseSettings settings() {
        ExerciseSettings result;
        result.tempo = 1 + below(500);
        return result;
    }

    // From no events to some thousand.
    DataDump document() {
        DataDump dump;
        const int items = 3 + below(9);
        for (int i = 0; i < items; ++i)
            dump.allExercises += Exercise{QStringLiteral("Imported %1").arg(i), m_world.uuids.next()};
        for (const Exercise& each : dump.allExercises) {
            dump.allExerciseSettings.append({each, settings()});
            dump.allNotes.append({each, {Note{m_world.clock.now(), m_world.uuids.next(), each.name}}});
        }
        for (int i = below(3000); i > 0; --i) {
            const QString& name = dump.allExercises.at(below(items)).name;
            dump.allHistory += HistoryEvent::make(m_world.clock.now() - i, name, below(90), m_world.uuids);
        }
        return dump;
    }

    test::DataWorld m_world;
    RunningPractice m_running;
    std::mt19937 m_random;
};

[[noreturn]] void changeUntilKilled(const QString& folder, int first, int acknowledgements) {
    setLogStream(std::fopen("/dev/null", "w"));
    const auto opened = SqliteSettingsStore::open(folder);
    if (!opened.store)
        ::_exit(1);
    Storm storm(*opened.store);
    for (int number = first;; ++number) {
        storm.change(number);
        if (::write(acknowledgements, &number, sizeof number) != sizeof number)
            ::_exit(1);
    }
}

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
constexpr int usualKills = 40;
#else
constexpr int usualKills = 10; // each start takes long
#endif

// TAMSEL_KILLS asks for more than usual.
int wantedKills() {
    const int wanted = qEnvironmentVariableIntValue("TAMSEL_KILLS");
    return wanted > 0 ? wanted : usualKills;
}

TEST(DataStormTest, WhoeverIsKilledLeavesTheOldStateOrTheNewWithEveryAcknowledgedChange) {
    const test::LogCapture console;
    const test::TemporaryFolder folder;
    std::mt19937 random(2024);
    MemorySettingsStore expected;
    std::optional<Storm> storm(std::in_place, expected);
    int next = 1; // the first change that is not known to be on disk
    int unacknowledged = 0;
    for (int kill = 0; kill < wantedKills(); ++kill) {
        SCOPED_TRACE(testing::Message() << "kill " << kill << ", change " << next);
        std::array<int, 2> pipe{};
        ASSERT_EQ(::pipe(pipe.data()), 0);
        const pid_t child = ::fork();
        if (child == 0)
            changeUntilKilled(folder.path(), next, pipe[1]);
        ::close(pipe[1]);
        int acknowledged = 0;
        for (auto i = 1 + random() % 20; i > 0; --i)
            ASSERT_EQ(::read(pipe[0], &acknowledged, sizeof acknowledged), ssize_t{sizeof acknowledged});
        // Somewhere within the next change, or the one after it.
        for (volatile auto spin = random() % 1'500'000; spin > 0;)
            spin = spin - 1;
        ::kill(child, SIGKILL);
        for (int last = 0; ::read(pipe[0], &last, sizeof last) == ssize_t{sizeof last};)
            acknowledged = last;
        ::close(pipe[0]);
        ASSERT_EQ(::waitpid(child, nullptr, 0), child);

        for (; next <= acknowledged; ++next)
            storm->change(next);
        const auto opened = SqliteSettingsStore::open(folder.path());
        ASSERT_TRUE(opened.store) << opened.failure.toStdString();
        const auto found = opened.store->dictionaryRepresentation();
        if (found != expected.dictionaryRepresentation()) {
            ++unacknowledged;
            storm->change(next++);
            ASSERT_TRUE(found == expected.dictionaryRepresentation()) << "neither the old state nor the new";
        }
        // What a start makes of it.
        storm.emplace(expected);
    }
    RecordProperty("kills", wantedKills());
    RecordProperty("changes", next - 1);
    RecordProperty("killedBetweenDiskAndAcknowledgement", unacknowledged);
}

} // namespace
} // namespace tamsel
