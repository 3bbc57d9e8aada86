// SPDX-License-Identifier: MIT
#include "RichScore.h"

#include <ZarnCore/instruments/automations/ZarnDSPParamAutomation.h>

#include <gtest/gtest.h>

namespace {

using namespace rich;

struct SoundCommandsTest : testing::Test, RichScore {
    Track &keys = *model.track(1);

    /// The sound to which a track switches in bar 1.
    static const Sound &switchedTo(const Track &track)
    {
        const auto found = track.automations().automations(Automation::Sound, 1, 1);
        return *dynamic_cast<const SoundAutomation &>(*found.back()).sound();
    }
};

TEST_F(SoundCommandsTest, aForcedSoundIsFollowedWhereverItGoes)
{
    const auto forced = [this] {
        return keys.forcedSoundIndex() < 0
            ? std::string()
            : keys.sounds().at(static_cast<unsigned>(keys.forcedSoundIndex()))->name();
    };
    ASSERT_TRUE(score.addTrackSound(1, Sound("Vibes")));
    ASSERT_TRUE(score.removeTrackSound(1, 0));
    EXPECT_EQ(forced(), "Organ");
    ASSERT_TRUE(score.swapTrackSounds(1, 0, 1));
    EXPECT_EQ(forced(), "Organ");
    ASSERT_TRUE(score.removeTrackSound(1, 1));
    EXPECT_EQ(keys.forcedSoundIndex(), -1) << "the sound is gone";
    ASSERT_TRUE(score.removeTrackSound(1, 0));
    while (score.commandStack().undoAvailable()) {
        score.commandStack().undo();
        if (keys.forcedSoundIndex() >= 0) {
            EXPECT_EQ(forced(), "Organ");
        }
    }
    EXPECT_EQ(keys.forcedSoundIndex(), 1);
}

/// Sounds are shared: what one track changes is not heard in another.
TEST_F(SoundCommandsTest, effectsOfASharedSoundChangeInOneTrackAlone)
{
    const auto piano = keys.sounds()[0];
    ASSERT_TRUE(score.addTrackSound(0, piano));
    ASSERT_TRUE(score.deleteEffect(1, 0, 0));
    EXPECT_TRUE(keys.sounds()[0]->orkaSound().effectChain().effect(0).isEmpty());
    EXPECT_EQ(keys.sounds()[0]->orkaSound().effectChain().effect(2).name(), "Echo");
    EXPECT_EQ(model.track(0)->sounds()[0], piano);
    EXPECT_EQ(piano->orkaSound().effectChain().effect(0).name(), "EQ");
    EXPECT_EQ(&switchedTo(keys), keys.sounds()[0].get());
    score.commandStack().undo();
    EXPECT_EQ(keys.sounds()[0], piano) << "the very sound is back";
    EXPECT_EQ(&switchedTo(keys), piano.get());
}

/// Documents hold the sounds of the list and of automations apart; equal sounds of the list are two
/// sounds all the same.
TEST_F(SoundCommandsTest, automationsFollowTheSoundThatTheyMean)
{
    const auto twin = std::make_shared<const Sound>(*keys.sounds()[0]);
    ASSERT_TRUE(score.addTrackSound(1, twin));
    ASSERT_TRUE(score.setTrackSound(1, 2, Sound("Celesta")));
    EXPECT_EQ(switchedTo(keys).name(), "Piano") << "its twin was replaced";
    score.commandStack().undo();

    SoundAutomation apart(std::make_shared<const Sound>(*twin));
    apart.setIndex(1);
    apart.setPosition(2);
    ASSERT_TRUE(score.modifyTrackAutomations(1, {}, {&apart}));
    ASSERT_TRUE(score.setTrackSound(1, 2, Sound("Celesta")));
    EXPECT_EQ(switchedTo(keys).name(), "Piano") << "an equal sound means the first";
    score.commandStack().undo();
    ASSERT_TRUE(score.setTrackSound(1, 0, Sound("Celesta")));
    EXPECT_EQ(switchedTo(keys).name(), "Celesta");
}

TEST_F(SoundCommandsTest, automationsOfSeveralTracksChangeTogetherOrNotAtAll)
{
    const auto first = tempo(3, 90);
    DSPParamAutomation volume(Automation::DSPParam_00);
    const auto removed = keys.automations().automation(Automation::Sound, 1, 0);
    ASSERT_TRUE(score.modifyAutomations({{1, {removed}, {}}, {-1, {}, {&first}}}));
    EXPECT_EQ(keys.automations().automationCount(), 1U);

    const auto before = score.commandStack().undoCount();
    score.commandStack().beginMacroCommand();
    ASSERT_TRUE(score.removeTrack(1));
    ASSERT_TRUE(score.modifyAutomations({{0, {}, {&volume}}, {1, {}, {&volume}}}));
    EXPECT_THROW(score.commandStack().endMacroCommand(true), CoreException);
    EXPECT_FALSE(model.track(0)->automations().hasAutomations());
    EXPECT_EQ(score.commandStack().undoCount(), before);
}

TEST_F(SoundCommandsTest, stavesComeBackWithTheirMusic)
{
    const auto lower = keys.staff(1);
    ASSERT_TRUE(score.setStaffCount(1, 1));
    EXPECT_EQ(keys.staffCount(), 1U);
    score.commandStack().undo();
    EXPECT_EQ(keys.staff(1), lower);

    ASSERT_TRUE(score.setStaffCount(1, 3));
    const auto added = keys.staff(2);
    EXPECT_EQ(added->barCount(), 6U);
    score.commandStack().undo();
    score.commandStack().redo();
    EXPECT_EQ(keys.staff(2), added);
}

} // namespace
