// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/chords/ZarnChordDiagram.h>
#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>
#include <ZarnCore/io/native/Children.h>

namespace zarn::io::native {

/// What is counted by strings.
template <typename T, typename Item>
using PerString = ArrayOf<T, Item, GuitarTuning::maximumStringCount>;

inline constexpr std::array diagramFields = {
    member<ChordDiagram, &ChordDiagram::name>("name"),
    member<ChordDiagram, &ChordDiagram::firstFret, Within<std::uint8_t, 0, 255>>("firstFret"),
    member<ChordDiagram, &ChordDiagram::frets,
           PerString<std::int8_t, Within<std::int8_t, -1, 127>>>("frets"),
    member<ChordDiagram, &ChordDiagram::fingers,
           PerString<std::uint8_t, Within<std::uint8_t, 0, 5>>>("fingers"),
};

using DiagramCodec = Struct<ChordDiagram, diagramFields>;

} // namespace zarn::io::native
