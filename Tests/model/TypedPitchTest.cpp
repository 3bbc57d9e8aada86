// SPDX-License-Identifier: MIT
#include "support/SmallScore.h"

#include <ZarnCore/model/notes/ZarnTypedPitch.h>

#include <gtest/gtest.h>

namespace {

using namespace zarn;

TEST(TypedPitchTest, lettersAreAlteredByTheKeyAndNearTheNoteInFront)
{
    SmallScore small;
    ScoreModel &model = *small.score.scoreModel();
    const auto typed = [&](int bar, int beat, NoteName letter, int track = 0) {
        return typedPitch(small.at(bar, beat, track), letter);
    };
    using Letter = NoteName::Value;
    // In front of beat 1 the highest string was struck: an e'' as it is written.
    EXPECT_EQ(typed(1, 1, Letter::F)->midi, 77);
    EXPECT_EQ(typed(1, 1, Letter::B)->midi, 71);
    small.score.setMasterKeySignature(0, 5, KeySignature(3));
    EXPECT_EQ(typed(1, 1, Letter::F)->midi, 78);
    EXPECT_EQ(typed(1, 1, Letter::F)->spelling.toString(), QStringLiteral("F#"));
    small.score.setMasterKeySignature(0, 5, KeySignature(-7));
    EXPECT_EQ(typed(1, 1, Letter::C)->midi, 71) << "C flat, whose octave is the next one";

    // With nothing in front the middle line counts.
    SmallScore empty;
    Score &score = empty.score;
    score.removeTrack(0);
    score.setMasterKeySignature(0, 5, KeySignature(0));
    ScoreModelIndex first(score.scoreModel().get(), 0, 0, 0, 1, 0);
    score.setClef(0, 0, 0, 5, ClefType::G2);
    EXPECT_EQ(typedPitch(first, Letter::C)->midi, 72);
    score.setClef(0, 0, 0, 5, ClefType::F4);
    EXPECT_EQ(typedPitch(first, Letter::C)->midi, 48);

    EXPECT_FALSE(typedPitch(small.at(99, 0), Letter::C).has_value());
    EXPECT_FALSE(typedPitch(small.at(0, 0), Letter::Invalid).has_value());
    EXPECT_GT(model.trackCount(), 0u);
}

} // namespace
