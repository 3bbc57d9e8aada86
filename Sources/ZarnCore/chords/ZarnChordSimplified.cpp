// SPDX-License-Identifier: MIT
// The plainest way to say some degrees.
#include <ZarnCore/chords/ZarnChord.h>

#include <ZarnCore/chords/DegreeDifference.h>

#include <limits>

namespace zarn::chord {

namespace {

/// A tone fewer is plainer than an altered one, and that plainer than one more.
int weight(const DegreeDifference &difference) noexcept
{
    return 10 * static_cast<int>(difference.omitted.size())
        + 11 * static_cast<int>(difference.altered.size())
        + 12 * static_cast<int>(difference.added.size());
}

/// An added degree as symbols name it: seconds as ninths, fourths and sixths as 11ths and 13ths.
Degree asAdded(Degree degree) noexcept
{
    const int number = (degree.number - 1) % 7 + 1;
    const bool isExtension = number == 2 || number == 4 || number == 6;
    return {static_cast<std::uint8_t>(isExtension ? number + 7 : number), degree.alteration};
}

} // namespace

Chord Chord::fromDegrees(const PitchClass &root, const DegreeList &degrees)
{
    if (const ChordKind *const kind = ChordKind::fromDegrees(degrees))
        return Chord(root, *kind);
    Chord best(root);
    int least = std::numeric_limits<int>::max();
    DegreeDifference changes;
    for (const ChordKind &kind : ChordKind::all()) {
        if (!kind.isRecognised())
            continue;
        const auto difference = DegreeDifference::inAnyOctave(kind.degrees(), degrees);
        if (weight(difference) >= least)
            continue;
        least = weight(difference);
        best = Chord(root, kind);
        changes = difference;
    }
    best._altered = changes.altered;
    best._omitted = changes.omitted;
    for (const Degree &degree : changes.added)
        best._added.insert(asAdded(degree));
    return best;
}

Chord Chord::simplified() const
{
    const bool isFunction = !_kind->isRecognised() && _kind->harmonyKind() != HarmonyKind::Other;
    const bool isPlain = _altered.isEmpty() && _added.isEmpty() && _omitted.isEmpty();
    Chord result = isNone() || (isFunction && isPlain) ? *this : fromDegrees(_root, degrees());
    result.unsetBass();
    if (_bass || _inversion > 0)
        result.setBass(bass());
    return result;
}

} // namespace zarn::chord
