// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace zarn {

/// A text of the page with its words between percent signs, such as "%Title%", filled in: `valueOf`
/// answers what a word stands for, and nothing for one that it does not know, which stays as it is.
/// "%%" is a percent sign.
std::string
filledPageText(const std::string &text,
               const std::function<std::optional<std::string>(const std::string &word)> &valueOf);

} // namespace zarn
