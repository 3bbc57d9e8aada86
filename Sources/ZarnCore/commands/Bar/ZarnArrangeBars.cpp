// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Bar/ZarnArrangeBars.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/Automations/AnnounceAutomations.h>
#include <ZarnCore/commands/Automations/ZarnModifyMasterTrackAutomations.h>
#include <ZarnCore/commands/Automations/ZarnModifyTrackAutomations.h>
#include <ZarnCore/commands/Bar/BarArrangement.h>
#include <ZarnCore/commands/Bar/GivenContent.h>
#include <ZarnCore/commands/Bar/ZarnCreateBars.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>
#include <set>
#include <tuple>

namespace zarn::cmd {

ArrangeBars::ArrangeBars() : CompoundCommand(QStringLiteral("ArrangeBars")) { }
ArrangeBars::~ArrangeBars() = default;

bool ArrangeBars::init(Score *score, unsigned first, unsigned last)
{
    ZARN_ASSERT_IN("zarn::cmd::ArrangeBars::init", score != NULL);
    addArg(QStringLiteral("First"), QString::number(first));
    addArg(QStringLiteral("Last"), QString::number(last));
    setScore(score);
    _target = score;
    _first = first;
    _last = last;
    return first <= last && expectPlace([this] { return isPossible(); });
}

bool ArrangeBars::isPossible() const
{
    const MasterTrack &master = *model().masterTrack();
    if (_last >= master.masterBarCount())
        return false;
    for (const auto &track : model().tracks())
        for (const auto &staff : track->staves())
            for (unsigned bar = _first; bar <= _last; ++bar)
                if (!master.masterBars()[bar]->isFreeTime() && staff->bars()[bar]->hasBeats())
                    return true;
    return false;
}

void ArrangeBars::plan()
{
    requirePlace(isPossible());
    const auto &masterBars = model().masterTrack()->masterBars();
    std::vector<BarArrangement> &parts = _parts;
    parts.clear();
    unsigned moved = 0;
    for (unsigned bar = _first; bar <= _last;) {
        unsigned end = bar;
        while (end <= _last && !masterBars[end]->isFreeTime())
            ++end;
        if (end != bar) {
            parts.emplace_back(model(), bar, end - 1, moved);
            moved += parts.back().newBarCount();
        }
        bar = end + 1;
    }
    requirePlace(moved <= MasterTrack::MaxBars - model().masterTrack()->masterBarCount());
    auto swap = std::make_unique<ContentSwap>();
    swap->announceAllTracks(_first, _last + moved);
    for (BarArrangement &part : parts)
        part.addTo(*swap);
    // From behind, so that the numbers of those in front hold.
    for (auto part = parts.rbegin(); part != parts.rend(); ++part) {
        if (part->newBarCount() == 0)
            continue;
        auto create = std::make_unique<CreateBars>();
        requirePlace(create->init(_target, part->last() + 1, part->newBarCount()));
        addStep(std::move(create));
    }
    auto content = std::make_unique<GivenContent>();
    requirePlace(content->init(_target, std::move(swap)));
    addStep(std::move(content));
    addAutomations(masterTrackIndex);
    for (const auto &track : model().tracks())
        addAutomations(static_cast<int>(track->index()));
}

const AutomationContainer &ArrangeBars::container(int track) const
{
    if (track == masterTrackIndex)
        return *model().masterTrack();
    return model().tracks()[static_cast<unsigned>(track)]->automations();
}

namespace {

/// Whether a track, or the master track, has automations of a type.
bool holds(int track, Automation::Type type)
{
    const auto alien = track == masterTrackIndex ? Automation::Sound : Automation::Tempo;
    return type != Automation::Unknown && type != alien;
}

} // namespace

/// A step that moves what stands in the bars of a track with the music there, if anything does.
void ArrangeBars::addAutomations(int track)
{
    const AutomationContainer &present = container(track);
    unsigned shift = 0;
    for (const BarArrangement &part : _parts) {
        for (unsigned slot = 0; slot < Automation::automationTypeCount; ++slot) {
            if (!holds(track, Automation::idType(slot)))
                continue;
            for (const Automation *automation :
                 present.automations(Automation::idType(slot), part.first(), part.last())) {
                if (!part.newPlaceOf(automation->index() + shift, automation->position()))
                    continue;
                addStep([this, track] { return moveAutomations(track); });
                return;
            }
        }
        shift += part.newBarCount();
    }
}

std::unique_ptr<Command> ArrangeBars::moveAutomations(int track) const
{
    std::vector<const Automation *> old;
    std::vector<std::unique_ptr<Automation>> moved;
    // Those that stood behind the end of a bar may come to where another one is: that one stays.
    std::set<std::tuple<Automation::Type, unsigned, float>> places;
    for (unsigned slot = 0; slot < Automation::automationTypeCount; ++slot) {
        if (!holds(track, Automation::idType(slot)))
            continue;
        for (const Automation *automation :
             container(track).automations(Automation::idType(slot))) {
            for (const BarArrangement &part : _parts) {
                const auto place = part.newPlaceOf(automation->index(), automation->position());
                if (!place)
                    continue;
                old.push_back(automation);
                if (!places.emplace(automation->type(), place->bar, place->position).second)
                    continue;
                moved.push_back(automation->cloneAutomation());
                moved.back()->setIndex(place->bar);
                moved.back()->setPosition(place->position);
            }
        }
    }
    std::vector<const Automation *> inserted;
    for (const auto &automation : moved)
        inserted.push_back(automation.get());
    if (track == masterTrackIndex) {
        auto step = std::make_unique<ModifyMasterTrackAutomations>();
        return step->init(_target, old, inserted) ? std::move(step) : nullptr;
    }
    auto step = std::make_unique<ModifyTrackAutomations>();
    return step->init(_target, static_cast<unsigned>(track), old, inserted) ? std::move(step)
                                                                            : nullptr;
}

} // namespace zarn::cmd
