// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/automations/AutomationRange.h>

#include <ZarnCore/instruments/automations/ZarnSoundAutomation.h>
#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>
#include <ZarnCore/instruments/sounds/SoundRange.h>

#include <cmath>

namespace zarn {

namespace {

constexpr std::int32_t lastTempoUnit = 5;

} // namespace

bool isPositiveTempo(const Automation &automation) noexcept
{
    return automation.type() != Automation::Tempo || automation.value() > 0;
}

bool isInRange(const Automation &automation) noexcept
{
    const auto position = static_cast<double>(automation.position());
    if (!(position >= 0 && position <= highestAutomationPosition)
        || !std::isfinite(automation.value()) || !isPositiveTempo(automation))
        return false;
    if (const auto *const tempo = dynamic_cast<const TempoAutomation *>(&automation))
        return tempo->unit() >= 0 && tempo->unit() <= lastTempoUnit;
    const auto *const change = dynamic_cast<const SoundAutomation *>(&automation);
    return change == nullptr || change->sound() == nullptr || isInRange(*change->sound());
}

} // namespace zarn
