// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Gives beats of fretted staves a vibrato with the whammy bar.
class ZARNCORE_EXPORT SetStringedBeatVibrato final
    : public SetMark<BeatAttribute::BarVibrato, Vibrato> {
public:
    SetStringedBeatVibrato();
    ~SetStringedBeatVibrato() override;
};

} // namespace zarn::cmd
