// SPDX-License-Identifier: MIT
#include <ZarnCore/music/ZarnTimeSignature.h>

#include <ZarnCore/ZarnAssert.h>
#include <filesystem/FileHandle.h>

namespace zarn {

TimeSignature::TimeSignature(unsigned numerator, unsigned denominator)
    : _numerator(numerator), _denominator(denominator)
{
    ZARN_ASSERT_IN("zarn::TimeSignature::TimeSignature", _denominator != 0);
}

void TimeSignature::setDenominator(unsigned denominator)
{
    _denominator = denominator;
    ZARN_ASSERT_IN("zarn::TimeSignature::setDenominator", _denominator != 0);
}

bool TimeSignature::readFromStream(filesystem::FileHandle &file, int /*version*/)
{
    std::int16_t numerator = 0;
    std::int16_t denominator = 0;
    if (!file.readShort(numerator) || !file.readShort(denominator))
        return false;
    setNumerator(static_cast<std::uint16_t>(numerator));
    setDenominator(static_cast<std::uint16_t>(denominator));
    return true;
}

bool TimeSignature::writeToStream(filesystem::FileHandle &file, int /*version*/) const
{
    ZARN_ASSERT_IN("zarn::TimeSignature::writeToStream",
                   _numerator <= 65535 && _denominator <= 65535);
    return file.writeShort(static_cast<std::int16_t>(_numerator))
        && file.writeShort(static_cast<std::int16_t>(_denominator));
}

} // namespace zarn
