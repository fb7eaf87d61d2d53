#pragma once

#include "model/DataDump.h"
#include "model/Json.h"

#include <QByteArray>
#include <QString>

namespace tamsel {

// Reads a document that is to replace everything. Beyond what decoding refuses, it must hold what this program can have
// written: no identifier twice (of items, of settings and notes for one item, of events, of one item's notes), dates
// within the years 1 to 9999, and numbers that no sum of them overflows. The error names the place and what is wrong
// there, such as "allHistory[412].practiceTime: expected integer" or "malformed JSON, at byte 5120". Any thread.
json::Result<DataDump> checkDataDump(QByteArray document);

} // namespace tamsel
