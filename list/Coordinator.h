#pragma once

#include "app/Singletons.h"
#include "list/Destinations.h"
#include "list/NavigationStackViewModel.h"
#include "list/TipProvider.h"
#include "platform/Platform.h"
#include "practice/PracticeViewModel.h"

namespace tamsel {

// Builds the screen behind each destination, with the stores that its model needs. Main thread only.
class Coordinator {
public:
    // `acceleration` is 1 in normal use: how many seconds of practice pass in one. `tipProvider` is null where there is
    // no store that could take a tip.
    Coordinator(Singletons& singletons, const Platform& platform, int acceleration, TipProvider* tipProvider = nullptr)
        : m_singletons(singletons), m_platform(platform), m_acceleration(acceleration), m_tipProvider(tipProvider) {}

    StackedScreen screen(const destinations::FromPracticeList& destination) const;
    // `practice` is the screen that it is opened from.
    StackedScreen screen(const destinations::FromPracticeView& destination, PracticeViewModel& practice) const;

    TipProvider* tipProvider() const { return m_tipProvider; }

private:
    Singletons& m_singletons;
    const Platform m_platform;
    const int m_acceleration;
    TipProvider* const m_tipProvider;
};

} // namespace tamsel
