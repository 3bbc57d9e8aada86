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
    if (settings.tracks.empty()) {
        const auto guitar = Core::instance().findGMInstrument(steelGuitar);
        settings.tracks.push_back(guitar != nullptr
                                      ? guitar->clone()
                                      : ScoreModel::createTrack(InstrumentSet::steelGuitar));
    }
    for (const auto &track : settings.tracks)
        score.insertTrack(score.trackCount(), track);
    TempoAutomation tempo;
    tempo.setValue(static_cast<float>(settings.tempo));
    score.modifyMasterTrackAutomations({}, {&tempo});
    score.changeProperty(ScoreProperty::Title, settings.title);
    // A copy: the score that made it takes its own away.
    return score.scoreModel()->clone();
}

} // namespace zarn::editor
