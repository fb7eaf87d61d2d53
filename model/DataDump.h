#pragma once

#include "model/Exercise.h"
#include "model/ExerciseSettings.h"
#include "model/HistoryEvent.h"
#include "model/Json.h"
#include "model/Note.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>
#include <utility>

namespace tamsel {

// All of a user's data as it leaves the device in one document and comes back from one. A dictionary is a list of its
// entries, in the order of the items. Settings and notes of archived items are deliberately not part of it.
struct DataDump {
    QList<Exercise> allArchivedExercises;
    QList<Exercise> allExercises;
    QList<std::pair<Exercise, ExerciseSettings>> allExerciseSettings;
    QList<HistoryEvent> allHistory;
    QList<std::pair<Exercise, QList<Note>>> allNotes;

    // By which the desktop knows the document, and the end of its file's name.
    inline static const QString contentType = QStringLiteral("app.brennow.cadenzabook.data");
    inline static const QString fileExtension = QStringLiteral("tamsel");

    bool operator==(const DataDump&) const = default;
};

// json::encode and json::decode (Json.h) write and read the document: an object with the five fields as keys, in their
// order, all of them required. A dictionary is an array in which items and values alternate.

// As json::decode does. The error tells the byte as well, counted from 1, where the text is no JSON.
json::Result<DataDump> decodeDataDump(QByteArray document);

// The document in a file; nothing when the file cannot be read or does not hold one.
std::optional<DataDump> readDataDump(const QString& path);

} // namespace tamsel
