#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <string_view>

namespace tamsel::json {

// Cuts the document of a long list of objects into documents of short lists, so that reading it takes little memory
// however long it is. The cuts lie between `}` and `{`, wherever these meet over a comma. Inside a text or a nested
// list they are wrong, and the window in front is then no JSON; it wants `enlarge`. Windows that are JSON lists, all of
// them, hold the elements of the whole list in their order, and the whole is JSON: that is how JSON's grammar is made.
class ListWindows {
public:
    // What a window aims at, in bytes; small enough for the cache.
    static constexpr qsizetype usualSize = 128 * 1024;
    // No record is longer than this by far.
    static constexpr qsizetype longestSize = 16 * 1024 * 1024;

    // The list must outlive this. At first the window is the first one.
    explicit ListWindows(QByteArrayView list, qsizetype size = usualSize);

    // The window as a document, with json::Reader's padding behind it; null when no cut is near enough. Valid until
    // the window changes.
    std::string_view text();
    // How many bytes of the list lie in it.
    qsizetype size() const { return m_end - m_start; }

    // Whether there are more behind it.
    bool isLast() const { return m_end == m_list.size(); }
    void next();
    // Sets a later cut, at least twice as far. False when there is none.
    bool enlarge();

private:
    void cutBehind(qsizetype size);

    const QByteArrayView m_list;
    const qsizetype m_usualSize;
    qsizetype m_start = 0;
    qsizetype m_end = 0; // m_start when no cut is near enough
    QByteArray m_text;
};

} // namespace tamsel::json
