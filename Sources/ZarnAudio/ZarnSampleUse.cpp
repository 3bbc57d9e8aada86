// SPDX-License-Identifier: MIT
#include <ZarnAudio/ZarnSampleUse.h>

#include <ZarnAudio/CachedSample.h>

namespace Halvec::audio {

static_assert(std::atomic<int>::is_always_lock_free
              && std::atomic<SampleState>::is_always_lock_free);

SampleUse::SampleUse(CachedSample *sample) noexcept : _sample(sample)
{
    if (_sample != nullptr)
        _sample->users.fetch_add(1, std::memory_order_relaxed);
}

SampleUse::SampleUse(const SampleUse &other) noexcept : SampleUse(other._sample) { }

SampleUse::~SampleUse()
{
    // What this use has read comes before what is done with the place afterwards.
    if (_sample != nullptr)
        _sample->users.fetch_sub(1, std::memory_order_release);
}

SampleState SampleUse::state() const noexcept
{
    return _sample == nullptr ? SampleState::Failed
                              : _sample->state.load(std::memory_order_acquire);
}

const SampleData *SampleUse::data() const noexcept
{
    return state() == SampleState::Ready ? _sample->data.get() : nullptr;
}

std::string SampleUse::errorText() const
{
    if (_sample == nullptr)
        return "there is no sample";
    return state() == SampleState::Failed ? _sample->error : std::string();
}

} // namespace Halvec::audio
