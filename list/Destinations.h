#pragma once

#include "model/Exercise.h"
#include "model/PracticeSession.h"

#include <QHashFunctions>

#include <optional>

// Where a navigation stack can lead, as values: they can be compared and hashed. Those that lead to a report are with
// the reports.
namespace tamsel::destinations {

// From the practice list to an item's practice screen, opened from the list or from one of today's sessions.
struct FromPracticeList {
    enum class Case { practice };

    Exercise exercise;
    std::optional<PracticeSession> session;

    bool operator==(const FromPracticeList&) const = default;
};

// Takes in every field, unlike the hash of a session alone.
inline size_t qHash(const FromPracticeList& destination, size_t seed = 0) {
    const std::optional<PracticeSession>& session = destination.session;
    const size_t hash = qHashMulti(seed, static_cast<int>(FromPracticeList::Case::practice), destination.exercise.name,
                                   destination.exercise.id, session.has_value());
    if (!session)
        return hash;
    return qHashMulti(hash, session->date.secondsSinceReference, session->exercise.name, session->exercise.id,
                      session->seconds, static_cast<int>(session->type));
}

// From an item's practice screen to what was done with the item before.
struct FromPracticeView {
    enum class Case { history, notes };

    Case leadsTo = Case::history;
    Exercise exercise;

    static FromPracticeView history(const Exercise& exercise) { return {Case::history, exercise}; }
    static FromPracticeView notes(const Exercise& exercise) { return {Case::notes, exercise}; }

    bool operator==(const FromPracticeView&) const = default;
};

inline size_t qHash(const FromPracticeView& destination, size_t seed = 0) {
    return qHashMulti(seed, static_cast<int>(destination.leadsTo), destination.exercise);
}

} // namespace tamsel::destinations
