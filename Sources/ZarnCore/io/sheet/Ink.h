// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace zarn::sheet {

/// What a stretch of text is, so that a terminal with colours can set it off.
enum class Ink : std::uint8_t {
    Plain,
    Line,       ///< staff lines and bar lines
    Note,       ///< what is played by the first voice
    SecondNote, ///< what is played by the other voices
    Rhythm,
    Heading, ///< names, bar numbers, sections
    Chord,
};

} // namespace zarn::sheet
