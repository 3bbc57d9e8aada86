// SPDX-License-Identifier: MIT
#include "HeapCalls.h"
#include "Sounds.h"

#include <ZarnAudio/ZarnSampleCache.h>
#include <ZarnAudio/ZarnSampleData.h>
#include <streams/MemoryHeap.h>

#include <atomic>
#include <thread>

namespace {

using namespace sounds;
using Encoding = AudioFormat::Encoding;
using File = AudioFormat::File;

constexpr std::int64_t frameCount = 1000;

/// Bytes of a sample of one channel in the cache: 24 bits a frame, with the silence around it.
constexpr std::size_t sampleBytes = (frameCount + SampleData::lead + SampleData::tail) * 3;

SampleCache::Opener opening(const std::string &bytes)
{
    return [bytes](std::string *error) { return decoder(bytes, error); };
}

class SampleCaches : public ::testing::Test {
protected:
    SampleUse use(SampleCache &cache, const std::string &key)
    {
        auto taken = cache.use(key, opening(_wav));
        cache.waitUntilLoaded();
        return taken;
    }

    const std::vector<float> _frames = tones(frameCount, 1);
    const std::string _wav = encoded(_frames, format(File::Wav, Encoding::Pcm24, 1));
};

TEST_F(SampleCaches, decodeInTheBackgroundAndShareWhatTheyHave)
{
    streams::MemoryHeap heap(1 << 20);
    SampleCache cache(heap);
    const auto first = use(cache, "a");
    ASSERT_EQ(first.state(), SampleState::Ready) << first.errorText();
    const auto *const data = first.data();
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(use(cache, "a").data(), data);
    EXPECT_EQ(cache.loads(), 1u);
    EXPECT_EQ(data->frames(), frameCount);
    EXPECT_EQ(data->rate(), 44100);
    for (std::int64_t i = 0; i < frameCount; ++i)
        ASSERT_NEAR(data->value(0, i), _frames[static_cast<std::size_t>(i)], 2e-7);
    for (std::int64_t i = 1; i <= SampleData::lead; ++i)
        EXPECT_EQ(data->upper(0)[-i], 0);
    for (std::int64_t i = 0; i < SampleData::tail; ++i)
        EXPECT_EQ(data->lower(0)[frameCount + i], 0);
    EXPECT_EQ(heap.used(), sampleBytes);
}

TEST_F(SampleCaches, giveUpWhatWasNotUsedForLongestAndNothingThatIsUsed)
{
    streams::MemoryHeap heap(3 * sampleBytes + 100);
    SampleCache cache(heap);
    const auto kept = use(cache, "kept");
    const auto *const data = kept.data();
    use(cache, "old");
    use(cache, "new");
    use(cache, "old"); // now "new" is the oldest that nobody uses
    EXPECT_EQ(use(cache, "more").state(), SampleState::Ready);
    EXPECT_EQ(cache.evictions(), 1u);
    use(cache, "old");
    EXPECT_EQ(cache.loads(), 4u) << "the old one was asked for last and is still there";
    EXPECT_EQ(kept.data(), data);
    use(cache, "new");
    EXPECT_EQ(cache.loads(), 5u);
    EXPECT_LE(heap.peak(), heap.budget());
    EXPECT_EQ(heap.refusals(), 0u) << "room is made before memory is asked for";
}

TEST_F(SampleCaches, sayWhyASampleIsNotThere)
{
    streams::MemoryHeap heap(sampleBytes + 100);
    SampleCache cache(heap);
    const auto failed = [&cache](const std::string &bytes) {
        const auto taken = cache.use("sample", opening(bytes));
        cache.waitUntilLoaded();
        EXPECT_EQ(taken.state(), SampleState::Failed);
        EXPECT_EQ(taken.data(), nullptr);
        return taken.errorText();
    };
    EXPECT_NE(failed("no sound").find("is no WAV"), std::string::npos);
    EXPECT_NE(failed(_wav.substr(0, 500)).find("cut off at frame"), std::string::npos);
    EXPECT_EQ(heap.used(), 0u);
    {
        const auto kept = use(cache, "kept");
        EXPECT_NE(failed(_wav).find("bytes of sample memory, of which 100 are left"),
                  std::string::npos);
    }
    // Tried again when there is room.
    EXPECT_EQ(use(cache, "sample").state(), SampleState::Ready);
    // A header that claims 2^36 frames.
    std::string flac = encoded(_frames, format(File::Flac, Encoding::Pcm16, 1));
    flac[21] = static_cast<char>(flac[21] | 0x0F);
    const auto huge = cache.use("huge", opening(flac));
    cache.waitUntilLoaded();
    EXPECT_NE(huge.errorText().find("bytes of sample memory"), std::string::npos);
    EXPECT_EQ(heap.refusals(), 0u);
    EXPECT_EQ(SampleUse().state(), SampleState::Failed);
}

TEST_F(SampleCaches, anAudioThreadTakesNothingFromTheHeap)
{
    streams::MemoryHeap heap(4 * sampleBytes);
    SampleCache cache(heap);
    std::atomic<bool> isDone{false};
    std::atomic<std::size_t> heapCallsOfAudio{1};
    std::atomic<long> played{0};
    std::vector<SampleUse> handed;
    for (int i = 0; i < 4; ++i)
        handed.push_back(cache.use("sample " + std::to_string(i), opening(_wav)));
    std::thread audio([&] {
        const auto before = sounds::heapCalls();
        float sum = 0;
        do {
            for (const SampleUse &sample : handed) {
                SampleUse voice = sample;
                if (const auto *const data = voice.data()) {
                    sum += data->value(0, 3) + data->value(0, frameCount - 1);
                    played.fetch_add(1, std::memory_order_relaxed);
                }
            }
        } while (!isDone.load());
        for (SampleUse &sample : handed)
            sample = SampleUse(); // the last use of each goes here
        heapCallsOfAudio = sounds::heapCalls() - before + (std::isfinite(sum) ? 0 : 1);
    });
    for (int i = 0; i < 300; ++i)
        cache.use("other " + std::to_string(i % 7), opening(_wav));
    cache.waitUntilLoaded();
    isDone = true;
    audio.join();
    EXPECT_EQ(heapCallsOfAudio, 0u);
    EXPECT_GT(played, 0);
    // Now that nobody uses them, they make room.
    EXPECT_EQ(use(cache, "last").state(), SampleState::Ready);
    EXPECT_GT(cache.evictions(), 0u);
}

TEST_F(SampleCaches, manyThreadsMayAskAtOnce)
{
    streams::MemoryHeap heap(6 * sampleBytes);
    SampleCache cache(heap);
    const auto work = [&](unsigned seed) {
        std::mt19937 random(seed);
        for (int i = 0; i < 400; ++i) {
            const auto taken = cache.use(std::to_string(random() % 12), opening(_wav));
            if (const auto *const data = taken.data()) {
                EXPECT_NEAR(data->value(0, 5), _frames[5], 2e-7);
            }
        }
    };
    std::thread first(work, 1);
    std::thread second(work, 2);
    work(3);
    first.join();
    second.join();
    cache.waitUntilLoaded();
    EXPECT_LE(heap.peak(), heap.budget());
    EXPECT_EQ(heap.used(), cache.size() * sampleBytes);
}

} // namespace
