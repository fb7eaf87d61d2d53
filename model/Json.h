#pragma once

#include "model/Exercise.h"
#include "model/ExerciseSettings.h"
#include "model/HistoryEvent.h"
#include "model/Note.h"
#include "model/PracticeSession.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>

#include <optional>

// The stored JSON documents: how records are written and read. The bytes are the format on disk and never change for
// the same record. Pure functions, any thread.
namespace tamsel::json {

// Why a document was refused: the place and what was expected there, such as
// "[412].practiceTime: expected integer". Places are relative to the document's root, which is written as nothing.
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

// The document of a record or of a list of records; nothing when it holds a number that JSON cannot write (a date that
// is not finite).
std::optional<QByteArray> encode(const Exercise& exercise);
std::optional<QByteArray> encode(const ExerciseSettings& settings);
std::optional<QByteArray> encode(const PracticeSession& session);
std::optional<QByteArray> encode(const HistoryEvent& event);
std::optional<QByteArray> encode(const Note& note);
std::optional<QByteArray> encode(const QList<Exercise>& exercises);
std::optional<QByteArray> encode(const QList<PracticeSession>& sessions);
std::optional<QByteArray> encode(const QList<HistoryEvent>& events);
std::optional<QByteArray> encode(const QList<Note>& notes);

// `place` names the document in errors, such as "history.events"; it may be empty.
template <class T>
Result<T> decode(QByteArrayView document, QStringView place = {});

template <>
Result<Exercise> decode<Exercise>(QByteArrayView document, QStringView place);
template <>
Result<ExerciseSettings> decode<ExerciseSettings>(QByteArrayView document, QStringView place);
template <>
Result<PracticeSession> decode<PracticeSession>(QByteArrayView document, QStringView place);
template <>
Result<HistoryEvent> decode<HistoryEvent>(QByteArrayView document, QStringView place);
template <>
Result<Note> decode<Note>(QByteArrayView document, QStringView place);
template <>
Result<QList<Exercise>> decode<QList<Exercise>>(QByteArrayView document, QStringView place);
template <>
Result<QList<PracticeSession>> decode<QList<PracticeSession>>(QByteArrayView document, QStringView place);
template <>
Result<QList<HistoryEvent>> decode<QList<HistoryEvent>>(QByteArrayView document, QStringView place);
template <>
Result<QList<Note>> decode<QList<Note>>(QByteArrayView document, QStringView place);

} // namespace tamsel::json
