#include "list/NameOrder.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace tamsel {
namespace {

// Every name of a row stands before every later one of that row, and never after it.
TEST(NameOrder, OrdersNamesByCharactersAndNumbers) {
    const QString many = QString(400, QLatin1Char('9'));
    for (const QStringList& row : {
             QStringList{QStringLiteral("Étude"), QStringLiteral("Étude 9"), QStringLiteral("Étude 10"),
                         QStringLiteral("Étude 10a"), QStringLiteral("Étude 11")},
             QStringList{QString(), QStringLiteral("1"), QStringLiteral("9"), QStringLiteral("Cello"),
                         QStringLiteral("Cz"), QStringLiteral("b"), QStringLiteral("ba"), QStringLiteral("Ä")},
             // Numbers of any length, also behind each other.
             QStringList{QStringLiteral("op. 2 no. 10"), QStringLiteral("op. 10 no. 2"), QStringLiteral("op. 10 no. 9"),
                         QStringLiteral("op. 18446744073709551616"), QStringLiteral("op. 18446744073709551617"),
                         QStringLiteral("op. ") + many, QStringLiteral("op. 1") + many},
             // Leading zeros count only where nothing else does.
             QStringList{QStringLiteral("a1a01"), QStringLiteral("a01a1"), QStringLiteral("a01b"),
                         QStringLiteral("a1c"), QStringLiteral("a02"), QStringLiteral("a3")},
             QStringList{QStringLiteral("0"), QStringLiteral("00"), QStringLiteral("000"), QStringLiteral("01")},
             // A digit of another script is a character like any other; pairs of surrogates go by their first half.
             QStringList{QStringLiteral("x9"), QStringLiteral("x٣"), QStringLiteral("x𝄞"), QStringLiteral("xﬀ")},
         }) {
        for (qsizetype i = 0; i < row.size(); ++i) {
            for (qsizetype j = 0; j < row.size(); ++j)
                EXPECT_EQ(nameComesBefore(row.at(i), row.at(j)), i < j)
                    << row.at(i).left(40).toStdString() << " | " << row.at(j).left(40).toStdString();
        }
    }
}

} // namespace
} // namespace tamsel
