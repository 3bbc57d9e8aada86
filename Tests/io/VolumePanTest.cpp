// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnCoreUtils.h>
#include <ZarnCore/instruments/effects/ZarnHVVolumePan.h>
#include <ZarnCore/instruments/effects/ZarnVolumePan.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace {

using namespace zarn;
using Halvec::audio::HVVolumePan;

HVVolumePan toAudio(const ZarnVolumePan &volumePan)
{
    return ZarnCoreUtils::convertZarnVolumePanToHVVolumePan(volumePan);
}

ZarnVolumePan toScore(double decibels, double pan)
{
    return ZarnCoreUtils::convertHVVolumePanToZarnVolumePan({decibels, pan});
}

TEST(VolumePan, comesBackFromTheAudioLayerToTheBit)
{
    std::mt19937 engine(7);
    using Limits = std::numeric_limits<float>;
    std::vector<float> volumes = {0, 1, Limits::min(), Limits::denorm_min(), 1 - Limits::epsilon()};
    for (int i = 0; i < 20000; ++i)
        volumes.push_back(std::ldexp(static_cast<float>(engine() & 0xFFFFFF),
                                     -24 - static_cast<int>(engine() % 40)));
    for (const float volume : volumes) {
        const ZarnVolumePan before(volume, std::cos(volume * 1e6f));
        const HVVolumePan audio = toAudio(before);
        ASSERT_EQ(toScore(audio.decibels, audio.pan), before) << volume;
    }
}

TEST(VolumePan, decibelsAreThoseOfTheGain)
{
    EXPECT_EQ(toAudio({1, -1}), (HVVolumePan{0, -1}));
    EXPECT_NEAR(toAudio({0.5f, 0}).decibels, -6.0206, 1e-4);
    EXPECT_EQ(toAudio({0, 0}).decibels, -std::numeric_limits<double>::infinity());
    EXPECT_EQ(toScore(6, 2), ZarnVolumePan(1, 1)) << "louder than a score can say";
    EXPECT_EQ(toScore(std::nan(""), std::nan("")), ZarnVolumePan(0, 0));
    EXPECT_EQ(toScore(-1e300, -2), ZarnVolumePan(0, -1));
}

TEST(VolumePan, panningKeepsThePower)
{
    for (const double pan : {-1.0, -0.3, 0.0, 0.5, 1.0}) {
        const HVVolumePan audio{-6, pan};
        EXPECT_NEAR(std::hypot(audio.leftGain(), audio.rightGain()), std::pow(10, -0.3), 1e-12);
        EXPECT_EQ(audio.leftGain() > audio.rightGain() + 1e-9, pan < 0);
    }
    EXPECT_NEAR((HVVolumePan{0, -1}.rightGain()), 0, 1e-12);
    EXPECT_NEAR(20 * std::log10(HVVolumePan{}.leftGain()), -3.0103, 1e-4);
}

} // namespace
