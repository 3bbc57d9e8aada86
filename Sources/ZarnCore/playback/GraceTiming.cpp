// SPDX-License-Identifier: MIT
#include <ZarnCore/playback/GraceTiming.h>

#include <algorithm>

namespace zarn::playback {

namespace {

using Iterator = PlayedBeats::iterator;

const utils::rational half(1, 2);

utils::rational drawnLength(const PlayedBeat &grace)
{
    return bounded(grace.beat->rhythmValue().getLength());
}

utils::rational lengthBeforeBeat(const PlayedBeat &grace)
{
    return std::min(drawnLength(grace) / 4, utils::rational(1, 4));
}

/// Lays beats out one after the other from a time on, each by its share of the time.
void layOut(Iterator first, Iterator last, utils::rational time, const utils::rational &share)
{
    for (; first != last; ++first) {
        first->start = time;
        first->length = bounded(first->length * share);
        advance(time, first->length);
    }
}

utils::rational sumOf(Iterator first, Iterator last)
{
    utils::rational sum;
    for (; first != last; ++first)
        advance(sum, first->length);
    return sum;
}

utils::rational shareOf(const utils::rational &wanted, const utils::rational &most)
{
    return wanted > most ? bounded(most / wanted) : utils::rational(1);
}

void placeBeforeBeat(Iterator first, Iterator last, Iterator begin)
{
    for (auto grace = first; grace != last; ++grace)
        grace->length = lengthBeforeBeat(*grace);
    const utils::rational wanted = sumOf(first, last);
    const utils::rational beat = first->start;
    const bool takesFromBeat = first != begin && first->isJoined;
    const utils::rational share =
        takesFromBeat ? shareOf(wanted, (first - 1)->length * half) : utils::rational(1);
    layOut(first, last, bounded(beat - wanted * share), share);
    if (takesFromBeat)
        (first - 1)->length = bounded((first - 1)->length - wanted * share);
}

void placeOnBeat(Iterator first, Iterator last, Iterator end)
{
    for (auto grace = first; grace != last; ++grace)
        grace->length = drawnLength(*grace);
    const utils::rational wanted = sumOf(first, last);
    const bool takesFromBeat = last != end && last->isJoined && last->start == first->start;
    const utils::rational share =
        takesFromBeat ? shareOf(wanted, last->length * half) : utils::rational(1);
    layOut(first, last, first->start, share);
    if (takesFromBeat) {
        advance(last->start, wanted * share);
        last->length = bounded(last->length - wanted * share);
    }
}

} // namespace

void placeGraceBeats(PlayedBeats &beats)
{
    const auto isGrace = [](const PlayedBeat &played) { return played.beat->isGrace(); };
    auto first = std::find_if(beats.begin(), beats.end(), isGrace);
    while (first != beats.end()) {
        const auto isInRun = [&](const PlayedBeat &played) {
            return isGrace(played) && played.playedBar == first->playedBar;
        };
        const auto run = std::find_if_not(first, beats.end(), isInRun);
        // At the end of a bar they end the note before, as behind a trill.
        const bool endsBar =
            first->index > 0 && (run == beats.end() || run->playedBar != first->playedBar);
        const auto onBeat = std::stable_partition(first, run, [&](const PlayedBeat &played) {
            return endsBar || played.beat->graceType() == GraceType::BeforeBeat;
        });
        if (first != onBeat)
            placeBeforeBeat(first, onBeat, beats.begin());
        if (onBeat != run)
            placeOnBeat(onBeat, run, beats.end());
        first = std::find_if(run, beats.end(), isGrace);
    }
}

} // namespace zarn::playback
