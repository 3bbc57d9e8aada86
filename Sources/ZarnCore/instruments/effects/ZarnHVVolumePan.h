// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

namespace Halvec::audio {

/// Level and place between the speakers as the audio layer's mixer has them.
struct ZARNCORE_EXPORT HVVolumePan {
    /// Level in decibels: 0 leaves it as it is, minus infinity is silence. In double precision,
    /// so that every gain in single precision comes back from it exactly.
    double decibels = 0;

    /// -1 is left, 0 the middle, 1 right.
    double pan = 0;

    // Gains of the two channels by the law of constant power (sine and cosine): 3 dB below the
    // level in the middle, the whole level on one side.

    double leftGain() const noexcept;
    double rightGain() const noexcept;

    friend constexpr bool operator==(const HVVolumePan &a, const HVVolumePan &b) noexcept
    {
        return a.decibels == b.decibels && a.pan == b.pan;
    }
    friend constexpr bool operator!=(const HVVolumePan &a, const HVVolumePan &b) noexcept
    {
        return !(a == b);
    }
};

} // namespace Halvec::audio
