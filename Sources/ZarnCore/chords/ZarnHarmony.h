// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/music/ZarnPitchClass.h>

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace zarn::chord {

/// The kinds of chords that MusicXML 4.0 names (kind-value), in its order.
enum class HarmonyKind : std::uint8_t {
    Major,
    Minor,
    Augmented,
    Diminished,
    Dominant,
    MajorSeventh,
    MinorSeventh,
    DiminishedSeventh,
    AugmentedSeventh,
    HalfDiminished,
    MajorMinor,
    MajorSixth,
    MinorSixth,
    DominantNinth,
    MajorNinth,
    MinorNinth,
    Dominant11th,
    Major11th,
    Minor11th,
    Dominant13th,
    Major13th,
    Minor13th,
    SuspendedSecond,
    SuspendedFourth,
    Neapolitan,
    Italian,
    French,
    German,
    Pedal,
    Power,
    Tristan,
    Other,
    None
};

constexpr int harmonyKindCount = 33;

/// "half-diminished", as in documents; nothing for a word that is no kind.
ZARNCORE_EXPORT std::string_view harmonyKindToString(HarmonyKind kind) noexcept;
ZARNCORE_EXPORT std::optional<HarmonyKind> harmonyKindFromString(std::string_view text) noexcept;

/// What a <degree> says. Semitones are counted from the degree that the kind has when it is
/// altered or subtracted, else from that of a dominant chord, whose seventh is minor.
struct HarmonyDegree {
    enum class Type : std::uint8_t { Add, Alter, Subtract };

    int value = 1;
    int alter = 0;
    Type type = Type::Add;

    friend bool operator==(const HarmonyDegree &left, const HarmonyDegree &right) noexcept
    {
        return left.value == right.value && left.alter == right.alter && left.type == right.type;
    }
    friend bool operator!=(const HarmonyDegree &left, const HarmonyDegree &right) noexcept
    {
        return !(left == right);
    }
};

/// The chord of a <harmony> of MusicXML, as its elements say it.
struct Harmony {
    /// Invalid when the chord is named by a function or a numeral, or is none.
    PitchClass root;
    HarmonyKind kind = HarmonyKind::Major;
    /// 0 for root position; empty when nothing is said.
    std::optional<int> inversion;
    /// Invalid when nothing is said.
    PitchClass bass;
    std::vector<HarmonyDegree> degrees;

    friend bool operator==(const Harmony &left, const Harmony &right)
    {
        return left.root == right.root && left.kind == right.kind
            && left.inversion == right.inversion && left.bass == right.bass
            && left.degrees == right.degrees;
    }
    friend bool operator!=(const Harmony &left, const Harmony &right) { return !(left == right); }
};

} // namespace zarn::chord
