// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/automations/ZarnAutomation.h>

namespace zarn {

/// A turn of a guitar's volume knob: the value is the knob's level from 0 to 1. Its type is
/// `Unknown`, so containers keep it in slot 0.
class ZARNCORE_EXPORT PickupKnobAutomation : public Automation {
public:
    PickupKnobAutomation();
    PickupKnobAutomation(const PickupKnobAutomation &other) = default;
    ~PickupKnobAutomation() override;

    /// Compares the pickup too.
    bool equals(const Automation &other) const override;
    std::unique_ptr<Automation> cloneAutomation() const override;
    /// Sets the pickup to the first too.
    void reset() override;
    /// Value and pickup with a space between: "0.5 1".
    std::string valueToString() const override;
    bool valueFromString(const std::string &text) override;

    /// Pickup whose knob turns, counted from 0 from the neck to the bridge; -1 means all.
    std::int32_t pickup() const noexcept { return _pickup; }
    void setPickup(std::int32_t pickup) noexcept { _pickup = pickup; }

private:
    std::int32_t _pickup = 0;
};

} // namespace zarn
