// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypesPlaying.h>
#include <ZarnCore/model/attributes/ZarnPitchCurve.h>

namespace zarn {

/// How a string is bent: the kind that is drawn, and the curve that sounds.
struct ZARNCORE_EXPORT Bend {
    static constexpr int Highest = 24; ///< an octave, in quarter-tones; nothing bends downwards

    BendType type = BendType::NoBend;
    PitchCurve curve;

    /// A bend with the usual curve of its kind, `amount` quarter-tones high. What a string bends
    /// on from (`PreBendNBend`) is half of it.
    static Bend of(BendType type, int amount = 4);

    /// No kind has no curve, every other has one, inside the range.
    bool isValid() const noexcept;

    /// "Bend 0:0 30:4 60:4"; "NoBend" for none.
    std::string toString() const;
    static std::optional<Bend> fromString(std::string_view text);

    friend bool operator==(const Bend &left, const Bend &right) noexcept
    {
        return left.type == right.type && left.curve == right.curve;
    }
    friend bool operator!=(const Bend &left, const Bend &right) noexcept
    {
        return !(left == right);
    }
};

} // namespace zarn
