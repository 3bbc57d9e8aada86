// SPDX-License-Identifier: MIT
#include "ModelSamples.h"

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>

#include <filesystem/RAMFileSystem.h>

#include <limits>

using namespace zarn;

namespace {

std::string errorOf(const std::function<void()> &action)
{
    try {
        action();
    } catch (const CoreException &exception) {
        return exception.message() + " in " + exception.function();
    }
    return "no error";
}

} // namespace

TEST(ScoreModelIndex, resolvesEveryLevel)
{
    const auto model = makeBand(3);
    const ScoreModelIndex unset;
    EXPECT_FALSE(unset.isTrackValid() || unset.isBarValid() || unset.isBeatValid()
                 || unset.isNoteValid());
    EXPECT_EQ(unset.type(), InstrumentSet::unknown);

    ScoreModelIndex index(model.get(), 0, 2, 1, 0, 0);
    EXPECT_EQ(index.beat(), model->track(0)->bar(2)->voice(0)->beat(1));
    EXPECT_EQ(index.masterBar(), model->masterTrack()->masterBar(2));
    EXPECT_EQ(index.type(), InstrumentSet::steelGuitar);
    EXPECT_EQ(index.beatDrawingOffset(), utils::rational(2));
    EXPECT_TRUE(index.setNoteMidi(46));
    EXPECT_EQ(index.note(), index.beat()->note(1));
    EXPECT_FALSE(index.setNoteMidi(99));
    EXPECT_TRUE(index.setBeatOffset(utils::rational(7, 2)));
    EXPECT_EQ(index.beatIndex(), 2);
    EXPECT_FALSE(index.setBeatOffset(4));
    EXPECT_EQ(index.beatIndex(), 2);
    EXPECT_FALSE(index.setVoiceIndex(4));
    EXPECT_THROW(index.setVoiceIndex(5), CoreException);
    EXPECT_FALSE(index.setTrackIndex(2));
    EXPECT_TRUE(index.masterBar());
    EXPECT_FALSE(index.bar());
}

TEST(ScoreModelIndex, noNumberReachesWhatIsNotThere)
{
    const auto model = makeBand(2);
    const int wild[] = {
        -1, 0, 2, 4, 70000, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()};
    for (const int track : wild)
        for (const int bar : wild)
            for (const int beat : wild)
                for (const int small : wild) {
                    ScoreModelIndex index(model.get(), track, bar, beat,
                                          static_cast<unsigned>(small),
                                          static_cast<unsigned>(small));
                    index.setNoteString(static_cast<unsigned>(small));
                    EXPECT_EQ(index.isBeatValid(), index.beat() != nullptr);
                    EXPECT_EQ(index.isNoteValid(), index.note() != nullptr);
                    index.beatSoundingLength();
                    index.toQString();
                }
}

TEST(ScoreModelIndex, notesAreFoundByWhatIsSet)
{
    const auto model = makeBand(1);
    ScoreModelIndex index(model.get(), 0, 0, 0, 0, 0);
    const auto beat = index.beat();
    beat->takeNotes();
    for (int string = 0; string < 3; ++string) {
        const auto note = std::make_shared<Note>(50 + string);
        note->setString(string);
        note->setPercussionArticulation(string + 7);
        beat->addNote(note);
    }
    EXPECT_EQ(index.note(), beat->note(0)) << "string 0";
    EXPECT_TRUE(index.setNoteMidi(52));
    EXPECT_EQ(index.note(), beat->note(2)) << "the string was never set";
    EXPECT_TRUE(index.setNoteString(2));
    EXPECT_FALSE(index.setNoteString(1)) << "another string than the key's";
    index.invalidateNote();
    EXPECT_FALSE(index.isNoteValid());
    EXPECT_TRUE(index.setNotePercussionActiculation(8));
    EXPECT_EQ(index.note(), beat->note(1));
    EXPECT_FALSE(index.setNotePercussionActiculation(0));
}

TEST(ScoreModelIndex, orderAndEquality)
{
    const auto model = makeBand(2);
    model->track(0)->bar(0)->ensureVoice(1)->addBeat(
        makeBeat(RhythmValue::NoteValue::Quarter, {60}));
    const auto at = [&](int bar, int beat, unsigned voice = 0, int track = 0) {
        return ScoreModelIndex(model.get(), track, bar, beat, voice, 0);
    };
    EXPECT_TRUE(at(0, 2) < at(1, 0));
    EXPECT_TRUE(at(0, 0) < at(0, 1));
    EXPECT_FALSE(at(0, -1) < at(0, -1));
    EXPECT_TRUE(at(0, 0, 1) < at(0, 1, 0));
    EXPECT_FALSE(at(0, 0, 1) < at(0, 0, 0));
    EXPECT_FALSE(at(0, 9, 1) < at(0, 0, 0)) << "a beat that is not there counts as 0";
    EXPECT_EQ(errorOf([&] { (void)(at(0, 0) < at(0, 0, 0, 1)); }),
              "Assertion failed: _trackIndex == other._trackIndex in "
              "zarn::ScoreModelIndex::operator <");
    EXPECT_EQ(errorOf([&] { (void)(at(-1, 0) < at(0, 0)); }),
              "Assertion failed: _barIndex != -1 && other._barIndex != -1 in "
              "zarn::ScoreModelIndex::operator <");
    ScoreModelIndex element = at(0, 0);
    element.setNotePercussionActiculation(5);
    EXPECT_EQ(element, at(0, 0));
    element.setNoteMidi(5);
    EXPECT_NE(element, at(0, 0));
    EXPECT_TRUE(element.equalBeat(at(0, 0)));
}

TEST(ScoreModelIndex, textsAndStreams)
{
    ScoreModelIndex index(nullptr, 70000, -1, 3, 2, 1);
    EXPECT_EQ(index.toQString().toStdString(),
              "Track:70000, Staff:1, Bar:-1, Voice:2, Beat:3, NoteMidi:-1, NoteString:0, "
              "NoteElement:0");
    const ScoreModelRange range(ScoreModelIndex(nullptr, 0, 4, 1, 0, 0),
                                ScoreModelIndex(nullptr, 0, 2, 0, 0, 0),
                                SelectionMode::MultiSelection | SelectionMode::MultiVoice);
    EXPECT_EQ(range.first().barIndex(), 2);
    EXPECT_TRUE(range.toQString().endsWith(QStringLiteral("MultiVoice MultiSelection ]")));

    filesystem::RAMFileSystem files;
    {
        const auto file = files.open("range", filesystem::OpenMode::Write);
        ASSERT_TRUE(range.writeToStream(*file, 1));
        ASSERT_TRUE(index.writeToStream(*file, 1));
        EXPECT_EQ(file->size(), 33 + 16);
        ASSERT_TRUE(file->close());
    }
    const auto file = files.open("range", filesystem::OpenMode::Read);
    ScoreModelRange readRange;
    ScoreModelIndex readIndex;
    ASSERT_TRUE(readRange.readFromStream(*file, 1));
    ASSERT_TRUE(readIndex.readFromStream(*file, 1));
    EXPECT_EQ(readRange, range);
    EXPECT_EQ(readIndex.trackIndex(), 70000 - 65536);
    EXPECT_EQ(readIndex.noteMidi(), ScoreModelIndex::Unset);
    ScoreModelIndex untouched(nullptr, 1, 2, 3, 0, 0);
    EXPECT_FALSE(untouched.readFromStream(*file, 1)) << "the file is at its end";
    EXPECT_EQ(untouched.barIndex(), 2);
}

TEST(ScoreModelRange, modesAndEnds)
{
    const auto model = makeBand(3);
    const ScoreModelIndex early(model.get(), 0, 0, 1, 0, 0);
    const ScoreModelIndex late(model.get(), 0, 2, 0, 0, 0);
    ScoreModelRange range(late, early);
    EXPECT_EQ(range.first(), early);
    EXPECT_TRUE(range.isMultiSelection());
    EXPECT_EQ(range.barCount(), 3u);
    EXPECT_EQ(range.upperBeat(), late.beat());
    range.setFirst(late);
    range.setSecond(early);
    EXPECT_EQ(range.first(), late);
    EXPECT_EQ(range.sortedRange().first(), early);
    range.setMultiVoice(true);
    range.setMultiTrack(true);
    EXPECT_FALSE(range.isMultiTrack()) << "all three bits or none";
    range.setMultiSelection(true);
    EXPECT_TRUE(range.isMultiTrack());
    EXPECT_EQ(ScoreModelRange::sortRange(range).lowerBeat(),
              model->track(0)->bar(0)->voice(0)->beat(0));

    ScoreModelRange single(early);
    EXPECT_TRUE(single.isSingleBeat());
    EXPECT_FALSE(single.isPlaceHolder());
    early.beat()->takeNotes();
    early.beat()->setPlaceHolder(true);
    EXPECT_TRUE(single.isPlaceHolder());
    const ScoreModelRange unset;
    EXPECT_EQ(ScoreModelRange(ScoreModelIndex(), ScoreModelIndex()), unset);
    EXPECT_EQ(unset.barCount(), 0u);
    EXPECT_FALSE(unset.isSingleBeat());
    EXPECT_THROW(ScoreModelRange(ScoreModelIndex(), early), CoreException);
}
