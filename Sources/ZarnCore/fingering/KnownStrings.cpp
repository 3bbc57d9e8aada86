// SPDX-License-Identifier: MIT
#include <ZarnCore/fingering/KnownStrings.h>

#include <algorithm>
#include <array>
#include <tuple>
#include <unordered_map>

namespace zarn::fingering {

namespace {

/// Quarters within which a pitch is thought to stay where it is.
constexpr double farthest = 16;

constexpr std::size_t keyCount = 128;

bool isGiven(const PassageNote &note)
{
    return note.string != PassageNote::Free;
}

std::uint16_t bitOf(const PassageNote &note)
{
    const bool isString = note.string >= 0 && note.string < StaffFrets::MostStrings;
    return static_cast<std::uint16_t>(isString ? 1U << note.string : 0U);
}

/// The highest pitch of an event; 0 in front of the first and behind the last.
std::uint64_t topOf(const Passage &passage, std::size_t event)
{
    if (event >= passage.events.size() || passage.events[event].noteCount == 0)
        return 0;
    return static_cast<std::uint64_t>(passage.notes[passage.events[event].firstNote].pitch);
}

/// A note with what is struck in front of it, with it and behind it.
std::uint64_t figureOf(const Passage &passage, std::size_t event, const PassageNote &note)
{
    const std::uint64_t pitches[] = {topOf(passage, event - 1), topOf(passage, event),
                                     topOf(passage, event + 1),
                                     static_cast<std::uint64_t>(note.pitch)};
    std::uint64_t figure = 0;
    for (const std::uint64_t pitch : pitches)
        figure = figure << 8 | (pitch & 0xFF);
    return figure;
}

/// The fret of a note that is given out of first position, though its pitch lies on a lower fret
/// too; 0 for others.
int fretUpTheNeck(const Passage &passage, const PassageNote &note)
{
    constexpr int lastFretOfFirstPosition = 4;
    const StaffFrets &fretboard = passage.fretboard;
    if (bitOf(note) == 0 || note.string >= fretboard.stringCount())
        return 0;
    const int fret = fretboard.fret(note.string, note.pitch);
    if (fret <= lastFretOfFirstPosition)
        return 0;
    for (int string = 0; string < fretboard.stringCount(); ++string) {
        const int other = fretboard.fret(string, note.pitch);
        if (other >= 0 && other < fret && !fretboard.isDrone(string))
            return fret;
    }
    return 0;
}

} // namespace

KnownStrings::KnownStrings(const Passage &passage)
{
    if (std::none_of(passage.notes.begin(), passage.notes.end(), isGiven)
        || std::all_of(passage.notes.begin(), passage.notes.end(), isGiven))
        return;
    _known.resize(passage.notes.size());
    findFigures(passage);
    findPitches(passage);
    findPositions(passage);
}

void KnownStrings::findFigures(const Passage &passage)
{
    std::unordered_map<std::uint64_t, std::uint16_t> stringsOf;
    for (const bool isAsking : {false, true}) {
        for (std::size_t at = 0; at < passage.events.size(); ++at) {
            const PassageEvent &event = passage.events[at];
            for (std::size_t i = event.firstNote; i < event.firstNote + event.noteCount; ++i) {
                const PassageNote &note = passage.notes[i];
                if (isGiven(note) == isAsking)
                    continue;
                const std::uint64_t figure = figureOf(passage, at, note);
                if (!isAsking) {
                    stringsOf[figure] |= bitOf(note);
                    continue;
                }
                const auto found = stringsOf.find(figure);
                if (found != stringsOf.end())
                    _known[i].ofFigure = found->second;
            }
        }
    }
}

void KnownStrings::findPitches(const Passage &passage)
{
    struct Last {
        double onset = 0;
        std::uint16_t string = 0;
    };
    const auto look = [&](std::size_t at, std::array<Last, keyCount> &last) {
        const PassageEvent &event = passage.events[at];
        for (std::size_t i = event.firstNote; i < event.firstNote + event.noteCount; ++i) {
            const PassageNote &note = passage.notes[i];
            Last &known = last[static_cast<std::size_t>(note.pitch) % keyCount];
            if (isGiven(note))
                known = {event.onset, bitOf(note)};
            else if (std::abs(event.onset - known.onset) <= farthest)
                _known[i].ofPitch |= known.string;
        }
    };
    std::array<Last, keyCount> before{};
    for (std::size_t at = 0; at < passage.events.size(); ++at)
        look(at, before);
    std::array<Last, keyCount> behind{};
    for (std::size_t at = passage.events.size(); at-- > 0;)
        look(at, behind);
}

void KnownStrings::findPositions(const Passage &passage)
{
    struct Last {
        double onset = 0;
        int fret = 0;
    };
    const auto look = [&](std::size_t at, Last &last) {
        const PassageEvent &event = passage.events[at];
        for (std::size_t i = event.firstNote; i < event.firstNote + event.noteCount; ++i) {
            const PassageNote &note = passage.notes[i];
            auto &lowest = _known[i].lowestFret;
            if (const int fret = fretUpTheNeck(passage, note); fret != 0)
                last = {event.onset, fret};
            else if (!isGiven(note) && last.fret != 0
                     && std::abs(event.onset - last.onset) <= farthest) {
                // The second finger may be on it.
                const auto found = static_cast<std::int8_t>(std::min(last.fret - 1, 127));
                lowest = lowest == 0 ? found : std::min(lowest, found);
            }
        }
    };
    Last before;
    for (std::size_t at = 0; at < passage.events.size(); ++at)
        look(at, before);
    Last behind;
    for (std::size_t at = passage.events.size(); at-- > 0;)
        look(at, behind);
}

} // namespace zarn::fingering
