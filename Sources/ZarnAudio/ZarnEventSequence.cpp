// SPDX-License-Identifier: MIT
#include <ZarnAudio/ZarnEventSequence.h>

#include <ZarnAudio/ZarnSynthesizer.h>

#include <algorithm>

namespace Halvec::audio {

EventSequence::EventSequence(std::vector<TimedEvent> events, const Synthesizer &synthesizer)
    : _ofFonts(std::move(events))
{
    for (TimedEvent &event : _ofFonts)
        event.frame = std::max<std::int64_t>(event.frame, 0);
    std::stable_sort(_ofFonts.begin(), _ofFonts.end(), [](const auto &a, const auto &b) {
        return a.frame != b.frame ? a.frame < b.frame : a.kind < b.kind;
    });
    const auto banks =
        std::stable_partition(_ofFonts.begin(), _ofFonts.end(), [&](const TimedEvent &event) {
            return !synthesizer.hasBank(event.channel);
        });
    _ofBanks.assign(banks, _ofFonts.end());
    _ofFonts.erase(banks, _ofFonts.end());
}

} // namespace Halvec::audio
