// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/HandSplitter.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

namespace zarn::io {

namespace {

/// The keys between which hands may part: from C3 to C5.
constexpr int lowestSplit = 48;
constexpr std::size_t splitCount = 25;
constexpr int middleC = 60;

constexpr int mostFingers = 5;
constexpr int widestHand = 16;

// Costs.
constexpr double perSemitoneTooWide = 2;
constexpr double perFingerTooMany = 5;
constexpr double perSemitoneMoved = 0.6; ///< of the place between the hands
constexpr double perSemitoneOffMiddle = 0.08;
constexpr double perSemitoneFromHand = 0.12; ///< to where a hand is on the whole
constexpr double withoutGap = 1.5;           ///< neighbours within a third are parted

/// What begins within this time is struck together.
constexpr MidiTime together = midiQuarter / 16;

struct Strike {
    std::size_t first;
    std::size_t last; ///< behind it
};

class Splitting {
public:
    explicit Splitting(const PlayedNotes &notes) : _notes(notes)
    {
        for (std::size_t first = 0; first < notes.size();) {
            std::size_t last = first;
            while (last < notes.size()
                   && notes[last].playedStart < notes[first].playedStart + together)
                ++last;
            _strikes.push_back({first, last});
            first = last;
        }
    }

    std::vector<PlayedNotes> split()
    {
        std::array<double, splitCount> costs = {};
        std::vector<std::array<std::uint8_t, splitCount>> before(_strikes.size());
        for (std::size_t strike = 0; strike < _strikes.size(); ++strike) {
            std::array<std::uint8_t, splitCount> from;
            for (std::size_t i = 0; i < splitCount; ++i)
                from[i] = static_cast<std::uint8_t>(i);
            // The cheapest way to each place, from the left and from the right.
            for (std::size_t i = 1; i < splitCount; ++i)
                if (costs[i - 1] + perSemitoneMoved < costs[i]) {
                    costs[i] = costs[i - 1] + perSemitoneMoved;
                    from[i] = from[i - 1];
                }
            for (std::size_t i = splitCount - 1; i-- > 0;)
                if (costs[i + 1] + perSemitoneMoved < costs[i]) {
                    costs[i] = costs[i + 1] + perSemitoneMoved;
                    from[i] = from[i + 1];
                }
            before[strike] = from;
            for (std::size_t i = 0; i < splitCount; ++i)
                costs[i] += costOf(_strikes[strike], lowestSplit + static_cast<int>(i));
        }
        std::vector<PlayedNotes> hands(2);
        std::vector<int> splits(_strikes.size());
        auto place =
            static_cast<std::size_t>(std::min_element(costs.begin(), costs.end()) - costs.begin());
        for (std::size_t strike = _strikes.size(); strike-- > 0;) {
            splits[strike] = lowestSplit + static_cast<int>(place);
            place = before[strike][place];
        }
        for (std::size_t strike = 0; strike < _strikes.size(); ++strike)
            for (std::size_t i = _strikes[strike].first; i < _strikes[strike].last; ++i)
                hands[_notes[i].key < splits[strike] ? 1 : 0].push_back(_notes[i]);
        return hands;
    }

private:
    double costOf(const Strike &strike, int split) const
    {
        std::array<int, 2> lowest = {127, 127};
        std::array<int, 2> highest = {0, 0};
        std::array<int, 2> counts = {0, 0};
        for (std::size_t i = strike.first; i < strike.last; ++i) {
            const int key = _notes[i].key;
            const std::size_t hand = key < split ? 1 : 0;
            lowest[hand] = std::min(lowest[hand], key);
            highest[hand] = std::max(highest[hand], key);
            ++counts[hand];
        }
        double cost = perSemitoneOffMiddle * std::abs(split - middleC);
        for (std::size_t hand = 0; hand < 2; ++hand) {
            if (counts[hand] == 0)
                continue;
            cost += perSemitoneTooWide * std::max(0, highest[hand] - lowest[hand] - widestHand);
            cost += perFingerTooMany * std::max(0, counts[hand] - mostFingers);
        }
        if (counts[0] > 0 && counts[1] > 0) {
            constexpr int third = 4;
            cost += lowest[0] - highest[1] < third ? withoutGap : 0;
        }
        // A note by itself belongs to the hand that is usually there.
        constexpr int usualRight = 72;
        constexpr int usualLeft = 50;
        if (counts[1] == 0)
            cost += perSemitoneFromHand * std::max(0, usualRight - 10 - lowest[0]);
        if (counts[0] == 0)
            cost += perSemitoneFromHand * std::max(0, highest[1] - usualLeft - 10);
        return cost;
    }

    const PlayedNotes &_notes;
    std::vector<Strike> _strikes;
};

} // namespace

bool needsTwoStaves(const PlayedNotes &notes)
{
    constexpr int low = 57;
    constexpr int high = 62;
    constexpr int wide = 12;
    constexpr MidiTime overlap = midiQuarter / 4; // no mere slip of a finger
    std::size_t lowCount = 0;
    std::size_t highCount = 0;
    std::size_t wideCount = 0;
    // The last low and the last high note, which may still sound.
    const PlayedNote *lastLow = nullptr;
    const PlayedNote *lastHigh = nullptr;
    const auto isWide = [](const PlayedNote &note, const PlayedNote *other) {
        return other != nullptr && other->playedEnd > note.playedStart + overlap
            && std::abs(other->key - note.key) > wide;
    };
    for (const PlayedNote &note : notes) {
        lowCount += note.key < low;
        highCount += note.key > high;
        wideCount += isWide(note, note.key < low ? lastHigh : lastLow);
        (note.key < low ? lastLow : lastHigh) = &note;
    }
    constexpr std::size_t part = 12;
    return lowCount * part > notes.size() && highCount * part > notes.size()
        && wideCount * part > notes.size();
}

std::vector<PlayedNotes> splitHands(const PlayedNotes &notes)
{
    return Splitting(notes).split();
}

} // namespace zarn::io
