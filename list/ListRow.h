#pragma once

#include <QString>

namespace tamsel {

// What one row of the practice list shows.
struct ListRow {
    QString name;
    QString detail;       // may be empty
    QString durationText; // may be empty

    bool operator==(const ListRow&) const = default;
};

} // namespace tamsel
