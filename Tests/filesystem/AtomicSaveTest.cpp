// SPDX-License-Identifier: MIT
// How a save brings the new content to the disk, on a disk that fails where it is told to.
#include <filesystem/DiskFileSystem.h>
#include <filesystem/DiskOperations.h>

#include <QDateTime>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cerrno>
#include <memory>
#include <string>
#include <vector>

#include <unistd.h>

namespace {

using filesystem::DiskFileSystem;
using filesystem::OpenMode;

std::string contentOf(const std::string &path)
{
    QFile file(QString::fromStdString(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "(none)";
}

/// Notes what was asked to be on the disk, what the file held then, and fails as it is told.
class WatchedDisk final : public filesystem::DiskOperations {
public:
    explicit WatchedDisk(std::string path) : _path(std::move(path)) { }

    std::error_code syncFile(int descriptor) override
    {
        std::string written(4096, '\0');
        written.resize(static_cast<std::size_t>(
            std::max<ssize_t>(0, pread(descriptor, written.data(), written.size(), 0))));
        steps.push_back("file " + written + " beside " + contentOf(_path));
        return {fileError, std::generic_category()};
    }
    std::error_code syncFolder(const std::string &path) override
    {
        steps.push_back("folder of " + contentOf(path + "/doc"));
        return {folderError, std::generic_category()};
    }

    std::vector<std::string> steps;
    int fileError = 0;
    int folderError = 0;

private:
    std::string _path;
};

class AtomicSave : public testing::Test {
protected:
    bool save(const std::string &text)
    {
        const auto file = _files.open(_path, OpenMode::Write, &error);
        if (file == nullptr)
            return false;
        file->writeBlock(text.data(), static_cast<std::int64_t>(text.size()));
        const bool isSaved = file->close();
        error = file->errorText();
        return isSaved;
    }

    std::vector<std::string> names() const { return _files.list(_folder.path().toStdString()); }

    QString inFolder(const char *name) const { return _folder.filePath(QLatin1String(name)); }

    QTemporaryDir _folder;
    std::string _path = _folder.path().toStdString() + "/doc";
    std::shared_ptr<WatchedDisk> _disk = std::make_shared<WatchedDisk>(_path);
    DiskFileSystem _files{_disk};
    std::string error;
};

TEST_F(AtomicSave, contentIsOnTheDiskBeforeItTakesItsPlaceAndTheNameAfterwards)
{
    ASSERT_TRUE(save("old"));
    _disk->steps.clear();
    ASSERT_TRUE(save("new"));
    EXPECT_EQ(_disk->steps, (std::vector<std::string>{"file new beside old", "folder of new"}));
    EXPECT_EQ(contentOf(_path), "new");
}

TEST_F(AtomicSave, contentThatDoesNotReachTheDiskReplacesNothing)
{
    ASSERT_TRUE(save("old"));
    for (const int code : {EIO, ENOSPC, EDQUOT}) {
        _disk->fileError = code;
        EXPECT_FALSE(save("new"));
        EXPECT_EQ(error, _path + ": " + std::generic_category().message(code));
        EXPECT_EQ(contentOf(_path), "old");
        EXPECT_EQ(names(), std::vector<std::string>{"doc"});
    }
}

TEST_F(AtomicSave, aFolderThatDoesNotReachTheDiskIsTold)
{
    _disk->folderError = EIO;
    EXPECT_FALSE(save("new"));
    EXPECT_EQ(error, _path + ": is written, but may get lost: Input/output error");
    EXPECT_EQ(contentOf(_path), "new");
}

TEST(DiskOperations, whatTheSystemRefusesIsToldAndWhatIsOnNoDiskIsNot)
{
    filesystem::DiskOperations disk;
    EXPECT_EQ(disk.syncFile(-1), std::errc::bad_file_descriptor);
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    EXPECT_EQ(disk.syncFile(ends[1]), std::error_code());
    close(ends[0]);
    close(ends[1]);
}

TEST_F(AtomicSave, whatKilledSavesLeftIsRemovedAndNothingElse)
{
    const auto make = [this](const char *name, int ageInHours) {
        QFile file(inFolder(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addSecs(-3600 * ageInHours),
                                     QFileDevice::FileModificationTime));
    };
    make(".zarn-save-1-1", 25);
    make(".zarn-save-77-3.aBcDeF", 1000);
    make(".zarn-save-2-2", 23); // perhaps somebody still writes it
    make("doc.backup", 1000);
    make(".zarn-saved", 1000);
    ASSERT_EQ(symlink("doc.backup", inFolder(".zarn-save-5-5").toUtf8().constData()), 0);
    ASSERT_TRUE(save("new"));
    EXPECT_EQ(names(),
              (std::vector<std::string>{".zarn-save-2-2", ".zarn-save-5-5", ".zarn-saved", "doc",
                                        "doc.backup"}));
}

TEST_F(AtomicSave, rightsOfTheOldFileStay)
{
    ASSERT_TRUE(save("old"));
    const auto usual = QFile::permissions(inFolder("doc"));
    EXPECT_TRUE(usual & QFile::ReadOwner && usual & QFile::WriteOwner);
    ASSERT_TRUE(
        QFile::setPermissions(inFolder("doc"), usual | QFile::WriteGroup | QFile::WriteOther));
    const auto shared = QFile::permissions(inFolder("doc"));
    ASSERT_NE(int(shared), int(usual));
    ASSERT_TRUE(save("new"));
    EXPECT_EQ(int(QFile::permissions(inFolder("doc"))), int(shared));
}

TEST_F(AtomicSave, aSaveThatIsGivenUpLeavesNoTrace)
{
    ASSERT_TRUE(save("old"));
    {
        const auto file = _files.open(_path, OpenMode::Write);
        file->writeByte(1);
    }
    EXPECT_EQ(contentOf(_path), "old");
    EXPECT_EQ(names(), std::vector<std::string>{"doc"});
}

} // namespace
