// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypesNotation.h>
#include <ZarnCore/utils/rational.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zarn {

/// A fermata over a time of a bar, in all staves.
struct ZARNCORE_EXPORT FermataMark {
    static constexpr unsigned MostStretch = 1000;

    utils::rational position; ///< in quarters from the start of the bar
    Fermata kind = Fermata::Medium;

    /// By how much the time under it lasts longer, in percent.
    std::uint16_t stretch = 100;

    /// A mark with the usual stretch of its kind: half, once or twice the time more.
    static FermataMark at(const utils::rational &position, Fermata kind);

    bool isValid() const noexcept
    {
        return position.sign() >= 0 && kind < Fermata::None && stretch <= MostStretch;
    }

    /// "3/2 Short 50".
    std::string toString() const;
    static std::optional<FermataMark> fromString(std::string_view text);

    friend bool operator==(const FermataMark &left, const FermataMark &right) noexcept
    {
        return left.position == right.position && left.kind == right.kind
            && left.stretch == right.stretch;
    }
    friend bool operator!=(const FermataMark &left, const FermataMark &right) noexcept
    {
        return !(left == right);
    }
};

/// Fermatas of a bar, in the order of their positions, one at each.
using FermataMarks = std::vector<FermataMark>;

ZARNCORE_EXPORT bool areValid(const FermataMarks &marks) noexcept;

} // namespace zarn
