// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnCoreUtils.h>

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

#include <gtest/gtest.h>

using namespace zarn;

TEST(CoreUtils, aScoreFromTextIsReadyToBeEdited)
{
    const auto score = ZarnCoreUtils::make_from_string("guitar 3/4: 6:3q 5:2e 5:0e | [4:0 3:0]h.");
    EXPECT_EQ(score->scoreModel()->parentScore(), score.get());
    EXPECT_FALSE(score->commandStack().undoAvailable());
    EXPECT_TRUE(score->createBars(1, 2));
    EXPECT_EQ(score->track(0)->barCount(), 4u);
    score->commandStack().undo();
    EXPECT_EQ(score->track(0)->barCount(), 2u);
    EXPECT_THROW(ZarnCoreUtils::make_from_string("guitar: 9:9"), CoreException);
}

TEST(CoreUtils, signaturesAndClefsGoToTheBarsOfTheRangeAlone)
{
    const auto score = ZarnCoreUtils::make_from_string("voice: r | r | r | r");
    const auto &master = score->masterTrack()->masterBars();
    const auto &bars = score->track(0)->bars(0);
    ZarnCoreUtils::set_time_signature(master.begin() + 1, master.begin() + 3, TimeSignature(6, 8));
    ZarnCoreUtils::set_key_signature(master.begin() + 1, master.begin() + 3, KeySignature(-2));
    ZarnCoreUtils::set_clef(bars.begin() + 1, bars.begin() + 3, ClefType::F4);
    ZarnCoreUtils::set_clef(bars.begin(), bars.begin(), ClefType::C4);
    for (unsigned i = 0; i < 4; ++i) {
        const bool isInside = i == 1 || i == 2;
        EXPECT_EQ(master[i]->timeSignature(), isInside ? TimeSignature(6, 8) : TimeSignature());
        EXPECT_EQ(master[i]->concertKeySignature().accidentalCount(), isInside ? -2 : 0);
        EXPECT_EQ(bars[i]->clef(), isInside ? ClefType::F4 : ClefType::G2);
    }
}
