#include "ctl/ListCommand.h"

#include "ctl/Journal.h"
#include "ctl/JsonText.h"
#include "ctl/Words.h"
#include "list/PracticeListViewModel.h"
#include "platform/FatalError.h"
#include "reports/Formats.h"

#include <optional>

namespace tamsel::ctl {

namespace {

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

QString logJson(const PracticeListViewModel& list) {
    return json::object({{QStringLiteral("title"), json::value(list.dailyLogTitle())},
                         {QStringLiteral("rows"), sessionRows(list)}}) +
           QLatin1Char('\n');
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

QString listText(const PracticeListViewModel& list, const Calendar& calendar) {
    QStringList lines = sessionLines(list);
    if (!list.shownExercises().isEmpty())
        lines += list.exercisesTitle();
    for (const ExercisesSection::Row& row : list.shownExercises()) {
        QStringList parts{QStringLiteral("  ") + row.exercise.name};
        if (const auto date = row.formattedLastPracticedDate(calendar))
            parts += *date;
        if (const auto time = row.formattedPracticeTime())
            parts += *time;
        lines += parts.join(QStringLiteral(", "));
    }
    if (!list.shownArchive().isEmpty())
        lines += list.archiveTitle();
    for (const ArchiveSection::Row& row : list.shownArchive())
        lines += QStringLiteral("  ") + row.exercise.name;
    return lines.isEmpty() ? QStringLiteral("No items.\n") : joined(lines);
}

} // namespace

Show askedLog(const QStringList& arguments) {
    Words words(QStringLiteral("tamselctl log"), QStringLiteral("Shows what was practised today."));
    words.parse(arguments);
    words.expectAtMost(0);
    return [asJson = words.asJson()](Singletons& singletons, const Platform& platform) {
        const PracticeListViewModel list(singletons, platform);
        return asJson ? logJson(list) : joined(sessionLines(list));
    };
}

Show askedList(const QStringList& arguments) {
    const QString search = QStringLiteral("search");
    const QString sort = QStringLiteral("sort");
    const QString orders = QStringLiteral("name, practiceRecency or practiceTime");
    Words words(QStringLiteral("tamselctl list"), QStringLiteral("Shows the practice list."),
                {{search, QStringLiteral("Only items whose name contains this."), QStringLiteral("text")},
                 {sort, QStringLiteral("%1; by default as in the app.").arg(orders), QStringLiteral("order")},
                 Words::rangeOption(QStringLiteral("The time that counts, one of: %1; by default as in the app."))});
    words.parse(arguments);
    words.expectAtMost(0);
    const auto orderName = words.value(sort);
    const auto order = orderName ? sortOrderOf(*orderName) : std::nullopt;
    if (orderName && !order)
        throw Answer{exitUsage, QStringLiteral("--sort %1: expected %2").arg(*orderName, orders)};
    return [order, range = words.range(), text = words.value(search).value_or(QString()),
            asJson = words.asJson()](Singletons& singletons, const Platform& platform) {
        PracticeListViewModel list(singletons, platform);
        if (order)
            list.setSortOrder(*order);
        if (range)
            list.setSortOrderTimeRange(*range);
        list.setSearchBarText(text);
        return asJson ? listJson(list, platform.calendar) : listText(list, platform.calendar);
    };
}

ExitCode showLog(const QStringList& arguments) {
    return tellFromJournal(askedLog, arguments);
}

ExitCode showList(const QStringList& arguments) {
    return tellFromJournal(askedList, arguments);
}

} // namespace tamsel::ctl
