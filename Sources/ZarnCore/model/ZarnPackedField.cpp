// SPDX-License-Identifier: MIT
#include <ZarnCore/model/ZarnPackedField.h>

#include <ZarnCore/ZarnAssert.h>

namespace zarn {

void raiseOutOfRange()
{
    ZARN_RAISE_IN("zarn::PackedField::set", "The value is outside the range of its attribute.");
}

} // namespace zarn
