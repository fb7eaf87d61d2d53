// The least that plays the metronome's plain clicks at 120 BPM: what scripts/measure-audio compares the engine with.
// BareClicks SECONDS: prints the processor seconds that playing took.
#include <cubeb/cubeb.h>
#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <thread>
#include <vector>

namespace {

constexpr unsigned rate = 44100;
constexpr unsigned latencyFrames = 3308; // as the engine asks for
constexpr long interval = 22050;

struct Clicks {
    std::vector<float> sound;
    long frame = 0; // within the interval
};

std::vector<float> makeClick() {
    std::vector<float> sound(rate / 50);
    for (std::size_t i = 0; i < sound.size(); ++i) {
        const float phase = std::fmod(1046.5F / static_cast<float>(rate) * static_cast<float>(i), 1.0F);
        sound[i] = std::clamp(2.0F * (std::fabs(2.0F - 4.0F * phase) - 1.0F), -1.0F, 1.0F);
    }
    return sound;
}

long render(cubeb_stream*, void* user, const void*, void* output, long frames) {
    Clicks& clicks = *static_cast<Clicks*>(user);
    float* target = static_cast<float*>(output);
    for (long i = 0; i < frames; ++i) {
        const bool sounds = clicks.frame < static_cast<long>(clicks.sound.size());
        const float sample = sounds ? clicks.sound[static_cast<std::size_t>(clicks.frame)] : 0.0F;
        *target++ = sample;
        *target++ = sample;
        clicks.frame = clicks.frame + 1 == interval ? 0 : clicks.frame + 1;
    }
    return frames;
}

void noteState(cubeb_stream*, void*, cubeb_state) {}

double processorSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

} // namespace

int main(int argc, char* argv[]) {
    const int seconds = argc > 1 ? std::atoi(argv[1]) : 60;
    Clicks clicks{makeClick()};
    cubeb* context = nullptr;
    cubeb_stream* stream = nullptr;
    cubeb_stream_params parameters{CUBEB_SAMPLE_FLOAT32NE, rate, 2, CUBEB_LAYOUT_STEREO, CUBEB_STREAM_PREF_NONE};
    if (cubeb_init(&context, "bare", nullptr) != CUBEB_OK ||
        cubeb_stream_init(context, &stream, "bare", nullptr, nullptr, nullptr, &parameters, latencyFrames, render,
                          noteState, &clicks) != CUBEB_OK)
        return 1;
    const double before = processorSeconds();
    cubeb_stream_start(stream);
    std::this_thread::sleep_for(std::chrono::seconds(seconds));
    cubeb_stream_stop(stream);
    std::printf("%.4f\n", processorSeconds() - before);
    cubeb_stream_destroy(stream);
    cubeb_destroy(context);
    return 0;
}
