// Plays the metronome on the system's sound device, with a listener to its ticks, at 120 BPM.
// PlayMetronome SECONDS: prints the processor seconds that playing took, and how often the scheduler woke up to refill.
#include "metronome/DeviceOutput.h"
#include "metronome/Metronome.h"
#include "metronome/SystemAudioSession.h"
#include "platform/Log.h"

#include <sys/resource.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <thread>

namespace {

using namespace tamsel;

class Counter final : public MetronomeDelegate {
public:
    void metronomeTicking(Metronome&, MetronomeBeat) override { ++ticks; }
    std::atomic<int> ticks = 0;
};

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
    setLogStream(stderr);
    DeviceOutput output;
    SystemAudioSession session;
    Metronome metronome(output, session);
    const auto counter = std::make_shared<Counter>();
    metronome.setDelegate(counter);
    metronome.setTempo(121);
    metronome.setTempo(120);
    metronome.start();
    if (!metronome.isPlaying())
        return 1;
    // As in the bare player, from the open stream on.
    const double before = processorSeconds();
    std::this_thread::sleep_for(std::chrono::seconds(seconds));
    metronome.stop();
    std::printf("%.4f\n", processorSeconds() - before);
    std::fprintf(stderr, "%d ticks, %lld wake-ups\n", counter->ticks.load(), static_cast<long long>(output.wakeUps()));
    return counter->ticks > 0 ? 0 : 1;
}
