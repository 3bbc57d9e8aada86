// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnKeptLinks.h>

#include <ZarnCore/commands/ZarnTouchedBars.h>
#include <ZarnCore/model/ZarnTrack.h>
#include <ZarnCore/model/notes/Links.h>
#include <ZarnCore/model/notes/SlurPartners.h>
#include <ZarnCore/model/places/ZarnBeatSpan.h>

#include <algorithm>

namespace zarn {

KeptLinks::KeptLinks(const Voice &voice, unsigned first, unsigned end) : _first(first)
{
    keepAround(voice, first, end, _beats);
    keepSlurs(voice, end);
}

void KeptLinks::keepSlurs(const Voice &voice, unsigned end)
{
    for (unsigned i = _first; i < end; ++i) {
        const Beat &beat = *voice.beats()[i];
        if (!beat.hasDetails() || beat.slurEnds().empty())
            continue;
        const auto bar = voice.parentBar();
        const auto staff = bar ? bar->parentStaff() : nullptr;
        const auto track = staff ? staff->track() : nullptr;
        if (!track)
            continue;
        const KeptBeats::Place place = {0, staff->index(), bar->index(), voice.index(), i};
        for (const SlurPartner &partner : slurPartners(*track, place)) {
            const auto &at = partner.place;
            const bool isInside = at.staff == place.staff && at.bar == place.bar
                && at.voice == place.voice && at.beat >= _first && at.beat < end;
            if (isInside)
                continue;
            _beats.keep(at, *partner.beat);
            _otherEnds.push_back({partner.beat, partner.end});
        }
    }
}

void KeptLinks::cutSlurs(const Voice &voice, unsigned end) const
{
    for (const OtherEnd &other : _otherEnds) {
        const SlurEnd own = {other.end.number, !other.end.isBegin};
        bool isThere = false;
        for (unsigned i = _first; i < end && !isThere; ++i) {
            const SlurEnds &ends = voice.beats()[i]->slurEnds();
            isThere = std::find(ends.begin(), ends.end(), own) != ends.end();
        }
        if (!isThere)
            takeOff({{}, other.beat, other.end});
    }
}

void KeptLinks::settle(const BeatSpan &place, TouchedBars &touched)
{
    _beats.settle();
    _otherEnds.clear();
    for (const KeptBeats::Place &changed : _beats.changed())
        touched.add(place.track, changed.staff, changed.bar, changed.bar);
}

void KeptLinks::putBack(const Voice &voice) const
{
    const auto bar = voice.parentBar();
    const auto staff = bar->parentStaff();
    const auto track = staff->track();
    _beats.putBack([&](const KeptBeats::Place &place) {
        // Slurs lead to other staves too.
        const Staff &other = track ? *track->staves()[place.staff] : *staff;
        return other.bars()[place.bar]->voices()[place.voice]->beats()[place.beat].get();
    });
}

} // namespace zarn
