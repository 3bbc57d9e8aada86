// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/fingering/ZarnPassage.h>

#include <cstdint>
#include <vector>

namespace zarn::fingering {

/// Which notes of a passage return again and again between others that move: players let them ring
/// on an open string, wherever the hand is.
class Pedals {
public:
    explicit Pedals(const Passage &passage);

    bool contains(std::uint32_t note) const noexcept { return _isPedal[note] != 0; }

private:
    std::vector<char> _isPedal; ///< by note
};

} // namespace zarn::fingering
