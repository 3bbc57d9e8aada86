// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/automations/ZarnAutomationContainer.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

/// What a listener knows of the automations of one container.
class AutomationCopy {
public:
    explicit AutomationCopy(const zarn::AutomationContainer &container);

    /// Reads those of one type in the bars `first` to `last` anew.
    void read(const zarn::AutomationContainer &container, zarn::Automation::Type type,
              unsigned first, unsigned last);
    void setBypassed(zarn::Automation::Type type, bool isBypassed);

    /// What the insertion and the removal of bars say by themselves.
    void makeRoom(unsigned at, unsigned count);
    void closeGap(unsigned at, unsigned count);

    /// Empty when the container holds just this.
    std::string difference(const zarn::AutomationContainer &container) const;

private:
    using Slot = std::vector<std::unique_ptr<zarn::Automation>>;
    static constexpr unsigned slotCount = zarn::Automation::automationTypeCount;

    std::array<Slot, slotCount> _slots;
    std::array<bool, slotCount> _isBypassed{};
};
