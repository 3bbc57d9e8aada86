// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Draws rhythm slashes in place of the heads; the notes stay.
class ZARNCORE_EXPORT SetBeatSlashed final : public SetMark<BeatAttribute::Slashed, bool> {
public:
    SetBeatSlashed();
    ~SetBeatSlashed() override;
};

} // namespace zarn::cmd
