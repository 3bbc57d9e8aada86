// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnKeptTies.h>

#include <ZarnCore/commands/ZarnTouchedBars.h>
#include <ZarnCore/model/ZarnVoice.h>
#include <ZarnCore/model/notes/Ties.h>
#include <ZarnCore/model/places/ZarnBeatSpan.h>

#include <algorithm>

namespace zarn {

KeptTies::KeptTies(const Voice &voice, unsigned first, unsigned end)
    : _first(first), _end(end), _before(read(beatInFrontOfJoint(voice, first))),
      _behind(read(beatBehindJoint(voice, end)))
{
}

void KeptTies::putBack(const Voice &voice) const
{
    write(beatInFrontOfJoint(voice, _first), _before);
    write(beatBehindJoint(voice, _end), _behind);
}

void KeptTies::addChanged(const Voice &voice, unsigned end, const BeatSpan &place,
                          TouchedBars &touched) const
{
    const auto add = [&](unsigned bar) { touched.add(place.track, place.staff, bar, bar); };
    if (_first == 0 && areChanged(beatInFrontOfJoint(voice, 0), _before))
        add(place.bar - 1);
    if (end == voice.beatCount() && areChanged(beatBehindJoint(voice, end), _behind))
        add(place.bar + 1);
}

bool KeptTies::areChanged(const std::shared_ptr<Beat> &beat, const std::vector<NoteTies> &ties)
{
    for (std::size_t i = 0; i < ties.size(); ++i) {
        const Note &note = *beat->notes()[i];
        if (note.isTied() != ties[i].isTied || note.isTieOrigin() != ties[i].isTieOrigin)
            return true;
    }
    return false;
}

std::vector<KeptTies::NoteTies> KeptTies::read(const std::shared_ptr<Beat> &beat)
{
    std::vector<NoteTies> ties;
    if (beat != nullptr) {
        for (const auto &note : beat->notes())
            ties.push_back({note->isTied(), note->isTieOrigin()});
    }
    return ties;
}

void KeptTies::write(const std::shared_ptr<Beat> &beat, const std::vector<NoteTies> &ties)
{
    for (std::size_t i = 0; i < ties.size(); ++i) {
        beat->notes()[i]->setTied(ties[i].isTied);
        beat->notes()[i]->setTieOrigin(ties[i].isTieOrigin);
    }
}

} // namespace zarn
