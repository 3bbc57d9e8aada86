// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Strikes beats with the pick downwards or upwards. Takes brush, arpeggio, rasgueado and the
/// tapping of the left hand off.
class ZARNCORE_EXPORT SetBeatPickStroke final
    : public SetMark<BeatAttribute::PickStroke, Direction> {
public:
    SetBeatPickStroke();
    ~SetBeatPickStroke() override;
};

} // namespace zarn::cmd
