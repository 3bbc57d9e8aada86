// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/utils/rational.h>

#include <cstddef>
#include <vector>

namespace zarn {

class BeamGroups;
class RhythmValue;
class TimeSignature;

/// What the meter of a bar says of beams: the groups that the bar names, else the beats. Inside of
/// a beat notes are joined; eighths over beats too, but not over the middle of a bar or the beats
/// of a compound meter. A group of eighths or shorter units is a beat; one of quarters has several,
/// over which eighths are joined.
class ZARNCORE_EXPORT UsualBeams {
public:
    UsualBeams(const TimeSignature &meter, const BeamGroups &groups);

    /// Whether a beam leads from a note to the one behind it, whose value is `rhythm`; the onsets
    /// are in quarters from the start of the bar. `areEighths` tells that nothing shorter is in the
    /// group.
    bool join(const utils::rational &left, const utils::rational &right, const RhythmValue &rhythm,
              bool areEighths) const;

private:
    void addOddGroups(const TimeSignature &meter);
    std::ptrdiff_t groupOf(const utils::rational &onset) const;

    utils::rational _bar;
    utils::rational _beat; ///< 0 where `_ends` alone says it
    std::vector<utils::rational> _ends;
    bool _isCompound = false;
};

} // namespace zarn
