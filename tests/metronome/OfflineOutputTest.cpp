#include "metronome/OfflineOutput.h"

#include "metronome/AlertSound.h"
#include "metronome/Metronome.h"
#include "metronome/TriangleWaveGenerator.h"
#include "tests/metronome/FakeAudioSession.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <vector>

namespace tamsel {
namespace {

using enum Rhythm;

// A metronome that plays to memory.
struct Player {
    explicit Player(double rate = 44100) : output(rate) {}

    // Renders so many frames in blocks of that size.
    void renderInBlocks(qint64 frames, qint64 block) {
        for (qint64 done = 0; done < frames; done += block) {
            const std::vector<float> samples = output.render(std::min(block, frames - done));
            recording.insert(recording.end(), samples.begin(), samples.end());
        }
    }

    OfflineOutput output;
    test::FakeAudioSession session;
    Metronome metronome{output, session};
    std::vector<float> recording; // interleaved stereo
};

bool isSilent(const std::vector<float>& samples) {
    return std::ranges::all_of(samples, [](float sample) { return sample == 0.0F; });
}

// What a click sounds like once it has passed the output stage.
std::vector<float> clipped(double rate, float frequency) {
    const test::LogCapture log;
    const SoundBuffer click = makeClickBuffer(*AudioFormat::standard(rate, 2), frequency);
    std::vector<float> samples;
    for (const float sample : click.channel(0))
        samples.push_back(std::clamp(sample, -1.0F, 1.0F));
    return samples;
}

// Checks sample for sample that the recording holds, in both channels, the given clicks and nothing else. They must not
// overlap.
struct HeardClick {
    qint64 frame;
    bool high;
};
void expectClicks(const std::vector<float>& recording, const std::vector<HeardClick>& clicks, double rate) {
    std::vector<float> expected(recording.size());
    const std::vector<float> sounds[] = {clipped(rate, 1046.5F), clipped(rate, 1567.98F)};
    for (const HeardClick& click : clicks) {
        const std::vector<float>& sound = sounds[click.high ? 1 : 0];
        for (std::size_t i = 0; i < sound.size(); ++i) {
            const std::size_t at = 2 * (static_cast<std::size_t>(click.frame) + i);
            if (at < expected.size())
                expected[at] = expected[at + 1] = sound[i];
        }
    }
    const auto difference = std::ranges::mismatch(recording, expected);
    EXPECT_EQ(difference.in1, recording.end()) << "first at frame " << (difference.in1 - recording.begin()) / 2;
}

TEST(Offline, BarsOfFourAt120) {
    Player player;
    player.metronome.setRhythmSelection(fourFour);
    player.metronome.start();
    player.renderInBlocks(22050 * 6, 512);
    expectClicks(player.recording,
                 {{0, true}, {22050, false}, {44100, false}, {66150, false}, {88200, true}, {110250, false}}, 44100);
}

TEST(Offline, OtherRatesHaveTheirOwnClicks) {
    for (const double rate : {48000.0, 96000.0, 22050.0}) {
        Player player(rate);
        player.metronome.setRhythmSelection(triplets);
        player.metronome.setTempo(100);
        player.metronome.start();
        const auto interval = static_cast<qint64>(rate / 5);
        player.renderInBlocks(4 * interval, 1000);
        expectClicks(player.recording, {{0, true}, {interval, false}, {2 * interval, false}, {3 * interval, true}},
                     rate);
    }
}

TEST(Offline, OnsetsStayWithinASampleForAnHour) {
    // Every 133rd click falls on a whole sample, to which a sum of fractions may come from below.
    Player player;
    player.metronome.setTempo(133);
    player.metronome.start();
    std::vector<float> second(2 * 44100);
    qint64 clicks = 0;
    qint64 silence = 882;
    for (qint64 start = 0; start < 3600 * 44100; start += 44100) {
        player.output.render(second);
        for (qint64 i = 0; i < 44100; ++i) {
            const bool sounds = second[static_cast<std::size_t>(2 * i)] != 0.0F;
            if (sounds && silence >= 882) {
                ASSERT_LE(std::abs(start + i - clicks * 44100 * 60 / 133), 1) << "click " << clicks;
                ++clicks;
            }
            silence = sounds ? 0 : silence + 1;
        }
    }
    EXPECT_EQ(clicks, 133 * 60);
}

TEST(Offline, OverlappingClicksAreSampleExact) {
    // 661.5 samples apart, so that every click overlaps the one before: the densest there is.
    Player player;
    player.metronome.setRhythmSelection(thirtySeconds);
    player.metronome.setTempo(500);
    player.metronome.start();
    std::vector<float> sounds[2];
    for (const float frequency : {1046.5F, 1567.98F}) {
        const test::LogCapture log;
        const SoundBuffer click = makeClickBuffer(*AudioFormat::standard(44100, 2), frequency);
        const auto samples = click.channel(0);
        sounds[frequency > 1500 ? 1 : 0].assign(samples.begin(), samples.end());
    }
    // One beat of eight clicks takes 5292 frames; from the second on each is preceded by the last one's tail.
    const auto expectedBeat = [&](bool first) {
        std::vector<float> beat(2 * 5292);
        for (int n = first ? 0 : -1; n < 8; ++n) {
            const std::vector<float>& sound = sounds[n % 8 == 0 ? 1 : 0];
            const int start = n < 0 ? -662 : n * 1323 / 2;
            for (int i = 0; i < 882; ++i) {
                if (start + i >= 0 && start + i < 5292)
                    beat[static_cast<std::size_t>(2 * (start + i))] += sound[static_cast<std::size_t>(i)];
            }
        }
        for (std::size_t i = 0; i < beat.size(); i += 2)
            beat[i] = beat[i + 1] = std::clamp(beat[i], -1.0F, 1.0F);
        return beat;
    };
    const std::vector<float> first = expectedBeat(true);
    const std::vector<float> others = expectedBeat(false);
    std::vector<float> beat(first.size());
    for (int n = 0; n < 1000; ++n) {
        player.output.render(beat);
        ASSERT_EQ(std::memcmp(beat.data(), (n == 0 ? first : others).data(), beat.size() * sizeof(float)), 0)
            << "beat " << n;
    }
}

TEST(Offline, TheSameInAnyBlocks) {
    struct Piece {
        const char* name;
        std::function<void(Player&, qint64 block)> play;
    };
    const Piece pieces[] = {
        {"dense",
         [](Player& player, qint64 block) {
             player.metronome.setRhythmSelection(thirtySeconds);
             player.metronome.setTempo(500);
             player.metronome.start();
             player.renderInBlocks(10000, block);
         }},
        {"one in flight, faster than the blocks",
         [](Player& player, qint64 block) {
             player.metronome.setTempo(479);
             player.metronome.setRhythmSelection(thirtySeconds);
             player.metronome.start();
             player.renderInBlocks(10000, block);
         }},
        {"changes on the way",
         [](Player& player, qint64 block) {
             player.metronome.setRhythmSelection(quintuplets);
             player.metronome.start();
             player.renderInBlocks(7001, block);
             player.metronome.setTempo(333.3);
             player.renderInBlocks(5002, block);
             player.metronome.setRhythmSelection(sevenFour);
             player.metronome.playAlert();
             player.renderInBlocks(12003, block);
             player.metronome.stop();
             player.renderInBlocks(1000, block);
             player.metronome.start();
             player.renderInBlocks(10000, block);
         }},
    };
    for (const Piece& piece : pieces) {
        Player whole;
        piece.play(whole, 1'000'000);
        ASSERT_FALSE(isSilent(whole.recording));
        for (const qint64 block : {1, 64, 441, 4096}) {
            Player player;
            piece.play(player, block);
            ASSERT_EQ(player.recording.size(), whole.recording.size());
            EXPECT_EQ(
                std::memcmp(player.recording.data(), whole.recording.data(), whole.recording.size() * sizeof(float)), 0)
                << piece.name << " in blocks of " << block;
        }
    }
}

TEST(Offline, ChangesTakeEffectWithTheNextQueuedClick) {
    // At 120 BPM one click is queued ahead: while the first sounds, the second is.
    Player player;
    player.metronome.setRhythmSelection(fourFour);
    player.metronome.start();
    player.renderInBlocks(100, 64);
    player.metronome.setTempo(240);
    player.renderInBlocks(55125 - 100, 64);
    // The interval after the click that was queued already is still the old one; then it is 11025 frames, and a new
    // bar.
    expectClicks(player.recording, {{0, true}, {22050, false}, {44100, true}}, 44100);
    player.metronome.setRhythmSelection(eighths);
    player.recording.clear();
    player.renderInBlocks(30000, 64);
    expectClicks(player.recording, {{0, false}, {11025, true}, {16537, false}, {22050, true}, {27562, false}}, 44100);
}

TEST(Offline, NothingSoundsAfterAStop) {
    Player player;
    player.metronome.setRhythmSelection(thirtySeconds);
    player.metronome.setTempo(500);
    for (const qint64 frames : {1, 100, 661, 5000}) {
        player.metronome.start();
        EXPECT_FALSE(isSilent(player.output.render(frames)));
        player.metronome.stop();
        EXPECT_TRUE(isSilent(player.output.render(100'000))) << "stopped after " << frames;
    }
    player.recording.clear();
    player.metronome.setRhythmSelection(twoFour);
    player.metronome.start();
    player.renderInBlocks(6000, 441);
    expectClicks(player.recording, {{0, true}, {5292, false}}, 44100);
}

TEST(Offline, TheAlertSoundsOnceWithAndWithoutTheMetronome) {
    Player player;
    const SoundBuffer alert = makeAlertBuffer(*AudioFormat::standard(44100, 2));
    player.metronome.playAlert();
    const std::vector<float> alone = player.output.render(10000);
    for (quint32 i = 0; i < alert.frameLength(); ++i)
        ASSERT_EQ(alone[2 * i], alert.channel(0)[i]);
    EXPECT_TRUE(isSilent({alone.begin() + 2 * alert.frameLength(), alone.end()}));
    player.metronome.start();
    const std::vector<float> click = player.output.render(10000);
    player.metronome.playAlert();
    EXPECT_EQ(player.output.render(10000), alone) << "between two clicks";
    player.renderInBlocks(2051, 1000);
    EXPECT_EQ(player.recording[2 * 2050], 1.0F) << "the metronome goes on";
}

} // namespace
} // namespace tamsel
