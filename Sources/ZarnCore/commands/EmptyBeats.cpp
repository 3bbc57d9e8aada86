// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/EmptyBeats.h>

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/model/ZarnBeatAttribute.h>

namespace zarn {

std::shared_ptr<Beat> emptyBeat(const Beat &beat, const RhythmValue &rhythm)
{
    auto empty = std::make_shared<Beat>(rhythm);
    empty->setMarks(beat.marks());
    if (beat.hasDetails())
        empty->setDetails(beat.details());
    empty->setPlaceHolder(false);
    empty->setWholeBarRest(false);
    empty->setDeadSlapped(false);
    for (const BeatAttributeRow &row : beatAttributes())
        if (row.leastNotes > 0 && row.id != BeatAttribute::GraceType)
            reset(*empty, row);
    return empty;
}

std::optional<std::vector<RhythmValue>> rhythmsOf(const utils::rational &length)
{
    std::vector<RhythmValue> rhythms;
    try {
        RhythmValue::rhythms(length, rhythms);
    } catch (const CoreException &) {
        return std::nullopt;
    }
    return rhythms;
}

} // namespace zarn
