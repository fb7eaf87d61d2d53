#pragma once

#include "model/History.h"
#include "model/SettingsStore.h"
#include "platform/Platform.h"

namespace tamsel {

// When the user is asked for a review: at most twice in the life of the installation. Main thread only.
class ReviewPrompt {
public:
    // Everything handed in must outlive it.
    ReviewPrompt(SettingsStore& userDefaults, const History& history, const Platform& platform)
        : m_userDefaults(userDefaults), m_history(history), m_platform(platform) {}

    // First after more than three hours of practice in all; again after ten hours, when the first lies on a day before
    // the one seven days ago. Never under an interface test. A sum of minutes that overflows stops the program.
    bool shouldRequestReview() const;

    // The user was asked, now.
    void didRequestReview();

private:
    SettingsStore& m_userDefaults;
    const History& m_history;
    const Platform m_platform;
};

} // namespace tamsel
