// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Sounds/ZarnTrackSoundChange.h>
#include <ZarnCore/commands/ZarnScoreCommand.h>

#include <memory>

namespace zarn::cmd {

/// Puts another sound in the place of one that a track can switch between; automations that switch
/// to the one switch to the other. Sends `RequestSoundChange`, and `TrackAutomationChanged` with
/// what follows it when automations changed.
class ZARNCORE_EXPORT SetTrackSound final : public ScoreCommand {
public:
    SetTrackSound();
    ~SetTrackSound() override;

    /// The sound is shared and must not change. False for no sound, for one whose numbers MIDI does
    /// not have, and for a place without one.
    bool init(Score *score, unsigned track, unsigned index, std::shared_ptr<const Sound> sound);

private:
    void apply() override;
    void revert() override;
    void announceApplied() override;
    void announceReverted() override;
    bool isPossible() const;

    unsigned _track = 0;
    unsigned _index = 0; ///< of the sound in its track
    std::shared_ptr<const Sound> _sound;
    TrackSoundChange _change;
};

} // namespace zarn::cmd
