// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnPlacingCommand.h>

#include <memory>

namespace zarn {
class Sound;
}

namespace zarn::cmd {

/// Removes a sound from those that a track can switch between; automations that switch to it keep
/// it. A track that is forced to play with it is left to its automations; one that is forced to
/// play with a later sound stays with that. Sends `RequestRemoveSound`, undo `RequestInsertSound`,
/// and both `RequestForcedSoundIndexChange` for such a track.
class ZARNCORE_EXPORT RemoveTrackSound final : public PlacingCommand {
public:
    RemoveTrackSound();
    ~RemoveTrackSound() override;

    /// False for a sound that is not there.
    bool init(Score *score, unsigned track, unsigned index);

private:
    void putIn() override;
    void takeOut() override;
    void announceIn() override;
    void announceOut() override;
    bool isPossible() const;

    unsigned _track = 0;
    unsigned _index = 0; ///< of the sound in its track
    std::shared_ptr<const Sound> _sound;
    int _forcedBefore = -1; ///< the forced sound with this one there, and without it
    int _forcedAfter = -1;
};

} // namespace zarn::cmd
