#include "metronome/DeviceOutput.h"

#include "metronome/CubebDevice.h"
#include "metronome/RealtimeThread.h"
#include "platform/FatalError.h"
#include "platform/Log.h"

#include <algorithm>
#include <utility>

namespace tamsel {

namespace {

using namespace std::chrono_literals;

// Between looks at a count that is due.
constexpr std::chrono::nanoseconds step = 2ms;
// The same while the device takes no frames, after so many looks: one that sleeps is not worth waking for.
constexpr std::chrono::nanoseconds patientStep = 32ms;
constexpr int looksUntilPatient = 50;
// Beyond this, what the device says about its position is not to be believed.
constexpr std::chrono::nanoseconds longestLatency = 2s;
// From the call until an alert is heard: beyond what the device may have taken already, so that alerts keep their
// distance from each other whatever state the stream is in.
constexpr std::chrono::nanoseconds alertDelay = 100ms;
// How much longer than an alert should take the stream stays open for it.
constexpr std::chrono::nanoseconds alertMargin = 200ms;

// 150 milliseconds: twice the buffer that the device is asked for.
constexpr qint64 leadFrames = AudioDevice::sampleRate * 3 / 20;
// 20 milliseconds. A sound server that had silence prepared takes it back when a stream starts and begins anew, up to a
// quarter of the stream's buffer later; a click must not lie in what is played twice.
constexpr qint64 runInFrames = AudioDevice::sampleRate / 50;
// Until one has been measured: between the instant answer of a silent sink and the buffer of a real one.
constexpr std::chrono::nanoseconds usualStartDelay = 6ms;

std::chrono::nanoseconds duration(qint64 frameCount) {
    const std::chrono::duration<double> seconds(static_cast<double>(frameCount) / AudioDevice::sampleRate);
    return std::chrono::duration_cast<std::chrono::nanoseconds>(seconds);
}

qint64 frames(std::chrono::nanoseconds time) {
    return time * AudioDevice::sampleRate / std::chrono::nanoseconds(1s);
}

} // namespace

DeviceOutput::DeviceOutput() : DeviceOutput(std::make_unique<CubebDevice>(), std::make_unique<SystemClock>()) {}

DeviceOutput::DeviceOutput(std::unique_ptr<AudioDevice> device, std::unique_ptr<const Clock> clock)
    : m_device(std::move(device)), m_clock(std::move(clock)), m_mixer(runInFrames), m_startDelay(usualStartDelay) {}

DeviceOutput::~DeviceOutput() = default;

void DeviceOutput::attach(SerialQueue& queue, Finished finished) {
    m_queue = &queue;
    m_finished = std::move(finished);
    // Reaching the sound server takes its time: done now, it delays neither the start of the program nor the first
    // press.
    m_queue->async([this] {
        m_device->connect();
        requestRealtime(pthread_self());
    });
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
    std::optional<QString> error = m_device->open(m_mixer);
    m_streamOpen = !error;
    return error;
}

void DeviceOutput::runStream() {
    if (!m_streamOpen || m_streamRuns)
        return;
    m_streamRuns = true;
    m_streamStart = m_clock->hostTime();
    if (const std::optional<QString> error = m_device->start())
        deviceFailed(*error);
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

void DeviceOutput::deviceFailed(const QString& line) {
    log(line);
    closeStream();
    if (!m_timelineOpen)
        return;
    tellFailure();
    endTimeline();
}

// The timeline

std::optional<QString> DeviceOutput::start() {
    if (std::optional<QString> error = openStream())
        return error;
    m_timeline = m_mixer.openTimeline();
    m_timelineOpen = true;
    return std::nullopt;
}

void DeviceOutput::schedule(const SoundBuffer& sound, qint64 sampleTime) {
    m_inFlight.push_back(sampleTime);
    // A queue that was held up catches up with clicks that are over: more of them than may wait.
    const qint64 end = m_mixer.timelineStart() + sampleTime + sound.frameLength();
    if (!m_streamOpen || end <= m_mixer.framesRendered())
        return;
    if (!m_mixer.order(sound, sampleTime, m_timeline))
        trap(); // more in flight than the mixer promises to take
}

void DeviceOutput::play() {
    m_mixer.play(m_timeline);
    // After the scheduler has ordered all that it may.
    m_queue->async([this] { begin(); });
}

void DeviceOutput::begin() {
    // Before the stream starts, as its device then fills its buffer at once.
    finishSounds();
    runStream();
    m_idleLooks = 0;
    planLook();
}

void DeviceOutput::finishSounds() {
    while (true) {
        // They tell that sounds have begun, which makes room for more; the count of frames has told it before.
        m_mixer.takeNotices(m_timeline);
        if (m_inFlight.empty() || framesUntilFinish() > 0)
            return;
        finishOne();
    }
}

void DeviceOutput::finishOne() {
    m_inFlight.pop_front();
    m_finished();
}

void DeviceOutput::stop() {
    // At once, whatever the queue is doing.
    m_mixer.openTimeline();
    m_queue->async([this] { endTimeline(); });
}

void DeviceOutput::endTimeline() {
    m_timelineOpen = false;
    closeStream();
    for (std::size_t count = m_inFlight.size(); count > 0; --count)
        finishOne();
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
    runStream();
    if (!m_streamRuns)
        return;
    const std::optional<qint64> position = m_device->position();
    // Refused only when many alerts wait for a device that takes nothing.
    if (!m_mixer.orderFree(sound, position.value_or(0) + frames(alertDelay)))
        return;
    m_alertEnd = m_clock->hostTime() + alertDelay + duration(sound.frameLength()) + alertMargin;
    m_queue->asyncAt(m_alertEnd, [this] { endAlert(); });
}

void DeviceOutput::endAlert() {
    if (!m_timelineOpen && m_clock->hostTime() >= m_alertEnd)
        closeStream();
}

// Times

std::chrono::nanoseconds DeviceOutput::hostTime(qint64 sampleTime) {
    return m_clock->hostTime() + duration(m_mixer.timelineStart() + sampleTime - m_mixer.framesRendered());
}

std::chrono::nanoseconds DeviceOutput::latency() {
    // A stream that has yet to start has an empty buffer.
    if (!m_streamRuns)
        return m_startDelay;
    measure();
    return m_lastLatency > 0ns ? m_lastLatency : m_device->requestedLatency();
}

void DeviceOutput::measure() {
    const std::optional<qint64> position = m_device->position();
    if (!position)
        return;
    const std::chrono::nanoseconds ahead = duration(m_mixer.framesRendered() - *position);
    const std::chrono::nanoseconds startDelay = m_clock->hostTime() - duration(*position) - m_streamStart;
    // A stream that has just begun, or ran dry, answers with nonsense; a tick's time must not follow it.
    if (ahead <= 0ns || ahead > longestLatency)
        return;
    m_lastLatency = ahead;
    m_startDelay = std::clamp(startDelay, 0ns, longestLatency);
}

// Looks
void DeviceOutput::look() {
    m_wakeUps.fetch_add(1);
    if (m_device->failed()) {
        deviceFailed(QStringLiteral("The sound output has gone; the next start tries it again"));
        return;
    }
    m_device->hurry();
    finishSounds();
    planLook();
}

void DeviceOutput::planLook() {
    if (!m_streamRuns || m_inFlight.empty())
        return;
    const std::uint64_t planned = ++m_plannedLook;
    m_queue->asyncAfter(timeUntilFinish(), [this, planned] {
        if (planned == m_plannedLook)
            look();
    });
}

qint64 DeviceOutput::framesUntilFinish() const {
    return m_mixer.timelineStart() + m_inFlight.front() - leadFrames - m_mixer.framesRendered() + 1;
}

std::chrono::nanoseconds DeviceOutput::timeUntilFinish() {
    const qint64 rendered = m_mixer.framesRendered();
    m_idleLooks = rendered == std::exchange(m_framesAtLastLook, rendered) ? m_idleLooks + 1 : 0;
    const std::chrono::nanoseconds least = m_idleLooks < looksUntilPatient ? step : patientStep;
    // The count goes by blocks: half of one later it has come there as often as not.
    return std::max(duration(framesUntilFinish() + m_mixer.lastBlock() / 2), least);
}

} // namespace tamsel
