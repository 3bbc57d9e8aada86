// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Slaps or pops the strings of fretted staves.
class ZARNCORE_EXPORT SetStringedBeatBassAttack final
    : public SetMark<BeatAttribute::BassAttack, BassAttack> {
public:
    SetStringedBeatBassAttack();
    ~SetStringedBeatBassAttack() override;
};

} // namespace zarn::cmd
