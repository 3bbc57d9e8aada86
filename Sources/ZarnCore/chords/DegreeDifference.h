// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/chords/ZarnChordDegree.h>

namespace zarn::chord {

/// What has to be done to some degrees to get others.
struct DegreeDifference {
    /// As they are in the result.
    DegreeList altered;
    DegreeList added;
    /// As they were.
    DegreeList omitted;

    /// Any degree that is there under the same number with another alteration is altered.
    static DegreeDifference byNumber(const DegreeList &from, const DegreeList &to) noexcept;

    /// A second and a ninth are the same degree. Only plain degrees count as altered, and only
    /// when the result is not plain: so that "b9" says all of it.
    static DegreeDifference inAnyOctave(const DegreeList &from, const DegreeList &to) noexcept;
};

} // namespace zarn::chord
