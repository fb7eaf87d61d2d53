#include "ctl/ReportCommand.h"

#include "ctl/Journal.h"
#include "ctl/JsonText.h"
#include "ctl/Words.h"
#include "platform/TimeUnits.h"
#include "reports/Formats.h"
#include "reports/HistoryViewModel.h"
#include "reports/MonthReportViewModel.h"
#include "reports/PracticeDayBreakdownViewModel.h"
#include "reports/PracticeTimeDetailViewModel.h"
#include "reports/PracticeTimeOverviewViewModel.h"
#include "reports/ReportData.h"
#include "reports/TopExercisesDetailViewModel.h"
#include "reports/TopExercisesOverviewViewModel.h"

#include <QDate>

#include <algorithm>
#include <optional>

namespace tamsel::ctl {

namespace {

constexpr int epochYear = 1970;

QString lines(const QStringList& texts) {
    return texts.isEmpty() ? QString() : texts.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

QString line(const QString& json) {
    return json + QLatin1Char('\n');
}

QString practiceTime(TimeRange range, const std::optional<Exercise>& exercise, bool asJson, Singletons& singletons,
                     const Platform& platform) {
    ItemColors colors(singletons.history);
    PracticeTimeDetailViewModel detail(singletons, exercise, range, platform, colors);
    const auto reports = detail.sessionsReports();
    const PracticeDayCounts& counts = detail.countsOfPracticeDays();
    const QString subtitle = PracticeTimeOverviewViewModel::subtitle(range);
    const QString total = PracticeTimeOverviewViewModel::total(reports);
    const double average = averageMinutes(reports);
    const QList<ReportRow> rows = detail.rows();
    if (!asJson) {
        QStringList texts{QStringLiteral("%1 %2").arg(subtitle, total), QString()};
        for (const ReportRow& row : rows)
            texts += row.title;
        if (!rows.isEmpty())
            texts += QString();
        texts += {QStringLiteral("Days with practice: %1 in 7 days, %2 in 30 days, %3 in 365 days, %4 in all")
                      .arg(counts.days7)
                      .arg(counts.days30)
                      .arg(counts.days365)
                      .arg(counts.allTime),
                  detail.chart()->averageSpokenText()};
        return lines(texts);
    }
    QStringList rowTexts;
    for (qsizetype i = 0; i < rows.size(); ++i) {
        const int dayNumber = platform.calendar.dayNumber(reports.at(i).date);
        rowTexts += json::object({{QStringLiteral("date"), json::value(calendarDate(dayNumber, !isInMonths(range)))},
                                  {QStringLiteral("title"), json::value(rows.at(i).title)},
                                  {QStringLiteral("minutes"), json::value(reports.at(i).minutes)}});
    }
    return line(json::object(
        {{QStringLiteral("range"), json::value(caseName(range))},
         {QStringLiteral("subtitle"), json::value(subtitle)},
         {QStringLiteral("total"), json::value(total)},
         {QStringLiteral("totalMinutes"), json::value(totalMinutes(reports))},
         {QStringLiteral("practiceDays"), json::object({{QStringLiteral("days7"), json::value(counts.days7)},
                                                        {QStringLiteral("days30"), json::value(counts.days30)},
                                                        {QStringLiteral("days365"), json::value(counts.days365)},
                                                        {QStringLiteral("allTime"), json::value(counts.allTime)}})},
         {QStringLiteral("average"), json::value(average)},
         {QStringLiteral("rows"), json::array(rowTexts)}}));
}

QString top(TimeRange range, bool asJson, Singletons& singletons, const Platform& platform) {
    ItemColors colors(singletons.history);
    const TopExercisesOverviewViewModel overview(singletons.history, range, platform, colors);
    const TopExercisesDetailViewModel detail(singletons.history, range, platform, colors);
    if (asJson) {
        const auto records = [](const QList<ChartData::ExerciseReportOverTime>& data) {
            QStringList texts;
            for (const auto& record : data)
                texts += json::object({{QStringLiteral("exercise"), json::value(record.exercise)},
                                       {QStringLiteral("minutes"), json::value(record.minutes)}});
            return json::array(texts);
        };
        return line(json::object({{QStringLiteral("range"), json::value(caseName(range))},
                                  {QStringLiteral("overview"), records(overview.data())},
                                  {QStringLiteral("detail"), records(detail.data())}}));
    }
    QStringList texts;
    if (overview.topExercise())
        texts += {QStringLiteral("%1 %2").arg(overview.heading(), *overview.topExercise()), QString()};
    for (const auto& record : detail.data())
        texts += QStringLiteral("%1: %2").arg(record.exercise, practiceTimeText(record.minutes));
    return lines(texts.isEmpty() ? QStringList(QStringLiteral("Nothing recorded.")) : texts);
}

QString month(int monthNumber, bool asJson, Singletons& singletons, const Platform& platform) {
    const MonthOfEvents month = eventsOfMonth(singletons.history, monthNumber, platform.calendar);
    const MonthReportViewModel report(month, singletons.history, platform);
    if (!asJson) {
        QStringList texts{report.title()};
        for (const ReportRow& row : report.rows())
            texts += row.isHeading          ? row.title
                     : row.detail.isEmpty() ? QStringLiteral("  %1").arg(row.title)
                                            : QStringLiteral("  %1: %2").arg(row.title, row.detail);
        return lines(report.rows().isEmpty() ? texts + QStringList(QStringLiteral("Nothing recorded.")) : texts);
    }
    if (const auto* const single = std::get_if<MonthReportViewModel::SingleExercise>(&report.mode())) {
        QStringList rows;
        for (const auto& row : single->rows)
            rows += json::object({{QStringLiteral("title"), json::value(row.title)}});
        return line(json::object({{QStringLiteral("mode"), json::value(QStringLiteral("singleExercise"))},
                                  {QStringLiteral("rows"), json::array(rows)}}));
    }
    QStringList sections;
    for (const auto& section : std::get<MonthReportViewModel::MultipleExercises>(report.mode()).sections) {
        QStringList rows;
        for (const auto& row : section.rows)
            rows += json::object({{QStringLiteral("exercise"), json::value(row.exerciseName)},
                                  {QStringLiteral("minutes"), json::value(totalPracticeTime(row.events))}});
        sections += json::object({{QStringLiteral("title"), json::value(section.sectionTitle)},
                                  {QStringLiteral("rows"), json::array(rows)}});
    }
    return line(json::object({{QStringLiteral("mode"), json::value(QStringLiteral("multipleExercises"))},
                              {QStringLiteral("sections"), json::array(sections)}}));
}

QString day(int dayNumber, bool asJson, Singletons& singletons, const Platform& platform) {
    const DayOfEvents day = eventsOfDay(singletons.history, dayNumber, platform.calendar);
    const PracticeDayBreakdownViewModel breakdown(day, platform.calendar);
    QStringList rows;
    for (const auto& row : breakdown.rows()) {
        if (asJson)
            rows += json::object({{QStringLiteral("title"), json::value(row.title())},
                                  {QStringLiteral("detail"), json::value(row.detail())}});
        else
            rows += QStringLiteral("%1 %2").arg(row.title(), row.detail()).trimmed();
    }
    if (asJson)
        return line(json::object({{QStringLiteral("rows"), json::array(rows)}}));
    return lines(rows.isEmpty() ? QStringList(QStringLiteral("Nothing recorded.")) : rows);
}

QString ranges(bool asJson, Singletons& singletons, const Platform& platform) {
    QStringList labels;
    for (const TimeRange range : rangesToOffer(singletons.history.events(), platform.clock.now(), platform.calendar))
        labels += asJson ? json::value(label(range)) : label(range);
    return asJson ? line(json::array(labels)) : lines(labels);
}

TimeRange expectedRange(const Words& words) {
    if (const auto range = words.range())
        return *range;
    throw Answer{exitUsage, QStringLiteral("--range is missing: expected one of %1").arg(timeRangeNames())};
}

// The date behind the report's name: YYYY-MM-DD, or YYYY-MM and then the month's first day.
QDate expectedDate(const Words& words, const QString& form, const QString& example) {
    words.expectAtMost(2);
    const QString given = words.at(1);
    // Qt would also take a sign or blanks.
    const bool isOfForm = given.size() == form.size() && std::ranges::equal(given, form, [](QChar a, QChar b) {
                              return b == QLatin1Char('-') ? a == b : a >= QLatin1Char('0') && a <= QLatin1Char('9');
                          });
    const bool hasDay = form.endsWith(QLatin1String("DD"));
    const QDate date(given.mid(0, 4).toInt(), given.mid(5, 2).toInt(), hasDay ? given.mid(8, 2).toInt() : 1);
    if (!isOfForm || !date.isValid()) {
        throw Answer{exitUsage,
                     QStringLiteral("%1: expected %2, such as %3")
                         .arg(given.isEmpty() ? QStringLiteral("the date is missing") : given, form, example)};
    }
    return date;
}

} // namespace

Show askedReport(const QStringList& arguments) {
    const QString exerciseName = QStringLiteral("exercise");
    Words words(QStringLiteral("tamselctl report"), QStringLiteral("Shows what the history screens of Tamsel show."),
                {Words::rangeOption(QStringLiteral("One of: %1.")),
                 {exerciseName, QStringLiteral("Only the practice of this item."), QStringLiteral("name")}});
    const QString expected = QStringLiteral("practice-time, top, month YYYY-MM, day YYYY-MM-DD or ranges");
    words.describe(QStringLiteral("REPORT"), expected);
    words.parse(arguments);
    const QString report = words.at(0);
    const bool asJson = words.asJson();
    const QString subject = QStringLiteral("report %1").arg(report);
    if (report == QLatin1String("practice-time")) {
        words.expectAtMost(1);
        std::optional<Exercise> exercise;
        if (const auto name = words.value(exerciseName))
            exercise = Exercise{*name, QUuid()};
        return [asJson, exercise, range = expectedRange(words)](Singletons& singletons, const Platform& platform) {
            return practiceTime(range, exercise, asJson, singletons, platform);
        };
    }
    words.expectNot(exerciseName, subject);
    if (report == QLatin1String("top")) {
        words.expectAtMost(1);
        return [asJson, range = expectedRange(words)](Singletons& singletons, const Platform& platform) {
            return top(range, asJson, singletons, platform);
        };
    }
    words.expectNot(QStringLiteral("range"), subject);
    if (report == QLatin1String("month")) {
        const QDate date = expectedDate(words, QStringLiteral("YYYY-MM"), QStringLiteral("2024-03"));
        const int number = (date.year() - epochYear) * monthsPerYear + date.month() - 1;
        return [asJson, number](Singletons& singletons, const Platform& platform) {
            return month(number, asJson, singletons, platform);
        };
    }
    if (report == QLatin1String("day")) {
        const QDate date = expectedDate(words, QStringLiteral("YYYY-MM-DD"), QStringLiteral("2024-03-14"));
        const auto number = static_cast<int>(QDate(epochYear, 1, 1).daysTo(date));
        return [asJson, number](Singletons& singletons, const Platform& platform) {
            return day(number, asJson, singletons, platform);
        };
    }
    if (report == QLatin1String("ranges")) {
        words.expectAtMost(1);
        return
            [asJson](Singletons& singletons, const Platform& platform) { return ranges(asJson, singletons, platform); };
    }
    throw Answer{exitUsage, QStringLiteral("%1: expected %2")
                                .arg(report.isEmpty() ? QStringLiteral("no report is named")
                                                      : QStringLiteral("no such report as \"%1\"").arg(report),
                                     expected)};
}

ExitCode report(const QStringList& arguments) {
    return tellFromJournal(askedReport, arguments);
}

} // namespace tamsel::ctl
