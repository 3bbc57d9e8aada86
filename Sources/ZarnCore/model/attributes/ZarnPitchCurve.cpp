// SPDX-License-Identifier: MIT
#include <ZarnCore/model/attributes/ZarnPitchCurve.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/utils/TextScanner.h>

#include <algorithm>

namespace zarn {

using utils::rational;

PitchCurve::PitchCurve(std::initializer_list<CurvePoint> points) : PitchCurve(Points(points)) { }

PitchCurve::PitchCurve(Points points) : _points(std::move(points))
{
    ZARN_ASSERT_IN("zarn::PitchCurve::PitchCurve", isCurve(_points));
}

bool PitchCurve::isCurve(const Points &points) noexcept
{
    if (points.empty())
        return true;
    if (points.size() < 2 || points.size() > MaxPoints || points.front().position != 0
        || points.back().position != End)
        return false;
    return std::adjacent_find(
               points.begin(), points.end(),
               [](const auto &left, const auto &right) { return left.position >= right.position; })
        == points.end();
}

bool PitchCurve::isWithin(int lowest, int highest) const noexcept
{
    return std::all_of(_points.begin(), _points.end(), [&](const CurvePoint &point) {
        return point.value >= lowest && point.value <= highest;
    });
}

rational PitchCurve::valueAt(const rational &position) const
{
    if (_points.empty())
        return 0;
    const auto right = std::find_if(_points.begin(), _points.end(), [&](const CurvePoint &point) {
        return rational(point.position) >= position;
    });
    if (right == _points.end())
        return _points.back().value;
    if (right == _points.begin())
        return right->value;
    const CurvePoint &left = *(right - 1);
    return left.value
        + (position - left.position) * (right->value - left.value)
        / (right->position - left.position);
}

PitchCurve PitchCurve::part(const rational &from, const rational &to) const
{
    if (_points.empty() || !(from < to))
        return {};
    const auto rounded = [this](const rational &position) {
        return static_cast<std::int16_t>(valueAt(position).round());
    };
    PitchCurve part;
    part._points.push_back({0, rounded(from)});
    for (const CurvePoint &point : _points) {
        const auto position = ((point.position - from) * rational(End) / (to - from)).round();
        if (position > part._points.back().position && position < static_cast<int>(End)
            && part._points.size() + 1 < MaxPoints)
            part._points.push_back({static_cast<std::uint8_t>(position), point.value});
    }
    part._points.push_back({End, rounded(to)});
    return part;
}

std::string PitchCurve::toString() const
{
    std::string text;
    for (const CurvePoint &point : _points)
        text += (text.empty() ? "" : " ") + std::to_string(point.position) + ":"
            + std::to_string(point.value);
    return text;
}

std::optional<PitchCurve> PitchCurve::take(utils::TextScanner &scanner)
{
    Points points;
    do {
        CurvePoint point;
        if (!scanner.takeNumber(point.position) || !scanner.take(":")
            || !scanner.takeNumber(point.value) || points.size() == MaxPoints)
            return std::nullopt;
        points.push_back(point);
    } while (scanner.take(" "));
    if (!isCurve(points))
        return std::nullopt;
    return PitchCurve(std::move(points));
}

} // namespace zarn
