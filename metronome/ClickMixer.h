#pragma once

#include "metronome/SoundBuffer.h"
#include "metronome/SpscRing.h"

#include <QtGlobal>

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace tamsel {

// Turns orders ("this sound at that sample") into interleaved stereo samples: what the audio callback runs, and what
// the offline output runs. One thread gives orders and takes notices, one thread renders.
//
// Orders belong to a timeline, whose clock starts with the first frame rendered after play(). Ending it makes every
// order that was given for it void. When the first frame of a sound is rendered, its notice is given: from then on its
// samples are fixed and need nothing from whoever ordered it. An order that comes after its sample keeps its position
// in time and loses the head that was missed. Where sounds overlap they are added; the sum is clipped to ±1.
class ClickMixer {
public:
    static constexpr int channelCount = 2;
    // How many orders may wait for their notices. A quarter of a second holds 16 clicks at the fastest tempo in
    // thirty-seconds; the rest is for alerts and for the orders of timelines that were closed a moment ago.
    static constexpr std::size_t capacity = 64;

    using Timeline = std::uint32_t;

    // No timeline begins within the first `runInFrames` of a stream.
    explicit ClickMixer(qint64 runInFrames = 0) : m_runIn(runInFrames) {}

    // Any thread. Ends the open timeline, opens the next and returns it. No frame that a later call renders contains a
    // sound of the one that ended.
    Timeline openTimeline();

    // Ordering thread. The sound must be non-interleaved stereo and outlive its playing. False, and nothing ordered,
    // when too many orders wait. An order for a timeline that has ended never sounds.
    [[nodiscard]] bool order(const SoundBuffer& sound, qint64 sampleTime, Timeline timeline);
    // Ordering thread. The same for a sound of no timeline: it starts with that frame of the stream or, where that has
    // passed, with the next one.
    [[nodiscard]] bool orderFree(const SoundBuffer& sound, qint64 streamFrame);
    // Ordering thread. Starts the clock of that timeline, unless it has ended.
    void play(Timeline timeline);
    // Ordering thread. How many notices have come for sounds of that timeline since the last call.
    int takeNotices(Timeline timeline);

    // Ordering thread, while nothing renders. Forgets everything; the next frame is the first of a stream.
    void reset();

    // Any thread. Frames rendered since the start of the stream.
    qint64 framesRendered() const { return m_framesRendered.load(std::memory_order_acquire); }
    // Any thread. The frame of the stream that is sample 0 of the open timeline: before its clock has started, the
    // first that could be.
    qint64 timelineStart() const;
    // Any thread. The size of the block that was rendered last, in frames.
    qint64 lastBlock() const { return m_lastBlock.load(std::memory_order_relaxed); }

    // Audio thread only. Realtime-safe. Fills the whole block.
    void render(std::span<float> samples);

    struct Rendered {
        qint64 frames; // how many were made
        bool notice;   // whether a notice was given with the last of them
    };
    // Audio thread only. Realtime-safe. Fills the block up to and including the frame of the next notice, or to its
    // end.
    Rendered renderUntilNotice(std::span<float> samples);

private:
    struct Order {
        const SoundBuffer* sound;
        qint64 sampleTime;
        Timeline timeline;
    };
    struct Voice {
        const SoundBuffer* sound;
        qint64 start;  // frame of the stream
        qint64 notice; // frame of the stream with which the notice is due
        Timeline timeline;
        bool noticed;
    };

    static constexpr Timeline noTimeline = 0;
    static constexpr qint64 notStarted = -1;

    bool pushOrder(const Order& order);

    // Audio thread.
    void followTimeline();
    void takeOrders();
    void addVoice(const Order& order);
    qint64 framesUntilNotice(qint64 frames) const;
    void mix(std::span<float> samples) const;
    bool giveNotices();
    void giveNotice(Voice& voice);
    void endVoices();
    template <typename Condition>
    void dropVoices(Condition condition);
    void advance(qint64 frames);

    const qint64 m_runIn;
    SpscRing<Order, capacity> m_orders;
    SpscRing<Timeline, capacity> m_notices;
    // The open timeline in the upper bits; the lowest tells whether its clock has been started.
    std::atomic<std::uint64_t> m_state = (noTimeline + 1) << 1;
    std::atomic<qint64> m_framesRendered = 0;
    std::atomic<qint64> m_timelineStart = notStarted;
    std::atomic<qint64> m_lastBlock = 0;

    // Ordering thread.
    std::size_t m_waiting = 0;

    // Audio thread.
    std::array<Voice, capacity> m_voices{};
    std::size_t m_voiceCount = 0;
    Timeline m_timeline = noTimeline;
    qint64 m_start = notStarted;
    qint64 m_frame = 0;
};

} // namespace tamsel
