#include "metronome/ClickMixer.h"

#include <algorithm>

namespace tamsel {

static_assert(std::atomic<std::uint64_t>::is_always_lock_free && std::atomic<qint64>::is_always_lock_free);

// Ordering side

ClickMixer::Timeline ClickMixer::openTimeline() {
    std::uint64_t state = m_state.load();
    std::uint64_t next = 0;
    do {
        next = ((state >> 1) + 1) << 1;
    } while (!m_state.compare_exchange_weak(state, next));
    return static_cast<Timeline>(next >> 1);
}

bool ClickMixer::pushOrder(const Order& order) {
    // Every order gives one notice in the end. As no more than `capacity` wait, neither ring can ever be full.
    if (m_waiting == capacity || !m_orders.push(order))
        return false;
    ++m_waiting;
    return true;
}

bool ClickMixer::order(const SoundBuffer& sound, qint64 sampleTime, Timeline timeline) {
    return pushOrder({&sound, sampleTime, timeline});
}

bool ClickMixer::orderFree(const SoundBuffer& sound, qint64 streamFrame) {
    // Half of the room stays free for the clicks.
    return m_waiting < capacity / 2 && pushOrder({&sound, streamFrame, noTimeline});
}

void ClickMixer::play(Timeline timeline) {
    std::uint64_t stopped = std::uint64_t{timeline} << 1;
    m_state.compare_exchange_strong(stopped, stopped | 1);
}

int ClickMixer::takeNotices(Timeline timeline) {
    int count = 0;
    while (const std::optional<Timeline> notice = m_notices.pop()) {
        --m_waiting;
        count += *notice == timeline ? 1 : 0;
    }
    return count;
}

void ClickMixer::reset() {
    while (m_orders.pop() || m_notices.pop()) {
    }
    m_waiting = 0;
    m_voiceCount = 0;
    m_start = notStarted;
    m_frame = 0;
    m_framesRendered.store(0);
    m_timelineStart.store(notStarted);
    m_lastBlock.store(0);
}

qint64 ClickMixer::timelineStart() const {
    const qint64 start = m_timelineStart.load(std::memory_order_acquire);
    return start == notStarted ? std::max(framesRendered(), m_runIn) : start;
}

// Audio side

void ClickMixer::render(std::span<float> samples) {
    const qint64 frames = static_cast<qint64>(samples.size()) / channelCount;
    m_lastBlock.store(frames, std::memory_order_relaxed);
    while (!samples.empty()) {
        const Rendered part = renderUntilNotice(samples);
        samples = samples.subspan(static_cast<std::size_t>(part.frames * channelCount));
    }
}

ClickMixer::Rendered ClickMixer::renderUntilNotice(std::span<float> samples) {
    followTimeline();
    takeOrders();
    const qint64 frames = framesUntilNotice(static_cast<qint64>(samples.size()) / channelCount);
    mix(samples.first(static_cast<std::size_t>(frames * channelCount)));
    advance(frames);
    const bool notice = giveNotices();
    dropVoices(
        [this](const Voice& voice) { return voice.noticed && voice.start + voice.sound->frameLength() <= m_frame; });
    return {frames, notice};
}

void ClickMixer::followTimeline() {
    const std::uint64_t state = m_state.load(std::memory_order_acquire);
    const auto timeline = static_cast<Timeline>(state >> 1);
    if (timeline != m_timeline) {
        m_timeline = timeline;
        m_start = notStarted;
        endVoices();
    }
    if ((state & 1) != 0 && m_start == notStarted)
        m_start = std::max(m_frame, m_runIn);
    m_timelineStart.store(m_start, std::memory_order_release);
}

void ClickMixer::endVoices() {
    for (std::size_t i = 0; i < m_voiceCount; ++i) {
        if (m_voices[i].timeline != noTimeline && !m_voices[i].noticed)
            giveNotice(m_voices[i]);
    }
    dropVoices([](const Voice& voice) { return voice.timeline != noTimeline; });
}

void ClickMixer::takeOrders() {
    while (m_voiceCount < capacity) {
        const std::optional<Order> order = m_orders.peek();
        if (!order)
            return;
        // For a timeline that opened after the look at it, or whose clock stands: it keeps until the next block.
        const bool early = order->timeline > m_timeline || (order->timeline == m_timeline && m_start == notStarted);
        if (early)
            return;
        m_orders.pop();
        if (order->timeline == m_timeline || order->timeline == noTimeline)
            addVoice(*order);
        else
            static_cast<void>(m_notices.push(order->timeline));
    }
}

void ClickMixer::addVoice(const Order& order) {
    const qint64 start =
        order.timeline == noTimeline ? std::max(m_frame, order.sampleTime) : m_start + order.sampleTime;
    m_voices[m_voiceCount++] = {order.sound, start, std::max(start, m_frame), order.timeline, false};
}

qint64 ClickMixer::framesUntilNotice(qint64 frames) const {
    for (std::size_t i = 0; i < m_voiceCount; ++i) {
        if (!m_voices[i].noticed)
            frames = std::min(frames, m_voices[i].notice - m_frame + 1);
    }
    return frames;
}

void ClickMixer::mix(std::span<float> samples) const {
    std::ranges::fill(samples, 0.0F);
    const qint64 end = m_frame + static_cast<qint64>(samples.size()) / channelCount;
    bool sounding = false;
    for (std::size_t i = 0; i < m_voiceCount; ++i) {
        const Voice& voice = m_voices[i];
        const qint64 from = std::max(voice.start, m_frame);
        const qint64 to = std::min(voice.start + voice.sound->frameLength(), end);
        if (from >= to)
            continue;
        sounding = true;
        for (int channel = 0; channel < channelCount; ++channel) {
            const auto source = voice.sound->channel(channel).subspan(static_cast<std::size_t>(from - voice.start));
            float* target = samples.data() + (from - m_frame) * channelCount + channel;
            for (std::size_t k = 0; k < static_cast<std::size_t>(to - from); ++k)
                target[k * channelCount] += source[k];
        }
    }
    if (!sounding)
        return;
    for (float& sample : samples)
        sample = std::clamp(sample, -1.0F, 1.0F);
}

bool ClickMixer::giveNotices() {
    bool given = false;
    for (std::size_t i = 0; i < m_voiceCount; ++i) {
        if (m_voices[i].noticed || m_voices[i].notice >= m_frame)
            continue;
        giveNotice(m_voices[i]);
        given = true;
    }
    return given;
}

void ClickMixer::giveNotice(Voice& voice) {
    voice.noticed = true;
    // The ring has room: see pushOrder.
    static_cast<void>(m_notices.push(voice.timeline));
}

template <typename Condition>
void ClickMixer::dropVoices(Condition condition) {
    // In order, so that sums of three and more come out the same whatever the blocks.
    const auto begin = m_voices.begin();
    const auto end = std::remove_if(begin, begin + static_cast<std::ptrdiff_t>(m_voiceCount), condition);
    m_voiceCount = static_cast<std::size_t>(end - begin);
}

void ClickMixer::advance(qint64 frames) {
    m_frame += frames;
    m_framesRendered.store(m_frame, std::memory_order_release);
}

} // namespace tamsel
