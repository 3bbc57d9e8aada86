// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnAudio/ZarnAudioDecoder.h>
#include <ZarnAudio/ZarnAudioExport.h>
#include <ZarnAudio/ZarnSampleUse.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

namespace streams {
class MemoryHeap;
}

namespace Halvec::audio {

/// Samples that are decoded in the background, on a thread of the cache's own, into memory of a
/// fixed budget. When that is full, those go that nobody uses, the longest unused first.
///
/// Everything here is for the threads that control and prepare; an audio thread has the
/// `SampleUse`s that it was given.
class ZARNAUDIO_EXPORT SampleCache {
public:
    /// Opens the file of a sample, on the cache's thread; null with the reason.
    using Opener = std::function<std::unique_ptr<AudioDecoder>(std::string *error)>;

    /// The heap lives longer than the cache.
    explicit SampleCache(streams::MemoryHeap &heap);

    /// Stops loading. All uses are gone by then.
    ~SampleCache();
    SampleCache(const SampleCache &) = delete;
    SampleCache &operator=(const SampleCache &) = delete;

    /// The sample of a key, such as a bank's path and the file in it, which is loaded unless it is
    /// there. Answers at once; what failed before and is not used any more is tried again.
    SampleUse use(const std::string &key, Opener open);

    /// Waits until everything that was asked for has been loaded or has failed.
    void waitUntilLoaded() const;

    /// Samples that are there, and how often one was loaded and given up so far.
    std::size_t size() const;
    std::size_t loads() const;
    std::size_t evictions() const;

private:
    class Loader;
    std::unique_ptr<Loader> _loader;
};

} // namespace Halvec::audio
