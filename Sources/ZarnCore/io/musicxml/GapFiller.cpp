// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/GapFiller.h>

#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/io/musicxml/Wording.h>

namespace zarn::io {

void GapFiller::fill(VoiceSlot &slot, const utils::rational &end, pugi::xml_node node)
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
    _context.addEmptyNodes(node, _rhythms.size());
    for (const auto &rhythm : _rhythms) {
        auto beat = std::make_shared<Beat>(rhythm);
        beat->setPlaceHolder(true);
        slot.beats.push_back({slot.end, std::move(beat)});
        slot.end += rhythm.getLength();
    }
}

} // namespace zarn::io
