// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/playback/ZarnLane.h>
#include <ZarnCore/playback/ZarnPitchMotion.h>
#include <ZarnCore/playback/ZarnPlaybackPlan.h>

#include <utility>
#include <vector>

namespace zarn::playback {

/// Which channel each note goes to.
///
/// A track has one channel, which it chose unless another has it. A note whose pitch moves while
/// others sound that do not move with it goes to a further channel of its track, so that those stay
/// in tune. Percussion notes go to the percussion channel of General MIDI. `OnePerString` gives
/// every string a channel, in all tracks; else those tracks have it that ask for it. When more are
/// needed than there are, further channels of a track are its first one.
class ChannelPlan {
public:
    ChannelPlan(const ScoreModel &model, Channels channels) : _model(model), _channels(channels) { }

    /// What a track has among its notes.
    struct Kinds {
        bool hasPitches = false;
        bool hasPercussion = false;
    };

    /// Gives notes, which are in order of their starts, their lanes. Those that they have already
    /// are the main ones of their tracks, which come first, by track.
    void assign(std::vector<PlannedNote> &notes, const std::vector<Kinds> &kinds,
                const std::vector<PitchMotion> &motions);

    /// Each track has its main lane at least.
    std::vector<Lane> take() { return std::move(_lanes); }

private:
    void assignTrack(unsigned track, std::vector<PlannedNote> &notes,
                     const std::vector<std::uint32_t> &order);
    std::uint16_t laneOf(unsigned track, Lane::Role role, unsigned number);
    void findRanges(const std::vector<PlannedNote> &notes, const std::vector<PitchMotion> &motions);
    void findChannels();

    const ScoreModel &_model;
    Channels _channels;
    std::vector<Lane> _lanes;
    std::vector<Kinds> _kinds; ///< by track
};

} // namespace zarn::playback
