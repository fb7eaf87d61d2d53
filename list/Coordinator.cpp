#include "list/Coordinator.h"

#include "practice/PracticeViewModel.h"

#include <memory>

namespace tamsel {

StackedScreen Coordinator::screen(const destinations::FromPracticeList& destination) const {
    return {QStringLiteral("PracticeScreen.qml"), QStringLiteral("practice"),
            std::make_unique<PracticeViewModel>(m_singletons, m_platform, destination.exercise, m_acceleration)};
}

} // namespace tamsel
