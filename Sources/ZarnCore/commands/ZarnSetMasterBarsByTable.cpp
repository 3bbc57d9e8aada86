// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/ZarnSetMasterBarsByTable.h>

#include <ZarnCore/commands/MasterBar/AnnounceMasterBars.h>
#include <ZarnCore/commands/MasterBar/ZarnSetMasterTimeSignature.h>
#include <ZarnCore/events/ZarnMasterBarEvents.h>
#include <ZarnCore/events/ZarnScoreEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <algorithm>

namespace zarn {

namespace {

using Id = MasterBarAttribute;

/// What the type of a value does not say: meters and counts that cannot be.
bool isPossible(Id id, const AttributeValue &value)
{
    switch (id) {
    case Id::TimeSignature:
        return cmd::SetMasterTimeSignature::isWritable(value.to<TimeSignature>());
    case Id::OwnLength: {
        const auto length = value.to<std::optional<utils::rational>>();
        return !length || length->sign() > 0;
    }
    case Id::RepeatCount:
        return value.to<int>() != 1;
    default:
        return true;
    }
}

/// The value that is given, or the one that a bar has.
template <class T, class Values>
T newValue(const Values &values, Id id, const T &old)
{
    for (const auto &value : values)
        if (value.first == id)
            return value.second.template to<T>();
    return old;
}

} // namespace

bool SetMasterBarsByTable::prepare(Score *score, unsigned first, unsigned last, Values values)
{
    setScore(score);
    _first = first;
    _last = last;
    _values = std::move(values);
    std::sort(_values.begin(), _values.end(),
              [](const auto &left, const auto &right) { return left.first < right.first; });
    addArg(QStringLiteral("First"), QString::number(first));
    addArg(QStringLiteral("Last"), QString::number(last));
    for (const auto &value : _values) {
        if (!isAttribute(value.first))
            return false;
        const MasterBarAttributeRow &row = rowOf(value.first);
        if (!row.range.contains(value.second) || !isPossible(value.first, value.second))
            return false;
        addArg(QStringLiteral("Type"), QString::fromStdString(std::string(row.name)));
        addArg(QStringLiteral("Value"), QString::fromStdString(row.range.toText(value.second)));
        _kept.push_back(row.id);
        if (row.id == Id::Anacrusis && (first != 0 || last != 0))
            return false;
    }
    const auto isKept = [this](Id id) {
        return std::find(_kept.begin(), _kept.end(), id) != _kept.end();
    };
    for (const Id id : {Id::BeamGroups, Id::MeterSign})
        if (isKept(Id::TimeSignature) && !isKept(id))
            _kept.push_back(id); // which go with another meter
    return !_values.empty() && first <= last && expectPlace([this] { return fit(bars()); });
}

SetMasterBarsByTable::Bars SetMasterBarsByTable::bars() const
{
    const auto &bars = model().masterTrack()->masterBars();
    if (_last >= bars.size())
        return {};
    return {bars.begin() + _first, bars.begin() + _last + 1};
}

bool SetMasterBarsByTable::fit(const Bars &bars) const
{
    return !bars.empty() && std::all_of(bars.begin(), bars.end(), [this](const auto &bar) {
        const auto meter = newValue(_values, Id::TimeSignature, bar->timeSignature());
        const auto length = newValue(_values, Id::OwnLength, bar->ownLength());
        const auto fermatas = newValue(_values, Id::Fermatas, FermataMarks());
        const auto groups = newValue(_values, Id::BeamGroups, BeamGroups());
        const utils::rational end = length ? *length : meter.barLength();
        return groups.fit(meter) && (fermatas.empty() || fermatas.back().position <= end);
    });
}

bool SetMasterBarsByTable::setsForm() const noexcept
{
    return std::any_of(_values.begin(), _values.end(),
                       [](const auto &value) { return rowOf(value.first).isOfForm; });
}

void SetMasterBarsByTable::apply()
{
    const Bars bars = this->bars();
    requirePlace(fit(bars));
    _before.clear();
    _haveGroupsGone = false;
    for (const auto &bar : bars) {
        _before.emplace_back();
        for (const Id id : _kept)
            _before.back().push_back(rowOf(id).get(*bar));
        const bool hadGroups = !bar->beamGroups().isEmpty();
        for (const auto &value : _values)
            rowOf(value.first).set(*bar, value.second);
        _haveGroupsGone = _haveGroupsGone || (hadGroups && bar->beamGroups().isEmpty());
    }
    if (setsForm())
        model().masterTrack()->updatePlayList();
}

void SetMasterBarsByTable::revert()
{
    const Bars bars = this->bars();
    ZARN_ASSERT_IN("zarn::SetMasterBarsByTable::revert", bars.size() == _before.size());
    for (std::size_t i = 0; i < bars.size(); ++i)
        for (std::size_t k = 0; k < _kept.size(); ++k)
            rowOf(_kept[k]).set(*bars[i], _before[i][k]);
    if (setsForm())
        model().masterTrack()->updatePlayList();
}

void SetMasterBarsByTable::announce()
{
    const auto tellOf = [&](unsigned number) {
        if (number != evt::AnacrusisChanged::TypeNumber)
            return announceMasterBars(score(), this, number, _first, _last);
        const bool now = model().masterTrack()->hasAnacrusis();
        const auto place = std::find(_kept.begin(), _kept.end(), Id::Anacrusis);
        const bool before = _before[0][static_cast<std::size_t>(place - _kept.begin())].to<bool>();
        const bool given = _values.back().second.to<bool>();
        score().notify(this, evt::AnacrusisChanged(now == given ? before : given, now));
    };
    std::vector<unsigned> told;
    for (const auto &value : _values) {
        const unsigned event = rowOf(value.first).event;
        if (std::find(told.begin(), told.end(), event) != told.end())
            continue;
        told.push_back(event);
        tellOf(event);
    }
    constexpr unsigned groups = evt::MasterBarBeamGroups::TypeNumber;
    if (_haveGroupsGone && std::find(told.begin(), told.end(), groups) == told.end())
        tellOf(groups);
    if (setsForm())
        score().notify(this, evt::RequestMasterBarPlaylistUpdate());
}

} // namespace zarn
