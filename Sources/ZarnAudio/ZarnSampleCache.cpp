// SPDX-License-Identifier: MIT
#include <ZarnAudio/ZarnSampleCache.h>

#include <ZarnAudio/CachedSample.h>
#include <streams/MemoryHeap.h>

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <list>
#include <mutex>
#include <new>
#include <thread>
#include <unordered_map>
#include <vector>

namespace Halvec::audio {

class SampleCache::Loader {
public:
    explicit Loader(streams::MemoryHeap &heap) : _heap(heap), _thread([this] { run(); }) { }

    ~Loader()
    {
        {
            const std::lock_guard<std::mutex> lock(_mutex);
            _isStopping = true;
        }
        _changed.notify_all();
        _thread.join();
    }
    Loader(const Loader &) = delete;
    Loader &operator=(const Loader &) = delete;

    SampleUse use(const std::string &key, Opener open)
    {
        const std::lock_guard<std::mutex> lock(_mutex);
        const auto found = _places.find(key);
        if (found == _places.end()) {
            _samples.emplace_front();
            auto &sample = _samples.front();
            sample.key = key;
            sample.open = std::move(open);
            _places[key] = _samples.begin();
            queue(sample);
            return SampleUse(&sample);
        }
        // The front is what was asked for last.
        _samples.splice(_samples.begin(), _samples, found->second);
        auto &sample = _samples.front();
        if (sample.state.load(std::memory_order_acquire) == SampleState::Failed
            && sample.users.load(std::memory_order_acquire) == 0) {
            sample.open = std::move(open);
            sample.state.store(SampleState::Loading, std::memory_order_relaxed);
            queue(sample);
        }
        return SampleUse(&sample);
    }

    void waitUntilLoaded()
    {
        std::unique_lock<std::mutex> lock(_mutex);
        _changed.wait(lock, [this] { return _queue.empty() && !_isLoading; });
    }

    struct Counts {
        std::size_t size;
        std::size_t loads;
        std::size_t evictions;
    };
    Counts counts()
    {
        const std::lock_guard<std::mutex> lock(_mutex);
        const auto isReady = [](const CachedSample &sample) {
            return sample.state.load(std::memory_order_relaxed) == SampleState::Ready;
        };
        const auto size = std::count_if(_samples.begin(), _samples.end(), isReady);
        return {static_cast<std::size_t>(size), _loads, _evictions};
    }

private:
    /// Under the lock.
    void queue(CachedSample &sample)
    {
        _queue.push_back(&sample);
        _changed.notify_all();
    }

    void run()
    {
        std::unique_lock<std::mutex> lock(_mutex);
        for (;;) {
            _changed.wait(lock, [this] { return _isStopping || !_queue.empty(); });
            if (_isStopping)
                return;
            CachedSample &sample = *_queue.front();
            _queue.pop_front();
            _isLoading = true;
            lock.unlock();
            std::string error;
            auto data = load(sample, error);
            lock.lock();
            const bool isLoaded = data != nullptr;
            _loads += isLoaded ? 1 : 0;
            sample.data = std::move(data);
            sample.error = std::move(error);
            sample.open = nullptr;
            sample.state.store(isLoaded ? SampleState::Ready : SampleState::Failed,
                               std::memory_order_release);
            _isLoading = false;
            _changed.notify_all();
        }
    }

    std::unique_ptr<const SampleData> load(CachedSample &sample, std::string &error)
    try {
        const auto decoder = sample.open(&error);
        if (decoder == nullptr)
            return nullptr;
        const auto needed = SampleData::bytesFor(decoder->frames(), decoder->channels());
        if (!makeRoom(needed)) {
            error = decoder->name() + ": needs " + std::to_string(needed)
                + " bytes of sample memory, of which " + std::to_string(_heap.room()) + " are left";
            return nullptr;
        }
        auto data = std::make_unique<SampleData>(decoder->frames(), decoder->channels(),
                                                 decoder->rate(), &_heap);
        constexpr std::int64_t blockValues = 1 << 16;
        const auto blockFrames = blockValues / decoder->channels();
        std::vector<float> block(static_cast<std::size_t>(blockValues));
        while (const auto count = decoder->read(block.data(), blockFrames))
            data->write(decoder->position() - count, block.data(), count);
        error = decoder->errorText();
        if (error.empty())
            return data;
        return nullptr;
    } catch (const std::bad_alloc &) {
        error = sample.key + ": there is not enough memory for the sample";
        return nullptr;
    } catch (const std::exception &problem) {
        error = sample.key + ": " + problem.what();
        return nullptr;
    }

    /// Gives up what nobody uses, from the back on, until there is room.
    bool makeRoom(std::size_t bytes)
    {
        if (bytes > _heap.budget())
            return false;
        const std::lock_guard<std::mutex> lock(_mutex);
        auto room = _heap.room();
        for (auto place = _samples.end(); room < bytes && place != _samples.begin();) {
            --place;
            if (place->users.load(std::memory_order_acquire) != 0
                || place->state.load(std::memory_order_relaxed) != SampleState::Ready)
                continue;
            room += SampleData::bytesFor(place->data->frames(), place->data->channels());
            _places.erase(place->key);
            place = _samples.erase(place);
            ++_evictions;
        }
        return _heap.room() >= bytes;
    }

    streams::MemoryHeap &_heap;
    std::mutex _mutex;
    std::condition_variable _changed;
    std::list<CachedSample> _samples;
    std::unordered_map<std::string, std::list<CachedSample>::iterator> _places;
    std::deque<CachedSample *> _queue;
    bool _isLoading = false;
    bool _isStopping = false;
    std::size_t _loads = 0;
    std::size_t _evictions = 0;
    std::thread _thread; ///< begins last, when all that it uses is there
};

SampleCache::SampleCache(streams::MemoryHeap &heap) : _loader(std::make_unique<Loader>(heap)) { }

SampleCache::~SampleCache() = default;

SampleUse SampleCache::use(const std::string &key, Opener open)
{
    return _loader->use(key, std::move(open));
}

void SampleCache::waitUntilLoaded() const
{
    _loader->waitUntilLoaded();
}

std::size_t SampleCache::size() const
{
    return _loader->counts().size;
}

std::size_t SampleCache::loads() const
{
    return _loader->counts().loads;
}

std::size_t SampleCache::evictions() const
{
    return _loader->counts().evictions;
}

} // namespace Halvec::audio
