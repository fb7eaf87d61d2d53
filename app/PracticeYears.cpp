#include "app/PracticeYears.h"

#include <algorithm>
#include <array>
#include <random>

namespace tamsel {

namespace {

constexpr int daysPerYear = 365;
constexpr int weekDays = 7;
constexpr int warmUps = 3;
// How long a piece is worked on, in days.
constexpr int shortestProject = 40;
constexpr int longestProject = 160;

// std's distributions differ between libraries; this does not.
class Dice {
public:
    explicit Dice(std::uint64_t seed) : m_random(seed) {}

    int below(int bound) { return static_cast<int>(m_random() % static_cast<std::uint64_t>(bound)); }
    int between(int least, int most) { return least + below(most - least + 1); }
    bool chance(int percent) { return below(100) < percent; }

private:
    std::mt19937_64 m_random;
};

struct Project {
    int item = 0;
    int daysLeft = 0;
};

} // namespace

const QList<QString>& PracticeYears::itemNames() {
    static const QList<QString> names = {
        QStringLiteral("C Major Scales"),     QStringLiteral("Long Tones"),
        QStringLiteral("Sight Reading"),      QStringLiteral("Bach, Partita No. 2, Allemande"),
        QStringLiteral("Étude Op. 10 No. 4"), QStringLiteral("Mozart, Concerto in A, 1st movement"),
        QStringLiteral("Blues in F"),         QStringLiteral("Arpeggios and inversions"),
        QStringLiteral("Debussy, Syrinx"),    QStringLiteral("Double stops"),
        QStringLiteral("Brahms, Sonata"),     QStringLiteral("Autumn tune, solo"),
        QStringLiteral("Orchestra parts"),    QStringLiteral("Vibrato")};
    return names;
}

QList<HistoryEvent> PracticeYears::events(Date now, const Calendar& calendar, UuidSource& uuids) const {
    Dice dice(seed);
    QList<HistoryEvent> events;
    const int pieces = static_cast<int>(itemNames().size()) - warmUps;
    std::array<Project, 3> projects{};
    int nextPiece = 0;
    int holidays = 0;
    int mood = 60; // how likely a day is practised, in percent; drifts
    const int today = calendar.dayNumber(now);
    for (int day = today - years * daysPerYear + 1; day <= today; ++day) {
        for (Project& project : projects) {
            if (--project.daysLeft < 0)
                project = {warmUps + nextPiece++ % pieces, dice.between(shortestProject, longestProject)};
        }
        if (day % weekDays == 0)
            mood = std::clamp(mood + dice.between(-14, 15), 35, 92);
        if (holidays == 0 && dice.below(daysPerYear) < 3)
            holidays = dice.between(5, 14);
        holidays = std::max(0, holidays - 1);
        // 1970-01-01 was a Thursday.
        const bool isWeekend = day % weekDays == 2 || day % weekDays == 3;
        if (holidays > 0 || !dice.chance(mood + (isWeekend ? 8 : 0)))
            continue;

        double second = dice.between(15, 18) * 3600.0 + dice.below(3600);
        const auto practise = [&](int item, int minutes) {
            const Date date = calendar.startOfDay(day) + second;
            if (date < now) {
                HistoryEvent event = HistoryEvent::make(date, itemNames().at(item), minutes, uuids);
                if (item >= warmUps && dice.chance(30)) {
                    event.thumbsUp = dice.between(0, 12);
                    event.thumbsDown = dice.between(0, 5);
                }
                events += event;
            }
            second += minutes * 60.0 / diligence + dice.below(120);
        };
        for (int round = 0; round < diligence; ++round) {
            for (int item = 0; item < warmUps; ++item) {
                if (dice.chance(item == 0 ? 80 : 45))
                    practise(item, dice.between(5, 15));
            }
            const int goals = isWeekend ? 3 : dice.between(1, 2);
            for (int i = 0; i < goals; ++i)
                practise(projects[static_cast<std::size_t>(i)].item, dice.between(8, isWeekend ? 45 : 30));
        }
    }
    return events;
}

} // namespace tamsel
