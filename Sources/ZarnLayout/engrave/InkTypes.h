// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/draw/ZarnDrawPlace.h>
#include <ZarnLayout/draw/ZarnMarkKind.h>

#include <cstdint>

namespace zarn::engraving {

using layout::MarkKind;
using MarkPlace = layout::DrawPlace;

/// What a text is for; face and size follow from it.
enum class TextRole : std::uint8_t {
    Words, ///< italic, beside the music
    Fret,
    Letter, ///< techniques: "P.M.", "H", "full"
    Lyric,
    ChordSymbol,
    Tempo,
    Section,
    SectionLetter,
    Direction,
    Ending,
    BarNumber,
    TrackName,
    Tuning,
    Tuplet,
    Finger, ///< of diagrams
    Fingering,
    Title,
    Subtitle,
    Credit,
    PageText,
};

} // namespace zarn::engraving
