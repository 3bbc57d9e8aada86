// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Taps the soundboard on beats of fretted staves, rests among them.
class ZARNCORE_EXPORT SetBeatGolpe final : public SetMark<BeatAttribute::Golpe, ZarnGolpeType> {
public:
    SetBeatGolpe();
    ~SetBeatGolpe() override;
};

} // namespace zarn::cmd
