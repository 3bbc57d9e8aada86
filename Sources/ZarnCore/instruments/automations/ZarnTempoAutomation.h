// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/automations/ZarnAutomation.h>

namespace zarn {

/// A change of tempo; its value counts beats per minute, and its unit says what a beat is.
class ZARNCORE_EXPORT TempoAutomation : public Automation {
public:
    TempoAutomation();
    TempoAutomation(const TempoAutomation &other) = default;
    ~TempoAutomation() override;

    /// Compares the unit too.
    bool equals(const Automation &other) const override;
    std::unique_ptr<Automation> cloneAutomation() const override;
    /// Sets the unit to the quarter too.
    void reset() override;
    /// Value and unit with a space between: "120 2".
    std::string valueToString() const override;
    /// A unit that is missing or not from 1 to 5 is read as 2.
    bool valueFromString(const std::string &text) override;

    /// 1 eighth, 2 quarter, 3 dotted quarter, 4 half, 5 dotted half.
    std::int32_t unit() const noexcept { return _unit; }
    void setUnit(std::int32_t unit) noexcept { _unit = unit; }

    /// The tempo in quarters per minute; the value as it is when the unit is none of the five.
    float quarterValue() const noexcept;

private:
    static constexpr std::int32_t quarterUnit = 2;

    std::int32_t _unit = quarterUnit;
};

} // namespace zarn
