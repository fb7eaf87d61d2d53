#include "metronome/DeviceOutput.h"

#include "metronome/CubebDevice.h"
#include "platform/FatalError.h"
#include "platform/Log.h"

#include <algorithm>
#include <utility>

namespace tamsel {

namespace {

using namespace std::chrono_literals;

// Between looks for a notice that is due. It grows while the device takes no frames: one that sleeps is not worth
// waking for.
constexpr std::chrono::nanoseconds shortestStep = 2ms;
constexpr std::chrono::nanoseconds longestStep = 32ms;
// Beyond this, what the device says about its position is not to be believed.
constexpr std::chrono::nanoseconds longestLatency = 2s;
// How much longer than an alert should take the stream stays open for it.
constexpr std::chrono::nanoseconds alertMargin = 200ms;

std::chrono::nanoseconds duration(qint64 frames) {
    return std::chrono::nanoseconds(std::chrono::seconds(frames)) / AudioDevice::sampleRate;
}

} // namespace

DeviceOutput::DeviceOutput() : DeviceOutput(std::make_unique<CubebDevice>(), std::make_unique<SystemClock>()) {}

DeviceOutput::DeviceOutput(std::unique_ptr<AudioDevice> device, std::unique_ptr<const Clock> clock)
    : m_device(std::move(device)), m_clock(std::move(clock)), m_step(shortestStep) {}

DeviceOutput::~DeviceOutput() = default;

void DeviceOutput::attach(SerialQueue& queue, Finished finished) {
    m_queue = &queue;
    m_finished = std::move(finished);
    // Reaching the sound server takes its time: done now, it delays neither the start of the program nor the first
    // press.
    m_queue->async([this] { m_device->connect(); });
}

void DeviceOutput::detach() {
    endTimeline();
    m_queue = nullptr;
    m_finished = nullptr;
}

// The stream

std::optional<QString> DeviceOutput::openStream() {
    if (m_streamOpen && !m_device->failed())
        return std::nullopt;
    closeStream();
    const std::optional<QString> error = m_device->open(m_mixer);
    m_streamOpen = !error;
    return error;
}

void DeviceOutput::runStream() {
    if (!m_streamOpen || m_streamRuns)
        return;
    m_streamRuns = true;
    if (const std::optional<QString> error = m_device->start()) {
        log(*error);
        closeStream();
    }
}

void DeviceOutput::closeStream() {
    ++m_plannedLook;
    if (!m_streamOpen)
        return;
    m_device->close();
    m_mixer.reset();
    m_streamOpen = false;
    m_streamRuns = false;
}

// The timeline

std::optional<QString> DeviceOutput::start() {
    if (const std::optional<QString> error = openStream())
        return error;
    m_timeline = m_mixer.openTimeline();
    m_timelineOpen = true;
    return std::nullopt;
}

void DeviceOutput::schedule(const SoundBuffer& sound, qint64 sampleTime) {
    m_inFlight.push_back(sampleTime);
    if (m_streamOpen && !m_mixer.order(sound, sampleTime, m_timeline))
        fatalError(QStringLiteral("Too many clicks in flight"));
}

void DeviceOutput::play() {
    m_mixer.play(m_timeline);
    runStream();
    m_step = shortestStep;
    planLook();
}

void DeviceOutput::stop() {
    // At once, whatever the queue is doing.
    m_mixer.openTimeline();
    m_queue->async([this] { endTimeline(); });
}

void DeviceOutput::endTimeline() {
    m_timelineOpen = false;
    closeStream();
    while (!m_inFlight.empty()) {
        m_inFlight.pop_front();
        m_finished();
    }
}

// Alerts

void DeviceOutput::playAlert(const SoundBuffer& sound) {
    m_queue->async([this, &sound] { beginAlert(sound); });
}

void DeviceOutput::beginAlert(const SoundBuffer& sound) {
    if (const std::optional<QString> error = openStream()) {
        log(*error);
        return;
    }
    // Refused only when many alerts wait for a device that takes nothing.
    if (!m_mixer.orderNow(sound))
        return;
    runStream();
    m_alertEnd = m_clock->hostTime() + latency() + duration(sound.frameLength()) + alertMargin;
    m_queue->asyncAt(m_alertEnd, [this] { endAlert(); });
}

void DeviceOutput::endAlert() {
    if (!m_timelineOpen && m_clock->hostTime() >= m_alertEnd)
        closeStream();
}

// Times

std::chrono::nanoseconds DeviceOutput::hostTime(qint64 sampleTime) {
    // Before its clock has started, sample 0 is taken to be due now.
    const std::optional<qint64> start = m_mixer.timelineStart();
    const qint64 framesAway = start ? *start + sampleTime - m_mixer.framesRendered() : sampleTime;
    return m_clock->hostTime() + duration(framesAway);
}

std::chrono::nanoseconds DeviceOutput::latency() {
    if (const std::optional<qint64> position = m_streamRuns ? m_device->position() : std::nullopt) {
        const std::chrono::nanoseconds ahead = duration(m_mixer.framesRendered() - *position);
        // A stream that has just begun, or ran dry, answers with nonsense; a tick's time must not follow it.
        if (ahead > 0ns && ahead <= longestLatency)
            m_lastLatency = ahead;
    }
    return m_lastLatency > 0ns ? m_lastLatency : m_device->requestedLatency();
}

// Notices

void DeviceOutput::lookForNotices() {
    m_wakeUps.fetch_add(1);
    if (m_device->failed()) {
        log(u"The sound output has gone; the next start tries it again");
        closeStream();
        return;
    }
    for (int notices = m_mixer.takeNotices(m_timeline); notices > 0 && !m_inFlight.empty(); --notices) {
        m_inFlight.pop_front();
        m_finished();
    }
    planLook();
}

void DeviceOutput::planLook() {
    if (!m_streamRuns || m_inFlight.empty())
        return;
    const std::uint64_t look = ++m_plannedLook;
    m_queue->asyncAfter(timeUntilNotice(), [this, look] {
        if (look == m_plannedLook)
            lookForNotices();
    });
}

std::chrono::nanoseconds DeviceOutput::timeUntilNotice() {
    const qint64 rendered = m_mixer.framesRendered();
    m_step = rendered != std::exchange(m_framesAtLastLook, rendered) ? shortestStep : std::min(m_step * 2, longestStep);
    const std::optional<qint64> start = m_mixer.timelineStart();
    if (!start)
        return m_step;
    const qint64 framesAway = *start + m_inFlight.front() - rendered;
    // The frame is made in the block after the one that would reach it; half a block later it is there as often as not.
    return std::max(duration(framesAway + m_mixer.lastBlock() / 2), m_step);
}

} // namespace tamsel
