// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Track/ZarnTrackPlacing.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>

namespace zarn::cmd {

/// Inserts a new track, as its instrument needs it, with a bar for each bar of the score.
class ZARNCORE_EXPORT CreateTrack final : public TrackPlacing {
public:
    CreateTrack();
    ~CreateTrack() override;

    /// In front of the track `index`, or at the end. False for an index past the end.
    bool init(Score *score, unsigned index, InstrumentSet::Type type);
};

} // namespace zarn::cmd
