// SPDX-License-Identifier: MIT
#include "ModelSamples.h"

#include <ZarnCore/instruments/tunings/ZarnGuitarTuningLibrary.h>
#include <ZarnCore/model/layout/ZarnGroupBarIndex.h>
#include <ZarnCore/model/places/ZarnFlatten.h>

#include <limits>

using namespace zarn;

TEST(Flatten, masksSelectTracks)
{
    ScoreModel model;
    const InstrumentSet::Type types[] = {InstrumentSet::steelGuitar, InstrumentSet::drumKit,
                                         InstrumentSet::unknown, InstrumentSet::violin,
                                         InstrumentSet::acousticPiano};
    for (unsigned i = 0; i < std::size(types); ++i)
        model.createAndInsertTrack(i, types[i]);
    const auto numbers = [&](unsigned mask) {
        std::vector<unsigned> found;
        unsigned staves = 0;
        for (const auto &track : flatten::tracks(model, mask)) {
            found.push_back(track->index());
            staves += track->staffCount();
        }
        EXPECT_EQ(flatten::trackCount(model, mask), found.size());
        EXPECT_EQ(flatten::staves(model, mask).size(), staves);
        EXPECT_EQ(flatten::staffCount(model, mask), staves);
        return found;
    };
    using Numbers = std::vector<unsigned>;
    EXPECT_EQ(numbers(InstrumentSet::pitched), (Numbers{0, 3, 4}));
    EXPECT_EQ(numbers(InstrumentSet::unpitched), Numbers{1});
    EXPECT_EQ(numbers(0xFFFFFFFF), (Numbers{0, 1, 3, 4})) << "an unknown one has no bit";
    EXPECT_EQ(numbers(0x100), Numbers{3}) << "bowed";
    EXPECT_EQ(numbers(0), Numbers());
    EXPECT_EQ(flatten::staves(*model.track(4)).size(), 2U);
}

TEST(Flatten, sortsEachBeatByItself)
{
    const auto model = makeBand(1);
    const auto voice = model->track(0)->bar(0)->voice(0);
    voice->clear();
    const auto add = [&](std::initializer_list<std::pair<int, int>> stringsAndKeys) {
        auto beat = makeBeat(RhythmValue::NoteValue::Half);
        for (const auto &[string, midi] : stringsAndKeys) {
            beat->addNote(std::make_shared<Note>(midi));
            if (string >= 0)
                beat->notes().back()->setString(string);
        }
        voice->addBeat(beat);
    };
    add({{5, 64}, {0, 40}, {-1, 70}, {3, 55}, {-1, 60}});
    add({{1, 45}, {0, 52}, {1, 45}});
    const auto keys = [](const flatten::Notes &notes) {
        std::vector<int> found;
        for (const auto &note : notes)
            found.push_back(note->midi());
        return found;
    };
    EXPECT_EQ(keys(flatten::notes(*voice)), (std::vector<int>{64, 40, 70, 55, 60, 45, 52, 45}));
    const auto sorted = flatten::notes(*model, true);
    EXPECT_EQ(keys(sorted), (std::vector<int>{60, 70, 40, 55, 64, 52, 45, 45}));
    EXPECT_EQ(sorted[6], voice->beats()[1]->notes()[0]) << "equal notes stay in order";
    EXPECT_EQ(sorted, flatten::notes(*model->track(0)->bar(0), true));
    EXPECT_EQ(sorted.capacity(), sorted.size()) << "reserved at once";
}

TEST(Flatten, beatsAtAnOffset)
{
    const auto model = makeBand(1);
    const auto bar = model->track(0)->bar(0);
    const auto lower = bar->ensureVoice(2);
    lower->addBeat(makeBeat(RhythmValue::NoteValue::Eighth, {50}));
    lower->beats().back()->setGraceType(GraceType::BeforeBeat);
    lower->addBeat(makeBeat(RhythmValue::NoteValue::Half, {52, 50}));
    lower->addBeat(makeBeat(RhythmValue::NoteValue::Half, {50}));
    using Beats = flatten::Beats;
    EXPECT_EQ(flatten::beats(*bar, 2), (Beats{bar->voice(0)->beat(1), lower->beat(2)}));
    EXPECT_EQ(flatten::beats(*bar, 0), (Beats{bar->voice(0)->beat(0), lower->beat(1)}));
    EXPECT_EQ(flatten::beats(*bar, 3), Beats{bar->voice(0)->beat(2)});
    EXPECT_TRUE(flatten::beats(*bar, utils::rational(1, 3)).empty());
    const auto notes = flatten::notes(*bar, 0, true);
    ASSERT_EQ(notes.size(), 3U);
    EXPECT_EQ(notes[1], lower->beat(1)->note(1));
    EXPECT_EQ(flatten::notes(*bar, 0, false)[1], lower->beat(1)->note(0));
}

TEST(Flatten, tuningsOfALibrary)
{
    GuitarTuningLibrary library;
    EXPECT_TRUE(flatten::tunings(library).empty());
    const flatten::Tunings tunings{
        std::make_shared<GuitarTuning>(std::vector<unsigned>{40, 45, 50, 55}),
        std::make_shared<GuitarTuning>(std::vector<unsigned>{38, 45, 50, 55, 59, 64}),
    };
    library.addTuning(tunings[1], GuitarTuning::CoreRole);
    library.addTuning(tunings[0], GuitarTuning::CoreRole);
    EXPECT_EQ(flatten::tunings(library), tunings) << "in the order of the library";
}

TEST(GroupBarIndex, holdsBothBars)
{
    GroupBarIndex group(7, 4);
    EXPECT_EQ(group.barsIndexes(), std::make_pair(4, 7));
    EXPECT_EQ(group.barCount(), 4U);
    EXPECT_TRUE(group.containsBar(4) && group.containsBar(7));
    EXPECT_FALSE(group.containsBar(3) || group.containsBar(8) || group.containsBar(-1));
    EXPECT_EQ(group, GroupBarIndex(4, 7));
    group.setType(GroupBarIndex::Type::MultiRest);
    EXPECT_NE(group, GroupBarIndex(4, 7)) << "the type counts";
    EXPECT_EQ(group, GroupBarIndex(4, 7, GroupBarIndex::Type::MultiRest));
    EXPECT_EQ(GroupBarIndex(0, std::numeric_limits<int>::max()).barCount(), 0x80000000U);
    const GroupBarIndex empty(-1, 5);
    EXPECT_EQ(empty.barCount(), 0U);
    EXPECT_FALSE(empty.containsBar(2) || empty.containsBar(-1));
}
