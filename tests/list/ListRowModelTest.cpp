#include "list/ListRowModel.h"

#include <gtest/gtest.h>

#include <string>

namespace tamsel {
namespace {

QList<QChar> rows(const char* names) {
    QList<QChar> result;
    for (const char name : std::string(names))
        result += QLatin1Char(name);
    return result;
}

// Follows a model by its signals alone, as a view does.
class Follower {
public:
    explicit Follower(ListRowModel& model) {
        QObject::connect(&model, &ListRowModel::rowsInserted, [this, &model](const QModelIndex&, int first, int last) {
            for (int row = first; row <= last; ++row)
                names.insert(row, nameIn(model, row));
            touched += last - first + 1;
        });
        QObject::connect(&model, &ListRowModel::rowsRemoved, [this](const QModelIndex&, int first, int last) {
            names.remove(first, last - first + 1);
            touched += last - first + 1;
        });
        QObject::connect(&model, &ListRowModel::dataChanged,
                         [this, &model](const QModelIndex& first, const QModelIndex& last) {
                             for (int row = first.row(); row <= last.row(); ++row)
                                 names[row] = nameIn(model, row);
                             touched += last.row() - first.row() + 1;
                         });
    }

    static QString nameIn(const ListRowModel& model, int row) {
        return model.data(model.index(row), ListRowModel::NameRole).toString();
    }

    QStringList names;
    int touched = 0;
};

TEST(ListRowModel, TellsAViewExactlyWhatChanged) {
    struct Case {
        const char* from;
        const char* to;
        int touched;
    };
    for (const Case& test : {Case{"", "abc", 3}, Case{"abc", "", 3}, Case{"abc", "abc", 0}, Case{"abc", "xabc", 1},
                             Case{"abc", "abcx", 1}, Case{"abc", "ac", 1}, Case{"abc", "axc", 1}, Case{"aaa", "aa", 1},
                             Case{"abcd", "axyzd", 3}, Case{"abcdef", "axf", 4}, Case{"ab", "ba", 2}}) {
        ListRowsOf<QChar> model([](QChar row, ListRowModel::Role) { return QString(row); }, nullptr);
        model.setRows(rows(test.from));
        Follower view(model);
        for (int row = 0; row < model.count(); ++row)
            view.names += Follower::nameIn(model, row);
        model.setRows(rows(test.to));
        EXPECT_EQ(view.names.join(QString()), QString::fromLatin1(test.to)) << test.from << " to " << test.to;
        EXPECT_EQ(view.touched, test.touched) << test.from << " to " << test.to;
        EXPECT_EQ(model.rows(), rows(test.to));
    }
}

} // namespace
} // namespace tamsel
