// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypesPlaying.h>
#include <ZarnCore/model/attributes/ZarnPitchCurve.h>

namespace zarn {

/// What the whammy bar does to all strings during a beat: the kind that is drawn, and the curve
/// that sounds.
struct ZARNCORE_EXPORT WhammyBar {
    static constexpr int Lowest = -48; ///< in quarter-tones, two octaves
    static constexpr int Highest = 24;

    WhammyBarType type = WhammyBarType::NoWhammyBar;
    PitchCurve curve;

    /// With the usual curve of its kind, to `amount` quarter-tones; a bar that is dived before the
    /// beat (`PreDiveNDive`) starts at `from`.
    static WhammyBar of(WhammyBarType type, int amount, int from = 0);

    /// The same with the usual amount: a whole tone down, for a dip a semitone.
    static WhammyBar of(WhammyBarType type);

    /// No kind has no curve, every other has one, inside the range.
    bool isValid() const noexcept;

    /// "Dive 0:0 60:-4"; "NoWhammyBar" for none.
    std::string toString() const;
    static std::optional<WhammyBar> fromString(std::string_view text);

    friend bool operator==(const WhammyBar &left, const WhammyBar &right) noexcept
    {
        return left.type == right.type && left.curve == right.curve;
    }
    friend bool operator!=(const WhammyBar &left, const WhammyBar &right) noexcept
    {
        return !(left == right);
    }
};

} // namespace zarn
