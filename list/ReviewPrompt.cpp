#include "list/ReviewPrompt.h"

#include "model/SettingsKeys.h"
#include "platform/Checked.h"

namespace tamsel {

namespace {

constexpr qint64 minutesBeforeFirstPrompt = 180; // more than these
constexpr qint64 minutesForSecondPrompt = 601;   // at least these
constexpr double secondsBetweenPrompts = 604'800;

qint64 totalMinutes(const QList<HistoryEvent>& events) {
    qint64 minutes = 0;
    for (const HistoryEvent& event : events)
        minutes = checkedAdd(minutes, event.practiceTime);
    return minutes;
}

} // namespace

bool ReviewPrompt::shouldRequestReview() const {
    if (m_platform.launch.isUnderInterfaceTest)
        return false;
    const Date lastRequest = Date::fromUnixSeconds(m_userDefaults.real(keys::dateOfLastReviewRequest));
    switch (m_userDefaults.integer(keys::numberOfPromptsForReview)) {
    case 0:
        return totalMinutes(m_history.events()) > minutesBeforeFirstPrompt;
    case 1: {
        const Calendar& calendar = m_platform.calendar;
        return totalMinutes(m_history.events()) >= minutesForSecondPrompt &&
               calendar.startOfDay(lastRequest) < calendar.startOfDay(m_platform.clock.now() - secondsBetweenPrompts);
    }
    default:
        return false;
    }
}

void ReviewPrompt::didRequestReview() {
    m_userDefaults.atomically([this] {
        m_userDefaults.setReal(keys::dateOfLastReviewRequest, m_platform.clock.now().unixSeconds());
        m_userDefaults.setInteger(keys::numberOfPromptsForReview,
                                  checkedAdd(m_userDefaults.integer(keys::numberOfPromptsForReview), 1));
    });
}

} // namespace tamsel
