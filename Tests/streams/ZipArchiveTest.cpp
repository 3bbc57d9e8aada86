// SPDX-License-Identifier: MIT
#include <filesystem/DiskFileSystem.h>
#include <filesystem/RAMFileSystem.h>
#include <io/ZipWriter.h>
#include <streams/BankArchive.h>
#include <streams/FileStream.h>
#include <streams/MemberName.h>
#include <streams/MemoryStream.h>
#include <streams/ZipArchive.h>
#include <streams/ZipArchiveWriter.h>

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstring>

namespace {

using namespace streams;
using Packing = ZipArchiveWriter::Packing;

std::string contentOf(filesystem::FileSystem &files, const std::string &path)
{
    std::string bytes;
    FileStream(files.open(path, filesystem::OpenMode::Read)).readRest(bytes, 1 << 28);
    return bytes;
}

void put(filesystem::FileSystem &files, const std::string &path, const std::string &bytes)
{
    const auto handle = files.open(path, filesystem::OpenMode::Write);
    handle->writeBlock(bytes.data(), static_cast<std::int64_t>(bytes.size()));
    ASSERT_TRUE(handle->close());
}

std::unique_ptr<ZipArchive> openBytes(const std::string &bytes, std::string *error = nullptr)
{
    return ZipArchive::open(std::make_unique<MemoryStream>("x.zip", bytes), error);
}

/// An archive of two stored members and a deflated one.
std::string sampleArchive()
{
    filesystem::RAMFileSystem files;
    const auto handle = files.open("x", filesystem::OpenMode::Write);
    ZipArchiveWriter writer(*handle);
    writer.add("a.txt", "first", Packing::Stored);
    writer.add("in/b \xC3\xA9.txt", std::string(70'000, 'b'), Packing::Stored);
    writer.add("c.txt", std::string(70'000, 'c'), Packing::Deflated);
    EXPECT_TRUE(writer.finish()) << writer.errorText();
    EXPECT_TRUE(handle->close());
    return contentOf(files, "x");
}

TEST(ZipArchiveWriter, writesEqualBytesForEqualMembers)
{
    const std::string archive = sampleArchive();
    EXPECT_EQ(archive, sampleArchive());
    EXPECT_TRUE(ZipArchive::isZip(archive));
    EXPECT_LT(archive.size(), 75'000u);
    const auto zip = openBytes(archive);
    ASSERT_TRUE(zip);
    ASSERT_EQ(zip->members().size(), 3u);
    EXPECT_EQ(zip->members()[0].name, "a.txt");
    EXPECT_TRUE(zip->members()[1].isStored);
    EXPECT_EQ(zip->members()[1].name, "in/b \xC3\xA9.txt");
    EXPECT_FALSE(zip->members()[2].isStored);
    EXPECT_EQ(zip->members()[2].size, 70'000);
    std::string bytes;
    for (const auto &member : zip->members())
        EXPECT_TRUE(zip->verify(member, nullptr)) << member.name;
    EXPECT_TRUE(zip->read(*zip->find("c.txt"), 70'000, bytes, nullptr));
    EXPECT_EQ(bytes, std::string(70'000, 'c'));
    EXPECT_EQ(zip->find("none"), nullptr);
    std::string error;
    EXPECT_FALSE(zip->read(*zip->find("c.txt"), 69'999, bytes, &error));
    EXPECT_NE(error.find("69999"), std::string::npos) << error;
}

TEST(ZipArchiveWriter, leavesTheOldFileWhenAMemberCannotBeRead)
{
    QTemporaryDir folder;
    filesystem::DiskFileSystem files;
    const std::string path = folder.filePath(QStringLiteral("x.zip")).toStdString();
    put(files, path, "old");
    {
        const auto handle = files.open(path, filesystem::OpenMode::Write);
        ZipArchiveWriter writer(*handle);
        writer.add("a", "bytes", Packing::Stored);
        writer.add(
            "b",
            [](std::string *error) {
                *error = "b.wav: is gone";
                return std::unique_ptr<Stream>();
            },
            Packing::Stored);
        EXPECT_FALSE(writer.finish());
        EXPECT_EQ(writer.errorText(), "b.wav: is gone");
    }
    EXPECT_EQ(contentOf(files, path), "old");
    {
        const auto handle = files.open(path, filesystem::OpenMode::Write);
        ZipArchiveWriter writer(*handle);
        EXPECT_TRUE(writer.add("a", "1", Packing::Stored));
        EXPECT_FALSE(writer.add("a", "2", Packing::Stored)) << "a name stands there once";
        EXPECT_FALSE(writer.finish());
        EXPECT_NE(writer.errorText().find("a: "), std::string::npos) << writer.errorText();
    }
    const auto handle = files.open(path, filesystem::OpenMode::Write);
    EXPECT_FALSE(ZipArchiveWriter(*handle).finish()) << "nothing is no archive";
}

TEST(ZipArchive, damageIsFoundWhereItIs)
{
    std::string archive = sampleArchive();
    archive[archive.find("bbbb") + 1000] = 'x';
    const auto zip = openBytes(archive);
    ASSERT_TRUE(zip);
    std::string error;
    EXPECT_TRUE(zip->verify(zip->members()[0], &error));
    EXPECT_FALSE(zip->verify(zip->members()[1], &error));
    EXPECT_NE(error.find("CRC"), std::string::npos) << error;
    // A stream of the member says so at its end, when it was read in one go.
    const auto stream = zip->openMember(zip->members()[1], nullptr);
    std::string bytes(70'000, '\0');
    EXPECT_EQ(stream->readSome(&bytes[0], 60'000), 60'000);
    EXPECT_TRUE(stream->seek(100)) << "in place, damage elsewhere does no harm";
    EXPECT_TRUE(stream->readBlock(&bytes[0], 10)) << stream->errorText();
    for (std::size_t cut : {std::size_t(0), std::size_t(10), archive.size() / 2})
        EXPECT_EQ(openBytes(archive.substr(0, cut), &error), nullptr);
    EXPECT_NE(error.find("the archive is damaged: "), std::string::npos) << error;
}

TEST(ZipArchive, claimsTakeNoMemory)
{
    // The directory claims four gigabytes for a member of a few bytes.
    std::string archive = sampleArchive();
    const auto entry = archive.find("PK\x01\x02");
    for (const std::size_t field : {std::size_t(20), std::size_t(24)})
        archive.replace(entry + field, 4, "\xF0\xFF\xFF\xEF");
    std::string error;
    const auto zip = openBytes(archive, &error);
    if (zip == nullptr)
        return; // refused as a whole
    const auto &member = zip->members().at(0);
    EXPECT_LE(member.packedSize, static_cast<std::int64_t>(archive.size()));
    EXPECT_EQ(zip->openMember(member, &error), nullptr);
    EXPECT_EQ(error, "claims to have more bytes than the archive");
}

TEST(MemberName, staysInside)
{
    for (const char *const name : {"a", "a.wav", "a/b", "..a", "a../b", "\xC3\xA9", "a b"})
        EXPECT_TRUE(staysInside(name)) << name;
    for (const char *const name : {"", "/a", "\\a", "..", "a/..", "a/../b", "a\\..\\b", "C:a",
                                   "a//b", "a/", "\x1B[2J", "a\nb"})
        EXPECT_FALSE(staysInside(name)) << name;
}

/// Banks in memory.
class BankArchives : public ::testing::Test {
protected:
    std::unique_ptr<BankArchive> open(const std::string &path)
    {
        _error.clear();
        return BankArchive::open(_files, path, &_error);
    }

    void expectRefusal(const QByteArray &archive, const std::string &reason)
    {
        put(_files, "x.zarn7bank", archive.toStdString());
        EXPECT_EQ(open("x.zarn7bank"), nullptr);
        EXPECT_EQ(_error.find("x.zarn7bank: " + reason), 0u) << _error;
    }

    filesystem::RAMFileSystem _files;
    std::string _error;
};

TEST_F(BankArchives, areReadFromFoldersAndArchivesAlike)
{
    ASSERT_TRUE(_files.makeFolder("bank/in"));
    put(_files, "bank/bank.json", "{}");
    put(_files, "bank/in/a.wav", "sound");
    ZipWriter zip;
    zip.add("bank.json", "{}");
    zip.add("in/a.wav", "sound");
    put(_files, "packed.zarn7bank", zip.archive().toStdString());
    for (const char *const path : {"bank", "bank/", "bank/bank.json", "packed.zarn7bank"}) {
        SCOPED_TRACE(path);
        const auto bank = open(path);
        ASSERT_TRUE(bank) << _error;
        EXPECT_EQ(bank->description(), "{}");
        EXPECT_TRUE(bank->has("in/a.wav"));
        for (const char *const other :
             {"in", "in/b.wav", "../packed.zarn7bank", "/bank/in/a.wav"}) {
            EXPECT_FALSE(bank->has(other)) << other;
            EXPECT_EQ(bank->openSample(other, &_error), nullptr) << other;
            EXPECT_NE(_error.find(other), std::string::npos) << _error;
        }
        std::string bytes;
        EXPECT_TRUE(bank->openSample("in/a.wav", &_error)->readRest(bytes, 100));
        EXPECT_EQ(bytes, "sound");
        EXPECT_EQ(bank->packedFiles().size(), bank->isPacked() ? 1u : 0u);
    }
}

TEST_F(BankArchives, areRefusedWithTheReason)
{
    EXPECT_EQ(open("none"), nullptr);
    EXPECT_NE(_error.find("none"), std::string::npos);
    ZipWriter good;
    good.add("bank.json", "{}");
    expectRefusal(good.archive().left(30), "the archive is damaged: ");
    ZipWriter empty;
    empty.add("a.wav", "");
    expectRefusal(empty.archive(), "holds no bank.json");
    ZipWriter outside;
    outside.add("bank.json", "{}");
    outside.add("../a.wav", "");
    expectRefusal(outside.archive(), "holds a file that lies outside of it (\"../a.wav\")");
    ZipWriter twice;
    twice.add("bank.json", "{}");
    twice.add("a.wav", "1");
    twice.add("a.wav", "2");
    expectRefusal(twice.archive(), "holds \"a.wav\" twice");
    ZipWriter bomb;
    bomb.add("bank.json", QByteArray(5 << 20, ' '));
    expectRefusal(bomb.archive(), "bank.json: unpacks to more than the 4194304 bytes");
    put(_files, "x.zarn7bank", std::string(5 << 20, ' '));
    EXPECT_EQ(open("x.zarn7bank"), nullptr);
    EXPECT_NE(_error.find("more than the 4194304"), std::string::npos) << _error;
}

TEST_F(BankArchives, unpackNoSampleThatIsDeflatedAndHuge)
{
    ZipWriter zip;
    zip.add("bank.json", "{}");
    zip.add("a.wav", QByteArray(17 << 20, ' '));
    put(_files, "x.zarn7bank", zip.archive().toStdString());
    const auto bank = open("x.zarn7bank");
    ASSERT_TRUE(bank) << _error;
    EXPECT_EQ(bank->openSample("a.wav", &_error), nullptr);
    EXPECT_NE(_error.find("a.wav: unpacks to more than the 16777216"), std::string::npos) << _error;
}

} // namespace
