#include "model/Json.h"

#include <benchmark/benchmark.h>
#include <simdjson.h>

#include <array>
#include <cstdint>
#include <random>
#include <string_view>

// A journal of a hundred thousand events, more than a lifetime of practice, against the bare reader below it: the same
// parser going through the same fields without making records of them. Limits: decoding 1.5, encoding 1.2 times that.

namespace tamsel {

namespace {

constexpr qsizetype eventCount = 100'000;

QList<HistoryEvent> makeEvents() {
    static constexpr std::array roots{"C", "D", "E", "F", "G", "A", "B"};
    static constexpr std::array kinds{"Major Scale in Thirds, Four Octaves", "Minor Scale, Melodic, Both Hands",
                                      "Arpeggios and Their Inversions", "Long Tones with a Crescendo",
                                      "Étude No. 12, Second Half, Slowly"};
    std::mt19937_64 random(20010101);
    const auto below = [&random](std::uint64_t bound) { return random() % bound; };
    QList<HistoryEvent> events;
    double date = 2e8;
    for (qsizetype i = 0; i < eventCount; ++i) {
        // A clock's grain is finer than its seconds since 2001 can tell, which keep 22 bits of a fraction.
        date += 900.0 + static_cast<double>(below(std::uint64_t(8000) << 22)) / (1 << 22);
        const auto name = QString::fromUtf8(roots[below(roots.size())]) + QLatin1Char(' ') +
                          QString::fromUtf8(kinds[below(kinds.size())]);
        HistoryEvent event{Date{date}, name, static_cast<qint64>(1 + below(60)), {}, {}, QUuid()};
        if (below(4) > 0) {
            event.thumbsUp = static_cast<qint64>(below(20));
            event.thumbsDown = static_cast<qint64>(below(20));
        }
        const std::uint64_t low = random();
        event.id = QUuid(static_cast<uint>(random()), static_cast<ushort>(random()), 0x4000 | (random() & 0xFFF), 0x80,
                         static_cast<uchar>(low), static_cast<uchar>(low >> 8), static_cast<uchar>(low >> 16),
                         static_cast<uchar>(low >> 24), static_cast<uchar>(low >> 32), static_cast<uchar>(low >> 40),
                         static_cast<uchar>(low >> 48));
        events += event;
    }
    return events;
}

const QList<HistoryEvent>& events() {
    static const QList<HistoryEvent> list = makeEvents();
    return list;
}

// With the room behind its end that lets the bare reader read it in place.
QByteArray document() {
    QByteArray bytes = *json::encode(events());
    bytes.reserve(bytes.size() + static_cast<qsizetype>(simdjson::SIMDJSON_PADDING));
    return bytes;
}

struct Sum {
    double dates = 0;
    std::int64_t numbers = 0;
    std::size_t text = 0;
};

// The quickest of the ways to go through the fields with the reader's own means: by key in document order.
simdjson::error_code addFields(simdjson::ondemand::object event, Sum& sum) {
    for (auto each : event) {
        simdjson::ondemand::field field;
        if (const auto error = std::move(each).get(field))
            return error;
        const simdjson::ondemand::raw_json_string key = field.key();
        double date = 2e8;
        std::int64_t number = 0;
        std::string_view text;
        simdjson::error_code error = simdjson::SUCCESS;
        if (key == "date")
            error = field.value().get_double().get(date);
        else if (key == "exerciseName" || key == "id")
            error = field.value().get_string().get(text);
        else
            error = field.value().get_int64().get(number);
        if (error)
            return error;
        sum.dates += date;
        sum.numbers += number;
        sum.text += text.size();
    }
    return simdjson::SUCCESS;
}

simdjson::error_code addEvents(simdjson::ondemand::document& document, Sum& sum) {
    simdjson::ondemand::array array;
    if (const auto error = document.get_array().get(array))
        return error;
    for (auto each : array) {
        simdjson::ondemand::object event;
        if (const auto error = each.get_object().get(event))
            return error;
        if (const auto error = addFields(event, sum))
            return error;
    }
    return simdjson::SUCCESS;
}

simdjson::error_code readBare(simdjson::ondemand::parser& parser, const QByteArray& bytes, Sum& sum) {
    const auto size = static_cast<std::size_t>(bytes.size());
    simdjson::ondemand::document iterator;
    if (const auto error = parser.iterate(bytes.constData(), size, size + simdjson::SIMDJSON_PADDING).get(iterator))
        return error;
    return addEvents(iterator, sum);
}

// As decoding does it: once, from nothing.
void barePass(benchmark::State& state) {
    const QByteArray bytes = document();
    for (auto round : state) {
        simdjson::ondemand::parser parser;
        Sum sum;
        if (readBare(parser, bytes, sum))
            state.SkipWithError("refused");
        benchmark::DoNotOptimize(sum);
    }
    state.SetBytesProcessed(state.iterations() * bytes.size());
}

// With memory that the parser has from the round before, which no start of the app has.
void barePassAgain(benchmark::State& state) {
    const QByteArray bytes = document();
    simdjson::ondemand::parser parser;
    for (auto round : state) {
        Sum sum;
        if (readBare(parser, bytes, sum))
            state.SkipWithError("refused");
        benchmark::DoNotOptimize(sum);
    }
    state.SetBytesProcessed(state.iterations() * bytes.size());
}

void decode(benchmark::State& state) {
    const QByteArray bytes = document();
    for (auto round : state) {
        const auto decoded = json::decode<QList<HistoryEvent>>(bytes);
        if (!decoded || decoded->size() != eventCount)
            state.SkipWithError("refused");
    }
    state.SetBytesProcessed(state.iterations() * bytes.size());
}

void encode(benchmark::State& state) {
    qsizetype size = 0;
    for (auto round : state) {
        const auto bytes = json::encode(events());
        size = bytes->size();
    }
    state.SetBytesProcessed(state.iterations() * size);
    state.counters["bytesPerEvent"] = static_cast<double>(size) / eventCount;
}

// What a person waits for when an exercise opens.
void decodeSettings(benchmark::State& state) {
    const QByteArray bytes = *json::encode(ExerciseSettings{.bookmarks = {60, 72, 80, 96, 120}});
    for (auto round : state)
        benchmark::DoNotOptimize(json::decode<ExerciseSettings>(bytes));
}

BENCHMARK(barePass)->Name("json/events/bare_pass")->Unit(benchmark::kMillisecond);
BENCHMARK(barePassAgain)->Name("json/events/bare_pass_again")->Unit(benchmark::kMillisecond);
BENCHMARK(decode)->Name("json/events/decode")->Unit(benchmark::kMillisecond);
BENCHMARK(encode)->Name("json/events/encode")->Unit(benchmark::kMillisecond);
BENCHMARK(decodeSettings)->Name("json/settings/decode")->Unit(benchmark::kMicrosecond);

} // namespace

} // namespace tamsel
