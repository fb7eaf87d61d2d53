#include "reports/ChartBuilder.h"

#include "model/NameIndex.h"
#include "platform/Checked.h"
#include "platform/TimeUnits.h"
#include "reports/Formats.h"
#include "reports/ReportData.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <vector>

namespace tamsel {

namespace {

// A hundred years of months. What lies further back is in the list, but no screen has room for its bars.
constexpr qsizetype mostBars = 1200;
// More colours than this do not tell items apart any more.
constexpr std::size_t mostColors = 7;
constexpr double shareOfGap = 0.3;
constexpr qint64 mostValueMarks = 4;

struct ItemMinutes {
    std::size_t item;
    qint64 minutes;
};

// The reports' minutes by item. Items are numbered in the order of their sums, the largest first.
struct Stacks {
    std::vector<std::vector<ItemMinutes>> bars; // in the order of the reports
    std::vector<qint64> heights;
    std::vector<QString> items;
};

Stacks stacksOf(const QList<ChartData::SessionsReport>& reports) {
    Stacks stacks;
    NameIndex names;
    std::vector<qint64> sums;
    std::vector<qint64> ofBar;
    for (const ChartData::SessionsReport& report : reports) {
        std::vector<ItemMinutes> bar;
        std::vector<std::size_t> inBar;
        for (const ChartData::Session& session : report.sessions) {
            // Nobody practises for less than nothing, but a document can say so.
            if (session.minutes <= 0)
                continue;
            const auto item = static_cast<std::size_t>(names.indexOf(session.item));
            if (item == sums.size()) {
                sums.push_back(0);
                ofBar.push_back(0);
            }
            if (ofBar[item] == 0)
                inBar.push_back(item);
            ofBar[item] = checkedAdd(ofBar[item], session.minutes);
        }
        qint64 height = 0;
        for (const std::size_t item : inBar) {
            bar.push_back({item, ofBar[item]});
            sums[item] = checkedAdd(sums[item], ofBar[item]);
            height = checkedAdd(height, ofBar[item]);
            ofBar[item] = 0;
        }
        stacks.bars.push_back(std::move(bar));
        stacks.heights.push_back(height);
    }

    std::vector<std::size_t> order(sums.size());
    std::iota(order.begin(), order.end(), 0);
    const auto nameOf = [&](std::size_t item) { return names.names().at(static_cast<qsizetype>(item)); };
    std::ranges::sort(order, [&](std::size_t a, std::size_t b) {
        return sums[a] != sums[b] ? sums[a] > sums[b] : nameOf(a) < nameOf(b);
    });
    std::vector<std::size_t> rank(order.size());
    for (std::size_t i = 0; i < order.size(); ++i) {
        rank[order[i]] = i;
        stacks.items.push_back(nameOf(order[i]));
    }
    for (std::vector<ItemMinutes>& bar : stacks.bars) {
        for (ItemMinutes& part : bar)
            part.item = rank[part.item];
        std::ranges::sort(bar, {}, &ItemMinutes::item);
    }
    return stacks;
}

// How many of the items have a colour of their own. One alone does not have to make room for "Other".
std::size_t coloredItems(const Stacks& stacks) {
    return stacks.items.size() <= mostColors ? stacks.items.size() : mostColors - 1;
}

QList<ChartLegendEntry> legendOf(const Stacks& stacks, ItemColors& colors) {
    QList<ChartLegendEntry> legend;
    std::array<int, ItemColors::paletteSize> uses{};
    for (std::size_t i = 0; i < coloredItems(stacks); ++i) {
        const int color = colors.colorIndex(stacks.items[i]);
        const int tone = uses[static_cast<std::size_t>(color)]++ % ItemColors::tones;
        legend += {stacks.items[i], color + tone * ItemColors::paletteSize};
    }
    if (coloredItems(stacks) < stacks.items.size())
        legend += {QStringLiteral("Other items"), ItemColors::shared};
    return legend;
}

void addSegments(QList<ChartSegment>& segments, const ChartBar& bar, const std::vector<ItemMinutes>& parts, double top,
                 const QList<ChartLegendEntry>& legend) {
    double foot = 0;
    int colorBelow = 0;
    for (const ItemMinutes& part : parts) {
        const auto entry = std::min(static_cast<qsizetype>(part.item), legend.size() - 1);
        const int color = legend.at(entry).colorIndex;
        const double height = static_cast<double>(part.minutes) / top;
        if (color == ItemColors::shared && colorBelow == ItemColors::shared)
            segments.last().height += height;
        else
            segments += {bar.position, bar.width, foot, height, color, false};
        colorBelow = color;
        foot += height;
    }
    if (!parts.empty())
        segments.last().isTop = true;
}

QList<ChartMark> valueMarks(qint64 distance, qint64 top) {
    QList<ChartMark> marks;
    for (qint64 minutes = 0; minutes <= top; minutes += distance) {
        const double position = static_cast<double>(minutes) / static_cast<double>(top);
        marks +=
            {position, minutes == 0 ? QStringLiteral("0") : abbreviatedHoursAndMinutes(minutes * secondsPerMinute)};
    }
    return marks;
}

using DateFormat = QString (*)(Date, const Calendar&);

// Marks on every so many bars, counted from the newest, at the front of the list here.
struct TimeMarks {
    qsizetype distance;
    DateFormat text;
};

TimeMarks timeMarksFor(qsizetype bars, TimeRange range) {
    switch (range) {
    case TimeRange::last7Days:
        return {1, weekdayMark};
    case TimeRange::last30Days:
        return {7, dayMark};
    case TimeRange::last90Days:
        return {21, dayMark};
    case TimeRange::last12Months:
        return {1, narrowMonthMark};
    case TimeRange::allMonths:
        break;
    }
    if (bars <= monthsPerYear)
        return {1, narrowMonthMark};
    constexpr qsizetype mostMarks = 5;
    return {(bars + mostMarks - 1) / mostMarks, monthMark};
}

// A longer stretch of months is marked where years begin.
QList<ChartMark> yearMarks(const QList<ChartData::SessionsReport>& reports, qsizetype bars, const Calendar& calendar) {
    constexpr int mostMarks = 5;
    const int years = static_cast<int>(bars) / monthsPerYear;
    const int distance = (years + mostMarks - 1) / mostMarks;
    QList<ChartMark> marks;
    for (qsizetype i = bars - 1; i >= 0; --i) {
        const int month = calendar.monthNumber(reports.at(i).date);
        if (month % (distance * monthsPerYear) == 0)
            marks += {(static_cast<double>(bars - 1 - i) + 0.5) / static_cast<double>(bars),
                      yearMark(reports.at(i).date, calendar)};
    }
    return marks;
}

QList<ChartMark> timeMarks(const QList<ChartData::SessionsReport>& reports, qsizetype bars, TimeRange range,
                           const Calendar& calendar) {
    constexpr qsizetype monthsFromWhichYearsAreMarked = 3 * monthsPerYear;
    if (range == TimeRange::allMonths && bars >= monthsFromWhichYearsAreMarked)
        return yearMarks(reports, bars, calendar);
    QList<ChartMark> marks;
    const TimeMarks style = timeMarksFor(bars, range);
    for (qsizetype i = 0; i < bars; i += style.distance)
        marks.prepend({(static_cast<double>(bars - 1 - i) + 0.5) / static_cast<double>(bars),
                       style.text(reports.at(i).date, calendar)});
    return marks;
}

} // namespace

qint64 markDistance(qint64 minutes) {
    // Up to 100 hours; beyond that the hours go on in tens.
    constexpr std::array<qint64, 16> distances{1, 2, 5, 10, 15, 20, 30, 60, 120, 180, 300, 600, 1200, 1800, 3000, 6000};
    for (const qint64 distance : distances) {
        if (distance * mostValueMarks >= minutes)
            return distance;
    }
    qint64 distance = distances.back();
    while (minutes / mostValueMarks >= distance) {
        for (const qint64 factor : {2, 3, 5, 10}) {
            if (minutes / mostValueMarks < distance * factor)
                return distance * factor;
        }
        distance = checkedMultiply(distance, 10);
    }
    return distance;
}

ChartContent buildChart(const QList<ChartData::SessionsReport>& reports, TimeRange range, const Calendar& calendar,
                        ItemColors& colors) {
    const qsizetype bars = std::min(reports.size(), mostBars);
    const Stacks stacks = stacksOf(reports.first(bars));
    const qint64 highest = stacks.heights.empty() ? 0 : *std::ranges::max_element(stacks.heights);
    constexpr qint64 minutesWithoutAny = 60;
    const qint64 distance = markDistance(highest == 0 ? minutesWithoutAny : highest);
    const qint64 marks = std::max<qint64>(1, highest / distance + (highest % distance > 0 ? 1 : 0));
    const qint64 top = checkedMultiply(marks, distance);

    ChartContent chart;
    chart.valueTitle = QStringLiteral("Minutes");
    chart.timeTitle = isInMonths(range) ? QStringLiteral("Months") : QStringLiteral("Days");
    chart.isEmpty = highest == 0;
    chart.legend = legendOf(stacks, colors);
    chart.valueMarks = valueMarks(distance, top);
    chart.timeMarks = timeMarks(reports, bars, range, calendar);
    const double slot = 1.0 / static_cast<double>(std::max<qsizetype>(bars, 1));
    for (qsizetype i = 0; i < bars; ++i) {
        const auto report = static_cast<std::size_t>(bars - 1 - i);
        const Date date = reports.at(bars - 1 - i).date;
        const QString title = isInMonths(range) ? spokenMonth(date, calendar) : spokenDay(date, calendar);
        const qint64 minutes = stacks.heights[report];
        const ChartBar bar{QStringLiteral("chart_bar_%1").arg(i),
                           QStringLiteral("%1: %2").arg(title, spokenMinutes(minutes)),
                           (static_cast<double>(i) + shareOfGap / 2) * slot, (1 - shareOfGap) * slot,
                           static_cast<double>(minutes) / static_cast<double>(top)};
        addSegments(chart.segments, bar, stacks.bars[report], static_cast<double>(top), chart.legend);
        chart.bars += bar;
    }
    const double average = averageMinutes(reports);
    chart.averagePosition = average / static_cast<double>(top);
    chart.averageTitle = QStringLiteral("Average");
    chart.averageSpokenText = QStringLiteral("Average: %1").arg(spokenMinutes(std::llround(average)));
    return chart;
}

} // namespace tamsel
