#include "model/JsonFault.h"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace tamsel::json {

namespace {

bool isDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

// Walks over JSON. Each step is false at the first byte that is wrong, and stays there.
class Scanner {
public:
    explicit Scanner(QByteArrayView text) : m_at(text.begin()), m_end(text.end()) {}

    const char* at() const { return m_at; }

    bool document() {
        if (!value(0))
            return false;
        skipSpace();
        return m_at == m_end;
    }

private:
    void skipSpace() {
        m_at = std::find_if(m_at, m_end,
                            [](char byte) { return byte != ' ' && byte != '\n' && byte != '\r' && byte != '\t'; });
    }

    bool isAt(char byte) const { return m_at != m_end && *m_at == byte; }

    // The byte, behind white space.
    bool take(char byte) {
        skipSpace();
        if (!isAt(byte))
            return false;
        ++m_at;
        return true;
    }

    bool value(int depth) {
        skipSpace();
        if (m_at == m_end)
            return false;
        switch (*m_at) {
        case '{':
            return depth < deepestNesting && object(depth + 1);
        case '[':
            return depth < deepestNesting && array(depth + 1);
        case '"':
            return text();
        case 't':
            return word("true");
        case 'f':
            return word("false");
        case 'n':
            return word("null");
        default:
            return number();
        }
    }

    bool object(int depth) {
        ++m_at;
        if (take('}'))
            return true;
        do {
            skipSpace();
            if (!isAt('"') || !text() || !take(':') || !value(depth))
                return false;
        } while (take(','));
        return take('}');
    }

    bool array(int depth) {
        ++m_at;
        if (take(']'))
            return true;
        do {
            if (!value(depth))
                return false;
        } while (take(','));
        return take(']');
    }

    bool word(std::string_view word) {
        for (const char letter : word) {
            if (!isAt(letter))
                return false;
            ++m_at;
        }
        return true;
    }

    bool digits() {
        if (m_at == m_end || !isDigit(*m_at))
            return false;
        m_at = std::find_if_not(m_at, m_end, isDigit);
        return true;
    }

    bool number() {
        if (isAt('-'))
            ++m_at;
        if (isAt('0'))
            ++m_at;
        else if (!digits())
            return false;
        if (isAt('.')) {
            ++m_at;
            if (!digits())
                return false;
        }
        if (!isAt('e') && !isAt('E'))
            return true;
        ++m_at;
        if (isAt('+') || isAt('-'))
            ++m_at;
        return digits();
    }

    bool text() {
        for (++m_at; m_at != m_end;) {
            const auto byte = static_cast<unsigned char>(*m_at);
            if (byte == '"') {
                ++m_at;
                return true;
            }
            const bool isRead = byte == '\\' ? escape() : byte < 0x80 ? plain(byte) : character(byte);
            if (!isRead)
                return false;
        }
        return false;
    }

    bool plain(unsigned char byte) {
        if (byte < ' ')
            return false;
        ++m_at;
        return true;
    }

    // Of more than one byte, in UTF-8: the shortest form, no surrogates, nothing beyond U+10FFFF.
    bool character(unsigned char lead) {
        int more = 1;
        unsigned lowest = 0x80;
        unsigned highest = 0xBF;
        if (lead >= 0xE0 && lead <= 0xEF) {
            more = 2;
            lowest = lead == 0xE0 ? 0xA0 : lowest;
            highest = lead == 0xED ? 0x9F : highest;
        } else if (lead >= 0xF0 && lead <= 0xF4) {
            more = 3;
            lowest = lead == 0xF0 ? 0x90 : lowest;
            highest = lead == 0xF4 ? 0x8F : highest;
        } else if (lead < 0xC2 || lead > 0xDF) {
            return false;
        }
        for (++m_at; more > 0; --more, ++m_at) {
            if (m_at == m_end)
                return false;
            const auto byte = static_cast<unsigned char>(*m_at);
            if (byte < lowest || byte > highest)
                return false;
            lowest = 0x80;
            highest = 0xBF;
        }
        return true;
    }

    bool escape() {
        ++m_at;
        if (m_at == m_end || std::string_view("\"\\/bfnrtu").find(*m_at) == std::string_view::npos)
            return false;
        const bool isCode = *m_at == 'u';
        ++m_at;
        unsigned unit = 0;
        if (!isCode)
            return true;
        if (!codeUnit(unit))
            return false;
        if (unit < 0xD800 || unit > 0xDBFF)
            return true;
        // The first half of a character; the second must follow.
        for (const char expected : {'\\', 'u'}) {
            if (!isAt(expected))
                return false;
            ++m_at;
        }
        const char* const digits = m_at;
        if (!codeUnit(unit))
            return false;
        if (unit >= 0xDC00 && unit <= 0xDFFF)
            return true;
        m_at = digits;
        return false;
    }

    // Four hexadecimal digits.
    bool codeUnit(unsigned& unit) {
        const char* const end = m_at + std::min<qsizetype>(m_end - m_at, 4);
        const char* const start = m_at;
        m_at = std::from_chars(start, end, unit, 16).ptr;
        return m_at - start == 4;
    }

    const char* m_at;
    const char* const m_end;
};

} // namespace

std::optional<qsizetype> firstFaultyByte(QByteArrayView text) {
    Scanner scanner(text);
    if (scanner.document())
        return std::nullopt;
    return scanner.at() - text.begin();
}

} // namespace tamsel::json
