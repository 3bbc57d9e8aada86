// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Fades the volume of beats in, out, or in and out again.
class ZARNCORE_EXPORT SetBeatFadding final : public SetMark<BeatAttribute::Fadding, Fadding> {
public:
    SetBeatFadding();
    ~SetBeatFadding() override;
};

} // namespace zarn::cmd
