// SPDX-License-Identifier: MIT
#include <ZarnCore/model/notes/Ties.h>

#include <ZarnCore/model/ZarnStaff.h>
#include <ZarnCore/model/ZarnVoice.h>

namespace zarn {

bool sameLocation(const Note &left, const Note &right) noexcept
{
    if (left.string() != Note::Unset && right.string() != Note::Unset)
        return left.string() == right.string();
    return left.midi() == right.midi()
        && left.percussionArticulation() == right.percussionArticulation()
        && left.staffLine() == right.staffLine();
}

namespace {

bool hasPartner(const Note &note, const Beat *beat, bool (Note::*linked)() const noexcept)
{
    if (!beat)
        return false;
    for (const auto &other : beat->notes())
        if (((*other).*linked)() && sameLocation(note, *other))
            return true;
    return false;
}

/// Beat at the end or at the start of the same voice in a neighbouring bar.
std::shared_ptr<Beat> neighbourBeat(const Voice &voice, int step)
{
    const auto bar = voice.parentBar();
    const auto staff = bar ? bar->parentStaff() : nullptr;
    if (!staff || (step < 0 && bar->index() == 0))
        return {};
    const auto next = staff->bar(step < 0 ? bar->index() - 1 : bar->index() + 1);
    const auto other = next ? next->voice(voice.index()) : nullptr;
    if (!other || other->isEmpty())
        return {};
    return step < 0 ? other->beats().back() : other->beats().front();
}

void mendBetween(const Beat *before, const Beat *after)
{
    if (after)
        for (const auto &note : after->notes())
            if (note->isTied() && !hasPartner(*note, before, &Note::isTieOrigin))
                note->setTied(false);
    if (before)
        for (const auto &note : before->notes())
            if (note->isTieOrigin() && !hasPartner(*note, after, &Note::isTied))
                note->setTieOrigin(false);
}

void mendJoint(const Voice &voice, unsigned index)
{
    mendBetween(beatInFrontOfJoint(voice, index).get(), beatBehindJoint(voice, index).get());
}

} // namespace

std::shared_ptr<Beat> beatInFrontOfJoint(const Voice &voice, unsigned index)
{
    return index != 0 ? voice.beat(index - 1) : neighbourBeat(voice, -1);
}

std::shared_ptr<Beat> beatBehindJoint(const Voice &voice, unsigned index)
{
    return index < voice.beatCount() ? voice.beat(index) : neighbourBeat(voice, 1);
}

void mendTies(Voice &voice, unsigned first, unsigned last)
{
    mendJoint(voice, first);
    if (last != first)
        mendJoint(voice, last);
}

void mendTiesOverBarLine(const Staff &staff, unsigned bar)
{
    const auto voiceOf = [&staff](unsigned index, unsigned slot) -> const Voice * {
        return index < staff.barCount() ? staff.bars()[index]->voices()[slot].get() : nullptr;
    };
    for (unsigned slot = 0; slot < Bar::MaxVoices; ++slot) {
        const Voice *const before = bar > 0 ? voiceOf(bar - 1, slot) : nullptr;
        const Voice *const after = voiceOf(bar, slot);
        mendBetween(before && !before->isEmpty() ? before->beats().back().get() : nullptr,
                    after && !after->isEmpty() ? after->beats().front().get() : nullptr);
    }
}

void releaseTies(const Voice &voice, unsigned beat, const Note &note)
{
    if (const auto before = note.isTied() ? beatInFrontOfJoint(voice, beat) : nullptr)
        for (const auto &other : before->notes())
            if (sameLocation(note, *other))
                other->setTieOrigin(false);
    if (const auto after = note.isTieOrigin() ? beatBehindJoint(voice, beat + 1) : nullptr)
        for (const auto &other : after->notes())
            if (sameLocation(note, *other))
                other->setTied(false);
}

} // namespace zarn
