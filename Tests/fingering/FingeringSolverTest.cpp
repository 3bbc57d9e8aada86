// SPDX-License-Identifier: MIT
#include "support/FingeredPassage.h"
#include "support/FingeredPieces.h"
#include "support/Random.h"

#include <ZarnCore/fingering/ZarnFingeringSolver.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace {

using namespace zarn;
using namespace zarn::fingering;
using zarn::test::addEvent;
using zarn::test::guitar;
using zarn::test::passageOn;

const std::string dataFolder = ZARN_SOURCE_DIR "/Tests/fingering/data/";
std::string shape(const Passage &passage, const FingeringSolution &fingering, std::size_t event)
{
    std::vector<std::string> frets(static_cast<std::size_t>(passage.fretboard.stringCount()), "x");
    const PassageEvent &at = passage.events[event];
    for (std::size_t i = at.firstNote; i < at.firstNote + at.noteCount; ++i)
        if (fingering.notes[i].string >= 0)
            frets[static_cast<std::size_t>(fingering.notes[i].string)] =
                std::to_string(fingering.notes[i].fret);
    std::string text;
    for (const std::string &fret : frets)
        text += (text.empty() ? "" : " ") + fret;
    return text;
}

/// The fingers of an event by its notes, the lowest first.
std::string fingersOf(const Passage &passage, const FingeringSolution &fingering, std::size_t event)
{
    std::string text;
    const PassageEvent &at = passage.events[event];
    for (std::size_t i = at.firstNote + at.noteCount; i-- > at.firstNote;)
        text += std::to_string(fingering.notes[i].finger);
    return text;
}

/// What no fingering may break: pitches, one note to a string, locks, and a word for each note that
/// has no place.
void expectSound(const Passage &passage, const FingeringSolution &fingering)
{
    ASSERT_EQ(fingering.notes.size(), passage.notes.size());
    std::set<std::size_t> reported;
    for (const FingeringProblem &problem : fingering.problems)
        if (problem.kind != FingeringProblem::Kind::TooWide)
            reported.insert(problem.note);
    for (const PassageEvent &event : passage.events) {
        std::set<int> strings;
        for (std::size_t i = event.firstNote; i < event.firstNote + event.noteCount; ++i) {
            const Placement &place = fingering.notes[i];
            const PassageNote &note = passage.notes[i];
            EXPECT_EQ(place.string == Placement::None, reported.count(i) == 1) << "note " << i;
            if (place.string == Placement::None)
                continue;
            EXPECT_TRUE(strings.insert(place.string).second) << "two notes on one string";
            EXPECT_TRUE(note.string == PassageNote::Free || place.string == note.string);
            EXPECT_TRUE(note.fret != PassageNote::Free
                        || passage.fretboard.pitch(place.string, place.fret) == note.pitch);
            EXPECT_TRUE(place.fret == 0 || place.finger > 0
                        || std::any_of(fingering.problems.begin(), fingering.problems.end(),
                                       [](const FingeringProblem &problem) {
                                           return problem.kind == FingeringProblem::Kind::TooWide;
                                       }));
        }
    }
}

TEST(FingeringSolverTest, playsTheCasesAsPlayersDo)
{
    for (const FingeringCase &task : readFingeringCases(dataFolder + "cases.tsv"))
        EXPECT_EQ(faultOf(task), "") << task.name;
}

/// Editors mark what surprises; a model that is right about half of that knows nothing. Where they
/// have spoken already, it listens: every second mark decides much of the others.
TEST(FingeringSolverTest, agreesWithEditorsMoreOftenThanNot)
{
    int right = 0;
    int known = 0;
    int rightFingers = 0;
    int fingers = 0;
    int rightOfRest = 0;
    int rest = 0;
    std::size_t problems = 0;
    for (const FingeredPiece &piece : readFingeredPieces(dataFolder + "marks.tsv")) {
        std::vector<std::size_t> noteOf;
        Passage passage = passageOf(piece, noteOf);
        const FingeringSolution fingering = FingeringSolver(passage).solve();
        expectSound(passage, fingering);
        problems += fingering.problems.size();
        for (std::size_t i = 0; i < piece.notes.size(); ++i) {
            if (piece.notes[i].finger >= 0) {
                ++fingers;
                rightFingers += fingering.notes[noteOf[i]].finger == piece.notes[i].finger ? 1 : 0;
            }
            if (piece.notes[i].string < 0)
                continue;
            ++known;
            right += fingering.notes[noteOf[i]].string == piece.notes[i].string ? 1 : 0;
            if (known % 2 == 0)
                passage.notes[noteOf[i]].string = piece.notes[i].string;
        }
        const FingeringSolution locked = FingeringSolver(passage).solve();
        expectSound(passage, locked);
        for (std::size_t i = 0; i < piece.notes.size(); ++i) {
            if (piece.notes[i].string < 0 || passage.notes[noteOf[i]].string != PassageNote::Free)
                continue;
            ++rest;
            rightOfRest += locked.notes[noteOf[i]].string == piece.notes[i].string ? 1 : 0;
        }
    }
    EXPECT_GT(right, known * 7 / 10);
    EXPECT_GT(rightFingers, fingers * 6 / 10);
    EXPECT_GT(rightOfRest, rest * 3 / 4);
    EXPECT_EQ(problems, 1U) << "ten frets from bass to treble; all else is music for one hand";
}

/// What a player gives leaves fewer ways: had the search dropped the easiest ones of all, it would
/// find easier ones with some of them given.
TEST(FingeringSolverTest, whatIsGivenNeverMakesMusicEasier)
{
    for (const FingeredPiece &piece : readFingeredPieces(dataFolder + "marks.tsv")) {
        std::vector<std::size_t> noteOf;
        const Passage passage = passageOf(piece, noteOf);
        const FingeringSolution free = FingeringSolver(passage).solve();
        const double effort = free.leastEffort;
        // What agrees with most of the easy ways is an easy one itself.
        EXPECT_GE(free.effort, effort - 1e-6) << piece.name;
        EXPECT_LE(free.effort, 1.2 * effort) << piece.name;
        for (const bool givesFingers : {false, true}) {
            Passage given = passage;
            for (std::size_t i = 0; i < piece.notes.size(); ++i) {
                PassageNote &note = given.notes[noteOf[i]];
                if (givesFingers)
                    note.finger = piece.notes[i].finger;
                else
                    note.string = piece.notes[i].string;
            }
            constexpr double nearly = 0.99; // few ways are kept for each event
            EXPECT_GE(FingeringSolver(given).solve().leastEffort, nearly * effort) << piece.name;
        }
    }
}

TEST(FingeringSolverTest, staysPlayableOnEveryTuning)
{
    Random random(7);
    const std::vector<std::vector<unsigned>> tunings = {
        guitar,
        {38, 45, 50, 55, 59, 64},
        {67, 60, 64, 69},
        {55, 62, 69, 76},
        {40},
        {28, 33, 38, 43},
        {40, 52, 45, 57, 50, 62, 55, 67, 59, 59, 64, 64},
        {43, 48, 53, 57, 62, 67},
    };
    for (int round = 0; round < 60; ++round) {
        SCOPED_TRACE(round);
        Passage passage =
            passageOn(tunings[random.below(tunings.size())], random.percent(10) ? 0 : 19);
        double onset = 0;
        for (unsigned i = 0; i < 40; ++i) {
            std::set<int, std::greater<>> pitches;
            for (unsigned k = 1 + (random.percent(30) ? random.below(9) : 0); k > 0; --k)
                pitches.insert(random.between(36, 84));
            passage.addEvent(onset);
            for (const int pitch : pitches) {
                PassageNote note{pitch, onset + random.between(1, 8) / 4.};
                if (random.percent(15))
                    note.string = random.between(0, 6);
                if (random.percent(10))
                    note.tiedUntil = onset + 0.5;
                passage.addNote(note);
            }
            onset += random.between(0, 4) / 4.;
        }
        const FingeringSolution fingering = FingeringSolver(passage).solve();
        expectSound(passage, fingering);
        const FingeringSolution again = FingeringSolver(passage).solve();
        EXPECT_EQ(again.notes, fingering.notes);
        // What was found is found again around what it says itself.
        for (std::size_t i = 0; i < passage.notes.size(); ++i) {
            if (fingering.notes[i].string >= 0) {
                passage.notes[i].string = fingering.notes[i].string;
                passage.notes[i].fret = fingering.notes[i].fret;
            }
        }
        const FingeringSolution kept = FingeringSolver(passage).solve();
        for (std::size_t i = 0; i < passage.notes.size(); ++i) {
            const bool isPlaced = fingering.notes[i].string >= 0 && kept.notes[i].string >= 0;
            EXPECT_TRUE(!isPlaced || kept.notes[i].string == fingering.notes[i].string);
        }
    }
}

/// A chord is only as wide as it has to be.
TEST(FingeringSolverTest, isTooWideOnlyWhereNoHandReaches)
{
    Passage passage = passageOn(guitar);
    addEvent(passage, {64, 59, 41}); // f below open b and e'
    addEvent(passage, {74, 41});     // frets 10 and 1 at the least
    addEvent(passage, {70, 65, 60, 56, 51, 46});
    const FingeringSolution fingering = FingeringSolver(passage).solve();
    ASSERT_EQ(fingering.problems.size(), 1U);
    EXPECT_EQ(fingering.problems[0].kind, FingeringProblem::Kind::TooWide);
    EXPECT_EQ(fingering.problems[0].note, 3U);
    EXPECT_EQ(shape(passage, fingering, 0), "1 x x x 0 0");
    EXPECT_EQ(shape(passage, fingering, 1), "1 x x x x 10");
}

TEST(FingeringSolverTest, saysWhatItLeavesOut)
{
    using Kind = FingeringProblem::Kind;
    Passage passage = passageOn(guitar, 12);
    addEvent(passage, {64, 39});
    addEvent(passage, {41, 40});
    addEvent(passage, {77});
    addEvent(passage, {67, 64, 60, 59, 55, 50, 45, 40});
    const FingeringSolution fingering = FingeringSolver(passage).solve();
    expectSound(passage, fingering);
    std::vector<Kind> kinds;
    for (const FingeringProblem &problem : fingering.problems)
        kinds.push_back(problem.kind);
    const std::vector<Kind> expected = {Kind::NotOnInstrument, Kind::NoStringLeft,
                                        Kind::NotOnInstrument, Kind::NoStringLeft,
                                        Kind::NoStringLeft};
    EXPECT_EQ(kinds, expected);
    EXPECT_EQ(fingering.notes[3].string, Placement::None) << "the melody stays";

    Passage contradicting = passageOn(guitar, 12);
    addEvent(contradicting, {64, 48});
    contradicting.notes[0].string = 0; // sixteen frets up
    contradicting.notes[1].string = 2; // below it
    addEvent(contradicting, {60});
    const FingeringSolution rest = FingeringSolver(contradicting).solve();
    ASSERT_EQ(rest.problems.size(), 2U);
    for (std::size_t note = 0; note < 2; ++note) {
        EXPECT_EQ(rest.problems[note].note, note);
        EXPECT_EQ(rest.problems[note].kind, Kind::NotOnInstrument);
        EXPECT_EQ(rest.notes[note].string, Placement::None);
    }
    EXPECT_EQ(rest.notes[2].string, 4);

    Passage nothing = passageOn(guitar);
    EXPECT_TRUE(FingeringSolver(nothing).solve().notes.empty());
    Passage silent = passageOn({});
    addEvent(silent, {60});
    EXPECT_EQ(FingeringSolver(silent).solve().problems.size(), 1U);
}

TEST(FingeringSolverTest, movesAPowerChordAsOneShape)
{
    Passage passage = passageOn({38, 45, 50, 55, 59, 64});
    for (const int root : {43, 45, 44, 41, 43, 46, 48})
        addEvent(passage, {root + 12, root + 7, root});
    const FingeringSolution fingering = FingeringSolver(passage).solve();
    const char *const shapes[] = {"5 5 5 x x x", "7 7 7 x x x", "6 6 6 x x x",   "3 3 3 x x x",
                                  "5 5 5 x x x", "8 8 8 x x x", "10 10 10 x x x"};
    for (std::size_t i = 0; i < std::size(shapes); ++i) {
        EXPECT_EQ(shape(passage, fingering, i), shapes[i]);
        EXPECT_EQ(fingersOf(passage, fingering, i), fingersOf(passage, fingering, 0)) << i;
    }
}

/// Chords that are strummed again and again are held as those that are strummed once, with fingers
/// that go together, and with the same from the first stroke to the last.
TEST(FingeringSolverTest, aChordThatIsHeldIsFingeredAsOneThatIsStruckOnce)
{
    for (const int times : {1, 4, 24}) {
        SCOPED_TRACE(times);
        Passage passage = passageOn(guitar);
        const auto strum = [&](const std::vector<int> &chord) {
            for (int time = 0; time < times; ++time)
                addEvent(passage, chord);
        };
        strum({62, 58, 53, 46});
        strum({57, 51, 48, 41});
        const FingeringSolution fingering = FingeringSolver(passage).solve();
        const std::size_t half = passage.events.size() / 2;
        const std::string bFlat = fingersOf(passage, fingering, 0);
        EXPECT_TRUE(bFlat == "1234" || bFlat == "1333") << bFlat;
        for (std::size_t event = 0; event < half; ++event) {
            EXPECT_EQ(shape(passage, fingering, event), "x 1 3 3 3 x");
            EXPECT_EQ(fingersOf(passage, fingering, event), bFlat) << event;
            EXPECT_EQ(shape(passage, fingering, half + event), "1 3 1 2 x x");
            EXPECT_EQ(fingersOf(passage, fingering, half + event), "1312") << event;
        }
    }
}

TEST(FingeringSolverTest, aTiedNoteKeepsItsStringAgainstOthers)
{
    Passage passage = passageOn({40, 45});
    addEvent(passage, {46, 40});
    passage.notes[0].end = 3; // on the upper string
    passage.notes[0].tiedUntil = 1;
    addEvent(passage, {52, 43});
    const FingeringSolution fingering = FingeringSolver(passage).solve();
    EXPECT_EQ(fingering.notes[0].string, 1);
    for (std::size_t i = 2; i < 4; ++i)
        EXPECT_NE(fingering.notes[i].string, 1);
    EXPECT_EQ(fingering.problems.size(), 1U);
}

/// What a player fixes once he means wherever it returns.
TEST(FingeringSolverTest, aFigureThatIsGivenOnceIsPlayedSoAgain)
{
    const auto figure = {50, 55, 50, 58};
    Passage passage = passageOn(guitar);
    for (int time = 0; time < 3; ++time)
        for (const int pitch : figure)
            addEvent(passage, {pitch});
    const FingeringSolution free = FingeringSolver(passage).solve();
    EXPECT_EQ(free.notes[4].fret, 0);
    passage.notes[4].string = 1;
    passage.notes[5].string = 2;
    passage.notes[6].string = 1;
    const FingeringSolution fingering = FingeringSolver(passage).solve();
    for (const std::size_t again : {0U, 2U, 8U, 10U})
        EXPECT_EQ(fingering.notes[again].string, 1) << again;
    EXPECT_EQ(fingering.notes[1].string, 2);
    EXPECT_EQ(fingering.notes[9].string, 2);
}

TEST(FingeringSolverTest, aGivenFingerIsKeptWhereAHandCan)
{
    Passage passage = passageOn(guitar);
    addEvent(passage, {67});
    passage.notes[0].finger = 4;
    addEvent(passage, {64});
    passage.notes[1].finger = 0;
    addEvent(passage, {64, 60, 55, 52, 48});
    const int impossible[] = {PassageNote::Free, 4, PassageNote::Free, 1, 1};
    for (std::size_t i = 0; i < 5; ++i)
        passage.notes[2 + i].finger = impossible[i];
    const FingeringSolution fingering = FingeringSolver(passage).solve();
    expectSound(passage, fingering);
    EXPECT_EQ(fingering.notes[0].finger, 4);
    EXPECT_EQ(fingering.notes[1], (Placement{5, 0, 0}));
    EXPECT_TRUE(fingering.problems.empty()) << "strings come before fingers";
}

TEST(FingeringSolverTest, aBarreIsLaidOnce)
{
    // A barre over the fifth fret, then one note: where it lies already, on whatever string.
    const auto effort = [](int pitch, int string) {
        Passage passage = passageOn(guitar);
        addEvent(passage, {69, 45});
        addEvent(passage, {pitch});
        passage.notes[0].string = 5;
        passage.notes[1].string = 0;
        passage.notes[2].string = string;
        for (PassageNote &note : passage.notes)
            note.finger = 1;
        return FingeringSolver(passage).solve().effort;
    };
    const double again = effort(69, 5);
    EXPECT_NEAR(effort(64, 4), again, 1e-6);
    EXPECT_NEAR(effort(55, 2), again, 1e-6);
    EXPECT_GT(effort(65, 4), again + 0.1) << "the next fret";
}

/// A slide or a hammer-on does not leave its string, whatever another voice does meanwhile.
TEST(FingeringSolverTest, whatLeadsToANoteIsOnItsString)
{
    for (const int from : {55, 57, 59, 62, 64}) {
        Passage passage = passageOn(guitar);
        addEvent(passage, {from});
        addEvent(passage, {45});
        addEvent(passage, {from + 2});
        passage.notes[0].end = 2;
        passage.notes[0].tiedUntil = 1.999;
        passage.notes[2].leadsFrom = 0;
        const FingeringSolution fingering = FingeringSolver(passage).solve();
        EXPECT_EQ(fingering.notes[2].string, fingering.notes[0].string) << from;
    }
    Passage impossible = passageOn(guitar);
    addEvent(impossible, {41});
    addEvent(impossible, {86});
    impossible.notes[1].leadsFrom = 0;
    EXPECT_TRUE(FingeringSolver(impossible).solve().problems.empty());
}

/// Notes that are let ring are spread over the strings; what clashes ends them.
TEST(FingeringSolverTest, whatIsLetRingKeepsItsString)
{
    Passage passage = passageOn(guitar);
    for (const int pitch : {67, 64, 60}) {
        addEvent(passage, {pitch});
        passage.notes.back().ringsUntil = 4;
    }
    const FingeringSolution fingering = FingeringSolver(passage).solve();
    std::set<int> strings;
    for (const Placement &place : fingering.notes)
        strings.insert(place.string);
    EXPECT_EQ(strings.size(), 3U);
}

/// A pedal rings open wherever the hand is; a chord that returns is none.
TEST(FingeringSolverTest, aPedalStaysOnItsOpenString)
{
    Passage passage = passageOn(guitar);
    for (const int pitch : {68, 69, 71, 73, 71, 69, 68}) {
        addEvent(passage, {pitch});
        addEvent(passage, {59});
    }
    const FingeringSolution fingering = FingeringSolver(passage).solve();
    for (std::size_t i = 1; i < passage.notes.size(); i += 2)
        EXPECT_EQ(fingering.notes[i], (Placement{4, 0, 0})) << i;
}

TEST(FingeringSolverTest, listsOtherWaysInOrderOfEffort)
{
    Passage passage = passageOn(guitar);
    addEvent(passage, {64, 60, 55, 52, 48});
    addEvent(passage, {64});
    addEvent(passage, {67, 64, 60});
    FingeringSolver solver(passage);
    const auto chord = solver.alternatives(0, 3);
    ASSERT_EQ(chord.size(), 3U);
    EXPECT_EQ(chord[0].loss, 0);
    EXPECT_LE(chord[1].loss, chord[2].loss);
    const FingeringSolution best = solver.solve();
    EXPECT_TRUE(std::equal(chord[0].notes.begin(), chord[0].notes.end(), best.notes.begin()));
    const auto single = solver.alternatives(1, 10);
    std::set<int> strings;
    for (const FingeringAlternative &way : single)
        EXPECT_TRUE(strings.insert(way.notes[0].string).second);
    EXPECT_GE(strings.size(), 3U) << "one e' on each string that is near";
}

/// Whatever waits for later to be decided must not grow with the passage.
TEST(FingeringSolverTest, goesThroughLongPassages)
{
    Passage passage = passageOn(guitar);
    for (int i = 0; i < 3000; ++i)
        addEvent(passage, {i % 2 == 0 ? 64 : 59});
    addEvent(passage, {76});
    const FingeringSolution fingering = FingeringSolver(passage).solve();
    EXPECT_TRUE(fingering.problems.empty());
    for (std::size_t i = 0; i < 3000; ++i)
        EXPECT_EQ(fingering.notes[i].fret, 0);
}

/// With the first finger on one of two equal strings there are two ways to the very end, of which
/// neither is easier: one is taken before too much waits, and then kept.
TEST(FingeringSolverTest, decidesBetweenEqualWays)
{
    Passage passage = passageOn({55, 55, 62, 62});
    for (int i = 0; i < 2500; ++i) {
        addEvent(passage, {63});
        passage.notes.back().finger = 1;
    }
    const FingeringSolution fingering = FingeringSolver(passage).solve();
    expectSound(passage, fingering);
    EXPECT_TRUE(fingering.problems.empty());
    EXPECT_GE(fingering.notes[0].string, 2);
    for (std::size_t i = 1; i < 2500; ++i)
        ASSERT_EQ(fingering.notes[i].string, fingering.notes[0].string) << i;
    EXPECT_EQ(fingering.notes, FingeringSolver(passage).solve().notes);
}

} // namespace
