// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/chords/ZarnFretRow.h>
#include <ZarnCore/chords/ZarnHandProfile.h>

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace zarn::chord {

/// A finger per string: 0 for none, 1 to 4 from the index finger.
using FingerRow = std::array<std::uint8_t, FretRow::mostStrings>;

/// Fingers on the strings of a `FretRow`.
struct HandShape {
    FingerRow fingers{};
    float cost = 0;
    /// What the cost is made of: amounts by `HandReason`, not yet weighted.
    std::array<float, handReasonCount> amounts{};
    /// Where the first finger is or would be, as a fret; 0 when no finger presses.
    std::int8_t position = 0;

    float amount(HandReason reason) const noexcept
    {
        return amounts[static_cast<std::size_t>(reason)];
    }
    /// Whether one finger holds several strings.
    bool hasBarre() const noexcept;
};

/// What one hand can hold, and how hard that is.
///
/// Every stopped string needs a finger. Higher fingers take higher frets, and of one fret the
/// higher strings; one finger may hold several strings at a fret when nothing between them sounds
/// lower. How far two fingers get from each other is a matter of millimetres, so that a hand spans
/// more frets high up the neck.
class ZARNCORE_EXPORT HandModel {
public:
    static constexpr int fingerCount = 4;
    /// Strings that another finger than the first can hold down at once.
    static constexpr int stringsOfOtherBarre = 4;

    /// The profile is kept by reference.
    explicit HandModel(const HandProfile &profile) noexcept : _profile(&profile) { }

    const HandProfile &profile() const noexcept { return *_profile; }

    /// Whether the fingers get from one fret to another at all.
    bool reaches(int lowestFret, int highestFret) const noexcept;

    /// The easiest fingers for these frets; nothing when no hand can hold them. `capo` is the fret
    /// that stands for the nut. Fingers of `wanted` that are not 0 are kept.
    std::optional<HandShape> bestShape(const FretRow &frets, int capo = 0,
                                       const FingerRow &wanted = {}) const noexcept;

    /// All ways to hold these frets, the easiest first.
    std::vector<HandShape> shapes(const FretRow &frets, int capo = 0,
                                  const FingerRow &wanted = {}) const;

    /// The same in no order, put in place of what `found` holds: to ask often.
    void findShapes(const FretRow &frets, int capo, const FingerRow &wanted,
                    std::vector<HandShape> &found) const;

private:
    const HandProfile *_profile;
};

} // namespace zarn::chord
