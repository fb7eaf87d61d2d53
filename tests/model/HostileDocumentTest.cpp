#include "model/DataCheck.h"

#include <QFile>
#include <QStringList>

#include <gtest/gtest.h>
#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>

namespace tamsel {
namespace {

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
constexpr bool memoryIsMeasured = true;
#else
constexpr bool memoryIsMeasured = false;
#endif

// TAMSEL_HOSTILE_MEGABYTES asks for larger ones than usual. Under a sanitizer, which is slow and uses memory of its
// own, they only have to be answered.
qsizetype wantedBytes() {
    const int wanted = qEnvironmentVariableIntValue("TAMSEL_HOSTILE_MEGABYTES");
    return qsizetype(wanted > 0 ? wanted : memoryIsMeasured ? 8 : 1) * 1'000'000;
}

QByteArray repeated(const QByteArray& part, qsizetype bytes) {
    return part.repeated(bytes / part.size());
}

// A document whose one list holds this, and all others nothing.
QByteArray withList(const char* name, const QByteArray& elements) {
    QByteArray document = "{";
    for (const char* each : {"allArchivedExercises", "allExercises", "allExerciseSettings", "allHistory", "allNotes"}) {
        document += QByteArray(document.size() > 1 ? "," : "") + '"' + each + "\":[";
        if (qstrcmp(each, name) == 0)
            document += elements;
        document += ']';
    }
    return document + '}';
}

const QByteArray item = R"({"name":"","id":"00000000-0000-4000-8000-000000000000"})";

// Elements that differ in their identifiers, 8 digits of each.
QByteArray numbered(const QByteArray& element, qsizetype bytes) {
    QByteArray result;
    result.reserve(bytes + element.size());
    for (int number = 0; result.size() < bytes; ++number) {
        if (number > 0)
            result += ',';
        result += element;
        const qsizetype at = result.lastIndexOf("00000000-0000-4000");
        result.replace(at, 8, QByteArray::number(number, 16).rightJustified(8, '0'));
    }
    return result;
}

QByteArray settingsWith(const QByteArray& bookmarks) {
    return item + R"(,{"advancedSubdivisionsEnabled":false,"bookmarks":[)" + bookmarks +
           R"(],"bookmarksEnabled":false,"quickNotesEnabled":false,"subdivisionsEnabled":false,)"
           R"("thumbsDownCounterEnabled":false,"thumbsUpCounterEnabled":false,"tempo":60,)"
           R"("clearThumbsDownOnTempoChanges":true,"clearThumbsDownOnThumbsUp":false,)"
           R"("clearThumbsUpOnTempoChanges":true,"clearThumbsUpOnThumbsDown":false})";
}

struct Hostile {
    const char* name;
    std::function<QByteArray(qsizetype bytes)> make;
    const char* answer; // what the line contains; null for a document that is taken
};

const Hostile documents[] = {
    {"Nesting", [](qsizetype) { return QByteArray(100'000'000, '['); }, "nested too deeply"},
    {"NestingInAnUnknownKey",
     [](qsizetype bytes) { return "{\"x\":" + repeated("{\"x\":", bytes) + "1" + QByteArray(bytes / 5, '}') + "}"; },
     "nested too deeply"},
    {"ANumberOfMillionsOfDigits",
     [](qsizetype bytes) {
         return withList("allHistory",
                         "{\"date\":1,\"exerciseName\":\"\",\"id\":\"00000000-0000-4000-8000-000000000000\","
                         "\"practiceTime\":" +
                             QByteArray(bytes, '9') + "}");
     },
     "allHistory[0].practiceTime: expected integer"},
    {"Events",
     [](qsizetype bytes) {
         return withList(
             "allHistory",
             numbered(R"({"date":1,"exerciseName":"","practiceTime":1,"id":"00000000-0000-4000-8000-000000000000"})",
                      bytes));
     },
     nullptr},
    {"OneEventOverAndOver",
     [](qsizetype bytes) {
         const QByteArray event =
             R"({"date":1,"exerciseName":"","practiceTime":1,"id":"00000000-0000-4000-8000-000000000000"})";
         return withList("allHistory", event + repeated(',' + event, bytes));
     },
     "allHistory[1]: an event of this identifier stands before it"},
    {"Items", [](qsizetype bytes) { return withList("allExercises", numbered(item, bytes)); }, nullptr},
    {"OneItemOverAndOver",
     [](qsizetype bytes) { return withList("allArchivedExercises", item + repeated(',' + item, bytes)); },
     "allArchivedExercises[1]: an item of this identifier stands before it"},
    {"EmptyNotes", [](qsizetype bytes) { return withList("allNotes", numbered(item + ",[]", bytes)); }, nullptr},
    {"Bookmarks",
     [](qsizetype bytes) { return withList("allExerciseSettings", settingsWith("1" + repeated(",1", bytes))); },
     nullptr},
    {"ControlCharacters",
     [](qsizetype bytes) {
         return withList("allExercises", "{\"name\":\"" + repeated("\\u0001", bytes) +
                                             "\",\"id\":\"00000000-0000-4000-8000-000000000000\"}");
     },
     nullptr},
    {"BareControlCharacters",
     [](qsizetype bytes) {
         return withList("allExercises", "{\"name\":\"" + QByteArray(bytes, '\1') +
                                             "\",\"id\":\"00000000-0000-4000-8000-000000000000\"}");
     },
     "malformed JSON"},
    {"UnknownKeys", [](qsizetype bytes) { return "{\"\":0" + repeated(",\"\":0", bytes) + "}"; },
     "allArchivedExercises: missing"},
    {"Commas", [](qsizetype bytes) { return withList("allHistory", QByteArray(bytes, ',')); }, "malformed JSON"},
};

// A line of /proc/self/status, in bytes.
qsizetype statusBytes(const char* name) {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith(name))
            return line.mid(qstrlen(name)).simplified().split(' ').value(0).toLongLong() * 1024;
    }
    return 0;
}

class HostileDocument : public testing::TestWithParam<Hostile> {};

INSTANTIATE_TEST_SUITE_P(Each, HostileDocument, testing::ValuesIn(documents),
                         [](const auto& each) { return each.param.name; });

// In a process of its own, whose memory nothing else has used.
TEST_P(HostileDocument, GetsALineOrIsTakenInAtMostTwelveTimesItsSize) {
    const pid_t child = ::fork();
    if (child == 0) {
        QByteArray document = GetParam().make(wantedBytes());
        const qsizetype size = document.size();
        ::malloc_trim(0);
        QFile reset(QStringLiteral("/proc/self/clear_refs"));
        if (reset.open(QIODevice::WriteOnly))
            reset.write("5"); // the peak is counted anew
        reset.close();
        const qsizetype before = statusBytes("VmRSS:");
        const auto checked = checkDataDump(std::move(document));
        const qsizetype used = statusBytes("VmHWM:") - before + size;
        if (memoryIsMeasured)
            std::printf("%.1f times %lld bytes\n", static_cast<double>(used) / static_cast<double>(size),
                        static_cast<long long>(size));
        const bool isBounded = !memoryIsMeasured || used <= 12 * size;
        const bool isAnswered = GetParam().answer == nullptr
                                    ? bool(checked)
                                    : !checked && checked.error().message.contains(QLatin1String(GetParam().answer));
        if (!isAnswered)
            std::printf("answer: %s\n", checked ? "taken" : checked.error().message.toUtf8().constData());
        std::fflush(stdout);
        ::_exit(isBounded && isAnswered ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
}

} // namespace
} // namespace tamsel
