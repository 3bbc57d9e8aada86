// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/ZarnMidiDivision.h>

#include <ZarnCore/ZarnAssert.h>

namespace zarn::io {

MidiDivision MidiDivision::ofQuarter(int ticks) noexcept
{
    return MidiDivision(ticks > 0 && ticks < 0x8000 ? static_cast<std::uint16_t>(ticks)
                                                    : std::uint16_t(0));
}

MidiDivision MidiDivision::ofFrame(int framesPerSecond, int ticks) noexcept
{
    if (framesPerSecond < 1 || framesPerSecond > 128 || ticks < 1 || ticks > 255)
        return MidiDivision(std::uint16_t(0));
    return MidiDivision(static_cast<std::uint16_t>((256 - framesPerSecond) << 8 | ticks));
}

MidiDivision MidiDivision::fromWord(std::uint16_t word) noexcept
{
    return MidiDivision(word);
}

int MidiDivision::framesPerSecond() const noexcept
{
    return isSmpte() ? 256 - (_word >> 8) : 0;
}

bool MidiDivision::isValid() const noexcept
{
    if (!isSmpte())
        return _word != 0;
    const int frames = framesPerSecond();
    return ticksPerFrame() != 0 && (frames == 24 || frames == 25 || frames == 29 || frames == 30);
}

utils::rational MidiDivision::quartersPerTick() const
{
    ZARN_ASSERT_IN("zarn::io::MidiDivision::quartersPerTick", isValid());
    return isSmpte() ? secondsPerTick() * 2 : utils::rational(1, _word);
}

utils::rational MidiDivision::secondsPerTick(std::uint32_t microsecondsPerQuarter) const
{
    ZARN_ASSERT_IN("zarn::io::MidiDivision::secondsPerTick", isValid());
    if (!isSmpte())
        return {std::int64_t(microsecondsPerQuarter), std::int64_t(1000000) * _word};
    constexpr int dropFrame = 29;
    const auto framesPerSecond = this->framesPerSecond() == dropFrame
        ? utils::rational(30000, 1001)
        : utils::rational(this->framesPerSecond());
    return (framesPerSecond * ticksPerFrame()).reciprocal();
}

} // namespace zarn::io
