// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/GapFiller.h>

#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/io/musicxml/Wording.h>

#include <algorithm>

namespace zarn::io {

namespace {

/// No bar has more notes of one tuplet.
constexpr std::int64_t mostValues = 128;

} // namespace

bool GapFiller::fillByTuplet(const RhythmValue &value, const utils::rational &gap)
{
    if (!value.hasPrimaryTuplet())
        return false;
    const auto count = gap / value.getLength();
    if (!count.isInteger() || count.numerator() > mostValues)
        return false;
    _rhythms.assign(static_cast<std::size_t>(count.numerator()), value);
    return true;
}

void GapFiller::fill(VoiceSlot &slot, const utils::rational &end, pugi::xml_node node,
                     const RhythmValue *behind)
{
    if (!(slot.end < end))
        return;
    _rhythms.clear();
    try {
        RhythmValue::rhythms(end - slot.end, _rhythms);
    } catch (const CoreException &) {
        _context.addProblem(
            node, "a gap of " + inQuarters(end - slot.end) + " fits no note values and was closed");
        return;
    }
    const bool isPlain = std::none_of(_rhythms.begin(), _rhythms.end(),
                                      [](const auto &rhythm) { return rhythm.hasPrimaryTuplet(); });
    if (!isPlain && !(behind && fillByTuplet(*behind, end - slot.end)) && !slot.beats.empty())
        fillByTuplet(slot.beats.back().beat->rhythmValue(), end - slot.end);
    _context.addEmptyNodes(node, _rhythms.size());
    for (const auto &rhythm : _rhythms) {
        auto beat = std::make_shared<Beat>(rhythm);
        beat->setPlaceHolder(true);
        slot.beats.push_back({slot.end, std::move(beat)});
        slot.end += rhythm.getLength();
    }
}

} // namespace zarn::io
