#include "platform/UuidSource.h"

#include <QSet>

#include <gtest/gtest.h>

namespace tamsel {
namespace {

TEST(RandomUuids, AreDifferentAndSaySo) {
    RandomUuids uuids;
    QSet<QUuid> all;
    for (int i = 0; i < 1000; ++i) {
        const QUuid uuid = uuids.next();
        EXPECT_EQ(uuid.version(), QUuid::Random);
        EXPECT_EQ(uuid.variant(), QUuid::DCE);
        all += uuid;
    }
    EXPECT_EQ(all.size(), 1000);
}

} // namespace
} // namespace tamsel
