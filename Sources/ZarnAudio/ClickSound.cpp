// SPDX-License-Identifier: MIT
#include <ZarnAudio/ClickSound.h>

#include <algorithm>
#include <cmath>

namespace Halvec::audio {

namespace {

constexpr double length = 0.04; ///< seconds
constexpr double decay = 0.006; ///< seconds to a third

std::vector<float> click(double frequency, double level, int rate)
{
    std::vector<float> frames(static_cast<std::size_t>(length * rate));
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const double time = static_cast<double>(i) / rate;
        frames[i] = static_cast<float>(level * std::exp(-time / decay)
                                       * std::sin(2 * M_PI * frequency * time));
    }
    return frames;
}

} // namespace

ClickSound::ClickSound(int rate) : _accent(click(2000, 0.35, rate)), _beat(click(1500, 0.25, rate))
{
}

void ClickSound::strike(bool isBarStart) noexcept
{
    _sounding = isBarStart ? &_accent : &_beat;
    _next = 0;
}

void ClickSound::add(float *frames, std::int64_t count) noexcept
{
    if (_sounding == nullptr)
        return;
    const auto part = std::min(static_cast<std::size_t>(count), _sounding->size() - _next);
    for (std::size_t i = 0; i < part; ++i, ++_next)
        for (std::size_t side = 0; side < 2; ++side)
            frames[2 * i + side] += (*_sounding)[_next];
    if (_next == _sounding->size())
        _sounding = nullptr;
}

} // namespace Halvec::audio
