// SPDX-License-Identifier: MIT
#include <ZarnCore/playback/ZarnTempoMap.h>

#include <ZarnCore/ZarnAssert.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace zarn::playback {

namespace {

constexpr double secondsPerMinute = 60;

double limited(double tempo)
{
    // Also for what is no number.
    return tempo > TempoMap::Slowest ? std::min(tempo, TempoMap::Fastest) : TempoMap::Slowest;
}

/// Seconds from the start of a slide over `length` quarters to `quarters` inside it: the integral
/// of 60 / tempo.
double secondsOfSlide(double from, double to, double length, double quarters)
{
    const double slope = (to - from) / length;
    const double change = slope * quarters / from;
    if (std::abs(change) < 1e-9)
        return secondsPerMinute * quarters / from;
    return secondsPerMinute * std::log1p(change) / slope;
}

double quartersOfSlide(double from, double to, double length, double seconds)
{
    const double slope = (to - from) / length;
    const double exponent = slope * seconds / secondsPerMinute;
    if (std::abs(exponent) < 1e-9)
        return seconds * from / secondsPerMinute;
    return from * std::expm1(exponent) / slope;
}

} // namespace

TempoMap::TempoMap() : TempoMap(std::vector<Point>(1)) { }

TempoMap::TempoMap(std::vector<Point> points)
{
    ZARN_ASSERT_IN("zarn::playback::TempoMap::TempoMap", !points.empty());
    for (const Point &point : points) {
        if (!_points.empty() && _points.back().time == point.time)
            _points.pop_back();
        _points.push_back({point.time, 0, limited(point.tempo), limited(point.tempoAtEnd)});
    }
    for (const Point &point : _points)
        _quarters.push_back(point.time.toDouble());
    for (std::size_t i = 1; i < _points.size(); ++i)
        _points[i].second = secondsFrom(i - 1, _quarters[i]);
}

std::size_t TempoMap::indexAt(double quarters) const
{
    const auto behind = std::upper_bound(_quarters.begin(), _quarters.end(), quarters);
    return behind == _quarters.begin() ? 0
                                       : static_cast<std::size_t>(behind - _quarters.begin() - 1);
}

double TempoMap::secondsFrom(std::size_t index, double quarters) const
{
    const Point &point = _points[index];
    const double inside = quarters - _quarters[index];
    if (inside < 0 || point.tempo == point.tempoAtEnd || index + 1 == _points.size())
        return point.second + secondsPerMinute * inside / point.tempo;
    return point.second
        + secondsOfSlide(point.tempo, point.tempoAtEnd, _quarters[index + 1] - _quarters[index],
                         inside);
}

double TempoMap::secondsAt(double quarters) const
{
    return secondsFrom(indexAt(quarters), quarters);
}

double TempoMap::quartersAt(double second) const
{
    const auto behind =
        std::upper_bound(_points.begin(), _points.end(), second,
                         [](double value, const Point &point) { return value < point.second; });
    const std::size_t index =
        behind == _points.begin() ? 0 : static_cast<std::size_t>(behind - _points.begin() - 1);
    const Point &point = _points[index];
    const double inside = second - point.second;
    if (inside < 0 || point.tempo == point.tempoAtEnd || index + 1 == _points.size())
        return _quarters[index] + inside * point.tempo / secondsPerMinute;
    return _quarters[index]
        + quartersOfSlide(point.tempo, point.tempoAtEnd, _quarters[index + 1] - _quarters[index],
                          inside);
}

double TempoMap::tempoAt(double quarters) const
{
    const std::size_t index = indexAt(quarters);
    const Point &point = _points[index];
    if (index + 1 == _points.size() || quarters <= _quarters[index])
        return point.tempo;
    const double share = (quarters - _quarters[index]) / (_quarters[index + 1] - _quarters[index]);
    return point.tempo + (point.tempoAtEnd - point.tempo) * share;
}

TempoMap TempoMap::from(const utils::rational &time) const
{
    const double quarters = time.toDouble();
    const std::size_t first = indexAt(quarters);
    std::vector<Point> points(_points.begin() + static_cast<std::ptrdiff_t>(first), _points.end());
    points.front().tempo = tempoAt(quarters);
    if (points.size() == 1)
        points.front().tempoAtEnd = points.front().tempo;
    points.front().time = time;
    for (Point &point : points)
        point.time -= time;
    return TempoMap(std::move(points));
}

void TempoCursor::find(double quarters)
{
    _index = _map.indexAt(quarters);
    _from = _index == 0 ? -std::numeric_limits<double>::infinity() : _map._quarters[_index];
    _to = _index + 1 < _map._quarters.size() ? _map._quarters[_index + 1]
                                             : std::numeric_limits<double>::infinity();
}

} // namespace zarn::playback
