#pragma once

#include "model/Exercise.h"
#include "model/PracticeSession.h"

#include <optional>

// Where a navigation stack can lead, as values.
namespace tamsel::destinations {

// From the practice list to an item's practice screen, opened from the list or from one of today's sessions.
struct FromPracticeList {
    Exercise exercise;
    std::optional<PracticeSession> session;

    bool operator==(const FromPracticeList&) const = default;
};

} // namespace tamsel::destinations
