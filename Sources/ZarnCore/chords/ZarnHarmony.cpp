// SPDX-License-Identifier: MIT
#include <ZarnCore/chords/ZarnHarmony.h>

#include <ZarnCore/utils/EnumTable.h>

namespace zarn::chord {

namespace {

/// MusicXML 4.0, kind-value.
constexpr auto harmonyKindTexts =
    utils::enumTable<HarmonyKind>(utils::KeyMatch::Exact,
                                  {{HarmonyKind::Major, "major"},
                                   {HarmonyKind::Minor, "minor"},
                                   {HarmonyKind::Augmented, "augmented"},
                                   {HarmonyKind::Diminished, "diminished"},
                                   {HarmonyKind::Dominant, "dominant"},
                                   {HarmonyKind::MajorSeventh, "major-seventh"},
                                   {HarmonyKind::MinorSeventh, "minor-seventh"},
                                   {HarmonyKind::DiminishedSeventh, "diminished-seventh"},
                                   {HarmonyKind::AugmentedSeventh, "augmented-seventh"},
                                   {HarmonyKind::HalfDiminished, "half-diminished"},
                                   {HarmonyKind::MajorMinor, "major-minor"},
                                   {HarmonyKind::MajorSixth, "major-sixth"},
                                   {HarmonyKind::MinorSixth, "minor-sixth"},
                                   {HarmonyKind::DominantNinth, "dominant-ninth"},
                                   {HarmonyKind::MajorNinth, "major-ninth"},
                                   {HarmonyKind::MinorNinth, "minor-ninth"},
                                   {HarmonyKind::Dominant11th, "dominant-11th"},
                                   {HarmonyKind::Major11th, "major-11th"},
                                   {HarmonyKind::Minor11th, "minor-11th"},
                                   {HarmonyKind::Dominant13th, "dominant-13th"},
                                   {HarmonyKind::Major13th, "major-13th"},
                                   {HarmonyKind::Minor13th, "minor-13th"},
                                   {HarmonyKind::SuspendedSecond, "suspended-second"},
                                   {HarmonyKind::SuspendedFourth, "suspended-fourth"},
                                   {HarmonyKind::Neapolitan, "Neapolitan"},
                                   {HarmonyKind::Italian, "Italian"},
                                   {HarmonyKind::French, "French"},
                                   {HarmonyKind::German, "German"},
                                   {HarmonyKind::Pedal, "pedal"},
                                   {HarmonyKind::Power, "power"},
                                   {HarmonyKind::Tristan, "Tristan"},
                                   {HarmonyKind::Other, "other"},
                                   {HarmonyKind::None, "none"}});
static_assert(harmonyKindTexts.isConsistent());
static_assert(harmonyKindTexts.rows().size() == harmonyKindCount);

} // namespace

std::string_view harmonyKindToString(HarmonyKind kind) noexcept
{
    return harmonyKindTexts.text(kind).value_or(std::string_view());
}

std::optional<HarmonyKind> harmonyKindFromString(std::string_view text) noexcept
{
    return harmonyKindTexts.value(text);
}

} // namespace zarn::chord
