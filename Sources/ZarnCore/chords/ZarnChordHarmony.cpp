// SPDX-License-Identifier: MIT
// Chords as MusicXML says them.
#include <ZarnCore/chords/ZarnChord.h>

#include <ZarnCore/chords/DegreeDifference.h>

#include <cstdlib>

namespace zarn::chord {

namespace {

/// Alterations beyond are no music.
constexpr int mostSemitones = 4;

/// What a degree is counted from when the kind does not have it: a dominant chord.
int dominantAlteration(int number) noexcept
{
    return number == 7 ? -1 : 0;
}

int ownAlteration(const ChordKind &kind, int number) noexcept
{
    const Degree *const own = kind.degrees().find(number);
    return own != nullptr ? own->alteration : dominantAlteration(number);
}

void append(std::vector<HarmonyDegree> &degrees, const DegreeList &list, HarmonyDegree::Type type,
            const ChordKind &kind)
{
    for (const Degree &degree : list) {
        const int from = type == HarmonyDegree::Type::Add ? dominantAlteration(degree.number)
                                                          : ownAlteration(kind, degree.number);
        degrees.push_back({degree.number, degree.alteration - from, type});
    }
}

} // namespace

std::optional<Chord> Chord::fromHarmony(const Harmony &harmony)
{
    if (harmony.kind == HarmonyKind::None)
        return Chord();
    if (!harmony.root)
        return std::nullopt;
    const ChordKind &kind = ChordKind::fromHarmonyKind(harmony.kind);
    Chord chord(harmony.root, kind);
    for (const HarmonyDegree &degree : harmony.degrees) {
        if (degree.value < 1 || degree.value > Degree::lastNumber
            || std::abs(degree.alter) > 2 * mostSemitones)
            return std::nullopt;
        const bool isAdded = degree.type == HarmonyDegree::Type::Add;
        const int alteration = degree.alter
            + (isAdded ? dominantAlteration(degree.value) : ownAlteration(kind, degree.value));
        const Degree own = {static_cast<std::uint8_t>(degree.value),
                            static_cast<std::int8_t>(alteration)};
        DegreeList &list = isAdded                      ? chord._added
            : degree.type == HarmonyDegree::Type::Alter ? chord._altered
                                                        : chord._omitted;
        if (std::abs(alteration) > mostSemitones || !list.append(own))
            return std::nullopt;
    }
    chord._bass = harmony.bass;
    chord._inversion = harmony.inversion.value_or(-1);
    return chord;
}

Harmony Chord::toHarmony() const
{
    Harmony harmony;
    harmony.kind = isNone() ? HarmonyKind::None : _kind->harmonyKind();
    if (isNone())
        return harmony;
    harmony.root = _root;
    harmony.bass = _bass;
    if (_inversion >= 0)
        harmony.inversion = _inversion;
    const ChordKind &plain = ChordKind::fromHarmonyKind(_kind->harmonyKind());
    DegreeDifference changes;
    if (_kind == &plain) {
        changes.altered = _altered;
        changes.added = _added;
        changes.omitted = _omitted;
    } else {
        changes = DegreeDifference::byNumber(plain.degrees(), degrees());
    }
    append(harmony.degrees, changes.altered, HarmonyDegree::Type::Alter, plain);
    append(harmony.degrees, changes.added, HarmonyDegree::Type::Add, plain);
    append(harmony.degrees, changes.omitted, HarmonyDegree::Type::Subtract, plain);
    return harmony;
}

} // namespace zarn::chord
