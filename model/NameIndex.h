#pragma once

#include <QHash>
#include <QList>
#include <QString>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tamsel {

// Numbers names from 0, in the order in which they first come. Quick for names that share their text, as those of the
// thousands of events of one item do.
class NameIndex {
public:
    int indexOf(const QString& name) {
        const Recent& recent = m_recent[placeOf(name)];
        if (recent.number >= 0 && recent.name.constData() == name.constData() && recent.name.size() == name.size())
            return recent.number;
        const int number = numberOf(name);
        m_recent[placeOf(name)] = {name, number};
        return number;
    }
    // The number of a name that has one; -1 for others.
    int find(const QString& name) const { return m_numbers.value(name, -1); }

    const QList<QString>& names() const { return m_names; }

private:
    struct Recent {
        QString name; // keeps the text, so that no other comes to lie at its address
        int number = -1;
    };
    // So many for each name, so that few push each other out.
    static constexpr std::size_t placesPerName = 4;

    std::size_t placeOf(const QString& name) const {
        // Texts are allocated in steps of 16 bytes. 2^64 divided by the golden ratio.
        const auto address = reinterpret_cast<std::uintptr_t>(name.constData()) >> 4;
        return (address * 0x9E3779B97F4A7C15U) >> (64 - std::countr_zero(m_recent.size()));
    }

    int numberOf(const QString& name) {
        const auto known = m_numbers.constFind(name);
        if (known != m_numbers.cend())
            return *known;
        m_names += name;
        if (static_cast<std::size_t>(m_names.size()) * placesPerName > m_recent.size())
            m_recent = std::vector<Recent>(m_recent.size() * 2); // to be filled anew
        m_numbers.insert(name, static_cast<int>(m_names.size()) - 1);
        return static_cast<int>(m_names.size()) - 1;
    }

    std::vector<Recent> m_recent = std::vector<Recent>(1024); // a power of two
    QHash<QString, int> m_numbers;
    QList<QString> m_names;
};

} // namespace tamsel
