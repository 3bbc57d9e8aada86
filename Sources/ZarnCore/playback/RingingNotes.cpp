// SPDX-License-Identifier: MIT
#include <ZarnCore/playback/RingingNotes.h>

#include <algorithm>
#include <map>

namespace zarn::playback {

namespace {

/// What a note sounds on: a string, or else its key.
int placeOf(const PlannedNote &note)
{
    constexpr int firstKey = 128; // behind all strings
    return note.string >= 0 ? note.string : firstKey + note.key;
}

constexpr unsigned barsOfRinging = 4;

} // namespace

utils::rational latestRinging(const PlayedBeats &beats, std::uint32_t beat,
                              const PlayedBars &playedBars)
{
    const std::uint32_t playedBar = beats[beat].playedBar;
    const auto &bars = playedBars.bars();
    utils::rational latest = playedBar + barsOfRinging >= bars.size()
        ? playedBars.length()
        : bars[playedBar + barsOfRinging].start;
    // A bar of the voice that is all rests ends it.
    const auto from = std::upper_bound(
        beats.begin(), beats.end(), playedBar,
        [](std::uint32_t bar, const PlayedBeat &other) { return bar < other.playedBar; });
    for (auto next = from; next != beats.end() && next->start < latest;) {
        const auto bar = next->playedBar;
        bool isSilent = true;
        for (; next != beats.end() && next->playedBar == bar; ++next)
            isSilent = isSilent && !next->beat->hasNotes();
        if (isSilent)
            return std::min(latest, bars[bar].start);
    }
    return latest;
}

void letRing(std::vector<PlannedNote> &notes, const std::vector<RingingNote> &ringing)
{
    if (ringing.empty())
        return;
    std::map<int, std::vector<utils::rational>> attacks;
    for (const PlannedNote &note : notes)
        attacks[placeOf(note)].push_back(note.start);
    for (auto &[place, times] : attacks)
        std::sort(times.begin(), times.end());
    for (const RingingNote &each : ringing) {
        PlannedNote &note = notes[each.note];
        const auto &times = attacks[placeOf(note)];
        const auto next = std::upper_bound(times.begin(), times.end(), note.start);
        const utils::rational latest =
            next == times.end() ? each.latest : std::min(each.latest, *next);
        note.end = std::max(note.end, latest);
        if (next != times.end())
            note.end = std::min(note.end, std::max(*next, note.start));
    }
}

} // namespace zarn::playback
