// SPDX-License-Identifier: MIT
#include <ZarnCore/model/ZarnParentNode.h>

namespace zarn {

std::mutex &ParentNodeAccess::linkingMutex() noexcept
{
    static std::mutex mutex;
    return mutex;
}

} // namespace zarn
