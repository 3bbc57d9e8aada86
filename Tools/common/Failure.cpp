// SPDX-License-Identifier: MIT
#include "common/Failure.h"

#include "common/Terminal.h"

#include <ZarnCore/ZarnException.h>

namespace zarn::tool {

std::string explain(const std::exception &error)
{
    if (const auto *const core = dynamic_cast<const CoreException *>(&error))
        return printable(core->message());
    return printable(error.what());
}

} // namespace zarn::tool
