// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/signs/StaffTimes.h>

#include <algorithm>

namespace zarn::io {

using utils::rational;

namespace {

/// Calls `visit(beat, index, onset)` for the beats of a voice until it answers false.
template <typename Visit>
void forEachBeat(const Voice &voice, Visit visit)
{
    rational onset = 0;
    unsigned index = 0;
    for (const auto &beat : voice.beats()) {
        if (!visit(*beat, index++, onset))
            return;
        if (!beat->isGrace())
            onset += beat->rhythmValue().getLength();
    }
}

} // namespace

const Voice *StaffTimes::voiceOf(int bar, unsigned slot) const
{
    const auto &voice = _bars[static_cast<std::size_t>(bar)]->voices()[slot];
    return voice && voice->beatCount() > 0 ? voice.get() : nullptr;
}

unsigned StaffTimes::slotOf(int bar, unsigned preferred) const
{
    if (voiceOf(bar, preferred))
        return preferred;
    for (unsigned slot = 0; slot < Bar::MaxVoices; ++slot)
        if (voiceOf(bar, slot))
            return slot;
    return Bar::MaxVoices;
}

NotePlace StaffTimes::atOrAfter(int bar, const rational &position) const
{
    NotePlace best;
    rational from = position;
    for (; bar < static_cast<int>(_bars.size()) && !best.beat; ++bar, from = 0)
        for (unsigned slot = 0; slot < Bar::MaxVoices; ++slot)
            if (const auto *voice = voiceOf(bar, slot))
                forEachBeat(*voice, [&](Beat &beat, unsigned index, const rational &onset) {
                    if (onset < from)
                        return true;
                    if (!best.beat || onset < best.onset)
                        best = {bar, 0, slot, index, onset, 0, &beat, nullptr};
                    return false;
                });
    return best;
}

std::vector<NotePlace> StaffTimes::between(const NotePlace &begin, const NotePlace &stop) const
{
    const int firstBar = begin.bar;
    const int lastBar = stop.bar;
    const auto &first = begin.onset;
    const auto &last = stop.onset;
    std::vector<NotePlace> places;
    const auto start = begin.joint ? NotePlace() : atOrAfter(firstBar, first);
    const unsigned preferred = begin.joint ? begin.joint->slot : start.beat ? start.slot : 0;
    const int end = std::min(lastBar, static_cast<int>(_bars.size()) - 1);
    for (int bar = firstBar; bar <= end; ++bar) {
        const unsigned slot = slotOf(bar, preferred);
        if (slot == Bar::MaxVoices)
            continue;
        // Among grace notes, which take no time, the order of the document tells.
        const bool isEndInVoice = bar == lastBar && stop.joint && stop.joint->slot == slot;
        forEachBeat(*voiceOf(bar, slot), [&](Beat &beat, unsigned index, const rational &onset) {
            if (isEndInVoice ? index >= stop.joint->index : bar == lastBar && !(onset < last))
                return false;
            const bool isInside = begin.joint ? index >= begin.joint->index : !(onset < first);
            if (bar > firstBar || isInside)
                places.push_back({bar, 0, slot, index, onset, 0, &beat, nullptr});
            return true;
        });
    }
    const unsigned slot = slotOf(firstBar, preferred);
    if (!places.empty() || slot == Bar::MaxVoices)
        return places;
    forEachBeat(*voiceOf(firstBar, slot), [&](Beat &beat, unsigned index, const rational &onset) {
        if (first < onset)
            return false;
        places.assign(1, {firstBar, 0, slot, index, onset, 0, &beat, nullptr});
        return true;
    });
    return places;
}

} // namespace zarn::io
