#pragma once

#include <QString>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tamsel::json {

// Finds the text that was made from the same bytes before, so that a name that thousands of events carry is stored
// once. One thread at a time.
class TextPool {
public:
    struct Entry {
        std::string bytes;
        QString text;
        bool isNew = true; // until the one who asked has filled in the text
    };

    TextPool() = default;
    TextPool(const TextPool&) = delete;
    TextPool& operator=(const TextPool&) = delete;

    // The entry of these bytes, valid until the next call.
    Entry& entry(std::string_view bytes) {
        if (!m_last->isNew && m_last->bytes == bytes)
            return *m_last;
        if (m_count * 2 >= m_slots.size() && m_slots.size() < maximumSlots)
            enlarge();
        m_last = find(bytes);
        if (m_last != nullptr && !m_last->isNew)
            return *m_last;
        if (m_last != nullptr && m_count * 2 < m_slots.size())
            ++m_count;
        else
            m_last = &m_surplus;
        *m_last = {std::string(bytes), QString(), true};
        return *m_last;
    }

private:
    // Enough for every name that a person gives. What comes beyond is remembered until the next text only, and so is
    // what finds its neighbourhood taken: no document makes the search long.
    static constexpr std::size_t maximumSlots = 65536;
    static constexpr std::size_t longestSearch = 16;

    // The place of these bytes or a free one for them.
    Entry* find(std::string_view bytes) {
        const std::size_t home = hash(bytes);
        for (std::size_t step = 0; step < longestSearch; ++step) {
            Entry& each = m_slots[(home + step) & (m_slots.size() - 1)];
            if (each.isNew || each.bytes == bytes)
                return &each;
        }
        return nullptr;
    }

    void enlarge() {
        std::vector<Entry> old(std::max<std::size_t>(64, m_slots.size() * 4));
        old.swap(m_slots);
        m_count = 0;
        for (Entry& each : old) {
            Entry* place = each.isNew ? nullptr : find(each.bytes);
            if (place != nullptr) {
                *place = std::move(each);
                ++m_count;
            }
        }
    }

    static std::size_t hash(std::string_view bytes) {
        constexpr std::size_t stride = sizeof(std::uint64_t);
        const char* at = bytes.data();
        const char* end = at + bytes.size();
        std::uint64_t mixed = bytes.size();
        const auto mix = [&mixed](std::uint64_t word) {
            mixed = (mixed ^ word) * 0x9E3779B97F4A7C15U; // 2^64 divided by the golden ratio
            mixed ^= mixed >> 32;
        };
        const auto wordAt = [](const char* place) {
            std::uint64_t word = 0;
            std::memcpy(&word, place, stride);
            return word;
        };
        if (bytes.size() < stride) {
            for (; at != end; ++at)
                mix(static_cast<unsigned char>(*at));
            return mixed;
        }
        for (; end - at > static_cast<std::ptrdiff_t>(stride); at += stride)
            mix(wordAt(at));
        mix(wordAt(end - stride)); // may take a few bytes in twice
        return mixed;
    }

    std::vector<Entry> m_slots;
    std::size_t m_count = 0;
    Entry m_surplus;
    Entry* m_last = &m_surplus;
};

} // namespace tamsel::json
