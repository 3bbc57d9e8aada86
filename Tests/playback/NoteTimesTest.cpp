// SPDX-License-Identifier: MIT
#include "PlaybackSamples.h"

namespace zarn::playback {

TEST(NoteTimes, signsShortenNotes)
{
    struct Row {
        const char *signs;
        const char *end;
    };
    for (const Row &row :
         {Row{"None", "19/20"}, Row{"Staccato", "1/2"}, Row{"Staccatissimo", "1/4"},
          Row{"Tenuto", "1"}, Row{"Staccato Tenuto", "3/4"}, Row{"Accent", "19/20"}}) {
        Sample sample;
        sample.add(Value::Quarter, {60}).note(0)->setAccents(*AccentFlags::fromString(row.signs));
        EXPECT_EQ(times(sample.plan()), std::string("60:0-") + row.end) << row.signs;
    }
    Sample sample(2);
    sample.add(Value::Whole, {60});
    sample.add(Value::Whole, {62}, 1).note(0)->setDead(true);
    EXPECT_EQ(times(sample.plan()), "60:0-63/16 62:4-17/4")
        << "long notes leave a 64th, dead ones last no longer than a 16th";
}

TEST(NoteTimes, slurredNotesLeaveNoGap)
{
    Sample sample;
    Beat &first = sample.add(Value::Quarter, {60});
    Beat &second = sample.add(Value::Quarter, {62});
    first.setSlurredToNext(true);
    second.setSlurredToPrevious(true);
    EXPECT_EQ(times(sample.plan()), "60:0-1 62:1-39/20");
    EXPECT_EQ(velocities(sample.plan()), "80 72");
}

TEST(NoteTimes, tiedNotesSoundOnceOverTheJumpIntoASecondEnding)
{
    Sample sample(3); // 1, 2 (first ending), 1, 3 (second ending)
    sample.master(1).setAlternateEndings(1);
    sample.master(1).setRepeatCount(2);
    sample.master(2).setAlternateEndings(2);
    sample.add(Value::Whole, {60}).note(0)->setTieOrigin(true);
    for (const unsigned ending : {1U, 2U}) {
        Beat &beat = sample.add(Value::Half, {60}, ending);
        beat.note(0)->setTied(true);
        sample.add(Value::Half, {}, ending);
    }
    EXPECT_EQ(times(sample.plan()), "60:0-95/16 60:8-223/16");
}

TEST(NoteTimes, aTieThatLeadsNowhereIsStruckAndEnds)
{
    Sample sample(2);
    sample.add(Value::Half, {60}).note(0)->setTieOrigin(true);
    sample.add(Value::Half, {62});
    sample.add(Value::Whole, {64}, 1).note(0)->setTied(true);
    EXPECT_EQ(starts(sample.plan()), "60:0 62:2 64:4");
}

TEST(NoteTimes, tiesLeadFromOneVoiceToAnother)
{
    Sample sample(2);
    sample.add(Value::Whole, {60}).note(0)->setTieOrigin(true);
    sample.add(Value::Whole, {72}, 1);
    sample.add(Value::Half, {60}, 1, 1).note(0)->setTied(true);
    EXPECT_EQ(times(sample.plan()), "60:0-95/16 72:4-127/16");
}

TEST(NoteTimes, graceNotesTakeFromTheBeatBefore)
{
    Sample sample;
    sample.add(Value::Quarter, {60}).note(0)->setAccents(AccentFlag::Tenuto);
    for (const int key : {61, 62}) {
        Beat &grace = sample.add(Value::Eighth, {key});
        grace.setGraceType(GraceType::BeforeBeat);
        grace.note(0)->setAccents(AccentFlag::Tenuto);
    }
    sample.add(Value::Quarter, {64}).note(0)->setAccents(AccentFlag::Tenuto);
    EXPECT_EQ(times(sample.plan()), "60:0-3/4 61:3/4-7/8 62:7/8-1 64:1-2");
}

TEST(NoteTimes, graceNotesTakeAtMostHalfOfABeat)
{
    Sample before;
    before.add(Value::Sixteenth, {60});
    for (const int key : {61, 62})
        before.add(Value::Quarter, {key}).setGraceType(GraceType::BeforeBeat);
    before.add(Value::Quarter, {64});
    EXPECT_EQ(starts(before.plan()), "60:0 61:1/8 62:3/16 64:1/4");
    Sample on;
    on.add(Value::Half, {61}).setGraceType(GraceType::OnBeat);
    on.add(Value::Quarter, {64});
    EXPECT_EQ(starts(on.plan()), "61:0 64:1/2");
}

TEST(NoteTimes, graceNotesInFrontOfTheScoreBeginBeforeIt)
{
    Sample sample;
    sample.add(Value::Eighth, {61}).setGraceType(GraceType::BeforeBeat);
    sample.add(Value::Whole, {64});
    const auto plan = sample.plan();
    EXPECT_EQ(starts(plan), "61:-1/8 64:0");
    EXPECT_EQ(plan.start(), utils::rational(-1, 8));
    EXPECT_NEAR(plan.notes()[0].startSecond, -0.0625, 1e-9);
    EXPECT_EQ(plan.controls().front().time, plan.start()) << "the sound is there before";
}

TEST(NoteTimes, graceNotesAloneInTheirBarsStayThere)
{
    Sample sample(3);
    for (const unsigned bar : {1U, 2U}) {
        sample.add(Value::Eighth, {61}, bar, 1).setGraceType(GraceType::BeforeBeat);
        sample.add(Value::Quarter, {62}, bar, 1).setGraceType(GraceType::OnBeat);
    }
    EXPECT_EQ(starts(sample.plan()), "61:31/8 62:4 61:63/8 62:8");
}

TEST(NoteTimes, feelsMovePairsButNotInFreeTime)
{
    Sample sample;
    for (const int key : {60, 62})
        sample.add(Value::Eighth, {key});
    sample.master(0).setTripletFeel(TripletFeel::Triplet8th);
    EXPECT_EQ(starts(sample.plan()), "60:0 62:2/3");
    sample.master(0).setTripletFeel(TripletFeel::Scottish8th);
    EXPECT_EQ(starts(sample.plan()), "60:0 62:1/4");
    sample.master(0).setFreeTime(true);
    EXPECT_EQ(starts(sample.plan()), "60:0 62:1/2");
}

TEST(NoteTimes, similesLastAsLongAsTheBarThatTheyRepeat)
{
    Sample sample(3);
    sample.add(Value::Whole, {60});
    sample.add(Value::Quarter, {62});
    sample.track().bar(1)->setSimileMark(SimileMark::Simple);
    sample.add(Value::Whole, {64}, 2);
    EXPECT_EQ(starts(sample.plan()), "60:0 62:4 60:5 62:9 64:10");
}

TEST(NoteTimes, similesPlayWhatTheyRepeatThroughChains)
{
    Sample sample(5);
    sample.add(Value::Whole, {60});
    sample.add(Value::Whole, {62}, 1);
    const auto mark = [&](unsigned bar, SimileMark simile) {
        sample.track().bar(bar)->setSimileMark(simile);
    };
    mark(2, SimileMark::FirstOfDouble);
    mark(3, SimileMark::SecondOfDouble);
    mark(4, SimileMark::Simple);
    EXPECT_EQ(starts(sample.plan()), "60:0 62:4 60:8 62:12 62:16");
}

TEST(NoteTimes, barsThatHoldMoreThanTheirMeterLastAsLongAsTheirMusic)
{
    Sample sample(2);
    for (int i = 0; i < 5; ++i)
        sample.add(Value::Quarter, {60 + i});
    sample.add(Value::Whole, {72}, 1);
    EXPECT_EQ(starts(sample.plan()), "60:0 61:1 62:2 63:3 64:4 72:5");
}

TEST(NoteTimes, tremolosRepeatAndTheirLastStrokeFillsTheRest)
{
    Sample sample;
    Beat &beat = sample.add(Value::Quarter, {60});
    beat.setRhythmValue(RhythmValue(Value::Quarter, 1)); // 3/2 quarters
    beat.setTremolo(1);
    beat.note(0)->setAccents(AccentFlag::Tenuto);
    EXPECT_EQ(times(sample.plan()), "60:0-1/2 60:1/2-1 60:1-3/2");
    EXPECT_EQ(velocities(sample.plan()), "80 72 80");
    beat.note(0)->setAccents({});
    EXPECT_EQ(times(sample.plan()), "60:0-1/2 60:1/2-1 60:1-59/40");
}

TEST(NoteTimes, signsShortenEachStrokeOfATremolo)
{
    Sample sample(1, InstrumentSet::steelGuitar);
    sample.track().setTranspositionOffset(0);
    Note &note = sample.addFretted(Value::Quarter, 0, 0, 40);
    note.parentBeat()->setTremolo(1);
    note.setPalmMute(true);
    EXPECT_EQ(times(sample.plan()), "40:0-3/10 40:1/2-4/5");
    note.setPalmMute(false);
    note.setDead(true);
    EXPECT_EQ(times(sample.plan()), "40:0-1/4 40:1/2-3/4");
}

TEST(NoteTimes, tremolosBetweenTwoBeatsTakeTurns)
{
    Sample sample;
    sample.add(Value::Quarter, {60}).setTremoloToNext(1);
    sample.add(Value::Quarter, {67});
    EXPECT_EQ(times(sample.plan()), "60:0-1/2 67:1/2-1 60:1-3/2 67:3/2-2");
}

TEST(NoteTimes, graceNotesInATremoloOfTwoBeatsLeadToTheSecondOne)
{
    for (const GraceType type : {GraceType::BeforeBeat, GraceType::OnBeat}) {
        Sample sample;
        sample.add(Value::Quarter, {60}).setTremoloToNext(2);
        Beat &grace = sample.add(Value::Eighth, {65});
        grace.setGraceType(type);
        sample.add(Value::Quarter, {67});
        sample.add(Value::Half, {72});
        EXPECT_EQ(times(sample.plan()),
                  type == GraceType::BeforeBeat
                      ? "60:0-7/24 67:7/24-7/12 60:7/12-7/8 65:7/8-159/160 67:1-5/4 60:5/4-3/2 "
                        "67:3/2-7/4 60:7/4-2 72:2-63/16"
                      : "60:0-1/4 67:1/4-1/2 60:1/2-3/4 67:3/4-1 65:1-59/40 67:3/2-7/4 60:7/4-2 "
                        "72:2-63/16");
    }
}

TEST(NoteTimes, trillsAndOrnamentsAreSpelledByTheKey)
{
    Sample trill;
    trill.add(Value::Eighth, {64}).note(0)->setTrill({1, Trill::Speed::ThirtySecond});
    EXPECT_EQ(times(trill.plan()), "64:0-1/8 65:1/8-1/4 64:1/4-3/8 65:3/8-19/40");
    Sample turn;
    Note &note = *turn.add(Value::Quarter, {66}).note(0);
    note.setSpelling(PitchClass(NoteName::Value::F, NoteAccidental::Value::Sharp));
    note.setOrnament(Ornament::Turn);
    turn.master(0).setConcertKeySignature(KeySignature(1)); // G major: G above, E below
    EXPECT_EQ(starts(turn.plan()), "67:0 66:1/8 64:1/4 66:3/8");
    note.setOrnament(Ornament::LowerMordent);
    EXPECT_EQ(starts(turn.plan()), "66:0 64:1/8 66:1/4");
}

TEST(NoteTimes, strumsGoFromStringToString)
{
    Sample sample;
    Beat &beat = sample.add(Value::Quarter, {48, 52, 55});
    beat.setArpeggio({Direction::Up, 240, StrumAnchor::StartsOnBeat});
    EXPECT_EQ(starts(sample.plan()), "48:0 52:1/8 55:1/4");
    beat.setArpeggio({});
    beat.setBrush({Direction::Down, 240, StrumAnchor::StartsOnBeat});
    EXPECT_EQ(starts(sample.plan()), "48:0 52:1/8 55:1/4") << "down is from the lowest string";
    beat.setBrush({Direction::Up, 480, StrumAnchor::EndsOnBeat});
    EXPECT_EQ(starts(sample.plan()), "55:-1/2 52:-1/4 48:0");
    const auto plan = sample.plan();
    for (const PlannedNote &note : plan.notes())
        EXPECT_EQ(note.end, utils::rational(19, 20)) << "all end together";
}

TEST(NoteTimes, rasgueadosStrikeOncePerFinger)
{
    Sample sample;
    Beat &beat = sample.add(Value::Half, {52});
    beat.setRasgueado(RasgueadoType::amii_1);
    EXPECT_EQ(starts(sample.plan()), "52:0 52:1/2 52:1 52:3/2");
    beat.setRasgueado(RasgueadoType::ami_2);
    EXPECT_EQ(starts(sample.plan()), "52:0 52:1 52:3/2") << "the first takes half";
}

TEST(NoteTimes, notesRingUntilTheirStringIsStruckAgain)
{
    Sample sample(6, InstrumentSet::nylonGuitar);
    sample.track().setTranspositionOffset(0);
    sample.addFretted(Value::Quarter, 5, 0, 64).setLetRing(true);
    sample.addFretted(Value::Quarter, 4, 0, 59).setLetRing(true);
    sample.addFretted(Value::Half, 5, 3, 67);
    for (unsigned bar = 1; bar < 6; ++bar)
        sample.addFretted(Value::Whole, 0, 0, 40, bar);
    EXPECT_EQ(times(sample.plan()).substr(0, 32), "64:0-2 59:1-16 67:2-63/16 40:4-1")
        << "the other string rings for four bars";
    Sample rest(3, InstrumentSet::nylonGuitar);
    rest.addFretted(Value::Whole, 5, 0, 64).setLetRing(true);
    rest.addFretted(Value::Whole, 4, 0, 59, 1);
    rest.add(Value::Whole, {}, 2);
    EXPECT_EQ(times(rest.plan()), "64:0-8 59:4-127/16") << "a bar of rests ends it";
}

TEST(NoteTimes, aKeyThatIsStruckAgainEnds)
{
    Sample sample;
    sample.add(Value::Whole, {60});
    sample.add(Value::Quarter, {}, 0, 1);
    sample.add(Value::Quarter, {60}, 0, 1);
    EXPECT_EQ(times(sample.plan()), "60:0-1 60:1-39/20");
    Sample together;
    together.add(Value::Whole, {60});
    together.add(Value::Quarter, {60}, 0, 1);
    EXPECT_EQ(times(together.plan()), "60:0-63/16 60:0-63/16");
}

TEST(NoteTimes, cueNotesAreUnheard)
{
    Sample sample;
    sample.add(Value::Half, {60}).setCue(true);
    sample.add(Value::Half, {62});
    EXPECT_EQ(starts(sample.plan()), "62:2");
}

} // namespace zarn::playback
