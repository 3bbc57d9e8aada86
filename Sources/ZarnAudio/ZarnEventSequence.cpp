// SPDX-License-Identifier: MIT
#include <ZarnAudio/ZarnEventSequence.h>

#include <ZarnAudio/ZarnSynthesizer.h>

#include <algorithm>
#include <array>
#include <limits>

namespace Halvec::audio {

namespace {

void sortByTime(std::vector<TimedEvent> &events)
{
    std::stable_sort(events.begin(), events.end(), [](const auto &a, const auto &b) {
        return a.frame != b.frame ? a.frame < b.frame : a.kind < b.kind;
    });
}

/// What banks do is done one to two blocks early, for the sake of their notes. Bends while notes
/// sound come later by as much, but not later than the next note.
void delayBends(std::vector<TimedEvent> &events)
{
    constexpr std::int64_t early = Synthesizer::blockFrames + Synthesizer::blockFrames / 2;
    std::array<std::int64_t, 256> nextNote; // by channel
    nextNote.fill(std::numeric_limits<std::int64_t>::max());
    for (auto event = events.rbegin(); event != events.rend(); ++event) {
        auto &next = nextNote[event->channel];
        if (event->kind == TimedEvent::Kind::NoteOn)
            next = event->frame;
        else if (event->kind == TimedEvent::Kind::Bend && event->frame != next)
            event->frame = std::min(event->frame + early, next - 1);
    }
    sortByTime(events);
}

} // namespace

EventSequence::EventSequence(std::vector<TimedEvent> events, const Synthesizer &synthesizer)
    : _ofFonts(std::move(events))
{
    for (TimedEvent &event : _ofFonts)
        event.frame = std::max<std::int64_t>(event.frame, 0);
    sortByTime(_ofFonts);
    const auto banks =
        std::stable_partition(_ofFonts.begin(), _ofFonts.end(), [&](const TimedEvent &event) {
            return !synthesizer.hasBank(event.channel);
        });
    _ofBanks.assign(banks, _ofFonts.end());
    _ofFonts.erase(banks, _ofFonts.end());
    delayBends(_ofBanks);
}

} // namespace Halvec::audio
