// SPDX-License-Identifier: MIT
#include "support/CommandLaw.h"
#include "support/SmallScore.h"

#include <ZarnCore/model/ZarnModelCheck.h>
#include <ZarnCore/model/clip/ZarnClip.h>

#include <gtest/gtest.h>

using namespace zarn;

namespace {

/// What is marked at its ends alone: pedals, lines behind words, numbered slurs, words of lyrics.
struct SpanCommandsTest : testing::Test {
    SmallScore small;
    Score &score = small.score;

    Beat &beat(unsigned bar, unsigned number) { return small.beat(bar, number); }
    ScoreModelRange one(int bar, int number) { return small.from(bar, number, bar, number); }
    void sing(unsigned bar, unsigned number, const char *text, Syllabic syllabic,
              bool isHeld = false)
    {
        beat(bar, number).setLyrics({{0, syllabic, isHeld, text}});
    }

    /// The signs of the beats of the first bars of the guitar, one bar behind the other: "[" a
    /// pedal goes down, "^" changes, "]" is lifted; "<" ">" a line behind words; "(" ")" a slur;
    /// syllables with their hyphens, and "_" where one is held.
    std::string signs()
    {
        std::string text;
        for (unsigned bar = 0; bar < small.model.masterTrack()->masterBarCount(); ++bar) {
            if (const auto &voice = small.model.track(0)->bar(bar)->voices()[0])
                for (const auto &beat : voice->beats())
                    addSigns(*beat, text);
            text += '|';
        }
        return text.substr(0, text.find_last_not_of('|') + 1);
    }

    /// Does it under the law of all commands, and leaves it done.
    std::string after(const char *what, const std::function<bool()> &act)
    {
        SCOPED_TRACE(what);
        expectUndoable(score, act);
        score.commandStack().redo();
        EXPECT_EQ(checkModel(small.model), std::vector<std::string>());
        return signs();
    }
    std::string afterAndBack(const char *what, const std::function<bool()> &act)
    {
        const std::string found = after(what, act);
        score.commandStack().undo();
        return found;
    }

private:
    static void addSigns(const Beat &beat, std::string &text)
    {
        const std::string pedals = "[^]";
        if (beat.pedal() != PedalChange::None)
            text += pedals[static_cast<std::size_t>(beat.pedal()) - 1];
        for (const SlurEnd &end : beat.slurEnds())
            text += end.isBegin ? '(' : ')';
        if (beat.textSpan() != TextSpan::None)
            text += "<>_"[static_cast<std::size_t>(beat.textSpan()) - 1];
        for (const Syllable &syllable : beat.lyrics()) {
            const bool isWithin =
                syllable.syllabic == Syllabic::Middle || syllable.syllabic == Syllabic::End;
            const bool goesOn =
                syllable.syllabic == Syllabic::Begin || syllable.syllabic == Syllabic::Middle;
            text += (isWithin ? "-" : "") + syllable.text + (syllable.hasMelisma ? "_" : "")
                + (goesOn ? "-" : "");
        }
        text += '.';
    }
};

} // namespace

TEST_F(SpanCommandsTest, anEndThatGoesTakesTheOtherAlong)
{
    beat(0, 1).setPedal(PedalChange::Start);
    beat(1, 2).setPedal(PedalChange::Change);
    beat(2, 3).setPedal(PedalChange::Stop);
    beat(0, 3).setTextSpan(TextSpan::Begin);
    beat(2, 0).setTextSpan(TextSpan::End);
    beat(1, 1).setSlurEnds({{1, true}});
    beat(2, 1).setSlurEnds({{1, false}});
    ASSERT_EQ(signs(), ".[..<.|.(.^..|>.)..].|....|....");
    const auto remove = [&](int bar, int number) {
        return afterAndBack("removed", [&] { return score.removeBeats(one(bar, number)); });
    };
    EXPECT_EQ(remove(0, 1), "..<.|.(.[..|>.)..].|....|....");
    EXPECT_EQ(remove(1, 2), ".[..<.|.(..|>.)..].|....|....");
    EXPECT_EQ(remove(2, 3), ".[..<.|.(.]..|>.)..|....|....");
    EXPECT_EQ(remove(0, 3), ".[..|.(.^..|.)..].|....|....");
    EXPECT_EQ(remove(2, 0), ".[...|.(.^..|)..].|....|....");
    EXPECT_EQ(remove(1, 1), ".[..<.|.^..|>...].|....|....");
    EXPECT_EQ(afterAndBack("a bar", [&] { return score.removeBarRange(1, 1); }),
              ".[..<.|>...].|....|....");
    EXPECT_EQ(afterAndBack("cleared", [&] { return score.clearBeats(one(2, 3)); }),
              ".[..<.|.(.]..|>.)...|....|....");
    EXPECT_EQ(afterAndBack("the last bars", [&] { return score.removeBarRange(2, 4); }),
              ".[...|..]..");
}

/// Of pedals the order in time counts, whatever voice they stand in: other lengths change it.
TEST_F(SpanCommandsTest, pedalsOfTwoVoicesFollowEachOtherInTime)
{
    Voice &second = *small.model.track(0)->bar(1)->ensureVoice(1);
    for (int i = 0; i < 4; ++i)
        second.addBeat(std::make_shared<Beat>());
    beat(1, 1).setPedal(PedalChange::Start);
    second.beat(2)->setPedal(PedalChange::Stop);
    EXPECT_EQ(afterAndBack("shorter",
                           [&] {
                               return score.setBeatRhythm(
                                   {small.at(1, 0, 0, 1), small.at(1, 1, 0, 1),
                                    SelectionMode::MultiSelection},
                                   RhythmValue(RhythmValue::NoteValue::Sixteenth));
                           }),
              "....|....|....|....|....");
    EXPECT_EQ(second.beat(2)->pedal(), PedalChange::Stop);
    const auto lengthen = [&](const ScoreModelRange &range) {
        return afterAndBack("longer", [&] {
            return score.setBeatRhythm(range, RhythmValue(RhythmValue::NoteValue::Whole));
        });
    };
    EXPECT_EQ(lengthen(one(1, 0)), "....|....|....|....|....");
    EXPECT_EQ(lengthen(ScoreModelRange(small.at(1, 0, 0, 1))), "....|.[...|....|....|....");
    EXPECT_EQ(afterAndBack("moved",
                           [&] {
                               return score.removeBeats({small.at(1, 2, 0, 1), small.at(1, 2, 0, 1),
                                                         SelectionMode::MultiSelection});
                           }),
              "....|....|....|....|....");
}

TEST_F(SpanCommandsTest, wordsCloseWhereSyllablesGo)
{
    sing(0, 0, "Hal", Syllabic::Begin);
    sing(0, 1, "le", Syllabic::Middle);
    sing(0, 3, "lu", Syllabic::Middle, true);
    sing(1, 1, "jah", Syllabic::End, true);
    sing(2, 0, "sing", Syllabic::Single);
    const auto remove = [&](int bar, int number, int lastBar, int last) {
        return afterAndBack(
            "removed", [&] { return score.removeBeats(small.from(bar, number, lastBar, last)); });
    };
    EXPECT_EQ(remove(0, 0, 0, 0), "le-..-lu_-.|.-jah_...|sing....|....|....");
    EXPECT_EQ(remove(0, 1, 0, 1), "Hal-..-lu_-.|.-jah_...|sing....|....|....");
    EXPECT_EQ(remove(1, 1, 1, 1), "Hal-.-le-..-lu_.|...|sing....|....|....");
    EXPECT_EQ(remove(1, 2, 1, 3), "Hal-.-le-..-lu_-.|.-jah.|sing....|....|....");
    EXPECT_EQ(remove(1, 0, 4, 3), "Hal-.-le-..-lu_.");
    EXPECT_EQ(afterAndBack("pasted between",
                           [&] {
                               const Clip clip = copyOfBeats(small.model, one(2, 0));
                               return score.pasteBeatRange(clip, small.at(0, 1), 1,
                                                           PasteMode::Insert);
                           }),
              "Hal.sing.le-..-lu_-.|.-jah_...|sing....|....|....");
}

/// Copies bring whole spans along, and halves of them nowhere.
TEST_F(SpanCommandsTest, pastedHalvesAreClosed)
{
    beat(0, 1).setPedal(PedalChange::Start);
    beat(0, 3).setPedal(PedalChange::Stop);
    beat(0, 1).setTextSpan(TextSpan::Begin);
    beat(0, 3).setTextSpan(TextSpan::End);
    const auto paste = [&](int first, int last, int bar) {
        const Clip clip = copyOfBeats(small.model, small.from(0, first, 0, last));
        return afterAndBack("pasted", [&] {
            return score.pasteBeatRange(clip, small.at(bar, 0), 1, PasteMode::Replace);
        });
    };
    EXPECT_EQ(paste(0, 3, 2), ".[<..]>.|....|.[<..]>.|....|....");
    EXPECT_EQ(paste(0, 1, 2), ".[<..]>.|....|....|....|....");
    EXPECT_EQ(paste(2, 3, 2), ".[<..]>.|....|....|....|....");
}

/// Given to a range, the first beat begins and the last one ends; one beat alone is led to the
/// next.
TEST_F(SpanCommandsTest, spansAreGivenToRanges)
{
    const auto give = [&](const ScoreModelRange &range, BeatAttribute id, AttributeValue value) {
        return [this, range, id, value] { return score.setBeatAttribute(range, id, value); };
    };
    const auto range = small.from(0, 1, 1, 2);
    EXPECT_EQ(afterAndBack("pedal", give(range, BeatAttribute::Pedal, PedalChange::Start)),
              ".[...|..]..|....|....|....");
    EXPECT_EQ(afterAndBack("line", give(range, BeatAttribute::TextSpan, TextSpan::Begin)),
              ".<...|..>..|....|....|....");
    EXPECT_EQ(afterAndBack("below", give(range, BeatAttribute::TextSpan, TextSpan::BeginBelow)),
              "._...|..>..|....|....|....");
    EXPECT_EQ(afterAndBack("slur", give(range, BeatAttribute::SlurEnds, SlurEnds{{4, true}})),
              ".(...|..)..|....|....|....");
    EXPECT_EQ(after("one", give(one(1, 3), BeatAttribute::TextSpan, TextSpan::Begin)),
              "....|...<.|>....|....|....");
    EXPECT_EQ(afterAndBack("no end", give(one(2, 0), BeatAttribute::TextSpan, TextSpan::None)),
              "....|....|....|....|....");
    // What would end nothing does nothing.
    EXPECT_TRUE(give(one(1, 1), BeatAttribute::TextSpan, TextSpan::End)());
    EXPECT_EQ(signs(), "....|...<.|>....|....|....");
    EXPECT_EQ(after("held", give(one(3, 1), BeatAttribute::Pedal, PedalChange::Start)),
              "....|...<.|>....|.[...|....");
    EXPECT_EQ(after("in front", give(one(1, 0), BeatAttribute::Pedal, PedalChange::Start)),
              "....|[...<.|>....|.^...|....");
    EXPECT_EQ(after("lifted", give(one(2, 1), BeatAttribute::Pedal, PedalChange::Stop)),
              "....|[...<.|>.]...|.[...|....");
    EXPECT_TRUE(give(one(2, 3), BeatAttribute::Pedal, PedalChange::Stop)());
    EXPECT_EQ(signs(), "....|[...<.|>.]...|.[...|....");
    EXPECT_EQ(after("taken off", give(one(1, 0), BeatAttribute::Pedal, PedalChange::None)),
              "....|...<.|>....|.[...|....");
}

/// Numbered slurs lead to other staves: they go with them, and with columns.
TEST_F(SpanCommandsTest, slursBetweenStavesGoWithEitherStaff)
{
    const auto track = small.model.track(1);
    track->setStaffCount(2);
    Voice &lower = *track->staves()[1]->bars()[2]->ensureVoice(0);
    lower.addBeat(std::make_shared<Beat>(RhythmValue(RhythmValue::NoteValue::Whole)));
    Beat &upper = *track->bar(1)->voice(2)->beats()[0];
    upper.setSlurEnds({{2, true}});
    lower.beats()[0]->setSlurEnds({{2, false}});
    ASSERT_EQ(checkModel(small.model), std::vector<std::string>());
    afterAndBack("staff", [&] { return score.setStaffCount(1, 1); });
    EXPECT_EQ(upper.slurEnds().size(), 1U);
    after("column", [&] { return score.removeBarRange(2, 2); });
    EXPECT_TRUE(upper.slurEnds().empty());
}
