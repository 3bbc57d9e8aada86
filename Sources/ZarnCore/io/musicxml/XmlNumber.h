// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/utils/rational.h>

#include <cstdint>
#include <optional>

namespace zarn::io {

/// A whole number that is the entire text, spaces aside; nothing for any other text and for
/// numbers past 1,000,000,000 on either side of zero.
std::optional<int> parseInteger(const char *text) noexcept;

/// A decimal such as "-0.5" that is the entire text, exactly; nothing for any other text and for
/// numbers with more than nine digits before or six after the point.
std::optional<utils::rational> parseDecimal(const char *text) noexcept;

} // namespace zarn::io
