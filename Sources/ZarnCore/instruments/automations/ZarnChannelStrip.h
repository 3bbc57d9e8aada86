// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypesEditing.h>
#include <ZarnCore/instruments/automations/ZarnAutomation.h>

/// The channel strip of a track or of the mastering, among the 32 parameters that automations
/// drive: `DSPParam_00` is its volume and `DSPParam_01` its panning. The others, from 02 to 31, are
/// left to effects.
namespace zarn {

constexpr Automation::Type channelStripType(ChannelStripParameter parameter) noexcept
{
    return parameter == ChannelStripParameter::Volume ? Automation::DSPParam_00
                                                      : Automation::DSPParam_01;
}

constexpr bool isChannelStripType(Automation::Type type) noexcept
{
    return type == channelStripType(ChannelStripParameter::Volume)
        || type == channelStripType(ChannelStripParameter::Pan);
}

/// Whether the parameter can have a value: 0 (silent) to 1 (the level as it is) for the volume, -1
/// (left) to 1 (right) for the panning. False for what is no number.
constexpr bool isChannelStripValue(ChannelStripParameter parameter, float value) noexcept
{
    switch (parameter) {
    case ChannelStripParameter::Volume:
        return value >= 0 && value <= 1;
    case ChannelStripParameter::Pan:
        return value >= -1 && value <= 1;
    }
    return false;
}

} // namespace zarn
