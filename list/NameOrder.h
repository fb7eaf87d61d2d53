#pragma once

#include <QStringView>

namespace tamsel {

// Whether a name stands before another in the practice list: character by character as UTF-16 numbers, case counting,
// except that runs of the digits 0 to 9 compare by their value, however long. Names that differ in leading zeros only
// stand in the order of the first of those, fewer zeros first. The same on every device: no language takes part.
bool nameComesBefore(QStringView a, QStringView b);

} // namespace tamsel
