#pragma once

#include "model/Exercise.h"

#include <QString>
#include <QStringList>

// The one list of keys in the settings store. Copies of unreadable values lie under "unreadable." and their key.
namespace tamsel::keys {

inline const QString exercises = QStringLiteral("exercises");
inline const QString archivedExercises = QStringLiteral("archive.items");
inline const QString practiceSessions = QStringLiteral("DailyLog.practiceSessions");
inline const QString historyEvents = QStringLiteral("history.events");
inline const QString preferredTimeRange = QStringLiteral("preferredTimeRange");
inline const QString sortOrder = QStringLiteral("sortOrder");
inline const QString hasReadThanksMessage = QStringLiteral("hasReadThanksMessage");
inline const QString hasReadThanksMessageAug5 = QStringLiteral("hasReadThanksMessageAug5");
inline const QString hasReadJul15Message = QStringLiteral("hasReadJul15Message");
inline const QString dateOfLastReviewRequest = QStringLiteral("dateOfLastReviewRequest");
inline const QString numberOfPromptsForReview = QStringLiteral("numberOfPromptsForReview");
inline const QString runningPractice = QStringLiteral("practice.running");
inline const QString didMigrateLegacySettings = QStringLiteral("didMigrateLegacySettings");

// The canonical text of an identifier: 36 characters, upper-case, hyphenated.
inline QString uuidText(const QUuid& id) {
    return id.toString(QUuid::WithoutBraces).toUpper();
}

inline const QString notesPrefix = QStringLiteral("notes.");
inline const QString settingsPrefix = QStringLiteral("Settings.");

inline QString notes(const Exercise& exercise) {
    return notesPrefix + uuidText(exercise.id);
}

inline QString settings(const QUuid& exerciseId) {
    return settingsPrefix + uuidText(exerciseId);
}

// One setting each, as plain values, from before a whole record was kept for an item. The item's identifier followed by
// one of these suffixes is the key.
namespace legacy {
inline const QString advancedSubdivisions = QStringLiteral(".AdvancedSubdivisions");
inline const QString bookmarks = QStringLiteral(".Bookmarks");
inline const QString quickNotes = QStringLiteral(".QuickNotes");
inline const QString subdivisions = QStringLiteral(".Subdivisions");
inline const QString tapTempoEnabled = QStringLiteral(".tapTempoEnabled");
inline const QString tempo = QStringLiteral(".Tempo");
inline const QString tempoBookmarks = QStringLiteral(".TempoBookmarks");
inline const QString thumbsDownCounter = QStringLiteral(".ThumbsDownCounter");
inline const QString thumbsUpCounter = QStringLiteral(".ThumbsUpCounter");
inline const QString clearThumbsDownOnTempoChanges = QStringLiteral(".clearThumbsDownOnTempoChanges");
inline const QString clearThumbsDownOnThumbsUp = QStringLiteral(".clearThumbsDownOnThumbsUp");
inline const QString clearThumbsUpOnThumbsDown = QStringLiteral(".clearThumbsUpOnThumbsDown");
inline const QString clearThumbsUpOnTempoChanges = QStringLiteral(".clearThumbsUpOnTempoChanges");

inline const QStringList suffixes = {
    advancedSubdivisions,
    bookmarks,
    quickNotes,
    subdivisions,
    tapTempoEnabled,
    tempo,
    tempoBookmarks,
    thumbsDownCounter,
    thumbsUpCounter,
    clearThumbsDownOnTempoChanges,
    clearThumbsDownOnThumbsUp,
    clearThumbsUpOnThumbsDown,
    clearThumbsUpOnTempoChanges,
};
} // namespace legacy

} // namespace tamsel::keys
