// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetAttribute.h>

#include <optional>

namespace zarn::cmd {

/// Says where the notes of a track go when they are sent as MIDI. Sends `MIDIConnectionChanged`.
class ZARNCORE_EXPORT SetTrackMidiConnection final
    : public SetOnTrack<&Track::chosenMidiConnection, &Track::setMidiConnection,
                        evt::MIDIConnectionChanged> {
public:
    SetTrackMidiConnection();
    ~SetTrackMidiConnection() override;

    /// Nothing leaves it to the instrument. False for a port or channel past the last, and for a
    /// track that is not there.
    bool init(Score *score, unsigned track, const std::optional<MidiConnection> &connection);
};

} // namespace zarn::cmd
