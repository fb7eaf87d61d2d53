#include "list/PracticeNavigationStackViewModel.h"

#include <utility>

namespace tamsel {

namespace {

std::optional<destinations::FromPracticeList> launchDestination(const Exercises& exercises) {
    if (exercises.items().size() != 1)
        return std::nullopt;
    return destinations::FromPracticeList{exercises.items().first(), std::nullopt};
}

} // namespace

PracticeNavigationStackViewModel::PracticeNavigationStackViewModel(Singletons& singletons, const Platform& platform,
                                                                   const Coordinator& coordinator)
    : m_coordinator(coordinator), m_practiceViewToShowOnAppLaunch(launchDestination(singletons.exercises)),
      m_practiceList(singletons, platform) {
    connect(&m_practiceList, &PracticeListViewModel::destinationChanged, this, [this] {
        if (const auto destination = m_practiceList.takeDestination())
            push(*destination);
    });
    if (m_practiceViewToShowOnAppLaunch)
        push(*m_practiceViewToShowOnAppLaunch);
}

void PracticeNavigationStackViewModel::push(const destinations::FromPracticeList& destination) {
    leave();
    m_leftPracticeViewModel = std::exchange(m_practiceViewModel, m_coordinator.screen(destination));
    Q_EMIT practiceViewModelChanged();
}

void PracticeNavigationStackViewModel::pop() {
    if (!m_practiceViewModel)
        return;
    leave();
    m_leftPracticeViewModel = std::move(m_practiceViewModel);
    Q_EMIT practiceViewModelChanged();
}

void PracticeNavigationStackViewModel::leave() {
    if (m_practiceViewModel)
        m_practiceViewModel->leave();
}

} // namespace tamsel
