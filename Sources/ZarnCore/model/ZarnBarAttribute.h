// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/model/ZarnAttribute.h>
#include <ZarnCore/model/ZarnBar.h>

#include <array>

namespace zarn {

/// What a bar of a staff has beside its voices.
enum class BarAttribute : std::uint8_t {
    Clef,
    ClefChanges, ///< a list of `ClefChange`
    Ottavia,
    SimileMark,
    LayoutRatio,
};

constexpr unsigned BarAttributeCount = 5;

struct BarAttributeRow : Attribute<Bar, BarAttribute> { };

ZARNCORE_EXPORT const std::array<BarAttributeRow, BarAttributeCount> &barAttributes() noexcept;
inline const BarAttributeRow &rowOf(BarAttribute id) noexcept
{
    return barAttributes()[static_cast<std::size_t>(id)];
}
template <>
inline const auto &attributesOf<Bar>() noexcept
{
    return barAttributes();
}

} // namespace zarn
