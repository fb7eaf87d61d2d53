#pragma once

#include <QHashFunctions>
#include <QString>
#include <QTypeInfo>
#include <QUuid>

namespace tamsel {

// A practice item, such as "C Major Scales". Its identity is `id`; equality takes the name in as well.
struct Exercise {
    QString name;
    QUuid id;

    bool operator==(const Exercise&) const = default;
};

inline size_t qHash(const Exercise& exercise, size_t seed = 0) {
    return qHashMulti(seed, exercise.name, exercise.id);
}

} // namespace tamsel

Q_DECLARE_TYPEINFO(tamsel::Exercise, Q_RELOCATABLE_TYPE);
