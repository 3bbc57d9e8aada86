// SPDX-License-Identifier: MIT
#include <ZarnCore/model/form/ZarnUsualBeams.h>

#include <ZarnCore/model/attributes/ZarnBeamGroups.h>
#include <ZarnCore/music/ZarnRhythmValue.h>
#include <ZarnCore/music/ZarnTimeSignature.h>

#include <algorithm>

namespace zarn {

using utils::rational;

UsualBeams::UsualBeams(const TimeSignature &meter, const BeamGroups &groups)
    : _bar(meter.barLength())
{
    if (!groups.isEmpty()) {
        rational end;
        for (const unsigned group : groups.groups())
            _ends.push_back(end += meter.timeUnit() * rational(group));
        _beat = meter.getDenominator() <= 4 ? 1 : 0;
        return;
    }
    _isCompound =
        meter.getNumerator() % 3 == 0 && meter.getNumerator() > 3 && meter.getDenominator() >= 8;
    if (_isCompound)
        _beat = meter.timeUnit() * rational(3);
    else if (meter.getDenominator() <= 4)
        _beat = 1;
    else
        addOddGroups(meter);
}

bool UsualBeams::join(const rational &left, const rational &right, const RhythmValue &rhythm,
                      bool areEighths) const
{
    if (!_ends.empty() && groupOf(left) != groupOf(right))
        return false;
    if (_beat.isZero() || utils::floorDivide(left, _beat) == utils::floorDivide(right, _beat))
        return true;
    if (!_ends.empty())
        return areEighths && !rhythm.hasPrimaryTuplet();
    return areEighths && !_isCompound && right * rational(2) != _bar && !rhythm.hasPrimaryTuplet();
}

/// Five eighths as 3 + 2, seven as 2 + 2 + 3: twos and at the end a three, but for five.
void UsualBeams::addOddGroups(const TimeSignature &meter)
{
    const unsigned units = meter.getNumerator();
    rational end;
    for (unsigned left = units; left > 0;) {
        const unsigned group = left <= 3 ? left : left == units && units == 5 ? 3 : 2;
        _ends.push_back(end += meter.timeUnit() * rational(group));
        left -= group;
    }
}

std::ptrdiff_t UsualBeams::groupOf(const rational &onset) const
{
    return std::upper_bound(_ends.begin(), _ends.end(), onset) - _ends.begin();
}

} // namespace zarn
