// SPDX-License-Identifier: MIT
#include <ZarnAudio/ZarnLimiter.h>

#include <algorithm>
#include <cmath>

namespace Halvec::audio {

namespace {

constexpr double lookAhead = 0.005;  ///< seconds
constexpr double releaseTime = 0.15; ///< seconds in which two thirds of the level come back

} // namespace

Limiter::Limiter(int rate, float ceiling)
    : _length(static_cast<std::size_t>(std::max(1.0, std::round(lookAhead * rate)))),
      _ceiling(ceiling), _recovery(1 - std::exp(-1 / (releaseTime * rate))),
      _delayed(2 * _length, 0.0F), _lows(_length + 1), _gains(_length, 1.0),
      _sum(static_cast<double>(_length))
{
}

Limiter::~Limiter() = default;

/// The lowest of the gains of the last `_length + 1` frames, this one included.
double Limiter::lowestAhead(double gain) noexcept
{
    const auto size = _lows.size();
    if (_lowCount > 0 && _lows[_lowStart].frame + size <= _frame) {
        _lowStart = (_lowStart + 1) % size;
        --_lowCount;
    }
    while (_lowCount > 0 && _lows[(_lowStart + _lowCount - 1) % size].gain >= gain)
        --_lowCount;
    _lows[(_lowStart + _lowCount) % size] = {gain, _frame};
    ++_lowCount;
    return _lows[_lowStart].gain;
}

void Limiter::process(float *frames, std::int64_t count) noexcept
{
    for (std::int64_t i = 0; i < count; ++i, ++_frame) {
        float *const frame = frames + 2 * i;
        const float peak = std::max(std::abs(frame[0]), std::abs(frame[1]));
        const double gain = peak > _ceiling ? static_cast<double>(_ceiling) / peak : 1.0;
        // Falls at once, rises slowly; the mean of the look-ahead makes a slope of the fall, whose
        // end is reached when the frame comes out for which it is.
        _held = std::min(lowestAhead(gain), _held + (1 - _held) * _recovery);
        const auto at = static_cast<std::size_t>(_frame % _length);
        _sum += _held - _gains[at];
        _gains[at] = _held;
        const double mean = std::min(1.0, _sum / static_cast<double>(_length));
        _lowest = std::min(_lowest, mean);
        for (std::size_t side = 0; side < 2; ++side) {
            const auto out =
                static_cast<float>(static_cast<double>(_delayed[2 * at + side]) * mean);
            _delayed[2 * at + side] = frame[side];
            frame[side] = std::clamp(out, -_ceiling, _ceiling);
        }
    }
}

} // namespace Halvec::audio
