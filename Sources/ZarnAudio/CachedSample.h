// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnAudio/ZarnSampleCache.h>
#include <ZarnAudio/ZarnSampleData.h>
#include <ZarnAudio/ZarnSampleUse.h>

#include <atomic>
#include <memory>
#include <string>

namespace Halvec::audio {

/// A place of a cache. The loader writes `data` and `error` before it stores the state; who has
/// read the state may read them.
///
/// `users` grows from 0 under the cache's lock alone, so that a place without users, seen under the
/// lock, stays without.
struct CachedSample {
    std::string key;
    SampleCache::Opener open;
    std::unique_ptr<const SampleData> data;
    std::string error;
    std::atomic<SampleState> state{SampleState::Loading};
    std::atomic<int> users{0};
};

} // namespace Halvec::audio
