// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Moves the whammy bar during beats of fretted staves.
class ZARNCORE_EXPORT SetStringedBeatWhammyBar final
    : public SetMark<BeatAttribute::WhammyBar, WhammyBar> {
public:
    SetStringedBeatWhammyBar();
    ~SetStringedBeatWhammyBar() override;
};

} // namespace zarn::cmd
