// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>
#include <ZarnCore/score/ZarnScore.h>

#include <initializer_list>
#include <memory>

/// A score of six bars for a steel guitar (track 0) and a piano with two staves (track 1).
///
/// The guitar has four quarters in each bar but the last, which is empty: the open low e (written
/// MIDI 52), a chord of two open strings, a rest, and the high e' (76) tied over to the next bar,
/// where it comes first. The piano has a whole note c' in each upper bar, in voices 0 and 2.
struct SmallScore {
    zarn::Score score;
    zarn::ScoreModel &model = *score.scoreModel();

    SmallScore()
    {
        using namespace zarn;
        model.createAndInsertTrack(0, InstrumentSet::steelGuitar);
        model.createAndInsertTrack(1, InstrumentSet::chordophone);
        model.insertEmptyBarColumns(0, 6);
        for (unsigned bar = 0; bar < 5; ++bar) {
            Voice &guitar = *model.track(0)->bar(bar)->ensureVoice(0);
            addBeat(guitar, {bar == 0 ? 0 : 5});
            addBeat(guitar, {1, 2});
            addBeat(guitar, {});
            addBeat(guitar, {5});
            guitar.beat(0)->notes()[0]->setTied(bar != 0);
            guitar.beat(3)->notes()[0]->setTieOrigin(bar != 4);
            for (unsigned voice : {0U, 2U}) {
                auto whole = std::make_shared<Beat>(RhythmValue(RhythmValue::NoteValue::Whole));
                whole->addNote(std::make_shared<Note>(60));
                model.track(1)->bar(bar)->ensureVoice(voice)->addBeat(whole);
            }
        }
    }

    /// A quarter with notes on open strings.
    static void addBeat(zarn::Voice &voice, std::initializer_list<int> strings)
    {
        constexpr int written[] = {52, 57, 62, 67, 71, 76};
        auto beat = std::make_shared<zarn::Beat>();
        for (const int string : strings) {
            auto note = std::make_shared<zarn::Note>(written[string]);
            note->setString(string);
            note->setFret(0);
            beat->addNote(note);
        }
        voice.addBeat(beat);
    }

    zarn::ScoreModelIndex at(int bar, int beat, int track = 0, unsigned voice = 0) const
    {
        return {score.scoreModel().get(), track, bar, beat, voice, 0};
    }
    zarn::ScoreModelRange from(int bar, int beat, int lastBar, int lastBeat) const
    {
        return {at(bar, beat), at(lastBar, lastBeat), zarn::SelectionMode::MultiSelection};
    }
    zarn::ScoreModelRange everything(int bar, int lastBar) const
    {
        using zarn::SelectionMode;
        return {at(bar, -1), at(lastBar, -1),
                SelectionMode::MultiSelection | SelectionMode::MultiVoice
                    | SelectionMode::MultiTrack};
    }
    /// Whole bars of the staves of a track.
    zarn::ScoreModelRange everythingOf(int track, int bar, int lastBar) const
    {
        using zarn::SelectionMode;
        return {at(bar, -1, track), at(lastBar, -1, track),
                SelectionMode::MultiSelection | SelectionMode::MultiVoice};
    }

    /// A place on a string of the guitar.
    zarn::ScoreModelIndex onString(int bar, int beat, unsigned string) const
    {
        auto place = at(bar, beat);
        place.setNoteString(string);
        return place;
    }
    zarn::Beat &beat(unsigned bar, unsigned beat) const
    {
        return *model.track(0)->bar(bar)->voice(0)->beats()[beat];
    }
};
