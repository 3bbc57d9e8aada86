// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <utility>

namespace zarn::tool {

class Arguments;

/// The bars that the option "bars" names, "5" or "5-8" counted from 1, as numbers from 0; nothing
/// without the option. What goes past the end of the score is said on standard error. Raises
/// `UsageError` for another text, and for bars that are not there.
std::optional<std::pair<unsigned, unsigned>> barRange(const Arguments &arguments,
                                                      unsigned barCount);

} // namespace zarn::tool
