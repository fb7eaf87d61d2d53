#include "metronome/Rhythm.h"

#include "metronome/Beep.h"

#include <QSet>

#include <gtest/gtest.h>

#include <algorithm>

namespace tamsel {
namespace {

using enum Rhythm;

struct Expected {
    Rhythm rhythm;
    const char* caseName;
    const char* identifier;
    int clicksPerBeat;
    int clicksPerGroup;
};

// In the order of the cases.
constexpr Expected table[] = {
    {eighths, "eighths", "8ths", 2, 2},
    {triplets, "triplets", "Triplets", 3, 3},
    {sixteenths, "sixteenths", "16ths", 4, 4},
    {quintuplets, "quintuplets", "Quintuplets", 5, 5},
    {sextuplets, "sextuplets", "Sextuplets", 6, 6},
    {septuplets, "septuplets", "Septuplets", 7, 7},
    {thirtySeconds, "thirtySeconds", "32nds", 8, 8},
    {zeroFour, "zeroFour", "", 1, 1},
    {oneFour, "oneFour", "1", 1, 1},
    {twoFour, "twoFour", "2", 1, 2},
    {threeFour, "threeFour", "3", 1, 3},
    {fourFour, "fourFour", "4", 1, 4},
    {fiveFour, "fiveFour", "5", 1, 5},
    {sixFour, "sixFour", "6", 1, 6},
    {sevenFour, "sevenFour", "7", 1, 7},
    {eightFour, "eightFour", "8", 1, 8},
    {nineFour, "nineFour", "9", 1, 9},
    {tenFour, "tenFour", "10", 1, 10},
    {elevenFour, "elevenFour", "11", 1, 11},
    {twelveFour, "twelveFour", "12", 1, 12},
};

TEST(Rhythm, TheTwentyCases) {
    ASSERT_EQ(allRhythms().size(), std::size(table));
    QSet<QString> identifiers;
    for (std::size_t i = 0; i < std::size(table); ++i) {
        const Expected& expected = table[i];
        SCOPED_TRACE(expected.caseName);
        EXPECT_EQ(static_cast<std::size_t>(expected.rhythm), i);
        EXPECT_EQ(allRhythms()[i], expected.rhythm);
        EXPECT_EQ(caseName(expected.rhythm), QLatin1String(expected.caseName));
        EXPECT_EQ(rhythmFromCaseName(QLatin1String(expected.caseName).toString()), expected.rhythm);
        EXPECT_EQ(identifier(expected.rhythm), QLatin1String(expected.identifier));
        EXPECT_EQ(clicksPerBeat(expected.rhythm), expected.clicksPerBeat);
        EXPECT_EQ(clicksPerGroup(expected.rhythm), expected.clicksPerGroup);
        EXPECT_EQ(isSubdivision(expected.rhythm), expected.clicksPerBeat > 1);
        const Accent expectedAccent = expected.rhythm == zeroFour  ? Accent::never
                                      : expected.rhythm == oneFour ? Accent::always
                                                                   : Accent::firstOfGroup;
        EXPECT_EQ(accent(expected.rhythm), expectedAccent);
        identifiers += identifier(expected.rhythm);
    }
    EXPECT_EQ(identifiers.size(), 20) << "none is shared";
}

TEST(Rhythm, OtherTextsNameNoCase) {
    for (const char* text : {"", "8ths", "Triplets", "zerofour", "zeroFour ", "thirteenFour"})
        EXPECT_EQ(rhythmFromCaseName(QLatin1String(text).toString()), std::nullopt) << text;
}

TEST(Rhythm, TheMenuLeavesFourSubdivisionsOut) {
    const std::vector<Rhythm> menu(offeredRhythms().begin(), offeredRhythms().end());
    EXPECT_EQ(menu, (std::vector<Rhythm>{zeroFour, eighths, triplets, sixteenths, oneFour, twoFour, threeFour, fourFour,
                                         fiveFour, sixFour, sevenFour, eightFour, nineFour, tenFour, elevenFour,
                                         twelveFour}));
}

TEST(Beep, IsComparedFieldByField) {
    EXPECT_EQ((Beep{triplets, 3}), (Beep{triplets, 3}));
    EXPECT_NE((Beep{triplets, 3}), (Beep{triplets, 4}));
    EXPECT_NE((Beep{triplets, 3}), (Beep{eighths, 3}));
}

} // namespace
} // namespace tamsel
