// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnIncrementBeatSecondaryAttribute.h>

#include <ZarnCore/model/ZarnStaff.h>

#include <algorithm>
#include <cstdlib>

namespace zarn::cmd {

namespace {

constexpr BeatAttributeSet ordered = {
    BeatAttribute::Dynamic, BeatAttribute::Tremolo, BeatAttribute::Brush,  BeatAttribute::Arpeggio,
    BeatAttribute::Barre,   BeatAttribute::Wah,     BeatAttribute::Ottavia};

NoteDynamic moved(NoteDynamic dynamic, int steps)
{
    if (dynamic == NoteDynamic::Value::None)
        return NoteDynamic::Value::MF;
    const int level = std::clamp(static_cast<int>(dynamic.value()) + steps,
                                 static_cast<int>(NoteDynamic::Value::PPPPPPP),
                                 static_cast<int>(NoteDynamic::Value::FFFFFFF));
    return static_cast<NoteDynamic::Value>(level);
}

/// As many doublings as there is room for.
Strum moved(Strum strum, int steps, std::uint16_t usual)
{
    if (strum.direction == Direction::None)
        return strum;
    unsigned length = strum.length == 0 ? usual : strum.length;
    for (int i = std::abs(steps); i > 0; --i) {
        const unsigned next = steps > 0 ? length * 2 : length / 2;
        if (next < Strum::ShortestLength || next > Strum::LongestLength)
            break;
        length = next;
    }
    strum.length = length == usual ? std::uint16_t(0) : static_cast<std::uint16_t>(length);
    return strum;
}

/// The fastest speed is open to all; the slowest one that is faster than the beat is the other end.
unsigned movedTremolo(const Beat &beat, int steps)
{
    if (beat.tremolo() == 0)
        return 0;
    constexpr int eighth = static_cast<int>(RhythmValue::NoteValue::Eighth);
    const int slowest =
        std::max(1, static_cast<int>(beat.rhythmValue().getNoteValue()) - eighth + 2);
    const int now = static_cast<int>(beat.tremolo());
    return static_cast<unsigned>(std::clamp(now + steps, std::min(slowest, now), 4));
}

Barre movedBarre(const Staff &staff, Barre barre, int steps)
{
    const int highest = static_cast<int>(std::min(staff.fretCount(), Barre::HighestFret));
    if (barre.fret != 0 && highest > 0)
        barre.fret = static_cast<std::uint8_t>(std::clamp(barre.fret + steps, 1, highest));
    return barre;
}

WahWah moved(WahWah wah, int steps)
{
    if (wah == WahWah::None)
        return wah;
    return steps > 0 ? WahWah::Open : WahWah::Closed;
}

/// The enumerators run from the highest sign to the lowest.
Ottavia moved(Ottavia ottavia, int steps)
{
    if (ottavia == Ottavia::None)
        return ottavia;
    return static_cast<Ottavia>(std::clamp(static_cast<int>(ottavia) - steps,
                                           static_cast<int>(Ottavia::_15ma),
                                           static_cast<int>(Ottavia::_15mb)));
}

} // namespace

IncrementBeatSecondaryAttribute::IncrementBeatSecondaryAttribute()
    : SetByTable(QStringLiteral("IncrementBeatSecondaryAttribute"))
{
}
IncrementBeatSecondaryAttribute::~IncrementBeatSecondaryAttribute() = default;

bool IncrementBeatSecondaryAttribute::init(Score *score, const ScoreModelRange &range,
                                           BeatAttribute id, int steps)
{
    ZARN_ASSERT_IN("zarn::cmd::IncrementBeatSecondaryAttribute::init", score != NULL);
    _steps = steps;
    addArg(QStringLiteral("Steps"), QString::number(steps));
    return isAttribute(id) && ordered.has(id) && steps != 0 && steps >= -MostSteps
        && steps <= MostSteps
        && prepare(score, range, {{id, defaultOf(rowOf(id))}}, Recorded::NamesAndValues);
}

AttributeValue IncrementBeatSecondaryAttribute::moved(const Staff &staff, const Beat &beat) const
{
    switch (given()[0].row->id) {
    case BeatAttribute::Dynamic:
        return cmd::moved(beat.dynamic(), _steps);
    case BeatAttribute::Tremolo:
        return movedTremolo(beat, _steps);
    case BeatAttribute::Brush:
        return cmd::moved(beat.brush(), _steps, Strum::BrushLength);
    case BeatAttribute::Arpeggio:
        return cmd::moved(beat.arpeggio(), _steps, Strum::ArpeggioLength);
    case BeatAttribute::Barre:
        return movedBarre(staff, beat.barre(), _steps);
    case BeatAttribute::Wah:
        return cmd::moved(beat.wah(), _steps);
    default:
        return cmd::moved(beat.ottavia(), _steps);
    }
}

bool IncrementBeatSecondaryAttribute::takes(const MarkedPlace &place, const Beat &beat,
                                            const Beat &node) const
{
    return SetByTable::takes(place, beat, node)
        && moved(place.staff, beat) != given()[0].row->get(beat);
}

void IncrementBeatSecondaryAttribute::change(const MarkedPlace &place, Beat &beat, Beat &)
{
    setAttribute(beat, given()[0].row->id, moved(place.staff, beat));
}

} // namespace zarn::cmd
