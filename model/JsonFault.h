#pragma once

#include <QByteArrayView>

#include <optional>

namespace tamsel::json {

// Brackets within brackets. Far beyond every record, far below what the stack holds.
inline constexpr int deepestNesting = 100;

// The index of the first byte with which the text is no beginning of a JSON document any more, or goes deeper into
// brackets than is read; the text's length when it only ends too early; nothing when it is a document. For telling
// where a refused document is wrong: one pass, no memory. Any thread.
std::optional<qsizetype> firstFaultyByte(QByteArrayView text);

} // namespace tamsel::json
