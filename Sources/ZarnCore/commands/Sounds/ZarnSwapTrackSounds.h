// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnScoreCommand.h>

namespace zarn::cmd {

/// Lets two sounds of a track change places; a track that is forced to play with one of them stays
/// with it. Sends `RequestSwapSounds`, and `RequestForcedSoundIndexChange` for such a track.
class ZARNCORE_EXPORT SwapTrackSounds final : public ScoreCommand {
public:
    SwapTrackSounds();
    ~SwapTrackSounds() override;

    /// False for one sound twice, and for a place without one.
    bool init(Score *score, unsigned track, unsigned first, unsigned second);

private:
    void apply() override;
    void revert() override;
    void announceApplied() override;
    void announceReverted() override;
    bool isPossible() const;
    void announce(int forcedBefore, int forcedAfter);

    unsigned _track = 0;
    unsigned _first = 0; ///< of the sounds in their track
    unsigned _second = 0;
    int _forcedBefore = -1;
    int _forcedAfter = -1;
};

} // namespace zarn::cmd
