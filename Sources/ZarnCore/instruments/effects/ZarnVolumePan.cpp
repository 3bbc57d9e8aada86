// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/effects/ZarnVolumePan.h>

#include <ZarnCore/ZarnAssert.h>

namespace zarn {

ZarnVolumePan::ZarnVolumePan(float volume, float pan)
{
    setVolume(volume);
    setPan(pan);
}

void ZarnVolumePan::setVolume(float volume)
{
    ZARN_ASSERT_IN("zarn::ZarnVolumePan::setVolume", volume >= 0 && volume <= 1);
    _volume = volume;
}

void ZarnVolumePan::setPan(float pan)
{
    ZARN_ASSERT_IN("zarn::ZarnVolumePan::setPan", pan >= -1 && pan <= 1);
    _pan = pan;
}

} // namespace zarn
