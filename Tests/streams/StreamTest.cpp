// SPDX-License-Identifier: MIT
// Whatever a stream reads from, it holds to its bounds and keeps its first error.
#include <filesystem/RAMFileSystem.h>
#include <streams/FileStream.h>
#include <streams/MemoryHeap.h>
#include <streams/MemoryStream.h>
#include <streams/PartStream.h>
#include <streams/ZipArchive.h>
#include <streams/ZipArchiveWriter.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <random>
#include <thread>
#include <vector>

namespace {

using namespace streams;

std::string randomBytes(std::size_t count)
{
    std::mt19937 random(7);
    std::string bytes(count, '\0');
    for (char &byte : bytes)
        byte = static_cast<char>(random() & 0xFF);
    return bytes;
}

void put(filesystem::RAMFileSystem &files, const std::string &path, const std::string &bytes)
{
    const auto handle = files.open(path, filesystem::OpenMode::Write);
    handle->writeBlock(bytes.data(), static_cast<std::int64_t>(bytes.size()));
    ASSERT_TRUE(handle->close());
}

/// The same bytes as every kind of stream.
class EveryStream : public ::testing::Test {
protected:
    void forEach(const std::function<void(Stream &)> &test)
    {
        filesystem::RAMFileSystem files;
        put(files, "whole", bytes);
        put(files, "more", "before" + bytes + "behind");
        {
            const auto handle = files.open("zip", filesystem::OpenMode::Write);
            ZipArchiveWriter writer(*handle);
            writer.add("stored", bytes, ZipArchiveWriter::Packing::Stored);
            writer.add("deflated", bytes, ZipArchiveWriter::Packing::Deflated);
            ASSERT_TRUE(writer.finish()) << writer.errorText();
            ASSERT_TRUE(handle->close());
        }
        const auto open = [&](const char *name) {
            return std::make_unique<FileStream>(files.open(name, filesystem::OpenMode::Read));
        };
        const auto zip = ZipArchive::open(open("zip"), nullptr);
        ASSERT_TRUE(zip);
        const auto count = static_cast<std::int64_t>(bytes.size());
        const std::shared_ptr<Stream> all = open("more");
        std::vector<std::unique_ptr<Stream>> streams;
        streams.push_back(open("whole"));
        streams.push_back(std::make_unique<MemoryStream>("memory", bytes));
        streams.push_back(MemoryStream::over("view", bytes));
        streams.push_back(std::make_unique<PartStream>("part", all, 6, count));
        streams.push_back(zip->openMember(zip->members().at(0), nullptr));
        streams.push_back(zip->openMember(zip->members().at(1), nullptr));
        for (const auto &stream : streams) {
            SCOPED_TRACE(stream->name());
            all->seek(3); // the part does not depend on where others are
            test(*stream);
        }
    }

    const std::string bytes = randomBytes(100'003);
};

TEST_F(EveryStream, readsTheSameBytesFromWhereverItIs)
{
    forEach([this](Stream &stream) {
        std::string found;
        ASSERT_EQ(stream.size(), static_cast<std::int64_t>(bytes.size()));
        EXPECT_TRUE(stream.readRest(found, stream.size())) << stream.errorText();
        EXPECT_TRUE(found == bytes);
        std::mt19937 random(11);
        for (int i = 0; i < 300; ++i) {
            const auto at = random() % (bytes.size() + 1);
            const auto count = random() % 3000;
            found.assign(count, '\0');
            ASSERT_TRUE(stream.seek(static_cast<std::int64_t>(at)));
            const auto read = stream.readSome(&found[0], static_cast<std::int64_t>(count));
            ASSERT_EQ(read, static_cast<std::int64_t>(std::min(count, bytes.size() - at)));
            ASSERT_EQ(found.substr(0, static_cast<std::size_t>(read)), bytes.substr(at, count));
            ASSERT_EQ(stream.position(), static_cast<std::int64_t>(at) + read);
        }
        EXPECT_FALSE(stream.hasError()) << stream.errorText();
    });
}

TEST_F(EveryStream, keepsToItsBoundsAndToItsFirstError)
{
    constexpr auto far = std::int64_t(INT64_MAX);
    forEach([&](Stream &stream) {
        char byte = 'x';
        ASSERT_TRUE(stream.seek(stream.size()));
        EXPECT_EQ(stream.readSome(&byte, 1), 0);
        EXPECT_FALSE(stream.hasError()) << "the end is no error";
        ASSERT_TRUE(stream.seek(5));
        EXPECT_FALSE(stream.readBlock(&byte, far));
        EXPECT_EQ(byte, 'x');
        const std::string first = stream.errorText();
        EXPECT_EQ(first.find(stream.name() + ": ends at byte 100003"), 0u) << first;
        EXPECT_FALSE(stream.seek(0));
        EXPECT_EQ(stream.readSome(&byte, 1), 0);
        EXPECT_EQ(stream.errorText(), first);
    });
    for (const auto to : {std::int64_t(-1), std::int64_t(100'004), far})
        forEach([to](Stream &stream) {
            EXPECT_FALSE(stream.seek(to));
            EXPECT_NE(stream.errorText().find("cannot move to byte"), std::string::npos);
        });
    forEach([](Stream &stream) {
        std::string found = "untouched";
        EXPECT_FALSE(stream.readRest(found, 100'002));
        EXPECT_EQ(found, "untouched");
    });
}

TEST(PartStream, refusesBoundsOutsideOfTheWhole)
{
    const std::shared_ptr<Stream> whole = std::make_shared<MemoryStream>("whole", "0123456789");
    constexpr auto far = std::int64_t(INT64_MAX);
    for (const auto &[start, count] : {std::pair<std::int64_t, std::int64_t>{-1, 2},
                                       {0, 11},
                                       {11, 0},
                                       {5, far},
                                       {far, far},
                                       {2, -1}}) {
        PartStream part("part", whole, start, count);
        EXPECT_EQ(part.size(), 0);
        EXPECT_NE(part.errorText().find("part: bytes"), std::string::npos);
    }
    EXPECT_FALSE(whole->hasError());
    PartStream end("end", whole, 10, 0);
    EXPECT_FALSE(end.hasError());
}

TEST(MemoryHeap, refusesWhatGoesOverItsBudgetAndCountsIt)
{
    MemoryHeap heap(1000);
    {
        std::pmr::vector<char> some(600, 'a', &heap);
        EXPECT_EQ(heap.used(), 600u);
        EXPECT_THROW(std::pmr::vector<char>(401, 'b', &heap), std::bad_alloc);
        volatile std::size_t endless = SIZE_MAX; // which compilers refuse as a constant
        EXPECT_THROW(static_cast<void>(heap.allocate(endless)), std::bad_alloc);
        std::pmr::vector<char> rest(400, 'c', &heap);
        EXPECT_EQ(heap.room(), 0u);
    }
    EXPECT_EQ(heap.used(), 0u);
    EXPECT_EQ(heap.peak(), 1000u);
    EXPECT_EQ(heap.allocations(), 2u);
    EXPECT_EQ(heap.refusals(), 2u);
    EXPECT_THROW(static_cast<void>(MemoryHeap(100, std::pmr::null_memory_resource()).allocate(1)),
                 std::bad_alloc);
}

TEST(MemoryHeap, threadsTogetherStayWithinTheBudget)
{
    MemoryHeap heap(10'000);
    const auto work = [&heap](unsigned seed) {
        std::mt19937 random(seed);
        for (int i = 0; i < 20'000; ++i) {
            const auto size = 1 + random() % 6000;
            try {
                heap.deallocate(heap.allocate(size), size);
            } catch (const std::bad_alloc &) {
            }
        }
    };
    std::thread first(work, 1);
    std::thread second(work, 2);
    first.join();
    second.join();
    EXPECT_EQ(heap.used(), 0u);
    EXPECT_LE(heap.peak(), heap.budget());
    EXPECT_EQ(heap.allocations() + heap.refusals(), 40'000u);
}

} // namespace
