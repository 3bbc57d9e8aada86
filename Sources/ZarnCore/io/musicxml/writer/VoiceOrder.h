// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnBar.h>

#include <array>
#include <cstddef>
#include <vector>

namespace zarn::io {

struct PartStaff;

// The order in which what sounds at once is written in a bar: as it stands in the score, unless a
// slur between two voices would end in the document before it begins.

using SlotOrder = std::array<unsigned, Bar::MaxVoices>;
constexpr SlotOrder usualSlots = {0, 1, 2, 3};

SlotOrder slotOrder(const Bar &bar);

/// Numbers of the staves of a part.
std::vector<std::size_t> staffOrder(const std::vector<PartStaff> &staves, unsigned bar);

} // namespace zarn::io
