#pragma once

#include "app/Singletons.h"
#include "metronome/AudioSession.h"
#include "metronome/OfflineOutput.h"
#include "model/MemorySettingsStore.h"
#include "platform/Platform.h"
#include "tests/support/FakeClock.h"
#include "tests/support/ManualQueue.h"
#include "tests/support/SequentialUuids.h"

#include <QList>

#include <memory>

namespace tamsel::test {

// An audio session that agrees to everything, or fails at the step it is told to fail at.
class FakeAudioSession final : public AudioSession {
public:
    std::optional<QString> setCategory(Category, Mixing) override { return step(QStringLiteral("setCategory")); }
    std::optional<QString> activate() override { return step(QStringLiteral("activate")); }
    void beginReceivingRemoteControlEvents() override { steps += QStringLiteral("beginReceivingRemoteControlEvents"); }

    QStringList steps;
    QString failingStep;

private:
    std::optional<QString> step(const QString& name) {
        steps += name;
        return name == failingStep ? std::optional(QStringLiteral("the session is busy")) : std::nullopt;
    }
};

// Everything below the screens, in a test's own time and memory. `restart` makes the stores anew from what is stored.
class World {
public:
    World() { restart(); }

    void restart() {
        singletons.reset();
        singletons = std::make_unique<Singletons>(store, platform, output, session);
    }

    FakeClock clock;
    Calendar calendar{QStringLiteral("UTC")};
    ManualQueue mainQueue{clock};
    SequentialUuids uuids;
    Platform platform{clock, calendar, mainQueue, uuids};
    MemorySettingsStore store;
    OfflineOutput output;
    FakeAudioSession session;
    std::unique_ptr<Singletons> singletons;
};

} // namespace tamsel::test
