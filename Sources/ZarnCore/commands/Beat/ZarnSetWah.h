// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Closes or opens the wah pedal from beats on.
class ZARNCORE_EXPORT SetWah final : public SetMark<BeatAttribute::Wah, WahWah> {
public:
    SetWah();
    ~SetWah() override;
};

} // namespace zarn::cmd
