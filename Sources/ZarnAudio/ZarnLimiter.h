// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnAudio/ZarnAudioExport.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Halvec::audio {

/// Keeps stereo sound below a ceiling without cutting it: the level goes down in time before what
/// is too loud, and comes back slowly. What stays below the ceiling comes out as it came in, later
/// by `latency` frames. Processing neither allocates nor locks.
class ZARNAUDIO_EXPORT Limiter {
public:
    /// `ceiling` is the highest value of a frame, above 0, such as 0.99 of full scale.
    Limiter(int rate, float ceiling);
    ~Limiter();

    /// Frames by which what comes out is late (5 ms).
    std::int64_t latency() const noexcept { return static_cast<std::int64_t>(_length); }

    /// Left and right interleaved, in place; the first `latency` frames to come out are silent.
    void process(float *frames, std::int64_t count) noexcept;

    /// The lowest gain so far; 1 when nothing was too loud.
    float lowestGain() const noexcept { return static_cast<float>(_lowest); }

private:
    double lowestAhead(double gain) noexcept;

    /// A gain that is not above any that came after it, and when it came.
    struct Low {
        double gain;
        std::uint64_t frame;
    };

    std::size_t _length; ///< frames that are looked ahead
    float _ceiling;
    double _recovery; ///< share of what is missing that comes back in a frame
    std::uint64_t _frame = 0;
    std::vector<float> _delayed; ///< the last frames, in a ring
    std::vector<Low> _lows;      ///< a queue in a ring, the gains rise from its front on
    std::size_t _lowStart = 0;
    std::size_t _lowCount = 0;
    double _held = 1;
    std::vector<double> _gains; ///< the last ones, in a ring
    double _sum;                ///< of these
    double _lowest = 1;
};

} // namespace Halvec::audio
