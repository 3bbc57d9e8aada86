// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetAttribute.h>

namespace zarn::cmd {

/// Makes playback accent the beats of the meter in a track, or no longer. Sends
/// `AutoAccentuationChanged`.
class ZARNCORE_EXPORT SetAutoAccentuation final
    : public SetTrackSwitch<&Track::hasAutoAccentuation, &Track::setAutoAccentuation,
                            evt::AutoAccentuationChanged> {
public:
    SetAutoAccentuation();
    ~SetAutoAccentuation() override;

    /// False for a track that is not there.
    bool init(Score *score, unsigned track, bool isOn);
};

} // namespace zarn::cmd
