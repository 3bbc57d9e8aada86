// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>
#include <utility>

namespace zarn::tool {

class Arguments;

/// "5" or "5-8": both ends, counted from 1 and in order; nothing for another text.
std::optional<std::pair<unsigned, unsigned>> numberRange(const QString &text);

/// Bars that a user chose, counted from 0; the last one is included.
struct BarRange {
    unsigned first = 0;
    unsigned last = 0;
};

/// What `--bars` says: "5" or "5-8", counted from 1; all bars of the score without it. Says on
/// standard error when the score ends before the range does. Raises `UsageError`.
BarRange readBarRange(const Arguments &arguments, unsigned barCount);

/// The same as first and last bar; nothing without the option.
std::optional<std::pair<unsigned, unsigned>> chosenBars(const Arguments &arguments,
                                                        unsigned barCount);

} // namespace zarn::tool
