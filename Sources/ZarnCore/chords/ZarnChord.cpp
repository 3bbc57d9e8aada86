// SPDX-License-Identifier: MIT
#include <ZarnCore/chords/ZarnChord.h>

#include <algorithm>

namespace zarn::chord {

Chord::Chord() noexcept : _kind(&ChordKind::fromHarmonyKind(HarmonyKind::None)) { }

Chord::Chord(const PitchClass &root) noexcept
    : Chord(root, ChordKind::fromHarmonyKind(HarmonyKind::Major))
{
}

Chord::Chord(const PitchClass &root, const ChordKind &kind) noexcept : _root(root), _kind(&kind)
{
    if (!root)
        *this = Chord();
}

PitchClass Chord::bass() const
{
    if (_bass || _inversion <= 0)
        return _bass ? _bass : _root;
    const DegreeList all = degrees();
    const auto index = static_cast<std::size_t>(_inversion);
    return index < all.size() ? all[index].above(_root) : _root;
}

void Chord::unsetBass() noexcept
{
    _bass = {};
    _inversion = -1;
}

DegreeList Chord::degrees() const noexcept
{
    if (isNone())
        return {};
    DegreeList result = _kind->degrees();
    for (const Degree &degree : _altered) {
        const Degree plain = {degree.number, 0};
        if (result.contains(plain))
            result.remove(plain);
        else if (const Degree *const own = _kind->degrees().find(degree.number))
            result.remove(*own);
        result.insert(degree);
    }
    for (const Degree &degree : _added)
        result.insert(degree);
    for (const Degree &degree : _omitted) {
        const Degree *const own = result.contains(degree) ? &degree : result.find(degree.number);
        if (own != nullptr)
            result.remove(Degree(*own));
    }
    return result;
}

std::vector<ChordTone> Chord::tones() const
{
    const DegreeList all = degrees();
    std::vector<ChordTone> result;
    result.reserve(all.size());
    for (const Degree &degree : all)
        result.push_back({degree, degree.above(_root), all.isOmissible(degree)});
    return result;
}

ToneSet Chord::toneSet() const
{
    return isNone() ? ToneSet() : degrees().tones(_root.tone());
}

ToneSet Chord::toneSetWithBass() const
{
    ToneSet set = toneSet();
    if (!isNone())
        set.insert(bass().tone());
    return set;
}

ToneSet Chord::omissibleTones() const
{
    ToneSet set;
    const DegreeList all = degrees();
    for (const Degree &degree : all)
        if (all.isOmissible(degree))
            set.insert(_root.tone() + degree.semitones());
    return set;
}

Chord Chord::transposed(const Interval &interval) const
{
    Chord result = *this;
    result._root.transpose(interval);
    result._bass.transpose(interval);
    return result;
}

} // namespace zarn::chord
