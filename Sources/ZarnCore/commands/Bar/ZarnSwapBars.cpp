// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Bar/ZarnSwapBars.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/Bar/KeptJoints.h>
#include <ZarnCore/commands/MasterBar/AnnounceMasterBars.h>
#include <ZarnCore/events/ZarnBarEvents.h>
#include <ZarnCore/events/ZarnMasterBarEvents.h>
#include <ZarnCore/events/ZarnTrackEvents.h>
#include <ZarnCore/model/ZarnMasterBarAttribute.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <algorithm>
#include <functional>

namespace zarn {

namespace {

unsigned countOf(const BarStretch &stretch) noexcept
{
    return static_cast<unsigned>(stretch.bars.size());
}

void addToRuns(std::vector<std::pair<unsigned, unsigned>> &runs, unsigned bar)
{
    if (!runs.empty() && runs.back().second + 1 >= bar)
        runs.back().second = bar;
    else
        runs.emplace_back(bar, bar);
}

template <class Node>
bool areDifferent(std::vector<const Node *> nodes)
{
    std::sort(nodes.begin(), nodes.end(), std::less<>());
    return std::adjacent_find(nodes.begin(), nodes.end()) == nodes.end();
}

/// Half of a double simile without the other one, or a mark that has nothing in front to repeat.
bool isBrokenMark(const Staff &staff, unsigned bar)
{
    const auto markAt = [&staff](unsigned i) {
        return i < staff.barCount() ? staff.bars()[i]->simileMark() : SimileMark::None;
    };
    switch (markAt(bar)) {
    case SimileMark::Simple:
        return bar == 0;
    case SimileMark::FirstOfDouble:
        return bar < 2 || markAt(bar + 1) != SimileMark::SecondOfDouble;
    case SimileMark::SecondOfDouble:
        return bar == 0 || markAt(bar - 1) != SimileMark::FirstOfDouble;
    default:
        return false;
    }
}

} // namespace

SwapBars::SwapBars(const QString &name)
    : ScoreCommand(name), _joints(std::make_unique<KeptJoints>())
{
}

SwapBars::~SwapBars() = default;

bool SwapBars::prepare(Score *score, std::vector<BarStretch> stretches)
{
    setScore(score);
    _stretches = std::move(stretches);
    std::vector<const Bar *> seen;
    for (const BarStretch &stretch : _stretches) {
        if (stretch.bars.empty())
            return false;
        for (const auto &bar : stretch.bars) {
            if (bar == nullptr || bar->parentStaff() != nullptr)
                return false;
            seen.push_back(bar.get());
        }
    }
    return !_stretches.empty() && areDifferent(std::move(seen));
}

bool SwapBars::prepareColumns(Score *score, std::vector<BarStretch> stretches, unsigned first,
                              MasterTrack::MasterBars masterBars)
{
    _areColumns = true;
    _firstMasterBar = first;
    _masterBars = std::move(masterBars);
    std::vector<const MasterBar *> seen;
    for (const auto &bar : _masterBars) {
        if (bar == nullptr || bar->parentMasterTrack() != nullptr)
            return false;
        seen.push_back(bar.get());
    }
    if (_masterBars.empty() || !areDifferent(std::move(seen)))
        return false;
    setScore(score);
    return stretches.empty() || prepare(score, std::move(stretches));
}

bool SwapBars::isPossible() const
{
    const auto fits = [this](const BarStretch &stretch) {
        if (!model().hasTrackIndex(stretch.track))
            return false;
        const Track &track = *model().tracks()[stretch.track];
        if (stretch.staff >= track.staffCount())
            return false;
        const unsigned count = track.staves()[stretch.staff]->barCount();
        return stretch.first <= count && countOf(stretch) <= count - stretch.first;
    };
    return std::all_of(_stretches.begin(), _stretches.end(), fits)
        && (!_areColumns || areComplete());
}

/// Whether there is a stretch for each staff, of the same columns.
bool SwapBars::areComplete() const
{
    const unsigned present = model().masterTrack()->masterBarCount();
    const auto count = static_cast<unsigned>(_masterBars.size());
    std::size_t staffCount = 0;
    for (const auto &track : model().tracks())
        staffCount += track->staffCount();
    const auto isOfColumns = [&](const BarStretch &stretch) {
        return stretch.first == _firstMasterBar && countOf(stretch) == count;
    };
    std::set<std::pair<unsigned, unsigned>> staves;
    for (const BarStretch &stretch : _stretches)
        staves.emplace(stretch.track, stretch.staff);
    return _firstMasterBar <= present && count <= present - _firstMasterBar
        && staves.size() == staffCount && _stretches.size() == staffCount
        && std::all_of(_stretches.begin(), _stretches.end(), isOfColumns);
}

Staff &SwapBars::staffOf(const BarStretch &stretch) const
{
    return *model().tracks()[stretch.track]->staves()[stretch.staff];
}

void SwapBars::exchange()
{
    for (BarStretch &stretch : _stretches) {
        Staff &staff = staffOf(stretch);
        for (unsigned i = 0; i < countOf(stretch); ++i)
            stretch.bars[i] = staff.replaceBar(stretch.first + i, stretch.bars[i]);
    }
    if (!_areColumns)
        return;
    MasterTrack &master = *model().masterTrack();
    const auto count = static_cast<unsigned>(_masterBars.size());
    auto taken = master.takeMasterBarBlock(_firstMasterBar, _firstMasterBar + count - 1);
    master.insertMasterBarBlock(_firstMasterBar, std::move(_masterBars));
    _masterBars = std::move(taken);
}

/// The new bars lose marks that cannot be here for good, their neighbours until undo.
void SwapBars::mendSimiles(const BarStretch &stretch)
{
    const Staff &staff = staffOf(stretch);
    const unsigned end = stretch.first + countOf(stretch);
    const unsigned from = stretch.first == 0 ? 0 : stretch.first - 1;
    for (unsigned i = from; i <= end && i < staff.barCount(); ++i) {
        if (!isBrokenMark(staff, i))
            continue;
        Bar &bar = *staff.bars()[i];
        if (i < stretch.first || i == end) {
            _lostHalves.push_back({stretch.track, stretch.staff, i, bar.simileMark()});
            _touched.addSimile(stretch.track, stretch.staff, i);
        }
        bar.setSimileMark(SimileMark::None);
    }
}

/// What listeners hear of besides the beats.
void SwapBars::compareBars()
{
    _clefs.assign(_stretches.size(), {});
    _ratios.clear();
    std::set<unsigned> ratios;
    for (std::size_t s = 0; s < _stretches.size(); ++s) {
        const BarStretch &stretch = _stretches[s];
        const Staff &staff = staffOf(stretch);
        for (unsigned i = 0; i < countOf(stretch); ++i) {
            const unsigned number = stretch.first + i;
            const Bar &in = *staff.bars()[number];
            const Bar &out = *stretch.bars[i];
            if (in.clef() != out.clef() || in.clefChanges() != out.clefChanges())
                addToRuns(_clefs[s], number);
            if (in.simileMark() != out.simileMark())
                _touched.addSimile(stretch.track, stretch.staff, number);
            if (in.layoutRatio() != out.layoutRatio())
                ratios.insert(number);
        }
    }
    for (const unsigned bar : ratios)
        addToRuns(_ratios, bar);
}

void SwapBars::compareMasterBars()
{
    _masterEvents.clear();
    _isFormChanged = false;
    const auto &bars = model().masterTrack()->masterBars();
    for (const MasterBarAttributeRow &row : masterBarAttributes()) {
        if (row.id == MasterBarAttribute::Anacrusis)
            continue;
        for (unsigned i = 0; i < _masterBars.size(); ++i) {
            const unsigned number = _firstMasterBar + i;
            if (row.get(*bars[number]) == row.get(*_masterBars[i]))
                continue;
            _masterEvents.try_emplace(row.event, number, number);
            auto &[first, last] = _masterEvents.at(row.event);
            first = std::min(first, number);
            last = std::max(last, number);
            _isFormChanged = _isFormChanged || row.isOfForm;
        }
    }
}

void SwapBars::apply()
{
    requirePlace(isPossible());
    _touched.clear();
    *_joints = {};
    _lostHalves.clear();
    for (BarStretch &stretch : _stretches) {
        keepSpans(stretch.track, stretch.staff, stretch.first,
                  stretch.first + countOf(stretch) - 1);
        if (!stretch.keepsClefs)
            continue;
        const Staff &staff = staffOf(stretch);
        for (unsigned i = 0; i < countOf(stretch); ++i) {
            const Bar &old = *staff.bars()[stretch.first + i];
            stretch.bars[i]->setClef(old.clef());
            stretch.bars[i]->setClefChanges(old.clefChanges());
            stretch.bars[i]->setOttavia(old.ottavia());
        }
    }
    exchange();
    if (_areColumns && !_masterBars.empty())
        _touched.addAllTracks(_firstMasterBar,
                              _firstMasterBar + static_cast<unsigned>(_masterBars.size()) - 1);
    for (const BarStretch &stretch : _stretches) {
        const unsigned last = stretch.first + countOf(stretch) - 1;
        _touched.add(stretch.track, stretch.staff, stretch.first, last);
        mendSimiles(stretch);
        _joints->addBarLine(model(), stretch.track, stretch.staff, stretch.first);
        _joints->addBarLine(model(), stretch.track, stretch.staff, last + 1);
        for (unsigned bar = stretch.first; bar <= last; ++bar)
            for (const auto &voice : staffOf(stretch).bars()[bar]->voices())
                if (voice != nullptr && !voice->isEmpty())
                    _joints->addNew(model(), stretch.track, stretch.staff, bar, voice->index(), 0,
                                    voice->beatCount());
        for (unsigned seam = stretch.copyLength; seam != 0 && seam < countOf(stretch);
             seam += stretch.copyLength)
            _joints->addBarLine(model(), stretch.track, stretch.staff, stretch.first + seam);
    }
    _joints->mend(model(), _touched);
    compareBars();
    if (_areColumns)
        compareMasterBars();
}

void SwapBars::revert()
{
    _joints->putBack(model());
    for (const LostHalf &lost : _lostHalves)
        model().tracks()[lost.track]->staves()[lost.staff]->bars()[lost.bar]->setSimileMark(
            lost.mark);
    exchange();
}

void SwapBars::announceApplied()
{
    const auto number = [](unsigned value) { return static_cast<int>(value); };
    _touched.announce(score(), this);
    for (std::size_t s = 0; s < _stretches.size(); ++s)
        for (const auto &[first, last] : _clefs[s])
            score().notify(this,
                           evt::TrackClefChanged(number(_stretches[s].track),
                                                 number(_stretches[s].staff), number(first),
                                                 number(last)));
    for (const auto &event : _masterEvents)
        announceMasterBars(score(), this, event.first, event.second.first, event.second.second);
    for (const auto &[first, last] : _ratios)
        score().notify(this, evt::BarLayoutRatiosChanged(number(first), number(last)));
    if (_isFormChanged)
        score().notify(this, evt::RequestMasterBarPlaylistUpdate());
}

void SwapBars::announceReverted()
{
    announceApplied();
}

} // namespace zarn
