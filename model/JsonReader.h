#pragma once

#include "model/JsonFields.h"
#include "model/ListWindows.h"
#include "model/TextPool.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringView>
#include <QUuid>

#include <simdjson.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace tamsel::json {

// Reads a document. A `read` is false once something was refused; `error` then tells what and where, and the target
// holds nothing of use. One document, one thread.
class Reader {
public:
    using Value = simdjson::ondemand::value;
    using Object = simdjson::ondemand::object;
    using Array = simdjson::ondemand::array;
    using Field = simdjson::ondemand::field;
    using RawKey = simdjson::ondemand::raw_json_string;

    // What the parser may look at behind a document's end.
    static constexpr qsizetype padding = simdjson::SIMDJSON_PADDING;

    Reader() = default;
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    // The whole document, from its first to its last byte.
    bool readDocument(QByteArray document, qint64& target);
    template <RecordWithFields T>
    bool readDocument(QByteArray document, T& target);
    // Takes memory for the list and little more, however long it is.
    template <class T>
    bool readDocument(const QByteArray& document, QList<T>& target);
    bool readCaseDocument(QByteArray document, std::span<const std::string_view> names, std::size_t& index);

    // One value within the document.
    bool read(Value& source, bool& target);
    bool read(Value& source, qint64& target);
    bool read(Value& source, Date& target);
    bool read(Value& source, QUuid& target);
    bool read(Value& source, QString& target);
    template <EnumerationWithCases T>
    bool read(Value& source, T& target);
    template <RecordWithFields T>
    bool read(Value& source, T& target);
    template <class T>
    bool read(Value& source, QList<T>& target);

    QString error(QStringView place) const;
    // What readDocument() was given, unless that was a list.
    QByteArrayView document() const { return m_whole; }

private:
    struct Fault {
        QByteArray path; // such as [412].practiceTime
        std::string_view expectation;
    };
    // Of the faults of one object, the one that comes first in the order of reading.
    struct FirstFault {
        std::size_t rank;
        Fault fault;
    };

    bool startWhole(QByteArray&& document);
    bool start(std::string_view text);
    bool finish();
    template <class T>
    bool readWindow(ListWindows& windows, QList<T>& target);
    bool refuse(simdjson::error_code error);
    bool fail(std::string_view expectation);
    bool failMalformed();
    bool failAt(qsizetype index);
    bool failAtKey(std::string_view key);
    void keepFirst(std::optional<FirstFault>& first, std::size_t rank) const;
    void keepFirst(std::optional<FirstFault>& first, std::size_t rank, std::string_view key);

    template <RecordWithFields T>
    bool readFields(Object object, T& target);
    template <RecordWithFields T, std::size_t index>
    bool readField(Value& source, T& target);
    // Returns the bit of the field that the key names after all, being written with escapes.
    template <RecordWithFields T>
    std::uint32_t readOrSkip(RawKey key, Value source, T& target, std::optional<FirstFault>& first);
    template <class T>
    bool readElements(Array array, QList<T>& target);
    template <class Key, class T>
    bool readElements(Array array, QList<std::pair<Key, T>>& target);
    template <class Each>
    bool forEachElement(Array array, qsizetype index, Each each);
    bool readCase(Object object, std::span<const std::string_view> names, std::size_t& index);
    bool unescape(Value source, std::string_view raw, std::string_view& meant);
    bool makeText(Value source, std::string_view raw, QString& target);
    bool readEscaped(Value source, std::string_view raw, QUuid& target);
    // The key as it is meant, when it is written with escapes; none otherwise.
    bool unescape(RawKey key, std::optional<std::string_view>& meant);
    bool skip(Value source);

    QByteArray m_whole;
    simdjson::ondemand::parser m_parser;
    simdjson::ondemand::document m_document;
    std::vector<std::uint8_t> m_key;
    TextPool m_texts;
    Fault m_fault;
};

namespace reading {

// Where the field stands in the order of reading.
template <class Record, std::size_t index>
consteval std::size_t rank() {
    if constexpr (requires { Fields<Record>::readingOrder; }) {
        constexpr const auto& order = Fields<Record>::readingOrder;
        constexpr auto found = std::ranges::find(order, field<Record, index>.key);
        static_assert(found != order.end() && order.size() == fieldCount<Record>);
        return static_cast<std::size_t>(found - order.begin());
    } else {
        return index;
    }
}

// What stands between the quotes of the string that the value begins with, escapes as written; none for another type.
Q_ALWAYS_INLINE std::optional<std::string_view> rawText(Reader::Value& source) {
    std::string_view token = source.raw_json_token();
    if (token.front() != '"')
        return std::nullopt;
    // The token reaches to the next one; only white space can follow the closing quote.
    while (token.back() != '"')
        token.remove_suffix(1);
    return token.substr(1, token.size() - 2);
}

// Whether the key is this name, written without escapes.
Q_ALWAYS_INLINE bool keyIs(Reader::RawKey key, std::string_view name) {
    // A key that ends earlier differs by its quote, at the latest; the padding lets the comparison run on.
    return std::memcmp(key.raw(), name.data(), name.size()) == 0 && key.raw()[name.size()] == '"';
}

bool readUuid(std::string_view text, QUuid& target);

// False for a number with a fraction, and for one that is as large as 2^53: from there on a double stands for several.
inline bool toWhole(double number, qint64& target) {
    if (number != std::trunc(number) || std::abs(number) >= 9007199254740992.0)
        return false;
    target = static_cast<qint64>(number);
    return true;
}

} // namespace reading

Q_ALWAYS_INLINE bool Reader::read(Value& source, bool& target) {
    return !source.get_bool().get(target) || fail("expected boolean");
}

Q_ALWAYS_INLINE bool Reader::read(Value& source, qint64& target) {
    std::int64_t integer = 0;
    if (!source.get_int64().get(integer)) {
        target = integer;
        return true;
    }
    double number = 0;
    return (!source.get_double().get(number) && reading::toWhole(number, target)) || fail("expected integer");
}

Q_ALWAYS_INLINE bool Reader::read(Value& source, Date& target) {
    return !source.get_double().get(target.secondsSinceReference) || fail("expected number");
}

Q_ALWAYS_INLINE bool Reader::read(Value& source, QUuid& target) {
    const auto raw = reading::rawText(source);
    if (!raw)
        return fail("expected UUID");
    if (!reading::readUuid(*raw, target)) [[unlikely]]
        return readEscaped(source, *raw, target);
    return !source.get_raw_json_string().error();
}

Q_ALWAYS_INLINE bool Reader::read(Value& source, QString& target) {
    // Longer texts are notes, which do not repeat.
    constexpr std::size_t longestPooled = 128;

    const auto raw = reading::rawText(source);
    if (!raw)
        return fail("expected string");
    if (raw->size() > longestPooled)
        return makeText(source, *raw, target);
    TextPool::Entry& entry = m_texts.entry(*raw);
    if (entry.isNew) {
        if (!makeText(source, *raw, entry.text))
            return false;
        entry.isNew = false;
        target = QString(entry.text); // moved in, which is inline
        return true;
    }
    target = QString(entry.text); // moved in, which is inline
    return !source.get_raw_json_string().error();
}

template <EnumerationWithCases T>
bool Reader::read(Value& source, T& target) {
    Object object;
    if (source.get_object().get(object))
        return fail("expected object");
    std::size_t index = 0;
    if (!readCase(object, Cases<T>::names, index))
        return false;
    target = static_cast<T>(index);
    return true;
}

template <RecordWithFields T>
bool Reader::read(Value& source, T& target) {
    Object object;
    if (source.get_object().get(object))
        return fail("expected object");
    return readFields(object, target);
}

template <class T>
bool Reader::read(Value& source, QList<T>& target) {
    Array array;
    if (source.get_array().get(array))
        return fail("expected array");
    target.clear();
    return readElements(array, target);
}

template <RecordWithFields T>
bool Reader::readDocument(QByteArray document, T& target) {
    Object object;
    if (!startWhole(std::move(document)))
        return false;
    if (const auto error = m_document.get_object().get(object))
        return error == simdjson::INCORRECT_TYPE ? fail("expected object") : refuse(error);
    return readFields(object, target) && finish();
}

template <class T>
bool Reader::readDocument(const QByteArray& document, QList<T>& target) {
    ListWindows windows(document);
    target.clear();
    if (!readWindow(windows, target))
        return false;
    // The first window tells how many elements there are going to be.
    if (!windows.isLast())
        target.reserve(target.size() * (document.size() / windows.size() + 1));
    while (!windows.isLast()) {
        windows.next();
        if (!readWindow(windows, target))
            return false;
    }
    return true;
}

template <class T>
bool Reader::readWindow(ListWindows& windows, QList<T>& target) {
    const qsizetype known = target.size();
    do {
        Array array;
        target.resize(known);
        if (!start(windows.text()))
            continue;
        if (const auto error = m_document.get_array().get(array))
            error == simdjson::INCORRECT_TYPE ? fail("expected array") : refuse(error);
        else if (readElements(array, target) && finish())
            return true;
    } while (windows.enlarge());
    return false;
}

template <RecordWithFields T>
bool Reader::readFields(Object object, T& target) {
    static_assert(fieldCount<T> <= 32, "one bit of `seen` each");

    std::uint32_t seen = 0;
    std::optional<FirstFault> first;
    for (auto each : object) {
        if (each.error()) [[unlikely]] {
            failMalformed();
            keepFirst(first, 0);
            break;
        }
        const RawKey key = each.value_unsafe().key();
        Value& source = each.value_unsafe().value();
        const bool isKnown = anyField<T>([&]<std::size_t index>(FieldIndex<index>) __attribute__((always_inline)) {
            if (!reading::keyIs(key, field<T, index>.key))
                return false;
            seen |= std::uint32_t(1) << index;
            if (!readField<T, index>(source, target)) [[unlikely]]
                keepFirst(first, reading::rank<T, index>(), field<T, index>.key);
            return true;
        });
        if (!isKnown) [[unlikely]]
            seen |= readOrSkip(key, source, target, first);
    }
    anyField<T>([&]<std::size_t index>(FieldIndex<index>) __attribute__((always_inline)) {
        if (!mayBeAbsent<T, index> && (seen >> index & 1) == 0) [[unlikely]] {
            fail("missing");
            keepFirst(first, reading::rank<T, index>(), field<T, index>.key);
        }
        return false;
    });
    if (!first) [[likely]]
        return true;
    m_fault = std::move(first->fault);
    return false;
}

template <RecordWithFields T>
std::uint32_t Reader::readOrSkip(RawKey key, Value source, T& target, std::optional<FirstFault>& first) {
    std::optional<std::string_view> meant;
    std::uint32_t seen = 0;
    if (!unescape(key, meant)) {
        keepFirst(first, 0);
        return seen;
    }
    anyField<T>([&]<std::size_t index>(FieldIndex<index>) {
        if (meant != field<T, index>.key)
            return false;
        seen = std::uint32_t(1) << index;
        if (!readField<T, index>(source, target))
            keepFirst(first, reading::rank<T, index>(), field<T, index>.key);
        return true;
    });
    if (seen == 0 && !skip(source))
        keepFirst(first, 0);
    return seen;
}

template <RecordWithFields T, std::size_t index>
Q_ALWAYS_INLINE bool Reader::readField(Value& source, T& target) {
    auto& member = target.*field<T, index>.member;
    if constexpr (mayBeAbsent<T, index>) {
        bool isNull = false;
        if (!source.is_null().get(isNull) && isNull) {
            member = T().*field<T, index>.member;
            return true;
        }
    }
    if constexpr (isOptionalField<T, index>)
        return read(source, member.emplace());
    else
        return read(source, member);
}

// Adds the elements to those that are there.
template <class T>
bool Reader::readElements(Array array, QList<T>& target) {
    return forEachElement(array, target.size(), [&](Value& value) { return read(value, target.emplaceBack()); });
}

template <class Key, class T>
bool Reader::readElements(Array array, QList<std::pair<Key, T>>& target) {
    bool expectsKey = true;
    const bool isRead = forEachElement(array, 2 * target.size(), [&](Value& value) {
        const bool isKey = std::exchange(expectsKey, !expectsKey);
        return isKey ? read(value, target.emplaceBack().first) : read(value, target.last().second);
    });
    return isRead && (expectsKey || fail("expected an even number of elements"));
}

template <class Each>
bool Reader::forEachElement(Array array, qsizetype index, Each each) {
    for (auto element : array) {
        Value value;
        if (element.get(value)) [[unlikely]]
            return failMalformed() || failAt(index);
        if (!each(value)) [[unlikely]]
            return failAt(index);
        ++index;
    }
    return true;
}

} // namespace tamsel::json
