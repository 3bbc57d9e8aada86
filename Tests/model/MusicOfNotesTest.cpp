// SPDX-License-Identifier: MIT
#include <ZarnCore/model/ZarnBeat.h>
#include <ZarnCore/model/ZarnMasterBar.h>
#include <ZarnCore/model/ZarnNote.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/ZarnVoice.h>
#include <ZarnCore/music/ZarnMusic.h>
#include <ZarnCore/music/ZarnTone.h>

#include <gtest/gtest.h>

namespace {

using namespace zarn;

/// A guitar of one bar with one note in it.
struct OneNote {
    OneNote()
    {
        model->insertEmptyBarColumns(0, 1);
        track = model->createAndInsertTrack(0, InstrumentSet::steelGuitar);
        track->setTranspositionOffset(0);
        const auto beat = std::make_shared<Beat>();
        beat->addNote(note);
        track->bar(0)->ensureVoice(0)->addBeat(beat);
    }
    void setKey(int accidentalCount)
    {
        model->masterTrack()->masterBar(0)->setConcertKeySignature(KeySignature(accidentalCount));
    }

    std::shared_ptr<ScoreModel> model = std::make_shared<ScoreModel>();
    std::shared_ptr<Track> track;
    std::shared_ptr<Note> note = std::make_shared<Note>();
};

TEST(MusicOfNotes, stringAndFretGiveThePitchThatANoteLacks)
{
    OneNote one;
    const auto staff = one.track->staff(0);
    const int open = staff->tuning().tuning(1);
    EXPECT_EQ(Music::midi(*one.note), Note::Unset);
    EXPECT_EQ(Music::noteName(*one.note), NoteName());
    one.note->setString(1);
    one.note->setFret(3);
    EXPECT_EQ(Music::midi(*one.note), open + 3);
    staff->setCapoFret(2);
    EXPECT_EQ(Music::midi(*one.note), open + 5);
    staff->setPartialCapoFret(4);
    staff->setPartialCapoStringFlags({false, true, true, false, false, false});
    EXPECT_EQ(Music::midi(*one.note), open + 7);
    one.note->setString(0);
    EXPECT_EQ(Music::midi(*one.note), staff->tuning().tuning(0) + 5);
    one.model->setIgnoreCapo(true);
    EXPECT_EQ(Music::midi(*one.note), staff->tuning().tuning(0) + 3);
    one.track->setTranspositionOffset(-12);
    EXPECT_EQ(Music::midi(*one.note), staff->tuning().tuning(0) + 15) << "an octave higher written";
    one.note->setMidi(61);
    EXPECT_EQ(Music::midi(*one.note), 61);
    const auto detached = one.note->clone();
    detached->setMidi(Note::Unset);
    EXPECT_EQ(Music::midi(*detached), Note::Unset);
}

TEST(MusicOfNotes, writtenKeysFollowTheTransposition)
{
    OneNote one;
    const Bar &bar = *one.track->bar(0);
    one.setKey(-3);
    EXPECT_EQ(Music::drawingKeySignatureForBar(bar).accidentalCount(), -3);
    one.track->setTranspositionOffset(-2);
    EXPECT_EQ(Music::drawingKeySignatureForBar(bar).accidentalCount(), -1)
        << "a clarinet in B flat reads F major for E flat";
    one.setKey(7);
    one.track->setTranspositionOffset(-24);
    EXPECT_EQ(Music::drawingKeySignatureForBar(bar).accidentalCount(), 7)
        << "octaves leave the writing of a key alone";
    EXPECT_EQ(Music::drawingKeySignatureForBar(Bar()), KeySignature());
}

TEST(MusicOfNotes, spellingComesFromTheNoteThenFromTheKey)
{
    OneNote one;
    one.note->setMidi(66);
    EXPECT_EQ(Music::noteName(*one.note), NoteName::Value::F);
    one.setKey(-6);
    EXPECT_EQ(Music::noteName(*one.note), NoteName::Value::G);
    one.note->setSpelling(PitchClass(NoteName::Value::E, NoteAccidental::Value::DoubleSharp));
    EXPECT_EQ(Music::noteName(*one.note), NoteName::Value::E);
    one.note->setMidi(67);
    EXPECT_EQ(Music::noteName(*one.note), NoteName::Value::F) << "F double sharp is its own letter";
    one.note->setMidi(65);
    EXPECT_EQ(Music::noteName(*one.note), NoteName::Value::F) << "no letter has two sharps here";
}

TEST(MusicOfNotes, pitchesSoundAsTheirMidiNumbers)
{
    Note note;
    for (int midi = 0; midi < 128; ++midi)
        for (int key = -7; key <= 7; ++key)
            for (const auto accidental :
                 {NoteAccidental::Value::DoubleFlat, NoteAccidental::Value::Natural,
                  NoteAccidental::Value::Sharp}) {
                note.setSpelling(PitchClass(NoteName::Value::C, accidental));
                const core::Pitch pitch = Music::computePitchAccordingToMidi(note, midi, key);
                EXPECT_EQ(pitch.midi(), midi);
                EXPECT_TRUE(PitchClass::fromPitch(pitch));
            }
}

} // namespace
