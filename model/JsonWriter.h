#pragma once

#include "model/JsonFields.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUuid>

#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <string_view>
#include <tuple>
#include <utility>

namespace tamsel::json {

// Writes values behind what a buffer already holds. Every `write` is false for a number that JSON cannot write; the
// writer is then of no further use. `finish` gives the buffer its length, what is written in between is not its own.
class Writer {
public:
    explicit Writer(QByteArray& buffer);

    void finish();

    bool write(bool value);
    bool write(qint64 value);
    bool write(Date value);
    bool write(const QUuid& value);
    bool write(const QString& value);
    template <EnumerationWithCases T>
    bool write(T value);
    template <RecordWithFields T>
    bool write(const T& record);
    template <class T>
    bool write(const QList<T>& list);
    // An array in which keys and values alternate: what a dictionary with records for keys is written as.
    template <class Key, class Value>
    bool write(const QList<std::pair<Key, Value>>& dictionary);

    void writeCase(std::string_view name);

private:
    template <class Record, std::size_t index>
    bool writeField(const Record& record);

    // Room for this many bytes at m_at, which the caller moves on.
    void ensureRoom(qsizetype size) {
        if (m_end - m_at < size) [[unlikely]]
            grow(size);
    }
    void grow(qsizetype size);

    void put(char byte) { *m_at++ = byte; }
    void put(std::string_view bytes) {
        std::memcpy(m_at, bytes.data(), bytes.size());
        m_at += bytes.size();
    }
    void putPlainOrEscaped(const char16_t* text, qsizetype size);

    QByteArray& m_buffer;
    char* m_at;
    char* m_end;
};

namespace writing {

// More than the longest of: a double in either notation, a 64-bit integer, an identifier with its quotes.
inline constexpr qsizetype scalarSize = 48;

// Elements that tell how long a list's document is going to be.
inline constexpr qsizetype sample = 64;

// What stands in front of a field's value, such as {"date": or ,"id":
template <class Record, std::size_t index>
constexpr auto makeLead() {
    constexpr std::string_view key = field<Record, index>.key;
    std::array<char, key.size() + 4> lead{};
    lead[0] = index == 0 ? '{' : ',';
    lead[1] = '"';
    for (std::size_t i = 0; i < key.size(); ++i)
        lead[i + 2] = key[i];
    lead[key.size() + 2] = '"';
    lead[key.size() + 3] = ':';
    return lead;
}

template <class Record, std::size_t index>
inline constexpr auto leadBytes = makeLead<Record, index>();

template <class Record, std::size_t index>
inline constexpr std::string_view lead{leadBytes<Record, index>.data(), leadBytes<Record, index>.size()};

} // namespace writing

inline bool Writer::write(qint64 value) {
    ensureRoom(writing::scalarSize);
    m_at = std::to_chars(m_at, m_end, value).ptr;
    return true;
}

inline bool Writer::write(bool value) {
    ensureRoom(writing::scalarSize);
    put(value ? std::string_view("true") : std::string_view("false"));
    return true;
}

template <EnumerationWithCases T>
bool Writer::write(T value) {
    writeCase(Cases<T>::names.at(static_cast<std::size_t>(value)));
    return true;
}

template <class Record, std::size_t index>
bool Writer::writeField(const Record& record) {
    constexpr std::string_view lead = writing::lead<Record, index>;
    const auto& value = record.*field<Record, index>.member;
    if constexpr (isOptionalField<Record, index>) {
        static_assert(index > 0, "the first field is always written, as it opens the object");
        if (!value)
            return true;
    }
    ensureRoom(static_cast<qsizetype>(lead.size()));
    put(lead);
    if constexpr (isOptionalField<Record, index>)
        return write(*value);
    else
        return write(value);
}

template <RecordWithFields T>
bool Writer::write(const T& record) {
    const bool isWritten =
        !anyField<T>([&]<std::size_t index>(FieldIndex<index>) { return !writeField<T, index>(record); });
    ensureRoom(1);
    put('}');
    return isWritten;
}

template <class T>
bool Writer::write(const QList<T>& list) {
    ensureRoom(1);
    put('[');
    for (qsizetype i = 0; i < list.size(); ++i) {
        ensureRoom(1);
        if (i > 0)
            put(',');
        if (!write(list.at(i)))
            return false;
        if (i == writing::sample)
            ensureRoom((m_at - m_buffer.constData()) / (i + 1) * (list.size() - i) * 17 / 16);
    }
    ensureRoom(1);
    put(']');
    return true;
}

template <class Key, class Value>
bool Writer::write(const QList<std::pair<Key, Value>>& dictionary) {
    ensureRoom(1);
    put('[');
    for (qsizetype i = 0; i < dictionary.size(); ++i) {
        ensureRoom(1);
        if (i > 0)
            put(',');
        if (!write(dictionary.at(i).first))
            return false;
        ensureRoom(1);
        put(',');
        if (!write(dictionary.at(i).second))
            return false;
    }
    ensureRoom(1);
    put(']');
    return true;
}

} // namespace tamsel::json
