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

constexpr std::size_t mostFingers = 5;
constexpr int easyReach = 12; ///< more than an octave is held seldom

// Costs.
constexpr double perSemitoneTooWide = 2;
constexpr double perFingerTooMany = 5;
constexpr double perSemitoneMoved = 0.6; ///< of the place between the hands
constexpr double perSemitoneOffMiddle = 0.08;
constexpr double perSemitoneFromHand = 0.12; ///< to where a hand is on the whole
constexpr double withoutGap = 1.5;           ///< neighbours within a third are parted

/// What begins within this time is struck together.
constexpr MidiTime together = midiQuarter / 16;

/// More keys than these are not held.
constexpr std::size_t mostHeld = 2 * mostFingers;

struct Strike {
    std::size_t first;
    std::size_t last; ///< behind it
};

/// Keys from the lowest to the highest.
class Keys {
public:
    void clear() noexcept { _keys.clear(); }

    void add(int key) { _keys.insert(std::upper_bound(_keys.begin(), _keys.end(), key), key); }

    std::size_t countBelow(int key) const noexcept
    {
        return static_cast<std::size_t>(std::lower_bound(_keys.begin(), _keys.end(), key)
                                        - _keys.begin());
    }
    std::size_t size() const noexcept { return _keys.size(); }
    int operator[](std::size_t place) const noexcept { return _keys[place]; }
    int lowest() const noexcept { return _keys.front(); }
    int highest() const noexcept { return _keys.back(); }

private:
    std::vector<int> _keys;
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
            lookAt(_strikes[strike]);
            for (std::size_t i = 0; i < splitCount; ++i)
                costs[i] += costOf(lowestSplit + static_cast<int>(i));
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
    /// The keys of a strike, and with them those that are still held.
    void lookAt(const Strike &strike)
    {
        const MidiTime time = _notes[strike.first].playedStart + together;
        _held.erase(
            std::remove_if(_held.begin(), _held.end(),
                           [&](std::size_t note) { return _notes[note].playedEnd <= time; }),
            _held.end());
        if (_held.size() > mostHeld)
            _held.erase(_held.begin(), _held.end() - mostHeld);
        _struck.clear();
        _down.clear();
        for (const std::size_t note : _held)
            _down.add(_notes[note].key);
        for (std::size_t note = strike.first; note < strike.last; ++note) {
            _struck.add(_notes[note].key);
            _down.add(_notes[note].key);
            _held.push_back(note);
        }
    }

    double costOf(int split) const
    {
        const std::size_t left = _struck.countBelow(split);
        const std::size_t right = _struck.size() - left;
        double cost = perSemitoneOffMiddle * std::abs(split - middleC);
        const auto costOfHand = [](std::size_t count, int lowest, int highest) {
            const auto tooMany = static_cast<double>(count > mostFingers ? count - mostFingers : 0);
            return perSemitoneTooWide * std::max(0, highest - lowest - easyReach)
                + perFingerTooMany * tooMany;
        };
        // Keys that a hand holds keep it from reaching far.
        const std::size_t downLeft = _down.countBelow(split);
        if (left > 0)
            cost += costOfHand(left, _down.lowest(), _down[downLeft - 1]);
        if (right > 0)
            cost += costOfHand(right, _down[downLeft], _down.highest());
        if (left > 0 && right > 0) {
            constexpr int third = 4;
            cost += _struck[left] - _struck[left - 1] < third ? withoutGap : 0;
        }
        // A note by itself belongs to the hand that is usually there.
        constexpr int usualRight = 72;
        constexpr int usualLeft = 50;
        if (left == 0)
            cost += perSemitoneFromHand * std::max(0, usualRight - 10 - _struck.lowest());
        if (right == 0)
            cost += perSemitoneFromHand * std::max(0, _struck.highest() - usualLeft - 10);
        return cost;
    }

    const PlayedNotes &_notes;
    std::vector<Strike> _strikes;
    std::vector<std::size_t> _held; ///< notes that may still sound
    Keys _struck;
    Keys _down; ///< struck or held
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
