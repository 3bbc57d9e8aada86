// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Shows the playing time at beats, or shows it no more. Sends `RequestTimerChanged`.
class ZARNCORE_EXPORT SetBeatTimer final : public SetMark<BeatAttribute::Timer, bool> {
public:
    SetBeatTimer();
    ~SetBeatTimer() override;
};

} // namespace zarn::cmd
