#pragma once

#include "app/Singletons.h"
#include "list/Destinations.h"
#include "platform/Platform.h"
#include "practice/PracticeViewModel.h"

#include <memory>

namespace tamsel {

// Builds the screen model behind each destination, with the stores that it needs. Main thread only.
class Coordinator {
public:
    // `acceleration` is 1 in normal use: how many seconds of practice pass in one.
    Coordinator(Singletons& singletons, const Platform& platform, int acceleration)
        : m_singletons(singletons), m_platform(platform), m_acceleration(acceleration) {}

    std::unique_ptr<PracticeViewModel> screen(const destinations::FromPracticeList& destination) const;

private:
    Singletons& m_singletons;
    const Platform m_platform;
    const int m_acceleration;
};

} // namespace tamsel
