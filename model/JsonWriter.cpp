#include "model/JsonWriter.h"

#include <QChar>
#include <QStringView>

#include <algorithm>

namespace tamsel::json {

namespace {

constexpr std::array<char, 512> makeHexPairs() {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::array<char, 512> pairs{};
    for (std::size_t byte = 0; byte < 256; ++byte) {
        pairs[byte * 2] = digits[byte >> 4];
        pairs[byte * 2 + 1] = digits[byte & 15];
    }
    return pairs;
}

constexpr std::array<char, 512> hexPairs = makeHexPairs();

char* putHex(char* at, unsigned byte) {
    std::memcpy(at, &hexPairs[static_cast<std::size_t>(byte & 0xFF) * 2], 2);
    return at + 2;
}

// The letter behind the backslash of a short escape; 0 where there is none.
constexpr char shortEscape(char16_t unit) {
    switch (unit) {
    case u'"':
        return '"';
    case u'\\':
        return '\\';
    case u'\b':
        return 'b';
    case u'\f':
        return 'f';
    case u'\n':
        return 'n';
    case u'\r':
        return 'r';
    case u'\t':
        return 't';
    default:
        return 0;
    }
}

char* putEscape(char* at, char16_t unit) {
    *at++ = '\\';
    if (const char letter = shortEscape(unit)) {
        *at++ = letter;
        return at;
    }
    constexpr std::string_view digits = "0123456789abcdef";
    for (const char byte : {'u', '0', '0', digits[(unit >> 4) & 15], digits[unit & 15]})
        *at++ = byte;
    return at;
}

char* putUtf8(char* at, char32_t code) {
    const auto tail = [code](int shift) { return static_cast<char>(0x80 | ((code >> shift) & 0x3F)); };
    if (code < 0x80) {
        *at++ = static_cast<char>(code);
    } else if (code < 0x800) {
        *at++ = static_cast<char>(0xC0 | (code >> 6));
        *at++ = tail(0);
    } else if (code < 0x10000) {
        *at++ = static_cast<char>(0xE0 | (code >> 12));
        *at++ = tail(6);
        *at++ = tail(0);
    } else {
        *at++ = static_cast<char>(0xF0 | (code >> 18));
        *at++ = tail(12);
        *at++ = tail(6);
        *at++ = tail(0);
    }
    return at;
}

constexpr bool isPlain(char16_t unit) {
    return unit >= 0x20 && unit < 0x80 && unit != u'"' && unit != u'\\';
}

// Copies the first units as bytes for as long as they are plain, in blocks of eight. Returns how many.
qsizetype copyPlain(char* at, const char16_t* text, qsizetype size) {
    constexpr qsizetype block = 8;
    const auto copyBlock = [at, text](qsizetype from) {
        bool plain = true;
        for (qsizetype i = from; i < from + block; ++i) {
            plain &= isPlain(text[i]);
            at[i] = static_cast<char>(text[i]);
        }
        return plain;
    };
    qsizetype done = 0;
    for (; size - done >= block; done += block) {
        if (!copyBlock(done))
            return done;
    }
    // The last block reaches back into the one before.
    return size >= block && copyBlock(size - block) ? size : done;
}

} // namespace

Writer::Writer(QByteArray& buffer) : m_buffer(buffer) {
    const qsizetype length = buffer.size();
    buffer.resize(std::max(buffer.capacity(), length));
    m_at = buffer.data() + length;
    m_end = buffer.data() + buffer.size();
}

void Writer::finish() {
    m_buffer.resize(m_at - m_buffer.constData());
}

void Writer::grow(qsizetype size) {
    const qsizetype length = m_at - m_buffer.constData();
    m_buffer.reserve(std::max(2 * length, length + size)); // exactly: resize alone would round up to a power of two
    m_buffer.resize(m_buffer.capacity());
    m_at = m_buffer.data() + length;
    m_end = m_buffer.data() + m_buffer.size();
}

bool Writer::write(Date value) {
    const double seconds = value.secondsSinceReference;
    if (!std::isfinite(seconds))
        return false;
    ensureRoom(writing::scalarSize);
    // The shortest digits that read back to the same double. Outside these bounds (2^54 is the upper one) a row of
    // zeros would be longer than an exponent, and to_chars alone would write 100000 as 1e+05.
    const double size = std::abs(seconds);
    const bool plain = size == 0 || (size >= 1e-4 && size <= 18014398509481984.0);
    const auto format = plain ? std::chars_format::fixed : std::chars_format::scientific;
    m_at = std::to_chars(m_at, m_end, seconds, format).ptr;
    return true;
}

bool Writer::write(const QUuid& value) {
    ensureRoom(writing::scalarSize);
    char* at = m_at;
    *at++ = '"';
    at = putHex(putHex(putHex(putHex(at, value.data1 >> 24), value.data1 >> 16), value.data1 >> 8), value.data1);
    *at++ = '-';
    at = putHex(putHex(at, value.data2 >> 8U), value.data2);
    *at++ = '-';
    at = putHex(putHex(at, value.data3 >> 8U), value.data3);
    *at++ = '-';
    at = putHex(putHex(at, value.data4[0]), value.data4[1]);
    *at++ = '-';
    for (std::size_t i = 2; i < 8; ++i)
        at = putHex(at, value.data4[i]);
    *at++ = '"';
    m_at = at;
    return true;
}

bool Writer::write(const QString& value) {
    // One unit becomes at most six bytes, \u001f.
    ensureRoom(6 * value.size() + 2);
    put('"');
    const char16_t* text = QStringView(value).utf16();
    const qsizetype plain = copyPlain(m_at, text, value.size());
    m_at += plain;
    if (plain < value.size())
        putPlainOrEscaped(text + plain, value.size() - plain);
    put('"');
    return true;
}

void Writer::putPlainOrEscaped(const char16_t* text, qsizetype size) {
    char* at = m_at;
    for (qsizetype i = 0; i < size; ++i) {
        const char16_t unit = text[i];
        if (isPlain(unit)) {
            *at++ = static_cast<char>(unit);
        } else if (unit < 0x80 && unit != 0x7F) {
            at = putEscape(at, unit);
        } else if (!QChar::isSurrogate(unit)) {
            at = putUtf8(at, unit);
        } else if (QChar::isHighSurrogate(unit) && i + 1 < size && QChar::isLowSurrogate(text[i + 1])) {
            at = putUtf8(at, QChar::surrogateToUcs4(unit, text[++i]));
        } else {
            // Half a character has no UTF-8; the document stays readable.
            at = putUtf8(at, QChar::ReplacementCharacter);
        }
    }
    m_at = at;
}

void Writer::writeCase(std::string_view name) {
    ensureRoom(static_cast<qsizetype>(name.size()) + writing::scalarSize);
    put("{\"");
    put(name);
    put("\":{}}");
}

} // namespace tamsel::json
