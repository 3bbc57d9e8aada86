// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnModelCheck.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <string>

namespace zarn {

/// Prints the broken rules of a model in a failure.
inline testing::AssertionResult isSound(const ScoreModel &model)
{
    auto result = testing::AssertionSuccess();
    const auto problems = checkModel(model);
    if (!problems.empty()) {
        result = testing::AssertionFailure();
        for (const std::string &problem : problems)
            result << problem << '\n';
    }
    return result;
}

inline std::shared_ptr<Beat> makeBeat(RhythmValue::NoteValue value,
                                      std::initializer_list<int> pitches = {})
{
    auto beat = std::make_shared<Beat>(RhythmValue(value));
    for (const int midi : pitches)
        beat->addNote(std::make_shared<Note>(midi));
    return beat;
}

/// A guitar and a piano over a number of bars; bar n of the guitar holds a half and two quarters
/// of MIDI key 40 + n.
inline std::shared_ptr<ScoreModel> makeBand(unsigned barCount)
{
    auto model = std::make_shared<ScoreModel>();
    model->insertEmptyBarColumns(0, barCount);
    model->createAndInsertTrack(0, InstrumentSet::steelGuitar);
    model->createAndInsertTrack(1, InstrumentSet::acousticPiano);
    for (unsigned i = 0; i < barCount; ++i) {
        const auto voice = model->track(0)->bar(i)->ensureVoice(0);
        const int midi = 40 + static_cast<int>(i % 60);
        voice->addBeat(makeBeat(RhythmValue::NoteValue::Half, {midi}));
        voice->addBeat(makeBeat(RhythmValue::NoteValue::Quarter, {midi, midi + 4}));
        voice->addBeat(makeBeat(RhythmValue::NoteValue::Quarter));
    }
    return model;
}

} // namespace zarn
