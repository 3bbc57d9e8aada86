// SPDX-License-Identifier: MIT
#include <ZarnLayout/source/Beaming.h>

#include <ZarnLayout/source/BarSource.h>

#include <algorithm>

namespace zarn::engraving {

using utils::rational;

namespace {

/// The stretches of a bar over whose ends no beam leads.
class BeamMeter {
public:
    BeamMeter(const TimeSignature &meter, const BeamGroups &groups) : _bar(meter.barLength())
    {
        if (!groups.isEmpty()) {
            rational end;
            for (const unsigned group : groups.groups())
                _ends.push_back(end += meter.timeUnit() * rational(group));
            return;
        }
        _isCompound = meter.getNumerator() % 3 == 0 && meter.getNumerator() > 3
            && meter.getDenominator() >= 8;
        if (_isCompound)
            _beat = meter.timeUnit() * rational(3);
        else if (meter.getDenominator() <= 4 && meter.getNumerator() > 0)
            _beat = 1;
        else
            addOddGroups(meter);
    }

    bool joins(const BeatSource &left, const BeatSource &right, bool areEighths) const
    {
        if (_beat.isZero())
            return groupOf(left.onset) == groupOf(right.onset);
        if (utils::floorDivide(left.onset, _beat) == utils::floorDivide(right.onset, _beat))
            return true;
        return areEighths && !_isCompound && right.onset * rational(2) != _bar
            && !right.rhythm.hasPrimaryTuplet();
    }

private:
    /// Five eighths as 3 + 2, seven as 2 + 2 + 3: twos and at the end a three, but for five.
    void addOddGroups(const TimeSignature &meter)
    {
        const unsigned units = meter.getNumerator();
        rational end;
        for (unsigned left = units; left > 0;) {
            const unsigned group = left <= 3 ? left : left == units && units == 5 ? 3 : 2;
            _ends.push_back(end += meter.timeUnit() * rational(group));
            left -= group;
        }
    }

    std::size_t groupOf(const rational &onset) const
    {
        return static_cast<std::size_t>(std::upper_bound(_ends.begin(), _ends.end(), onset)
                                        - _ends.begin());
    }

    rational _bar;
    rational _beat; ///< 0 where `_ends` says it
    std::vector<rational> _ends;
    bool _isCompound = false;
};

bool canBeam(const BeatSource &beat)
{
    return beat.flagCount() > 0 && !beat.isPlaceHolder && !beat.isWholeBarRest;
}

} // namespace

void setBeams(std::vector<BeatSource> &beats, const TimeSignature &meter, const BeamGroups &groups)
{
    const BeamMeter usual(meter, groups);
    BeatSource *last = nullptr;
    bool wantsJoin = true;  ///< every beat since the last note asks for a beam
    bool areEighths = true; ///< nothing shorter in the group so far
    for (BeatSource &beat : beats) {
        if (beat.isGrace())
            continue;
        if (!canBeam(beat)) {
            last = nullptr;
            continue;
        }
        if (beat.isRest) {
            if (last)
                wantsJoin = wantsJoin && beat.marks.beamMode() == BeamMode::Join;
            if (last && !wantsJoin)
                last = nullptr;
            continue;
        }
        bool joined = false;
        if (last) {
            const bool isNext = last->index + 1 == beat.index;
            const BeamMode mode = last->marks.beamMode();
            const bool eighths = areEighths && beat.flagCount() == 1;
            joined = mode == BeamMode::Join
                ? (isNext || wantsJoin)
                : mode == BeamMode::Auto && isNext && usual.joins(*last, beat, eighths);
        }
        if (joined) {
            for (BeatSource *inner = last; inner != &beat; ++inner)
                inner->isBeamedOn = true;
        }
        areEighths = (!joined || areEighths) && beat.flagCount() == 1;
        last = &beat;
        wantsJoin = beat.marks.beamMode() == BeamMode::Join;
    }

    // Grace notes of one main note share a beam.
    for (std::size_t i = 0; i + 1 < beats.size(); ++i)
        if (beats[i].isGrace() && beats[i + 1].isGrace()
            && beats[i].graceRank == beats[i + 1].graceRank + 1 && beats[i].flagCount() > 0
            && beats[i + 1].flagCount() > 0 && beats[i].noteCount > 0 && beats[i + 1].noteCount > 0
            && beats[i].marks.beamMode() != BeamMode::Break)
            beats[i].isBeamedOn = true;
}

} // namespace zarn::engraving
