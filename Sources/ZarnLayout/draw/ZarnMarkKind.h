// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/ZarnLayoutExport.h>

#include <cstdint>
#include <string_view>

namespace zarn::layout {

/// What a mark on the sheet stands for.
enum class MarkKind : std::uint8_t {
    StaffLine,
    LedgerLine,
    BarLine,
    RepeatDots,
    SystemLine, ///< in front of a system of several staves
    Bracket,
    Brace,
    Clef,
    KeySignature,
    TimeSignature,
    Tuning, ///< names of open strings, capo
    NoteHead,
    Fret, ///< number or sign on a string of a tablature
    Slash,
    Rest,
    MultiRest,
    Simile,
    Accidental,
    AugmentationDot,
    Stem,
    Flag,
    Beam,
    Tremolo,
    GraceSlash,
    Tuplet,
    Tie,
    Slur,
    HammerOn, ///< and pull-off: arc and letter
    Slide,
    Bend,
    Whammy,
    Vibrato,
    Trill,
    Ornament,
    Articulation,
    Fermata,
    Breath,
    Fingering,
    StringNumber,
    Stroke, ///< picking, brush, rasgueado, bows
    Arpeggio,
    Harmonic,
    PalmMute,
    LetRing,
    Technique, ///< tapping, slap, dead slap, fade, golpe, wah ...
    Pedal,
    Ottava,
    Dynamic,
    Hairpin,
    Lyric,
    ChordSymbol,
    ChordDiagram,
    Text,
    Tempo,
    TripletFeel,
    Section,
    Direction, ///< segno, coda, da capo ...
    Ending,
    BarNumber,
    TrackName,
    Title,
    Header,
    Footer,
    Timer,
    Enclosure, ///< frame around a text
};

/// "noteHead", "staffLine": the enumerator with a small letter in front.
ZARNLAYOUT_EXPORT std::string_view markKindText(MarkKind kind) noexcept;

} // namespace zarn::layout
