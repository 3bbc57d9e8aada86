// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnCoreUtils.h>
#include <ZarnCore/ZarnException.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

#include <gtest/gtest.h>

namespace {

using namespace zarn;
using Utils = ZarnCoreUtils;

/// Bars: four beats with a chord, an empty one, a rest and a note, a tie of three.
class CoreUtilsSearch : public testing::Test {
protected:
    CoreUtilsSearch()
        : score(Utils::make_from_string("guitar: 6:3q [6:5 5:5] r 6:7 | rh 5:2h | 6:1h 6:1h~ | "
                                        "6:1w~ | 6:1h 6:2h"))
    {
        score->createBars(1, 1);
    }

    std::shared_ptr<const Beat> beat(unsigned bar, unsigned number) const
    {
        return score->track(0)->bar(bar)->voice(0)->beat(number);
    }
    std::shared_ptr<const Note> note(unsigned bar, unsigned number, unsigned place = 0) const
    {
        return beat(bar, number)->note(place);
    }

    std::unique_ptr<Score> score;
};

bool isAny(const std::shared_ptr<const Beat> &)
{
    return true;
}
bool isRest(const std::shared_ptr<const Beat> &beat)
{
    return beat->isRest();
}
bool isAnyNote(const std::shared_ptr<const Note> &)
{
    return true;
}

TEST_F(CoreUtilsSearch, beatsAreFoundAsFarAsTheSearchGoes)
{
    EXPECT_EQ(Utils::findNextBeat(beat(0, 0), isRest, nullptr, SearchDeep::Voice), beat(0, 2));
    EXPECT_EQ(Utils::findNextBeat(beat(0, 2), isRest, nullptr, SearchDeep::Voice), nullptr);
    EXPECT_EQ(Utils::findNextBeat(beat(0, 2), isRest, nullptr, SearchDeep::Connected), nullptr)
        << "bar 1 is a gap";
    EXPECT_EQ(Utils::findNextBeat(beat(0, 2), isRest, nullptr, SearchDeep::Staff), beat(2, 0));
    EXPECT_EQ(Utils::findNextBeat(beat(2, 1), isAny, nullptr, SearchDeep::Connected), beat(3, 0));
    EXPECT_EQ(Utils::findPreviousBeat(beat(2, 0), isRest, nullptr, SearchDeep::Connected), nullptr);
    EXPECT_EQ(Utils::findPreviousBeat(beat(2, 0), isAny, nullptr, SearchDeep::Staff), beat(0, 3));
    EXPECT_EQ(Utils::findNextBeat(beat(5, 1), isAny, nullptr, SearchDeep::Staff), nullptr);
    EXPECT_EQ(Utils::findPreviousBeat(beat(0, 0), isAny, nullptr, SearchDeep::Staff), nullptr);
}

TEST_F(CoreUtilsSearch, theLimitIsTheLastThatIsLookedAt)
{
    EXPECT_EQ(Utils::findNextBeat(beat(0, 0), isRest, beat(0, 2), SearchDeep::Staff), beat(0, 2));
    EXPECT_EQ(Utils::findNextBeat(beat(0, 0), isRest, beat(0, 1), SearchDeep::Staff), nullptr);
    EXPECT_EQ(Utils::findNextBeat(beat(0, 0), isAny, beat(0, 0), SearchDeep::Staff), nullptr);
    EXPECT_EQ(Utils::findPreviousBeat(beat(2, 1), isRest, beat(2, 0), SearchDeep::Staff),
              beat(2, 0));
    const auto isFifth = [](const auto &note) { return note->string() == 1; };
    EXPECT_EQ(Utils::findNextNote(note(0, 0), isFifth, note(0, 3), SearchDeep::Staff),
              note(0, 1, 1));
    EXPECT_EQ(Utils::findNextNote(note(0, 0), isFifth, note(0, 1, 0), SearchDeep::Staff), nullptr);
}

TEST_F(CoreUtilsSearch, notesComeInTheirOrderAndBackwardsInTheReverse)
{
    std::vector<std::shared_ptr<const Note>> forwards{note(0, 0)};
    while (const auto next =
               Utils::findNextNote(forwards.back(), isAnyNote, nullptr, SearchDeep::Staff))
        forwards.push_back(next);
    std::vector<std::shared_ptr<const Note>> backwards{note(5, 1)};
    while (const auto next =
               Utils::findPreviousNote(backwards.back(), isAnyNote, nullptr, SearchDeep::Staff))
        backwards.push_back(next);
    EXPECT_EQ(forwards.size(), 10u);
    EXPECT_EQ(forwards[2], note(0, 1, 1));
    EXPECT_TRUE(std::equal(forwards.rbegin(), forwards.rend(), backwards.begin(), backwards.end()));
}

TEST_F(CoreUtilsSearch, slotsSayWhichNotesBelongTogether)
{
    EXPECT_EQ(Utils::findFirstNextNote(note(0, 1, 1), NoteSlot::String), note(2, 1))
        << "over an empty bar and a rest";
    EXPECT_EQ(Utils::findFirstNextNote(note(0, 1, 1), NoteSlot::Location), note(2, 1));
    EXPECT_EQ(Utils::findFirstNextNote(note(0, 1, 1), NoteSlot::Any), note(0, 3));
    EXPECT_EQ(Utils::findFirstNextNote(note(0, 1, 1), NoteSlot::Midi), nullptr);
    EXPECT_EQ(Utils::findFirstNextNote(note(3, 0), NoteSlot::Midi), note(3, 1));
    EXPECT_EQ(Utils::findFirstPreviousNote(note(3, 0), NoteSlot::String), note(0, 3));
    EXPECT_EQ(Utils::findFirstPreviousNote(note(0, 0), NoteSlot::Any), nullptr);

    const auto piano = Utils::make_from_string("piano: c4q e4 c4 + r");
    const auto &voice = *piano->track(0)->bar(0)->voice(0);
    EXPECT_EQ(Utils::findFirstNextNote(voice.beats()[0]->notes()[0], NoteSlot::Location),
              voice.beats()[2]->notes()[0]);
    EXPECT_EQ(Utils::findFirstNextNote(voice.beats()[0]->notes()[0], NoteSlot::String), nullptr);
}

TEST_F(CoreUtilsSearch, tiesLeadToTheNoteThatWasStruck)
{
    EXPECT_EQ(Utils::findTieOriginNote(note(5, 0), NoteSlot::Location), note(3, 1))
        << "over two bar lines";
    EXPECT_EQ(Utils::findTieOriginNote(note(4, 0), NoteSlot::String), note(3, 1));
    EXPECT_EQ(Utils::findTieOriginNote(note(3, 1), NoteSlot::Location), nullptr) << "not tied";
    score->track(0)->bar(4)->voice(0)->beat(0)->note(0)->setTieOrigin(false);
    EXPECT_EQ(Utils::findTieOriginNote(note(5, 0), NoteSlot::Location), nullptr) << "broken";
}

TEST_F(CoreUtilsSearch, bendsLeadToTheNoteThatWasStruckOnTheString)
{
    EXPECT_EQ(Utils::findBendOriginNote(note(5, 1), NoteSlot::String), note(3, 1)) << "by its ties";
    EXPECT_EQ(Utils::findBendOriginNote(note(0, 1), NoteSlot::String), note(0, 0));
    EXPECT_EQ(Utils::findBendOriginNote(note(0, 3), NoteSlot::String), nullptr) << "after a rest";
    EXPECT_EQ(Utils::findBendOriginNote(note(3, 0), NoteSlot::String), nullptr);
}

TEST_F(CoreUtilsSearch, whatStandsAloneHasNoNeighbours)
{
    const auto loose = std::make_shared<Beat>();
    const auto looseNote = std::make_shared<Note>(60);
    for (const auto deep : {SearchDeep::Voice, SearchDeep::Connected, SearchDeep::Staff}) {
        EXPECT_EQ(Utils::findNextBeat(loose, isAny, nullptr, deep), nullptr);
        EXPECT_EQ(Utils::findPreviousBeat(nullptr, isAny, nullptr, deep), nullptr);
        EXPECT_EQ(Utils::findNextNote(looseNote, isAnyNote, nullptr, deep), nullptr);
    }
    EXPECT_EQ(Utils::findTieOriginNote(looseNote, NoteSlot::Any), nullptr);
    EXPECT_EQ(Utils::findBendOriginNote(nullptr, NoteSlot::Any), nullptr);

    const auto voice = std::make_shared<Voice>();
    voice->insertBeats(0, {loose, std::make_shared<Beat>()});
    EXPECT_EQ(Utils::findNextBeat(loose, isAny, nullptr, SearchDeep::Staff), voice->beat(1))
        << "a voice without a bar is a line too";
    EXPECT_EQ(Utils::findNextBeat(voice->beat(1), isAny, nullptr, SearchDeep::Staff), nullptr);
}

TEST(CoreUtilsNotations, aTrackShowsWhatItsInstrumentIsReadFromOrWhatWasChosen)
{
    const auto score = Utils::make_from_string("guitar: r; piano: r + r; drums: r");
    const auto track = [&](unsigned index) { return score->track(index).get(); };
    EXPECT_TRUE(Utils::trackHasTablature(track(0)) && Utils::trackHasStdNotation(track(0)));
    EXPECT_FALSE(Utils::trackHasSlash(track(0)));
    for (const unsigned index : {1u, 2u}) {
        EXPECT_TRUE(Utils::trackHasStdNotation(track(index)));
        EXPECT_FALSE(Utils::trackHasTablature(track(index)));
    }
    track(0)->setChosenNotations(TrackNotations{false, false, true});
    EXPECT_TRUE(Utils::trackHasSlash(track(0)));
    EXPECT_FALSE(Utils::trackHasStdNotation(track(0)) || score->hasTablature(0));
    EXPECT_THROW(track(0)->setChosenNotations(TrackNotations{false, false, false}), CoreException);
    track(0)->setChosenNotations({});
    EXPECT_TRUE(score->hasTablature(0));

    EXPECT_FALSE(score->hasStdNotation(3));
    EXPECT_FALSE(Utils::trackHasStdNotation(nullptr));
    const auto loose = score->track(0)->clone();
    EXPECT_FALSE(Utils::trackHasStdNotation(loose.get()));
}

} // namespace
