#include "metronome/AudioFormat.h"
#include "metronome/ClickMixer.h"
#include "metronome/TriangleWaveGenerator.h"
#include "platform/Log.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <vector>

// What the audio callback does, in blocks of 64 and of 441 frames, while 16 clicks sound at any moment. The share is of
// the time that the block lasts. The baseline adds 16 buffers to a block, which is the least that mixing can be.
namespace tamsel {

namespace {

constexpr int clicksSounding = 16;
constexpr double sampleRate = 44100;

// Of this thread's processor time: a machine that is busy with something else says nothing about the mixer.
double nanoseconds() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e9 + static_cast<double>(time.tv_nsec);
}

double mean(const std::vector<double>& values) {
    double sum = 0;
    for (const double value : values)
        sum += value;
    return sum / static_cast<double>(values.size());
}

double percentile(std::vector<double> values, double share) {
    std::ranges::sort(values);
    return values[static_cast<std::size_t>(static_cast<double>(values.size() - 1) * share)];
}

// The mixer with a scheduler that keeps 16 clicks sounding.
class Player {
public:
    explicit Player(qint64 blockFrames) : m_block(static_cast<std::size_t>(blockFrames * ClickMixer::channelCount)) {
        m_timeline = m_mixer.openTimeline();
        m_mixer.play(m_timeline);
    }

    double renderBlock() {
        m_mixer.takeNotices(m_timeline);
        const qint64 end = m_mixer.framesRendered() + static_cast<qint64>(m_block.size()) / ClickMixer::channelCount;
        for (; m_next < end; m_next += m_click.frameLength() / clicksSounding) {
            if (!m_mixer.order(m_click, m_next, m_timeline))
                std::abort();
        }
        const double start = nanoseconds();
        m_mixer.render(m_block);
        const double spent = nanoseconds() - start;
        benchmark::DoNotOptimize(m_block.data());
        return spent;
    }

private:
    const SoundBuffer m_click = makeClickBuffer(*AudioFormat::standard(sampleRate, ClickMixer::channelCount), 1046.5F);
    ClickMixer m_mixer;
    ClickMixer::Timeline m_timeline = 0;
    std::vector<float> m_block;
    qint64 m_next = 0;
};

double sumOfBuffers(std::vector<float>& block, const std::vector<float>& buffer) {
    const double start = nanoseconds();
    std::ranges::fill(block, 0.0F);
    for (int click = 0; click < clicksSounding; ++click) {
        for (std::size_t i = 0; i < block.size(); ++i)
            block[i] += buffer[i];
        benchmark::DoNotOptimize(block.data());
        benchmark::ClobberMemory();
    }
    return nanoseconds() - start;
}

void callback(benchmark::State& state) {
    setLogStream(std::fopen("/dev/null", "w"));
    Player player(state.range(0));
    for (int i = 0; i < 1000; ++i)
        player.renderBlock();
    std::vector<float> block(static_cast<std::size_t>(state.range(0) * ClickMixer::channelCount));
    const std::vector<float> buffer(block.size(), 0.25F);
    std::vector<double> renders;
    std::vector<double> baselines;
    for (auto _ : state) {
        baselines.push_back(sumOfBuffers(block, buffer));
        renders.push_back(player.renderBlock());
        state.SetIterationTime(renders.back() / 1e9);
    }
    const double blockTime = static_cast<double>(state.range(0)) / sampleRate * 1e9;
    state.counters["baseline_us"] = mean(baselines) / 1e3;
    state.counters["median_us"] = percentile(renders, 0.5) / 1e3;
    state.counters["ratio"] = mean(renders) / mean(baselines);
    state.counters["mean_share_percent"] = mean(renders) / blockTime * 100;
    state.counters["share_percent_of_999_in_1000"] = percentile(renders, 0.999) / blockTime * 100;
    state.counters["worst_share_percent"] = percentile(renders, 1) / blockTime * 100;
}
BENCHMARK(callback)->ArgName("frames")->Arg(64)->Arg(441)->UseManualTime()->Iterations(50'000);

} // namespace

} // namespace tamsel
