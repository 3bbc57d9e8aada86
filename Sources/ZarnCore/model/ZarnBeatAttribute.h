// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/model/ZarnAttribute.h>
#include <ZarnCore/model/ZarnBeat.h>
#include <ZarnCore/model/ZarnNoteAttribute.h>

#include <array>

namespace zarn {

class Staff;

/// What a beat has beside its notes. Values are numbers of the enumerators for all that is one.
enum class BeatAttribute : std::uint8_t {
    Rhythm, ///< `RhythmValue`
    GraceType,
    SlashedGrace,
    PlaceHolder,
    WholeBarRest,
    Dynamic,
    Ottavia,
    Text,
    Chord, ///< `ChordMark`
    Hairpin,
    HairpinBegins,
    Fadding,
    PickStroke,
    Brush,    ///< `Strum`
    Arpeggio, ///< `Strum`
    Rasgueado,
    BassAttack,
    BarVibrato,
    Wah,
    Golpe,
    DeadSlapped,
    Slashed,
    Tremolo, ///< 0 to 4
    Timer,
    StemOrientation,
    BeamMode,
    SlurredToNext,
    SlurredToPrevious,
    SlurBegins,
    WhammyBar, ///< `WhammyBar`
    Barre,     ///< `Barre`
    Lyrics,    ///< `Syllables`
    Pedal,
    Breath,
    AttackDynamic,
    TremoloToNext, ///< 0 to 4
    NonArpeggio,
    Cue,
    SlurEnds, ///< `SlurEnds`
    TextSpan,
    SlurLine,
    SlurSide,
    TextBelow,
    DynamicSide, ///< of the attack too
    HairpinSide,
};

constexpr unsigned BeatAttributeCount = 45;

using BeatAttributeSet = AttributeSet<BeatAttribute>;

/// A row of the table of beats.
struct BeatAttributeRow : Attribute<Beat, BeatAttribute> {
    /// What goes when this is set to other than its default.
    BeatAttributeSet excludes;
    NoteAttributeSet excludesOnNotes;

    /// The beats that take it; commands pass the others over.
    OnStaves staves = OnStaves::All;
    unsigned leastNotes = 0;

    /// Whether it joins the beat to a neighbour, which agrees then.
    bool isLink = false;

    /// What else a beat must be like to take a value other than the default; null for nothing.
    bool (*accepts)(const Staff &staff, const Beat &beat, const AttributeValue &value) = nullptr;
};

ZARNCORE_EXPORT const std::array<BeatAttributeRow, BeatAttributeCount> &beatAttributes() noexcept;
inline const BeatAttributeRow &rowOf(BeatAttribute id) noexcept
{
    return beatAttributes()[static_cast<std::size_t>(id)];
}
template <>
inline const auto &attributesOf<Beat>() noexcept
{
    return beatAttributes();
}

/// Gives a beat an attribute, and takes off what it excludes, of the beat and of its notes. The
/// value must be in the range of the attribute.
ZARNCORE_EXPORT void setAttribute(Beat &beat, BeatAttribute id, const AttributeValue &value);

/// Takes off attributes of a beat and of its notes that others exclude, going through the tables in
/// their order. Returns their names.
ZARNCORE_EXPORT std::vector<std::string_view> mendExclusions(Beat &beat);

} // namespace zarn
