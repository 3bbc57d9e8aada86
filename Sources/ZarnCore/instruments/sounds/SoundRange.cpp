// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/sounds/SoundRange.h>

#include <ZarnCore/instruments/sounds/ZarnSound.h>

#include <limits>

namespace zarn {

namespace {

constexpr bool isMidiByte(std::int32_t number) noexcept
{
    return number >= 0 && number <= 127;
}

constexpr bool isPosition(std::int32_t number) noexcept
{
    return number >= -1 && number <= std::numeric_limits<std::int16_t>::max();
}

} // namespace

bool isInRange(const Sound &sound) noexcept
{
    const MIDISound &midi = sound.midiSound();
    const OrkaSound &orka = sound.orkaSound();
    return isMidiByte(midi.program()) && isMidiByte(midi.msbBank()) && isMidiByte(midi.lsbBank())
        && (sound.role() == Sound::Factory || sound.role() == Sound::User)
        && isPosition(orka.switchPosition()) && isPosition(orka.overloudPosition());
}

} // namespace zarn
