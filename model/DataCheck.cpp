#include "model/DataCheck.h"

#include <QStringList>

#include <algorithm>
#include <numeric>
#include <optional>
#include <vector>

namespace tamsel {

namespace {

// 0001-01-01 and 10000-01-01, in seconds since 2001-01-01.
constexpr Date firstDate{-63113904000.0};
constexpr Date endOfDates{252423993600.0};
// Two thousand years in minutes: that of every event that a document can hold, added up, is still a number.
constexpr qint64 largestNumber = 1'000'000'000;

using Problem = std::optional<json::Error>;

json::Error problemAt(const QString& place, const char* what) {
    return {place + QStringLiteral(": ") + QLatin1String(what)};
}

QString element(const char* list, qsizetype index) {
    return QStringLiteral("%1[%2]").arg(QLatin1String(list)).arg(index);
}

// The first index whose identifier stands at an earlier one too; takes four bytes for each.
template <class Id>
std::optional<qsizetype> firstRepeated(qsizetype count, const Id& idAt) {
    std::vector<quint32> order(static_cast<std::size_t>(count));
    std::iota(order.begin(), order.end(), 0U);
    std::ranges::sort(order, [&idAt](quint32 a, quint32 b) {
        const auto& left = idAt(a);
        const auto& right = idAt(b);
        return left == right ? a < b : left < right;
    });
    std::optional<qsizetype> first;
    for (std::size_t i = 1; i < order.size(); ++i) {
        if (idAt(order[i - 1]) == idAt(order[i]))
            first = std::min<qsizetype>(first.value_or(count), order[i]);
    }
    return first;
}

bool isPlausible(Date date) {
    return date >= firstDate && date < endOfDates;
}

bool isPlausible(qint64 number) {
    return number >= -largestNumber && number <= largestNumber;
}

Problem problemInItems(const DataDump& dump) {
    const auto& archived = dump.allArchivedExercises;
    const auto& active = dump.allExercises;
    const auto id = [&](qsizetype i) -> const QUuid& {
        return i < archived.size() ? archived.at(i).id : active.at(i - archived.size()).id;
    };
    const auto repeated = firstRepeated(archived.size() + active.size(), id);
    if (!repeated)
        return std::nullopt;
    const qsizetype index = *repeated - archived.size();
    return problemAt(index < 0 ? element("allArchivedExercises", *repeated) : element("allExercises", index),
                     "an item of this identifier stands before it");
}

template <class Value>
Problem problemInKeys(const char* name, const QList<std::pair<Exercise, Value>>& dictionary) {
    const auto id = [&](qsizetype i) -> const QUuid& { return dictionary.at(i).first.id; };
    if (const auto repeated = firstRepeated(dictionary.size(), id))
        return problemAt(element(name, 2 * *repeated), "an item of this identifier stands before it");
    return std::nullopt;
}

Problem problemInSettings(const DataDump& dump) {
    if (auto problem = problemInKeys("allExerciseSettings", dump.allExerciseSettings))
        return problem;
    for (qsizetype i = 0; i < dump.allExerciseSettings.size(); ++i) {
        const ExerciseSettings& settings = dump.allExerciseSettings.at(i).second;
        const QString place = element("allExerciseSettings", 2 * i + 1);
        if (!isPlausible(settings.tempo))
            return problemAt(place + QStringLiteral(".tempo"), "the number is too large");
        const auto bookmark =
            std::ranges::find_if_not(settings.bookmarks, [](qint64 tempo) { return isPlausible(tempo); });
        if (bookmark != settings.bookmarks.end()) {
            return problemAt(place + QStringLiteral(".bookmarks[%1]").arg(bookmark - settings.bookmarks.begin()),
                             "the number is too large");
        }
    }
    return std::nullopt;
}

Problem problemInHistory(const QList<HistoryEvent>& events) {
    for (qsizetype i = 0; i < events.size(); ++i) {
        const HistoryEvent& event = events.at(i);
        const auto problem = [i](const char* field, const char* what) {
            return problemAt(element("allHistory", i) + QLatin1Char('.') + QLatin1String(field), what);
        };
        if (!isPlausible(event.date))
            return problem("date", "the date is not within the years 1 to 9999");
        if (event.practiceTime < 0)
            return problem("practiceTime", "the time is negative");
        if (!isPlausible(event.practiceTime))
            return problem("practiceTime", "the number is too large");
        if (!isPlausible(event.thumbsUp.value_or(0)))
            return problem("thumbsUp", "the number is too large");
        if (!isPlausible(event.thumbsDown.value_or(0)))
            return problem("thumbsDown", "the number is too large");
    }
    const auto id = [&events](qsizetype i) -> const QUuid& { return events.at(i).id; };
    if (const auto repeated = firstRepeated(events.size(), id))
        return problemAt(element("allHistory", *repeated), "an event of this identifier stands before it");
    return std::nullopt;
}

Problem problemInNotes(const DataDump& dump) {
    if (auto problem = problemInKeys("allNotes", dump.allNotes))
        return problem;
    for (qsizetype i = 0; i < dump.allNotes.size(); ++i) {
        const QList<Note>& notes = dump.allNotes.at(i).second;
        const auto place = [i](qsizetype note) {
            return element("allNotes", 2 * i + 1) + QStringLiteral("[%1]").arg(note);
        };
        const auto dated = std::ranges::find_if_not(notes, [](const Note& note) { return isPlausible(note.date); });
        if (dated != notes.end()) {
            return problemAt(place(dated - notes.begin()) + QStringLiteral(".date"),
                             "the date is not within the years 1 to 9999");
        }
        const auto id = [&notes](qsizetype note) -> const QUuid& { return notes.at(note).id; };
        if (const auto repeated = firstRepeated(notes.size(), id))
            return problemAt(place(*repeated), "a note of this identifier stands before it");
    }
    return std::nullopt;
}

} // namespace

json::Result<DataDump> checkDataDump(QByteArray document) {
    auto dump = decodeDataDump(std::move(document));
    if (!dump)
        return dump;
    for (const Problem& problem :
         {problemInItems(*dump), problemInSettings(*dump), problemInHistory(dump->allHistory), problemInNotes(*dump)}) {
        if (problem)
            return *problem;
    }
    return dump;
}

} // namespace tamsel
