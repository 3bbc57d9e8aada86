// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetAttribute.h>

namespace zarn::cmd {

/// Makes MIDI playback give each string of a track a channel of its own, or no longer. Sends
/// `UseOneChannelOrkaPerStringChanged`.
class ZARNCORE_EXPORT SetOneChannelPerString final
    : public SetTrackSwitch<&Track::hasOneChannelPerString, &Track::setOneChannelPerString,
                            evt::UseOneChannelOrkaPerStringChanged> {
public:
    SetOneChannelPerString();
    ~SetOneChannelPerString() override;

    /// False for a track that is not there.
    bool init(Score *score, unsigned track, bool isOn);
};

} // namespace zarn::cmd
