// SPDX-License-Identifier: MIT
#include <ZarnCore/model/notes/Links.h>

#include <ZarnCore/model/ZarnStaff.h>
#include <ZarnCore/model/notes/LinkFaults.h>
#include <ZarnCore/model/notes/StringLinks.h>
#include <ZarnCore/model/notes/Ties.h>

#include <algorithm>

namespace zarn {

namespace {

bool isRun(Hairpin hairpin) noexcept
{
    return hairpin == Hairpin::Crescendo || hairpin == Hairpin::Decrescendo;
}

/// Whether one hairpin goes on from a beat to the next.
bool sharesHairpin(const Beat &before, const Beat &after) noexcept
{
    return isRun(before.hairpin()) && before.hairpin() == after.hairpin() && !after.beginsHairpin();
}

bool isSlurredThrough(const Beat &beat) noexcept
{
    return beat.isSlurredToPrevious() && beat.isSlurredToNext() && !beat.beginsSlur();
}

void cutSlur(Beat &before, Beat &after)
{
    before.setSlurredToNext(false);
    before.setSlurBegins(false);
    after.setSlurredToPrevious(false);
}

void mendBetween(Beat *before, Beat *after)
{
    if (before) {
        if (leadsSlurToNothing(*before, after))
            before->setSlurredToNext(false);
        if (beginsNoSlur(*before))
            before->setSlurBegins(false);
        if (lacksTremoloPartner(*before, after))
            before->setTremoloToNext(0);
    }
    if (after && takesSlurFromNothing(*after, before))
        after->setSlurredToPrevious(false);
    for (Beat *const beat : {before, after})
        if (beat && beginsNoHairpin(*beat))
            beat->setHairpinBegins(false);
}

/// What went from between two beats, beat by beat: whether one slur and one hairpin went through.
class Taken {
public:
    Taken(Beat &before, Beat &after) : _before(before), _after(after), _last(&before) { }

    bool isOfInterest() const noexcept { return _isOneSlur || _isOneHairpin; }

    void add(const Beat &beat)
    {
        _isOneSlur = _isOneSlur && isSlurredThrough(beat);
        _isOneHairpin = _isOneHairpin && sharesHairpin(*_last, beat);
        _last = &beat;
    }

    /// Bars in which the voice has no beats.
    void addGap() { _isOneSlur = _isOneHairpin = false; }

    void keepApart()
    {
        if (!_isOneSlur && _before.isSlurredToNext() && _after.isSlurredToPrevious())
            cutSlur(_before, _after);
        if (sharesHairpin(_before, _after) && !(_isOneHairpin && sharesHairpin(*_last, _after)))
            _after.setHairpinBegins(true);
    }

private:
    Beat &_before;
    Beat &_after;
    const Beat *_last;
    bool _isOneSlur = true;
    bool _isOneHairpin = true;
};

Beat *lastOf(const Staff &staff, unsigned bar, unsigned slot)
{
    const Voice *const voice =
        bar < staff.barCount() ? staff.bars()[bar]->voices()[slot].get() : nullptr;
    return voice && !voice->isEmpty() ? voice->beats().back().get() : nullptr;
}

Beat *firstOf(const Staff &staff, unsigned bar, unsigned slot)
{
    const Voice *const voice =
        bar < staff.barCount() ? staff.bars()[bar]->voices()[slot].get() : nullptr;
    return voice && !voice->isEmpty() ? voice->beats().front().get() : nullptr;
}

void keepBeat(const Voice &voice, unsigned beat, unsigned track, KeptBeats &kept)
{
    const auto bar = voice.parentBar();
    const auto staff = bar ? bar->parentStaff() : nullptr;
    kept.keep({track, staff ? staff->index() : 0, bar ? bar->index() : 0, voice.index(), beat},
              *voice.beats()[beat]);
}

/// Calls `visit(voice, bar, beat, note)` for the notes from which a link may lead into some bars.
template <class Visit>
void visitStringLinks(const Staff &staff, unsigned first, unsigned last, Visit visit)
{
    const unsigned end = std::min(last + 1, staff.barCount());
    for (unsigned bar = first > 0 ? first - 1 : 0; bar < end; ++bar)
        for (const auto &voice : staff.bars()[bar]->voices())
            for (unsigned beat = 0; voice && beat < voice->beatCount(); ++beat)
                for (const auto &note : voice->beats()[beat]->notes())
                    if (isLinkedToNext(*note))
                        visit(*voice, bar, beat, *note);
}

} // namespace

void mendAllButTies(Voice &voice, unsigned first, unsigned last)
{
    const auto mendJoint = [&voice](unsigned index) {
        if (voice.isEmpty()) {
            mendBetween(beatInFrontOfJoint(voice, 0), nullptr);
            mendBetween(nullptr, beatBehindJoint(voice, 0));
        } else {
            mendBetween(beatInFrontOfJoint(voice, index), beatBehindJoint(voice, index));
        }
        mendStringLinks(voice, index, index);
    };
    mendJoint(first);
    if (last != first)
        mendJoint(last);
}

void mendLinks(Voice &voice, unsigned first, unsigned last)
{
    mendTies(voice, first, last);
    mendAllButTies(voice, first, last);
}

void mendThroughout(Voice &voice, unsigned first, unsigned end)
{
    Beat *before = beatInFrontOfJoint(voice, first);
    for (unsigned i = first; i <= end; ++i) {
        Beat *const after = beatBehindJoint(voice, i);
        mendBetween(before, after);
        before = after;
    }
    mendStringLinks(voice, first, end);
}

void mendLinksOverBarLine(const Staff &staff, unsigned bar)
{
    mendTiesOverBarLine(staff, bar);
    for (unsigned slot = 0; slot < Bar::MaxVoices; ++slot) {
        Beat *const before = bar > 0 ? lastOf(staff, bar - 1, slot) : nullptr;
        mendBetween(before, firstOf(staff, bar, slot));
        if (before) {
            const Voice &voice = *staff.bars()[bar - 1]->voices()[slot];
            mendStringLinks(voice, voice.beatCount(), voice.beatCount());
        }
    }
}

void keepStringLinks(const Staff &staff, unsigned first, unsigned last, unsigned track,
                     KeptBeats &kept)
{
    visitStringLinks(
        staff, first, last, [&](const Voice &voice, unsigned bar, unsigned beat, Note &) {
            kept.keep({track, staff.index(), bar, voice.index(), beat}, *voice.beats()[beat]);
        });
}

void mendStringLinks(const Staff &staff, unsigned first, unsigned last)
{
    visitStringLinks(staff, first, last,
                     [](const Voice &voice, unsigned, unsigned beat, Note &note) {
                         mendStringLinks(voice, beat, note);
                     });
}

void carryOver(const Voice &voice, unsigned first, unsigned end)
{
    const auto before = beatInFrontOfJoint(voice, first);
    const auto after = beatBehindJoint(voice, end);
    if (!before || !after)
        return;
    const auto from = voice.beats().begin() + first;
    const auto to = voice.beats().begin() + end;
    const bool isInSlur = before->isSlurredToNext() && after->isSlurredToPrevious()
        && std::none_of(from, to, [](const auto &beat) {
                              return beat->isSlurredToNext() || beat->isSlurredToPrevious();
                          });
    const bool isInHairpin = sharesHairpin(*before, *after)
        && std::all_of(from, to,
                       [](const auto &beat) { return beat->hairpin() == Hairpin::NoHairpin; });
    for (auto beat = from; beat != to; ++beat) {
        if (isInSlur) {
            (*beat)->setSlurredToPrevious(true);
            (*beat)->setSlurredToNext(true);
        }
        if (isInHairpin)
            (*beat)->setHairpin(before->hairpin());
    }
}

void keepApart(const Voice &voice, unsigned index, const Voice::Beats &taken)
{
    const auto before = beatInFrontOfJoint(voice, index);
    const auto after = beatBehindJoint(voice, index);
    if (!before || !after || voice.isEmpty())
        return;
    Taken went(*before, *after);
    for (const auto &beat : taken)
        if (went.isOfInterest())
            went.add(*beat);
    went.keepApart();
}

void keepApartAtBarLine(const Staff &staff, unsigned bar,
                        const std::vector<std::shared_ptr<Bar>> &taken)
{
    for (unsigned slot = 0; slot < Bar::MaxVoices; ++slot) {
        Beat *const before = bar > 0 ? lastOf(staff, bar - 1, slot) : nullptr;
        Beat *const after = firstOf(staff, bar, slot);
        if (!before || !after)
            continue;
        Taken went(*before, *after);
        for (const auto &gone : taken) {
            if (!went.isOfInterest())
                break;
            const auto &voice = gone->voices()[slot];
            if (!voice || voice->isEmpty()) {
                went.addGap();
                break;
            }
            for (const auto &beat : voice->beats())
                if (went.isOfInterest())
                    went.add(*beat);
        }
        went.keepApart();
    }
}

void tellNeighbour(const Beat &beat, BeatAttribute id)
{
    const auto voice = beat.parentVoice();
    if (!voice)
        return;
    if (id == BeatAttribute::SlurredToNext) {
        if (const auto next = beatBehindJoint(*voice, beat.index() + 1))
            next->setSlurredToPrevious(beat.isSlurredToNext());
    } else if (id == BeatAttribute::SlurredToPrevious) {
        if (const auto previous = beatInFrontOfJoint(*voice, beat.index()))
            previous->setSlurredToNext(beat.isSlurredToPrevious());
    }
}

void tellNeighbour(const Beat &beat, const Note &note, NoteAttribute id)
{
    const auto voice = beat.parentVoice();
    const bool isTied = id == NoteAttribute::Tied;
    if (!voice || (!isTied && id != NoteAttribute::TieOrigin))
        return;
    const auto other = isTied ? beatInFrontOfJoint(*voice, beat.index())
                              : beatBehindJoint(*voice, beat.index() + 1);
    if (!other)
        return;
    for (const auto &partner : other->notes()) {
        if (!sameLocation(note, *partner) || note.midi() != partner->midi())
            continue;
        if (isTied)
            partner->setTieOrigin(note.isTied());
        else if (note.isTieOrigin())
            partner->setTied(true);
        else
            strikeAnew(*partner);
    }
}

void keepAround(const Voice &voice, unsigned first, unsigned end, KeptBeats &kept, unsigned track)
{
    if (end < voice.beatCount())
        keepBeat(voice, end, track, kept);
    else if (const Voice *const next = voiceBeside(voice, 1))
        keepBeat(*next, 0, track, kept);
    if (first > 0)
        keepBeat(voice, first - 1, track, kept);
    else if (const Voice *const before = voiceBeside(voice, -1))
        keepBeat(*before, before->beatCount() - 1, track, kept);
    for (const LeadingNote &leading : leadingLinks(voice, first))
        keepBeat(*leading.voice, leading.beat, track, kept);
}

} // namespace zarn
