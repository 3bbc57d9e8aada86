// SPDX-License-Identifier: MIT
#include "document/NewScore.h"

#include <ZarnCore/ZarnCore.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

namespace zarn::editor {
namespace {

/// "Acoustic Guitar (steel)" of General MIDI, counted from 0.
constexpr unsigned steelGuitar = 25;

} // namespace

std::shared_ptr<ScoreModel> newScore(std::vector<std::shared_ptr<Track>> tracks, unsigned bars)
{
    Score score;
    score.createBars(0, bars);
    if (tracks.empty()) {
        const auto guitar = Core::instance().findGMInstrument(steelGuitar);
        tracks.push_back(guitar != nullptr ? guitar->clone()
                                           : ScoreModel::createTrack(InstrumentSet::steelGuitar));
    }
    for (const auto &track : tracks)
        score.insertTrack(score.trackCount(), track);
    // A copy: the score that made it takes its own away.
    return score.scoreModel()->clone();
}

} // namespace zarn::editor
