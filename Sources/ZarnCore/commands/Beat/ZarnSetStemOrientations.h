// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Turns stems up or down, or leaves them to the program.
class ZARNCORE_EXPORT SetStemOrientations final
    : public SetMark<BeatAttribute::StemOrientation, ZarnStemOrientation> {
public:
    SetStemOrientations();
    ~SetStemOrientations() override;
};

} // namespace zarn::cmd
