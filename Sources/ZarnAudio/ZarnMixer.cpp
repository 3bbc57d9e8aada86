// SPDX-License-Identifier: MIT
#include <ZarnAudio/ZarnMixer.h>

#include <ZarnAudio/ZarnSynthesizer.h>

#include <algorithm>
#include <cmath>

namespace Halvec::audio {

bool Mixer::hasSolo() const noexcept
{
    return std::any_of(_strips.begin(), _strips.end(),
                       [](const Strip &strip) { return strip.isSolo; });
}

bool Mixer::isHeard(std::size_t strip) const noexcept
{
    return strip < _strips.size() && !_strips[strip].isMuted
        && (_strips[strip].isSolo || !hasSolo());
}

template <class Take>
void Mixer::forEachEvent(std::int64_t frame, Take take) const
{
    for (std::size_t i = 0; i < _strips.size(); ++i) {
        const Strip &strip = _strips[i];
        const double volume = isHeard(i) ? strip.volumePan.decibels + _masterVolume : -HUGE_VAL;
        for (const auto channel : strip.channels) {
            take(TimedEvent{frame, TimedEvent::Kind::Volume, channel, 0, 0, volume});
            take(TimedEvent{frame, TimedEvent::Kind::Pan, channel, 0, 0, strip.volumePan.pan});
        }
    }
}

std::vector<TimedEvent> Mixer::events(std::int64_t frame) const
{
    std::vector<TimedEvent> all;
    forEachEvent(frame, [&all](const TimedEvent &event) { all.push_back(event); });
    return all;
}

void Mixer::applyTo(Synthesizer &synthesizer) const noexcept
{
    forEachEvent(0, [&synthesizer](const TimedEvent &event) { synthesizer.apply(event); });
}

} // namespace Halvec::audio
