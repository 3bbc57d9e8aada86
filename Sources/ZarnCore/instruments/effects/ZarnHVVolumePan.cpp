// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/effects/ZarnHVVolumePan.h>

#include <cmath>

namespace Halvec::audio {

namespace {

constexpr double quarterTurn = 1.57079632679489661923;

double gainOf(double decibels) noexcept
{
    return std::pow(10.0, decibels / 20.0);
}

} // namespace

double HVVolumePan::leftGain() const noexcept
{
    return gainOf(decibels) * std::cos(quarterTurn * (pan + 1) / 2);
}

double HVVolumePan::rightGain() const noexcept
{
    return gainOf(decibels) * std::sin(quarterTurn * (pan + 1) / 2);
}

} // namespace Halvec::audio
