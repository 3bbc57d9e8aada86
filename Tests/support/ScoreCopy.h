// SPDX-License-Identifier: MIT
#pragma once

#include "AutomationCopy.h"

#include <ZarnCore/model/ZarnMasterTrack.h>
#include <ZarnCore/model/ZarnTrack.h>
#include <ZarnCore/model/places/ZarnScoreModelIndex.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace zarn {
class Score;
class ScoreModel;
} // namespace zarn

/// All that a score holds, in pieces that a listener reads one by one.
struct ScoreCopy {
    /// What is known of a track: all of it but the bars of its staves, and these.
    struct TrackCopy {
        std::shared_ptr<zarn::Track> head;
        AutomationCopy automations;
        std::vector<std::vector<std::shared_ptr<zarn::Bar>>> staves;

        explicit TrackCopy(const zarn::Track &track);
    };

    std::shared_ptr<zarn::ScoreModel> head; ///< all that is no bar and stands at none, no tracks
    zarn::MasterTrack::DirectionSlots directions;
    zarn::MasterTrack::PlayList playList;
    zarn::ScoreModelIndex cursor;
    double startTempo;
    AutomationCopy automations; ///< of the master track
    std::vector<std::shared_ptr<zarn::MasterBar>> masterBars;
    std::vector<TrackCopy> tracks;

    /// Reads all of a score.
    explicit ScoreCopy(const zarn::Score &score);

    /// The first piece that differs: which it is, what is known and what there is. Empty when there
    /// is none. Of the bars, those from `from` to `to` are compared, both included.
    std::string difference(const zarn::Score &score, int from, int to) const;

private:
    std::string differenceBesideBars(const zarn::Score &score) const;
    std::string differenceOfTracks(const zarn::ScoreModel &model) const;
    std::string differenceInBars(const zarn::ScoreModel &model, int from, int to) const;
};
