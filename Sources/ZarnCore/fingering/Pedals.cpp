// SPDX-License-Identifier: MIT
#include <ZarnCore/fingering/Pedals.h>

#include <algorithm>

namespace zarn::fingering {

namespace {

/// A pedal comes back after one or two other events.
constexpr std::size_t nearest = 2;
constexpr std::size_t farthest = 3;

/// Figures have so many events and are played so often. What moves at least once in so many of
/// them is a tune; what does so less often is part of the broken chord.
constexpr std::size_t shortestFigure = 3;
constexpr std::size_t longestFigure = 8;
constexpr std::size_t fewestFigures = 3;
constexpr std::size_t mostOfOneTune = 4;

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

/// Whether a note is on some open string.
bool isOpen(const StaffFrets &fretboard, int pitch)
{
    for (int string = 0; string < fretboard.stringCount(); ++string)
        if (fretboard.pitch(string, 0) == pitch)
            return true;
    return false;
}

bool hasHigherString(const StaffFrets &fretboard, int pitch)
{
    for (int string = 0; string < fretboard.stringCount(); ++string)
        if (fretboard.pitch(string, 0) > pitch)
            return true;
    return false;
}

/// The events of a note that returns in figures of the same length.
struct Returns {
    int pitch;
    std::size_t first;
    std::size_t last;
    std::size_t length;
};

/// Whether most of such figures stays as it is while a tune moves on: one above the note, if a
/// string is left for it, or one below.
bool isUnderTune(const Passage &passage, const Returns &returns)
{
    const bool leavesString = hasHigherString(passage.fretboard, returns.pitch);
    const std::size_t figures = (returns.last - returns.first) / returns.length;
    std::size_t staying = 1;
    std::size_t mostMoves = 0;
    for (std::size_t offset = 1; offset < returns.length; ++offset) {
        std::size_t moves = 0;
        std::size_t movesBeside = 0;
        for (std::size_t next = returns.first + offset + returns.length; next < returns.last;
             next += returns.length) {
            const int top = topOf(passage, next - returns.length);
            const int nextTop = topOf(passage, next);
            if (top == nextTop)
                continue;
            ++moves;
            if (leavesString || std::max(top, nextTop) < returns.pitch)
                ++movesBeside;
        }
        staying += moves * mostOfOneTune < figures ? 1 : 0;
        mostMoves = std::max(mostMoves, movesBeside);
    }
    return staying * 2 >= returns.length && mostMoves * mostOfOneTune >= figures;
}

} // namespace

Pedals::Pedals(const Passage &passage) : _kinds(passage.notes.size(), Kind::None)
{
    for (std::size_t at = 0; at < passage.events.size(); ++at) {
        const PassageEvent &event = passage.events[at];
        for (std::uint32_t i = event.firstNote; i < event.firstNote + event.noteCount; ++i) {
            addBetweenMoves(passage, at, i);
            if (isOpen(passage.fretboard, passage.notes[i].pitch))
                addOfFigures(passage, at, passage.notes[i].pitch);
        }
    }
}

/// A note that returns soon, with what stands around it.
void Pedals::addBetweenMoves(const Passage &passage, std::size_t event, std::uint32_t note)
{
    const int pitch = passage.notes[note].pitch;
    for (std::size_t apart = nearest; apart <= farthest && event + apart < passage.events.size();
         ++apart) {
        const PassageNote *const again = noteAt(passage, event + apart, pitch);
        if (again == nullptr)
            continue;
        // What stands around it moves: else it is a figure or a chord that returns.
        const bool isAlone =
            passage.events[event].noteCount == 1 && passage.events[event + apart].noteCount == 1;
        if ((isAlone || topOf(passage, event) != topOf(passage, event + apart))
            && topOf(passage, event - 1) != topOf(passage, event + apart - 1)
            && topOf(passage, event + 1) != topOf(passage, event + apart + 1)) {
            for (const std::size_t pedal :
                 {std::size_t{note}, static_cast<std::size_t>(again - passage.notes.data())})
                if (_kinds[pedal] == Kind::None)
                    _kinds[pedal] = Kind::BetweenMoves;
        }
        break;
    }
}

/// All notes of figures that begin to return with this one.
void Pedals::addOfFigures(const Passage &passage, std::size_t event, int pitch)
{
    for (std::size_t length = shortestFigure; length <= longestFigure; ++length) {
        if (event >= length && noteAt(passage, event - length, pitch) != nullptr)
            continue;
        Returns returns{pitch, event, event, length};
        while (returns.last + length < passage.events.size()
               && noteAt(passage, returns.last + length, pitch) != nullptr)
            returns.last += length;
        if (returns.last < event + fewestFigures * length || !isUnderTune(passage, returns))
            continue;
        for (std::size_t at = event; at <= returns.last; at += length)
            _kinds[static_cast<std::size_t>(noteAt(passage, at, pitch) - passage.notes.data())] =
                Kind::UnderTune;
    }
}

} // namespace zarn::fingering
