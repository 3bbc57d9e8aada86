// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/fingering/ZarnPassage.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zarn::fingering {

/// Which notes of a passage players let ring on an open string, wherever the hand is: those that
/// return again and again between others that move, and those of a broken chord that stays under a
/// tune.
class Pedals {
public:
    explicit Pedals(const Passage &passage);

    bool contains(std::uint32_t note) const noexcept { return _kinds[note] != Kind::None; }

    /// Whether a note is of a broken chord under a tune.
    bool ringsUnderTune(std::uint32_t note) const noexcept
    {
        return _kinds[note] == Kind::UnderTune;
    }

private:
    enum class Kind : std::uint8_t { None, BetweenMoves, UnderTune };

    void addBetweenMoves(const Passage &passage, std::size_t event, std::uint32_t note);
    void addOfFigures(const Passage &passage, std::size_t event, int pitch);

    std::vector<Kind> _kinds; ///< by note
};

} // namespace zarn::fingering
