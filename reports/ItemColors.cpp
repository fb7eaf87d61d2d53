#include "reports/ItemColors.h"

#include <algorithm>

namespace tamsel {

int ItemColors::colorIndex(const QString& name) const {
    return std::max(m_history.names().find(name), 0) % paletteSize;
}

} // namespace tamsel
