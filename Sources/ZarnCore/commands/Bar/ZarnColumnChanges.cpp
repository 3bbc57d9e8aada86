// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Bar/ZarnColumnChanges.h>

#include <ZarnCore/commands/AnnounceSystems.h>
#include <ZarnCore/commands/Automations/AnnounceAutomations.h>
#include <ZarnCore/events/ZarnAutomationEvents.h>
#include <ZarnCore/events/ZarnMasterBarEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <algorithm>

namespace zarn {

namespace {

/// Calls `visit` with the types of which a container holds automations.
template <class Visit>
void forEachHeldType(const AutomationContainer &container, Visit visit)
{
    if (!container.hasAutomations())
        return;
    for (unsigned slot = 0; slot < Automation::automationTypeCount; ++slot) {
        if (const auto held = container.automations(Automation::idType(slot)); !held.empty())
            visit(held);
    }
}

} // namespace

void ColumnChanges::start(unsigned first, unsigned count)
{
    *this = {};
    _first = first;
    _count = count;
}

// Simile marks are only ever taken away when columns go: what was not there needs no look.
void ColumnChanges::addSurroundings(const ScoreModel &model, const BarColumnSurroundings &before,
                                    Columns kept)
{
    const unsigned behind = kept == Columns::In ? _first + _count : _first;
    const auto numberOut = [&](unsigned bar) { return bar < behind ? bar : bar - behind + _first; };
    const auto barNow = [&](unsigned track, unsigned staff, unsigned bar) -> const Bar & {
        const unsigned out = numberOut(bar);
        const unsigned now = kept == Columns::Out && out >= _first ? out + _count : out;
        return *model.tracks()[track]->staves()[staff]->bars()[now];
    };
    for (const SimileMarkPlace &place : before.simileMarks) {
        if (place.mark != SimileMark::None
            && barNow(place.track, place.staff, place.bar).simileMark() != place.mark)
            _touched.addSimile(place.track, place.staff, numberOut(place.bar));
    }
    for (const KeptBeats::Place &place : before.links.changed()) {
        const unsigned number = numberOut(place.bar);
        _touched.add(place.track, place.staff, number, number);
    }
    for (const KeptBeats::Place &place : before.spans.changed())
        _touched.add(place.track, place.staff, place.bar, place.bar);
    for (std::size_t i = 0; i < before.systems.size(); ++i) {
        const auto &now =
            i == 0 ? model.fullScoreSystemsLayout() : model.tracks()[i - 1]->systemsLayout();
        if (now != before.systems[i])
            _systems.push_back(static_cast<int>(i) - 1);
    }
}

void ColumnChanges::setMovementStart(const BarColumns &taken) noexcept
{
    _movesMovementStart = taken.surroundings.newMovementStart >= 0;
}

void ColumnChanges::addDirections(const MasterTrack::DirectionSlots &before)
{
    for (std::size_t i = 0; i < before.size(); ++i) {
        const int bar = before[i];
        if (bar >= 0 && static_cast<unsigned>(bar) >= _first
            && static_cast<unsigned>(bar) - _first < _count)
            _directions.emplace_back(static_cast<DirectionMark>(i), bar);
    }
}

void ColumnChanges::addAutomations(const BarColumns &taken)
{
    for (std::size_t i = 0; i < taken.automations.size(); ++i) {
        const int track = static_cast<int>(i) - 1; // the master track comes first
        for (const auto &automation : taken.automations[i].removed)
            _automations.emplace_back(track, automation->type());
        for (const auto &kept : taken.automations[i].kept)
            _automations.emplace_back(track, kept.first->type());
    }
}

void ColumnChanges::setStartTempos(double in, double out) noexcept
{
    _tempoIn = in;
    _tempoOut = out;
}

/// What keeps the start of the score although bars came in front of it.
ColumnChanges::Containers ColumnChanges::automationsAtStart(const ScoreModel &model) const
{
    Containers found;
    if (_first != 0)
        return found;
    const auto add = [&found](int track, const AutomationContainer &container) {
        forEachHeldType(container, [&](const AutomationContainer::View &held) {
            if (held.front()->index() == 0)
                found.emplace_back(track, held.front()->type());
        });
    };
    add(masterTrackIndex, *model.masterTrack());
    for (const auto &track : model.tracks())
        add(static_cast<int>(track->index()), track->automations());
    return found;
}

void ColumnChanges::announceIn(ScoreBase &score, const void *sender) const
{
    const ScoreModel &model = *score.scoreModel();
    _touched.announce(score, sender, _first, _count);
    announceMovementStart(score, sender, _first + _count);
    announceDirections(score, sender, Columns::In);
    Containers automations = automationsAtStart(model);
    automations.insert(automations.end(), _automations.begin(), _automations.end());
    // What stood at the start was pushed behind the columns by the plain shift.
    const unsigned last = std::min(_first == 0 ? _count : _first + _count - 1,
                                   model.masterTrack()->masterBarCount() - 1);
    announceAutomations(std::move(automations), score, sender, _first, last);
    announceStartTempo(score, sender, _tempoOut, _tempoIn);
    announceSystems(score, sender);
}

void ColumnChanges::announceOut(ScoreBase &score, const void *sender) const
{
    _touched.announce(score, sender);
    announceMovementStart(score, sender, _first);
    announceDirections(score, sender, Columns::Out);
    const unsigned barCount = score.scoreModel()->masterTrack()->masterBarCount();
    const unsigned joint = std::min(_first, barCount == 0 ? 0 : barCount - 1);
    announceAutomations(_automations, score, sender, joint, joint);
    announceStartTempo(score, sender, _tempoIn, _tempoOut);
    announceSystems(score, sender);
}

void ColumnChanges::announceMovementStart(ScoreBase &score, const void *sender, unsigned bar) const
{
    if (_movesMovementStart)
        score.notify(sender, evt::MasterBarAttribute(static_cast<int>(bar), static_cast<int>(bar)));
}

void ColumnChanges::announceDirections(ScoreBase &score, const void *sender, Columns now) const
{
    for (const auto &[mark, bar] : _directions)
        score.notify(sender,
                     now == Columns::In ? evt::MasterBarDirection(mark, -1, bar)
                                        : evt::MasterBarDirection(mark, bar, -1));
    score.notify(sender, evt::RequestMasterBarPlaylistUpdate());
}

void ColumnChanges::announceSystems(ScoreBase &score, const void *sender) const
{
    for (const int track : _systems)
        zarn::announceSystems(score, sender, track);
}

void ColumnChanges::announceAutomations(Containers containers, ScoreBase &score, const void *sender,
                                        unsigned firstBar, unsigned lastBar)
{
    if (containers.empty())
        return;
    std::sort(containers.begin(), containers.end());
    containers.erase(std::unique(containers.begin(), containers.end()), containers.end());
    for (const auto &[track, type] : containers)
        zarn::announceAutomations(score, sender, track, type, static_cast<int>(firstBar),
                                  static_cast<int>(lastBar));
    score.notify(sender, evt::AutomationChanged());
}

} // namespace zarn
