#pragma once

#include "model/History.h"

#include <QString>

namespace tamsel {

// The colour of each item in charts: items get the theme's chart colours in the order in which they were first
// practised, so that an item keeps its colour on every screen and as long as its events are there. Main thread only.
class ItemColors {
public:
    // How many colours the theme has for items. Beyond that they come again.
    static constexpr int paletteSize = 12;
    // The colour of what several items share.
    static constexpr int shared = -1;
    // Where two items of one chart have the same colour, the less practised one has a second tone of it, whose number
    // is higher by the palette's size.
    static constexpr int tones = 2;

    explicit ItemColors(const History& history) : m_history(history) {}

    // 0 to paletteSize - 1.
    int colorIndex(const QString& name) const;

private:
    const History& m_history;
};

} // namespace tamsel
