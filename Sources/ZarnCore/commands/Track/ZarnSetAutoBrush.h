// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetAttribute.h>

namespace zarn::cmd {

/// Makes playback strum the chords of a track that have no strum of their own, or no longer. Sends
/// `AutoBrushChanged`.
class ZARNCORE_EXPORT SetAutoBrush final
    : public SetTrackSwitch<&Track::hasAutoBrush, &Track::setAutoBrush, evt::AutoBrushChanged> {
public:
    SetAutoBrush();
    ~SetAutoBrush() override;

    /// False for a track that is not there.
    bool init(Score *score, unsigned track, bool isOn);
};

} // namespace zarn::cmd
