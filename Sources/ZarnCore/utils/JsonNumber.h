// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace utils {

// What the text of a JSON number stands for. RapidJSON's own conversion is only used where the
// build wrote the text: in full precision it reads past the end of a table for numbers with many
// digits, and in normal precision it is not exact.

/// A number without fraction and exponent that fits in 64 bits with sign; nothing for any other.
std::optional<std::int64_t> jsonWhole(std::string_view number) noexcept;

/// The nearest double; infinite when that is too large.
double jsonReal(std::string_view number) noexcept;

} // namespace utils
