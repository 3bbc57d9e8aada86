// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Automations/ZarnModifyAutomations.h>

#include <ZarnCore/commands/Automations/AnnounceAutomations.h>
#include <ZarnCore/instruments/automations/ZarnAutomationContainer.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <tuple>
#include <utility>

namespace zarn {

ModifyAutomations::~ModifyAutomations() = default;

bool ModifyAutomations::prepare(Score *score, const Automations &removed,
                                const Automations &inserted)
{
    setScore(score);
    recordArgs(removed, inserted);
    for (const Automation *automation : removed) {
        if (automation == nullptr || !canHold(automation->type()))
            return false;
        _removals.push_back(placeOf(*automation));
    }
    for (const Automation *automation : inserted) {
        if (automation == nullptr || !canHold(automation->type()) || automation->position() < 0
            || !std::isfinite(automation->value()))
            return false;
        _insertions.push_back({automation->cloneAutomation(), nullptr, false});
    }
    return (!_removals.empty() || !_insertions.empty()) && areApart()
        && expectPlace([this] { return isPossible(); });
}

/// What is removed first, then what is put in, numbered through.
void ModifyAutomations::recordArgs(const Automations &removed, const Automations &inserted)
{
    Automations all = removed;
    all.insert(all.end(), inserted.begin(), inserted.end());
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (all[i] == nullptr)
            continue;
        const Automation &automation = *all[i];
        // One by one: a text may hold a "%" of its own. The colon before "Text" is as it should be.
        QString value = QStringLiteral("Type:%0;Linear:%1;Index:%2;Position:%3;Value:%4:Text:");
        value = value.arg(QString::fromStdString(Automation::typeToString(automation.type())),
                          automation.isLinear() ? QStringLiteral("true") : QStringLiteral("false"),
                          QString::number(automation.index()),
                          QString::number(static_cast<double>(automation.position())),
                          QString::fromStdString(automation.valueToString()));
        value += QString::fromStdString(automation.text());
        value += QStringLiteral(";Visible:");
        value += automation.isVisible() ? QStringLiteral("true") : QStringLiteral("false");
        addArg(QStringLiteral("Automation%0").arg(i), value);
    }
}

ModifyAutomations::Place ModifyAutomations::placeOf(const Automation &automation) noexcept
{
    return {automation.type(), automation.index(), automation.position()};
}

bool ModifyAutomations::isEffectParameter(Automation::Type type) noexcept
{
    return type >= Automation::DSPParam_00 && type <= Automation::DSPParam_31;
}

void ModifyAutomations::announceBars(int track)
{
    std::map<Automation::Type, std::pair<int, int>> bars;
    const auto add = [&bars](Automation::Type type, std::uint32_t index) {
        const int bar = static_cast<int>(index);
        auto &[first, last] = bars.try_emplace(type, bar, bar).first->second;
        first = std::min(first, bar);
        last = std::max(last, bar);
    };
    for (const Place &place : _removals)
        add(place.type, place.index);
    for (const Insertion &insertion : _insertions)
        add(insertion.model->type(), insertion.model->index());
    for (const auto &[type, span] : bars)
        announceAutomations(score(), this, track, type, span.first, span.second);
}

/// No place is named twice, neither to be cleared nor to be filled.
bool ModifyAutomations::areApart() const
{
    std::set<std::tuple<Automation::Type, std::uint32_t, float>> cleared;
    std::set<std::tuple<Automation::Type, std::uint32_t, float>> filled;
    for (const Place &place : _removals)
        cleared.emplace(place.type, place.index, place.position);
    for (const Insertion &insertion : _insertions) {
        const Place place = placeOf(*insertion.model);
        filled.emplace(place.type, place.index, place.position);
    }
    return cleared.size() == _removals.size() && filled.size() == _insertions.size();
}

bool ModifyAutomations::isPossible() const
{
    const AutomationContainer *const target = container();
    if (target == nullptr)
        return false;
    const unsigned barCount = model().masterTrack()->masterBarCount();
    return std::all_of(_removals.begin(), _removals.end(),
                       [&](const Place &place) {
                           return target->hasAutomation(place.type, place.index, place.position);
                       })
        && std::all_of(_insertions.begin(), _insertions.end(), [&](const Insertion &insertion) {
               return insertion.model->index() < barCount;
           });
}

/// Keeps what stands at a place; false when nothing does.
bool ModifyAutomations::takeAt(const Place &place)
{
    AutomationContainer &target = *container();
    Automation *const found = target.automation(place.type, place.index, place.position);
    if (found != nullptr)
        _taken.push_back(target.takeAutomation(found));
    return found != nullptr;
}

void ModifyAutomations::apply()
{
    requirePlace(isPossible());
    AutomationContainer &target = *container();
    _taken.clear();
    for (const Place &place : _removals)
        takeAt(place);
    for (Insertion &insertion : _insertions) {
        takeAt(placeOf(*insertion.model));
        // The same one again after an undo: others may have seen it.
        if (insertion.automation == nullptr)
            insertion.automation = insertion.model->cloneAutomation();
        insertion.isIn = target.insertAutomation(std::move(insertion.automation));
    }
}

void ModifyAutomations::revert()
{
    AutomationContainer &target = *container();
    for (Insertion &insertion : _insertions) {
        if (!insertion.isIn)
            continue;
        const Place place = placeOf(*insertion.model);
        insertion.automation =
            target.takeAutomation(target.automation(place.type, place.index, place.position));
        insertion.isIn = false;
    }
    while (!_taken.empty()) {
        target.restoreAutomation(std::move(_taken.back()));
        _taken.pop_back();
    }
}

} // namespace zarn
