// SPDX-License-Identifier: MIT
// Exports that come to nothing: the disk is full, the program is stopped in the middle.
#include "../support/FileSizeLimit.h"
#include "../support/SmallScore.h"

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/io/ZarnExportReport.h>
#include <ZarnCore/io/ZarnLilyPondExporter.h>
#include <ZarnCore/io/ZarnMidiExporter.h>
#include <ZarnCore/io/ZarnMusicXmlExporter.h>
#include <ZarnCore/io/ZarnMxlExporter.h>
#include <ZarnCore/io/ZarnNativeExporter.h>
#include <ZarnCore/io/ZarnTextExporter.h>
#include <filesystem/DiskFileSystem.h>

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include <sys/wait.h>
#include <unistd.h>

#include <memory>
#include <vector>

namespace {

using namespace zarn;

const std::string old = "what was there before";

std::string contentOf(const std::string &path)
{
    QFile file(QString::fromStdString(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

void write(const std::string &path, const std::string &text)
{
    QFile file(QString::fromStdString(path));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text.data(), static_cast<qint64>(text.size()));
}

std::vector<std::unique_ptr<io::Exporter>> exporters()
{
    std::vector<std::unique_ptr<io::Exporter>> all;
    all.push_back(std::make_unique<io::MusicXmlExporter>());
    all.push_back(std::make_unique<io::MxlExporter>());
    all.push_back(std::make_unique<io::MidiExporter>());
    all.push_back(std::make_unique<io::TextExporter>());
    all.push_back(std::make_unique<io::LilyPondExporter>());
    all.push_back(std::make_unique<io::NativeExporter>());
    return all;
}

TEST(FailedExport, aFullDiskIsToldAndLeavesTheOldFile)
{
    const QTemporaryDir folder;
    const auto path = folder.filePath(QStringLiteral("song")).toStdString();
    SmallScore small;
    ASSERT_TRUE(small.score.createBars(6, 200));
    for (const auto &exporter : exporters()) {
        SCOPED_TRACE(exporter->description());
        write(path, old);
        filesystem::DiskFileSystem disk;
        {
            const test::FileSizeLimit limit(100);
            const auto handle = disk.open(path, filesystem::OpenMode::Write);
            ASSERT_NE(handle, nullptr);
            io::ExportReport report;
            EXPECT_THROW(exporter->write(small.model, *handle, report), CoreException);
        }
        EXPECT_EQ(contentOf(path), old);
        EXPECT_EQ(disk.list(folder.path().toStdString()).size(), 1U) << "no half file stays";
    }
}

/// A process that is stopped before the export is complete has written beside the file.
TEST(FailedExport, aStoppedProgramLeavesTheOldFile)
{
    const QTemporaryDir folder;
    const auto path = folder.filePath(QStringLiteral("song.musicxml")).toStdString();
    write(path, old);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        filesystem::DiskFileSystem disk;
        const auto handle = disk.open(path, filesystem::OpenMode::Write);
        const std::string half(1 << 20, '<');
        handle->writeBlock(half.data(), static_cast<std::int64_t>(half.size()));
        _exit(1); // as by a signal: nothing is closed
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(contentOf(path), old);
}

} // namespace
