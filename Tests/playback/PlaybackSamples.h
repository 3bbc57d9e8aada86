// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/playback/ZarnPlaybackPlan.h>

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <string>

namespace zarn::playback {

using Value = RhythmValue::NoteValue;

/// A score of one track, to be filled beat by beat.
class Sample {
public:
    explicit Sample(unsigned bars = 1, InstrumentSet::Type type = InstrumentSet::acousticPiano)
    {
        model->insertEmptyBarColumns(0, bars);
        model->createAndInsertTrack(0, type);
        // Keys sound as they are written here.
        model->track(0)->setTranspositionOffset(0);
    }

    Track &track() { return *model->track(0); }
    MasterBar &master(unsigned bar) { return *model->masterTrack()->masterBar(bar); }

    Beat &add(Value value, std::initializer_list<int> keys = {}, unsigned bar = 0,
              unsigned voice = 0, unsigned staff = 0)
    {
        const auto beat = std::make_shared<Beat>(RhythmValue(value));
        for (const int key : keys)
            beat->addNote(std::make_shared<Note>(key));
        track().bar(bar, staff)->ensureVoice(voice)->addBeat(beat);
        return *beat;
    }

    /// A note on a string of a fretted track.
    Note &addFretted(Value value, int string, int fret, int key, unsigned bar = 0)
    {
        Note &note = *add(value, {key}, bar).note(0);
        note.setString(string);
        note.setFret(fret);
        return note;
    }

    PlaybackPlan plan(const PlanOptions &options = {}) const
    {
        model->masterTrack()->updatePlayList();
        return PlaybackPlan(*model, options);
    }

    std::shared_ptr<ScoreModel> model = std::make_shared<ScoreModel>();
};

/// "60:0-19/20" for each note: its key, when it starts and ends in quarters.
inline std::string times(const PlaybackPlan &plan)
{
    std::string text;
    for (const PlannedNote &note : plan.notes())
        text += (text.empty() ? "" : " ") + std::to_string(note.key) + ":" + note.start.toString()
            + "-" + note.end.toString();
    return text;
}

/// "60:0" without the ends.
inline std::string starts(const PlaybackPlan &plan)
{
    std::string text;
    for (const PlannedNote &note : plan.notes())
        text += (text.empty() ? "" : " ") + std::to_string(note.key) + ":" + note.start.toString();
    return text;
}

inline std::string velocities(const PlaybackPlan &plan)
{
    std::string text;
    for (const PlannedNote &note : plan.notes())
        text += (text.empty() ? "" : " ") + std::to_string(note.velocity);
    return text;
}

} // namespace zarn::playback
