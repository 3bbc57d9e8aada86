// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnAudio/ZarnAudioExport.h>

namespace zarn {
class Mastering;
}

namespace Halvec::audio {

/// What the mastering of a score comes to here: its level and balance, and its reverb. Other
/// effects of its chain have no counterpart and let the sound through.
struct MasterSound {
    float left = 1; ///< gains of the channels
    float right = 1;

    // As FluidSynth has its reverb at first, from 0 to 1.

    double roomSize = 0.2;
    double reverbLevel = 0.9;

    friend bool operator==(const MasterSound &a, const MasterSound &b) noexcept
    {
        return a.left == b.left && a.right == b.right && a.roomSize == b.roomSize
            && a.reverbLevel == b.reverbLevel;
    }
    friend bool operator!=(const MasterSound &a, const MasterSound &b) noexcept
    {
        return !(a == b);
    }
};

/// The reverb of a new score is that of FluidSynth; its mix is the level, its decay the size of the
/// room. Without a reverb in the chain, or with one that is bypassed, its level is 0.
ZARNAUDIO_EXPORT MasterSound masterSoundOf(const zarn::Mastering &mastering);

} // namespace Halvec::audio
