#pragma once

#include "model/Exercise.h"
#include "model/ExerciseSettings.h"
#include "model/HistoryEvent.h"
#include "model/Note.h"
#include "model/PracticeSession.h"

#include <QByteArray>
#include <QLatin1String>
#include <QList>
#include <QString>
#include <QStringView>

#include <initializer_list>
#include <optional>
#include <utility>

// The stored JSON documents: how records are written and read. The bytes are the format on disk and never change for
// the same record. Pure functions, any thread.
//
// A record is an object with its fields as keys, in the order in which the record declares them. Dates are seconds
// since 2001-01-01 UTC, identifiers upper-case text, an absent optional is left out. A list is an array of records.
namespace tamsel::json {

// Why a document was refused: the place and what was expected there, such as
// "history.events[412].practiceTime: expected integer".
struct Error {
    QString message;
};

// A decoded value, or the error. Nothing is ever decoded in part.
template <class T>
class [[nodiscard]] Result {
public:
    Result(T value) : m_value(std::move(value)) {}
    Result(Error error) : m_error(std::move(error)) {}

    explicit operator bool() const { return m_value.has_value(); }
    const T& operator*() const& { return *m_value; }
    T&& operator*() && { return std::move(*m_value); }
    const T* operator->() const { return &*m_value; }
    const Error& error() const { return m_error; }

private:
    std::optional<T> m_value;
    Error m_error;
};

// What follows is defined for Exercise, ExerciseSettings, PracticeSession, HistoryEvent, Note, lists of these, and
// qint64 (a bare number). JsonCoding.h tells how a larger record joins them.

// The document of a value; nothing when it holds a number that JSON cannot write (a date that is not finite).
template <class T>
std::optional<QByteArray> encode(const T& value);

// Writes the document of a value behind what `document` holds, in place where the buffer has room. False when encode()
// yields nothing; `document` is then as it was.
template <class T>
[[nodiscard]] bool append(QByteArray& document, const T& value);

// Reads a whole document. `place` names it in errors, such as "history.events"; it may be empty.
//
// Keys may come in any order; those that the record does not know are passed over, though what they hold must be
// valid JSON as well. Of a key that occurs twice the last one counts, and all must be valid. An optional that is null
// is absent. A whole number may be written with a fraction of zeros or an exponent (60.0, 6e1), which is the same
// number to JSON. Everything else is refused: a missing key, another type, a number out of range, text that is not
// UTF-8, anything before or behind the document, nesting deeper than 100, a list's record longer than 16 MiB, and a
// document beyond 1 GiB that is no list.
template <class T>
Result<T> decode(QByteArray document, QStringView place = {});

// Enumerations without payload, written as an object with the case's name as its one key: {"timer":{}}.
QByteArray encodeCase(QLatin1String name);
// Reads such a document as an index into `names`.
Result<qsizetype> decodeCase(QByteArray document, std::initializer_list<QLatin1String> names, QStringView place = {});

} // namespace tamsel::json
