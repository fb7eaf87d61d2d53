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
        QString name; // keeps the text, so that no other comes to lie at its address
        int number = -1;
    };
    static constexpr std::size_t leastPlaces = 64; // a power of two
    // An item has a text of its own beside that of its events.
    static constexpr std::size_t placesPerName = 4;
    // How many places are looked through for a text. Where all are taken, the first gives way, so that names that share
    // no text fill the memory no further.
    static constexpr std::size_t mostSteps = 8;

    int numberOfText(const QString& name) const {
        const std::size_t first = placeOf(name);
        for (std::size_t step = 0; step < mostSteps; ++step) {
            const Text& text = placeAt(first + step);
            if (text.number < 0)
                break;
            if (text.name.constData() == name.constData() && text.name.size() == name.size())
                return text.number;
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
            for (const Text& text : texts) {
                if (text.number >= 0)
                    put(text);
            }
        }
        put({name, number});
        return number;
    }

    void put(const Text& text) {
        const std::size_t first = placeOf(text.name);
        std::size_t step = 0;
        while (step < mostSteps && placeAt(first + step).number >= 0)
            ++step;
        m_texts[(first + step % mostSteps) & (m_texts.size() - 1)] = text;
    }

    std::size_t placeOf(const QString& name) const {
        // Texts are allocated in steps of 16 bytes. 2^64 divided by the golden ratio.
        const auto address = reinterpret_cast<std::uintptr_t>(name.constData()) >> 4;
        return (address * 0x9E3779B97F4A7C15U) >> (64 - std::countr_zero(m_texts.size()));
    }
    const Text& placeAt(std::size_t index) const { return m_texts[index & (m_texts.size() - 1)]; }

    std::vector<Text> m_texts = std::vector<Text>(leastPlaces); // a power of two
    QHash<QString, int> m_numbers;
    QList<QString> m_names;
};

} // namespace tamsel
