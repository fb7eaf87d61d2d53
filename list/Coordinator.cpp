#include "list/Coordinator.h"

#include "practice/ItemHistoryViewModel.h"
#include "practice/NotesViewModel.h"
#include "practice/PracticeViewModel.h"

#include <memory>

namespace tamsel {

StackedScreen Coordinator::screen(const destinations::FromPracticeList& destination) const {
    return {QStringLiteral("PracticeScreen.qml"), QStringLiteral("practice"),
            std::make_unique<PracticeViewModel>(m_singletons, m_platform, destination.exercise, m_acceleration)};
}

StackedScreen Coordinator::screen(const destinations::FromPracticeView& destination,
                                  PracticeViewModel& practice) const {
    using enum destinations::FromPracticeView::Case;
    switch (destination.leadsTo) {
    case history:
        return {QStringLiteral("ItemHistoryScreen.qml"), QStringLiteral("history"),
                std::make_unique<ItemHistoryViewModel>(m_singletons.history, m_platform.calendar,
                                                       destination.exercise.name)};
    case notes:
        break;
    }
    return {
        QStringLiteral("NotesScreen.qml"), QStringLiteral("notes"),
        std::make_unique<NotesViewModel>(m_singletons.notes, m_platform, destination.exercise, practice.noteDrafts())};
}

} // namespace tamsel
