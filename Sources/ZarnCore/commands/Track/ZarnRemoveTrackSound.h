// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnPlacingCommand.h>

#include <memory>

namespace zarn {
class Sound;
}

namespace zarn::cmd {

/// Removes a sound from those that a track can switch between; automations that switch to it keep
/// it. Sends `RequestRemoveSound`; undo sends `RequestInsertSound`.
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
};

} // namespace zarn::cmd
