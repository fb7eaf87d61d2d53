#include "metronome/StandardTempos.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tamsel::standardTempos {

namespace {

// Ascending.
constexpr std::array<qint64, 49> table = {30,  32,  34,  36,  38,  40,  42,  44,  46,  48,  50,  52,  54,
                                          56,  58,  60,  63,  66,  69,  72,  76,  80,  84,  88,  92,  96,
                                          100, 104, 108, 112, 116, 120, 126, 132, 138, 144, 152, 160, 168,
                                          176, 184, 192, 200, 208, 216, 224, 232, 240, 252};

} // namespace

qint64 above(qint64 tempo) {
    const auto* const found = std::ranges::upper_bound(table, tempo);
    return found == table.end() ? tempo : *found;
}

qint64 below(qint64 tempo) {
    const auto* const found = std::ranges::lower_bound(table, tempo);
    return found == table.begin() ? tempo : *(found - 1);
}

qint64 nearest(double tempo) {
    const auto distance = [tempo](qint64 entry) { return std::abs(static_cast<double>(entry) - tempo); };
    // The first of equals is the lower one.
    return *std::ranges::min_element(table, {}, distance);
}

} // namespace tamsel::standardTempos
