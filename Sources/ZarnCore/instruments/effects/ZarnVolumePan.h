// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

namespace zarn {

/// How loud something plays and where between the speakers.
class ZARNCORE_EXPORT ZarnVolumePan {
public:
    constexpr ZarnVolumePan() noexcept = default;

    /// Raises a `CoreException` for a value outside its range.
    ZarnVolumePan(float volume, float pan);

    /// Linear gain: 0 is silent, 1 leaves the level as it is.
    constexpr float volume() const noexcept { return _volume; }
    void setVolume(float volume);

    /// -1 is left, 0 the middle, 1 right.
    constexpr float pan() const noexcept { return _pan; }
    void setPan(float pan);

    friend constexpr bool operator==(const ZarnVolumePan &a, const ZarnVolumePan &b) noexcept
    {
        return a._volume == b._volume && a._pan == b._pan;
    }
    friend constexpr bool operator!=(const ZarnVolumePan &a, const ZarnVolumePan &b) noexcept
    {
        return !(a == b);
    }

private:
    float _volume = 1.0f;
    float _pan = 0.0f;
};

} // namespace zarn
