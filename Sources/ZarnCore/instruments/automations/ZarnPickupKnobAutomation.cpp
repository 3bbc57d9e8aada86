// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/automations/ZarnPickupKnobAutomation.h>

#include <locale>
#include <sstream>

namespace zarn {

PickupKnobAutomation::PickupKnobAutomation() : Automation(Unknown) { }

PickupKnobAutomation::~PickupKnobAutomation() = default;

bool PickupKnobAutomation::equals(const Automation &other) const
{
    return Automation::equals(other)
        && static_cast<const PickupKnobAutomation &>(other)._pickup == _pickup;
}

std::unique_ptr<Automation> PickupKnobAutomation::cloneAutomation() const
{
    return std::make_unique<PickupKnobAutomation>(*this);
}

void PickupKnobAutomation::reset()
{
    Automation::reset();
    _pickup = 0;
}

std::string PickupKnobAutomation::valueToString() const
{
    return Automation::valueToString() + " " + std::to_string(_pickup);
}

bool PickupKnobAutomation::valueFromString(const std::string &text)
{
    std::istringstream stream(text);
    stream.imbue(std::locale::classic());
    float value = 0;
    std::int32_t pickup = 0;
    if (!(stream >> value >> pickup))
        return false;
    setValue(value);
    _pickup = pickup;
    return true;
}

} // namespace zarn
