#include "metronome/OfflineOutput.h"

#include "platform/FatalError.h"

#include <semaphore>
#include <utility>

namespace tamsel {

namespace {
// A century before host time began: earlier than any deadline that is compared with it.
constexpr std::chrono::nanoseconds longAgo = -std::chrono::years(100);
} // namespace

OfflineOutput::OfflineOutput(double sampleRate) : m_sampleRate(sampleRate), m_timelineStart(longAgo) {}

void OfflineOutput::render(std::span<float> samples) {
    if (m_queue == nullptr)
        trap(); // renders only what a scheduler is attached to
    m_queue->sync([] {});
    while (!samples.empty()) {
        const ClickMixer::Rendered part = m_mixer.renderUntilNotice(samples);
        samples = samples.subspan(static_cast<std::size_t>(part.frames * channelCount));
        if (part.notice)
            m_queue->sync([this] { passOnNotices(); });
    }
}

std::vector<float> OfflineOutput::render(qint64 frames) {
    std::vector<float> samples(static_cast<std::size_t>(frames * channelCount));
    render(samples);
    return samples;
}

void OfflineOutput::settle() {
    std::binary_semaphore done(0);
    m_queue->async([this, &done] {
        // Timed, as everything without a time goes ahead of ticks that are due.
        m_queue->asyncAfter(std::chrono::nanoseconds::zero(), [&done] { done.release(); });
    });
    done.acquire();
}

void OfflineOutput::attach(SerialQueue& queue, Finished finished) {
    m_queue = &queue;
    m_finished = std::move(finished);
}

void OfflineOutput::detach() {
    endTimeline();
    m_queue = nullptr;
    m_finished = nullptr;
}

void OfflineOutput::fail() {
    m_queue->sync([this] {
        tellFailure();
        endTimeline();
    });
}

std::optional<QString> OfflineOutput::start() {
    if (!m_startError)
        m_timeline = m_mixer.openTimeline();
    return m_startError;
}

void OfflineOutput::schedule(const SoundBuffer& sound, qint64 sampleTime) {
    if (m_mixer.order(sound, sampleTime, m_timeline))
        ++m_inFlight;
    else
        trap(); // more in flight than the mixer promises to take
}

void OfflineOutput::play() {
    m_mixer.play(m_timeline);
}

std::chrono::nanoseconds OfflineOutput::hostTime(qint64 sampleTime) {
    const std::chrono::duration<double> sinceStart(static_cast<double>(sampleTime) / m_sampleRate);
    return m_timelineStart.load() + std::chrono::duration_cast<std::chrono::nanoseconds>(sinceStart);
}

void OfflineOutput::stop() {
    m_mixer.openTimeline();
    m_queue->async([this] { endTimeline(); });
}

void OfflineOutput::playAlert(const SoundBuffer& sound) {
    m_queue->async([this, &sound] { static_cast<void>(m_mixer.orderFree(sound, 0)); });
}

void OfflineOutput::passOnNotices() {
    for (int notices = m_mixer.takeNotices(m_timeline); notices > 0; --notices) {
        --m_inFlight;
        m_finished();
    }
}

void OfflineOutput::endTimeline() {
    m_mixer.reset();
    for (; m_inFlight > 0; --m_inFlight)
        m_finished();
}

} // namespace tamsel
