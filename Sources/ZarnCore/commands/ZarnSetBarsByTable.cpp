// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/ZarnSetBarsByTable.h>

#include <ZarnCore/events/ZarnBarEvents.h>
#include <ZarnCore/events/ZarnTrackEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <algorithm>

namespace zarn {

namespace {

using Id = BarAttribute;

/// Simile marks that can be asked for; halves of double ones are set in pairs.
bool isWish(SimileMark mark) noexcept
{
    return mark == SimileMark::None || mark == SimileMark::Simple || mark == SimileMark::Double;
}

bool hasRoom(SimileMark mark, unsigned first, unsigned last) noexcept
{
    switch (mark) {
    case SimileMark::Simple:
        return first >= 1;
    case SimileMark::Double:
        return first >= 2 && (last - first) % 2 == 1;
    default:
        return true;
    }
}

} // namespace

bool SetBarsByTable::prepare(Score *score, unsigned track, unsigned staff, unsigned first,
                             unsigned last, Values values)
{
    setScore(score);
    _track = track;
    _staff = staff;
    _first = first;
    _last = last;
    _values = std::move(values);
    std::sort(_values.begin(), _values.end(),
              [](const auto &left, const auto &right) { return left.first < right.first; });
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    addArg(QStringLiteral("StaffIndex"), QString::number(staff));
    addArg(QStringLiteral("First"), QString::number(first));
    addArg(QStringLiteral("Last"), QString::number(last));
    for (const auto &value : _values) {
        if (!isAttribute(value.first))
            return false;
        const BarAttributeRow &row = rowOf(value.first);
        if (!row.range.contains(value.second))
            return false;
        addArg(QStringLiteral("Type"), QString::fromStdString(std::string(row.name)));
        addArg(QStringLiteral("Value"), QString::fromStdString(row.range.toText(value.second)));
        if (row.id == Id::Clef && value.second.to<ClefType>() == ClefType::None)
            return false;
        if (row.id == Id::SimileMark) {
            const auto mark = value.second.to<SimileMark>();
            if (first > last || !isWish(mark) || !hasRoom(mark, first, last))
                return false;
        }
    }
    return !_values.empty() && first <= last && expectPlace([this] { return place() != nullptr; });
}

AttributeValue SetBarsByTable::valueFor(const Staff &, unsigned, BarAttribute,
                                        const AttributeValue &given) const
{
    return given;
}

Staff *SetBarsByTable::place() const
{
    const auto node = model().track(_track);
    const auto staff = node ? node->staff(_staff) : nullptr;
    return staff && _last < staff->barCount() ? staff.get() : nullptr;
}

bool SetBarsByTable::setsSimiles() const noexcept
{
    return std::any_of(_values.begin(), _values.end(),
                       [](const auto &value) { return value.first == Id::SimileMark; });
}

void SetBarsByTable::markSimiles(Staff &staff, SimileMark mark)
{
    for (unsigned i = _first; i <= _last; ++i)
        staff.unmarkSimile(i);
    for (unsigned i = _first; i <= _last && mark != SimileMark::None; ++i) {
        const bool isSecond = (i - _first) % 2 == 1;
        staff.bars()[i]->setSimileMark(mark == SimileMark::Simple ? mark
                                           : isSecond             ? SimileMark::SecondOfDouble
                                                                  : SimileMark::FirstOfDouble);
    }
}

void SetBarsByTable::apply()
{
    Staff *const staff = place();
    requirePlace(staff != nullptr);
    _before.clear();
    _marks.clear();
    _firstMark = _first == 0 ? 0 : _first - 1;
    for (unsigned i = _firstMark; i <= _last + 1 && i < staff->barCount(); ++i)
        _marks.push_back(staff->bars()[i]->simileMark());
    for (unsigned i = _first; i <= _last; ++i) {
        _before.emplace_back();
        for (const BarAttributeRow &row : barAttributes())
            _before.back().push_back(row.get(*staff->bars()[i]));
    }
    for (const auto &value : _values) {
        if (value.first == Id::SimileMark) {
            markSimiles(*staff, value.second.to<SimileMark>());
            continue;
        }
        for (unsigned i = _first; i <= _last; ++i) {
            Bar &bar = *staff->bars()[i];
            if (value.first == Id::Clef)
                bar.setClefChanges({});
            rowOf(value.first).set(bar, valueFor(*staff, i, value.first, value.second));
        }
    }
    _firstMarked = _first;
    _lastMarked = _last;
    for (std::size_t i = 0; i < _marks.size(); ++i)
        if (staff->bars()[_firstMark + i]->simileMark() != _marks[i]) {
            _firstMarked = std::min(_firstMarked, static_cast<unsigned>(_firstMark + i));
            _lastMarked = std::max(_lastMarked, static_cast<unsigned>(_firstMark + i));
        }
}

void SetBarsByTable::revert()
{
    Staff *const staff = place();
    ZARN_ASSERT_IN("zarn::SetBarsByTable::revert", staff != nullptr);
    for (unsigned i = _first; i <= _last; ++i)
        for (const BarAttributeRow &row : barAttributes())
            row.set(*staff->bars()[i], _before[i - _first][static_cast<std::size_t>(row.id)]);
    for (std::size_t i = 0; i < _marks.size(); ++i)
        staff->bars()[_firstMark + i]->setSimileMark(_marks[i]);
}

void SetBarsByTable::announce()
{
    const int track = static_cast<int>(_track);
    const int staff = static_cast<int>(_staff);
    const int first = static_cast<int>(_first);
    const int last = static_cast<int>(_last);
    bool isClefTold = false;
    for (const auto &value : _values) {
        switch (value.first) {
        case Id::Clef:
        case Id::ClefChanges:
            if (!isClefTold)
                score().notify(this, evt::TrackClefChanged(track, staff, first, last));
            isClefTold = true;
            break;
        case Id::Ottavia:
            score().notify(this, evt::ModifyBarRange(track, staff, first, last));
            break;
        case Id::SimileMark: {
            const int from = static_cast<int>(_firstMarked);
            const int to = static_cast<int>(_lastMarked);
            score().notify(this, evt::SimileMarkBarChanged(track, staff, from, to));
            score().notify(this, evt::ModifyBarRange(track, staff, from, to));
            break;
        }
        case Id::LayoutRatio:
            score().notify(this, evt::BarLayoutRatiosChanged(first, last));
            break;
        }
    }
}

} // namespace zarn
