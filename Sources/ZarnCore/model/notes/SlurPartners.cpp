// SPDX-License-Identifier: MIT
#include <ZarnCore/model/notes/SlurPartners.h>

#include <ZarnCore/model/ZarnTrack.h>

#include <algorithm>
#include <optional>

namespace zarn {

namespace {

/// Looks along a track, bar by bar, for what a slur of a number leads to or comes from.
class PartnerSearch {
public:
    PartnerSearch(const Track &track, const KeptBeats::Place &from, const SlurEnd &end)
        : _track(track), _from(from), _end(end)
    {
    }

    std::optional<SlurPartner> run()
    {
        const unsigned reach = _from.bar + 1;
        for (unsigned step = 0; step < (_end.isBegin ? LongestSlur : std::min(reach, LongestSlur));
             ++step)
            if (visitBar(_end.isBegin ? _from.bar + step : _from.bar - step))
                return _found;
        return std::nullopt;
    }

private:
    bool visitBar(unsigned bar)
    {
        for (const auto &staff : _track.staves()) {
            if (bar >= staff->barCount())
                continue;
            for (const auto &voice : staff->bars()[bar]->voices())
                if (voice && visitVoice(*voice, {0, staff->index(), bar, voice->index(), 0}))
                    return true;
        }
        return false;
    }

    /// Of the voice of the slur, only what is on its side of the end.
    bool visitVoice(const Voice &voice, KeptBeats::Place place)
    {
        const bool isOwn =
            place.bar == _from.bar && place.staff == _from.staff && place.voice == _from.voice;
        const unsigned count = voice.beatCount();
        for (unsigned i = 0; i < count; ++i) {
            place.beat = _end.isBegin ? i : count - 1 - i;
            const bool isOnSide = _end.isBegin ? place.beat > _from.beat : place.beat < _from.beat;
            if ((!isOwn || isOnSide) && visitBeat(*voice.beats()[place.beat], place))
                return true;
        }
        return false;
    }

    bool visitBeat(Beat &beat, const KeptBeats::Place &place)
    {
        if (!beat.hasDetails())
            return false;
        const SlurEnd other = {_end.number, !_end.isBegin};
        const SlurEnds &ends = beat.slurEnds();
        if (std::find(ends.begin(), ends.end(), other) == ends.end())
            return false;
        _found = {place, &beat, other};
        return true;
    }

    const Track &_track;
    const KeptBeats::Place &_from;
    SlurEnd _end;
    SlurPartner _found;
};

} // namespace

std::vector<SlurPartner> slurPartners(const Track &track, const KeptBeats::Place &place)
{
    std::vector<SlurPartner> partners;
    const auto &bars = track.staves()[place.staff]->bars();
    const Beat &beat = *bars[place.bar]->voices()[place.voice]->beats()[place.beat];
    if (!beat.hasDetails())
        return partners;
    for (const SlurEnd &end : beat.slurEnds())
        if (const auto found = PartnerSearch(track, place, end).run())
            partners.push_back(*found);
    return partners;
}

void takeOff(const SlurPartner &partner)
{
    SlurEnds ends = partner.beat->slurEnds();
    const auto end = std::find(ends.begin(), ends.end(), partner.end);
    if (end == ends.end())
        return;
    ends.erase(end);
    partner.beat->setSlurEnds(ends);
}

} // namespace zarn
