#include "model/ArrayText.h"
#include "model/DataCheck.h"
#include "model/DataSummary.h"
#include "model/Json.h"
#include "model/JsonFault.h"
#include "platform/FatalError.h"

#include <cstddef>
#include <cstdint>

// What libFuzzer calls with bytes of its own making. The first byte tells what kind of document the rest is to be read
// as: each that lies in the settings file, and the export document. Whatever they are, reading answers with a value or
// a line; what was read is written, read and written again as the same.

namespace tamsel {
namespace {

void require(bool holds) {
    if (!holds)
        trap();
}

template <class T>
void readAndWrite(const QByteArray& document) {
    const auto value = json::decode<T>(document, u"place");
    require(!value || !json::firstFaultyByte(document));
    if (!value) {
        require(!value.error().message.isEmpty() && !value.error().message.contains(QLatin1Char('\n')));
        return;
    }
    const auto written = json::encode(*value);
    require(written.has_value());
    const auto again = json::decode<T>(*written);
    require(again && *again == *value);
    require(json::encode(*again) == written);
}

void readArray(const QByteArray& text) {
    if (const auto values = arrayFromText(text))
        require(arrayFromText(arrayText(*values)).has_value());
}

void read(char kind, const QByteArray& document) {
    switch (kind) {
    case 'x':
        readAndWrite<DataDump>(document);
        if (const auto dump = checkDataDump(document))
            (void)DataSummary::of(*dump);
        break;
    case 'i':
        readAndWrite<QList<Exercise>>(document);
        break;
    case 'p':
        readAndWrite<QList<PracticeSession>>(document);
        break;
    case 'e':
        readAndWrite<QList<HistoryEvent>>(document);
        break;
    case 'n':
        readAndWrite<QList<Note>>(document);
        break;
    case 's':
        readAndWrite<ExerciseSettings>(document);
        break;
    case 't':
        readAndWrite<qint64>(document);
        break;
    case 'c':
        (void)json::decodeCase(document, {QLatin1String("name"), QLatin1String("practiceTime")});
        break;
    case 'a':
        readArray(document);
        break;
    default:
        break;
    }
}

} // namespace
} // namespace tamsel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    if (size > 0)
        tamsel::read(static_cast<char>(bytes[0]),
                     QByteArray(reinterpret_cast<const char*>(bytes + 1), static_cast<qsizetype>(size - 1)));
    return 0;
}
