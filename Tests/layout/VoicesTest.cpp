// SPDX-License-Identifier: MIT
#include "support/LaidOut.h"
#include "support/ViolinPiece.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

using namespace zarn;
using layout::MarkKind;
using ::test::LaidOut;
using Piece = ::test::ViolinPiece;
using NoteValue = RhythmValue::NoteValue;

void turnStemsUp(Piece &piece)
{
    for (const auto &voice : piece.model->track(0)->bar(0)->voices())
        if (voice)
            for (const auto &beat : voice->beats())
                beat->setStemOrientation(ZarnStemOrientation::Upward);
}

/// Of a voice, one.
LaidOut::Mark markOf(const LaidOut &laid, MarkKind kind, int voice)
{
    for (const auto &mark : laid.of(kind))
        if (mark.place.voice == voice)
            return mark;
    ADD_FAILURE() << "The voice has no such mark.";
    return {};
}

} // namespace

/// Voices with the same stems and values are one chord: the upper note of a second is on the far
/// side of the stem, whoever sings it. What is longer has a stem of its own.
TEST(VoicesTest, voicesThatMoveTogetherShareTheirStem)
{
    for (const NoteValue second : {NoteValue::Half, NoteValue::Quarter}) {
        Piece piece;
        piece.add({67, 70}, NoteValue::Half);
        piece.add({65}, second, 0, 2);
        turnStemsUp(piece);
        const LaidOut laid(*piece.model);
        const auto upper = markOf(laid, MarkKind::Stem, 0);
        const auto lower = markOf(laid, MarkKind::Stem, 2);
        const auto heads = laid.of(MarkKind::NoteHead);
        ASSERT_EQ(heads.size(), 3U);
        EXPECT_EQ(std::abs(upper.left - lower.left) < 0.001, second == NoteValue::Half);
        if (second == NoteValue::Half) {
            EXPECT_GT(heads[0].left, lower.left - 0.001) << "g is on the far side";
            EXPECT_LT(heads[1].right, lower.right + 0.001);
            EXPECT_NEAR(heads[1].x, heads[2].x, 0.001) << "of f and b flat";
        }
    }
}

/// Three voices, each a step from the next one, are a chord too, not a staircase.
TEST(VoicesTest, aClusterOfVoicesHasOneStem)
{
    Piece piece;
    piece.add({70, 72}, NoteValue::Half);
    piece.add({67}, NoteValue::Half, 0, 1);
    piece.add({65}, NoteValue::Half, 0, 2);
    turnStemsUp(piece);
    const LaidOut laid(*piece.model);
    for (const auto &stem : laid.of(MarkKind::Stem))
        EXPECT_NEAR(stem.left, laid.of(MarkKind::Stem)[0].left, 0.001);
}

/// A small note leaves the column to the large one: in a unison it is not seen but for its stem,
/// else it is the one that steps aside.
TEST(VoicesTest, cuesGiveWay)
{
    for (const int key : {72, 71, 74}) {
        for (const unsigned cue : {0U, 1U}) {
            Piece piece;
            piece.add({72}, NoteValue::Quarter, 0, 1 - cue);
            piece.add({key}, NoteValue::Quarter, 0, cue).setCue(true);
            const LaidOut laid(*piece.model);
            const auto small = markOf(laid, MarkKind::NoteHead, static_cast<int>(cue));
            const auto large = markOf(laid, MarkKind::NoteHead, static_cast<int>(1 - cue));
            const auto stem = markOf(laid, MarkKind::Stem, static_cast<int>(cue));
            EXPECT_LE(large.left, small.left + 0.001) << key;
            if (key == 72) {
                EXPECT_LE(small.right, large.right + 0.001);
                EXPECT_NEAR(cue == 0 ? stem.right : stem.left, cue == 0 ? large.right : large.left,
                            0.01);
            }
        }
    }
}

/// Two notes of one name share their head, c and c sharp cannot.
TEST(VoicesTest, onlyWhatIsTheSameNoteSharesAHead)
{
    for (const int key : {72, 73}) {
        Piece piece;
        piece.add({72}, NoteValue::Quarter);
        piece.add({key}, NoteValue::Quarter, 0, 1);
        const auto heads = LaidOut(*piece.model).of(MarkKind::NoteHead);
        ASSERT_EQ(heads.size(), 2U);
        EXPECT_EQ(std::abs(heads[0].left - heads[1].left) < 0.001, key == 72);
    }
}

/// A chord shares the head that another voice sings too, be it of two voices itself.
TEST(VoicesTest, chordsShareTheHeadThatAnotherVoiceHas)
{
    for (const unsigned voice : {1U, 3U}) {
        Piece piece;
        piece.add({74}, NoteValue::Half);
        piece.add({74}, NoteValue::Half, 0, 1);
        if (voice == 1)
            piece.model->track(0)->bar(0)->voice(1)->beats()[0]->addNote(
                std::make_shared<Note>(65));
        else
            piece.add({65}, NoteValue::Half, 0, voice);
        const auto heads = LaidOut(*piece.model).of(MarkKind::NoteHead);
        ASSERT_EQ(heads.size(), 3U);
        for (const auto &head : heads)
            EXPECT_NEAR(head.left, heads[0].left, 0.001) << voice;
    }
}

/// A note between two of another voice keeps off their stem, and one without a stem off any, unless
/// all are of one value.
TEST(VoicesTest, aNoteInsideAnotherChordStandsBesideItsStem)
{
    for (const NoteValue value : {NoteValue::Half, NoteValue::Quarter}) {
        Piece piece;
        piece.add({62, 69}, NoteValue::Quarter);
        piece.add({65}, value, 0, 1);
        const LaidOut laid(*piece.model);
        EXPECT_EQ(markOf(laid, MarkKind::NoteHead, 1).left
                      > markOf(laid, MarkKind::Stem, 0).right - 0.001,
                  value == NoteValue::Half);
    }
    Piece piece;
    piece.add({64}, NoteValue::Whole);
    piece.add({67}, NoteValue::Half, 0, 1);
    const LaidOut laid(*piece.model);
    EXPECT_GT(markOf(laid, MarkKind::Stem, 1).left,
              markOf(laid, MarkKind::NoteHead, 0).right - 0.5);
}

/// Dots stand at their own heads: what has been pushed aside far below them does not push them.
TEST(VoicesTest, dotsStandAtTheirOwnHeads)
{
    Piece piece;
    piece.add({74}, NoteValue::Whole, 1);
    piece.add({65}, NoteValue::Half, 0, 1);
    piece.add({59}, NoteValue::Whole, 0, 2);
    const LaidOut laid(*piece.model);
    const auto dot = markOf(laid, MarkKind::AugmentationDot, 0);
    const auto head = markOf(laid, MarkKind::NoteHead, 0);
    EXPECT_GT(markOf(laid, MarkKind::NoteHead, 1).right, head.right + 0.5) << "is pushed aside";
    EXPECT_LT(dot.left - head.right, 0.5);
}

/// Nothing is written in an empty bar, so a rest is drawn; what somebody hid is not drawn.
TEST(VoicesTest, hiddenRestsLeaveTheirBarBlank)
{
    Piece piece(3);
    piece.add({}, NoteValue::Whole, 0, 0, 1).setPlaceHolder(true);
    piece.add({72}, NoteValue::Whole, 0, 0, 2).notes()[0]->setHidden(true);
    const auto rests = LaidOut(*piece.model).of(MarkKind::Rest);
    ASSERT_EQ(rests.size(), 1U);
    EXPECT_EQ(rests[0].place.bar, 0);
}

/// Beside a voice that rests for the whole bar, articulations keep to the side of their own.
TEST(VoicesTest, articulationsKeepOffTheRestOfAnotherVoice)
{
    Piece piece;
    piece.add({72}, NoteValue::Half).notes()[0]->setAccents(AccentFlag::Accent);
    piece.add({}, NoteValue::Whole, 0, 1).setWholeBarRest(true);
    const LaidOut laid(*piece.model);
    const auto accents = laid.of(MarkKind::Articulation);
    ASSERT_EQ(accents.size(), 1U);
    EXPECT_LT(accents[0].bottom, laid.of(MarkKind::Stem)[0].top);
}
