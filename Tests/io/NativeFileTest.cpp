// SPDX-License-Identifier: MIT
#include <support/NativeDocument.h>
#include <support/RandomScore.h>

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/io/ZarnScoreText.h>

#include <gtest/gtest.h>

#include <cctype>
#include <fstream>
#include <iterator>
#include <regex>

using namespace zarn;
using filesystem::OpenMode;

namespace {

/// A medium that is full after some bytes.
class FullHandle final : public filesystem::FileHandle {
public:
    explicit FullHandle(std::unique_ptr<FileHandle> file) : _file(std::move(file)) { }

    std::string path() const override { return _file->path(); }
    std::int64_t size() const override { return _file->size(); }
    std::int64_t position() const override { return _file->position(); }

protected:
    bool doSeek(std::int64_t position) override { return _file->seek(position); }
    std::int64_t doRead(void *data, std::int64_t count) override
    {
        return _file->readSome(data, count);
    }
    std::int64_t doWrite(const void *data, std::int64_t count) override
    {
        _file->writeBlock(data, count / 2);
        fail("no space left on the device");
        return -1;
    }
    bool doClose() override { return _file->close(); }

private:
    std::unique_ptr<FileHandle> _file;
};

std::string contentOf(filesystem::FileSystem &files, const std::string &path)
{
    const auto handle = files.open(path, OpenMode::Read);
    std::string bytes(static_cast<std::size_t>(handle->size()), '\0');
    handle->readBlock(bytes.data(), handle->size());
    return bytes;
}

} // namespace

TEST(NativeFile, aSaveThatFailsLeavesTheOldFileWhole)
{
    filesystem::RAMFileSystem files;
    const io::NativeExporter exporter;
    const auto model = test::RandomScore(1).make();
    exporter.write(*model, *files.open("song.zarn", OpenMode::Write));
    const std::string old = contentOf(files, "song.zarn");
    EXPECT_EQ(old, exporter.toText(*model));

    model->setScoreProperty(ScoreProperty::Title, "another");
    FullHandle full(files.open("song.zarn", OpenMode::Write));
    try {
        exporter.write(*model, full);
        FAIL() << "the failure went unnoticed";
    } catch (const CoreException &error) {
        EXPECT_NE(error.message().find("no space left"), std::string::npos);
    }
    EXPECT_EQ(contentOf(files, "song.zarn"), old);

    model->masterTrack()->setFine(1000); // no document
    EXPECT_THROW(exporter.write(*model, *files.open("song.zarn", OpenMode::Write)), CoreException);
    EXPECT_EQ(contentOf(files, "song.zarn"), old);
}

TEST(NativeFile, isKnownByItsContent)
{
    filesystem::RAMFileSystem files;
    const io::NativeImporter importer;
    const auto accepts = [&](const std::string &content) {
        const auto writer = files.open("x", OpenMode::Write);
        writer->writeBlock(content.data(), static_cast<std::int64_t>(content.size()));
        writer->close();
        const auto handle = files.open("x", OpenMode::Read);
        const bool accepted = importer.acceptsHandle(*handle);
        EXPECT_EQ(handle->position(), 0);
        return accepted;
    };
    EXPECT_TRUE(accepts(test::writeNative(ScoreModel())));
    EXPECT_TRUE(accepts("\xEF\xBB\xBF\n{ \"zarn\" : \"9.9\"}"));
    EXPECT_FALSE(accepts(""));
    EXPECT_FALSE(accepts("{}"));
    EXPECT_FALSE(accepts("<?xml version=\"1.0\"?><score-partwise/>"));
    EXPECT_EQ(importer.extensions(), QStringList(QStringLiteral("zarn")));
}

TEST(NativeFile, aByteOrderMarkIsNoPartOfTheDocument)
{
    EXPECT_EQ(test::readNative("\xEF\xBB\xBF{\"zarn\":\"1.0\",\"concertTone\":442}")->concertTone(),
              442);
}

TEST(NativeFile, theDocumentedExampleIsReadAndComplete)
{
    std::ifstream page(ZARN_SOURCE_DIR "/Documents/native-format.md");
    const std::string text((std::istreambuf_iterator<char>(page)), {});
    const std::string fence = "```json\n";
    const std::size_t start = text.find(fence);
    ASSERT_NE(start, std::string::npos);
    const std::string example =
        text.substr(start + fence.size(), text.find("```", start + 3) - start - fence.size());
    io::ImportReport report;
    const auto model = test::readNative(example, report);
    EXPECT_TRUE(report.problems().empty());
    EXPECT_EQ(model->track(0)->bar(0, 0)->voice(0)->beat(0)->note(0)->fret(), 7);

    // Every member that a random score writes is in the tables.
    const std::string document = test::writeNative(*test::RandomScore(3).make(6, 8));
    const std::regex member("\"([A-Za-z]+)\":");
    for (std::sregex_iterator at(document.begin(), document.end(), member), end; at != end; ++at) {
        const std::string name = (*at)[1];
        if (std::islower(static_cast<unsigned char>(name[0])) != 0) {
            EXPECT_NE(text.find('`' + name + '`'), std::string::npos) << name;
        }
    }
}
