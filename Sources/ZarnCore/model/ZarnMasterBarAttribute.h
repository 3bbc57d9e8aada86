// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/model/ZarnAttribute.h>
#include <ZarnCore/model/ZarnMasterBar.h>

#include <array>

namespace zarn {

/// What all staves share of a bar.
enum class MasterBarAttribute : std::uint8_t {
    TimeSignature, ///< `TimeSignature`
    OwnLength,     ///< an optional fraction of quarters
    KeySignature,  ///< `KeySignature`
    TripletFeel,
    FreeTime,
    DoubleBar,
    RepeatStart,
    RepeatCount,
    AlternateEndings, ///< bits, the first pass the lowest
    MovementStart,
    Section,    ///< `Section`
    BeamGroups, ///< `BeamGroups`
    Fermatas,   ///< `FermataMarks`
    BarLine,
    MeterSign,
    LayoutRatio,
    EndingText,
    EndingHidden,
    FurtherDirections, ///< bits, the first `DirectionMark` the lowest
    JumpText,
    Anacrusis, ///< of the first bar alone: the master track's
};

constexpr unsigned MasterBarAttributeCount = 21;

struct MasterBarAttributeRow : Attribute<MasterBar, MasterBarAttribute> {
    /// Whether the order of playing depends on it.
    bool isOfForm = false;
};

ZARNCORE_EXPORT const std::array<MasterBarAttributeRow, MasterBarAttributeCount> &
masterBarAttributes() noexcept;
inline const MasterBarAttributeRow &rowOf(MasterBarAttribute id) noexcept
{
    return masterBarAttributes()[static_cast<std::size_t>(id)];
}
template <>
inline const auto &attributesOf<MasterBar>() noexcept
{
    return masterBarAttributes();
}

} // namespace zarn
