// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/instruments/automations/ZarnAutomation.h>

#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace zarn {

class AutomationContainer;

/// Automations that are taken out of one container and others that are put in, there and back. One
/// that is put in replaces what stands at its place; one that would change nothing there is left
/// out, as `AutomationContainer::insertAutomation` says.
class ZARNCORE_EXPORT AutomationEdit {
public:
    /// Bars in which automations of each type come and go: the first and the last.
    using Spans = std::map<Automation::Type, std::pair<int, int>>;

    AutomationEdit();
    AutomationEdit(AutomationEdit &&) noexcept;
    AutomationEdit &operator=(AutomationEdit &&) noexcept;
    ~AutomationEdit();

    /// Remembers the place of an automation that is to go, or a copy of one that is to come.
    void addRemoval(const Automation &automation);
    void addInsertion(const Automation &automation);

    bool isEmpty() const noexcept { return _removals.empty() && _insertions.empty(); }

    /// Whether no place is named twice, neither to be cleared nor to be filled.
    bool isUnambiguous() const;

    /// Whether all that is to go is there, and what is to come stands in one of the bars.
    bool isPossible(const AutomationContainer &container, unsigned barCount) const;

    /// The second needs the container as the first left it.
    void apply(AutomationContainer &container);
    void revert(AutomationContainer &container);

    Spans spans() const;

private:
    struct Place {
        Automation::Type type = Automation::Unknown;
        std::uint32_t index = 0;
        float position = 0;
    };

    /// What is put in: its model, and the automation itself while it is out of the container.
    struct Insertion {
        std::unique_ptr<Automation> model;
        std::unique_ptr<Automation> automation;
        bool isIn = false;
    };

    void takeAt(AutomationContainer &container, const Place &place);
    static Place placeOf(const Automation &automation) noexcept;

    std::vector<Place> _removals;
    std::vector<Insertion> _insertions;
    std::vector<std::unique_ptr<Automation>> _taken; ///< out of the container, in order
};

} // namespace zarn
