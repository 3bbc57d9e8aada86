// SPDX-License-Identifier: MIT
#include <ZarnCore/playback/MeterAccents.h>

#include <ZarnCore/model/ZarnMasterBar.h>
#include <ZarnCore/playback/DynamicsCurve.h>

namespace zarn::playback {

namespace {

/// The groups of a meter are its beats, three units each in 6/8, 9/8 and the like.
utils::rational groupOf(const TimeSignature &meter)
{
    const bool isCompound =
        meter.getDenominator() >= 8 && meter.getNumerator() % 3 == 0 && meter.getNumerator() > 3;
    return meter.timeUnit() * (isCompound ? 3 : 1);
}

bool startsGroup(const MasterBar &bar, const utils::rational &offset)
{
    const TimeSignature &meter = bar.timeSignature();
    if (bar.beamGroups().isEmpty())
        return (offset / groupOf(meter)).isInteger();
    utils::rational start;
    for (const std::uint8_t group : bar.beamGroups().groups()) {
        if (start == offset)
            return true;
        start += meter.timeUnit() * group;
    }
    return false;
}

} // namespace

int meterAccent(const MasterBar &bar, const utils::rational &offset)
{
    if (offset.isZero())
        return velocityStep;
    return startsGroup(bar, offset) ? velocityStep / 2 : 0;
}

} // namespace zarn::playback
