#include "model/DataDump.h"
#include "model/DataFile.h"
#include "model/Json.h"

#include <cstdio>
#include <random>

// Makes tests/data/everything.tamsel, a document with everything in it that a document can hold, the same each time:
// make_everything <file>. It is kept as it was made; a later format must still read it.

namespace tamsel::test {
namespace {

constexpr int itemCount = 40;
constexpr int archivedCount = 7;
constexpr int eventCount = 10'000;

class Maker {
public:
    DataDump make() {
        DataDump dump;
        for (int i = 0; i < archivedCount; ++i)
            dump.allArchivedExercises += item();
        for (int i = 0; i < itemCount; ++i)
            dump.allExercises += item();
        for (int i = 0; i < itemCount; ++i) {
            const Exercise& each = dump.allExercises.at(i);
            dump.allExerciseSettings.append({each, settings()});
            // Some were never written on; of some all notes were deleted.
            if (i % 4 != 0)
                dump.allNotes.append({each, notes(i % 4 == 1 ? 0 : below(6))});
        }
        for (int i = 0; i < eventCount; ++i) {
            HistoryEvent event{date(), dump.allExercises.at(below(itemCount)).name, below(180), {}, {}, uuid()};
            if (flag())
                event.thumbsUp = below(50);
            if (flag())
                event.thumbsDown = below(50);
            dump.allHistory += event;
        }
        return dump;
    }

private:
    int below(int bound) { return static_cast<int>(m_random() % static_cast<unsigned>(bound)); }
    bool flag() { return below(2) == 1; }

    QUuid uuid() {
        QUuid id;
        id.data1 = static_cast<uint>(m_random());
        id.data2 = static_cast<ushort>(m_random() & 0xFFFF);
        id.data3 = static_cast<ushort>(m_random() & 0xFFFF);
        for (uchar& byte : id.data4)
            byte = static_cast<uchar>(m_random() & 0xFF);
        return id;
    }

    // Eleven years, some to the microsecond, in no order.
    Date date() { return {400'000'000.0 + below(350'000'000) + (flag() ? below(1'000'000) / 1e6 : 0.0)}; }

    QString text() {
        static const QStringList parts = {QStringLiteral("C Major Scales"),
                                          QStringLiteral("Étude 9 “Winter”"),
                                          QStringLiteral("סולמות בדו מז'ור"),
                                          QStringLiteral("سلّم موسيقي"),
                                          QStringLiteral("音階"),
                                          QStringLiteral("🎻🎶"),
                                          QStringLiteral("👩🏽‍🎤 voice"),
                                          QStringLiteral("bars 12–16, \"slowly\""),
                                          QStringLiteral("a\\b/c"),
                                          QStringLiteral("two\nlines\tand a tab"),
                                          QStringLiteral("<b>not markup</b> & more"),
                                          QString(QChar(0x1)) + QString(QChar(0x1F)) + QString(QChar(0x7F)),
                                          QStringLiteral("\u2028\u200F\uFEFF"),
                                          QStringLiteral("e\u0301 and é")};
        return parts.at(below(static_cast<int>(parts.size())));
    }

    Exercise item() { return {text() + QStringLiteral(" %1").arg(++m_items), uuid()}; }

    QList<Note> notes(int count) {
        QList<Note> result;
        for (int i = 0; i < count; ++i)
            result += Note{date(), uuid(), (text() + QLatin1Char(' ') + text()).repeated(1 + below(20))};
        return result;
    }

    ExerciseSettings settings() {
        ExerciseSettings result;
        for (bool* const each :
             {&result.advancedSubdivisionsEnabled, &result.bookmarksEnabled, &result.quickNotesEnabled,
              &result.subdivisionsEnabled, &result.tapTempoEnabled, &result.thumbsDownCounterEnabled,
              &result.thumbsUpCounterEnabled, &result.autoSavedTempo, &result.snapToStandardTempi,
              &result.clearThumbsDownOnTempoChanges, &result.clearThumbsDownOnThumbsUp,
              &result.clearThumbsUpOnTempoChanges, &result.clearThumbsUpOnThumbsDown})
            *each = flag();
        for (int i = below(8); i > 0; --i)
            result.bookmarks += 1 + below(500);
        result.tempo = 1 + below(500);
        return result;
    }

    std::mt19937 m_random{2024};
    int m_items = 0;
};

} // namespace
} // namespace tamsel::test

int main(int argc, char* argv[]) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_everything <file>\n");
        return 2;
    }
    const auto document = tamsel::json::encode(tamsel::test::Maker().make());
    const auto failure = tamsel::datafile::write(QString::fromLocal8Bit(argv[1]), document.value_or(QByteArray()));
    if (failure)
        std::fprintf(stderr, "%s\n", failure->toUtf8().constData());
    return failure ? 1 : 0;
}
