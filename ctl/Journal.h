#pragma once

#include "app/Singletons.h"
#include "ctl/Command.h"
#include "metronome/OfflineOutput.h"
#include "metronome/SystemAudioSession.h"
#include "model/MemorySettingsStore.h"
#include "platform/Platform.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

namespace tamsel::ctl {

// The user's stores to be read by a command, also while the app runs: on a copy in memory, which nothing leaves. Where
// there is no data yet, they are empty. Main thread only.
class Journal {
public:
    struct [[nodiscard]] Opened {
        std::unique_ptr<Journal> journal; // null when the data cannot be read
        QString failure;                  // then one line that says why
    };
    // The data in the settings file at this path.
    static Opened open(const QString& path);

    Singletons& singletons() { return *m_singletons; }
    const Platform& platform() const { return m_platform; }

private:
    // Nothing is left to a later turn: a command has none.
    class NoQueue final : public Queue {
    public:
        void async(Work work) override { work(); }
        void asyncAfter(std::chrono::nanoseconds, Work) override {}
    };

    Journal() = default;

    SystemClock m_clock;
    Calendar m_calendar = Calendar::device();
    NoQueue m_mainQueue;
    RandomUuids m_uuids;
    const Platform m_platform{m_clock, m_calendar, m_mainQueue, m_uuids};
    MemorySettingsStore m_store;
    OfflineOutput m_output;
    SystemAudioSession m_session;
    std::optional<Singletons> m_singletons;
};

// What a command shows of the data, once its words are understood.
using Show = std::function<QString(Singletons& singletons, const Platform& platform)>;

// What these arguments ask for. Throws the `Answer` where they are wrong or ask for help: that takes no data.
using Understand = Show (*)(const QStringList& arguments);

// The answer from these stores, and from the user's data, told.
Answer answer(Understand understand, const QStringList& arguments, Singletons& singletons, const Platform& platform);
ExitCode tellFromJournal(Understand understand, const QStringList& arguments);

// A numbered day as YYYY-MM-DD, or its month as YYYY-MM.
QString calendarDate(int dayNumber, bool withDay);

} // namespace tamsel::ctl
