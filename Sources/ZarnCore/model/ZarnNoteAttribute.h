// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/model/ZarnAttribute.h>
#include <ZarnCore/model/ZarnNote.h>

#include <array>

namespace zarn {

class Beat;
class Staff;
enum class BeatAttribute : std::uint8_t;

/// How a note is played and marked, beside its pitch and string.
enum class NoteAttribute : std::uint8_t {
    Tied,
    TieOrigin,
    Dead,
    AntiAccent,
    Accents, ///< `AccentFlags`
    Velocity,
    LetRing,
    PalmMute,
    Hopo,
    LeftTap,
    RightTap,
    SlideIn,
    SlideOut,
    Vibrato,
    Trill, ///< `Trill`
    Ornament,
    Harmonic, ///< `Harmonic`
    LeftFingering,
    RightFingering,
    ShowString,
    AccidentalDisplay,
    Bend, ///< `Bend`
    Hidden,
    Head,
    HeadFill,
};

constexpr unsigned NoteAttributeCount = 25;

using NoteAttributeSet = AttributeSet<NoteAttribute>;

/// A row of the table of notes.
struct NoteAttributeRow : Attribute<Note, NoteAttribute> {
    /// What goes when this is set to other than its default.
    NoteAttributeSet excludes;
    AttributeSet<BeatAttribute> excludesOnBeat;

    /// The notes that take it; commands pass the others over.
    OnStaves staves = OnStaves::All;

    /// Whether it joins the note to one of a neighbour, which agrees then.
    bool isLink = false;

    /// What else a note must be like to take a value other than the default; null for nothing.
    bool (*accepts)(const Staff &staff, const Beat &beat, const Note &note,
                    const AttributeValue &value) = nullptr;
};

ZARNCORE_EXPORT const std::array<NoteAttributeRow, NoteAttributeCount> &noteAttributes() noexcept;
inline const NoteAttributeRow &rowOf(NoteAttribute id) noexcept
{
    return noteAttributes()[static_cast<std::size_t>(id)];
}
template <>
inline const auto &attributesOf<Note>() noexcept
{
    return noteAttributes();
}

/// Gives a note of a beat an attribute, and takes off what it excludes, of the note and of the
/// beat. The value must be in the range of the attribute.
ZARNCORE_EXPORT void setAttribute(Beat &beat, Note &note, NoteAttribute id,
                                  const AttributeValue &value);

} // namespace zarn
