// SPDX-License-Identifier: MIT
#include "document/NewScore.h"

#include <ZarnCore/ZarnCore.h>
#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

namespace zarn::editor {
namespace {

/// "Acoustic Guitar (steel)" of General MIDI, counted from 0.
constexpr unsigned steelGuitar = 25;

} // namespace

std::shared_ptr<ScoreModel> newScore(NewScoreSettings settings)
{
    Score score;
    score.createBars(0, settings.bars);
    const unsigned last = settings.bars - 1;
    score.setMasterTimeSignature(0, last, settings.meter);
    score.setMasterKeySignature(0, last, settings.key);
    if (settings.tracks.empty()) {
        const auto guitar = Core::instance().findGMInstrument(steelGuitar);
        settings.tracks.push_back({guitar != nullptr
                                       ? guitar->clone()
                                       : ScoreModel::createTrack(InstrumentSet::steelGuitar),
                                   std::nullopt});
    }
    for (const NewTrack &made : settings.tracks) {
        const unsigned place = score.trackCount();
        score.insertTrack(place, made.track);
        if (made.tuning)
            score.setGuitarFullTuning(place, 0, *made.tuning, made.capo, Retuning::KeepFrets);
    }
    TempoAutomation tempo;
    tempo.setValue(static_cast<float>(settings.tempo));
    score.modifyMasterTrackAutomations({}, {&tempo});
    score.changeProperty(ScoreProperty::Title, settings.title);
    // A copy: the score that made it takes its own away.
    return score.scoreModel()->clone();
}

} // namespace zarn::editor
