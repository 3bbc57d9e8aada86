// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnAudio/ZarnAudioExport.h>

#include <cstddef>
#include <cstdint>
#include <memory_resource>
#include <vector>

namespace Halvec::audio {

/// The decoded frames of a sample, in 24 bits: one plane of the upper 16 and one of the lower 8 for
/// each channel, as wavetable synthesizers take them. Does not change once it is filled, and may be
/// read from any thread.
class ZARNAUDIO_EXPORT SampleData {
public:
    /// Frames of silence in front of each channel, from which a synthesizer that works in blocks
    /// can start to meet a frame exactly, and behind it, for interpolation.
    static constexpr std::int64_t lead = 1024;
    static constexpr std::int64_t tail = 8;

    /// Bytes that a sample takes; more than anyone has for one that is too large to count.
    static std::size_t bytesFor(std::int64_t frames, int channels) noexcept;

    /// Silence. Raises `std::bad_alloc` when the memory refuses it.
    SampleData(std::int64_t frames, int channels, int rate, std::pmr::memory_resource *memory);
    ~SampleData();
    SampleData(const SampleData &) = delete;
    SampleData &operator=(const SampleData &) = delete;

    std::int64_t frames() const noexcept { return _frames; }
    int channels() const noexcept { return _channels; }
    int rate() const noexcept { return _rate; }

    /// The first frame of a channel; `lead` silent ones lie before it and `tail` behind the last
    /// one.
    const std::int16_t *upper(int channel) const noexcept { return &_upper[start(channel)]; }
    const std::uint8_t *lower(int channel) const noexcept { return &_lower[start(channel)]; }

    /// 1.0 for full scale.
    float value(int channel, std::int64_t frame) const noexcept
    {
        const auto at = start(channel) + static_cast<std::size_t>(frame);
        return static_cast<float>(_upper[at] * 256 + _lower[at]) / 8388608.0F;
    }

    /// Fills in frames from `first` on, interleaved; what is over full scale is cut.
    void write(std::int64_t first, const float *frames, std::int64_t count) noexcept;

private:
    std::size_t start(int channel) const noexcept
    {
        return static_cast<std::size_t>(channel * (_frames + lead + tail) + lead);
    }

    std::int64_t _frames;
    int _channels;
    int _rate;
    std::pmr::vector<std::int16_t> _upper;
    std::pmr::vector<std::uint8_t> _lower;
};

} // namespace Halvec::audio
