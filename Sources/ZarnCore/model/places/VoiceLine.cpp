// SPDX-License-Identifier: MIT
#include <ZarnCore/model/places/VoiceLine.h>

#include <ZarnCore/model/places/NodesOfIndex.h>

#include <algorithm>

namespace zarn {

VoiceLine::VoiceLine(const ScoreModelIndex &place) noexcept
    : _bar(place.barIndex()), _beat(place.beatIndex()), _voice(place.voiceIndex())
{
    if (findBar(place) != nullptr)
        _bars = &(*findStaff(place))->bars();
}

const Voice *VoiceLine::voice() const noexcept
{
    const auto *slot = childAt(bar().voices(), _voice);
    return slot ? slot->get() : nullptr;
}

std::int64_t VoiceLine::beatCount() const noexcept
{
    const Voice *const here = voice();
    return here ? here->beatCount() : 0;
}

const std::shared_ptr<Beat> *VoiceLine::beat() const noexcept
{
    const Voice *const here = _bars ? voice() : nullptr;
    return here ? childAt(here->beats(), _beat) : nullptr;
}

bool VoiceLine::leave() noexcept
{
    _bars = nullptr;
    return false;
}

bool VoiceLine::step(Direction direction, Gaps gaps, unsigned count) noexcept
{
    if (_bars == nullptr || count == 0)
        return beat() != nullptr;
    const bool forwards = direction == Direction::Next;
    const std::int64_t here = beatCount();
    _beat = forwards ? std::clamp<std::int64_t>(_beat, -1, here - 1) + count
                     : std::clamp<std::int64_t>(_beat, 0, here) - count;
    while (forwards ? _beat >= beatCount() : _beat < 0) {
        if (forwards)
            _beat -= beatCount();
        _bar += forwards ? 1 : -1;
        if (childAt(*_bars, _bar) == nullptr || (gaps == Gaps::Stop && beatCount() == 0))
            return leave();
        if (!forwards)
            _beat += beatCount();
    }
    return true;
}

} // namespace zarn
