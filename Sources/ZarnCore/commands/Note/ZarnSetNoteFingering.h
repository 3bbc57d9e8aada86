// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// What the two hands have in common.
template <unsigned Hand>
using SetFinger =
    SetMark<(Hand == static_cast<unsigned>(zarn::Hand::Left) ? NoteAttribute::LeftFingering
                                                             : NoteAttribute::RightFingering),
            Fingering, Note>;

/// Says which finger of a hand plays notes: `Hand` is the number of `zarn::Hand`. An open string is
/// for the left hand alone.
template <unsigned Hand>
class ZARNCORE_EXPORT SetNoteFingering final : public SetFinger<Hand> {
public:
    SetNoteFingering();
    ~SetNoteFingering() override;
};

extern template class SetNoteFingering<0>;
extern template class SetNoteFingering<1>;

} // namespace zarn::cmd
