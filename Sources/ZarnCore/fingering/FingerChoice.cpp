// SPDX-License-Identifier: MIT
#include <ZarnCore/fingering/FingerChoice.h>

#include <algorithm>
#include <cmath>

namespace zarn::fingering {

namespace {

constexpr std::size_t middle = 1;
constexpr std::size_t ring = 2;
constexpr std::size_t little = 3;

} // namespace

void FingerChoice::collectStops(const Grip &grip)
{
    _stopCount = 0;
    for (int string = 0; string < Grip::Strings; ++string) {
        if (!grip.isStopped(string))
            continue;
        const auto at = static_cast<std::size_t>(string);
        _stops[static_cast<std::size_t>(_stopCount++)] = {static_cast<std::int8_t>(string),
                                                          grip.fret[at], grip.finger[at]};
    }
    std::stable_sort(_stops.begin(), _stops.begin() + _stopCount,
                     [](const Stop &left, const Stop &right) { return left.fret < right.fret; });
}

/// A finger that is free, or that reaches over to a further string of its fret: a barre, between
/// whose ends nothing sounds lower down.
bool FingerChoice::canLay(const Grip &grip, const Hand &hand, const Stop &stop, int finger) const
{
    const auto at = static_cast<std::size_t>(finger - 1);
    if (hand.fret[at] < 0)
        return true;
    if (hand.fret[at] != stop.fret)
        return false;
    const int from = std::min(hand.lowest[at], stop.string);
    const int to = std::max(hand.highest[at], stop.string);
    for (int string = from; string <= to; ++string)
        if (grip.sounds(string) && grip.fret[static_cast<std::size_t>(string)] < stop.fret)
            return false;
    return true;
}

bool FingerChoice::canHold(const Hand &hand) const
{
    constexpr float mostBetweenNeighbours = 2;
    constexpr float mostInAll = 2;
    float least = 1000;
    float most = -1000;
    for (std::size_t i = 0; i < hand.fret.size(); ++i) {
        if (hand.fret[i] < 0)
            continue;
        const float place = static_cast<float>(hand.fret[i]) - _hand.reach[i];
        if (least < 999 && place - most > mostBetweenNeighbours + 2 * _hand.ease)
            return false;
        least = std::min(least, place);
        most = std::max(most, place);
    }
    return most - least <= mostInAll + 1 + 2 * _hand.ease;
}

/// Position and effort of a grip whose fingers are placed.
void FingerChoice::judge(const Hand &hand, Grip &grip) const
{
    float sum = 0;
    int frets = 0;
    int count = 0;
    double cost = 0;
    int before = -1;
    float placeBefore = 0;
    grip.barred = 0;
    for (std::size_t i = 0; i < hand.fret.size(); ++i) {
        grip.fretOfFinger[i] = hand.fret[i];
        grip.stringOfFinger[i] = hand.lowest[i];
        if (hand.fret[i] < 0)
            continue;
        const float place = static_cast<float>(hand.fret[i]) - _hand.reach[i];
        if (before >= 0) {
            const float apart = place - placeBefore;
            const double narrowing = std::exp2(-static_cast<double>(hand.fret[i] - 1) / 12);
            if (hand.fret[i] == hand.fret[static_cast<std::size_t>(before)]
                && hand.lowest[i] < hand.lowest[static_cast<std::size_t>(before)])
                cost += _weights.crossing;
            cost += std::max(0.F, apart - _hand.ease) * _weights.stretch * narrowing
                + std::max(0.F, -apart - _hand.ease) * _weights.squeeze;
        }
        cost += _weights.stop;
        cost += i == middle ? _weights.middleFinger
            : i == ring     ? _weights.ringFinger
            : i == little   ? _weights.littleFinger
                            : 0;
        cost += _weights.squeeze * std::max(1 - place - _hand.ease, 0.F);
        if (hand.lowest[i] != hand.highest[i]) {
            cost += _weights.barre;
            grip.barred |= static_cast<std::uint8_t>(1U << i);
        }
        before = static_cast<int>(i);
        placeBefore = place;
        sum += place;
        frets += hand.fret[i];
        ++count;
    }
    if (hand.fret[ring] >= 0 && hand.fret[little] >= 0)
        cost += _weights.weakPair;
    if (count > 0)
        grip.position = std::max(sum / static_cast<float>(count), 1.F);
    if (grip.position != Grip::Anywhere) {
        cost += count > 0 ? _weights.height * frets / count : 0;
        cost += _weights.highHand * std::max(grip.position - 1, 0.F);
        int open = 0;
        int lowest = -1;
        int highest = -1;
        for (int string = 0; string < Grip::Strings; ++string) {
            if (!grip.sounds(string))
                continue;
            // A drone is there to ring open, wherever the hand is.
            open += !grip.isStopped(string) && !grip.isHeld(string) && !_fretboard.isDrone(string);
            lowest = lowest < 0 ? string : lowest;
            highest = string;
        }
        const float above = std::clamp((grip.position - 1) / 4, 0.F, 1.F);
        const bool isChord = open > 0 && (grip.fresh() & grip.stopped) != 0;
        cost += (_weights.openAbove + (isChord ? _weights.openInChord : 0))
            * static_cast<double>(above) * open;
        if (__builtin_popcount(grip.fresh()) > 2)
            for (int string = lowest + 1; string < highest; ++string)
                cost += grip.sounds(string) ? 0 : _weights.skippedString;
    }
    grip.cost = static_cast<float>(cost);
}

} // namespace zarn::fingering
