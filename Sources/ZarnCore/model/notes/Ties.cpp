// SPDX-License-Identifier: MIT
#include <ZarnCore/model/notes/Ties.h>

#include <ZarnCore/model/ZarnStaff.h>
#include <ZarnCore/model/ZarnTrack.h>
#include <ZarnCore/model/ZarnVoice.h>
#include <ZarnCore/model/notes/StringLinks.h>

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

using Linked = bool (Note::*)() const noexcept;

bool hasPartner(const Note &note, const Beat *beat, Linked linked)
{
    if (!beat)
        return false;
    for (const auto &other : beat->notes())
        if (((*other).*linked)() && sameLocation(note, *other))
            return true;
    return false;
}

/// Beat at the end or at the start of the same voice in a neighbouring bar.
Beat *neighbourBeat(const Voice &voice, int step)
{
    const Voice *const other = voiceBeside(voice, step);
    if (!other)
        return nullptr;
    return (step < 0 ? other->beats().back() : other->beats().front()).get();
}

void mendBetween(const Beat *before, const Beat *after)
{
    if (after)
        for (const auto &note : after->notes())
            if (note->isTied() && !hasPartner(*note, before, &Note::isTieOrigin))
                strikeAnew(*note);
    if (before)
        for (const auto &note : before->notes())
            if (note->isTieOrigin() && !hasPartner(*note, after, &Note::isTied))
                note->setTieOrigin(false);
}

void mendJoint(const Voice &voice, unsigned index)
{
    if (voice.isEmpty()) {
        mendBetween(beatInFrontOfJoint(voice, 0), nullptr);
        mendBetween(nullptr, beatBehindJoint(voice, 0));
        return;
    }
    mendBetween(beatInFrontOfJoint(voice, index), beatBehindJoint(voice, index));
}

/// Whether some note in a bar of a track is the other end of a tie; of its own voice, where it
/// would be the neighbour, nothing is looked at.
bool hasPartnerBeside(const Track &track, const Staff &own, unsigned voiceIndex, unsigned bar,
                      const Note &note, Linked linked)
{
    for (const auto &staff : track.staves()) {
        if (bar >= staff->barCount())
            continue;
        for (const auto &voice : staff->bars()[bar]->voices()) {
            if (!voice || (staff.get() == &own && voice->index() == voiceIndex))
                continue;
            for (const auto &beat : voice->beats())
                if (hasPartner(note, beat.get(), linked))
                    return true;
        }
    }
    return false;
}

void addLooseTies(const Track &track, const Staff &staff, const Voice &voice, unsigned bar,
                  std::vector<LooseTie> &loose)
{
    const auto isFound = [&](const Note &note, Linked linked, unsigned otherBar) {
        return hasPartnerBeside(track, staff, voice.index(), bar, note, linked)
            || hasPartnerBeside(track, staff, voice.index(), otherBar, note, linked);
    };
    for (const auto &beat : voice.beats()) {
        for (const auto &note : beat->notes()) {
            const bool isHeldFromBefore = note->isTied()
                && !hasPartner(*note, beatInFrontOfJoint(voice, beat->index()), &Note::isTieOrigin);
            if (isHeldFromBefore && !isFound(*note, &Note::isTieOrigin, bar - 1))
                loose.push_back({staff.index(), bar, false});
            const bool isHeldOn = note->isTieOrigin() && bar + 1 < staff.barCount()
                && !hasPartner(*note, beatBehindJoint(voice, beat->index() + 1), &Note::isTied);
            if (isHeldOn && !isFound(*note, &Note::isTied, bar + 1))
                loose.push_back({staff.index(), bar, true});
        }
    }
}

} // namespace

void strikeAnew(Note &note)
{
    note.setTied(false);
    if (!note.hasDetails())
        return;
    Bend bend = note.bend();
    if (bend.type == BendType::HoldBend)
        bend.type = BendType::PreBend;
    else if (bend.type == BendType::Release)
        bend.type = BendType::PreBendNRelease;
    note.setBend(bend);
}

Beat *beatInFrontOfJoint(const Voice &voice, unsigned index)
{
    return index != 0 ? voice.beats()[index - 1].get() : neighbourBeat(voice, -1);
}

Beat *beatBehindJoint(const Voice &voice, unsigned index)
{
    return index < voice.beatCount() ? voice.beats()[index].get() : neighbourBeat(voice, 1);
}

void mendTies(Voice &voice, unsigned first, unsigned last)
{
    mendJoint(voice, first);
    if (last != first)
        mendJoint(voice, last);
}

void mendTiesThroughout(Voice &voice, unsigned first, unsigned last)
{
    if (voice.isEmpty())
        mendJoint(voice, 0);
    const Beat *before = voice.isEmpty() ? nullptr : beatInFrontOfJoint(voice, first);
    for (unsigned i = first; !voice.isEmpty() && i <= last; ++i) {
        const Beat *const after = beatBehindJoint(voice, i);
        mendBetween(before, after);
        before = after;
    }
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
                strikeAnew(*other);
}

std::vector<LooseTie> looseTies(const Track &track)
{
    std::vector<LooseTie> loose;
    for (const auto &staff : track.staves())
        for (unsigned bar = 0; bar < staff->barCount(); ++bar)
            for (const auto &voice : staff->bars()[bar]->voices())
                if (voice)
                    addLooseTies(track, *staff, *voice, bar, loose);
    return loose;
}

} // namespace zarn
