#pragma once

#include <QUuid>

namespace tamsel {

// Where fresh identifiers come from.
class UuidSource {
public:
    virtual ~UuidSource() = default;
    virtual QUuid next() = 0;
};

class RandomUuids final : public UuidSource {
public:
    QUuid next() override { return QUuid::createUuid(); }
};

} // namespace tamsel
