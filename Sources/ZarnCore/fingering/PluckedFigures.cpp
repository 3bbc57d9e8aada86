// SPDX-License-Identifier: MIT
#include <ZarnCore/fingering/PluckedFigures.h>

#include <cmath>
#include <cstdlib>

namespace zarn::fingering {

namespace {

/// Two notes in turn are no figure: what moves above or below a note that returns goes from string
/// to string.
constexpr std::size_t alternation = 2;

/// A figure has come so often when it is taken for one.
constexpr std::size_t fewestTimes = 3;

/// One note in so many, at least, is the one of the figure in front: chords return, a sequence that
/// climbs does not.
constexpr std::size_t mostForOneThatStays = 3;

/// Notes nearer to each other than this follow in a scale, not in a broken chord; what is farther
/// from the note at the same place of the figure in front than an octave, another finger plucks.
constexpr int smallestSkip = 3;
constexpr int octave = 12;

const PassageNote &highestOf(const Passage &passage, std::size_t event)
{
    return passage.notes[passage.events[event].firstNote];
}

int skipTo(const Passage &passage, std::size_t event)
{
    return highestOf(passage, event).pitch - highestOf(passage, event - 1).pitch;
}

double timeTo(const Passage &passage, std::size_t event)
{
    return passage.events[event].onset - passage.events[event - 1].onset;
}

bool isNearFigureBefore(const Passage &passage, std::size_t event, std::size_t length)
{
    const int before = highestOf(passage, event - length).pitch;
    return std::abs(highestOf(passage, event).pitch - before) <= octave;
}

/// Whether the way to an event goes up or down, and takes as long, as it did a figure before.
bool goesAsBefore(const Passage &passage, std::size_t event, std::size_t length)
{
    constexpr double sameTime = 1e-3;
    for (const std::size_t at : {event - 1, event, event - length - 1, event - length})
        if (passage.events[at].noteCount == 0)
            return false;
    const int skip = skipTo(passage, event);
    const int skipBefore = skipTo(passage, event - length);
    return std::abs(skip) >= smallestSkip && std::abs(skipBefore) >= smallestSkip
        && (skip > 0) == (skipBefore > 0)
        && std::abs(timeTo(passage, event) - timeTo(passage, event - length)) < sameTime
        && isNearFigureBefore(passage, event, length)
        && isNearFigureBefore(passage, event - 1, length);
}

} // namespace

PluckedFigures::PluckedFigures(const Passage &passage)
    : _before(passage.notes.size()), _isOfFigure(passage.events.size(), 0)
{
    if (passage.hand.isBowed)
        return;
    for (std::size_t length = alternation; length <= LongestFigure; ++length)
        addFigures(passage, length);
}

/// Finds the runs of events that go as they did so many events before. Shorter figures come first:
/// what is made of them is a longer one only by its look.
void PluckedFigures::addFigures(const Passage &passage, std::size_t length)
{
    const std::size_t count = passage.events.size();
    std::size_t first = length + 1;
    for (std::size_t at = first; at <= count; ++at) {
        if (at < count && _isOfFigure[at] == 0 && goesAsBefore(passage, at, length))
            continue;
        if (at >= first + (fewestTimes - 1) * length - 1)
            addRun(passage, first - 1, at, length);
        first = at + 1;
    }
}

void PluckedFigures::addRun(const Passage &passage, std::size_t first, std::size_t end,
                            std::size_t length)
{
    std::size_t staying = 0;
    for (std::size_t at = first; at < end; ++at)
        staying += highestOf(passage, at).pitch == highestOf(passage, at - length).pitch ? 1 : 0;
    if (staying * mostForOneThatStays < end - first)
        return;
    for (std::size_t at = first; at < end; ++at) {
        _isOfFigure[at] = 1;
        if (length > alternation)
            _before[passage.events[at].firstNote] = {passage.events[at - length].firstNote,
                                                     static_cast<std::uint32_t>(length)};
    }
}

} // namespace zarn::fingering
