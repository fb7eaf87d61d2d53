#include "list/PracticeNavigationStackViewModel.h"

#include "list/OpenReport.h"
#include "practice/NotesViewModel.h"
#include "reports/PracticeTimeDetailViewModel.h"

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

PracticeViewModel* PracticeNavigationStackViewModel::practiceViewModel() const {
    return depth() == 0 ? nullptr : qobject_cast<PracticeViewModel*>(screenModel(0));
}

void PracticeNavigationStackViewModel::push(const destinations::FromPracticeList& destination) {
    // Before the next screen is made: it takes charge of the metronome.
    leave();
    replaceAll(m_coordinator.screen(destination));
    follow(*practiceViewModel());
}

void PracticeNavigationStackViewModel::follow(PracticeViewModel& practice) {
    using destinations::FromPracticeView;
    connect(&practice, &PracticeViewModel::isShowingHistoryChanged, this, [this, &practice] {
        if (practice.isShowingHistory())
            openReport(*this, m_coordinator,
                       m_coordinator.screen(FromPracticeView::history(practice.exercise()), practice));
    });
    connect(&practice, &PracticeViewModel::isShowingNotesChanged, this, [this, &practice] {
        if (practice.isShowingNotes())
            NavigationStackViewModel::push(
                m_coordinator.screen(FromPracticeView::notes(practice.exercise()), practice));
    });
}

void PracticeNavigationStackViewModel::push(const destinations::FromPracticeView& destination) {
    PracticeViewModel* const practice = practiceViewModel();
    if (practice == nullptr || practice->exercise() != destination.exercise)
        return;
    practice->setIsShowingHistory(destination.leadsTo == destinations::FromPracticeView::Case::history);
    practice->setIsShowingNotes(destination.leadsTo == destinations::FromPracticeView::Case::notes);
}

void PracticeNavigationStackViewModel::leave() {
    if (practiceViewModel() == nullptr)
        return;
    // First, because it hands on what is being typed there.
    if (auto* const notes = qobject_cast<NotesViewModel*>(screenModel(depth() - 1)))
        notes->leave();
    practiceViewModel()->leave();
}

void PracticeNavigationStackViewModel::leaving(QObject& screenModel) {
    if (auto* const practice = qobject_cast<PracticeViewModel*>(&screenModel))
        practice->leave();
    else if (practiceViewModel() == nullptr)
        return;
    else if (auto* const notes = qobject_cast<NotesViewModel*>(&screenModel)) {
        notes->leave();
        practiceViewModel()->setIsShowingNotes(false);
    } else if (qobject_cast<PracticeTimeDetailViewModel*>(&screenModel) != nullptr) {
        // A month or a day that was opened from it leaves it where it is.
        practiceViewModel()->setIsShowingHistory(false);
    }
}

bool PracticeNavigationStackViewModel::closesWithin(QObject& screenModel) {
    auto* const practice = qobject_cast<PracticeViewModel*>(&screenModel);
    if (practice == nullptr || !(practice->isShowingNotes() || practice->isShowingHistory()))
        return false;
    practice->setIsShowingNotes(false);
    practice->setIsShowingHistory(false);
    return true;
}

} // namespace tamsel
