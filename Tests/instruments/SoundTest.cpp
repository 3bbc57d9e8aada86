// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnException.h>
#include <ZarnCore/instruments/effects/ZarnMastering.h>
#include <ZarnCore/instruments/sounds/ZarnSound.h>

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace zarn;

TEST(Sound, rolesAreReadCaseSensitively)
{
    EXPECT_EQ(Sound::roleFromString("User"), Sound::User);
    for (const auto *text : {"user", "Factory", "", "USER"})
        EXPECT_EQ(Sound::roleFromString(text), Sound::Factory) << text;
    EXPECT_EQ(Sound::roleToString(static_cast<Sound::Role>(7)), "User");
}

TEST(Sound, equivalenceNeedsAPath)
{
    Sound a("a");
    Sound b("b");
    EXPECT_FALSE(a.isEquivalent(b));
    EXPECT_EQ(a.fullName(), "a");
    a.setPath("Guitars");
    b.setPath("Guitars");
    EXPECT_TRUE(a.isEquivalent(b));
    EXPECT_EQ(a.fullName(), "Guitars/a");
    b.setRole(Sound::User);
    EXPECT_FALSE(a.isEquivalent(b));
}

TEST(Sound, textHoldsEveryField)
{
    Sound sound("name;\\", MIDISound(1, 2, -3));
    const auto differsAfter = [&sound](auto change) {
        const auto before = sound;
        change();
        return before != sound && (before < sound) != (sound < before)
            && Sound::fromString(sound.toString()) == sound;
    };
    EXPECT_TRUE(differsAfter([&] { sound.setName("other\\;\n"); }));
    EXPECT_TRUE(differsAfter([&] { sound.setPath(";"); }));
    EXPECT_TRUE(differsAfter([&] { sound.setLabel("\\"); }));
    EXPECT_TRUE(differsAfter([&] { sound.setRole(Sound::User); }));
    EXPECT_TRUE(differsAfter([&] { sound.setGuiExpanded(true); }));
    EXPECT_TRUE(differsAfter([&] { sound.setMidiSound(MIDISound(127)); }));
    auto &orka = sound.mutableOrkaSound();
    EXPECT_TRUE(differsAfter([&] { orka.setSoundbankPatchId("Tele|:,;\\"); }));
    EXPECT_TRUE(
        differsAfter([&] { orka.setSoundReproduction(OrkaSound::SoundReproduction::MIDI); }));
    EXPECT_TRUE(differsAfter([&] { orka.setPickupTones({1.0f / 3, 1e-30f, 0}); }));
    EXPECT_TRUE(differsAfter([&] { orka.setKnobVolumes({1}); }));
    EXPECT_TRUE(differsAfter([&] { orka.setSwitchPosition(4); }));
    EXPECT_TRUE(differsAfter([&] { orka.setOverloudPosition(3); }));
    EXPECT_TRUE(differsAfter([&] { orka.setOverloudPickupIds({""}); }));
    EXPECT_TRUE(differsAfter([&] { orka.setOverloudPickupIds({"a,b", "\\", ""}); }));
    EXPECT_TRUE(differsAfter([&] {
        orka.mutableEffectChain().setEffect(2, Effect("d:e;l,a|y", "\\", {0.1f, -2}));
    }));
    EXPECT_TRUE(differsAfter([&] { orka.mutableEffectChain().setBypassed(2, true); }));
    for (const auto *text :
         {"", ";;;;;;;", ";;Factory;;x;0;0;0", ";;Factory;;99999999999;0;0;0",
          ";;Factory;;0;0;0;0;x", ";;Factory;;0;0;0;0;||||0|0||e", ";;Factory;;0;0;0;0;||2,||0|0||",
          ";;Factory;;0;0;0;0;|||nan,|0|0||", ";;Factory;;0;0;0;0;||||-1|0||"})
        EXPECT_FALSE(Sound::fromString(text)) << text;
}

TEST(OrkaSound, refusesWhatNoKnobCanShow)
{
    OrkaSound sound("Strat-Guitar");
    const OrkaSound before = sound;
    EXPECT_THROW(sound.setPickupTones({0.5f, 1.1f}), CoreException);
    EXPECT_THROW(sound.setKnobVolumes({std::nanf("")}), CoreException);
    EXPECT_THROW(sound.setSwitchPosition(-1), CoreException);
    EXPECT_EQ(sound, before);
}

TEST(EffectChain, slotsStayWhereTheyAre)
{
    EffectChain chain;
    EXPECT_TRUE(chain.effect(5).isEmpty());
    EXPECT_EQ(chain.effect(5).parameter(1), 0);
    const Effect delay("delay", "Delay", {0.1f, 0.2f});
    chain.setEffect(2, delay);
    chain.setEffect(4, Effect("chorus", "Chorus", {1}));
    EXPECT_EQ(chain.slotCount(), 5u);
    EXPECT_TRUE(chain.effect(3).isEmpty());
    chain.swapEffects(2, 0);
    EXPECT_EQ(chain.effect(0), delay);
    EXPECT_TRUE(chain.effect(2).isEmpty());
    chain.removeEffect(4);
    EffectChain rebuilt;
    rebuilt.setEffect(0, delay);
    EXPECT_EQ(chain, rebuilt) << "empty slots at the end do not count";
    chain.setParameter(0, 1, 0.9f);
    EXPECT_NE(chain, rebuilt);
    chain.setParameter(0, 1, 0.2f);
    chain.setBypassed(0, true);
    EXPECT_NE(chain, rebuilt);

    EXPECT_THROW(chain.setParameter(0, 2, 0), CoreException);
    EXPECT_THROW(chain.setParameter(1, 0, 0), CoreException);
    EXPECT_THROW(chain.setParameter(0, 0, std::nanf("")), CoreException);
    EXPECT_THROW(chain.setEffect(EffectChain::maximumSlotCount, delay), CoreException);
    EXPECT_THROW(ZarnVolumePan(1.5f, 0), CoreException);
    EXPECT_THROW(ZarnVolumePan(1, std::nanf("")), CoreException);
}

TEST(Mastering, aNewOneHasTheReverbInItsSlot)
{
    const auto mastering = Mastering::makeDefault();
    EXPECT_EQ(mastering.effectChain().slotCount(), 4u);
    EXPECT_EQ(mastering.effectChain().effect(3).parameterCount(), 2u);
    EXPECT_EQ(mastering.effectChain().effect(3).parameter(0), 0.76f);
    EXPECT_EQ(mastering.effectChain().effect(3).parameter(1), 0.5f);
    auto dry = mastering;
    dry.mutableEffectChain().removeEffect(Mastering::reverbSlot);
    EXPECT_EQ(dry, Mastering());
    EXPECT_NE(dry, mastering);
}

} // namespace
