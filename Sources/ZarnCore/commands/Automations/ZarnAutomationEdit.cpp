// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Automations/ZarnAutomationEdit.h>

#include <ZarnCore/instruments/automations/ZarnAutomationContainer.h>

#include <algorithm>
#include <set>
#include <tuple>

namespace zarn {

AutomationEdit::AutomationEdit() = default;
AutomationEdit::AutomationEdit(AutomationEdit &&) noexcept = default;
AutomationEdit &AutomationEdit::operator=(AutomationEdit &&) noexcept = default;
AutomationEdit::~AutomationEdit() = default;

AutomationEdit::Place AutomationEdit::placeOf(const Automation &automation) noexcept
{
    return {automation.type(), automation.index(), automation.position()};
}

void AutomationEdit::addRemoval(const Automation &automation)
{
    _removals.push_back(placeOf(automation));
}

void AutomationEdit::addInsertion(const Automation &automation)
{
    _insertions.push_back({automation.cloneAutomation(), nullptr, false});
}

bool AutomationEdit::isUnambiguous() const
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

bool AutomationEdit::isPossible(const AutomationContainer &container, unsigned barCount) const
{
    return std::all_of(_removals.begin(), _removals.end(),
                       [&](const Place &place) {
                           return container.hasAutomation(place.type, place.index, place.position);
                       })
        && std::all_of(_insertions.begin(), _insertions.end(), [&](const Insertion &insertion) {
               return insertion.model->index() < barCount;
           });
}

/// Keeps what stands at a place, if anything does.
void AutomationEdit::takeAt(AutomationContainer &container, const Place &place)
{
    Automation *const found = container.automation(place.type, place.index, place.position);
    if (found != nullptr)
        _taken.push_back(container.takeAutomation(found));
}

void AutomationEdit::apply(AutomationContainer &container)
{
    _taken.clear();
    for (const Place &place : _removals)
        takeAt(container, place);
    for (Insertion &insertion : _insertions) {
        takeAt(container, placeOf(*insertion.model));
        // The same one again after an undo: others may have seen it.
        if (insertion.automation == nullptr)
            insertion.automation = insertion.model->cloneAutomation();
        insertion.isIn = container.insertAutomation(std::move(insertion.automation));
    }
}

void AutomationEdit::revert(AutomationContainer &container)
{
    for (Insertion &insertion : _insertions) {
        if (!insertion.isIn)
            continue;
        const Place place = placeOf(*insertion.model);
        insertion.automation =
            container.takeAutomation(container.automation(place.type, place.index, place.position));
        insertion.isIn = false;
    }
    while (!_taken.empty()) {
        container.restoreAutomation(std::move(_taken.back()));
        _taken.pop_back();
    }
}

AutomationEdit::Spans AutomationEdit::spans() const
{
    Spans spans;
    const auto add = [&spans](Automation::Type type, std::uint32_t index) {
        const int bar = static_cast<int>(index);
        auto &span = spans.try_emplace(type, bar, bar).first->second;
        span.first = std::min(span.first, bar);
        span.second = std::max(span.second, bar);
    };
    for (const Place &place : _removals)
        add(place.type, place.index);
    for (const Insertion &insertion : _insertions)
        add(insertion.model->type(), insertion.model->index());
    return spans;
}

} // namespace zarn
