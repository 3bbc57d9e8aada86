// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnKeptLinks.h>

#include <ZarnCore/commands/ZarnTouchedBars.h>
#include <ZarnCore/model/ZarnTrack.h>
#include <ZarnCore/model/notes/Links.h>
#include <ZarnCore/model/places/ZarnBeatSpan.h>

namespace zarn {

KeptLinks::KeptLinks(const Voice &voice, unsigned first, unsigned end)
{
    keepAround(voice, first, end, _beats);
}

void KeptLinks::settle(const BeatSpan &place, TouchedBars &touched)
{
    _beats.settle();
    for (const KeptBeats::Place &changed : _beats.changed())
        touched.add(place.track, changed.staff, changed.bar, changed.bar);
}

void KeptLinks::putBack(const Voice &voice) const
{
    const auto bar = voice.parentBar();
    const auto staff = bar->parentStaff();
    _beats.putBack([&](const KeptBeats::Place &place) {
        return staff->bars()[place.bar]->voices()[place.voice]->beats()[place.beat].get();
    });
}

} // namespace zarn
