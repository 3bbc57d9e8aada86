// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Sets how loud beats are played from here on; none is as before.
class ZARNCORE_EXPORT SetBeatDynamic final : public SetMark<BeatAttribute::Dynamic, NoteDynamic> {
public:
    SetBeatDynamic();
    ~SetBeatDynamic() override;
};

} // namespace zarn::cmd
