#include "ctl/ReportCommand.h"

#include "ctl/Journal.h"
#include "ctl/JsonText.h"
#include "reports/Formats.h"
#include "reports/HistoryViewModel.h"
#include "reports/MonthReportViewModel.h"
#include "reports/PracticeDayBreakdownViewModel.h"
#include "reports/PracticeTimeDetailViewModel.h"
#include "reports/PracticeTimeOverviewViewModel.h"
#include "reports/ReportData.h"
#include "reports/TopExercisesDetailViewModel.h"
#include "reports/TopExercisesOverviewViewModel.h"

#include <QCommandLineParser>
#include <QDate>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <optional>

namespace tamsel::ctl {

namespace {

constexpr int monthsPerYear = 12;
constexpr int epochYear = 1970;

// Thrown where the words do not make sense.
struct Misunderstood {
    QString line;
};

QString lines(const QStringList& texts) {
    return texts.isEmpty() ? QString() : texts.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

// What the words ask for, and what it takes to answer.
class Asked {
public:
    Asked(const QStringList& arguments, Singletons& singletons, const Platform& platform)
        : m_singletons(singletons), m_platform(platform), m_colors(singletons.history) {
        m_parser.setApplicationDescription(QStringLiteral("Shows what the history screens of Tamsel show."));
        m_parser.addOptions({m_help, m_json, m_range, m_exercise});
        m_parser.addPositionalArgument(QStringLiteral("REPORT"),
                                       QStringLiteral("practice-time, top, month YYYY-MM, day YYYY-MM-DD or ranges"));
        if (!m_parser.parse(QStringList(QStringLiteral("tamselctl report")) + arguments))
            throw Misunderstood{m_parser.errorText()};
        m_words = m_parser.positionalArguments();
    }

    QString answer() {
        if (m_parser.isSet(m_help))
            return m_parser.helpText();
        const QString report = m_words.value(0);
        if (report == QLatin1String("practice-time"))
            return practiceTime();
        if (report == QLatin1String("top"))
            return top();
        if (report == QLatin1String("month"))
            return month();
        if (report == QLatin1String("day"))
            return day();
        if (report == QLatin1String("ranges"))
            return ranges();
        throw Misunderstood{QStringLiteral("%1: expected practice-time, top, month YYYY-MM, day YYYY-MM-DD or ranges")
                                .arg(report.isEmpty() ? QStringLiteral("no report is named")
                                                      : QStringLiteral("no such report as \"%1\"").arg(report))};
    }

private:
    bool asJson() const { return m_parser.isSet(m_json); }
    static QString line(const QString& json) { return json + QLatin1Char('\n'); }

    void expectWords(qsizetype count) const {
        if (m_words.size() > count)
            throw Misunderstood{QStringLiteral("unexpected argument: %1").arg(m_words.at(count))};
    }
    void expectNone(const QCommandLineOption& option) const {
        if (m_parser.isSet(option))
            throw Misunderstood{
                QStringLiteral("--%1 does not go with report %2").arg(option.names().first(), m_words.first())};
    }

    TimeRange range() const {
        const QString name = m_parser.value(m_range);
        const auto range = timeRangeFromCaseName(name);
        if (!range) {
            throw Misunderstood{
                QStringLiteral("%1: expected one of %2")
                    .arg(name.isEmpty() ? QStringLiteral("--range is missing") : QStringLiteral("--range %1").arg(name),
                         timeRangeNames().join(QStringLiteral(", ")))};
        }
        return *range;
    }

    // The numbers of the date behind the report's name.
    std::array<int, 3> numbers(const char* pattern, const QString& form) const {
        expectWords(2);
        const auto match = QRegularExpression(QLatin1String(pattern)).match(m_words.value(1));
        const std::array numbers{match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt()};
        const bool hasDay = match.lastCapturedIndex() == 3;
        if (!match.hasMatch() || !QDate::isValid(numbers[0], numbers[1], hasDay ? numbers[2] : 1)) {
            throw Misunderstood{
                QStringLiteral("%1: expected %2")
                    .arg(m_words.size() < 2 ? QStringLiteral("the %1 is missing").arg(m_words.first()) : m_words.at(1),
                         form)};
        }
        return numbers;
    }

    QString practiceTime();
    QString top();
    QString month();
    QString day();
    QString ranges();

    Singletons& m_singletons;
    const Platform& m_platform;
    ItemColors m_colors;
    const QCommandLineOption m_help{{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this help.")};
    const QCommandLineOption m_json{QStringLiteral("json"), QStringLiteral("Write JSON, for scripts.")};
    const QCommandLineOption m_range{QStringLiteral("range"),
                                     QStringLiteral("One of: %1.").arg(timeRangeNames().join(QStringLiteral(", "))),
                                     QStringLiteral("range")};
    const QCommandLineOption m_exercise{QStringLiteral("exercise"), QStringLiteral("Only the practice of this item."),
                                        QStringLiteral("name")};
    QCommandLineParser m_parser;
    QStringList m_words;
};

QString Asked::practiceTime() {
    expectWords(1);
    const TimeRange asked = range();
    std::optional<Exercise> exercise;
    if (m_parser.isSet(m_exercise))
        exercise = Exercise{m_parser.value(m_exercise), QUuid()};
    PracticeTimeDetailViewModel detail(m_singletons, exercise, asked, m_platform, m_colors);
    const auto reports = detail.sessionsReports();
    const PracticeDayCounts& counts = detail.countsOfPracticeDays();
    const QString subtitle = PracticeTimeOverviewViewModel::subtitle(asked);
    const QString total = PracticeTimeOverviewViewModel::total(reports);
    const double average = averageMinutes(reports);
    const QList<ReportRow> rows = detail.rows();
    if (!asJson()) {
        QStringList texts{QStringLiteral("%1 %2").arg(subtitle, total), QString()};
        for (const ReportRow& row : rows)
            texts += row.title;
        texts += {QString(),
                  QStringLiteral("Days with practice: %1 in 7 days, %2 in 30 days, %3 in 365 days, %4 in all")
                      .arg(counts.days7)
                      .arg(counts.days30)
                      .arg(counts.days365)
                      .arg(counts.allTime),
                  detail.chart()->averageSpokenText()};
        return lines(texts);
    }
    QStringList rowTexts;
    for (qsizetype i = 0; i < rows.size(); ++i) {
        const int dayNumber = m_platform.calendar.dayNumber(reports.at(i).date);
        rowTexts += json::object({{QStringLiteral("date"), json::value(calendarDate(dayNumber, !isInMonths(asked)))},
                                  {QStringLiteral("title"), json::value(rows.at(i).title)},
                                  {QStringLiteral("minutes"), json::value(totalMinutes({reports.at(i)}))}});
    }
    return line(json::object(
        {{QStringLiteral("range"), json::value(caseName(asked))},
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

QString Asked::top() {
    expectWords(1);
    expectNone(m_exercise);
    const TimeRange asked = range();
    TopExercisesOverviewViewModel overview(m_singletons.history, asked, m_platform, m_colors);
    const TopExercisesDetailViewModel detail(m_singletons.history, asked, m_platform, m_colors);
    if (asJson()) {
        const auto records = [](const QList<ChartData::ExerciseReportOverTime>& data) {
            QStringList texts;
            for (const auto& record : data)
                texts += json::object({{QStringLiteral("exercise"), json::value(record.exercise)},
                                       {QStringLiteral("minutes"), json::value(record.minutes)}});
            return json::array(texts);
        };
        return line(json::object({{QStringLiteral("range"), json::value(caseName(asked))},
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

QString Asked::month() {
    const auto [year, monthOfYear, none] =
        numbers("^([0-9]{4})-([0-9]{2})$", QStringLiteral("a month as YYYY-MM, such as 2024-03"));
    expectNone(m_range);
    expectNone(m_exercise);
    const int number = (year - epochYear) * monthsPerYear + monthOfYear - 1;
    MonthOfEvents month{m_platform.calendar.startOfMonth(number), {}};
    for (const HistoryEvent& event : m_singletons.history.events()) {
        if (m_platform.calendar.monthNumber(event.date) == number)
            month.events += event;
    }
    const MonthReportViewModel report(month, m_singletons.history, m_platform);
    if (!asJson()) {
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

QString Asked::day() {
    const auto [year, month, dayOfMonth] =
        numbers("^([0-9]{4})-([0-9]{2})-([0-9]{2})$", QStringLiteral("a day as YYYY-MM-DD, such as 2024-03-14"));
    expectNone(m_range);
    expectNone(m_exercise);
    const int number = Calendar::firstDayOfMonth((year - epochYear) * monthsPerYear + month - 1) + dayOfMonth - 1;
    DayOfEvents day{m_platform.calendar.startOfDay(number), {}};
    for (const HistoryEvent& event : m_singletons.history.events()) {
        if (m_platform.calendar.dayNumber(event.date) == number)
            day.events += event;
    }
    const PracticeDayBreakdownViewModel breakdown(day, m_platform.calendar);
    QStringList rows;
    for (const auto& row : breakdown.rows()) {
        if (asJson())
            rows += json::object({{QStringLiteral("title"), json::value(row.title())},
                                  {QStringLiteral("detail"), json::value(row.detail())}});
        else
            rows += QStringLiteral("%1 %2").arg(row.title(), row.detail()).trimmed();
    }
    if (asJson())
        return line(json::object({{QStringLiteral("rows"), json::array(rows)}}));
    return lines(rows.isEmpty() ? QStringList(QStringLiteral("Nothing recorded.")) : rows);
}

QString Asked::ranges() {
    expectWords(1);
    expectNone(m_range);
    expectNone(m_exercise);
    QStringList labels;
    for (const TimeRange range : rangesToOffer(m_singletons.history, m_platform.clock.now(), m_platform.calendar))
        labels += asJson() ? json::value(label(range)) : label(range);
    return asJson() ? line(json::array(labels)) : lines(labels);
}

} // namespace

Answer reportAnswer(const QStringList& arguments, Singletons& singletons, const Platform& platform) {
    try {
        return {exitDone, Asked(arguments, singletons, platform).answer()};
    } catch (const Misunderstood& problem) {
        return {exitUsage, problem.line};
    }
}

ExitCode report(const QStringList& arguments) {
    return tellFromJournal(arguments, reportAnswer);
}

} // namespace tamsel::ctl
