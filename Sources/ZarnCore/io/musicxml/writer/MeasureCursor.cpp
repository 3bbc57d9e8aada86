// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/writer/MeasureCursor.h>

#include <algorithm>
#include <cmath>

namespace zarn::io {

using utils::rational;

void MeasureCursor::start(pugi::xml_node measure, std::int64_t divisions)
{
    _measure = measure;
    _room = pugi::xml_node();
    _divisions = divisions;
    _now = 0;
    _written = 0;
    _waiting.clear();
}

std::int64_t MeasureCursor::inDivisions(const rational &time) const
{
    if (time.denominator() == 1)
        return time.numerator() * _divisions;
    if (_divisions % time.denominator() == 0)
        return time.numerator() * (_divisions / time.denominator());
    // Halves go up; the numbers below may be too large for fractions.
    const auto whole = time.floor();
    const auto rest = time.numerator() - whole * time.denominator();
    constexpr std::int64_t most = std::int64_t(1) << 31;
    const auto below = time.denominator() < most
        ? (2 * rest * _divisions + time.denominator()) / (2 * time.denominator())
        : std::llround(rational(rest, time.denominator()).toDouble()
                       * static_cast<double>(_divisions));
    return whole * _divisions + below;
}

std::int64_t MeasureCursor::advance(const rational &length)
{
    _now += length;
    const auto duration = std::max<std::int64_t>(inDivisions(_now) - _written, 1);
    _written += duration;
    return _lastDuration = duration;
}

void MeasureCursor::moveTo(const rational &time)
{
    if (time == _now)
        return;
    const auto target = inDivisions(time);
    if (target != _written)
        addElement(
            add(target < _written ? "backup" : "forward"), "duration",
            static_cast<long long>(target < _written ? _written - target : target - _written));
    _written = target;
    _now = time;
}

pugi::xml_node MeasureCursor::addAt(const rational &time, const char *name)
{
    if (!_room)
        _room = _measure.parent().append_child("waiting");
    const auto at = std::upper_bound(
        _waiting.begin(), _waiting.end(), time,
        [](const rational &wanted, const Waiting &other) { return wanted < other.time; });
    return _waiting.insert(at, {time, _room.append_child(name)})->node;
}

void MeasureCursor::put(std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        moveTo(_waiting[i].time);
        _measure.append_move(_waiting[i].node);
    }
    _waiting.erase(_waiting.begin(), _waiting.begin() + static_cast<std::ptrdiff_t>(count));
}

void MeasureCursor::passTo(const rational &time)
{
    if (_waiting.empty())
        return;
    const auto end = std::upper_bound(
        _waiting.begin(), _waiting.end(), time,
        [](const rational &wanted, const Waiting &other) { return wanted < other.time; });
    if (end == _waiting.begin())
        return;
    put(static_cast<std::size_t>(end - _waiting.begin()));
    moveTo(time);
}

void MeasureCursor::passAll()
{
    put(_waiting.size());
}

} // namespace zarn::io
