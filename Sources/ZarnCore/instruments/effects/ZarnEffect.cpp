// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/effects/ZarnEffect.h>

#include <ZarnCore/ZarnAssert.h>

#include <cmath>
#include <utility>

namespace zarn {

Effect::Effect(std::string identifier, std::string name, std::vector<float> parameters)
    : _identifier(std::move(identifier)), _name(std::move(name)), _parameters(std::move(parameters))
{
}

float Effect::parameter(unsigned index) const noexcept
{
    return index < _parameters.size() ? _parameters[index] : 0.0f;
}

void Effect::setParameter(unsigned index, float value)
{
    ZARN_ASSERT_IN("zarn::Effect::setParameter", index < parameterCount());
    ZARN_ASSERT_IN("zarn::Effect::setParameter", std::isfinite(value));
    _parameters[index] = value;
}

} // namespace zarn
