// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnSetNoteFingering.h>

namespace zarn::cmd {

template <unsigned Hand>
SetNoteFingering<Hand>::SetNoteFingering()
    : SetFinger<Hand>(Hand == 0 ? "zarn::cmd::SetNoteFingering<0>::init"
                                : "zarn::cmd::SetNoteFingering<1>::init",
                      QStringLiteral("SetNoteFingering<%1>").arg(Hand))
{
}

template <unsigned Hand>
SetNoteFingering<Hand>::~SetNoteFingering() = default;

template class SetNoteFingering<0>;
template class SetNoteFingering<1>;

} // namespace zarn::cmd
