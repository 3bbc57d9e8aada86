// SPDX-License-Identifier: MIT
#include <ZarnCore/fingering/ZarnFingeringSolver.h>
#include <ZarnCore/fingering/ZarnPassageReader.h>
#include <ZarnCore/model/ZarnStaff.h>

#include <gtest/gtest.h>

#include <memory>

namespace {

using namespace zarn;
using namespace zarn::fingering;

/// A guitar staff of two bars.
struct PassageReaderTest : testing::Test {
    std::shared_ptr<Staff> staff = std::make_shared<Staff>();

    PassageReaderTest()
    {
        staff->setTuning({40, 45, 50, 55, 59, 64});
        staff->addEmptyBars(2);
    }

    /// A quarter; pitches without strings.
    Beat &add(unsigned bar, unsigned voice, std::initializer_list<int> pitches)
    {
        const auto beat = std::make_shared<Beat>();
        for (const int pitch : pitches)
            beat->addNote(std::make_shared<Note>(pitch));
        staff->bar(bar)->ensureVoice(voice)->addBeat(beat);
        return *beat;
    }

    static void place(Note &note, int string, int fret)
    {
        note.setString(string);
        note.setFret(fret);
    }

    BeatSpan span(unsigned bar, unsigned voice, unsigned first, unsigned last) const
    {
        return {0, 0, bar, voice, first, last};
    }
};

TEST_F(PassageReaderTest, whatTwoVoicesStrikeTogetherIsOneNote)
{
    add(0, 0, {64, 60});
    add(0, 1, {60, 48});
    const auto read = readPassage(*staff, {span(0, 0, 0, 0), span(0, 1, 0, 0)}, {});
    ASSERT_EQ(read.passage.events.size(), 1U);
    EXPECT_EQ(read.passage.notes.size(), 3U);
    ASSERT_EQ(read.sources.size(), 4U);
    EXPECT_EQ(read.sources[1].passageNote, read.sources[2].passageNote);

    // A unison of one voice is played on two strings.
    add(1, 0, {64, 64});
    const auto doubled = readPassage(*staff, {span(1, 0, 0, 0)}, {});
    EXPECT_EQ(doubled.passage.notes.size(), 2U);
    const auto found = FingeringSolver(doubled.passage).solve();
    EXPECT_NE(found.notes[0].string, found.notes[1].string);
}

TEST_F(PassageReaderTest, tiedNotesAreOneAndKeepTheStringOfThoseOutside)
{
    Note &first = *add(0, 0, {67}).notes()[0];
    Note &held = *add(1, 0, {67, 64}).notes()[0];
    first.setTieOrigin(true);
    held.setTied(true);
    const auto both = readPassage(*staff, {span(0, 0, 0, 0), span(1, 0, 0, 0)}, {});
    ASSERT_EQ(both.passage.notes.size(), 2U);
    EXPECT_EQ(both.passage.notes[0].end, 2);
    EXPECT_EQ(both.passage.notes[0].tiedUntil, 1);
    EXPECT_EQ(both.sources[0].passageNote, both.sources[1].passageNote);

    place(first, 3, 12);
    const auto second = readPassage(*staff, {span(1, 0, 0, 0)}, {});
    EXPECT_EQ(second.passage.notes[second.sources[0].passageNote].string, 3);
    const auto again = readPassage(*staff, {span(0, 0, 0, 0), span(1, 0, 0, 0)}, {});
    EXPECT_EQ(again.passage.notes[0].string, PassageNote::Free) << "all of it may move";
}

TEST_F(PassageReaderTest, graceNotesComeFirst)
{
    for (int pitch : {62, 63}) {
        Beat &grace = add(0, 0, {pitch});
        grace.setGraceType(GraceType::BeforeBeat);
    }
    add(0, 0, {64});
    add(0, 1, {48});
    const auto read = readPassage(*staff, {span(0, 0, 0, 2), span(0, 1, 0, 0)}, {});
    ASSERT_EQ(read.passage.events.size(), 3U);
    EXPECT_EQ(read.passage.notes[0].pitch, 62);
    EXPECT_EQ(read.passage.notes[1].pitch, 63);
    EXPECT_EQ(read.passage.events[2].noteCount, 2U);
    EXPECT_LT(read.passage.events[0].onset, read.passage.events[1].onset);
    EXPECT_LT(read.passage.events[1].onset, read.passage.events[2].onset);
}

TEST_F(PassageReaderTest, whatStandsAroundIsFixedAndWhatIsGivenAsAsked)
{
    place(*add(0, 0, {64}).notes()[0], 3, 9);
    add(0, 0, {65});
    Note &given = *add(0, 0, {69}).notes()[0];
    place(given, 4, 10);
    add(0, 0, {71}); // neither asked for nor on a string
    const auto strings = [&](GivenStrings kept) {
        FingeringOptions options;
        options.given = kept;
        std::vector<int> found;
        for (const auto &note : readPassage(*staff, {span(0, 0, 1, 2)}, options).passage.notes)
            found.push_back(note.string);
        return found;
    };
    EXPECT_EQ(strings(GivenStrings::Ignored), (std::vector<int>{3, -1, -1}));
    EXPECT_EQ(strings(GivenStrings::KeptOpen), (std::vector<int>{3, -1, -1}));
    EXPECT_EQ(strings(GivenStrings::Kept), (std::vector<int>{3, -1, 4}));
    given.setDead(true);
    EXPECT_EQ(strings(GivenStrings::Ignored), (std::vector<int>{3, -1, 4})) << "dead notes stay";
}

TEST_F(PassageReaderTest, marksSayWhatStaysOnAStringAndHowLong)
{
    Note &hammered = *add(0, 0, {64}).notes()[0];
    hammered.setHopo(true);
    Beat &chord = add(0, 0, {67, 48});
    chord.notes()[0]->setSlideOut(SlideOut::Legato);
    Note &reached = *add(0, 0, {69}).notes()[0];
    reached.setLetRing(true);
    reached.setSlideOut(SlideOut::Downwards); // leads nowhere
    add(0, 0, {60});
    add(0, 1, {45});
    const auto all = {span(0, 0, 0, 3), span(0, 1, 0, 0)};
    const Passage passage = readPassage(*staff, all, {}).passage;
    ASSERT_EQ(passage.notes.size(), 6U); // 64 45, 67 48, 69, 60
    EXPECT_EQ(passage.notes[2].leadsFrom, 0U);
    EXPECT_EQ(passage.notes[3].leadsFrom, PassageNote::NoNote);
    EXPECT_EQ(passage.notes[4].leadsFrom, 2U);
    EXPECT_EQ(passage.notes[5].leadsFrom, PassageNote::NoNote);
    EXPECT_EQ(passage.notes[4].ringsUntil, 4);
    EXPECT_EQ(passage.notes[5].ringsUntil, -1);
}

TEST_F(PassageReaderTest, naturalHarmonicsAndGivenFingersStay)
{
    Note &harmonic = *add(0, 0, {76}).notes()[0];
    place(harmonic, 5, 12);
    harmonic.setHarmonic({HarmonicType::Natural, 2});
    Note &fingered = *add(0, 0, {67}).notes()[0];
    fingered.setLeftFingering(Fingering::Little);
    const auto free = readPassage(*staff, {span(0, 0, 0, 1)}, {});
    EXPECT_EQ(free.passage.notes[0].string, 5);
    EXPECT_EQ(free.passage.notes[1].finger, PassageNote::Free);
    FingeringOptions options;
    options.given = GivenStrings::Kept;
    EXPECT_EQ(readPassage(*staff, {span(0, 0, 0, 1)}, options).passage.notes[1].finger, 4);
    fingered.setLeftFingering(Fingering::Open);
    EXPECT_EQ(readPassage(*staff, {span(0, 0, 0, 1)}, options).passage.notes[1].finger, 0);
    fingered.setLeftFingering(Fingering::Thumb);
    EXPECT_EQ(readPassage(*staff, {span(0, 0, 0, 1)}, options).passage.notes[1].finger,
              PassageNote::Free);
}

TEST_F(PassageReaderTest, thePitchIsWhatTheStringSounds)
{
    Note &octaveHigher = *add(0, 0, {76}).notes()[0];
    place(octaveHigher, 5, 0);
    add(0, 0, {76});
    const auto read = readPassage(*staff, {span(0, 0, 0, 1)}, {});
    EXPECT_EQ(read.passage.notes[0].pitch, 64);
    EXPECT_EQ(read.passage.notes[1].pitch, 76);
}

TEST_F(PassageReaderTest, countsFretsFromTheCapoAndLeavesTheDroneOpen)
{
    staff->setCapoFret(3);
    staff->setPartialCapoFret(5);
    staff->setPartialCapoStringFlags({true, false, false, false, false, false});
    const StaffFrets board(*staff);
    EXPECT_EQ(board.fret(1, 48), 0);
    EXPECT_EQ(board.fret(0, 45), 0);
    EXPECT_EQ(board.fret(0, 43), -1) << "below the partial capo";
    EXPECT_EQ(board.neckFret(0, 1), 3);
    EXPECT_EQ(board.neckFret(1, 1), 1);

    GuitarTuning banjo{67, 50, 55, 59, 62};
    banjo.setShortDroneString(true);
    staff->setCapoFret(0);
    staff->setPartialCapoFret(0);
    staff->setTuning(banjo);
    add(0, 0, {69, 67});
    const auto read = readPassage(*staff, {span(0, 0, 0, 0)}, {});
    const auto found = FingeringSolver(read.passage).solve();
    EXPECT_EQ(found.notes[1], (Placement{0, 0, 0}));
    EXPECT_NE(found.notes[0].string, 0);

    staff->setTuning(GuitarTuning());
    EXPECT_FALSE(canBeFingered(*staff));
    staff->setTuning(GuitarTuning(13U));
    EXPECT_FALSE(canBeFingered(*staff));
}

} // namespace
