// SPDX-License-Identifier: MIT
#include <ZarnCore/core/FormatRegistry.h>

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/core/BuiltInFormats.h>
#include <ZarnCore/io/ZarnExporter.h>
#include <ZarnCore/io/ZarnImporter.h>
#include <filesystem/RAMFileSystem.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

using zarn::FormatRegistry;

/// A format whose documents begin with a word, and whose suffixes are given.
class WordImporter final : public zarn::io::Importer {
public:
    WordImporter(std::string word, QStringList extensions)
        : _word(std::move(word)), _extensions(std::move(extensions))
    {
    }
    QString description() const override { return QString::fromStdString(_word); }
    QStringList extensions() const override { return _extensions; }
    bool acceptsHandle(filesystem::FileHandle &handle) const override
    {
        std::string start(_word.size(), '\0');
        handle.seek(0);
        handle.readSome(start.data(), static_cast<std::int64_t>(start.size()));
        handle.seek(0);
        return start == _word;
    }
    std::shared_ptr<zarn::ScoreModel> read(filesystem::FileHandle &,
                                           zarn::io::ImportReport &) const override
    {
        return nullptr;
    }

private:
    std::string _word;
    QStringList _extensions;
};

class FormatRegistryTest : public testing::Test {
protected:
    std::unique_ptr<filesystem::FileHandle> file(const std::string &name,
                                                 const std::string &content)
    {
        auto written = files.open(name, filesystem::OpenMode::Write);
        written->writeBlock(content.data(), static_cast<std::int64_t>(content.size()));
        written->close();
        return files.open(name, filesystem::OpenMode::Read);
    }

    filesystem::RAMFileSystem files;
    FormatRegistry formats;
};

TEST_F(FormatRegistryTest, firstRegisteredImporterThatFitsAnswers)
{
    WordImporter song("song", {QStringLiteral("sng"), QStringLiteral("txt")});
    WordImporter sonata("sonata", {QStringLiteral("txt")});
    WordImporter songAgain("song", {QStringLiteral("SNG")});
    for (WordImporter *importer : {&song, &sonata, &songAgain})
        formats.add(importer);
    ASSERT_EQ(formats.importersCount(), 3U);
    EXPECT_EQ(formats.importerByExtension(QStringLiteral("txt")), &song);
    EXPECT_EQ(formats.importerByExtension(QStringLiteral("SNG")), &songAgain) << "case counts";
    EXPECT_EQ(formats.importerByExtension(QStringLiteral("sn")), nullptr);
    EXPECT_EQ(formats.importerByExtension(QString()), nullptr);

    const auto named = file("song.sng", "sonata no. 1");
    EXPECT_EQ(formats.importerByHandle(*named), &sonata) << "the name does not count";
    EXPECT_EQ(formats.importerByHandleAndExtension(*named, QStringLiteral("txt")), &sonata);
    EXPECT_EQ(formats.importerByHandleAndExtension(*named, QStringLiteral("sng")), nullptr);
    EXPECT_EQ(named->position(), 0);
    EXPECT_EQ(formats.importerByHandle(*file("x", "symphony")), nullptr);
}

TEST_F(FormatRegistryTest, builtInFormatsAreRecognisedByTheirContent)
{
    zarn::addBuiltInFormats(formats);
    const auto description = [this](const std::string &name, const std::string &content) {
        const auto *const importer = formats.importerByHandle(*file(name, content));
        return importer != nullptr ? importer->description().toStdString() : "none";
    };
    EXPECT_EQ(description("a.musicxml", "{\"zarn\": 1}"), "Zarn score");
    EXPECT_EQ(description("a.zarn", "<?xml version=\"1.0\"?><score-partwise/>"), "MusicXML");
    EXPECT_EQ(description("a.zarn", "nothing known"), "none");
    EXPECT_EQ(description("a.zarn", ""), "none");
    EXPECT_NE(formats.importerByExtension(QStringLiteral("mxl")), nullptr);
    EXPECT_EQ(formats.importerByExtension(QStringLiteral("MXL")), nullptr);
    const auto *const exporter = formats.exporterByExtension("zarn");
    ASSERT_NE(exporter, nullptr);
    EXPECT_EQ(exporter, &formats.exporter(0));
    EXPECT_EQ(formats.exporterByExtension(".zarn"), nullptr);
    for (const char *const suffix : {"musicxml", "xml", "mxl"})
        EXPECT_NE(formats.exporterByExtension(suffix), nullptr) << suffix;
}

TEST_F(FormatRegistryTest, nullAndPlacesPastTheEndAreRefused)
{
    zarn::addBuiltInFormats(formats);
    const unsigned importers = formats.importersCount();
    EXPECT_THROW(formats.add(static_cast<zarn::io::Importer *>(nullptr)), zarn::CoreException);
    EXPECT_THROW(formats.add(static_cast<zarn::io::Exporter *>(nullptr)), zarn::CoreException);
    EXPECT_EQ(formats.importersCount(), importers);
    EXPECT_THROW(formats.importer(importers), zarn::CoreException);
    EXPECT_THROW(formats.exporter(formats.exportersCount()), zarn::CoreException);
}

} // namespace
