#include "reports/ItemColors.h"

#include <algorithm>

namespace tamsel {

ItemColors::ItemColors(History& history)
    : m_history(history), m_subscription(history.eventsChanged().subscribe([this] { m_isCurrent = false; })) {}

int ItemColors::colorIndex(const QString& name) {
    if (!m_isCurrent) {
        m_names = {};
        for (const HistoryEvent& event : m_history.events())
            m_names.indexOf(event.exerciseName);
        m_isCurrent = true;
    }
    return std::max(m_names.find(name), 0) % paletteSize;
}

} // namespace tamsel
