// SPDX-License-Identifier: MIT
#include <ZarnCore/fingering/Pedals.h>

#include <algorithm>

namespace zarn::fingering {

namespace {

/// A pedal comes back after one or two other events.
constexpr std::size_t nearest = 2;
constexpr std::size_t farthest = 3;

const PassageNote *noteAt(const Passage &passage, std::size_t event, int pitch)
{
    const PassageEvent &at = passage.events[event];
    const auto first = passage.notes.begin() + at.firstNote;
    const auto found = std::find_if(first, first + at.noteCount, [pitch](const PassageNote &note) {
        return note.pitch == pitch;
    });
    return found == first + at.noteCount ? nullptr : &*found;
}

int topOf(const Passage &passage, std::size_t event)
{
    return event < passage.events.size() && passage.events[event].noteCount > 0
        ? passage.notes[passage.events[event].firstNote].pitch
        : -1;
}

} // namespace

Pedals::Pedals(const Passage &passage) : _isPedal(passage.notes.size(), 0)
{
    const std::size_t count = passage.events.size();
    for (std::size_t at = 0; at < count; ++at) {
        const PassageEvent &event = passage.events[at];
        for (std::size_t i = event.firstNote; i < event.firstNote + event.noteCount; ++i) {
            const int pitch = passage.notes[i].pitch;
            for (std::size_t apart = nearest; apart <= farthest && at + apart < count; ++apart) {
                const PassageNote *const again = noteAt(passage, at + apart, pitch);
                if (again == nullptr)
                    continue;
                // What stands around it moves: else it is a figure or a chord that returns.
                const bool isAlone =
                    event.noteCount == 1 && passage.events[at + apart].noteCount == 1;
                if ((isAlone || topOf(passage, at) != topOf(passage, at + apart))
                    && topOf(passage, at - 1) != topOf(passage, at + apart - 1)
                    && topOf(passage, at + 1) != topOf(passage, at + apart + 1)) {
                    _isPedal[i] = 1;
                    _isPedal[static_cast<std::size_t>(again - passage.notes.data())] = 1;
                }
                break;
            }
        }
    }
}

} // namespace zarn::fingering
