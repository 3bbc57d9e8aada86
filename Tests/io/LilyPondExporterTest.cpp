// SPDX-License-Identifier: MIT
#include "Scores.h"

#include <support/RandomScore.h>

#include <ZarnCore/ZarnCoreUtils.h>
#include <ZarnCore/io/ZarnExportReport.h>
#include <ZarnCore/io/ZarnLilyPondExporter.h>
#include <ZarnCore/score/ZarnScore.h>

#include <gtest/gtest.h>

#include <memory>

namespace {

using namespace zarn;

std::string exported(const ScoreModel &model)
{
    io::ExportReport report;
    return io::LilyPondExporter().toText(model, report);
}

std::unique_ptr<Score> scoreOf(const char *notation)
{
    return ZarnCoreUtils::make_from_string(notation);
}

Beat &beatOf(const Score &score, unsigned bar, unsigned beat, unsigned voice = 0)
{
    return *score.scoreModel()->track(0)->bar(bar)->voice(voice)->beat(beat);
}

bool has(const std::string &text, const std::string &part)
{
    return text.find(part) != std::string::npos;
}

/// Braces and angle brackets that are left open, outside of strings and of signs such as "->".
int openBrackets(const std::string &text)
{
    int open = 0;
    bool isString = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\' && isString)
            ++i;
        else if (text[i] == '"')
            isString = !isString;
        else if (!isString && text[i] == '{')
            ++open;
        else if (!isString && text[i] == '}')
            --open;
        EXPECT_GE(open, 0) << text.substr(0, i);
        if (open < 0)
            break;
    }
    EXPECT_FALSE(isString);
    return open;
}

TEST(LilyPondExporter, writesPitchesAndLengths)
{
    const auto score = scoreOf("piano 3/4 key=Bb tempo=96: c4q. bb3e [eb4 f#5]q | rq rh & c3h. | "
                               "c5e/3 d5 e5 f5s/5:4 g5 a5 b5 c6 rq");
    const std::string text = exported(*score->scoreModel());
    EXPECT_TRUE(has(text, "c'4. bes8 <es' fis''>4 |")) << text;
    EXPECT_TRUE(has(text, "\\tuplet 3/2 { c''8 d''8 e''8 } ")) << text;
    EXPECT_TRUE(has(text, "\\tuplet 5/4 { f''16 g''16 a''16 b''16 c'''16 } ")) << text;
    EXPECT_TRUE(has(text, "\\key bes \\major")) << text;
    EXPECT_TRUE(has(text, "\\time 3/4 ")) << text;
    EXPECT_TRUE(has(text, "\\tempo 4 = 96")) << text;
}

TEST(LilyPondExporter, nestsTuplets)
{
    const auto score = scoreOf("piano: c5e/3 d5 e5 f5 g5");
    for (unsigned beat = 2; beat < 5; ++beat) {
        RhythmValue rhythm = beatOf(*score, 0, beat).rhythmValue();
        rhythm.setNoteValue(RhythmValue::NoteValue::Sixteenth);
        rhythm.setSecondaryTupletRatio({3, 2});
        beatOf(*score, 0, beat).setRhythmValue(rhythm);
    }
    const std::string text = exported(*score->scoreModel());
    EXPECT_TRUE(has(text, "\\tuplet 3/2 { c''8 d''8 \\tuplet 3/2 { e''16 f''16 g''16 } } "))
        << text;
}

/// Fretted music is entered as it sounds, so that the strings of the tablature lead to its frets.
TEST(LilyPondExporter, writesTablatureUnderNotes)
{
    const auto score = scoreOf("guitar capo=2: 6:3q [5:2 1:0]h 3:xq");
    const std::string text = exported(*score->scoreModel());
    EXPECT_TRUE(has(text, "a,4\\6")) << text;
    EXPECT_TRUE(has(text, "<cis\\5 fis'\\1>2")) << text;
    EXPECT_TRUE(has(text, "\\deadNote a4\\3")) << text;
    EXPECT_TRUE(has(text, "\\stringTuning <fis, b, e a cis' fis'>")) << text;
    EXPECT_TRUE(has(text, "\\clef \"treble_8\"")) << text;
    EXPECT_TRUE(has(text, "Capo II")) << text;

    beatOf(*score, 0, 0).note(0)->setLeftFingering(Fingering::Index);
    const std::string fingered = exported(*score->scoreModel());
    EXPECT_TRUE(has(fingered, "<a,-1\\6>4")) << fingered;
    EXPECT_TRUE(has(fingered, "fingeringOrientations = #'(left)")) << fingered;
}

/// LilyPond works frets out from strings and pitches, and draws none below a string.
TEST(LilyPondExporter, fretsThatDoNotSoundLikeTheirNotesAreSaid)
{
    const auto score = scoreOf("guitar: 6:3q 6:5q 5:2h");
    beatOf(*score, 0, 1).note(0)->setFret(8);
    const std::string higher = exported(*score->scoreModel());
    EXPECT_TRUE(has(higher, "g,4\\6 \\tweak TabNoteHead.text \"8\" a,4\\6 b,2\\5")) << higher;
    EXPECT_TRUE(has(higher, "\\stringTuning <e, a, d")) << higher;

    beatOf(*score, 0, 1).note(0)->setMidi(49);
    const std::string below = exported(*score->scoreModel());
    EXPECT_TRUE(has(below, "\\tweak TabNoteHead.text \"3\" g,4\\6")) << below;
    EXPECT_TRUE(has(below, "\\tweak TabNoteHead.text \"8\" cis,4\\6 b,2\\5")) << below;
    EXPECT_TRUE(has(below, "\\stringTuning <e,, a, d")) << below;
}

TEST(LilyPondExporter, tiesWhatIsTiedAndLeavesTheRestOpen)
{
    const auto score = scoreOf("piano: c4h~ c4h | d4w | e4w");
    beatOf(*score, 1, 0).note(0)->setTieOrigin(true);
    beatOf(*score, 2, 0).note(0)->setTied(true);
    const std::string text = exported(*score->scoreModel());
    EXPECT_TRUE(has(text, "c'2~ c'2 ")) << text;
    EXPECT_TRUE(has(text, "d'1\\laissezVibrer ")) << text;
    EXPECT_TRUE(has(text, "e'1\\repeatTie ")) << text;
}

TEST(LilyPondExporter, unfoldsNoRepeat)
{
    const auto score = scoreOf("piano: |: c4w | d4w :| e4w | f4w :|x3 | g4w");
    ScoreModel &model = *score->scoreModel();
    const auto &bars = model.masterTrack()->masterBars();
    bars[1]->setAlternateEndings(1);
    bars[2]->setAlternateEndings(2);
    bars[3]->setRepeatStart(true);
    const std::string text = exported(model);
    EXPECT_TRUE(has(text, "\\repeat volta 2 { \\oneVoice c'1")) << text;
    EXPECT_TRUE(has(text, "\\alternative { \\volta 1 { d'1 | } % 2\n  \\volta 2 { e'1 | } } } % 3"))
        << text;
    EXPECT_TRUE(has(text, "\\repeat volta 3 { f'1 | } % 4")) << text;

    bars[2]->setAlternateEndings(4); // a pass that never comes
    const std::string odd = exported(model);
    EXPECT_FALSE(has(odd, "\\alternative")) << odd;
    EXPECT_TRUE(has(odd, "\\set Score.repeatCommands = #'((volta #f) end-repeat (volta \"3.\"))"))
        << odd;
    EXPECT_EQ(openBrackets(odd), 0);
}

/// Grace notes in front of a bar line take their time in all voices.
TEST(LilyPondExporter, keepsTimeForGraceNotesEverywhere)
{
    const auto score = scoreOf("piano: c4w | d4e e4w & f3w + g2w | a2w");
    beatOf(*score, 1, 0).setGraceType(GraceType::BeforeBeat);
    const std::string text = exported(*score->scoreModel());
    EXPECT_TRUE(has(text, "\\grace { d'8 } e'1 ")) << text;
    EXPECT_TRUE(has(text, "\\grace { s8 } \\voiceTwo f1")
                || has(text, "\\voiceTwo \\grace { s8 } f1"))
        << text;
    EXPECT_TRUE(has(text, "\\grace { s8 } a,1 ")) << text;
    EXPECT_TRUE(has(text, "\\grace { s8 } s1 |")) << text;
}

TEST(LilyPondExporter, graceNotesEndATremoloToo)
{
    const auto score = scoreOf("piano: c4h e4h d4s | f4w");
    beatOf(*score, 0, 0).setTremoloToNext(3);
    beatOf(*score, 0, 2).setGraceType(GraceType::OnBeat);
    const std::string text = exported(*score->scoreModel());
    EXPECT_TRUE(has(text, "\\afterGrace { \\repeat tremolo 16 { c'32 e'32 } } { d'16 } ")) << text;
}

TEST(LilyPondExporter, hairpinsBeginAtTheFirstNoteOfATremolo)
{
    const auto score = scoreOf("piano: c4h e4h | d4w");
    beatOf(*score, 0, 0).setTremoloToNext(3);
    beatOf(*score, 0, 0).setHairpin(Hairpin::Crescendo);
    beatOf(*score, 0, 1).setHairpin(Hairpin::Crescendo);
    const std::string text = exported(*score->scoreModel());
    EXPECT_TRUE(has(text, "{ c'32\\< e'32 } | % 1\n")) << text;
    EXPECT_TRUE(has(text, "d'1\\! ")) << text;
}

TEST(LilyPondExporter, keepsBarsOfOddLengthsTogether)
{
    const auto score = scoreOf("piano: c4q | d4w | e4h | f4w e4w");
    const auto &bars = score->scoreModel()->masterTrack()->masterBars();
    bars[0]->setOwnLength(utils::rational(1));
    bars[2]->setOwnLength(utils::rational(2));
    const std::string text = exported(*score->scoreModel());
    EXPECT_TRUE(has(text, "\\partial 4 ")) << text;
    EXPECT_TRUE(has(text, "\\set Timing.measureLength = #(ly:make-moment 1/2) s2 |")) << text;
    EXPECT_TRUE(has(text, "\\set Timing.measureLength = #(ly:make-moment 2) s1*2 |")) << text;
}

TEST(LilyPondExporter, groupsBeamsWhereLilyPondKnowsNoGroups)
{
    const auto score = scoreOf("piano 7/8: c4h rq. | rh rq. | rh rq.");
    auto &master = *score->scoreModel()->masterTrack();
    master.masterBar(1)->setBeamGroups(*BeamGroups::fromString("3+2+2"));
    const std::string text = exported(*score->scoreModel());
    const auto first = text.find("\\set Timing.beatStructure = #'(2 2 3)");
    const auto own = text.find("\\set Timing.beatStructure = #'(3 2 2)");
    const auto back = text.find("\\set Timing.beatStructure = #'(2 2 3)", own);
    EXPECT_LT(first, own);
    EXPECT_LT(own, back);
    EXPECT_NE(back, text.npos);
}

TEST(LilyPondExporter, namesDrumsByTheirKeysAndLooks)
{
    const auto score = scoreOf("drums: [kick hat]q snare snare hat");
    Note &other = *beatOf(*score, 0, 2).note(0);
    other.setNoteHead(NoteHead::Triangle);
    const std::string text = exported(*score->scoreModel());
    EXPECT_TRUE(has(text, "\\drummode {")) << text;
    EXPECT_TRUE(has(text, "acousticsnare4 acousticsnareII4")) << text;
    EXPECT_TRUE(has(text, "drumPitchNames.acousticsnareII = #'acousticsnareII")) << text;
    EXPECT_TRUE(has(text, "(acousticsnareII triangle #f")) << text;
}

TEST(LilyPondExporter, putsSignsOnTheirSidesAndShapesHeadsAndStems)
{
    const auto score = scoreOf("piano: c5q d5 e5 f5");
    Beat &first = beatOf(*score, 0, 0);
    first.setDynamic(NoteDynamic::Value::P);
    first.setDynamicSide(MarkSide::Above);
    first.setHairpin(Hairpin::Crescendo);
    first.setHairpinSide(MarkSide::Below);
    first.setText("arco");
    first.setTextBelow("dolce");
    beatOf(*score, 0, 1).setTextBelow("rit.");
    beatOf(*score, 0, 1).setTextSpan(TextSpan::BeginBelow);
    beatOf(*score, 0, 2).setTextSpan(TextSpan::End);
    Beat &last = beatOf(*score, 0, 3);
    last.note(0)->setNoteHead(NoteHead::Diamond);
    last.note(0)->setHeadFill(HeadFill::Open);
    last.setStemOrientation(ZarnStemOrientation::None);
    const std::string text = exported(*score->scoreModel());
    for (const char *const words :
         {"^\\p_\\<", "^\"arco\"_\"dolce\"", "_\\startTextSpan",
          "\\once \\omit Stem \\once \\omit Flag ",
          "\\tweak NoteHead.style #'diamond \\tweak NoteHead.duration-log #1 "})
        EXPECT_TRUE(has(text, words)) << words << " in " << text;
}

TEST(LilyPondExporter, drawsSlursHairpinsAndLines)
{
    const auto score = scoreOf("guitar: 1:5q 1:7 1:8 1:7 | 2:5q 2:5 2:5 2:5");
    beatOf(*score, 0, 0).note(0)->setHopo(true);
    beatOf(*score, 0, 1).setHairpin(Hairpin::Crescendo);
    beatOf(*score, 0, 2).setHairpin(Hairpin::Crescendo);
    beatOf(*score, 0, 3).setDynamic(NoteDynamic::Value::F);
    beatOf(*score, 0, 2).setSlurEnds({{1, true, SlurLine::Solid, SlurSide::Below}});
    beatOf(*score, 0, 3).setSlurEnds({{1, false, SlurLine::Solid, SlurSide::Below}});
    for (unsigned beat = 0; beat < 3; ++beat)
        beatOf(*score, 1, beat).note(0)->setPalmMute(true);
    beatOf(*score, 1, 2).setSlurredToNext(true);
    beatOf(*score, 1, 2).setSlurLine(SlurLine::Dashed);
    beatOf(*score, 1, 2).setSlurSide(SlurSide::Above);
    beatOf(*score, 1, 3).setSlurredToPrevious(true);
    const std::string text = exported(*score->scoreModel());
    EXPECT_TRUE(has(text, "a'4\\1^\"H\"\\=90( b'4\\1\\=90)\\< c''4\\1\\=1_( b'4\\1\\=1)\\f "))
        << text;
    EXPECT_TRUE(has(text,
                    "\\startTextSpan e'4\\2 e'4\\2"
                    "-\\tweak dash-definition #'((0 1 0.4 0.75)) ^(\\stopTextSpan e'4\\2) "))
        << text;
}

TEST(LilyPondExporter, singsEachNoteItsSyllable)
{
    const auto score = scoreOf("voice: c4q d4 rq e4q");
    beatOf(*score, 0, 0).setLyrics({{0, Syllabic::Begin, false, "A"}});
    beatOf(*score, 0, 3).setLyrics({{0, Syllabic::End, true, "\"men\""}});
    const std::string text = exported(*score->scoreModel());
    EXPECT_TRUE(has(text, "\"A\" -- _ \"\\\"men\\\"\" __")) << text;
}

TEST(LilyPondExporter, tellsWhatTheLanguageLacks)
{
    const auto score = scoreOf("guitar: 1:5w | 1:5w");
    beatOf(*score, 0, 0).note(0)->setSlideIn(SlideIn::FromBelow);
    beatOf(*score, 1, 0).setText("to <sym>coda</sym>\uE047 now");
    score->scoreModel()->track(0)->staff(0)->setPartialCapoFret(2);
    io::ExportReport report;
    const auto text = io::LilyPondExporter().toText(*score->scoreModel(), report);
    EXPECT_TRUE(has(text, "^\"to  now\"")) << text;
    const auto placeOf = [&](const char *kind) {
        return report.unheld().count(kind) == 1 ? report.firstUnheld(kind).toString("track")
                                                : std::string("not told");
    };
    EXPECT_EQ(placeOf("slide into a note from nowhere"), "track 1, bar 1");
    EXPECT_EQ(placeOf("sign of the music font in words"), "track 1, bar 2");
    EXPECT_EQ(placeOf("partial capo"), "track 1");
}

/// Whatever a score holds, brackets close and equal scores give equal documents.
TEST(LilyPondExporter, writesAnyScoreWhole)
{
    for (std::uint32_t seed = 1; seed <= 60; ++seed) {
        const auto model = test::RandomScore(seed).make(3, 6);
        const std::string text = exported(*model);
        ASSERT_EQ(openBrackets(text), 0) << "seed " << seed << '\n' << text;
        ASSERT_EQ(text, exported(*model->clone())) << "seed " << seed;
    }
    EXPECT_EQ(openBrackets(exported(ScoreModel())), 0);
}

} // namespace
