// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace zarn {

/// What inserting or removing a child does to the neighbours that it parts or joins. The value is
/// passed down unchanged from track to staff to voice.
enum class LinkMode : std::uint8_t {
    /// The neighbours stay as they are.
    None,

    /// What the change tore apart is mended. A simile bar that lost the bar it repeats is unmarked,
    /// with the other half of a double simile. A tie between two beats of a voice that no longer
    /// follow each other is undone at both ends, over the bar line too, and so is a hammer-on, a
    /// pull-off or a slide that has nothing to lead to, and a tremolo between two beats. Slurs and
    /// hairpins go on over beats that came or went in their midst; those that ended or began at
    /// what is gone stay apart.
    Mend,
};

} // namespace zarn
