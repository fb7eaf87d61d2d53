#pragma once

#include <QHash>
#include <QList>
#include <QString>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace tamsel {

// Numbers names from 0, in the order in which they first come. Quick for names that share their text, as those of the
// thousands of events of one item do.
class NameIndex {
public:
    int indexOf(const QString& name) {
        const int known = numberOfText(name);
        return known >= 0 ? known : learn(name, numberOf(name));
    }
    // The number of a name that has one; -1 for others.
    int find(const QString& name) {
        if (const int known = numberOfText(name); known >= 0)
            return known;
        const auto found = m_numbers.constFind(name);
        return found == m_numbers.cend() ? -1 : learn(name, *found);
    }

    const QList<QString>& names() const { return m_names; }

private:
    struct Text {
        const QChar* data = nullptr; // while nothing, the place is free
        qsizetype size = 0;
        int number = -1;
        QString name; // keeps the text, so that no other comes to lie at its address
    };
    static constexpr std::size_t leastPlaces = 64; // a power of two
    // An item has a text of its own beside that of its events.
    static constexpr std::size_t placesPerName = 4;
    // How many places are looked through for a text. Where all are taken, the first gives way, so that names that share
    // no text fill the memory no further.
    static constexpr std::size_t mostSteps = 8;

    int numberOfText(const QString& name) const {
        const QChar* const data = name.constData();
        const std::size_t first = placeOf(data);
        for (std::size_t step = 0; step < mostSteps; ++step) {
            const Text& text = m_texts[(first + step) & m_mask];
            if (text.data == data && text.size == name.size())
                return text.number;
            if (text.data == nullptr)
                break;
        }
        return -1;
    }

    int numberOf(const QString& name) {
        const auto known = m_numbers.constFind(name);
        if (known != m_numbers.cend())
            return *known;
        m_names += name;
        m_numbers.insert(name, static_cast<int>(m_names.size()) - 1);
        return static_cast<int>(m_names.size()) - 1;
    }

    int learn(const QString& name, int number) {
        if (static_cast<std::size_t>(m_names.size()) * placesPerName > m_texts.size()) {
            const std::vector<Text> texts = std::exchange(m_texts, std::vector<Text>(2 * m_texts.size()));
            m_mask = m_texts.size() - 1;
            --m_shift;
            for (const Text& text : texts) {
                if (text.data != nullptr)
                    put(text);
            }
        }
        put({name.constData(), name.size(), number, name});
        return number;
    }

    void put(const Text& text) {
        const std::size_t first = placeOf(text.data);
        std::size_t step = 0;
        while (step < mostSteps && m_texts[(first + step) & m_mask].data != nullptr)
            ++step;
        m_texts[(first + step % mostSteps) & m_mask] = text;
    }

    std::size_t placeOf(const QChar* data) const {
        // Texts are allocated in steps of 16 bytes. 2^64 divided by the golden ratio.
        return ((reinterpret_cast<std::uintptr_t>(data) >> 4) * 0x9E3779B97F4A7C15U) >> m_shift;
    }

    std::vector<Text> m_texts = std::vector<Text>(leastPlaces);
    std::size_t m_mask = leastPlaces - 1;
    int m_shift = 64 - std::countr_zero(leastPlaces); // leaves as many bits as number the places
    QHash<QString, int> m_numbers;
    QList<QString> m_names;
};

} // namespace tamsel
