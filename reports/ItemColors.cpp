#include "reports/ItemColors.h"

#include <algorithm>

namespace tamsel {

int ItemColors::colorIndex(const QString& name) {
    const QList<HistoryEvent>& events = m_history.events();
    if (m_generation != m_history.generation() || m_events > events.size()) {
        m_names = {};
        m_events = 0;
        m_generation = m_history.generation();
    }
    for (; m_events < events.size(); ++m_events)
        m_names.indexOf(events.at(m_events).exerciseName);
    return std::max(m_names.find(name), 0) % paletteSize;
}

} // namespace tamsel
