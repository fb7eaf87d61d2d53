#include "metronome/ClickMixer.h"

#include "metronome/SpscRing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <thread>
#include <vector>

namespace tamsel {
namespace {

// A sound whose two channels count up from one and from a hundred, in thousandths.
SoundBuffer ramp(quint32 frames) {
    SoundBuffer sound = *SoundBuffer::make({44100, 2, AudioFormat::Layout::NonInterleaved}, frames);
    sound.setFrameLength(frames);
    for (quint32 i = 0; i < frames; ++i) {
        sound.channel(0)[i] = static_cast<float>(i + 1) / 1000;
        sound.channel(1)[i] = static_cast<float>(i + 100) / 1000;
    }
    return sound;
}

SoundBuffer constant(float value, quint32 frames) {
    SoundBuffer sound = *SoundBuffer::make({44100, 2, AudioFormat::Layout::NonInterleaved}, frames);
    sound.setFrameLength(frames);
    for (int channel = 0; channel < 2; ++channel)
        std::ranges::fill(sound.channel(channel), value);
    return sound;
}

class ClickMixerTest : public testing::Test {
protected:
    std::vector<float> render(qint64 frames) {
        std::vector<float> samples(static_cast<std::size_t>(2 * frames), 9.0F);
        mixer.render(samples);
        return samples;
    }
    // The left channel only.
    std::vector<float> left(qint64 frames) {
        const std::vector<float> both = render(frames);
        std::vector<float> samples;
        for (std::size_t i = 0; i < both.size(); i += 2)
            samples.push_back(both[i]);
        return samples;
    }

    ClickMixer mixer;
    ClickMixer::Timeline timeline = mixer.openTimeline();
};

TEST_F(ClickMixerTest, PlaysASoundAtItsSampleAcrossBlocks) {
    const SoundBuffer sound = ramp(4);
    ASSERT_TRUE(mixer.order(sound, 3, timeline));
    mixer.play(timeline);
    EXPECT_EQ(render(5), (std::vector<float>{0, 0, 0, 0, 0, 0, 0.001F, 0.1F, 0.002F, 0.101F}));
    EXPECT_EQ(render(4), (std::vector<float>{0.003F, 0.102F, 0.004F, 0.103F, 0, 0, 0, 0}));
}

TEST_F(ClickMixerTest, TheClockStandsUntilPlayAndRunsFromTheNextFrame) {
    const SoundBuffer sound = constant(0.5F, 1);
    ASSERT_TRUE(mixer.order(sound, 1, timeline));
    EXPECT_EQ(left(10), std::vector<float>(10));
    EXPECT_EQ(mixer.takeNotices(timeline), 0);
    mixer.play(timeline);
    EXPECT_EQ(left(3), (std::vector<float>{0, 0.5F, 0}));
    EXPECT_EQ(mixer.timelineStart(), 10);
    EXPECT_EQ(mixer.framesRendered(), 13);
}

TEST_F(ClickMixerTest, NoticesComeWithTheFirstFrame) {
    const SoundBuffer sound = constant(0.5F, 4);
    ASSERT_TRUE(mixer.order(sound, 2, timeline));
    ASSERT_TRUE(mixer.order(sound, 5, timeline));
    mixer.play(timeline);
    render(2);
    EXPECT_EQ(mixer.takeNotices(timeline), 0);
    render(1);
    EXPECT_EQ(mixer.takeNotices(timeline), 1);
    render(10);
    EXPECT_EQ(mixer.takeNotices(timeline), 1);
    EXPECT_EQ(mixer.takeNotices(timeline), 0);
}

TEST_F(ClickMixerTest, RenderingForNoticesStopsAfterTheFirstFrameOfEachSound) {
    const SoundBuffer sound = constant(0.5F, 4);
    ASSERT_TRUE(mixer.order(sound, 0, timeline));
    ASSERT_TRUE(mixer.order(sound, 7, timeline));
    mixer.play(timeline);
    std::vector<float> samples(40);
    for (const ClickMixer::Rendered expected : {ClickMixer::Rendered{1, true}, {7, true}, {20, false}}) {
        const ClickMixer::Rendered part = mixer.renderUntilNotice(samples);
        EXPECT_EQ(part.frames, expected.frames);
        EXPECT_EQ(part.notice, expected.notice);
    }
}

TEST_F(ClickMixerTest, OverlapsAreAddedAndTheSumIsClipped) {
    const SoundBuffer sound = constant(0.75F, 4);
    const SoundBuffer inverse = constant(-2.0F, 2);
    ASSERT_TRUE(mixer.order(sound, 0, timeline));
    ASSERT_TRUE(mixer.order(sound, 2, timeline));
    ASSERT_TRUE(mixer.order(inverse, 3, timeline));
    mixer.play(timeline);
    EXPECT_EQ(left(7), (std::vector<float>{0.75F, 0.75F, 1, -0.5F, -1, 0.75F, 0}));
}

TEST_F(ClickMixerTest, ALateOrderKeepsItsPlaceAndLosesItsHead) {
    const SoundBuffer sound = ramp(4);
    mixer.play(timeline);
    render(10);
    ASSERT_TRUE(mixer.order(sound, 8, timeline));  // two frames late
    ASSERT_TRUE(mixer.order(sound, 2, timeline));  // over before it could begin
    ASSERT_TRUE(mixer.order(sound, 14, timeline)); // in time
    EXPECT_EQ(left(6), (std::vector<float>{0.003F, 0.004F, 0, 0, 0.001F, 0.002F}));
    EXPECT_EQ(mixer.takeNotices(timeline), 3) << "each order gives its notice";
}

TEST_F(ClickMixerTest, NothingOfAnEndedTimelineSounds) {
    const SoundBuffer old = constant(0.25F, 20);
    const SoundBuffer fresh = constant(0.5F, 2);
    ASSERT_TRUE(mixer.order(old, 0, timeline));
    ASSERT_TRUE(mixer.order(old, 8, timeline));
    mixer.play(timeline);
    EXPECT_EQ(left(2), (std::vector<float>{0.25F, 0.25F}));
    const ClickMixer::Timeline next = mixer.openTimeline();
    EXPECT_EQ(left(3), std::vector<float>(3)) << "the sound that was playing is cut, the one that waited is void";
    ASSERT_TRUE(mixer.order(old, 0, timeline)); // by a scheduler that has not heard of the end yet
    mixer.play(timeline);
    ASSERT_TRUE(mixer.order(fresh, 1, next));
    EXPECT_EQ(left(3), std::vector<float>(3)) << "the new clock stands";
    mixer.play(next);
    EXPECT_EQ(left(4), (std::vector<float>{0, 0.5F, 0.5F, 0}));
    EXPECT_EQ(mixer.takeNotices(next), 1) << "notices of the old timeline do not count";
}

TEST_F(ClickMixerTest, FreeSoundsNeedNoTimelineAndAreNeverCut) {
    const SoundBuffer sound = constant(0.5F, 3);
    ASSERT_TRUE(mixer.orderFree(sound, 2));
    EXPECT_EQ(left(4), (std::vector<float>{0, 0, 0.5F, 0.5F}));
    mixer.openTimeline();
    EXPECT_EQ(left(2), (std::vector<float>{0.5F, 0}));
    ASSERT_TRUE(mixer.orderFree(sound, 0)) << "for a frame that has passed";
    EXPECT_EQ(left(4), (std::vector<float>{0.5F, 0.5F, 0.5F, 0})) << "starts with the next, whole";
}

TEST_F(ClickMixerTest, AStreamMayKeepItsFirstFramesFree) {
    ClickMixer device(5);
    const SoundBuffer sound = constant(0.5F, 1);
    const ClickMixer::Timeline first = device.openTimeline();
    EXPECT_EQ(device.timelineStart(), 5) << "known before the stream runs";
    ASSERT_TRUE(device.order(sound, 0, first));
    device.play(first);
    std::vector<float> samples(2 * 8);
    device.render(samples);
    EXPECT_EQ(std::ranges::find(samples, 0.5F) - samples.begin(), 2 * 5);
    const ClickMixer::Timeline second = device.openTimeline();
    device.play(second);
    device.render(samples);
    EXPECT_EQ(device.timelineStart(), 8) << "a stream that runs has passed them";
    device.reset();
    EXPECT_EQ(device.timelineStart(), 5);
    EXPECT_EQ(device.framesRendered(), 0);
}

TEST_F(ClickMixerTest, RefusesMoreOrdersThanItHasNoticesFor) {
    const SoundBuffer sound = constant(0.5F, 1);
    for (std::size_t i = 0; i < ClickMixer::capacity / 2; ++i)
        ASSERT_TRUE(mixer.orderFree(sound, 0));
    EXPECT_FALSE(mixer.orderFree(sound, 0)) << "free sounds leave room for clicks";
    for (std::size_t i = 0; i < ClickMixer::capacity / 2; ++i)
        ASSERT_TRUE(mixer.order(sound, 0, timeline));
    EXPECT_FALSE(mixer.order(sound, 0, timeline));
    mixer.play(timeline);
    render(1);
    EXPECT_FALSE(mixer.order(sound, 0, timeline)) << "the notices have not been taken";
    EXPECT_EQ(mixer.takeNotices(timeline), static_cast<int>(ClickMixer::capacity / 2));
    EXPECT_TRUE(mixer.order(sound, 0, timeline));
}

TEST(ClickMixer, TheSameOrdersInAnyBlocksAreBitIdentical) {
    const SoundBuffer sounds[] = {ramp(882), constant(0.3F, 700), constant(-1.7F, 50)};
    const auto renderIn = [&](std::size_t block) {
        ClickMixer mixer;
        const ClickMixer::Timeline timeline = mixer.openTimeline();
        std::mt19937 random(7);
        qint64 time = 0;
        for (std::size_t i = 0; i < ClickMixer::capacity; ++i) {
            EXPECT_TRUE(mixer.order(sounds[random() % 3], time, timeline));
            time += random() % 500;
        }
        mixer.play(timeline);
        std::vector<float> samples(2 * 4096 * 5);
        for (std::size_t at = 0; at < samples.size(); at += 2 * block)
            mixer.render(std::span(samples).subspan(at, std::min(2 * block, samples.size() - at)));
        return samples;
    };
    const std::vector<float> whole = renderIn(4096 * 5);
    EXPECT_GT(std::ranges::max(whole), 0.5F);
    for (const std::size_t block : {1, 64, 441, 4096})
        EXPECT_EQ(std::memcmp(renderIn(block).data(), whole.data(), whole.size() * sizeof(float)), 0) << block;
}

TEST(SpscRing, HandsOverEverythingInOrderBetweenTwoThreads) {
    SpscRing<int, 8> ring;
    constexpr int count = 100'000;
    std::thread producer([&ring] {
        for (int i = 0; i < count; ++i) {
            while (!ring.push(i))
                std::this_thread::yield();
        }
    });
    for (int expected = 0; expected < count;) {
        const std::optional<int> value = ring.pop();
        if (!value) {
            std::this_thread::yield();
            continue;
        }
        ASSERT_EQ(*value, expected);
        ++expected;
    }
    producer.join();
    EXPECT_EQ(ring.pop(), std::nullopt);
}

} // namespace
} // namespace tamsel
