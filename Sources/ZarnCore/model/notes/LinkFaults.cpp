// SPDX-License-Identifier: MIT
#include <ZarnCore/model/notes/LinkFaults.h>

#include <ZarnCore/model/ZarnStaff.h>
#include <ZarnCore/model/notes/StringLinks.h>
#include <ZarnCore/model/notes/Ties.h>

namespace zarn {

namespace {

using Kind = BrokenLink::Kind;

bool mayBeBroken(const Beat &beat) noexcept
{
    return beat.isSlurredToNext() || beat.isSlurredToPrevious() || beat.beginsSlur()
        || beat.beginsHairpin() || beat.tremoloToNext() != 0;
}

template <class Visit>
void visitBeatFaults(const Voice &voice, const Beat &beat, Visit visit)
{
    const auto previous = beatInFrontOfJoint(voice, beat.index());
    const auto next = beatBehindJoint(voice, beat.index() + 1);
    if (leadsSlurToNothing(beat, next))
        visit(Kind::SlurToNothing);
    if (takesSlurFromNothing(beat, previous))
        visit(Kind::SlurFromNothing);
    if (beginsNoSlur(beat))
        visit(Kind::SlurBegin);
    if (beginsNoHairpin(beat))
        visit(Kind::HairpinBegin);
    if (lacksTremoloPartner(beat, next))
        visit(Kind::Tremolo);
}

void visitVoice(const Voice &voice, unsigned bar, std::vector<BrokenLink> &broken)
{
    for (unsigned i = 0; i < voice.beatCount(); ++i) {
        const Beat &beat = *voice.beats()[i];
        if (mayBeBroken(beat))
            visitBeatFaults(voice, beat, [&](Kind kind) {
                broken.push_back({bar, voice.index(), i, nullptr, kind});
            });
        for (const auto &note : beat.notes())
            // Whether the next note is of another pitch is up to those who change pitches.
            for (const StringLink link : {StringLink::Hopo, StringLink::Slide})
                if (hasLink(*note, link) && !canLeadToNext(voice, i, *note, StringLink::Slide))
                    broken.push_back({bar, voice.index(), i, note.get(),
                                      link == StringLink::Hopo ? Kind::Hopo : Kind::Slide});
    }
}

void takeOff(Beat &beat, const BrokenLink &link)
{
    switch (link.kind) {
    case Kind::SlurToNothing:
        beat.setSlurredToNext(false);
        beat.setSlurBegins(false);
        break;
    case Kind::SlurFromNothing:
        beat.setSlurredToPrevious(false);
        break;
    case Kind::SlurBegin:
        beat.setSlurBegins(false);
        break;
    case Kind::HairpinBegin:
        beat.setHairpinBegins(false);
        break;
    case Kind::Tremolo:
        beat.setTremoloToNext(0);
        break;
    case Kind::Hopo:
        takeOff(*link.note, StringLink::Hopo);
        break;
    case Kind::Slide:
        takeOff(*link.note, StringLink::Slide);
        break;
    }
}

} // namespace

bool leadsSlurToNothing(const Beat &beat, const Beat *next) noexcept
{
    return beat.isSlurredToNext() && !(next && next->isSlurredToPrevious());
}

bool takesSlurFromNothing(const Beat &beat, const Beat *previous) noexcept
{
    return beat.isSlurredToPrevious() && !(previous && previous->isSlurredToNext());
}

bool lacksTremoloPartner(const Beat &beat, const Beat *next) noexcept
{
    if (beat.tremoloToNext() == 0)
        return false;
    return !next || !beat.hasNotes() || !next->hasNotes();
}

bool beginsNoSlur(const Beat &beat) noexcept
{
    return beat.beginsSlur() && !beat.isSlurredToNext();
}

bool beginsNoHairpin(const Beat &beat) noexcept
{
    return beat.beginsHairpin() && beat.hairpin() == Hairpin::NoHairpin;
}

const char *textOf(BrokenLink::Kind kind) noexcept
{
    switch (kind) {
    case Kind::SlurToNothing:
        return "a slur that leads to no beat";
    case Kind::SlurFromNothing:
        return "a slur that comes from no beat";
    case Kind::SlurBegin:
        return "the begin of a slur where there is none";
    case Kind::HairpinBegin:
        return "the begin of a hairpin where there is none";
    case Kind::Tremolo:
        return "a tremolo between two beats that lacks the second";
    case Kind::Hopo:
        return "a hammer-on or pull-off that leads to no note";
    case Kind::Slide:
        return "a slide that leads to no note";
    }
    return "";
}

std::vector<BrokenLink> brokenLinks(const Staff &staff)
{
    std::vector<BrokenLink> broken;
    for (unsigned bar = 0; bar < staff.barCount(); ++bar)
        for (const auto &voice : staff.bars()[bar]->voices())
            if (voice)
                visitVoice(*voice, bar, broken);
    return broken;
}

std::vector<BrokenLink> takeBrokenLinksOff(const Staff &staff)
{
    auto broken = brokenLinks(staff);
    for (const BrokenLink &link : broken)
        takeOff(*staff.bars()[link.bar]->voices()[link.voice]->beats()[link.beat], link);
    return broken;
}

} // namespace zarn
