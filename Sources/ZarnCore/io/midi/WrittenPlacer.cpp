// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/WrittenPlacer.h>

#include <ZarnCore/io/midi/NotatedBar.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iterator>

namespace zarn::io {

namespace {

const WrittenPlace &placeOf(const PlayedNote &note, const std::vector<WrittenPlace> &places)
{
    return places[static_cast<std::size_t>(note.written)];
}

bool isEarlier(const PlayedNote &left, const PlayedNote &right)
{
    return left.start < right.start;
}

} // namespace

bool isToldAtAll(const PlayedNotes &notes) noexcept
{
    return std::any_of(notes.begin(), notes.end(),
                       [](const PlayedNote &note) { return note.isTold(); });
}

std::vector<PlayedNotes> splitAsWritten(const PlayedNotes &notes,
                                        const std::vector<WrittenPlace> &places)
{
    constexpr int nowhere = 1000;
    std::array<int, NotatedBar::mostStaves> lastKeys;
    lastKeys.fill(nowhere);
    std::vector<PlayedNotes> staves(1);
    for (const PlayedNote &note : notes) {
        std::size_t staff = 0;
        if (note.isTold())
            staff = placeOf(note, places).staff;
        else
            for (std::size_t other = 1; other < lastKeys.size(); ++other)
                if (std::abs(lastKeys[other] - note.key) < std::abs(lastKeys[staff] - note.key))
                    staff = other;
        lastKeys[staff] = note.key;
        if (staff >= staves.size())
            staves.resize(staff + 1);
        staves[staff].push_back(note);
    }
    return staves;
}

void placeAsWritten(PlayedNotes &notes, const std::vector<WrittenPlace> &places,
                    const MeterLine &bars)
{
    // Files count ticks, which bar lines may lie between.
    constexpr MidiTime nearBarLine = midiQuarter / 32;
    bool isAny = false;
    for (PlayedNote &note : notes) {
        if (!note.isTold())
            continue;
        isAny = true;
        const WrittenPlace &place = placeOf(note, places);
        note.voice = place.voice;
        if (!place.hasTimes)
            continue;
        const MidiTime line = bars.bars()[bars.barAt(place.bar + nearBarLine)].start;
        const MidiTime bar = std::abs(line - place.bar) <= nearBarLine ? line : place.bar;
        note.start = bar + place.onset;
        note.isGrace = place.isGrace;
        note.isTied = place.isTied;
        note.isHeldOn = place.isHeldOn;
        if (place.hasEnd || note.end <= note.start)
            note.end = note.start + place.length;
    }
    if (isAny)
        std::stable_sort(notes.begin(), notes.end(), isEarlier);
}

void spellAsWritten(PlayedNotes &notes, const std::vector<WrittenPlace> &places)
{
    constexpr int keysPerOctave = 12;
    constexpr int lowest = -15;
    constexpr int highest = 19;
    for (PlayedNote &note : notes)
        if (note.isTold()) {
            const int fifth = placeOf(note, places).fifth;
            const bool isOfKey = (7 * fifth - note.key) % keysPerOctave == 0;
            if (isOfKey && fifth >= lowest && fifth <= highest)
                note.fifth = static_cast<std::int8_t>(fifth);
        }
}

PlayedNotes takeTold(PlayedNotes &notes)
{
    const auto first = std::stable_partition(notes.begin(), notes.end(),
                                             [](const PlayedNote &note) { return !note.isTold(); });
    PlayedNotes told(first, notes.end());
    notes.erase(first, notes.end());
    return told;
}

void putBack(const PlayedNotes &told, PlayedNotes &notes)
{
    if (told.empty())
        return;
    PlayedNotes all;
    all.reserve(told.size() + notes.size());
    std::merge(notes.begin(), notes.end(), told.begin(), told.end(), std::back_inserter(all),
               isEarlier);
    notes = std::move(all);
}

} // namespace zarn::io
