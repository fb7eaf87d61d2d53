#pragma once

#include <QHash>
#include <QList>
#include <QString>

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace tamsel {

// Numbers names from 0, in the order in which they first come. Quick for names that share their text, as those of the
// thousands of events of one item do.
class NameIndex {
public:
    int indexOf(const QString& name) {
        Recent& recent = m_recent[placeOf(name)];
        if (recent.number < 0 || recent.name.constData() != name.constData() || recent.name.size() != name.size())
            recent = {name, numberOf(name)};
        return recent.number;
    }
    // The number of a name that has one; -1 for others.
    int find(const QString& name) const { return m_numbers.value(name, -1); }

    const QList<QString>& names() const { return m_names; }

private:
    struct Recent {
        QString name; // keeps the text, so that no other comes to lie at its address
        int number = -1;
    };
    // Twice as many as a diligent player's items, so that few push each other out.
    static constexpr std::size_t places = 4096;

    static std::size_t placeOf(const QString& name) {
        // Texts are allocated in steps of 16 bytes. 2^64 divided by the golden ratio.
        const auto address = reinterpret_cast<std::uintptr_t>(name.constData()) >> 4;
        return (address * 0x9E3779B97F4A7C15U) >> (64 - std::countr_zero(places));
    }

    int numberOf(const QString& name) {
        const auto known = m_numbers.constFind(name);
        if (known != m_numbers.cend())
            return *known;
        m_names += name;
        m_numbers.insert(name, static_cast<int>(m_names.size()) - 1);
        return static_cast<int>(m_names.size()) - 1;
    }

    std::array<Recent, places> m_recent;
    QHash<QString, int> m_numbers;
    QList<QString> m_names;
};

} // namespace tamsel
