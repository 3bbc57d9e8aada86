// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/places/ZarnScoreModelIndex.h>

#include <cstdint>
#include <optional>

namespace zarn {

enum class CursorStep : std::uint8_t;

/// Where a cursor can stand, and where its keys lead. Indexes are resolved in their own model.
namespace cursor {

enum class Way { Back, Forth };
using Target = std::optional<ScoreModelIndex>;

/// Whether there is such a bar, and in it such a beat, or the place one past the last; a place
/// without a beat counts, one with a string that the staff has not does not. Constant time.
bool exists(const ScoreModelIndex &place) noexcept;

/// The place with every number clipped to what there is, without a note; unset in a model without
/// tracks or bars.
ScoreModelIndex nearest(ScoreModelIndex place);

/// Where a step, an end or a number leads from a place; nothing when it leads nowhere, or when the
/// place does not exist.
Target neighbour(const ScoreModelIndex &from, CursorStep step, Way way);
Target end(const ScoreModelIndex &from, CursorStep step, Way way);
Target numbered(const ScoreModelIndex &from, CursorStep step, int number);

} // namespace cursor
} // namespace zarn
