// SPDX-License-Identifier: MIT
#include <ZarnCore/chords/ZarnVoicingFinder.h>

#include <ZarnCore/chords/VoicingSearch.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <limits>
#include <utility>

namespace zarn::chord {

namespace {

// What players choose of all that they could play, told by thousands of their guitar and ukulele
// chords. By `VoicingReason`, in its order. Where the strings carry no bass, any tone may be the
// lowest and the root is the first to go, but every string is played.
constexpr VoicingWeights weightsWithBass = {
    .07F, .4F,  .11F,       // the hand and its place
    4.5F, 2.5F,             // the bass
    1.2F, .5F,  3,    .25F, // strings
    .6F,  .05F, .3F,        // tones
    .3F,  .25F,             // other voicings
};
constexpr VoicingWeights weightsWithoutBass = {
    .07F, .4F,  .11F,       //
    0,    0,                //
    10,   10,   0,    1.2F, //
    .5F,  2,    7,          //
    .3F,  .25F,             //
};

/// Voicings that the list is arranged among; those behind them nobody looks through one by one.
constexpr std::size_t arrangedVoicings = 120;

float weightOf(const VoicingWeights &weights, VoicingReason reason)
{
    return weights[static_cast<std::size_t>(reason)];
}

void add(Voicing &voicing, const VoicingWeights &weights, VoicingReason reason, float amount)
{
    voicing.amounts[static_cast<std::size_t>(reason)] += amount;
    voicing.cost += amount * weightOf(weights, reason);
}

bool isCheaper(const Voicing &left, const Voicing &right)
{
    return left.cost < right.cost;
}

/// Whether strings that both play are played the same.
bool isVariant(const FretRow &frets, const FretRow &others)
{
    for (std::size_t string = 0; string < frets.size(); ++string)
        if (frets[string] != others[string] && frets[string] != FretRow::notPlayed
            && others[string] != FretRow::notPlayed)
            return false;
    return true;
}

using Place = std::vector<Voicing>::iterator;

/// Makes those dearer that are variants of cheaper ones.
void chargeVariants(Place begin, Place end, const VoicingWeights &weights)
{
    for (auto voicing = begin; voicing != end; ++voicing)
        if (std::any_of(begin, voicing, [voicing](const Voicing &better) {
                return isVariant(voicing->frets, better.frets);
            }))
            voicing->amounts[static_cast<std::size_t>(VoicingReason::Variant)] = 1;
    for (auto voicing = begin; voicing != end; ++voicing)
        voicing->cost +=
            voicing->amount(VoicingReason::Variant) * weightOf(weights, VoicingReason::Variant);
    std::stable_sort(begin, end, isCheaper);
}

/// Puts the voicings into the order in which they are offered: each one makes those that begin at
/// the same fret dearer, for a player who does not like it wants to see another place.
void spreadOverNeck(Place begin, Place end, const VoicingWeights &weights)
{
    std::array<float, Fretboard::mostFrets + 1> better{};
    for (auto next = begin; next != end; ++next) {
        auto cheapest = next;
        float least = std::numeric_limits<float>::infinity();
        for (auto voicing = next; voicing != end && voicing->cost < least; ++voicing) {
            const float cost = voicing->cost
                + weightOf(weights, VoicingReason::SamePlace)
                    * better[static_cast<std::size_t>(lowestStop(voicing->frets))];
            if (cost >= least)
                continue;
            least = cost;
            cheapest = voicing;
        }
        std::rotate(next, cheapest, std::next(cheapest));
        auto &count = better[static_cast<std::size_t>(lowestStop(next->frets))];
        add(*next, weights, VoicingReason::SamePlace, count);
        count += 1;
    }
}

/// By costs; voicings are large, and there are hundreds.
void sort(std::vector<Voicing> &all)
{
    std::vector<std::pair<float, std::size_t>> order;
    order.reserve(all.size());
    for (std::size_t index = 0; index < all.size(); ++index)
        order.emplace_back(all[index].cost, index);
    std::sort(order.begin(), order.end());
    std::vector<Voicing> sorted;
    sorted.reserve(all.size());
    for (const auto &[cost, index] : order)
        sorted.push_back(all[index]);
    all = std::move(sorted);
}

/// The best first. Behind those that are arranged the others follow by their own costs.
void rank(std::vector<Voicing> &all, const VoicingWeights &weights)
{
    sort(all);
    const auto arranged =
        all.begin() + static_cast<std::ptrdiff_t>(std::min(all.size(), arrangedVoicings));
    chargeVariants(all.begin(), arranged, weights);
    spreadOverNeck(all.begin(), arranged, weights);
    const auto dearest = std::max_element(all.begin(), arranged, isCheaper);
    for (auto voicing = arranged; voicing != all.end(); ++voicing)
        voicing->cost = std::max(voicing->cost, dearest->cost);
}

} // namespace

VoicingFinder::VoicingFinder(Fretboard fretboard, const HandModel &hand)
    : VoicingFinder(fretboard, hand, fretboard.hasBass() ? weightsWithBass : weightsWithoutBass)
{
}

VoicingFinder::VoicingFinder(Fretboard fretboard, const HandModel &hand,
                             const VoicingWeights &weights)
    : _fretboard(std::move(fretboard)), _hand(hand), _weights(weights)
{
}

std::vector<Voicing> VoicingFinder::find(const ChordTones &chord, const VoicingLimits &limits) const
{
    VoicingSearch search(_fretboard, _hand, _weights, limits);
    auto all = search.find(chord, chord.tones - chord.omissible, 1);
    const auto courses = static_cast<int>(_fretboard.courses().size());
    for (int tones = std::min(courses, chord.tones.size()); all.empty() && tones > 0; --tones)
        all = search.find(chord, ToneSet(), tones);
    rank(all, _weights);
    return all;
}

ChordDiagram VoicingFinder::diagram(const Voicing &voicing, std::string name) const
{
    ChordDiagram diagram;
    diagram.name = std::move(name);
    diagram.frets.assign(_fretboard.stringCount(), FretRow::notPlayed);
    diagram.fingers.assign(_fretboard.stringCount(), 0);
    const auto &courses = _fretboard.courses();
    for (std::size_t index = 0; index < courses.size(); ++index) {
        const Course &course = courses[index];
        const int place = voicing.frets[index];
        // A drone is numbered along the long neck, and open all the same.
        const int zero = course.isDrone ? _fretboard.capo() : course.zeroFret;
        const int fret = place > 0 ? place - zero : place;
        for (unsigned string = 0; string < course.stringCount; ++string) {
            diagram.frets[course.firstString + string] = static_cast<std::int8_t>(fret);
            diagram.fingers[course.firstString + string] = voicing.hand.fingers[index];
        }
    }
    setFirstFret(diagram);
    return diagram;
}

} // namespace zarn::chord
