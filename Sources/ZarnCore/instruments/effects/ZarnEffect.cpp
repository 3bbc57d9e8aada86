// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/effects/ZarnEffect.h>

#include <ZarnCore/ZarnAssert.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace zarn {

namespace {

bool areFinite(const std::vector<float> &values) noexcept
{
    return std::all_of(values.begin(), values.end(),
                       [](float value) { return std::isfinite(value); });
}

} // namespace

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

void Effect::setParameters(const std::vector<float> &values)
{
    ZARN_ASSERT_IN("zarn::Effect::setParameters", values.size() == _parameters.size());
    ZARN_ASSERT_IN("zarn::Effect::setParameters", areFinite(values));
    _parameters = values;
}

bool Effect::isFinite() const noexcept
{
    return areFinite(_parameters);
}

} // namespace zarn
