// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/MidiKeys.h>

#include <algorithm>
#include <array>

namespace zarn::io {

namespace {

/// Of very many keys that disagree the first ones are weighed.
constexpr int mostWeighed = 200;

} // namespace

std::vector<KeyChange> chooseKeys(std::vector<KeyChange> stated, const MidiMusic &music)
{
    std::stable_sort(
        stated.begin(), stated.end(),
        [](const KeyChange &left, const KeyChange &right) { return left.time < right.time; });
    std::vector<std::vector<KeyChange>> places;
    for (const KeyChange &key : stated) {
        if (places.empty() || places.back().front().time != key.time)
            places.emplace_back();
        places.back().push_back(key);
    }
    std::vector<KeyChange> chosen;
    int weighed = 0;
    for (std::size_t i = 0; i < places.size(); ++i) {
        const MidiTime from = places[i].front().time;
        const MidiTime to = i + 1 < places.size() ? places[i + 1].front().time : music.end + 1;
        std::array<std::size_t, 12> counts = {};
        const bool isOne =
            std::all_of(places[i].begin(), places[i].end(), [&](const KeyChange &key) {
                return key.fifths == places[i].front().fifths;
            });
        if (!isOne && weighed++ < mostWeighed)
            for (const MidiPart &part : music.parts)
                for (const PlayedNotes &notes : part.staves)
                    for (const PlayedNote &note : notes)
                        if (!part.isDrums && note.playedStart >= from && note.playedStart < to)
                            ++counts[note.key % 12];
        const auto fit = [&](const KeyChange &key) {
            std::size_t sum = 0;
            for (int fifth = key.fifths - 1; fifth < key.fifths + 6; ++fifth)
                sum += counts[static_cast<std::size_t>((fifth * 7 % 12 + 12) % 12)];
            return sum;
        };
        const auto best = std::max_element(
            places[i].begin(), places[i].end(),
            [&](const KeyChange &left, const KeyChange &right) { return fit(left) < fit(right); });
        const KeyChange before = chosen.empty() ? KeyChange() : chosen.back();
        if (chosen.empty() || before.fifths != best->fifths || before.isMinor != best->isMinor)
            chosen.push_back(*best);
    }
    return chosen;
}

} // namespace zarn::io
