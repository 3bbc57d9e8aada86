// SPDX-License-Identifier: MIT
#include "HeapCalls.h"
#include "Sounds.h"

#include <ZarnAudio/ZarnLimiter.h>
#include <ZarnAudio/ZarnMixer.h>
#include <ZarnAudio/ZarnSynthesizer.h>

namespace {

using namespace sounds;

TEST(Mixer, muteAndSoloDecideWhatIsHeard)
{
    Mixer mixer;
    for (std::uint8_t i = 0; i < 3; ++i)
        mixer.strips().push_back({{-3.0 * i, 0.5}, false, false, {i, std::uint8_t(i + 8)}});
    mixer.setMasterVolume(-2);
    const auto heard = [&mixer] {
        std::string text;
        for (std::size_t i = 0; i < 4; ++i)
            text += mixer.isHeard(i) ? '1' : '0';
        return text;
    };
    EXPECT_EQ(heard(), "1110");
    mixer.strips()[0].isMuted = true;
    EXPECT_EQ(heard(), "0110");
    mixer.strips()[0].isSolo = true;
    EXPECT_EQ(heard(), "0000") << "others are left out for it";
    mixer.strips()[2].isSolo = true;
    EXPECT_EQ(heard(), "0010");
    const auto events = mixer.events(77);
    ASSERT_EQ(events.size(), 12u);
    for (const auto &event : events) {
        EXPECT_EQ(event.frame, 77);
        if (event.kind == TimedEvent::Kind::Pan) {
            EXPECT_EQ(event.amount, 0.5);
        } else {
            EXPECT_EQ(event.amount, event.channel % 8 == 2 ? -8.0 : -HUGE_VAL);
        }
    }
    Synthesizer synthesizer({});
    const auto before = heapCalls();
    mixer.applyTo(synthesizer);
    EXPECT_EQ(heapCalls(), before);
}

class Limiters : public ::testing::Test {
protected:
    static float highest(const std::vector<float> &frames)
    {
        float value = 0;
        for (const float sample : frames)
            value = std::max(value, std::abs(sample));
        return value;
    }
};

TEST_F(Limiters, leaveAloneWhatIsNotTooLoud)
{
    const auto quiet = tones(20'000, 2, 0.9F);
    Limiter limiter(44100, 0.96F);
    auto out = quiet;
    const auto before = heapCalls();
    limiter.process(out.data(), 20'000);
    EXPECT_EQ(heapCalls(), before);
    const auto late = static_cast<std::size_t>(2 * limiter.latency());
    EXPECT_TRUE(std::equal(quiet.begin(), quiet.end() - std::ptrdiff_t(late),
                           out.begin() + std::ptrdiff_t(late)));
    EXPECT_EQ(highest({out.begin(), out.begin() + std::ptrdiff_t(late)}), 0);
    EXPECT_EQ(limiter.lowestGain(), 1);
}

TEST_F(Limiters, keepTheCeilingWithoutCutting)
{
    // Quiet, a loud passage, a single click, quiet again.
    auto frames = tones(60'000, 2, 0.3F);
    for (std::size_t i = 40'000; i < 60'000; ++i)
        frames[i] *= 6;
    frames[90'001] = -4;
    Limiter limiter(44100, 0.9F);
    auto out = frames;
    for (std::int64_t done = 0; done < 60'000; done += 500)
        limiter.process(out.data() + 2 * done, 500);
    EXPECT_LE(highest(out), 0.9F);
    EXPECT_LT(limiter.lowestGain(), 0.3F);
    EXPECT_GT(limiter.lowestGain(), 0.2F);
    // The gain has no steps: what comes out is what came in by a gain that moves slowly.
    const auto late = static_cast<std::size_t>(2 * limiter.latency());
    double before = 1;
    for (std::size_t i = 0; i + late < out.size(); ++i) {
        if (std::abs(frames[i]) < 0.05F)
            continue;
        const double gain = double(out[i + late]) / double(frames[i]);
        EXPECT_LT(std::abs(gain - before), 0.08) << i;
        EXPECT_GT(gain, 0);
        before = gain;
    }
    EXPECT_GT(before, 0.75) << "the level comes back";
}

} // namespace
