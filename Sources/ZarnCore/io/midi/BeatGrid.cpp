// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/BeatGrid.h>

#include <algorithm>
#include <cmath>

namespace zarn::io {

namespace {

using Family = BeatGrid::Family;

/// A division of a beat into equal parts, with the costs of choosing it and of each place in it
/// that no smaller division of its family has.
struct Division {
    int parts;
    Family family;
    double price;
    double placePrice;
};

// Divisions of a beat that is halved, the smaller ones of a family in front of the larger.
// clang-format off
constexpr Division ofHalvedBeat[] = {
    {1, BeatGrid::Plain, 0, 0}, {2, BeatGrid::Plain, 0.6, 0.3}, {4, BeatGrid::Plain, 1.8, 0.7},
    {8, BeatGrid::Plain, 5.5, 1.5}, {16, BeatGrid::Plain, 8.5, 2.5}, {32, BeatGrid::Plain, 11, 4},
    {3, BeatGrid::Triplet, 2.6, 0.4}, {6, BeatGrid::Triplet, 5, 0.8},
    {12, BeatGrid::Triplet, 8.5, 2}, {24, BeatGrid::Triplet, 12, 3.5},
    {5, BeatGrid::Quintuplet, 8, 0.8}, {10, BeatGrid::Quintuplet, 11, 2},
    {7, BeatGrid::Septuplet, 9, 0.9}, {14, BeatGrid::Septuplet, 12, 2.2},
    {9, BeatGrid::Mixed, 11, 1.5},
};

// Of a beat of three parts, as in 6/8. Its halves and quarters are dotted notes or duplets.
constexpr Division ofThirdedBeat[] = {
    {1, BeatGrid::Plain, 0, 0}, {3, BeatGrid::Plain, 0.6, 0.3}, {6, BeatGrid::Plain, 1.8, 0.7},
    {12, BeatGrid::Plain, 5.5, 1.5}, {24, BeatGrid::Plain, 8.5, 2.5}, {48, BeatGrid::Plain, 11, 4},
    {2, BeatGrid::Triplet, 4, 0.5}, {4, BeatGrid::Triplet, 5.5, 0.9}, {8, BeatGrid::Triplet, 8, 1.8},
    {9, BeatGrid::Mixed, 8, 0.9}, {18, BeatGrid::Mixed, 11, 2},
    {5, BeatGrid::Quintuplet, 8, 0.8}, {10, BeatGrid::Quintuplet, 11, 2},
    {7, BeatGrid::Septuplet, 9, 0.9}, {14, BeatGrid::Septuplet, 12, 2.2},
};
// clang-format on

/// Two divisions at once: two voices against three.
struct Pair {
    int first;
    int second;
    double price;
};
constexpr Pair pairs[] = {{2, 3, 5}, {4, 3, 7}, {4, 6, 9}};

void addPlaces(std::vector<BeatGrid::Place> &places, MidiTime length, int parts, double price)
{
    for (int part = 0; part <= parts; ++part) {
        const MidiTime at = length * part / parts;
        const auto next = std::lower_bound(
            places.begin(), places.end(), at,
            [](const BeatGrid::Place &place, MidiTime time) { return place.at < time; });
        if (next == places.end() || next->at != at)
            places.insert(next, {at, part == 0 || part == parts ? 0 : price});
    }
}

bool isBinary(MidiTime value)
{
    return (value & (value - 1)) == 0;
}

} // namespace

BeatGrid::Fit BeatGrid::fit(MidiTime time, double deviation) const noexcept
{
    Fit best = {0, 1e9};
    // Places around the time; a dearer one may be nearer, and the other way round.
    const auto next =
        std::lower_bound(places.begin(), places.end(), time,
                         [](const Place &place, MidiTime at) { return place.at < at; });
    const auto look = [&](const Place &place) {
        const double off = static_cast<double>(time - place.at) / deviation;
        const double cost = std::min(off * off / 2, mostForTime) + place.price;
        if (cost < best.cost)
            best = {place.at, cost};
    };
    for (auto place = next - std::min<std::ptrdiff_t>(2, next - places.begin());
         place != next + std::min<std::ptrdiff_t>(2, places.end() - next); ++place)
        look(*place);
    return best;
}

const BeatGrid::Place &BeatGrid::placeFrom(MidiTime time) const noexcept
{
    const auto next =
        std::lower_bound(places.begin(), places.end(), time,
                         [](const Place &place, MidiTime at) { return place.at < at; });
    return next == places.end() ? places.back() : *next;
}

std::vector<BeatGrid> beatGrids(MidiTime length, const GridChoice &choice)
{
    // A beat of three parts is one and a half times a plain value.
    const MidiTime third = length / 3;
    const bool isThirded =
        length % 3 == 0 && midiQuarter * 64 % third == 0 && isBinary(midiQuarter * 64 / third);
    std::vector<BeatGrid> grids;
    const auto isAllowed = [&](const Division &division) {
        const bool isFine = choice.shortest > 0 && length / division.parts < choice.shortest
            && division.family == BeatGrid::Plain;
        const bool isTooFineTuplet = choice.shortest > 0 && division.family != BeatGrid::Plain
            && length / division.parts * 3 < choice.shortest * 2;
        const bool isTuplet = division.family != BeatGrid::Plain;
        return division.parts == 1
            || (length % division.parts == 0 && !isFine && !isTooFineTuplet
                && (choice.hasTuplets || !isTuplet));
    };
    const auto add = [&](const Division &division) {
        if (!isAllowed(division))
            return;
        BeatGrid grid;
        grid.family = division.family;
        grid.price = division.price;
        // What the smaller divisions of the family have first, with their lower prices.
        for (const auto &row : grids)
            if (row.family == division.family
                && std::all_of(row.places.begin(), row.places.end(), [&](const auto &place) {
                       return place.at * division.parts % length == 0;
                   }))
                grid.places = row.places;
        addPlaces(grid.places, length, division.parts, division.placePrice);
        grids.push_back(std::move(grid));
    };
    if (isThirded)
        for (const Division &division : ofThirdedBeat)
            add(division);
    else
        for (const Division &division : ofHalvedBeat)
            add(division);
    if (!isThirded && choice.hasTuplets && choice.shortest == 0)
        for (const Pair &pair : pairs) {
            BeatGrid grid;
            grid.family = BeatGrid::Mixed;
            grid.price = pair.price;
            for (const Division &division : ofHalvedBeat)
                if (division.parts == pair.first || division.parts == pair.second)
                    addPlaces(grid.places, length, division.parts, division.placePrice);
            grids.push_back(std::move(grid));
        }
    std::stable_sort(grids.begin(), grids.end(), [](const BeatGrid &left, const BeatGrid &right) {
        return left.price < right.price;
    });
    return grids;
}

} // namespace zarn::io
