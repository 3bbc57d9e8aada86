// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/utils/rational.h>

namespace filesystem {
class FileHandle;
}

namespace zarn {

/// How many beats a bar has, and which fraction of a whole note each is.
class ZARNCORE_EXPORT TimeSignature {
public:
    /// 4/4.
    TimeSignature() noexcept = default;

    /// A zero denominator raises.
    TimeSignature(unsigned numerator, unsigned denominator);

    unsigned getNumerator() const noexcept { return _numerator; }
    unsigned getDenominator() const noexcept { return _denominator; }

    /// Length of one beat in quarters: 1/2 for 6/8.
    utils::rational timeUnit() const { return utils::rational(4, _denominator); }

    /// Length of a full bar in quarters: 3 for 6/8.
    utils::rational barLength() const { return timeUnit() * utils::rational(_numerator); }

    void setNumerator(unsigned numerator) noexcept { _numerator = numerator; }

    /// Zero is stored, then raises.
    void setDenominator(unsigned denominator);

    /// Two 16-bit integers, numerator and denominator; the form of every version. False when the
    /// file fails; a zero denominator raises as in `setDenominator`.
    bool readFromStream(filesystem::FileHandle &file, int version);

    /// Terms above 65535 do not fit and raise.
    bool writeToStream(filesystem::FileHandle &file, int version) const;

    friend bool operator==(const TimeSignature &left, const TimeSignature &right) noexcept
    {
        return left._numerator == right._numerator && left._denominator == right._denominator;
    }
    friend bool operator!=(const TimeSignature &left, const TimeSignature &right) noexcept
    {
        return !(left == right);
    }

private:
    unsigned _numerator = 4;
    unsigned _denominator = 4;
};

} // namespace zarn
