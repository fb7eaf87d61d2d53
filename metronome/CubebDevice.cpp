#include "metronome/CubebDevice.h"

#include "metronome/RealtimeThread.h"

#include <algorithm>
#include <string_view>

namespace tamsel {

namespace {

// 75 milliseconds, rounded up. With a third of it, a machine whose processors were all busy interrupted the sound every
// few seconds, with two thirds every few minutes. The first click does not wait for it: a stream is heard from its
// first frame on.
constexpr std::uint32_t shortestLatencyFrames = (3 * AudioDevice::sampleRate + 39) / 40;

cubeb_stream_params streamParameters() {
    return {CUBEB_SAMPLE_FLOAT32NE, AudioDevice::sampleRate, ClickMixer::channelCount, CUBEB_LAYOUT_STEREO,
            CUBEB_STREAM_PREF_NONE};
}

} // namespace

CubebDevice::CubebDevice() : m_latencyFrames(shortestLatencyFrames) {}

CubebDevice::~CubebDevice() {
    close();
}

void CubebDevice::StreamEnd::operator()(cubeb_stream* stream) const {
    cubeb_stream_stop(stream);
    cubeb_stream_destroy(stream);
}

void CubebDevice::connect() {
    reach();
    rest();
}

void CubebDevice::reach() {
    if (m_context != nullptr)
        return;
    cubeb* context = nullptr;
    if (cubeb_init(&context, "Tamsel", nullptr) == CUBEB_OK)
        m_context.reset(context);
}

void CubebDevice::rest() {
    if (m_context != nullptr && std::string_view(cubeb_get_backend_id(m_context.get())) == "alsa")
        m_context.reset();
}

std::optional<QString> CubebDevice::open(ClickMixer& mixer) {
    m_stream.reset();
    reach();
    int result = openStream(mixer);
    if (result != CUBEB_OK) {
        // The sound server that the context knew may have gone, and another may have come.
        m_context.reset();
        m_hurriedThread = {};
        reach();
        result = openStream(mixer);
    }
    if (result == CUBEB_OK)
        return std::nullopt;
    return QStringLiteral("No sound output is available (error %1)").arg(result);
}

int CubebDevice::openStream(ClickMixer& mixer) {
    if (m_context == nullptr)
        return CUBEB_ERROR_DEVICE_UNAVAILABLE;
    cubeb_stream_params parameters = streamParameters();
    std::uint32_t least = 0;
    cubeb_get_min_latency(m_context.get(), &parameters, &least);
    m_latencyFrames = std::max(least, shortestLatencyFrames);
    m_failed.store(false);
    m_renderThread.store({});
    m_mixer = &mixer;
    cubeb_stream* stream = nullptr;
    const int result = cubeb_stream_init(m_context.get(), &stream, "Metronome", nullptr, nullptr, nullptr, &parameters,
                                         m_latencyFrames, &CubebDevice::render, &CubebDevice::noteState, this);
    if (result == CUBEB_OK)
        m_stream.reset(stream);
    return result;
}

std::optional<QString> CubebDevice::start() {
    const int result = m_stream == nullptr ? CUBEB_ERROR_DEVICE_UNAVAILABLE : cubeb_stream_start(m_stream.get());
    if (result == CUBEB_OK)
        return std::nullopt;
    return QStringLiteral("The sound output does not start (error %1)").arg(result);
}

void CubebDevice::close() {
    m_stream.reset();
    rest();
}

std::optional<qint64> CubebDevice::position() {
    std::uint64_t frame = 0;
    if (m_stream == nullptr || cubeb_stream_get_position(m_stream.get(), &frame) != CUBEB_OK)
        return std::nullopt;
    return static_cast<qint64>(frame);
}

std::chrono::nanoseconds CubebDevice::requestedLatency() const {
    return std::chrono::nanoseconds(std::chrono::seconds(m_latencyFrames)) / sampleRate;
}

void CubebDevice::hurry() {
    const pthread_t thread = m_renderThread.load();
    if (thread == pthread_t{} || thread == m_hurriedThread)
        return;
    m_hurriedThread = thread;
    requestRealtime(thread);
}

long CubebDevice::render(cubeb_stream*, void* device, const void*, void* output, long frames) {
    CubebDevice& self = *static_cast<CubebDevice*>(device);
    self.m_renderThread.store(pthread_self(), std::memory_order_relaxed);
    const std::size_t samples = static_cast<std::size_t>(frames) * ClickMixer::channelCount;
    self.m_mixer->render({static_cast<float*>(output), samples});
    return frames;
}

void CubebDevice::noteState(cubeb_stream*, void* device, cubeb_state state) {
    if (state == CUBEB_STATE_ERROR)
        static_cast<CubebDevice*>(device)->m_failed.store(true);
}

} // namespace tamsel
