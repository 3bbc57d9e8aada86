// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>

#include <array>
#include <locale>
#include <sstream>

namespace zarn {

namespace {

/// Quarters in the beat of each unit, from unit 1.
constexpr std::array<float, 5> quartersOfUnits{0.5f, 1.0f, 1.5f, 2.0f, 3.0f};

constexpr bool isUnit(std::int32_t unit)
{
    return unit >= 1 && unit <= static_cast<std::int32_t>(quartersOfUnits.size());
}

} // namespace

TempoAutomation::TempoAutomation() : Automation(Tempo) { }

TempoAutomation::~TempoAutomation() = default;

bool TempoAutomation::equals(const Automation &other) const
{
    return Automation::equals(other) && static_cast<const TempoAutomation &>(other)._unit == _unit;
}

std::unique_ptr<Automation> TempoAutomation::cloneAutomation() const
{
    return std::make_unique<TempoAutomation>(*this);
}

void TempoAutomation::reset()
{
    Automation::reset();
    _unit = quarterUnit;
}

std::string TempoAutomation::valueToString() const
{
    std::ostringstream stream;
    stream.imbue(std::locale::classic());
    stream << value() << ' ' << _unit;
    return stream.str();
}

bool TempoAutomation::valueFromString(const std::string &text)
{
    std::istringstream stream(text);
    stream.imbue(std::locale::classic());
    float value = 0;
    if (!(stream >> value))
        return false;
    std::int32_t unit = 0;
    stream >> unit;
    setValue(value);
    _unit = isUnit(unit) ? unit : quarterUnit;
    return true;
}

float TempoAutomation::quarterValue() const noexcept
{
    return isUnit(_unit) ? value() * quartersOfUnits[static_cast<std::size_t>(_unit) - 1] : value();
}

} // namespace zarn
