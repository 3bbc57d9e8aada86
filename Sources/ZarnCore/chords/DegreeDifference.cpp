// SPDX-License-Identifier: MIT
#include <ZarnCore/chords/DegreeDifference.h>

namespace zarn::chord {

namespace {

template <class Same, class CanAlter>
DegreeDifference difference(const DegreeList &from, const DegreeList &to, Same same,
                            CanAlter canAlter) noexcept
{
    const auto lacks = [&](const DegreeList &list, Degree degree) {
        for (const Degree &other : list)
            if (same(other.number, degree.number) && other.alteration == degree.alteration)
                return false;
        return true;
    };
    DegreeDifference result;
    for (const Degree &degree : to)
        if (lacks(from, degree))
            result.added.append(degree);
    for (const Degree &degree : from) {
        if (!lacks(to, degree))
            continue;
        bool isAltered = false;
        for (const Degree &other : result.added)
            if (same(other.number, degree.number) && canAlter(degree, other)) {
                result.altered.append({degree.number, other.alteration});
                result.added.remove(Degree(other));
                isAltered = true;
                break;
            }
        if (!isAltered)
            result.omitted.append(degree);
    }
    return result;
}

} // namespace

DegreeDifference DegreeDifference::byNumber(const DegreeList &from, const DegreeList &to) noexcept
{
    return difference(
        from, to, [](int left, int right) { return left == right; },
        [](Degree, Degree) { return true; });
}

DegreeDifference DegreeDifference::inAnyOctave(const DegreeList &from,
                                               const DegreeList &to) noexcept
{
    return difference(
        from, to, [](int left, int right) { return (left - right) % 7 == 0; },
        [](Degree plain, Degree altered) {
            return plain.alteration == 0 && altered.alteration != 0;
        });
}

} // namespace zarn::chord
