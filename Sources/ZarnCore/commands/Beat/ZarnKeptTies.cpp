// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnKeptTies.h>

#include <ZarnCore/model/ZarnVoice.h>
#include <ZarnCore/model/notes/Ties.h>

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
