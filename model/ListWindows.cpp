#include "model/ListWindows.h"

#include "model/JsonReader.h"

#include <algorithm>
#include <cstring>

namespace tamsel::json {

namespace {

// The next byte that is not white space; the end when there is none.
const char* skipSpace(const char* at, const char* end) {
    return std::find_if(at, end, [](char byte) { return byte != ' ' && byte != '\n' && byte != '\r' && byte != '\t'; });
}

// The comma of the first } , { whose brace is at `from` or behind it; `end` when there is none.
const char* findCut(const char* from, const char* end) {
    while (const void* brace = std::memchr(from, '}', static_cast<std::size_t>(end - from))) {
        const char* comma = skipSpace(static_cast<const char*>(brace) + 1, end);
        const char* next = comma != end && *comma == ',' ? skipSpace(comma + 1, end) : end;
        if (next != end && *next == '{')
            return comma;
        from = static_cast<const char*>(brace) + 1;
    }
    return end;
}

} // namespace

ListWindows::ListWindows(QByteArrayView list, qsizetype size) : m_list(list), m_usualSize(size) {
    cutBehind(m_usualSize);
}

void ListWindows::next() {
    m_start = m_end + 1; // behind the comma
    cutBehind(m_usualSize);
}

bool ListWindows::enlarge() {
    if (isLast() || size() == 0 || size() > longestSize / 2)
        return false;
    cutBehind(2 * size());
    return size() > 0;
}

void ListWindows::cutBehind(qsizetype size) {
    const qsizetype rest = m_list.size() - m_start;
    const char* start = m_list.data() + m_start;
    m_end = m_list.size();
    if (rest <= size)
        return;
    const char* farthest = start + std::min(rest, longestSize);
    const char* cut = findCut(start + size, farthest);
    if (cut != farthest)
        m_end = cut - m_list.data();
    else if (rest > longestSize)
        m_end = m_start;
}

std::string_view ListWindows::text() {
    if (size() == 0 && !isLast())
        return {};
    const bool isFirst = m_start == 0;
    const qsizetype length = size() + (isFirst ? 0 : 1) + (isLast() ? 0 : 1);
    if (m_text.size() < length + Reader::padding)
        m_text = QByteArray(length + length / 8 + Reader::padding, Qt::Uninitialized);
    char* at = m_text.data();
    if (!isFirst)
        *at++ = '[';
    std::memcpy(at, m_list.data() + m_start, static_cast<std::size_t>(size()));
    at += size();
    if (!isLast())
        *at++ = ']';
    *at = 0; // what ends the parser's walk
    return {m_text.constData(), static_cast<std::size_t>(length)};
}

} // namespace tamsel::json
