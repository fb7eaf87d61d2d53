#include "list/Coordinator.h"

namespace tamsel {

std::unique_ptr<PracticeViewModel> Coordinator::screen(const destinations::FromPracticeList& destination) const {
    return std::make_unique<PracticeViewModel>(m_singletons, m_platform, destination.exercise, m_acceleration);
}

} // namespace tamsel
