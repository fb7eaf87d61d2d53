#pragma once

#include "model/SqliteDatabase.h"

namespace tamsel {

// What a settings file is made of, and how one is recognised.
namespace schema {

// "TMSL", by which `file` and others tell whose the file is.
inline constexpr qint64 applicationId = 0x544D534C;
inline constexpr qint64 formatVersion = 1;

// Data lies in pieces of this many bytes: the full ones are rows of their own, what is left of the end lies with its
// key. As long as a page of the file: the end then fits into one page, and extending a long document costs what one
// small row costs. Smaller pages make reading and writing whole documents dearer and nothing cheaper that was measured.
inline constexpr qint64 chunkBytes = 32768;

// The row of a chunk, counted from 0, of the entry with this row.
constexpr qint64 chunkRow(qint64 entry, qint64 number) {
    constexpr qint64 rowsForEach = 4294967296; // 2^32
    return entry * rowsForEach + number;
}

} // namespace schema

// Opens the settings file, or makes it where there is none; its folder must exist. A file that is another program's, of
// a newer format, or damaged is left as it is. Closing leaves its log as it is. False on failure; `database.error()`
// then tells why.
[[nodiscard]] bool openSettingsDatabase(SqliteDatabase& database, const QString& path);

// Opens it once more where it is open in this program already, which has looked at it then.
[[nodiscard]] bool openSettingsDatabaseBeside(SqliteDatabase& database, const QString& path);

// Whether every page is in order; says why not.
[[nodiscard]] bool isSound(SqliteDatabase& database);

// Opens a copy of a settings file, looks through all of its pages, and leaves it untouched.
[[nodiscard]] bool openSettingsCopy(SqliteDatabase& database, const QString& path);

} // namespace tamsel
