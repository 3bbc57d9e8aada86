// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnPlacingCommand.h>

#include <memory>

namespace zarn {
class Sound;
}

namespace zarn::cmd {

/// Adds a sound behind those that a track can switch between. Sends `RequestAddSound`; undo sends
/// `RequestRemoveSound`.
class ZARNCORE_EXPORT AddTrackSound final : public PlacingCommand {
public:
    AddTrackSound();
    ~AddTrackSound() override;

    /// The sound is shared and must not change. False for no sound, for one whose numbers MIDI does
    /// not have, and for a track that is not there.
    bool init(Score *score, unsigned track, std::shared_ptr<const Sound> sound);

private:
    void putIn() override;
    void takeOut() override;
    void announceIn() override;
    void announceOut() override;

    unsigned _track = 0;
    unsigned _index = 0; ///< of the sound in its track
    std::shared_ptr<const Sound> _sound;
};

} // namespace zarn::cmd
