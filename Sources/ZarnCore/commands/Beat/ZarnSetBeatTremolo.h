// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Repeats beats: 1 in eighths to 4 in 64ths, 0 not at all. Beats that are no longer than a stroke
/// are passed over. Takes trills and rasgueado off.
class ZARNCORE_EXPORT SetBeatTremolo final : public SetMark<BeatAttribute::Tremolo, unsigned> {
public:
    SetBeatTremolo();
    ~SetBeatTremolo() override;
};

} // namespace zarn::cmd
