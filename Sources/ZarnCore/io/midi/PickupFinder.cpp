// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/PickupFinder.h>

#include <ZarnCore/io/midi/MeterLine.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace zarn::io {

namespace {

/// What begins within this time of a place belongs to it.
constexpr MidiTime nearPlace = midiQuarter / 8;

/// Bars that must be heard.
constexpr MidiTime enoughBars = 8;

/// How much stronger than the beginning a place must be: one of a beat, and one between beats.
constexpr double strongerOnBeat = 1.05;
constexpr double strongerOffBeat = 1.25;

/// The key under which the lowest quarter of the notes lies.
int bassKey(const PlayedNotes &notes)
{
    std::array<std::size_t, 128> counts = {};
    for (const PlayedNote &note : notes)
        ++counts[note.key];
    std::size_t below = 0;
    int key = 0;
    while (key < 127 && (below += counts[static_cast<std::size_t>(key)]) * 4 < notes.size())
        ++key;
    return key;
}

} // namespace

MidiTime findPickup(const PlayedNotes &notes, const TimeSignature &meter, MidiTime end)
{
    if (notes.empty() || notes.front().playedStart > nearPlace)
        return 0;
    const MidiTime bar = lengthOf(meter);
    const MidiTime step = midiQuarter / 2;
    const auto placeCount = static_cast<std::size_t>(bar / step);
    const MidiTime last = std::min(end, notes.back().playedStart + 1);
    if (placeCount < 2 || bar % step != 0 || last < enoughBars * bar)
        return 0;

    // The weight of each half quarter of the music, added up by its place in the bar.
    const int bass = bassKey(notes);
    std::vector<double> strengths(placeCount, 0);
    MidiTime heard = -1;
    double length = 0;
    bool hasBass = false;
    const auto flush = [&] {
        if (heard >= 0)
            strengths[static_cast<std::size_t>(heard) % placeCount] +=
                std::log2(1 + length) + (hasBass ? 1 : 0);
        length = 0;
        hasBass = false;
    };
    for (const PlayedNote &note : notes) {
        const MidiTime place = (note.playedStart + nearPlace) / step;
        if (note.playedStart >= last)
            break;
        if (std::abs(note.playedStart - place * step) > nearPlace)
            continue;
        if (place != heard)
            flush();
        heard = place;
        const MidiTime lasting = std::min(note.playedEnd - note.playedStart, bar);
        length += static_cast<double>(lasting) / midiQuarter;
        hasBass = hasBass || note.key <= bass;
    }
    flush();

    std::size_t best = 0;
    double bestStrength = 0;
    for (std::size_t place = 0; place < placeCount; ++place) {
        const auto bars =
            static_cast<double>((last - static_cast<MidiTime>(place) * step) / bar + 1);
        const double strength = strengths[place] / bars;
        const double needed = place == 0 ? 1 : place % 2 == 0 ? strongerOnBeat : strongerOffBeat;
        if (strength / needed > bestStrength) {
            best = place;
            bestStrength = strength / needed;
        }
    }
    return static_cast<MidiTime>(best) * step;
}

} // namespace zarn::io
