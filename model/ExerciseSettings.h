#pragma once

#include <QList>

namespace tamsel {

// The tools and rules of one item's practice screen. The initial values are those of a new item.
struct ExerciseSettings {
    bool advancedSubdivisionsEnabled = false;
    QList<qint64> bookmarks; // tempos in beats per minute
    bool bookmarksEnabled = false;
    bool quickNotesEnabled = false;
    bool subdivisionsEnabled = false;
    bool tapTempoEnabled = false;
    bool thumbsDownCounterEnabled = false;
    bool thumbsUpCounterEnabled = false;
    bool autoSavedTempo = true;
    qint64 tempo = 60; // beats per minute
    bool snapToStandardTempi = false;
    bool clearThumbsDownOnTempoChanges = true;
    bool clearThumbsDownOnThumbsUp = false;
    bool clearThumbsUpOnTempoChanges = true;
    bool clearThumbsUpOnThumbsDown = false;

    bool operator==(const ExerciseSettings&) const = default;
};

} // namespace tamsel
