// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Lines of text that hold several fields, which may hold several fields in turn with another
/// separator.
namespace zarn::detail {

/// The fields with the separator behind each of them but the last; in front of a separator or a
/// backslash inside a field stands a backslash.
std::string joinedFields(const std::vector<std::string> &fields, char separator);

/// Undoes `joinedFields`; there is always one field at least.
std::vector<std::string> splitFields(std::string_view text, char separator);

/// The same with the separator behind the last one too, so that an empty text is an empty list.
/// Nothing for a text that does not end in one.
std::string joinedList(const std::vector<std::string> &items, char separator);
std::optional<std::vector<std::string>> splitList(std::string_view text, char separator);

// Numbers; floats in the shortest form that reads back exactly. Nothing for a text that is more or
// less than a number, or for one that is not finite.

std::string textOfFloat(float number);
std::optional<std::int32_t> numberFromText(std::string_view text);
std::optional<float> floatFromText(std::string_view text);

} // namespace zarn::detail
