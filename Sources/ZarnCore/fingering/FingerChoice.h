// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/fingering/Grip.h>
#include <ZarnCore/fingering/ZarnFingeringWeights.h>

#include <array>
#include <vector>

namespace zarn::fingering {

/// Which fingers stop the strings of a grip.
class FingerChoice {
public:
    FingerChoice(const Fretboard &fretboard, const HandProfile &hand,
                 const FingeringWeights &weights)
        : _fretboard(fretboard), _hand(hand), _weights(weights)
    {
    }

    /// Calls `visit` with the grip once for every way to stop its strings, with fingers, position
    /// and what that costs filled in. Strings that have a finger already keep it. Of open strings
    /// alone there is one way, which leaves the position as it is.
    template <class Visit>
    void forEach(Grip grip, Visit visit);

private:
    struct Stop {
        std::int8_t string;
        std::int8_t fret;
        std::int8_t finger; ///< 0 while it has none
    };
    /// The fingers that are on the neck.
    struct Hand {
        std::array<std::int8_t, Grip::Fingers> fret; ///< -1 for one that is free
        std::array<std::int8_t, Grip::Fingers> lowest;
        std::array<std::int8_t, Grip::Fingers> highest; ///< strings that it covers
    };

    void collectStops(const Grip &grip);
    bool canLay(const Grip &grip, const Hand &hand, const Stop &stop, int finger) const;
    bool canHold(const Hand &hand) const;
    void judge(const Hand &hand, Grip &grip) const;

    template <class Visit>
    void place(Grip &grip, Hand &hand, int number, int lowest, Visit &visit);

    const Fretboard &_fretboard;
    const HandProfile &_hand;
    const FingeringWeights &_weights;
    std::array<Stop, Grip::Strings> _stops{};
    int _stopCount = 0;
};

template <class Visit>
void FingerChoice::forEach(Grip grip, Visit visit)
{
    collectStops(grip);
    Hand hand{};
    hand.fret.fill(-1);
    place(grip, hand, 0, 1, visit);
}

/// Lays the stops from `number` on, the lowest frets first; fingers below `lowest` lie on lower
/// frets.
template <class Visit>
void FingerChoice::place(Grip &grip, Hand &hand, int number, int lowest, Visit &visit)
{
    if (number == _stopCount) {
        if (!canHold(hand))
            return;
        judge(hand, grip);
        visit(grip);
        return;
    }
    const Stop &stop = _stops[static_cast<std::size_t>(number)];
    const bool isNewFret =
        number > 0 && _stops[static_cast<std::size_t>(number - 1)].fret != stop.fret;
    if (isNewFret)
        for (int finger = lowest; finger <= Grip::Fingers; ++finger)
            if (hand.fret[static_cast<std::size_t>(finger - 1)] >= 0)
                lowest = finger + 1;
    for (int finger = lowest; finger <= Grip::Fingers; ++finger) {
        if ((stop.finger != 0 && stop.finger != finger) || !canLay(grip, hand, stop, finger))
            continue;
        const Hand before = hand;
        const auto at = static_cast<std::size_t>(finger - 1);
        const bool isFree = hand.fret[at] < 0;
        hand.fret[at] = stop.fret;
        hand.lowest[at] = isFree || stop.string < hand.lowest[at] ? stop.string : hand.lowest[at];
        hand.highest[at] =
            isFree || stop.string > hand.highest[at] ? stop.string : hand.highest[at];
        auto &written = grip.finger[static_cast<std::size_t>(stop.string)];
        const auto writtenBefore = written;
        written = static_cast<std::int8_t>(finger);
        place(grip, hand, number + 1, lowest, visit);
        written = writtenBefore;
        hand = before;
    }
}

} // namespace zarn::fingering
