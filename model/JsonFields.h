#pragma once

#include "model/Exercise.h"
#include "model/ExerciseSettings.h"
#include "model/HistoryEvent.h"
#include "model/Note.h"
#include "model/PracticeSession.h"

#include <QtGlobal>

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

// The keys of every record's JSON object, once for writing and reading.
namespace tamsel::json {

enum class WhenAbsent { fails, keepsInitialValue };

// One key of an object and the member that it holds. An std::optional member is left out when it is empty and may
// always be absent; any other is always written.
template <class Record, class Member>
struct Field {
    constexpr Field(std::string_view keyInJson, Member Record::*memberOfRecord, WhenAbsent absence = WhenAbsent::fails)
        : key(keyInJson), member(memberOfRecord), whenAbsent(absence) {}

    std::string_view key; // plain ASCII, nothing that JSON escapes
    Member Record::*member;
    WhenAbsent whenAbsent;
};

// Specialised for each record: `all`, a tuple of its fields in the order of writing, the first of them not optional.
// Where reading goes through them in another order, `readingOrder` lists the keys in that order: of several faults in
// one object the one that comes first there is reported.
template <class Record>
struct Fields;

// Specialised for each enumeration without payload: `names` of its cases, which count from 0.
template <class Enumeration>
struct Cases;

template <>
struct Fields<Exercise> {
    static constexpr std::tuple all{
        Field{"name", &Exercise::name},
        Field{"id", &Exercise::id},
    };
};

template <>
struct Fields<ExerciseSettings> {
    using S = ExerciseSettings;
    // The three that may be absent are younger than the first stored settings. What they fall back to differs
    // deliberately: true for autoSavedTempo, false for the others, as in the record's initial values.
    static constexpr std::tuple all{
        Field{"advancedSubdivisionsEnabled", &S::advancedSubdivisionsEnabled},
        Field{"bookmarks", &S::bookmarks},
        Field{"bookmarksEnabled", &S::bookmarksEnabled},
        Field{"quickNotesEnabled", &S::quickNotesEnabled},
        Field{"subdivisionsEnabled", &S::subdivisionsEnabled},
        Field{"tapTempoEnabled", &S::tapTempoEnabled, WhenAbsent::keepsInitialValue},
        Field{"thumbsDownCounterEnabled", &S::thumbsDownCounterEnabled},
        Field{"thumbsUpCounterEnabled", &S::thumbsUpCounterEnabled},
        Field{"autoSavedTempo", &S::autoSavedTempo, WhenAbsent::keepsInitialValue},
        Field{"tempo", &S::tempo},
        Field{"snapToStandardTempi", &S::snapToStandardTempi, WhenAbsent::keepsInitialValue},
        Field{"clearThumbsDownOnTempoChanges", &S::clearThumbsDownOnTempoChanges},
        Field{"clearThumbsDownOnThumbsUp", &S::clearThumbsDownOnThumbsUp},
        Field{"clearThumbsUpOnTempoChanges", &S::clearThumbsUpOnTempoChanges},
        Field{"clearThumbsUpOnThumbsDown", &S::clearThumbsUpOnThumbsDown},
    };
    static constexpr std::array<std::string_view, 15> readingOrder{
        "advancedSubdivisionsEnabled",
        "bookmarks",
        "bookmarksEnabled",
        "quickNotesEnabled",
        "subdivisionsEnabled",
        "tempo",
        "thumbsDownCounterEnabled",
        "thumbsUpCounterEnabled",
        "clearThumbsDownOnTempoChanges",
        "clearThumbsDownOnThumbsUp",
        "clearThumbsUpOnTempoChanges",
        "clearThumbsUpOnThumbsDown",
        "tapTempoEnabled",
        "snapToStandardTempi",
        "autoSavedTempo",
    };
};

template <>
struct Cases<SessionType> {
    static constexpr std::array<std::string_view, 2> names{"timer", "stopwatch"};
};

template <>
struct Fields<PracticeSession> {
    static constexpr std::tuple all{
        Field{"date", &PracticeSession::date},
        Field{"exercise", &PracticeSession::exercise},
        Field{"seconds", &PracticeSession::seconds},
        Field{"type", &PracticeSession::type},
    };
};

template <>
struct Fields<HistoryEvent> {
    static constexpr std::tuple all{
        Field{"date", &HistoryEvent::date},
        Field{"exerciseName", &HistoryEvent::exerciseName},
        Field{"practiceTime", &HistoryEvent::practiceTime},
        Field{"thumbsUp", &HistoryEvent::thumbsUp},
        Field{"thumbsDown", &HistoryEvent::thumbsDown},
        Field{"id", &HistoryEvent::id},
    };
};

template <>
struct Fields<Note> {
    static constexpr std::tuple all{
        Field{"date", &Note::date},
        Field{"id", &Note::id},
        Field{"value", &Note::value},
    };
};

template <class T>
concept RecordWithFields = requires {
    Fields<T>::all;
};

template <class T>
concept EnumerationWithCases = requires {
    Cases<T>::names;
};

template <class Record>
inline constexpr std::size_t fieldCount = std::tuple_size_v<decltype(Fields<Record>::all)>;

template <class Record, std::size_t index>
inline constexpr auto field = std::get<index>(Fields<Record>::all);

template <class Record, class Member>
constexpr bool holdsOptional(const Field<Record, Member>&) {
    return false;
}
template <class Record, class Member>
constexpr bool holdsOptional(const Field<Record, std::optional<Member>>&) {
    return true;
}

template <class Record, std::size_t index>
inline constexpr bool isOptionalField = holdsOptional(field<Record, index>);

template <class Record, std::size_t index>
inline constexpr bool mayBeAbsent =
    isOptionalField<Record, index> || field<Record, index>.whenAbsent == WhenAbsent::keepsInitialValue;

template <std::size_t index>
using FieldIndex = std::integral_constant<std::size_t, index>;

// Calls `action` with a FieldIndex for each field in turn, until it returns true.
template <class Record, class Action>
Q_ALWAYS_INLINE constexpr bool anyField(const Action& action) {
    return [&action]<std::size_t... index>(std::index_sequence<index...>) __attribute__((always_inline)) {
        return (action(FieldIndex<index>()) || ...);
    }
    (std::make_index_sequence<fieldCount<Record>>());
}

} // namespace tamsel::json
