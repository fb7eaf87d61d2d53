#pragma once

#include "metronome/AudioDevice.h"

#include <cubeb/cubeb.h>
#include <pthread.h>

#include <atomic>
#include <cstdint>
#include <memory>

namespace tamsel {

// The default output of the system, through cubeb. The sound server resamples where the hardware has another rate, and
// moves the stream where the user chooses another output.
class CubebDevice final : public AudioDevice {
public:
    CubebDevice();
    ~CubebDevice() override;

    void connect() override;
    std::optional<QString> open(ClickMixer& mixer) override;
    std::optional<QString> start() override;
    void close() override;
    bool failed() const override { return m_failed.load(); }
    std::optional<qint64> position() override;
    std::chrono::nanoseconds requestedLatency() const override;
    void hurry() override;

private:
    struct ContextEnd {
        void operator()(cubeb* context) const { cubeb_destroy(context); }
    };
    struct StreamEnd {
        void operator()(cubeb_stream* stream) const;
    };

    static long render(cubeb_stream* stream, void* device, const void* input, void* output, long frames);
    static void noteState(cubeb_stream* stream, void* device, cubeb_state state);

    // Makes sure that there is a context, where the system has any sound.
    void reach();
    // Lets go of a context that would wake up every second although nothing plays, as that without a sound server does.
    void rest();
    // cubeb's code for what went wrong.
    int openStream(ClickMixer& mixer);

    std::unique_ptr<cubeb, ContextEnd> m_context;
    std::unique_ptr<cubeb_stream, StreamEnd> m_stream;
    ClickMixer* m_mixer = nullptr;
    std::uint32_t m_latencyFrames;
    std::atomic<bool> m_failed = false;
    std::atomic<pthread_t> m_renderThread{}; // the one that rendered last; zero before there is one
    pthread_t m_hurriedThread{};
};

} // namespace tamsel
