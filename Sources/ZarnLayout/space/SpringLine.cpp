// SPDX-License-Identifier: MIT
#include <ZarnLayout/space/SpringLine.h>

#include <algorithm>

namespace zarn::engraving {

unsigned SpringLine::addColumn(double fixed, double spring)
{
    const auto rods = static_cast<std::uint32_t>(_rods.size());
    _columns.push_back({fixed, spring, rods, rods});
    return columnCount() - 1;
}

void SpringLine::addRod(unsigned from, double length, double air)
{
    _rods.push_back({from, length, air});
    _columns.back().rodEnd = static_cast<std::uint32_t>(_rods.size());
}

void SpringLine::addRodTo(unsigned column, unsigned from, double length, double air)
{
    const LateRod rod = {column, from, length, air};
    _late.insert(std::upper_bound(_late.begin(), _late.end(), rod,
                                  [](const LateRod &left, const LateRod &right) {
                                      return left.column < right.column;
                                  }),
                 rod);
}

double SpringLine::lay(double factor, std::vector<double> &places, double squeeze) const
{
    places.resize(_columns.size());
    double place = 0;
    auto late = _late.begin();
    for (std::size_t i = 0; i < _columns.size(); ++i) {
        const Column &column = _columns[i];
        place += column.fixed + factor * column.spring;
        for (std::uint32_t number = column.firstRod; number < column.rodEnd; ++number) {
            const Rod &rod = _rods[number];
            place = std::max(place, places[rod.from] + rod.length - squeeze * rod.air);
        }
        for (; late != _late.end() && late->column == i; ++late)
            place = std::max(place, places[late->from] + late->length - squeeze * late->air);
        places[i] = place;
    }
    return place;
}

double SpringLine::width(double factor) const
{
    return lay(factor, _scratch);
}

SpringLine::Growth SpringLine::growthAt(double factor) const
{
    _growths.resize(_columns.size());
    Growth growth = {0, 0};
    auto late = _late.begin();
    const auto keepFrom = [&](unsigned from, double length) {
        const double place = _growths[from].width + length;
        if (place > growth.width)
            growth = {place, _growths[from].slope};
    };
    for (std::size_t i = 0; i < _columns.size(); ++i) {
        const Column &column = _columns[i];
        growth.width += column.fixed + factor * column.spring;
        growth.slope += column.spring;
        for (std::uint32_t number = column.firstRod; number < column.rodEnd; ++number)
            keepFrom(_rods[number].from, _rods[number].length);
        for (; late != _late.end() && late->column == i; ++late)
            keepFrom(late->from, late->length);
        _growths[i] = growth;
    }
    return growth;
}

double SpringLine::factorFor(double width) const
{
    constexpr double most = 1e6;
    constexpr double margin = 1e-12; ///< no line is wider than asked by rounding
    if (this->width(0) >= width)
        return 0;
    double factor = 1;
    Growth growth = growthAt(factor);
    while (growth.width < width && factor < most)
        growth = growthAt(factor *= 2);
    // The width is convex in the factor and made of straight pieces: from the wide side each
    // tangent leads nearer, and the one of the right piece to the place itself.
    while (growth.width > width && growth.slope > 0) {
        const double nearer = factor - (growth.width - width) / growth.slope;
        if (nearer >= factor)
            break;
        factor = nearer;
        growth = growthAt(factor);
    }
    return std::max(0.0, factor * (1 - margin));
}

std::vector<double> SpringLine::places(double factor) const
{
    std::vector<double> places;
    lay(factor, places);
    return places;
}

std::vector<double> SpringLine::squeezedPlaces(double width) const
{
    std::vector<double> places;
    double low = 0;
    double high = 1;
    if (lay(0, places, high) < width)
        for (int i = 0; i < 44; ++i) {
            const double middle = (low + high) / 2;
            (lay(0, places, middle) > width ? low : high) = middle;
        }
    lay(0, places, high);
    return places;
}

} // namespace zarn::engraving
