// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <string>

/// The first place where two texts differ, with what stands there.
inline std::string textDifference(const std::string &expected, const std::string &found)
{
    const auto at = static_cast<std::size_t>(
        std::mismatch(expected.begin(), expected.end(), found.begin(), found.end()).first
        - expected.begin());
    const std::size_t from = at < 60 ? 0 : at - 60;
    return "at byte " + std::to_string(at) + " there should be\n  " + expected.substr(from, 120)
        + "\nand there is\n  " + found.substr(from, 120);
}
