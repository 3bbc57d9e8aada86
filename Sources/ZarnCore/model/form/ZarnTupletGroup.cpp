// SPDX-License-Identifier: MIT
#include <ZarnCore/model/form/ZarnTupletGroup.h>

#include <algorithm>

namespace zarn {

using utils::rational;

namespace {

rational factorOf(const TupletGroup::Ratio &ratio)
{
    return rational(ratio.first, ratio.second);
}

} // namespace

std::optional<TupletGroup::Ratio> TupletGroup::ratioOf(const RhythmValue &rhythm, TupletLevel level)
{
    if (!rhythm.hasPrimaryTuplet())
        return std::nullopt;
    const auto primary = rhythm.getPrimaryTupletRatio();
    const auto secondary =
        rhythm.hasSecondaryTuplet() ? rhythm.getSecondaryTupletRatio() : Ratio(1, 1);
    const bool isPlain = primary.first == primary.second;
    const auto &outer = isPlain ? secondary : primary;
    const auto inner = isPlain ? Ratio(1, 1) : secondary;
    const auto &ratio = level == TupletLevel::Outer ? outer : inner;
    return ratio.first != ratio.second ? std::optional<Ratio>(ratio) : std::nullopt;
}

TupletGroup::TupletGroup(const RhythmValue &first, TupletLevel level, const rational &onset)
    : _level(level), _ratio(ratioOf(first, level).value_or(Ratio(1, 1))), _start(onset), _end(onset)
{
}

void TupletGroup::add(const RhythmValue &rhythm)
{
    const auto length = rhythm.getLength();
    auto inside = length * factorOf(_ratio);
    auto unit = RhythmValue::noteValueToTimeUnit(rhythm.getNoteValue());
    if (_level == TupletLevel::Inner)
        inside *= factorOf(ratioOf(rhythm, TupletLevel::Outer).value_or(Ratio(1, 1)));
    else if (const auto inner = ratioOf(rhythm, TupletLevel::Inner))
        unit *= rational(inner->second);
    _isUniform = _isUniform && (_length.isZero() || inside == _lastLength);
    _unit = _length.isZero() ? unit : std::min(_unit, unit);
    _length += inside;
    _lastLength = inside;
    _end += length;
}

bool TupletGroup::isFull() const
{
    const auto time = _unit * rational(_ratio.second);
    // Notes of a group end off the grid of its values: what begins on it begins a group, such as a
    // sextuplet on the second beat of three.
    if (_level == TupletLevel::Outer && _isUniform && !(_start / _unit).isInteger()
        && (_end / time).isInteger())
        return true;
    if (!(_length / (_unit * rational(_ratio.first))).isInteger())
        return false;
    if (_isUniform)
        return _length != _lastLength;
    return _level == TupletLevel::Inner || (_length / factorOf(_ratio)).isInteger();
}

} // namespace zarn
