// SPDX-License-Identifier: MIT
#include <ZarnCore/model/BarColumnEdit.h>

#include <ZarnCore/model/layout/BarsOfSystems.h>
#include <ZarnCore/model/notes/StringLinks.h>

#include <algorithm>
#include <utility>

namespace zarn {
namespace {

/// How many bars to either side of a joint a double simile reaches.
constexpr unsigned simileReach = 2;

template <class Visit>
void visitStaves(const ScoreModel &model, const Visit &visit)
{
    for (const auto &track : model.tracks())
        for (const auto &staff : track->staves())
            visit(*staff, track->index());
}

/// Marks of bars beside a joint that a change may take away. Bars without a mark are noted too:
/// columns that are put back may find one there.
void collectSimileMarks(const ScoreModel &model, unsigned from, unsigned to,
                        std::vector<SimileMarkPlace> &marks)
{
    visitStaves(model, [&](const Staff &staff, unsigned track) {
        for (unsigned i = from; i < std::min(to, staff.barCount()); ++i)
            marks.push_back({track, staff.index(), i, staff.bars()[i]->simileMark()});
    });
}

/// Beats of a bar that face the bars beside it, and those from which a hammer-on or a slide may
/// lead there.
void keepLinks(const Bar &bar, unsigned staff, unsigned track, bool atEnd, KeptBeats &links)
{
    for (const auto &voice : bar.voices()) {
        if (!voice || voice->isEmpty())
            continue;
        const auto keep = [&](unsigned beat) {
            links.keep({track, staff, bar.index(), voice->index(), beat}, *voice->beats()[beat]);
        };
        keep(atEnd ? voice->beatCount() - 1 : 0);
        if (atEnd)
            for (const LeadingNote &leading : leadingNotes(*voice, voice->beatCount()))
                if (leading.voice == voice.get())
                    keep(leading.beat);
    }
}

/// Of the columns up to `end`, not included, and of those from `begin` on. What is not linked is
/// noted too, as are bars without simile marks: columns that are put back may find it otherwise.
void keepLinks(const ScoreModel &model, unsigned end, unsigned begin, KeptBeats &links)
{
    visitStaves(model, [&](const Staff &staff, unsigned track) {
        if (end > 0 && end <= staff.barCount())
            keepLinks(*staff.bars()[end - 1], staff.index(), track, true, links);
        if (begin < staff.barCount())
            keepLinks(*staff.bars()[begin], staff.index(), track, false, links);
    });
}

// Most tracks have no automations: their many slots need not be looked at.
AutomationContainer::ErasedBlocks eraseAutomations(AutomationContainer &container, unsigned first,
                                                   unsigned last)
{
    return container.hasAutomations() ? container.eraseBlocks(first, last)
                                      : AutomationContainer::ErasedBlocks{first, last, {}, {}};
}

void restoreAutomations(AutomationContainer &container, AutomationContainer::ErasedBlocks erased)
{
    if (container.hasAutomations() || !erased.removed.empty())
        container.restoreBlocks(std::move(erased));
}

} // namespace

/// Calls `change` with the systems of the full score and of each track that has any listed.
template <class Change>
void BarColumnEdit::changeSystems(const Change &change)
{
    const auto changed = [&change](std::vector<int> systems) {
        change(systems);
        return systems;
    };
    if (!_model.fullScoreSystemsLayout().empty())
        _model.setFullScoreSystemsLayout(changed(_model.fullScoreSystemsLayout()));
    for (const auto &track : _model.tracks())
        if (!track->systemsLayout().empty())
            track->setSystemsLayout(changed(track->systemsLayout()));
}

/// What columns that go in or out between those up to `end`, not included, and those from `begin`
/// on may change in these.
BarColumnSurroundings BarColumnEdit::surroundingsOf(unsigned end, unsigned begin) const
{
    BarColumnSurroundings surroundings;
    surroundings.directions = _master.directionSlots();
    collectSimileMarks(_model, end - std::min(end, simileReach), end, surroundings.simileMarks);
    collectSimileMarks(_model, begin, begin + simileReach, surroundings.simileMarks);
    keepLinks(_model, end, begin, surroundings.links);
    surroundings.systems.push_back(_model.fullScoreSystemsLayout());
    for (const auto &track : _model.tracks())
        surroundings.systems.push_back(track->systemsLayout());
    return surroundings;
}

BarColumnSurroundings BarColumnEdit::insertEmpty(unsigned index, unsigned count)
{
    const bool isAtEnd = index >= _master.masterBarCount();
    index = std::min(index, _master.masterBarCount());
    BarColumnSurroundings before = surroundingsOf(index, index);
    // Music that goes on is broken as the default says, and does not swell the last system.
    if (!isAtEnd)
        changeSystems([&](auto &systems) { insertBarsInSystems(systems, index, count); });
    _master.insertEmptyMasterBars(index, count);
    for (const auto &track : _model.tracks())
        track->insertEmptyBars(index, count, LinkMode::Mend);
    before.links.settle();
    return before;
}

BarColumns BarColumnEdit::take(unsigned first, unsigned last)
{
    BarColumns taken;
    taken.first = first;
    if (first > last || first >= _master.masterBarCount())
        return taken;
    last = std::min(last, _master.masterBarCount() - 1);
    taken.surroundings = surroundingsOf(first, last + 1);
    for (const auto &track : _model.tracks())
        taken.surroundings.spans.keep(*track, first, last);

    taken.automations.reserve(1 + _model.trackCount());
    taken.automations.push_back(_master.eraseBlocks(first, last));
    _master.removeDirections(first, last);
    if (_master.handOnMovementStart(first, last))
        taken.surroundings.newMovementStart = static_cast<int>(last) + 1;
    taken.masterBars = _master.takeMasterBarBlock(first, last);
    changeSystems([&](auto &systems) { removeBarsFromSystems(systems, first, last); });
    taken.bars.reserve(_model.trackCount());
    for (const auto &track : _model.tracks()) {
        taken.automations.push_back(eraseAutomations(track->mutableAutomations(), first, last));
        Track::BarBlocks blocks;
        for (const auto &staff : track->staves())
            blocks.push_back(staff->takeBars(first, last, LinkMode::Mend));
        taken.bars.push_back(std::move(blocks));
    }
    taken.surroundings.spans.mend(_model, taken.count());
    return taken;
}

void BarColumnEdit::putBack(BarColumns columns)
{
    columns.surroundings.spans.putBack(_model);
    _master.insertMasterBarBlock(columns.first, std::move(columns.masterBars));
    _master.restoreBlocks(std::move(columns.automations[0]));
    for (unsigned i = 0; i < _model.trackCount(); ++i) {
        const auto &track = _model.tracks()[i];
        restoreAutomations(track->mutableAutomations(), std::move(columns.automations[i + 1]));
        for (unsigned staff = 0; staff < track->staffCount(); ++staff)
            track->staves()[staff]->insertBars(columns.first, std::move(columns.bars[i][staff]));
    }
    restore(columns.surroundings);
}

void BarColumnEdit::restore(const BarColumnSurroundings &surroundings)
{
    _master.setDirectionSlots(surroundings.directions);
    if (surroundings.newMovementStart >= 0)
        _master.masterBars()[static_cast<unsigned>(surroundings.newMovementStart)]
            ->setMovementStart(false);
    if (!surroundings.systems.empty()) {
        _model.setFullScoreSystemsLayout(surroundings.systems.front());
        for (std::size_t i = 1; i < surroundings.systems.size(); ++i)
            _model.tracks()[i - 1]->setSystemsLayout(surroundings.systems[i]);
    }
    for (const SimileMarkPlace &place : surroundings.simileMarks)
        if (const auto track = _model.track(place.track))
            if (const auto bar = track->bar(place.bar, place.staff))
                bar->setSimileMark(place.mark);
    surroundings.links.putBack([this](const KeptBeats::Place &place) {
        const auto track = _model.track(place.track);
        const auto bar = track ? track->bar(place.bar, place.staff) : nullptr;
        const auto voice = bar ? bar->voice(place.voice) : nullptr;
        return voice ? voice->beat(place.beat).get() : nullptr;
    });
}

} // namespace zarn
