#pragma once

#include <QString>

namespace tamsel {

// What one row of the practice list shows.
struct ListRow {
    QString identifier; // of the element, for tests and screen readers
    QString name;
    QString detail;
    QString durationText; // may be empty

    bool operator==(const ListRow&) const = default;
};

} // namespace tamsel
