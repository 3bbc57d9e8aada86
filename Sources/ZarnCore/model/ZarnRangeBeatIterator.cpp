// SPDX-License-Identifier: MIT
#include <ZarnCore/model/ZarnRangeBeatIterator.h>

namespace zarn {

const Voice::Beats &RangeBeatIterator::noBeats() noexcept
{
    static const Voice::Beats none;
    return none;
}

} // namespace zarn
