// SPDX-License-Identifier: MIT
#include <ZarnLayout/space/Skyline.h>

#include <algorithm>
#include <cmath>

namespace zarn::engraving {

Skyline::Skyline(double width, double floor)
    : _cells(static_cast<std::size_t>(std::clamp(width / cellWidth, 0.0, 1e7)) + 2,
             static_cast<float>(floor))
{
}

std::size_t Skyline::cellAt(double x) const
{
    const double cell = std::floor(x / cellWidth);
    return static_cast<std::size_t>(std::clamp(cell, 0.0, static_cast<double>(_cells.size() - 1)));
}

void Skyline::insert(double left, double right, double reach)
{
    const auto value = static_cast<float>(reach);
    for (std::size_t cell = cellAt(left), last = cellAt(right); cell <= last; ++cell)
        _cells[cell] = std::max(_cells[cell], value);
}

double Skyline::reach(double left, double right) const
{
    float most = _cells[cellAt(left)];
    for (std::size_t cell = cellAt(left), last = cellAt(right); cell <= last; ++cell)
        most = std::max(most, _cells[cell]);
    return most;
}

double Skyline::distance(const Skyline &facing) const
{
    return distance(facing, 0, 1e9);
}

double Skyline::distance(const Skyline &facing, double left, double right) const
{
    double most = -1e9;
    const std::size_t end = std::min({cellAt(right) + 1, _cells.size(), facing._cells.size()});
    for (std::size_t cell = cellAt(left); cell < end; ++cell)
        most = std::max(most, static_cast<double>(_cells[cell]) + facing._cells[cell]);
    return most;
}

double Skyline::outermost() const
{
    return *std::max_element(_cells.begin(), _cells.end());
}

} // namespace zarn::engraving
