// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/signs/Beams.h>

#include <algorithm>
#include <utility>

namespace zarn::io {

using utils::rational;

namespace {

/// What the meter says of the beams between two notes.
class UsualBeams {
public:
    UsualBeams(const TimeSignature &meter, const BeamGroups &groups) : _bar(meter.barLength())
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
        else if (meter.getDenominator() <= 4)
            _beat = 1;
        else
            addOddGroups(meter);
    }

    /// `areEighths` tells that nothing shorter is in the group.
    bool join(const rational &left, const rational &right, const Beat &beat, bool areEighths) const
    {
        if (_beat.isZero())
            return groupOf(left) == groupOf(right);
        if (utils::floorDivide(left, _beat) == utils::floorDivide(right, _beat))
            return true;
        return areEighths && !_isCompound && right * rational(2) != _bar
            && !beat.rhythmValue().hasPrimaryTuplet();
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

    std::ptrdiff_t groupOf(const rational &onset) const
    {
        return std::upper_bound(_ends.begin(), _ends.end(), onset) - _ends.begin();
    }

    rational _bar;
    rational _beat; ///< 0 where `_ends` says it
    std::vector<rational> _ends;
    bool _isCompound = false;
};

} // namespace

int flagsOf(const Beat &beat)
{
    return std::max(static_cast<int>(beat.rhythmValue().getNoteValue())
                        - static_cast<int>(RhythmValue::NoteValue::Quarter),
                    0);
}

void setBeams(std::vector<PlacedBeat> &beats, const TimeSignature &meter)
{
    const UsualBeams usual(meter, {});
    PlacedBeat *left = nullptr;
    bool areEighths = true;
    for (auto &placed : beats) {
        if (placed.beat->isGrace() || !placed.beat->hasNotes())
            continue;
        auto *const before = std::exchange(left, &placed);
        const int flags = flagsOf(*placed.beat);
        const bool haveFlags = before && flags > 0 && flagsOf(*before->beat) > 0;
        const bool joined = haveFlags && before->isBeamedOn;
        const bool wereEighths = std::exchange(areEighths, (!joined || areEighths) && flags == 1);
        if (!haveFlags)
            continue;
        const bool isNext = before + 1 == &placed;
        if (isNext ? joined
                    == usual.join(before->onset, placed.onset, *placed.beat,
                                  wereEighths && flags == 1)
                   : !joined)
            continue;
        // Over rests, they are joined too.
        for (auto *beat = before; beat != &placed; ++beat)
            beat->beat->setBeamMode(joined ? BeamMode::Join : BeamMode::Break);
    }
}

void findBeams(std::vector<BeamedBeat> &beats, const TimeSignature &meter, const BeamGroups &groups)
{
    const UsualBeams usual(meter, groups);
    BeamedBeat *left = nullptr;
    bool wantsJoin = true; // every beat since the last note asks for a beam
    bool areEighths = true;
    for (auto &placed : beats) {
        const auto &beat = *placed.beat;
        if (beat.isGrace())
            continue;
        if (!beat.hasNotes()) {
            wantsJoin = wantsJoin && beat.beamMode() == BeamMode::Join;
            continue;
        }
        const int flags = flagsOf(beat);
        bool joined = false;
        if (left && flags > 0 && flagsOf(*left->beat) > 0) {
            const bool isNext = left + 1 == &placed;
            const auto mode = left->beat->beamMode();
            const bool isUsual =
                isNext && usual.join(left->onset, placed.onset, beat, areEighths && flags == 1);
            joined =
                mode == BeamMode::Join ? isNext || wantsJoin : mode == BeamMode::Auto && isUsual;
            if (mode != BeamMode::Auto && joined != isUsual)
                for (auto *said = left; said != &placed; ++said)
                    said->isSaid = true;
        }
        if (joined)
            left->isBeamedOn = true;
        areEighths = (!joined || areEighths) && flags == 1;
        wantsJoin = beat.beamMode() == BeamMode::Join;
        left = &placed;
    }
}

} // namespace zarn::io
