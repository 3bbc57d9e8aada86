// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

namespace Halvec::audio {

/// The click of the metronome, higher at the start of a bar.
class ClickSound {
public:
    explicit ClickSound(int rate);

    /// Begins a click at the next frame that is added to.
    void strike(bool isBarStart) noexcept;

    /// Adds what sounds to frames of two channels.
    void add(float *frames, std::int64_t count) noexcept;

    void stop() noexcept { _sounding = nullptr; }

private:
    std::vector<float> _accent;
    std::vector<float> _beat;
    const std::vector<float> *_sounding = nullptr;
    std::size_t _next = 0;
};

} // namespace Halvec::audio
