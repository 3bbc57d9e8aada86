// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/model/form/ZarnDirectionMark.h>

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace zarn {

/// A jump, or a fine, as it stands at the end of a bar.
struct EndDirection {
    DirectionMark mark = DirectionMark::NoDirection;
    std::string words; ///< UTF-8
};

/// What a direction is called where nothing else is written: "D.S. al Fine", "Double Coda".
ZARNCORE_EXPORT const char *directionWords(DirectionMark mark) noexcept;

/// True for a jump and a fine, which stand at the end of their bar; segnos and codas begin theirs.
ZARNCORE_EXPORT bool isAtBarEnd(DirectionMark mark) noexcept;

/// Those of a set that stand at the end of the bar, in their order, each with its line of the text
/// of the bar, `MasterBar::jumpText`, or with the words of its kind where it has none.
ZARNCORE_EXPORT std::vector<EndDirection> endDirections(const std::set<DirectionMark> &marks,
                                                        const std::string &jumpText);

/// The text that gives each direction its words; empty where all have those of their kinds.
ZARNCORE_EXPORT std::string jumpTextOf(const std::vector<EndDirection> &directions);

/// Numbers of the passes under an ending, bit 0 for the first: "1.", "1. 3.".
ZARNCORE_EXPORT std::string endingNumbers(std::uint32_t passes);

} // namespace zarn
