// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Gives beats of fretted staves a rasgueado pattern. Takes brush, arpeggio, pick stroke and
/// tremolo off.
class ZARNCORE_EXPORT SetBeatRasgueado final
    : public SetMark<BeatAttribute::Rasgueado, RasgueadoType> {
public:
    SetBeatRasgueado();
    ~SetBeatRasgueado() override;
};

} // namespace zarn::cmd
