// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnAudio/ZarnAudioExport.h>

#include <string>
#include <utility>

namespace Halvec::audio {

class SampleData;
struct CachedSample;

enum class SampleState { Loading, Ready, Failed };

/// Holds a sample in its cache. Everything here, copying and giving up too, neither allocates nor
/// frees, locks or waits, so that an audio thread may do it. Gone before its cache.
class ZARNAUDIO_EXPORT SampleUse {
public:
    /// Of nothing.
    SampleUse() noexcept = default;
    SampleUse(const SampleUse &other) noexcept;
    SampleUse(SampleUse &&other) noexcept : _sample(std::exchange(other._sample, nullptr)) { }
    SampleUse &operator=(SampleUse other) noexcept
    {
        std::swap(_sample, other._sample);
        return *this;
    }
    ~SampleUse();

    explicit operator bool() const noexcept { return _sample != nullptr; }

    /// `Failed` for a use of nothing.
    SampleState state() const noexcept;

    /// Null unless the sample is ready; valid as long as it is used.
    const SampleData *data() const noexcept;

    /// Why a sample failed; allocates.
    std::string errorText() const;

private:
    friend class SampleCache;
    explicit SampleUse(CachedSample *sample) noexcept;

    CachedSample *_sample = nullptr;
};

} // namespace Halvec::audio
