#include "ctl/ListCommand.h"

#include "ctl/Journal.h"
#include "ctl/JsonText.h"
#include "list/PracticeListViewModel.h"
#include "platform/FatalError.h"
#include "reports/Formats.h"
#include "reports/TimeRange.h"

#include <QCommandLineParser>

#include <optional>

namespace tamsel::ctl {

namespace {

// Thrown where the words do not make sense.
struct Misunderstood {
    QString line;
};

std::optional<SortOrder> sortOrderOf(const QString& name) {
    if (name == QLatin1String("name"))
        return SortOrder::name;
    if (name == QLatin1String("practiceRecency"))
        return SortOrder::practiceRecency;
    if (name == QLatin1String("practiceTime"))
        return SortOrder::practiceTime;
    return std::nullopt;
}

QString typeName(SessionType type) {
    return type == SessionType::timer ? QStringLiteral("timer") : QStringLiteral("stopwatch");
}

QString sessionRows(const PracticeListViewModel& list) {
    QStringList rows;
    for (const DailyLogSection::Row& row : list.shownSessions())
        rows += json::object({{QStringLiteral("exercise"), json::value(row.session.exercise.name)},
                              {QStringLiteral("seconds"), json::value(row.session.seconds)},
                              {QStringLiteral("type"), json::value(typeName(row.session.type))}});
    return json::array(rows);
}

QStringList sessionLines(const PracticeListViewModel& list) {
    QStringList lines;
    if (!list.dailyLogTitle().isEmpty())
        lines += list.dailyLogTitle();
    for (const DailyLogSection::Row& row : list.shownSessions())
        lines += QStringLiteral("  %1: %2, %3")
                     .arg(row.session.exercise.name, sessionDurationText(row.session.seconds),
                          sessionTypeText(row.session.type));
    return lines;
}

QString joined(const QStringList& lines) {
    return (lines.isEmpty() ? QStringLiteral("Nothing recorded.") : lines.join(QLatin1Char('\n'))) + QLatin1Char('\n');
}

QString isoDate(Date date, const Calendar& calendar) {
    return calendarDate(calendar.dayNumber(date), true);
}

QString listJson(const PracticeListViewModel& list, const Calendar& calendar) {
    QStringList exercises;
    for (const ExercisesSection::Row& row : list.shownExercises()) {
        const auto& last = row.lastPracticedDate;
        exercises += json::object({{QStringLiteral("name"), json::value(row.exercise.name)},
                                   {QStringLiteral("lastPracticed"),
                                    last ? json::value(isoDate(*last, calendar)) : json::value(QJsonValue::Null)},
                                   {QStringLiteral("practiceMinutes"), json::value(row.recentTotalPracticeTime)}});
    }
    QStringList archive;
    for (const ArchiveSection::Row& row : list.shownArchive())
        archive += json::object({{QStringLiteral("name"), json::value(row.exercise.name)}});
    return json::object({{QStringLiteral("dailyLog"), sessionRows(list)},
                         {QStringLiteral("exercises"), json::array(exercises)},
                         {QStringLiteral("archive"), json::array(archive)}}) +
           QLatin1Char('\n');
}

QString listText(const PracticeListViewModel& list) {
    QStringList lines = sessionLines(list);
    if (!list.shownExercises().isEmpty())
        lines += list.exercisesTitle();
    for (const ExercisesSection::Row& row : list.shownExercises()) {
        QStringList parts{QStringLiteral("  ") + row.exercise.name};
        if (row.formattedLastPracticedDate)
            parts += *row.formattedLastPracticedDate;
        if (row.recentTotalPracticeTime > 0)
            parts += practiceTimeText(row.recentTotalPracticeTime);
        lines += parts.join(QStringLiteral(", "));
    }
    if (!list.shownArchive().isEmpty())
        lines += list.archiveTitle();
    for (const ArchiveSection::Row& row : list.shownArchive())
        lines += QStringLiteral("  ") + row.exercise.name;
    return lines.isEmpty() ? QStringLiteral("No items.\n") : joined(lines);
}

// The words of one of the two commands.
class Words {
public:
    Words(const QString& command, const QString& description) : m_command(command) {
        m_parser.setApplicationDescription(description);
        m_parser.addOptions({help, json});
    }

    void parse(const QStringList& arguments) {
        if (!m_parser.parse(QStringList(m_command) + arguments))
            throw Misunderstood{m_parser.errorText()};
        if (!m_parser.positionalArguments().isEmpty())
            throw Misunderstood{QStringLiteral("unexpected argument: %1; see %2 --help")
                                    .arg(m_parser.positionalArguments().constFirst(), m_command)};
    }
    QCommandLineParser& parser() { return m_parser; }
    bool isSet(const QCommandLineOption& option) const { return m_parser.isSet(option); }

    const QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this help.")};
    const QCommandLineOption json{QStringLiteral("json"), QStringLiteral("Write JSON, for scripts.")};

private:
    const QString m_command;
    QCommandLineParser m_parser;
};

QString log(const QStringList& arguments, Singletons& singletons, const Platform& platform) {
    Words words(QStringLiteral("tamselctl log"), QStringLiteral("Shows what was practised today."));
    words.parse(arguments);
    if (words.isSet(words.help))
        return words.parser().helpText();
    const PracticeListViewModel list(singletons, platform);
    if (!words.isSet(words.json))
        return joined(sessionLines(list));
    return json::object({{QStringLiteral("title"), json::value(list.dailyLogTitle())},
                         {QStringLiteral("rows"), sessionRows(list)}}) +
           QLatin1Char('\n');
}

QString list(const QStringList& arguments, Singletons& singletons, const Platform& platform) {
    Words words(QStringLiteral("tamselctl list"), QStringLiteral("Shows the practice list."));
    const QCommandLineOption search(QStringLiteral("search"), QStringLiteral("Only items whose name contains this."),
                                    QStringLiteral("text"));
    const QCommandLineOption sort(QStringLiteral("sort"),
                                  QStringLiteral("name, practiceRecency or practiceTime; by default as in the app."),
                                  QStringLiteral("order"));
    const QCommandLineOption range(QStringLiteral("range"),
                                   QStringLiteral("The time that counts, one of: %1; by default as in the app.")
                                       .arg(timeRangeNames().join(QStringLiteral(", "))),
                                   QStringLiteral("range"));
    words.parser().addOptions({search, sort, range});
    words.parse(arguments);
    if (words.isSet(words.help))
        return words.parser().helpText();
    const auto order = sortOrderOf(words.parser().value(sort));
    if (words.isSet(sort) && !order) {
        throw Misunderstood{QStringLiteral("--sort %1: expected name, practiceRecency or practiceTime")
                                .arg(words.parser().value(sort))};
    }
    const auto time = timeRangeFromCaseName(words.parser().value(range));
    if (words.isSet(range) && !time) {
        throw Misunderstood{QStringLiteral("--range %1: expected one of %2")
                                .arg(words.parser().value(range), timeRangeNames().join(QStringLiteral(", ")))};
    }

    PracticeListViewModel list(singletons, platform);
    if (order)
        list.setSortOrder(*order);
    if (time)
        list.setSortOrderTimeRange(*time);
    list.setSearchBarText(words.parser().value(search));
    return words.isSet(words.json) ? listJson(list, platform.calendar) : listText(list);
}

using Shown = QString (*)(const QStringList&, Singletons&, const Platform&);

Answer answerOf(Shown show, const QStringList& arguments, Singletons& singletons, const Platform& platform) {
    try {
        return {exitDone, show(arguments, singletons, platform)};
    } catch (const Misunderstood& problem) {
        return {exitUsage, problem.line};
    }
}

} // namespace

Answer logAnswer(const QStringList& arguments, Singletons& singletons, const Platform& platform) {
    return answerOf(log, arguments, singletons, platform);
}

Answer listAnswer(const QStringList& arguments, Singletons& singletons, const Platform& platform) {
    return answerOf(list, arguments, singletons, platform);
}

ExitCode showLog(const QStringList& arguments) {
    return tellFromJournal(arguments, logAnswer);
}

ExitCode showList(const QStringList& arguments) {
    return tellFromJournal(arguments, listAnswer);
}

} // namespace tamsel::ctl
