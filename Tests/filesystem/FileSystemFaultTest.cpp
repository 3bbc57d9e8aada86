// SPDX-License-Identifier: MIT
// Faults of the world around: a disk that is full, folders that change under an open file.
#include <filesystem/DiskFileSystem.h>
#include <filesystem/RAMFileSystem.h>

#include "support/FileSizeLimit.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <unistd.h>

namespace {

using filesystem::DiskFileSystem;
using filesystem::OpenMode;
using filesystem::RAMFileSystem;
using zarn::test::FileSizeLimit;

bool save(filesystem::FileSystem &files, const std::string &path, const std::string &text,
          std::string *error = nullptr)
{
    const auto file = files.open(path, OpenMode::Write, error);
    if (file == nullptr)
        return false;
    file->writeBlock(text.data(), static_cast<std::int64_t>(text.size()));
    const bool isSaved = file->close();
    if (error != nullptr)
        *error = file->errorText();
    return isSaved;
}

std::string contentOf(const std::string &path)
{
    QFile file(QString::fromStdString(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "(none)";
}

TEST(DiskFileSystem, aFullDiskLeavesTheOldFileWhole)
{
    const QTemporaryDir folder;
    const auto path = folder.path().toStdString() + "/doc";
    DiskFileSystem files;
    ASSERT_TRUE(save(files, path, "old"));
    // The smaller one fails when the rest is brought to the disk, the larger one while writing.
    for (const std::size_t size : {5000, 500000}) {
        std::string error;
        {
            const FileSizeLimit limit(4096);
            EXPECT_FALSE(save(files, path, std::string(size, 'x'), &error));
        }
        EXPECT_TRUE(contentOf(path) == "old") << size;
        EXPECT_EQ(error, path + ": File too large") << "which is the reason here";
        EXPECT_EQ(files.list(folder.path().toStdString()), std::vector<std::string>{"doc"});
    }
    EXPECT_TRUE(save(files, path, "new"));
    EXPECT_EQ(contentOf(path), "new");
}

TEST(DiskFileSystem, devicesAreWrittenDirectlyAndReportTheirErrors)
{
    if (!QFile::exists(QStringLiteral("/dev/full")))
        GTEST_SKIP() << "no /dev/full here";
    DiskFileSystem files;
    std::string error;
    EXPECT_FALSE(save(files, "/dev/full", "x", &error));
    EXPECT_NE(error.find("No space left"), std::string::npos) << error;
    EXPECT_TRUE(save(files, "/dev/null", "x", &error)) << error;
    EXPECT_TRUE(QFile::exists(QStringLiteral("/dev/full")));
}

TEST(DiskFileSystem, aReadOnlyFolderRefusesAndKeepsTheFile)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "root may write everywhere";
    const QTemporaryDir folder;
    const auto path = folder.path().toStdString() + "/doc";
    DiskFileSystem files;
    ASSERT_TRUE(save(files, path, "old"));
    QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::ExeOwner);
    std::string error;
    EXPECT_FALSE(save(files, path, "new", &error));
    EXPECT_EQ(error.find(path + ": "), 0u) << error;
    EXPECT_FALSE(files.remove(path, &error));
    QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    EXPECT_EQ(contentOf(path), "old");
}

TEST(DiskFileSystem, aLinkIsSavedThrough)
{
    const QTemporaryDir folder;
    const auto path = folder.path().toStdString() + "/doc";
    const auto link = folder.path().toStdString() + "/link";
    DiskFileSystem files;
    ASSERT_TRUE(save(files, path, "old"));
    ASSERT_EQ(symlink(path.c_str(), link.c_str()), 0);
    EXPECT_TRUE(save(files, link, "new"));
    EXPECT_EQ(contentOf(path), "new");
}

TEST(RAMFileSystem, aPlaceThatWasTakenMeanwhileIsReportedByClose)
{
    RAMFileSystem files;
    const auto file = files.open("a", OpenMode::Write);
    EXPECT_TRUE(files.makeFolder("a/b"));
    EXPECT_FALSE(file->close());
    EXPECT_EQ(file->errorText(), "a: is a folder");
    EXPECT_TRUE(files.isFolder("/a"));
}

TEST(RAMFileSystem, handlesOutliveTheFileSystem)
{
    auto files = std::make_unique<RAMFileSystem>();
    ASSERT_TRUE(save(*files, "doc", "text"));
    const auto reader = files->open("doc", OpenMode::Read);
    const auto writer = files->open("doc", OpenMode::Write);
    files.reset();
    std::uint8_t byte = 0;
    EXPECT_TRUE(reader->readByte(byte));
    EXPECT_EQ(byte, 't');
    EXPECT_TRUE(writer->writeByte(1) && writer->close());
}

TEST(RAMFileSystem, pathsAreResolved)
{
    RAMFileSystem files;
    EXPECT_TRUE(files.makeFolder("a/b"));
    EXPECT_TRUE(save(files, "//a/./b/../c", "x"));
    EXPECT_TRUE(files.exists("a/c") && files.exists("/../a//c"));
    EXPECT_TRUE(files.isFolder("") && files.isFolder("/") && files.isFolder("a/.."));
    EXPECT_EQ(files.list("/"), std::vector<std::string>{"a"});
    EXPECT_FALSE(save(files, "", "x"));
}

} // namespace
