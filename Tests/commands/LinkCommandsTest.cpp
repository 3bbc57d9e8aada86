// SPDX-License-Identifier: MIT
#include "support/CommandLaw.h"
#include "support/SmallScore.h"

#include <ZarnCore/model/ZarnModelCheck.h>

#include <gtest/gtest.h>

using namespace zarn;

namespace {

struct LinkCommandsTest : testing::Test {
    SmallScore small;
    Score &score = small.score;

    Beat &beat(unsigned bar, unsigned number) { return small.beat(bar, number); }
    const Voice &voice(unsigned bar) { return *small.model.track(0)->bar(bar)->voice(0); }
    ScoreModelRange one(int bar, int number) { return small.from(bar, number, bar, number); }
    ScoreModelRange onString(int bar, int number, unsigned string)
    {
        return ScoreModelRange(small.onString(bar, number, string));
    }

    /// Other notes for the first bar: string, fret, pitch by the fret; no string for a rest.
    void write(std::initializer_list<std::pair<int, int>> notes)
    {
        Voice &first = *small.model.track(0)->bar(0)->voice(0);
        first.clear();
        for (const auto &[string, fret] : notes) {
            first.addBeat(std::make_shared<Beat>());
            if (string < 0)
                continue;
            auto note = std::make_shared<Note>(40 + 5 * string + fret);
            note->setString(string);
            note->setFret(fret);
            first.beats().back()->addNote(note);
        }
    }

    /// The slurs of the beats of a bar: "(" begins, ")" ends, "-" goes on, "x" ends and begins.
    std::string slurs(unsigned bar)
    {
        std::string text;
        for (const auto &beat : voice(bar).beats()) {
            const bool in = beat->isSlurredToPrevious();
            const bool out = beat->isSlurredToNext();
            text += in && out ? (beat->beginsSlur() ? "x" : "-") : in ? ")" : out ? "(" : ".";
        }
        return text;
    }
    std::string hairpins(unsigned bar)
    {
        std::string text;
        for (const auto &beat : voice(bar).beats())
            text += std::string(beat->beginsHairpin() ? "|" : "") + ".<>o"[int(beat->hairpin())];
        return text;
    }

    /// Does it under the law of all commands, and leaves it done.
    void expectDone(const char *what, const std::function<bool()> &act)
    {
        SCOPED_TRACE(what);
        expectUndoable(score, act);
        score.commandStack().redo();
    }
};

} // namespace

TEST_F(LinkCommandsTest, slursMeetAndMerge)
{
    write({{0, 0}, {0, 2}, {0, 3}, {0, 5}, {0, 7}, {0, 8}});
    expectDone("a", [&] { return score.setBeatLegato(small.from(0, 0, 0, 2), true); });
    expectDone("b", [&] { return score.setBeatLegato(small.from(0, 2, 0, 4), true); });
    EXPECT_EQ(slurs(0), "(-x-).");
    expectDone("over both", [&] { return score.setBeatLegato(small.from(0, 1, 0, 3), true); });
    EXPECT_EQ(slurs(0), "(x-x).");
    expectDone("all", [&] { return score.setBeatLegato(small.from(0, 0, 0, 5), true); });
    EXPECT_EQ(slurs(0), "(----)");
    expectDone("cut", [&] { return score.setBeatLegato(small.from(0, 2, 0, 2), false); });
    EXPECT_EQ(slurs(0), "().(-)");
    expectDone("one to the next", [&] { return score.setBeatLegato(one(0, 1), true); });
    EXPECT_EQ(slurs(0), "(x)(-)");
}

/// What is under no slur takes no look of one, and loses it with the slur.
TEST_F(LinkCommandsTest, theLookOfASlurGoesWithIt)
{
    write({{0, 0}, {0, 2}, {0, 3}, {0, 5}});
    ASSERT_TRUE(score.setBeatLegato(small.from(0, 0, 0, 2), true));
    const ScoreModelRange all = small.from(0, 0, 0, 3);
    expectDone("line", [&] {
        return score.setBeatAttribute(all, BeatAttribute::SlurLine, SlurLine::Dashed);
    });
    expectDone("side", [&] {
        return score.setBeatAttribute(all, BeatAttribute::SlurSide, SlurSide::Below);
    });
    for (unsigned i = 0; i < 4; ++i) {
        EXPECT_EQ(beat(0, i).slurLine(), i < 3 ? SlurLine::Dashed : SlurLine::Solid) << i;
        EXPECT_EQ(beat(0, i).slurSide(), i < 3 ? SlurSide::Below : SlurSide::Auto) << i;
    }
    expectDone("gone", [&] { return score.setBeatLegato(small.from(0, 0, 0, 2), false); });
    for (unsigned i = 0; i < 4; ++i) {
        EXPECT_EQ(beat(0, i).slurLine(), SlurLine::Solid) << i;
        EXPECT_EQ(beat(0, i).slurSide(), SlurSide::Auto) << i;
    }
}

/// What beats came into or went from the midst of goes on; what met there stays apart.
TEST_F(LinkCommandsTest, slursAndHairpinsOutliveTheBeatsInTheirMidst)
{
    write({{0, 0}, {0, 2}, {0, 3}, {0, 5}, {0, 7}, {0, 8}});
    ASSERT_TRUE(score.setBeatLegato(small.from(0, 0, 0, 2), true));
    ASSERT_TRUE(score.setBeatLegato(small.from(0, 3, 0, 5), true));
    ASSERT_TRUE(score.setBeatHairpin(small.from(0, 0, 0, 2), Hairpin::Crescendo));
    ASSERT_TRUE(score.setBeatHairpin(small.from(0, 3, 0, 5), Hairpin::Crescendo));
    EXPECT_EQ(hairpins(0), "<<<|<<<");
    const RhythmValue quarter;
    expectDone("in", [&] { return score.createBeat(small.at(0, 1), quarter); });
    EXPECT_EQ(slurs(0), "(--)(-)");
    EXPECT_EQ(hairpins(0), "<<<<|<<<");
    expectDone("between", [&] { return score.createBeat(small.at(0, 4), quarter); });
    EXPECT_EQ(slurs(0), "(--).(-)");
    EXPECT_EQ(hairpins(0), "<<<<.|<<<");
    expectDone("out", [&] { return score.removeBeats(small.from(0, 2, 0, 2)); });
    EXPECT_EQ(slurs(0), "(-).(-)");
    expectDone("the ends that met", [&] { return score.removeBeats(small.from(0, 2, 0, 4)); });
    EXPECT_EQ(slurs(0), "()()");
    EXPECT_EQ(hairpins(0), "<<|<<");
}

TEST_F(LinkCommandsTest, barsThatComeAndGoKeepSlursApart)
{
    ASSERT_TRUE(score.setBeatLegato(small.from(1, 0, 2, 1), true));
    ASSERT_TRUE(score.setBeatLegato(small.from(2, 3, 4, 0), true));
    expectDone("two of them", [&] { return score.removeBarRange(2, 2); });
    EXPECT_EQ(slurs(1) + slurs(2), "(--)(---");
    score.commandStack().undo();
    expectDone("one of them", [&] { return score.removeBarRange(3, 3); });
    EXPECT_EQ(slurs(2) + slurs(3), "-).()...");
    expectDone("parted", [&] { return score.createBars(2, 1); });
    EXPECT_EQ(slurs(1) + slurs(3), "(--)().(");
}

/// A slur beside the outermost one goes with either of its ends, wherever the other one is.
TEST_F(LinkCommandsTest, numberedSlursGoWithTheirEnds)
{
    const SlurEnds begin = {{3, true}};
    const SlurEnds end = {{2, false}, {3, false}};
    beat(1, 1).setSlurEnds(begin);
    beat(3, 1).setSlurEnds(end);
    beat(0, 1).setSlurEnds({{2, true}});
    for (const auto &cut :
         std::vector<std::function<bool()>>{[&] { return score.removeBeats(one(1, 1)); },
                                            [&] { return score.clearBeats(one(1, 1)); },
                                            [&] { return score.removeBarRange(1, 1); }}) {
        expectDone("begin", cut);
        const unsigned bar = small.model.masterTrack()->masterBarCount() == 6 ? 3 : 2;
        EXPECT_EQ(beat(bar, 1).slurEnds(), (SlurEnds{{2, false}}));
        score.commandStack().undo();
    }
    expectDone("end", [&] { return score.removeBarRange(2, 3); });
    EXPECT_FALSE(beat(1, 1).hasDetails());
    score.commandStack().undo();
    EXPECT_EQ(beat(3, 1).slurEnds(), end);
    expectDone("marks stay", [&] { return score.setNoteRest(one(3, 1)); });
    EXPECT_EQ(beat(1, 1).slurEnds(), begin);
}

/// Bars that are emptied at once leave no half of a tie in front of them or behind.
TEST_F(LinkCommandsTest, tiesAreCutAroundBarsThatAreEmptiedTogether)
{
    ASSERT_TRUE(beat(0, 3).notes()[0]->isTieOrigin() && beat(3, 0).notes()[0]->isTied());
    const auto isAnyLeft = [&] {
        return beat(0, 3).notes()[0]->isTieOrigin() || beat(3, 0).notes()[0]->isTied();
    };
    for (const auto &[what, act] : std::vector<std::pair<const char *, std::function<bool()>>>{
             {"removed", [&] { return score.removeBeats(small.from(1, 0, 2, 3)); }},
             {"cleared", [&] { return score.clearBeats(small.from(1, 0, 2, 3)); }},
             {"rests", [&] { return score.setNoteRest(small.from(1, 0, 2, 3)); }}}) {
        expectDone(what, act);
        EXPECT_FALSE(isAnyLeft()) << what;
        score.commandStack().undo();
    }
}

/// Rests are filled, over bar lines too, and what is struck is not struck again.
TEST_F(LinkCommandsTest, beatsAreTiedInAChain)
{
    write({{1, 3}, {1, 5}, {-1, 0}});
    Voice &second = *small.model.track(0)->bar(1)->voice(0);
    second.clear();
    second.addBeat(std::make_shared<Beat>(RhythmValue(RhythmValue::NoteValue::Whole)));
    second.beats()[0]->setWholeBarRest(true);
    small.model.masterTrack()->masterBars()[1]->setTimeSignature({5, 4});
    Note &held = *beat(0, 1).notes()[0];
    held.setAccents(AccentFlags(AccentFlag::Accent));
    held.setVibrato(Vibrato::Wide);
    held.setBend(Bend::of(BendType::Bend, 2));
    expectDone("tied", [&] { return score.setBeatTied(small.from(0, 1, 1, 0), true); });
    EXPECT_EQ(beat(0, 1).notes()[0]->fret(), 3);
    EXPECT_EQ(beat(0, 1).notes()[0]->midi(), 48);
    EXPECT_TRUE(beat(0, 1).notes()[0]->isTied() && beat(0, 0).notes()[0]->isTieOrigin());
    EXPECT_TRUE(beat(0, 1).notes()[0]->accents().has(AccentFlag::Accent)); // idle, kept
    EXPECT_FALSE(beat(0, 2).notes()[0]->accents().has(AccentFlag::Accent));
    EXPECT_EQ(beat(0, 2).notes()[0]->vibrato(), Vibrato::Wide);
    EXPECT_EQ(beat(0, 2).notes()[0]->bend(), Bend::of(BendType::HoldBend, 2));
    ASSERT_EQ(voice(1).beatCount(), 2U);
    EXPECT_EQ(voice(1).length(), utils::rational(5));
    for (const auto &filled : voice(1).beats())
        EXPECT_TRUE(filled->notes()[0]->isTied());
    EXPECT_FALSE(beat(1, 1).notes()[0]->isTieOrigin());
    expectDone("untied", [&] { return score.setBeatTied(one(0, 2), false); });
    EXPECT_FALSE(beat(0, 1).notes()[0]->isTieOrigin());
    EXPECT_TRUE(beat(0, 2).notes()[0]->isTieOrigin());
}

TEST_F(LinkCommandsTest, oneStringIsTiedAndTheOthersAreLeft)
{
    expectDone("held", [&] { return score.setNoteTied(onString(0, 2, 2), true); });
    ASSERT_EQ(beat(0, 2).noteCount(), 1U);
    EXPECT_EQ(beat(0, 2).notes()[0]->string(), 2);
    EXPECT_TRUE(beat(0, 1).notes()[1]->isTieOrigin());
    EXPECT_FALSE(beat(0, 1).notes()[0]->isTieOrigin());
    EXPECT_FALSE(score.setNoteTied(small.from(0, 3, 0, 3), true)); // no rest is filled, nothing met
}

/// A tie that is cut lets a bend that went on from it begin bent.
TEST_F(LinkCommandsTest, aBendThatWasHeldIsStruckBent)
{
    beat(0, 3).notes()[0]->setBend(Bend::of(BendType::Bend));
    beat(1, 0).notes()[0]->setBend(Bend::of(BendType::Release));
    expectDone("rest", [&] { return score.setNoteRest(one(0, 3)); });
    EXPECT_EQ(beat(1, 0).notes()[0]->bend().type, BendType::PreBendNRelease);
    score.commandStack().undo();
    EXPECT_EQ(beat(1, 0).notes()[0]->bend().type, BendType::Release);
    expectDone("untied", [&] { return score.setNoteTiedOnly(onString(1, 0, 5), false); });
    EXPECT_EQ(beat(1, 0).notes()[0]->bend().type, BendType::PreBendNRelease);
}

/// The target is found, not stored: whatever happens to it, the note that leads there hears of it.
TEST_F(LinkCommandsTest, hammersAndSlidesLeadToTheNextNoteOfTheirString)
{
    write({{0, 3}, {1, 2}, {0, 5}, {1, 2}, {-1, 0}, {0, 7}});
    EXPECT_TRUE(score.setStringedNoteHopo(small.from(0, 0, 0, 5), true));
    Note &first = *beat(0, 0).notes()[0];
    EXPECT_TRUE(first.isHopo());
    EXPECT_FALSE(beat(0, 1).notes()[0]->isHopo()); // the same fret
    EXPECT_FALSE(beat(0, 2).notes()[0]->isHopo()); // a rest in between
    for (const auto &cut : std::vector<std::function<bool()>>{
             [&] { return score.removeBeats(small.from(0, 2, 0, 5)); },
             [&] { return score.createBeat(small.at(0, 1), RhythmValue()); },
             [&] { return score.setStringedNote(small.at(0, 1), 0, 3); },
             [&] { return score.setNoteRest(one(0, 1)); },
             [&] { return score.clearBeats(one(0, 2)); },
             [&] { return score.setBeatDeadSlapped(one(0, 2), true); }}) {
        expectDone("cut", cut);
        EXPECT_FALSE(first.isHopo());
        score.commandStack().undo();
        EXPECT_TRUE(first.isHopo());
    }
    EXPECT_TRUE(score.setStringedNoteSlide(one(0, 0), SlideIn::FromAbove, SlideOut::Legato));
    EXPECT_FALSE(first.isHopo());
    EXPECT_TRUE(score.setStringedNoteHopo(one(0, 0), true)); // alone, it leads out of the range
    EXPECT_EQ(first.slideOut(), SlideOut::None);
    EXPECT_EQ(first.slideIn(), SlideIn::FromAbove);
}

TEST_F(LinkCommandsTest, aLinkOverTheBarLineHearsOfBars)
{
    write({{5, 3}, {1, 2}});
    Note &last = *beat(0, 0).notes()[0];
    beat(1, 0).notes()[0]->setTied(false);
    ASSERT_TRUE(score.setStringedNoteHopo(one(0, 0), true));
    expectDone("a bar between", [&] { return score.createBars(1, 1); });
    EXPECT_FALSE(last.isHopo());
    score.commandStack().undo();
    EXPECT_TRUE(last.isHopo());
    const GuitarTuning tuning(std::vector<unsigned>{40, 45, 50, 55});
    expectDone("fewer strings",
               [&] { return score.setGuitarFullTuning(0, 0, tuning, 0, Retuning::KeepPitches); });
}

TEST_F(LinkCommandsTest, aBeatIsRepeatedUpToTheEndOfItsBar)
{
    small.model.masterTrack()->masterBars()[0]->setOwnLength(utils::rational(17, 4));
    beat(0, 1).setText("once");
    beat(0, 1).setCue(true);
    ASSERT_TRUE(score.setBeatLegato(small.from(0, 0, 1, 0), true));
    expectDone("copies", [&] { return score.copyBeatToEOB(small.at(0, 1)); });
    ASSERT_EQ(voice(0).beatCount(), 5U);
    EXPECT_EQ(voice(0).length(), utils::rational(17, 4));
    EXPECT_EQ(beat(0, 3).notes().size(), 2U);
    EXPECT_TRUE(beat(0, 2).text().empty());
    EXPECT_TRUE(beat(0, 2).isCue());
    EXPECT_TRUE(beat(0, 4).isRest());
    EXPECT_EQ(slurs(0) + slurs(1), "().......");
    small.model.masterTrack()->masterBars()[1]->setFreeTime(true);
    EXPECT_FALSE(score.copyBeatToEOB(small.at(1, 0)));
}

/// A slap takes the time of a rest that fills its bar, and is no rest itself.
TEST_F(LinkCommandsTest, slapsTakeThePlaceOfNotesAndRests)
{
    Voice &first = *small.model.track(0)->bar(0)->voice(0);
    first.clear();
    first.addBeat(std::make_shared<Beat>(RhythmValue(RhythmValue::NoteValue::Whole)));
    first.beats()[0]->setWholeBarRest(true);
    small.model.masterTrack()->masterBars()[0]->setTimeSignature({3, 4});
    expectDone("slap", [&] { return score.setBeatDeadSlapped(small.from(0, 0, 1, 1), true); });
    EXPECT_EQ(voice(0).length(), utils::rational(3));
    EXPECT_FALSE(beat(0, 0).isRest());
    EXPECT_FALSE(beat(1, 1).hasNotes());
    expectDone("rest", [&] { return score.setNoteRest(one(0, 0)); });
    EXPECT_TRUE(beat(0, 0).isRest());
    expectDone("off", [&] { return score.setBeatDeadSlapped(small.from(1, 0, 1, 3), false); });
    EXPECT_TRUE(beat(1, 1).isRest());
    EXPECT_TRUE(beat(1, 3).hasNotes());
}

TEST_F(LinkCommandsTest, clearedBeatsKeepTheirTimeAlone)
{
    beat(0, 0).setGraceType(GraceType::BeforeBeat);
    beat(0, 1).setText("gone");
    expectDone("clear", [&] { return score.clearBeats(small.from(0, 0, 0, 2)); });
    ASSERT_EQ(voice(0).beatCount(), 3U);
    EXPECT_FALSE(beat(0, 0).hasDetails());
    EXPECT_TRUE(beat(0, 1).isRest());
}

/// The check of models names a link that lacks its other end.
TEST_F(LinkCommandsTest, brokenLinksAreNamed)
{
    beat(0, 0).setSlurredToNext(true);
    beat(0, 0).setTremoloToNext(2);
    beat(0, 1).setTremoloToNext(2);
    beat(0, 3).setHairpinBegins(true);
    beat(4, 3).notes()[0]->setSlideOut(SlideOut::Shift);
    EXPECT_EQ(checkModel(small.model),
              (std::vector<std::string>{
                  "track 0 staff 0 bar 0 voice 0 beat 0: a slur that leads to no beat",
                  "track 0 staff 0 bar 0 voice 0 beat 1: a tremolo between two beats that lacks "
                  "the second",
                  "track 0 staff 0 bar 0 voice 0 beat 3: the begin of a hairpin where there is "
                  "none",
                  "track 0 staff 0 bar 4 voice 0 beat 3: a slide that leads to no note"}));
}
