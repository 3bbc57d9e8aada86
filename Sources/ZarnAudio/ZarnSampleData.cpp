// SPDX-License-Identifier: MIT
#include <ZarnAudio/ZarnSampleData.h>

#include <algorithm>
#include <cmath>

namespace Halvec::audio {

namespace {

/// Values of all channels with the silence around them.
std::size_t valuesOf(std::int64_t frames, int channels) noexcept
{
    return static_cast<std::size_t>(channels)
        * static_cast<std::size_t>(frames + SampleData::lead + SampleData::tail);
}

} // namespace

std::size_t SampleData::bytesFor(std::int64_t frames, int channels) noexcept
{
    constexpr std::int64_t countable = INT64_MAX / 1024;
    if (frames > countable)
        return SIZE_MAX;
    return valuesOf(frames, channels) * (sizeof(std::int16_t) + sizeof(std::uint8_t));
}

SampleData::SampleData(std::int64_t frames, int channels, int rate,
                       std::pmr::memory_resource *memory)
    : _frames(frames), _channels(channels), _rate(rate),
      _upper(valuesOf(frames, channels), 0, memory), _lower(valuesOf(frames, channels), 0, memory)
{
}

SampleData::~SampleData() = default;

void SampleData::write(std::int64_t first, const float *frames, std::int64_t count) noexcept
{
    constexpr float fullScale = 8388608;
    constexpr long highest = 8388607;
    for (int channel = 0; channel < _channels; ++channel) {
        auto at = start(channel) + static_cast<std::size_t>(first);
        for (std::int64_t i = 0; i < count; ++i, ++at) {
            const float value = frames[i * _channels + channel];
            const float bounded = value >= -1.0F ? std::min(value, 1.0F) : value < 0 ? -1.0F : 0.0F;
            const long whole = std::min(std::lrint(bounded * fullScale), highest);
            _upper[at] = static_cast<std::int16_t>(whole >> 8);
            _lower[at] = static_cast<std::uint8_t>(whole & 0xFF);
        }
    }
}

} // namespace Halvec::audio
