#pragma once

#include <QString>

#include <optional>
#include <span>

namespace tamsel {

// What the metronome's clicks mean: a subdivision of each beat, or a time signature in quarter notes.
enum class Rhythm {
    eighths,
    triplets,
    sixteenths,
    quintuplets,
    sextuplets,
    septuplets,
    thirtySeconds,
    zeroFour,
    oneFour,
    twoFour,
    threeFour,
    fourFour,
    fiveFour,
    sixFour,
    sevenFour,
    eightFour,
    nineFour,
    tenFour,
    elevenFour,
    twelveFour,
};

enum class Accent {
    firstOfGroup, // the first click of each beat (subdivisions) or bar (time signatures) is high
    never,        // every click is low
    always,       // every click is high
};

// All twenty, in the order of their declaration.
std::span<const Rhythm> allRhythms();

// The sixteen that the practice screen offers, in the order of its menu.
std::span<const Rhythm> offeredRhythms();

// Unique; also the text in the rhythms menu. Empty for zeroFour.
QString identifier(Rhythm rhythm);

// The name of the case, such as "zeroFour".
QString caseName(Rhythm rhythm);

// The rhythm with that case name; none for any other text.
std::optional<Rhythm> rhythmFromCaseName(QStringView name);

// How many clicks sound per beat of the tempo: 2 to 8 for subdivisions, 1 for every time signature.
int clicksPerBeat(Rhythm rhythm);

// After how many clicks the pattern starts again: clicks in a beat for subdivisions, beats in a bar for time
// signatures.
int clicksPerGroup(Rhythm rhythm);

Accent accent(Rhythm rhythm);

bool isSubdivision(Rhythm rhythm);

} // namespace tamsel
