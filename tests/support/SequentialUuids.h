#pragma once

#include "platform/UuidSource.h"

namespace tamsel::test {

// 00000000-0000-4000-8000-000000000001, …2, …3.
class SequentialUuids final : public UuidSource {
public:
    static QUuid numbered(uchar number) { return {0, 0, 0x4000, 0x80, 0, 0, 0, 0, 0, 0, number}; }
    QUuid next() override { return numbered(++m_last); }

private:
    uchar m_last = 0;
};

} // namespace tamsel::test
