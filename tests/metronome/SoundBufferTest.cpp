#include "metronome/SoundBuffer.h"

#include "metronome/AlertSound.h"
#include "metronome/AudioFormat.h"
#include "metronome/TriangleWaveGenerator.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <type_traits>

namespace tamsel {
namespace {

constexpr AudioFormat stereo{44100, 2, AudioFormat::Layout::NonInterleaved};
constexpr float high = 1567.98F;
constexpr float low = 1046.5F;

TEST(AudioFormat, TheStandardOneNeedsARateAndAChannel) {
    EXPECT_EQ(AudioFormat::standard(44100, 2), stereo);
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinity = std::numeric_limits<double>::infinity();
    for (const double rate : {0.0, -44100.0, nan, infinity})
        EXPECT_EQ(AudioFormat::standard(rate, 2), std::nullopt) << rate;
    EXPECT_EQ(AudioFormat::standard(44100, 0), std::nullopt);
}

// The single-precision remainder by one is exact, so it equals what is left after the whole part is taken away.
float triangle(float frequency, float rate, int frame) {
    const float position = frequency / rate * static_cast<float>(frame);
    const float phase = position - std::floor(position);
    return 2.0F * (std::abs(2.0F - 4.0F * phase) - 1.0F);
}

TEST(ClickBuffer, CarriesTheTriangleSampleForSample) {
    for (const double rate : {44100.0, 48000.0, 96000.0, 22050.0}) {
        for (const float frequency : {high, low}) {
            const SoundBuffer buffer = makeClickBuffer({rate, 2, AudioFormat::Layout::NonInterleaved}, frequency);
            ASSERT_EQ(buffer.frameLength(), static_cast<quint32>(rate / 50)) << "20 milliseconds";
            for (int channel = 0; channel < 2; ++channel) {
                for (quint32 i = 0; i < buffer.frameLength(); ++i)
                    ASSERT_EQ(buffer.channel(channel)[i], triangle(frequency, static_cast<float>(rate), int(i)))
                        << frequency << " Hz at " << rate << ", channel " << channel << ", frame " << i;
            }
        }
    }
}

TEST(ClickBuffer, StartsAtTwiceFullScaleAndEndsWithoutFade) {
    const SoundBuffer click = makeClickBuffer(stereo, low);
    EXPECT_EQ(click.frameLength(), 882U);
    EXPECT_EQ(click.frameCapacity(), 882U);
    EXPECT_EQ(click.channel(0)[0], 2.0F);
    EXPECT_EQ(click.channel(1)[0], 2.0F);
    EXPECT_LT(click.channel(0)[21], -1.95F) << "close to the first negative peak";
    const auto lastPeriod = click.channel(0).last(43);
    EXPECT_GT(std::ranges::max(lastPeriod), 1.8F);
    EXPECT_LT(std::ranges::min(lastPeriod), -1.8F);
}

TEST(ClickBuffer, IsLoggedWithItsFormat) {
    const test::LogCapture log;
    makeClickBuffer(stereo, high);
    EXPECT_EQ(log.lines(),
              QStringList{QStringLiteral("Buffer: 2 ch, 44100 Hz, Float32, non-interleaved 882 of 882 frames")});
}

TEST(ClickBufferDeathTest, StopsTheProgramWhenThereIsNoRoomForAFrame) {
    constexpr AudioFormat tooSlow{49, 2, AudioFormat::Layout::NonInterleaved};
    EXPECT_DEATH(makeClickBuffer(tooSlow, high), "Unable to create sound buffer: 1567\\.98\n");
    EXPECT_DEATH(makeClickBuffer(tooSlow, low), "Unable to create sound buffer: 1046\\.5\n");
    EXPECT_DEATH(makeClickBuffer(tooSlow, 440), "Unable to create sound buffer: 440\\.0\n");
}

TEST(TriangleWaveGenerator, FillsEveryLayout) {
    static_assert(!std::is_default_constructible_v<TriangleWaveGenerator>);
    constexpr quint32 frames = 300;
    auto plain = SoundBuffer::make({44100, 3, AudioFormat::Layout::NonInterleaved}, frames);
    auto interleaved = SoundBuffer::make({44100, 3, AudioFormat::Layout::Interleaved}, frames);
    auto channelless = SoundBuffer::make({44100, 0, AudioFormat::Layout::NonInterleaved}, frames);
    ASSERT_TRUE(plain && interleaved && channelless);
    for (auto* buffer : {&plain, &interleaved, &channelless}) {
        (*buffer)->setFrameLength(frames - 1);
        TriangleWaveGenerator generator(2, 0, low, 44100);
        generator.fill(**buffer);
        EXPECT_EQ(generator.frameCount, frames - 1);
    }
    ASSERT_EQ(interleaved->frames().size(), (frames - 1) * 3);
    for (std::size_t i = 0; i < frames - 1; ++i) {
        for (std::size_t channel = 0; channel < 3; ++channel) {
            ASSERT_EQ(plain->channel(int(channel))[i], triangle(low, 44100, int(i)));
            ASSERT_EQ(interleaved->frames()[3 * i + channel], plain->channel(0)[i]);
        }
    }
}

TEST(AlertSound, IsShortAudibleAndSoftEdged) {
    EXPECT_EQ(alertSoundName, u"BEEP!");
    const SoundBuffer alert = makeAlertBuffer(stereo);
    EXPECT_LT(alert.frameLength(), 4851U) << "over before the next one, 110 milliseconds later";
    const auto samples = alert.channel(0);
    EXPECT_GT(std::ranges::max(samples), 0.5F);
    EXPECT_LE(std::ranges::max(samples), 1.0F);
    EXPECT_LT(std::abs(samples.front()), 0.01F);
    EXPECT_LT(std::abs(samples.back()), 0.01F);
    EXPECT_TRUE(std::ranges::equal(samples, alert.channel(1)));
}

} // namespace
} // namespace tamsel
