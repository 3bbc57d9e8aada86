// SPDX-License-Identifier: MIT
#include <ZarnCore/core/LogFiles.h>

#include "support/CapturedLog.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include <unistd.h>

namespace {

using zarn::LogFiles;
using zarn::test::CapturedLog;

constexpr auto category = "zarn.core";

std::string contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "(no file)";
}

void write(const QString &path, const std::string &content)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    file.write(content.data(), static_cast<qint64>(content.size()));
}

/// A packed log, unpacked.
std::string unpacked(const QString &path, const QTemporaryDir &folder)
{
    const QString target = folder.filePath(QStringLiteral("unpacked"));
    EXPECT_TRUE(LogFiles::unpack(path, target));
    return contentOf(target);
}

/// The rights of a user who is not root, to whom read-only folders mean something.
class Unprivileged {
public:
    Unprivileged() : _isRoot(geteuid() == 0)
    {
        if (_isRoot && seteuid(nobody) != 0)
            ADD_FAILURE() << "root cannot become somebody else";
    }
    ~Unprivileged()
    {
        if (_isRoot && seteuid(0) != 0)
            std::abort();
    }
    Unprivileged(const Unprivileged &) = delete;
    Unprivileged &operator=(const Unprivileged &) = delete;

private:
    static constexpr uid_t nobody = 65534;
    bool _isRoot;
};

TEST(LogFiles, everyLineEndIsCarriageReturnAndLineFeed)
{
    const QTemporaryDir folder;
    LogFiles logs;
    EXPECT_EQ(logs.begin(folder.path()), LogFiles::LastRun::EndedNormally);
    EXPECT_EQ(contentOf(logs.current()), "[RUN]\r\n") << "before anything else is written";
    logs.file()->write("plain\nkept\r\nsplit\r");
    logs.file()->write("\n");
    QTextStream(logs.file()) << "streamed" << Qt::endl;
    logs.closeWithQuitTag();
    EXPECT_EQ(logs.file(), nullptr);
    EXPECT_EQ(contentOf(logs.current()),
              "[RUN]\r\nplain\r\nkept\r\nsplit\r\nstreamed\r\n[QUIT]\r\n");
    EXPECT_FALSE(LogFiles::wasThereACrash(logs.current()));
}

TEST(LogFiles, onlyTheTagBeforeATwoByteLineEndIsANormalEnd)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("some.log"));
    EXPECT_FALSE(LogFiles::wasThereACrash(path)) << "there is none";
    const std::pair<const char *, bool> cases[] = {
        {"x[QUIT]\r\n", false},      {"[RUN]\r\n[QUIT]\r\n", false},
        {"[QUIT]\r\n", true},        {"", true},
        {"[RUN]\r\n[QUIT]\n", true}, {"[RUN]\r\n[QUIT]\r\nx", true},
        {"[RUN]\r\nmore", true},
    };
    for (const auto &[content, crashed] : cases) {
        write(path, content);
        EXPECT_EQ(LogFiles::wasThereACrash(path), crashed) << content;
    }
    CapturedLog log;
    EXPECT_TRUE(LogFiles::wasThereACrash(folder.path())) << "a folder cannot be read as a log";
    EXPECT_TRUE(log.hasWarning(category, {folder.path().toStdString(), "cannot be read"}));
}

TEST(LogFiles, secondRunFindsTheFirstAndPacksIt)
{
    const QTemporaryDir folder;
    const QString logFolder = folder.filePath(QStringLiteral("missing/until/now"));
    LogFiles first;
    EXPECT_EQ(first.begin(logFolder), LogFiles::LastRun::EndedNormally);
    EXPECT_EQ(first.packedCurrent(),
              QDir::toNativeSeparators(logFolder + QStringLiteral("/currentLog.lgz")));
    first.file()->write("first run\n");
    first.closeWithQuitTag();

    LogFiles second;
    EXPECT_EQ(second.begin(logFolder), LogFiles::LastRun::EndedNormally);
    const std::string firstLog = "[RUN]\r\nfirst run\r\n[QUIT]\r\n";
    EXPECT_EQ(contentOf(second.last()), firstLog);
    EXPECT_EQ(unpacked(second.packedLast(), folder), firstLog);
    second.file()->write("second run\n");

    // Without a word the log of the second run is closed, rotated, and missed its end.
    EXPECT_EQ(second.begin(logFolder), LogFiles::LastRun::Crashed);
    EXPECT_EQ(unpacked(second.packedLast(), folder), "[RUN]\r\nsecond run\r\n");
    EXPECT_EQ(contentOf(second.current()), "[RUN]\r\n");
}

TEST(LogFiles, logThatAnotherProcessStillWritesBecomesTheLastOne)
{
    const QTemporaryDir folder;
    LogFiles other;
    other.begin(folder.path());
    LogFiles ours;
    EXPECT_EQ(ours.begin(folder.path()), LogFiles::LastRun::Crashed);
    other.file()->write("still here\n");
    other.closeWithQuitTag();
    EXPECT_EQ(contentOf(ours.last()), "[RUN]\r\nstill here\r\n[QUIT]\r\n");
    EXPECT_EQ(contentOf(ours.current()), "[RUN]\r\n") << "the runs do not mix";
}

TEST(LogFiles, folderThatIsAFileLeavesTheRunWithoutALog)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("file"));
    write(file, "content");
    for (const QString &path : {file, file + QStringLiteral("/below")}) {
        CapturedLog log;
        LogFiles logs;
        EXPECT_EQ(logs.begin(path), LogFiles::LastRun::EndedNormally);
        EXPECT_EQ(logs.file(), nullptr);
        EXPECT_TRUE(log.hasWarning(category, {path.toStdString(), "is no folder"}));
        EXPECT_TRUE(log.hasWarning(category, {logs.current().toStdString(), "has no log"}));
        logs.closeWithQuitTag();
    }
    EXPECT_EQ(contentOf(file), "content");
}

TEST(LogFiles, readOnlyFolderLosesNoLog)
{
    const QTemporaryDir folder;
    LogFiles logs;
    logs.begin(folder.path());
    logs.file()->write("precious\n");
    logs.close();
    const auto canRead = QFile::ReadOther | QFile::ReadGroup | QFile::ReadOwner;
    const auto canWrite = QFile::WriteOther | QFile::WriteGroup | QFile::WriteOwner;
    const auto canEnter = QFile::ExeOther | QFile::ExeGroup | QFile::ExeOwner;
    QFile::setPermissions(logs.current(), canRead | canWrite);
    QFile::setPermissions(folder.path(), canRead | canEnter);
    CapturedLog log;
    {
        const Unprivileged user;
        EXPECT_EQ(logs.begin(folder.path()), LogFiles::LastRun::Crashed);
        EXPECT_TRUE(log.hasWarning(category, {"neither renamed nor copied"}));
        ASSERT_NE(logs.file(), nullptr) << "the file itself can be written";
        logs.closeWithQuitTag();
    }
    EXPECT_EQ(contentOf(logs.current()), "[RUN]\r\nprecious\r\n[RUN]\r\n[QUIT]\r\n");
    ASSERT_TRUE(QFile::setPermissions(logs.current(), canRead));
    {
        const Unprivileged user;
        EXPECT_EQ(logs.begin(folder.path()), LogFiles::LastRun::EndedNormally);
        EXPECT_EQ(logs.file(), nullptr) << "nothing can be written";
        EXPECT_TRUE(log.hasWarning(category, {logs.current().toStdString(), "has no log"}));
    }
    EXPECT_EQ(contentOf(logs.current()), "[RUN]\r\nprecious\r\n[RUN]\r\n[QUIT]\r\n");
    QFile::setPermissions(folder.path(), canRead | canWrite | canEnter);
}

TEST(LogFiles, oldCrashIsNotReportedAgainWithoutANewLog)
{
    const QTemporaryDir folder;
    write(folder.filePath(QStringLiteral("lastLog.log")), "[RUN]\r\nlong ago");
    LogFiles logs;
    EXPECT_EQ(logs.begin(folder.path()), LogFiles::LastRun::EndedNormally);
    EXPECT_FALSE(QFile::exists(logs.last()));
}

TEST(LogFiles, packingAndUnpackingAnswerForWhatIsNoLog)
{
    const QTemporaryDir folder;
    const QString packed = folder.filePath(QStringLiteral("packed"));
    const QString target = folder.filePath(QStringLiteral("target"));
    EXPECT_FALSE(LogFiles::pack(target, packed));
    EXPECT_FALSE(LogFiles::unpack(packed, target));

    write(target, "");
    EXPECT_TRUE(LogFiles::pack(target, packed));
    write(target, "to be replaced");
    EXPECT_EQ(unpacked(packed, folder), "") << "an empty log";

    write(packed, "no compressed log");
    CapturedLog log;
    EXPECT_FALSE(LogFiles::unpack(packed, target));
    EXPECT_EQ(contentOf(target), "to be replaced");
    EXPECT_TRUE(log.hasWarning(category, {packed.toStdString(), "no compressed log"}));
    // The size at the front decides how much memory is taken.
    write(packed, std::string("\x7f\xff\xff\x00", 4) + qCompress("log").mid(4).toStdString());
    EXPECT_FALSE(LogFiles::unpack(packed, target));
    EXPECT_TRUE(log.hasWarning(category, {packed.toStdString(), "too short for what it claims"}));
    const std::string longLog(1'000'000, ' ');
    write(target, longLog);
    EXPECT_TRUE(LogFiles::pack(target, packed));
    EXPECT_TRUE(unpacked(packed, folder) == longLog) << "as dense as it can be";

    EXPECT_TRUE(LogFiles::pack(target, packed + QStringLiteral("/below")));
    EXPECT_TRUE(log.hasWarning(category, {"/below", "cannot be written"}));
}

} // namespace
