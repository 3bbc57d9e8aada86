// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/signs/Beams.h>

#include <utility>

namespace zarn::io {

using utils::rational;

namespace {

bool isShorterThan(const Beat &beat, RhythmValue::NoteValue value)
{
    return static_cast<int>(beat.rhythmValue().getNoteValue()) > static_cast<int>(value);
}

/// What the meter says of the beams between two notes.
class UsualBeams {
public:
    explicit UsualBeams(const TimeSignature &meter)
        : _bar(meter.barLength()),
          _isCompound(meter.getNumerator() % 3 == 0 && meter.getNumerator() > 3
                      && meter.getDenominator() >= 8)
    {
        if (_isCompound)
            _beat = meter.timeUnit() * rational(3);
        else if (meter.getDenominator() <= 4)
            _beat = 1;
    }

    bool are(bool joined, const PlacedBeat &left, const PlacedBeat &right) const
    {
        if (_beat.isZero())
            return false;
        if (utils::floorDivide(left.onset, _beat) == utils::floorDivide(right.onset, _beat))
            return joined;
        return !joined
            && (_isCompound || right.onset * rational(2) == _bar
                || isShorterThan(*left.beat, RhythmValue::NoteValue::Eighth)
                || isShorterThan(*right.beat, RhythmValue::NoteValue::Eighth));
    }

private:
    rational _bar;
    rational _beat; ///< 0 when the meter does not tell
    bool _isCompound;
};

} // namespace

void setBeams(std::vector<PlacedBeat> &beats, const TimeSignature &meter)
{
    const UsualBeams usual(meter);
    PlacedBeat *left = nullptr;
    for (auto &placed : beats) {
        if (placed.beat->isGrace() || !placed.beat->hasNotes())
            continue;
        auto *const before = std::exchange(left, &placed);
        const bool haveFlags = before
            && isShorterThan(*before->beat, RhythmValue::NoteValue::Quarter)
            && isShorterThan(*placed.beat, RhythmValue::NoteValue::Quarter);
        if (!haveFlags)
            continue;
        const bool joined = before->isBeamedOn;
        const bool isNext = before + 1 == &placed;
        if (isNext ? usual.are(joined, *before, placed) : !joined)
            continue;
        // Over rests, they are joined too.
        for (auto *beat = before; beat != &placed; ++beat)
            beat->beat->setBeamMode(joined ? BeamMode::Join : BeamMode::Break);
    }
}

} // namespace zarn::io
