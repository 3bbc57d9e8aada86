// SPDX-License-Identifier: MIT
#include <ZarnCore/chords/ZarnChordDegree.h>

#include <algorithm>
#include <cstdlib>

namespace zarn::chord {

PitchClass Degree::above(const PitchClass &root) const noexcept
{
    const auto steps = static_cast<Interval::Value>((number - 1) % spelling::letterCount);
    PitchClass pitch = root.transposed(Interval(steps));
    for (int i = 0; i < alteration; ++i)
        pitch.augment();
    for (int i = 0; i > alteration; --i)
        pitch.diminish();
    return pitch;
}

std::string Degree::toText() const
{
    return std::string(static_cast<std::size_t>(std::abs(alteration)), alteration < 0 ? 'b' : '#')
        + std::to_string(number);
}

bool DegreeList::insert(Degree degree) noexcept
{
    auto *const end = _degrees.begin() + _size;
    auto *const at = std::lower_bound(_degrees.begin(), end, degree);
    if (at != end && *at == degree)
        return true;
    if (_size == capacity)
        return false;
    std::copy_backward(at, end, end + 1);
    *at = degree;
    ++_size;
    return true;
}

void DegreeList::remove(Degree degree) noexcept
{
    auto *const end = _degrees.begin() + _size;
    auto *const kept = std::remove(_degrees.begin(), end, degree);
    _size = static_cast<std::uint8_t>(kept - _degrees.begin());
}

bool DegreeList::isOmissible(Degree degree) const noexcept
{
    if (degree.alteration != 0 || !contains(degree))
        return false;
    switch (degree.number) {
    case 1:
        return _size >= 5;
    case 5:
        return _size >= 4;
    case 9:
        return _size >= 6;
    case 11:
        return _size >= 7;
    default:
        return false;
    }
}

} // namespace zarn::chord
