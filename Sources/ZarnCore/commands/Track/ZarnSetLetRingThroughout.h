// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetAttribute.h>

namespace zarn::cmd {

/// Makes playback let all notes of a track ring, or no longer. Sends `LetRingThroughoutChanged`.
class ZARNCORE_EXPORT SetLetRingThroughout final
    : public SetTrackSwitch<&Track::letsRingThroughout, &Track::setLetRingThroughout,
                            evt::LetRingThroughoutChanged> {
public:
    SetLetRingThroughout();
    ~SetLetRingThroughout() override;

    /// False for a track that is not there.
    bool init(Score *score, unsigned track, bool isOn);
};

} // namespace zarn::cmd
