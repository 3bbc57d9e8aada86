// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zarn {

class TimeSignature;

/// How the beams of a bar are grouped: so many units of the meter each. Empty leaves it to the
/// meter.
class ZARNCORE_EXPORT BeamGroups {
public:
    static constexpr unsigned MaxGroup = 32;
    static constexpr unsigned MaxGroups = 255;

    BeamGroups() = default;

    /// Raises unless `areGroups`.
    explicit BeamGroups(std::vector<std::uint8_t> groups);

    /// At most 255 groups of 1 to 32 units each.
    static bool areGroups(const std::vector<std::uint8_t> &groups) noexcept;

    const std::vector<std::uint8_t> &groups() const noexcept { return _groups; }
    bool isEmpty() const noexcept { return _groups.empty(); }

    /// Whether they fill a bar of the meter exactly; empty ones always do.
    bool fit(const TimeSignature &signature) const noexcept;

    /// "3+2+2"; an empty text for none.
    std::string toString() const;
    static std::optional<BeamGroups> fromString(std::string_view text);

    friend bool operator==(const BeamGroups &left, const BeamGroups &right) noexcept
    {
        return left._groups == right._groups;
    }
    friend bool operator!=(const BeamGroups &left, const BeamGroups &right) noexcept
    {
        return !(left == right);
    }

private:
    std::vector<std::uint8_t> _groups;
};

} // namespace zarn
