#include "model/MemorySettingsStore.h"
#include "model/SettingsSchema.h"
#include "model/SqliteSettingsStore.h"
#include "tests/model/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <csignal>
#include <limits>
#include <memory>
#include <random>

namespace tamsel {

namespace {

using Values = QMap<QString, SettingsValue>;
using Array = SettingsValue::Array;

constexpr qsizetype chunk = schema::chunkBytes;

// Bytes of every value in an order that differs from one seed to the next.
QByteArray someBytes(qsizetype size, quint32 seed = 1) {
    QByteArray bytes(size, '\0');
    for (char& byte : bytes) {
        seed = seed * 1664525 + 1013904223;
        byte = static_cast<char>(seed >> 24);
    }
    return bytes;
}

enum class Kind { memory, sqlite };

// What both stores keep.
class SettingsStoreLaws : public testing::TestWithParam<Kind> {
protected:
    SettingsStoreLaws() { reopen(); }

    // The store as the next start of the program would find it.
    void reopen() {
        if (GetParam() == Kind::sqlite) {
            m_store.reset();
            auto opened = SqliteSettingsStore::open(m_folder.path());
            ASSERT_NE(opened.store, nullptr) << opened.failure.toStdString();
            m_store = std::move(opened.store);
        } else if (m_store == nullptr) {
            m_store = std::make_unique<MemorySettingsStore>();
        }
    }

    SettingsStore& store() { return *m_store; }

    void expectOnlyNowAndAfterReopening(const Values& expected) {
        for (const bool again : {false, true}) {
            if (again)
                reopen();
            EXPECT_EQ(store().dictionaryRepresentation(), expected) << "after reopening: " << again;
            for (auto each = expected.cbegin(); each != expected.cend(); ++each)
                EXPECT_EQ(store().value(each.key()), each.value()) << each.key().toStdString();
        }
    }

private:
    test::TemporaryFolder m_folder;
    std::unique_ptr<SettingsStore> m_store;
};

INSTANTIATE_TEST_SUITE_P(Both, SettingsStoreLaws, testing::Values(Kind::memory, Kind::sqlite),
                         [](const auto& each) { return each.param == Kind::memory ? "Memory" : "Sqlite"; });

TEST_P(SettingsStoreLaws, EveryValueComesBackUnderEveryKey) {
    const QList<SettingsValue> values = {
        {QByteArray()},
        {QByteArray("[{\"name\":\"Tonleitern für C♯\"}]")},
        {QByteArray("\0a\0", 3)},
        {someBytes(300)},
        {true},
        {false},
        {qint64{0}},
        {std::numeric_limits<qint64>::min()},
        {std::numeric_limits<qint64>::max()},
        {0.1},
        {60.0},
        {5e-324},
        {-std::numeric_limits<double>::max()},
        {std::numeric_limits<double>::infinity()},
        {Array()},
        {Array{{qint64{60}}, {std::numeric_limits<qint64>::min()}, {60.0}, {-0.1}, {1e300}, {true}, {false}}},
        {Array{{QByteArray()},
               {QByteArray("{\"a\":\"\\\"ü\"}\n\x7f")},
               {QByteArray("\0", 1)},
               {someBytes(70)},
               {QByteArray("\xEF\xBB\xBFmarked")},
               {QByteArray("\xED\xA0\x80")}}},
        {Array{{std::numeric_limits<double>::infinity()}, {-std::numeric_limits<double>::infinity()}}},
    };
    const QStringList keys = {
        QString(),
        QStringLiteral("exercises"),
        QStringLiteral("Exercises"),
        QStringLiteral("notes.3F2504E0-4F89-41D3-9A0C-0305E82C3301"),
        QStringLiteral("it's; DROP TABLE entry; --\"%_*"),
        QStringLiteral("two\nlines\\"),
        QStringLiteral("ключ 🎵 é"),
        QStringLiteral("ключ 🎵 e\u0301"),
        QString(QChar(0)),
        QStringLiteral("nul") + QChar(0) + QStringLiteral("inside"),
        QString(5000, QLatin1Char('k')),
    };
    Values expected;
    for (qsizetype i = 0; i < values.size(); ++i) {
        for (const QString& key : keys) {
            const QString numbered = i == 0 ? key : key + QString::number(i);
            store().set(numbered, values.at(i));
            expected.insert(numbered, values.at(i));
        }
    }
    expectOnlyNowAndAfterReopening(expected);
}

TEST_P(SettingsStoreLaws, DoublesThatEqualityCannotTellApartComeBack) {
    const QString key = QStringLiteral("key");
    const double nan = std::numeric_limits<double>::quiet_NaN();
    store().setReal(key, -0.0);
    reopen();
    EXPECT_TRUE(std::signbit(store().real(key)));
    store().setReal(key, nan);
    reopen();
    EXPECT_TRUE(std::isnan(store().real(key)));
    store().setArray(key, {{-0.0}, {nan}});
    reopen();
    const auto array = store().array(key);
    ASSERT_TRUE(array && array->size() == 2);
    EXPECT_TRUE(std::signbit(std::get<double>(array->at(0).value)));
    EXPECT_TRUE(std::isnan(std::get<double>(array->at(1).value)));
}

TEST_P(SettingsStoreLaws, PlainKindsReadAsOneAnotherAndAsNothingElse) {
    struct Case {
        SettingsValue stored;
        bool boolean;
        qint64 integer;
        double real;
    };
    const Case cases[] = {
        {{true}, true, 1, 1.0},
        {{qint64{0}}, false, 0, 0.0},
        {{qint64{-7}}, true, -7, -7.0},
        {{2.9}, true, 2, 2.9},
        {{1e19}, true, 0, 1e19},
        {{QByteArray("7")}, false, 0, 0.0},
        {{Array{{qint64{7}}}}, false, 0, 0.0},
    };
    const QString key = QStringLiteral("key");
    EXPECT_FALSE(store().boolean(key));
    EXPECT_EQ(store().data(key), std::nullopt);
    for (const Case& each : cases) {
        store().set(key, each.stored);
        reopen();
        SCOPED_TRACE(each.stored.value.index());
        EXPECT_EQ(store().boolean(key), each.boolean);
        EXPECT_EQ(store().integer(key), each.integer);
        EXPECT_EQ(store().real(key), each.real);
        EXPECT_EQ(store().data(key).has_value(), std::holds_alternative<QByteArray>(each.stored.value));
        EXPECT_EQ(store().array(key).has_value(), std::holds_alternative<Array>(each.stored.value));
    }
}

TEST_P(SettingsStoreLaws, DataOfAnyLengthReplacesDataOfAnyOther) {
    const qsizetype lengths[] = {0, 1, chunk - 1, chunk, chunk + 1, 2 * chunk, 2 * chunk + 1, 5 * chunk + 100};
    const QString key = QStringLiteral("key");
    const QString neighbour = QStringLiteral("neighbour");
    store().setData(neighbour, someBytes(3 * chunk + 1, 9));
    for (const qsizetype from : lengths) {
        for (const qsizetype to : lengths) {
            SCOPED_TRACE(testing::Message() << from << " to " << to);
            store().setData(key, someBytes(from, 1));
            QByteArray next = someBytes(to, 1);
            if (to > 0)
                next[to / 2] = static_cast<char>(~next.at(to / 2));
            store().setData(key, next);
            ASSERT_EQ(store().data(key), next);
        }
        reopen();
        ASSERT_EQ(store().data(key)->size(), lengths[std::size(lengths) - 1]);
    }
    store().setBoolean(key, true);
    expectOnlyNowAndAfterReopening({{key, {true}}, {neighbour, {someBytes(3 * chunk + 1, 9)}}});
}

TEST_P(SettingsStoreLaws, AReplacedTailLeavesWhatIsInFrontOfIt) {
    const qsizetype lengths[] = {0, 1, chunk - 1, chunk, chunk + 1, 3 * chunk, 3 * chunk + 50};
    const QString key = QStringLiteral("key");
    for (const qsizetype length : lengths) {
        for (const qsizetype kept : lengths) {
            for (const qsizetype added : {qsizetype{0}, qsizetype{170}, chunk - 1, 2 * chunk}) {
                if (kept > length)
                    continue;
                SCOPED_TRACE(testing::Message() << length << " kept " << kept << " added " << added);
                const QByteArray before = someBytes(length, 2);
                const QByteArray tail = someBytes(added, 3);
                store().setData(key, before);
                store().replaceTail(key, kept, tail);
                ASSERT_EQ(store().data(key), before.first(kept) + tail);
            }
        }
        reopen();
        ASSERT_EQ(store().data(key), someBytes(length, 2) + someBytes(2 * chunk, 3));
    }
    const Values others = {{QStringLiteral("absent"), {}}, {QStringLiteral("integer"), {qint64{5}}}};
    for (const QString& other : others.keys()) {
        if (other == QLatin1String("integer"))
            store().set(other, others.value(other));
        store().replaceTail(other, 0, "[]");
        EXPECT_EQ(store().data(other), QByteArray("[]")) << "counts as empty: " << other.toStdString();
    }
}

TEST_P(SettingsStoreLaws, KeepingMoreThanThereIsStopsTheProgram) {
    const QString key = QStringLiteral("key");
    const auto aborted = testing::KilledBySignal(SIGABRT);
    EXPECT_EXIT(store().replaceTail(key, 1, "x"), aborted, "");
    store().setData(key, someBytes(chunk + 2));
    EXPECT_EXIT(store().replaceTail(key, chunk + 3, "x"), aborted, "");
    EXPECT_EXIT(store().replaceTail(key, -1, "x"), aborted, "");
    EXPECT_EXIT(store().atomically([&] {
        store().replaceTail(key, 1, "xy");
        store().replaceTail(key, 4, "z");
    }),
                aborted, "");
    EXPECT_EQ(store().data(key), someBytes(chunk + 2));
}

TEST_P(SettingsStoreLaws, AGroupIsSeenFromWithinAndStaysAsAWhole) {
    const QString a = QStringLiteral("a");
    const QString b = QStringLiteral("b");
    store().setData(a, "old");
    store().atomically([&] {
        store().setData(a, "new");
        store().atomically([&] {
            store().replaceTail(a, 1, "ext");
            store().setInteger(b, 7);
        });
        EXPECT_EQ(store().data(a), QByteArray("next"));
        EXPECT_EQ(store().integer(b), 7);
        EXPECT_EQ(store().dictionaryRepresentation().size(), 2);
        store().remove(b);
        EXPECT_EQ(store().value(b), std::nullopt);
        store().replaceTail(b, 0, "data");
    });
    expectOnlyNowAndAfterReopening({{a, {QByteArray("next")}}, {b, {QByteArray("data")}}});
    EXPECT_EQ(store().writeFailure(), std::nullopt);
}

// One random change to the store and to what it should hold.
void changeAtRandom(std::mt19937& random, SettingsStore& store, Values& model) {
    const auto below = [&random](qsizetype limit) { return static_cast<qsizetype>(random() % quint64(limit)); };
    const QString key = QStringLiteral("key%1").arg(below(4));
    const auto found = model.constFind(key);
    const auto* data = found == model.cend() ? nullptr : std::get_if<QByteArray>(&found->value);
    const QByteArray bytes = someBytes(below(3) == 0 ? below(4 * chunk) : below(300), static_cast<quint32>(random()));
    switch (below(8)) {
    case 0:
        store.remove(key);
        model.remove(key);
        break;
    case 1:
        store.setInteger(key, bytes.size());
        model[key] = {qint64{bytes.size()}};
        break;
    case 2:
    case 3:
        store.setData(key, bytes);
        model[key] = {bytes};
        break;
    default: {
        const qsizetype kept = data == nullptr ? 0 : data->size() - std::min(data->size(), below(3) * below(chunk));
        const QByteArray result = (data == nullptr ? QByteArray() : data->first(kept)) + bytes;
        store.replaceTail(key, kept, bytes);
        model[key] = {result};
    }
    }
}

TEST_P(SettingsStoreLaws, AnyRowOfChangesGivesTheSameAsOnAMap) {
    std::mt19937 random(20240314);
    Values model;
    for (int round = 0; round < 40; ++round) {
        for (int change = 0; change < 10; ++change)
            changeAtRandom(random, store(), model);
        store().atomically([&] {
            for (int change = 0; change < 5; ++change) {
                changeAtRandom(random, store(), model);
                ASSERT_EQ(store().dictionaryRepresentation(), model) << "within a group, round " << round;
            }
        });
        if (round % 4 == 0)
            reopen();
        ASSERT_EQ(store().dictionaryRepresentation(), model) << "round " << round;
    }
}

} // namespace

} // namespace tamsel
