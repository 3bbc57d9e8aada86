// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/playback/HeldSwells.h>
#include <ZarnCore/playback/ScoreSurvey.h>
#include <ZarnCore/playback/SlideFades.h>
#include <ZarnCore/playback/ZarnPitchMotion.h>
#include <ZarnCore/playback/ZarnPlannedNote.h>
#include <ZarnCore/playback/ZarnPlayedBars.h>
#include <ZarnCore/playback/ZarnTempoMap.h>

#include <vector>

namespace zarn::playback {

/// A percussion note that nothing says a sound of.
struct UnknownPercussion {
    unsigned track = 0;
    unsigned bar = 0;
};

/// What the notes of one track become when they are played. Lanes and seconds are still to be
/// found; motions count from 0 in each track.
struct TrackPerformance {
    std::vector<PlannedNote> notes;
    std::vector<PitchMotion> motions;
    std::vector<PlannedControl> controls; ///< those that belong to notes: expression, brightness
    std::vector<HeldSwell> swells;        ///< of the notes that are held under hairpins
    std::vector<SlideFade> fades;         ///< of the notes that slide away to nowhere
    std::vector<UnknownPercussion> unknown;
    bool hasPitches = false; ///< among the notes
    bool hasPercussion = false;

    static TrackPerformance of(const ScoreModel &model, unsigned track, const PlayedBars &bars,
                               const TempoMap &tempo, const ScoreSurvey::OfTrack &survey);
};

} // namespace zarn::playback
