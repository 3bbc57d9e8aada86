// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/utils/rational.h>

#include <string>

namespace zarn::io {

/// "1 bar", "2 bars".
inline std::string counted(std::size_t count, const std::string &noun)
{
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

/// "1 quarter", "3/2 quarters".
inline std::string inQuarters(const utils::rational &length)
{
    return length.toString() + (length == utils::rational(1) ? " quarter" : " quarters");
}

} // namespace zarn::io
