#pragma once

#include "app/Singletons.h"
#include "metronome/OfflineOutput.h"
#include "model/MemorySettingsStore.h"
#include "platform/Platform.h"
#include "tests/metronome/FakeAudioSession.h"
#include "tests/support/FakeClock.h"
#include "tests/support/FakeShakeSource.h"
#include "tests/support/ManualQueue.h"
#include "tests/support/SequentialUuids.h"

#include <memory>

namespace tamsel::test {

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
    FakeShakeSource shakes;
    Platform platform{clock, calendar, mainQueue, uuids, {}, &shakes};
    MemorySettingsStore store;
    OfflineOutput output;
    FakeAudioSession session;
    std::unique_ptr<Singletons> singletons;
};

} // namespace tamsel::test
