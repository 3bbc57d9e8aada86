// SPDX-License-Identifier: MIT
#include <ZarnCore/io/sheet/TupletSpans.h>

#include <ZarnCore/io/sheet/Texts.h>
#include <ZarnCore/music/ZarnRhythmValue.h>

#include <algorithm>

namespace zarn::sheet {

namespace {

struct Ratio {
    unsigned notes = 0;
    unsigned inTimeOf = 0;

    bool isSet() const { return notes != 0; }
    friend bool operator==(const Ratio &left, const Ratio &right)
    {
        return left.notes == right.notes && left.inTimeOf == right.inTimeOf;
    }
};

Ratio ratioOf(const RhythmValue &rhythm, TupletLevel level)
{
    if (!rhythm.hasPrimaryTuplet())
        return {};
    if (level == TupletLevel::Inner && !rhythm.hasSecondaryTuplet())
        return {};
    const auto pair = level == TupletLevel::Outer ? rhythm.getPrimaryTupletRatio()
                                                  : rhythm.getSecondaryTupletRatio();
    return {pair.first, pair.second};
}

/// Length of a beat as it counts inside the group, before the group's own ratio shortens it.
utils::rational lengthInside(const RhythmValue &rhythm, const Ratio &ratio)
{
    return rhythm.getLength()
        * utils::rational(static_cast<int>(ratio.notes), static_cast<int>(ratio.inTimeOf));
}

/// Collects the beats of one bracket and knows when it is full.
class Group {
public:
    Group(const Ratio &ratio, const TimedBeat &first) : _ratio(ratio), _first(first.column)
    {
        add(first);
    }

    const Ratio &ratio() const { return _ratio; }

    void add(const TimedBeat &beat)
    {
        const utils::rational inside = lengthInside(*beat.rhythm, _ratio);
        const utils::rational unit = RhythmValue::noteValueToTimeUnit(beat.rhythm->getNoteValue());
        _isUniform = _isUniform && (_length.isZero() || inside == _lastLength);
        _unit = _length.isZero() ? unit : std::min(_unit, unit);
        _length += inside;
        _lastLength = inside;
        _last = beat.column;
    }

    /// Equal values fill a group when they are as many as the ratio names; mixed ones are grouped
    /// by whole quarters, as they are beamed.
    bool isFull() const
    {
        const utils::rational full = _unit * utils::rational(static_cast<int>(_ratio.notes));
        if (!(_length / full).isInteger())
            return false;
        const utils::rational time = _length
            * utils::rational(static_cast<int>(_ratio.inTimeOf), static_cast<int>(_ratio.notes));
        return _isUniform ? _length != _lastLength : time.isInteger();
    }

    Span span(int lane) const
    {
        return {lane, _first, _last, tupletText(_ratio.notes, _ratio.inTimeOf)};
    }

private:
    Ratio _ratio;
    ColumnKey _first;
    ColumnKey _last;
    utils::rational _length;
    utils::rational _lastLength;
    utils::rational _unit;
    bool _isUniform = true;
};

} // namespace

void addTupletSpans(const std::vector<TimedBeat> &beats, TupletLevel level, int lane,
                    std::vector<Span> &spans)
{
    std::vector<Group> open;
    const auto close = [&] {
        if (!open.empty())
            spans.push_back(open.back().span(lane));
        open.clear();
    };
    for (const TimedBeat &beat : beats) {
        const Ratio ratio = ratioOf(*beat.rhythm, level);
        if (!open.empty() && !(open.back().ratio() == ratio))
            close();
        if (!ratio.isSet())
            continue;
        if (open.empty())
            open.emplace_back(ratio, beat);
        else
            open.back().add(beat);
        if (open.back().isFull())
            close();
    }
    close();
}

} // namespace zarn::sheet
