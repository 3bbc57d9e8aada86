// SPDX-License-Identifier: MIT
#include <filesystem/DiskFileSystem.h>
#include <filesystem/RAMFileSystem.h>

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <random>
#include <thread>

namespace {

using filesystem::FileHandle;
using filesystem::FileSystem;
using filesystem::OpenMode;

class DiskPlace {
public:
    FileSystem &files() { return _files; }
    std::string path(const std::string &name) const
    {
        return _folder.path().toStdString() + "/" + name;
    }

private:
    QTemporaryDir _folder;
    filesystem::DiskFileSystem _files;
};

class RAMPlace {
public:
    FileSystem &files() { return _files; }
    std::string path(const std::string &name) const { return "/" + name; }

private:
    filesystem::RAMFileSystem _files;
};

/// What every file system promises.
template <typename Place>
class AnyFileSystem : public testing::Test {
protected:
    FileSystem &files() { return _place.files(); }
    std::string path(const std::string &name) { return _place.path(name); }

    bool save(const std::string &name, const std::string &text)
    {
        const auto file = files().open(path(name), OpenMode::Write);
        return file != nullptr
            && file->writeBlock(text.data(), static_cast<std::int64_t>(text.size()))
            && file->close();
    }

    std::string load(const std::string &name)
    {
        const auto file = files().open(path(name), OpenMode::Read);
        if (file == nullptr)
            return "(none)";
        std::string text(static_cast<std::size_t>(file->size()), '?');
        EXPECT_TRUE(file->readBlock(text.data(), file->size()));
        return text;
    }

    Place _place;
};

using Places = testing::Types<DiskPlace, RAMPlace>;
TYPED_TEST_SUITE(AnyFileSystem, Places);

TYPED_TEST(AnyFileSystem, numbersAndBlocksRoundTripLowByteFirst)
{
    auto file = this->files().open(this->path("n"), OpenMode::Write);
    for (const int number : {0, 1, -1, 32767, -32768, 0x1234})
        EXPECT_TRUE(file->writeShort(static_cast<std::int16_t>(number)));
    EXPECT_TRUE(file->writeByte(200));
    EXPECT_TRUE(file->writeBlock(nullptr, 0));
    EXPECT_EQ(file->size(), 13);
    EXPECT_TRUE(file->seek(2));
    EXPECT_TRUE(file->writeShort(2));
    EXPECT_EQ(file->position(), 4);
    EXPECT_EQ(file->size(), 13) << "writing inside replaces";
    EXPECT_TRUE(file->close());

    file = this->files().open(this->path("n"), OpenMode::Read);
    for (const int number : {0, 2, -1, 32767, -32768, 0x1234}) {
        std::int16_t value = 99;
        EXPECT_TRUE(file->readShort(value));
        EXPECT_EQ(value, number);
    }
    std::uint8_t byte = 0;
    EXPECT_TRUE(file->seek(10) && file->readByte(byte));
    EXPECT_EQ(byte, 0x34);
    EXPECT_TRUE(file->seek(12) && file->readByte(byte));
    EXPECT_EQ(byte, 200);
    EXPECT_EQ(file->readSome(&byte, 1), 0) << "the end is no error for readSome";
    EXPECT_FALSE(file->hasError());
    EXPECT_FALSE(file->readByte(byte));
    EXPECT_NE(file->errorText().find("n: ends at byte 13"), std::string::npos) << file->errorText();
    EXPECT_FALSE(file->seek(0)) << "the first error stays";
    EXPECT_FALSE(file->close());
}

TYPED_TEST(AnyFileSystem, theOldFileStaysWholeUntilTheNewOneIsComplete)
{
    EXPECT_TRUE(this->save("doc", "old"));
    {
        const auto dropped = this->files().open(this->path("doc"), OpenMode::Write);
        EXPECT_TRUE(dropped->writeBlock("new content", 11));
        EXPECT_EQ(this->load("doc"), "old");
    }
    EXPECT_EQ(this->load("doc"), "old");
    {
        const auto failed = this->files().open(this->path("doc"), OpenMode::Write);
        EXPECT_TRUE(failed->writeBlock("new", 3));
        EXPECT_FALSE(failed->seek(4));
        EXPECT_FALSE(failed->close()) << "after an error nothing is saved";
    }
    EXPECT_EQ(this->load("doc"), "old");
    EXPECT_EQ(this->files().list(this->path("")), std::vector<std::string>{"doc"}) << "no litter";
    EXPECT_TRUE(this->save("doc", "n"));
    EXPECT_EQ(this->load("doc"), "n");
}

TYPED_TEST(AnyFileSystem, handlesKeepToTheirModeAndStayClosed)
{
    this->save("f", "ab");
    std::uint8_t byte = 0;
    const auto reader = this->files().open(this->path("f"), OpenMode::Read);
    EXPECT_FALSE(reader->writeByte(1));
    EXPECT_NE(reader->errorText().find("open for reading"), std::string::npos);
    const auto writer = this->files().open(this->path("g"), OpenMode::Write);
    EXPECT_FALSE(writer->readByte(byte));
    EXPECT_NE(writer->errorText().find("open for writing"), std::string::npos);
    const auto closed = this->files().open(this->path("f"), OpenMode::Read);
    EXPECT_TRUE(closed->close());
    EXPECT_FALSE(closed->hasError());
    EXPECT_EQ(closed->readSome(&byte, 1), 0);
    EXPECT_FALSE(closed->close());
    EXPECT_NE(closed->errorText().find("closed"), std::string::npos);
    EXPECT_EQ(this->load("f"), "ab");
}

TYPED_TEST(AnyFileSystem, refusalsNameTheFileAndTheReason)
{
    auto &files = this->files();
    EXPECT_TRUE(files.makeFolder(this->path("folder")));
    EXPECT_TRUE(this->save("file", "x"));
    const auto complains = [](bool refused, std::string &error, const std::string &name) {
        const bool isNamed = error.find(name) != std::string::npos
            && error.find(": ") != std::string::npos && error.size() > name.size() + 4;
        const bool isGood = refused && isNamed;
        EXPECT_TRUE(isGood) << name << " -> " << error;
        error.clear();
        return isGood;
    };
    std::string error;
    const auto cannotOpen = [&](const std::string &name, OpenMode mode) {
        const bool refused = files.open(this->path(name), mode, &error) == nullptr;
        return complains(refused, error, name);
    };
    EXPECT_TRUE(cannotOpen("missing", OpenMode::Read));
    EXPECT_TRUE(cannotOpen("folder", OpenMode::Read));
    EXPECT_TRUE(cannotOpen("folder", OpenMode::Write));
    EXPECT_TRUE(cannotOpen("nowhere/file", OpenMode::Write));
    EXPECT_TRUE(cannotOpen("file/below", OpenMode::Write));
    EXPECT_TRUE(complains(!files.remove(this->path("missing"), &error), error, "missing"));
    EXPECT_TRUE(complains(!files.remove(this->path("folder"), &error), error, "folder"));
    EXPECT_TRUE(complains(!files.rename(this->path("missing"), this->path("file"), &error), error,
                          "missing"));
    EXPECT_TRUE(
        complains(!files.rename(this->path("folder"), this->path("f2"), &error), error, "folder"));
    EXPECT_FALSE(files.rename(this->path("file"), this->path("folder"), &error));
    EXPECT_FALSE(files.rename(this->path("file"), this->path("nowhere/file"), &error));
    EXPECT_TRUE(complains(!files.makeFolder(this->path("file/below"), &error), error, "file"));
    EXPECT_TRUE(complains(!files.makeFolder(this->path("file"), &error), error, "file"));
    EXPECT_EQ(this->load("file"), "x");
    EXPECT_FALSE(files.remove(this->path("missing"))) << "the error may be left out";
}

TYPED_TEST(AnyFileSystem, foldersAndNames)
{
    auto &files = this->files();
    EXPECT_TRUE(files.makeFolder(this->path("a/b/c")));
    EXPECT_TRUE(files.makeFolder(this->path("a/b/c/"))) << "it stands already";
    EXPECT_TRUE(files.isFolder(this->path("a/b")));
    EXPECT_FALSE(files.exists(this->path("a/x")));
    EXPECT_TRUE(this->save("a/\xC3\xA9\xE2\x82\xAC", "1"));
    EXPECT_TRUE(this->save("a/.hidden", "2"));
    EXPECT_TRUE(this->save("a/B", "3"));
    EXPECT_EQ(files.list(this->path("a")),
              (std::vector<std::string>{".hidden", "B", "b", "\xC3\xA9\xE2\x82\xAC"}));
    EXPECT_TRUE(files.list(this->path("a/x")).empty());
    EXPECT_TRUE(files.rename(this->path("a/B"), this->path("a/.hidden")));
    EXPECT_EQ(this->load("a/.hidden"), "3");
    EXPECT_FALSE(files.exists(this->path("a/B")));
    EXPECT_TRUE(files.rename(this->path("a/.hidden"), this->path("a/.hidden")));
    EXPECT_EQ(this->load("a/b/../.hidden"), "3");
    EXPECT_TRUE(files.remove(this->path("a/.hidden")));
    EXPECT_FALSE(files.exists(this->path("a/.hidden")));
}

TYPED_TEST(AnyFileSystem, aReaderKeepsItsFileWhenItIsReplacedOrRemoved)
{
    this->save("doc", "first");
    const auto first = this->files().open(this->path("doc"), OpenMode::Read);
    this->save("doc", "second");
    const auto second = this->files().open(this->path("doc"), OpenMode::Read);
    this->files().remove(this->path("doc"));
    std::string text(5, '?');
    EXPECT_TRUE(first->readBlock(text.data(), 5));
    EXPECT_EQ(text, "first");
    text.resize(6);
    EXPECT_TRUE(second->readBlock(text.data(), 6));
    EXPECT_EQ(text, "second");
}

TYPED_TEST(AnyFileSystem, randomWritesEqualAPlainBuffer)
{
    std::mt19937 random(3);
    const auto file = this->files().open(this->path("r"), OpenMode::Write);
    std::string expected;
    for (int step = 0; step < 500; ++step) {
        if (random() % 3 == 0) {
            ASSERT_TRUE(file->seek(static_cast<std::int64_t>(random() % (expected.size() + 1))));
        }
        const auto at = static_cast<std::size_t>(file->position());
        const std::string block(random() % 3000, static_cast<char>('a' + random() % 26));
        ASSERT_TRUE(file->writeBlock(block.data(), static_cast<std::int64_t>(block.size())));
        expected.replace(at, std::min(block.size(), expected.size() - at), block);
        ASSERT_EQ(file->size(), static_cast<std::int64_t>(expected.size()));
    }
    ASSERT_TRUE(file->close());
    EXPECT_EQ(this->load("r"), expected);
}

TYPED_TEST(AnyFileSystem, threadsSaveAndReadOneFile)
{
    this->save("shared", std::string(1000, '0'));
    const auto work = [this](char letter) {
        for (int i = 0; i < 50; ++i) {
            EXPECT_TRUE(this->save("shared", std::string(1000, letter)));
            const auto text = this->load("shared");
            EXPECT_EQ(text, std::string(1000, text[0])) << "never half of a file";
        }
    };
    std::thread other([&work] { work('1'); });
    work('2');
    other.join();
    EXPECT_EQ(this->files().list(this->path("")), std::vector<std::string>{"shared"});
}

} // namespace
