#include "metronome/Rhythm.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace tamsel {

namespace {

struct Row {
    Rhythm rhythm;
    const char* caseName;
    const char* identifier;
    int clicksPerBeat;
    int clicksPerGroup;
    Accent accent;
};

using enum Rhythm;
using enum Accent;

constexpr std::array<Row, 20> rows{{
    {eighths, "eighths", "8ths", 2, 2, firstOfGroup},
    {triplets, "triplets", "Triplets", 3, 3, firstOfGroup},
    {sixteenths, "sixteenths", "16ths", 4, 4, firstOfGroup},
    {quintuplets, "quintuplets", "Quintuplets", 5, 5, firstOfGroup},
    {sextuplets, "sextuplets", "Sextuplets", 6, 6, firstOfGroup},
    {septuplets, "septuplets", "Septuplets", 7, 7, firstOfGroup},
    {thirtySeconds, "thirtySeconds", "32nds", 8, 8, firstOfGroup},
    {zeroFour, "zeroFour", "", 1, 1, never},
    {oneFour, "oneFour", "1", 1, 1, always},
    {twoFour, "twoFour", "2", 1, 2, firstOfGroup},
    {threeFour, "threeFour", "3", 1, 3, firstOfGroup},
    {fourFour, "fourFour", "4", 1, 4, firstOfGroup},
    {fiveFour, "fiveFour", "5", 1, 5, firstOfGroup},
    {sixFour, "sixFour", "6", 1, 6, firstOfGroup},
    {sevenFour, "sevenFour", "7", 1, 7, firstOfGroup},
    {eightFour, "eightFour", "8", 1, 8, firstOfGroup},
    {nineFour, "nineFour", "9", 1, 9, firstOfGroup},
    {tenFour, "tenFour", "10", 1, 10, firstOfGroup},
    {elevenFour, "elevenFour", "11", 1, 11, firstOfGroup},
    {twelveFour, "twelveFour", "12", 1, 12, firstOfGroup},
}};

constexpr auto everyRhythm = [] {
    std::array<Rhythm, rows.size()> rhythms{};
    std::ranges::transform(rows, rhythms.begin(), &Row::rhythm);
    return rhythms;
}();

// A row is found by the number of its case.
static_assert(std::ranges::is_sorted(everyRhythm) && everyRhythm.back() == Rhythm{rows.size() - 1});

// Quintuplets, sextuplets, septuplets and thirty-seconds are left out deliberately.
constexpr std::array menu{zeroFour, eighths, triplets,  sixteenths, oneFour,  twoFour, threeFour,  fourFour,
                          fiveFour, sixFour, sevenFour, eightFour,  nineFour, tenFour, elevenFour, twelveFour};

const Row& row(Rhythm rhythm) {
    return rows[static_cast<std::size_t>(rhythm)];
}

} // namespace

std::span<const Rhythm> allRhythms() {
    return everyRhythm;
}

std::span<const Rhythm> offeredRhythms() {
    return menu;
}

QString identifier(Rhythm rhythm) {
    return QString::fromLatin1(row(rhythm).identifier);
}

QString caseName(Rhythm rhythm) {
    return QString::fromLatin1(row(rhythm).caseName);
}

std::optional<Rhythm> rhythmFromCaseName(QStringView name) {
    for (const Row& each : rows) {
        if (name == QLatin1String(each.caseName))
            return each.rhythm;
    }
    return std::nullopt;
}

int clicksPerBeat(Rhythm rhythm) {
    return row(rhythm).clicksPerBeat;
}

int clicksPerGroup(Rhythm rhythm) {
    return row(rhythm).clicksPerGroup;
}

Accent accent(Rhythm rhythm) {
    return row(rhythm).accent;
}

bool isSubdivision(Rhythm rhythm) {
    return rhythm <= thirtySeconds;
}

} // namespace tamsel
