#pragma once

#include "model/Json.h"
#include "model/JsonReader.h"
#include "model/JsonWriter.h"

// The bodies of encode, append and decode. Only the source file that makes them for its types includes this: it
// specialises Fields (JsonFields.h) for a record of its own and instantiates the three.
namespace tamsel::json {

template <class T>
bool append(QByteArray& document, const T& value) {
    const qsizetype length = document.size();
    Writer writer(document);
    const bool isWritten = writer.write(value);
    writer.finish();
    if (!isWritten)
        document.truncate(length);
    return isWritten;
}

template <class T>
std::optional<QByteArray> encode(const T& value) {
    QByteArray document;
    if (!append(document, value))
        return std::nullopt;
    return document;
}

template <class T>
Result<T> decode(QByteArray document, QStringView place) {
    Reader reader;
    T value{};
    if (!reader.readDocument(std::move(document), value))
        return Error{reader.error(place)};
    return value;
}

} // namespace tamsel::json
