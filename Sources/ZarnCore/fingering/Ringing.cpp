// SPDX-License-Identifier: MIT
#include <ZarnCore/fingering/Ringing.h>

#include <algorithm>
#include <cstdlib>

namespace zarn::fingering {

namespace {

/// Two notes as near as this do not ring together.
constexpr int clash = 2;

/// Events that are looked at for one that clashes.
constexpr std::size_t mostEvents = 16;

bool clashes(const Passage &passage, const PassageEvent &event, int pitch)
{
    const auto first = passage.notes.begin() + event.firstNote;
    return std::any_of(first, first + event.noteCount, [pitch](const PassageNote &other) {
        return std::abs(other.pitch - pitch) <= clash;
    });
}

bool beginsBrokenChord(const Passage &passage, std::size_t at, int pitch)
{
    if (at + 2 >= passage.events.size() || passage.events[at + 1].noteCount == 0)
        return false;
    const PassageEvent &next = passage.events[at + 1];
    const PassageEvent &after = passage.events[at + 2];
    return !clashes(passage, next, pitch) && !clashes(passage, after, pitch)
        && !clashes(passage, after, passage.notes[next.firstNote].pitch);
}

} // namespace

Ringing::Ringing(const Passage &passage, double longest) : _passage(passage)
{
    _lasts.reserve(passage.notes.size());
    _ends.reserve(passage.notes.size());
    _isOfBrokenChord.reserve(passage.notes.size());
    for (std::size_t at = 0; at < passage.events.size(); ++at) {
        const PassageEvent &event = passage.events[at];
        const std::size_t last = std::min(passage.events.size(), at + mostEvents);
        for (std::size_t i = event.firstNote; i < event.firstNote + event.noteCount; ++i) {
            const PassageNote &note = passage.notes[i];
            double end = std::max(event.onset + longest, note.ringsUntil);
            for (std::size_t next = at + 1; next < last && passage.events[next].onset < end; ++next)
                if (clashes(passage, passage.events[next], note.pitch))
                    end = passage.events[next].onset;
            _lasts.push_back(std::max(note.end, std::min(end, note.ringsUntil)));
            _ends.push_back(std::max(end, note.end));
            _isOfBrokenChord.push_back(beginsBrokenChord(passage, at, note.pitch) ? 1 : 0);
        }
    }
}

} // namespace zarn::fingering
