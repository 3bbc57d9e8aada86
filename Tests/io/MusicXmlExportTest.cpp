// SPDX-License-Identifier: MIT
#include "ExportedMusicXml.h"

#include "../support/SmallScore.h"

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/io/ZarnMxlExporter.h>

namespace {

using namespace zarn;
using namespace musicxml;

TEST(MusicXmlExport, whatMusicXmlLacksIsToldWithItsPlace)
{
    SmallScore small;
    auto &model = *small.score.scoreModel();
    model.track(1)->setColor(0x123456);
    model.track(0)->bar(2)->voice(0)->beat(1)->setBarre({5, 0});
    model.track(0)->bar(3)->voice(0)->beat(1)->setBarre({7, 0});
    io::ExportReport report;
    io::MusicXmlExporter().toText(model, report);
    EXPECT_EQ(report.unheld().at("colour of a track"), 1U);
    EXPECT_EQ(report.firstUnheld("colour of a track").toString("track"), "track 2");
    EXPECT_EQ(report.unheld().at("barre"), 2U);
    EXPECT_EQ(report.firstUnheld("barre").toString("track"), "track 1, bar 3");
    EXPECT_EQ(report.unheld().size(), 2U);
}

TEST(MusicXmlExport, whatOnlyThisScoreSaysIsTold)
{
    SmallScore small;
    auto &model = *small.score.scoreModel();
    auto &master = *model.masterTrack();
    model.track(0)->setMidiConnection(MidiConnection());
    master.bypassType(Automation::Tempo, true);
    model.setFullScoreSystemsLayout({2, static_cast<int>(master.masterBarCount())});
    master.masterBar(0)->setMovementStart(true);
    master.masterBar(1)->setDoubleBar(true);
    master.masterBar(1)->setBarLine(BarLine::Dashed);
    master.masterBar(2)->setMovementStart(true);
    master.masterBar(2)->setFermatas({FermataMark::at({1, 7}, Fermata::Long)});
    master.masterBar(2)->setDoubleBar(true);
    master.masterBar(2)->setRepeatCount(2);
    model.track(0)->setChosenNotations(TrackNotations{false, true, false});
    model.track(1)->setChosenNotations(TrackNotations{false, true, false});
    model.track(1)->staff(1)->setCapoFret(3);
    model.track(0)->bar(1)->voice(0)->beat(1)->setSlashedGrace(true);
    io::ExportReport report;
    io::MusicXmlExporter().toText(model, report);
    for (const char *const kind :
         {"MIDI port and channels", "automation that is bypassed", "systems past the last bar",
          "start of a movement at the first bar", "bar line under another one",
          "start of a movement behind another bar line than a final one", "fermata over no beat",
          "stroke through a beat that is no grace beat", "double bar under a repeat sign",
          "clef of a staff without notation", "tablature without strings", "capo without strings"})
        EXPECT_EQ(report.unheld().count(kind), 1U) << kind;
    EXPECT_EQ(report.unheld().size(), 12U);
}

TEST(MusicXmlExport, aFirstBarWithMoreInAnotherPartIsNotFilledUp)
{
    const std::string listed = "</score-part><score-part id=\"P2\"><part-name>B</part-name>";
    const auto model = readFrom(
        score(measure(attributes("<divisions>1</divisions>") + note("C", 4, 8, "breve"))
                  + "</part><part id=\"P2\">"
                  + measure(attributes("<divisions>1</divisions>") + note("C", 4, 4, "whole")
                            + backup(4) + note("E", 4, 4, "whole", {}, "2"))
                  + measure(note("C", 4, 4, "whole", {}, "3")),
              listed));
    const auto once = readFrom(exported(*model));
    EXPECT_EQ(test::writeNative(*readFrom(exported(*once))), test::writeNative(*once));
    EXPECT_EQ(once->track(1)->bar(0)->voice(0)->beatCount(), 1U);
}

/// A medium that is full from the start.
class FullHandle final : public filesystem::FileHandle {
public:
    explicit FullHandle(std::unique_ptr<FileHandle> file) : _file(std::move(file)) { }
    std::string path() const override { return _file->path(); }
    std::int64_t size() const override { return _file->size(); }
    std::int64_t position() const override { return _file->position(); }

protected:
    bool doSeek(std::int64_t position) override { return _file->seek(position); }
    std::int64_t doRead(void *, std::int64_t) override { return -1; }
    std::int64_t doWrite(const void *, std::int64_t) override
    {
        fail("no space left on the device");
        return -1;
    }
    bool doClose() override { return _file->close(); }

private:
    std::unique_ptr<FileHandle> _file;
};

TEST(MusicXmlExport, archivesAreTheSameEachTimeAndFailuresLeaveTheOldFile)
{
    SmallScore small;
    const auto &model = *small.score.scoreModel();
    filesystem::RAMFileSystem files;
    const auto contentOf = [&files](const char *name) {
        const auto handle = files.open(name, filesystem::OpenMode::Read);
        std::string bytes(static_cast<std::size_t>(handle->size()), '\0');
        handle->readBlock(bytes.data(), handle->size());
        return bytes;
    };
    const io::MxlExporter packed;
    const io::MusicXmlExporter plain;
    for (const io::Exporter *exporter :
         {static_cast<const io::Exporter *>(&packed), static_cast<const io::Exporter *>(&plain)}) {
        exporter->write(model, *files.open("a", filesystem::OpenMode::Write));
        exporter->write(model, *files.open("b", filesystem::OpenMode::Write));
        const auto bytes = contentOf("a");
        EXPECT_EQ(bytes, contentOf("b"));
        FullHandle full(files.open("a", filesystem::OpenMode::Write));
        EXPECT_THROW(exporter->write(model, full), CoreException);
        EXPECT_EQ(contentOf("a"), bytes);
        io::ImportReport report;
        const auto handle = files.open("b", filesystem::OpenMode::Read);
        EXPECT_NE(io::MusicXmlImporter().read(*handle, report), nullptr);
        EXPECT_TRUE(report.problems().empty());
    }
    packed.write(model, *files.open("c.mxl", filesystem::OpenMode::Write));
    const auto bytes = contentOf("c.mxl");
    EXPECT_EQ(bytes.substr(30, 8 + 34), "mimetypeapplication/vnd.recordare.musicxml")
        << "first, and stored";
    EXPECT_EQ(bytes[8], '\0') << "the method of the first entry";
}

TEST(MusicXmlExport, textsAreWhatXmlCanHold)
{
    auto model = readFrom(score(quarters(1, note("C", 4, 4, "whole"))));
    model->setScoreProperty(ScoreProperty::Title, std::string("a\x01<b>\0&\x1f \u266d", 13));
    model->track(0)->setName("caf\xe9 \xed\xa0\x80");
    io::ExportReport report;
    const auto text = io::MusicXmlExporter().toText(*model, report);
    EXPECT_TRUE(report.hasProblem("characters"));
    const auto copy = readFrom(text);
    EXPECT_EQ(copy->property(ScoreProperty::Title), "a<b>& \u266d");
    EXPECT_EQ(copy->track(0)->name(), "caf");
}

TEST(MusicXmlExport, whiteSpaceAroundATextIsLeftOutAndTold)
{
    auto model = readFrom(score(quarters(1, note("C", 4, 4, "whole"))));
    model->setScoreProperty(ScoreProperty::Title, " a title\t");
    model->setScoreProperty(ScoreProperty::Artist, " \n");
    model->track(0)->bar(0)->voice(0)->beat(0)->setText("dolce ");
    io::ExportReport report;
    const auto text = io::MusicXmlExporter().toText(*model, report);
    ASSERT_FALSE(report.problems().empty());
    EXPECT_EQ(report.problems().back().toString("track"),
              "track 1, bar 1: white space around a text was left out");
    EXPECT_EQ(exported(*readFrom(text)), text);
}

/// Of several people who wrote the words none is lost.
TEST(MusicXmlExport, translatorsStandWithThePoets)
{
    std::string text = score(quarters(1, note("C", 4, 4, "whole")));
    text.insert(text.find("<part-list>"),
                "<identification><creator type=\"lyricist\">Anna</creator>"
                "<creator type=\"translator\">English by Eva</creator></identification>");
    const auto model = readFrom(text);
    EXPECT_EQ(model->property(ScoreProperty::Words), "Anna, English by Eva");
    EXPECT_EQ(readFrom(exported(*model))->property(ScoreProperty::Words), "Anna, English by Eva");
}

} // namespace
