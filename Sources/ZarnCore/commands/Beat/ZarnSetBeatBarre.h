// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Lays a finger over strings of fretted staves, or takes it off with fret 0. Staves without the
/// fret or the strings are passed over.
class ZARNCORE_EXPORT SetBeatBarre final : public SetMark<BeatAttribute::Barre, Barre> {
public:
    SetBeatBarre();
    ~SetBeatBarre() override;
};

} // namespace zarn::cmd
