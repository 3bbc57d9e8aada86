// SPDX-License-Identifier: MIT
#include <ZarnCore/model/barring/MeterRests.h>

#include <ZarnCore/music/ZarnTimeSignature.h>

#include <algorithm>

namespace zarn {

namespace {

using utils::rational;

/// The times that one rest may take in a meter, each of them where it divides the bar.
class RestGrid {
public:
    explicit RestGrid(const TimeSignature &meter)
    {
        const rational shortest(1, 64);
        const unsigned units = meter.getNumerator();
        const bool isCompound = meter.getDenominator() >= 8 && units > 3 && units % 3 == 0;
        _beat = meter.timeUnit() * rational(isCompound ? 3 : 1);
        rational length = _beat;
        for (unsigned beats = isCompound ? units / 3 : units; beats != 0 && beats % 4 == 0;
             beats /= 2)
            length *= 2;
        for (; length >= _beat; length /= 2)
            _lengths.push_back(length);
        for (length = meter.timeUnit() / rational(isCompound ? 1 : 2); length >= shortest;
             length /= 2)
            _lengths.push_back(length);
    }

    rational nextBeat(const rational &at) const
    {
        return rational((at / _beat).floor() + 1) * _beat;
    }

    /// The longest rest that may begin at a time; 0 when none does.
    rational lengthAt(const rational &at, const rational &end) const
    {
        const auto found =
            std::find_if(_lengths.begin(), _lengths.end(), [&](const rational &length) {
                return (at / length).isInteger() && at + length <= end;
            });
        return found == _lengths.end() ? rational() : *found;
    }

private:
    rational _beat;
    std::vector<rational> _lengths; ///< falling
};

void addRests(Voice::Beats &rests, const rational &length)
{
    std::vector<RhythmValue> rhythms;
    RhythmValue::rhythms(length, rhythms);
    // The short ones first: towards the beat.
    for (auto rhythm = rhythms.rbegin(); rhythm != rhythms.rend(); ++rhythm)
        rests.push_back(std::make_shared<Beat>(*rhythm));
}

} // namespace

Voice::Beats restsInMeter(const TimeSignature &meter, const rational &from, const rational &to)
{
    Voice::Beats rests;
    if (from.isZero() && to == meter.barLength()) {
        rests.push_back(std::make_shared<Beat>(RhythmValue(RhythmValue::NoteValue::Whole)));
        rests.back()->setWholeBarRest(true);
        return rests;
    }
    const RestGrid grid(meter);
    for (rational at = from; at < to;) {
        rational length = grid.lengthAt(at, to);
        if (length.isZero())
            length = std::min(to, grid.nextBeat(at)) - at;
        addRests(rests, length);
        at += length;
    }
    return rests;
}

} // namespace zarn
