// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/GapFiller.h>

#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/io/musicxml/Wording.h>

#include <algorithm>

namespace zarn::io {

using utils::rational;

namespace {

/// No bar has more notes of one tuplet.
constexpr std::int64_t mostValues = 128;

bool fillByTuplet(const RhythmValue &value, const rational &gap, std::vector<RhythmValue> &rhythms)
{
    if (!value.hasPrimaryTuplet())
        return false;
    const auto count = gap / value.getLength();
    if (!count.isInteger() || count.numerator() > mostValues)
        return false;
    rhythms.assign(static_cast<std::size_t>(count.numerator()), value);
    return true;
}

} // namespace

bool findRestRhythms(const rational &length, std::vector<RhythmValue> &rhythms)
{
    rhythms.clear();
    try {
        RhythmValue::rhythms(length, rhythms);
    } catch (const CoreException &) {
        return false;
    }
    return true;
}

bool findGapRhythms(const rational &gap, const RhythmValue *before, const RhythmValue *behind,
                    std::vector<RhythmValue> &rhythms)
{
    if (!findRestRhythms(gap, rhythms))
        return false;
    const bool isPlain = std::none_of(rhythms.begin(), rhythms.end(),
                                      [](const auto &rhythm) { return rhythm.hasPrimaryTuplet(); });
    if (!isPlain && !(behind && fillByTuplet(*behind, gap, rhythms)) && before)
        fillByTuplet(*before, gap, rhythms);
    return true;
}

void GapFiller::fill(VoiceSlot &slot, const rational &end, pugi::xml_node node,
                     const RhythmValue *behind)
{
    if (!(slot.end < end))
        return;
    const auto *const before =
        slot.beats.empty() ? nullptr : &slot.beats.back().beat->rhythmValue();
    rational gap;
    try {
        gap = end - slot.end;
    } catch (const CoreException &) { // past what a fraction holds
        _context.addProblem(node, "a gap that fits no note values was closed");
        return;
    }
    if (!findGapRhythms(gap, before, behind, _rhythms)) {
        _context.addProblem(node,
                            "a gap of " + inQuarters(gap) + " fits no note values and was closed");
        return;
    }
    _context.addEmptyNodes(node, _rhythms.size());
    for (const auto &rhythm : _rhythms) {
        auto beat = std::make_shared<Beat>(rhythm);
        beat->setPlaceHolder(true);
        slot.beats.push_back({slot.end, std::move(beat)});
        slot.end += rhythm.getLength();
    }
}

} // namespace zarn::io
