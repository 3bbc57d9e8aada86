// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/MeasureTimeline.h>

#include <ZarnCore/ZarnException.h>

#include <algorithm>
#include <cmath>

namespace zarn::io {

using utils::rational;

namespace {

/// Bounds the work of a jump in a measure that is no music.
constexpr std::size_t mostPassed = 1024;

/// Plain values of a quarter that drifting positions are told from.
constexpr std::int64_t finestPlain = 1024;

/// What plain and dotted values add up to.
bool isPlain(const rational &time)
{
    return (time.denominator() & (time.denominator() - 1)) == 0;
}

} // namespace

void MeasureTimeline::startMeasure()
{
    _now = {};
    _reach = {};
    _jumpReach = 0;
    _isBehindLength = false;
    _roundedLengths = 0;
    _passed.clear();
}

void MeasureTimeline::setDivisions(const rational &divisions)
{
    _divisions = divisions;
}

bool MeasureTimeline::isRounding(const rational &exact, const rational &written) const
{
    try {
        return utils::abs(exact - written) * _divisions < rational(1);
    } catch (const CoreException &) { // past what a fraction holds
        return std::abs(exact.toDouble() - written.toDouble()) * _divisions.toDouble() < 1;
    }
}

void MeasureTimeline::advance(const rational &exact, const rational &written)
{
    pass();
    _isBehindLength = true;
    if (exact == written && _now.exact == _now.written) {
        _now.exact += exact;
        _now.written = _now.exact;
    } else {
        _now.written += written;
        _roundedLengths += exact != written;
        try {
            _now.exact += exact;
        } catch (const CoreException &) { // past what a fraction holds
            _now.exact = _now.written;
        }
    }
    _reach.exact = std::max(_reach.exact, _now.exact);
    _reach.written = std::max(_reach.written, _now.written);
}

void MeasureTimeline::pass()
{
    if (_passed.size() < mostPassed)
        _passed.push_back(_now);
}

/// Where a jump lands that leads to no place that was passed.
rational MeasureTimeline::landing(const rational &start, const rational &written) const
{
    if (!(rational(0) < written) || isPlain(_now.written))
        return _now.written;
    try {
        // Time that is passed over is as long as it is written, as notes are, or is plain up to
        // what the position had drifted away.
        if (isPlain(written))
            return start + written;
        const rational passed = _now.written - start;
        const rational plain((passed * finestPlain).round(), finestPlain);
        const auto drift = tolerance();
        if (drift * (32 * finestPlain) < rational(1) && !(drift < utils::abs(passed - plain)))
            return start + plain;
    } catch (const CoreException &) { // past what a fraction holds
    }
    return _now.written;
}

bool MeasureTimeline::jump(const rational &written)
{
    if (_isBehindLength)
        pass();
    _isBehindLength = false;
    const auto start = _now.exact;
    _now.written += written;
    const bool inside = !(_now.written < rational(0));
    if (!inside)
        _now.written = 0;
    _now.exact = _roundedLengths > 0 ? landing(start, written) : _now.written;

    // Either position of a passed place may be what the exporter counted from.
    auto nearest = tolerance();
    bool found = false;
    const auto isNearer = [&](const rational &position) {
        try {
            const auto distance = utils::abs(_now.written - position);
            if (nearest < distance || (distance == nearest && found))
                return false;
            nearest = distance;
        } catch (const CoreException &) { // past what a fraction holds
            return false;
        }
        return found = true;
    };
    const auto consider = [&](const Position &place) {
        const bool isNear = isNearer(place.written);
        if (isNearer(place.exact) || isNear)
            _now.exact = place.exact;
    };
    if (_roundedLengths > 0)
        std::for_each(_passed.begin(), _passed.end(), consider);
    auto &reach = found ? _reach.exact : _jumpReach;
    reach = std::max(reach, _now.exact);
    _reach.written = std::max(_reach.written, _now.written);
    return inside;
}

rational MeasureTimeline::exactReach() const
{
    if (!(_reach.exact < _jumpReach))
        return _reach.exact;
    try {
        return tolerance() < _jumpReach - _reach.exact ? _jumpReach : _reach.exact;
    } catch (const CoreException &) { // past what a fraction holds
        return tolerance().toDouble() < _jumpReach.toDouble() - _reach.exact.toDouble()
            ? _jumpReach
            : _reach.exact;
    }
}

rational MeasureTimeline::tolerance() const
{
    return rational(_roundedLengths, 2) / _divisions;
}

} // namespace zarn::io
