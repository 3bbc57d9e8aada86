// SPDX-License-Identifier: MIT
#include "MusicXmlText.h"

#include "../support/NativeDocument.h"
#include "../support/SmallScore.h"

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/io/ZarnExportReport.h>
#include <ZarnCore/io/ZarnMusicXmlExporter.h>
#include <ZarnCore/io/ZarnMxlExporter.h>
#include <ZarnCore/model/form/ZarnInForce.h>
#include <ZarnCore/model/form/ZarnTupletGroup.h>

#include <gtest/gtest.h>

#include <pugixml.hpp>

namespace {

using namespace zarn;
using namespace musicxml;

std::string exported(const ScoreModel &model)
{
    io::ExportReport report;
    return io::MusicXmlExporter().toText(model, report);
}

std::shared_ptr<ScoreModel> readFrom(const std::string &text)
{
    io::ImportReport report;
    return musicxml::import(text, report);
}

/// The export of a score that is written as MusicXML here.
class Exported {
public:
    explicit Exported(const ScoreModel &model) : _text(exported(model))
    {
        _document.load_string(_text.c_str());
    }
    explicit Exported(const std::string &measures, const std::string &listed = {})
        : Exported(*readFrom(score(measures, listed)))
    {
    }

    const std::string &text() const { return _text; }
    std::size_t count(const std::string &path) const
    {
        return _document.select_nodes(path.c_str()).size();
    }
    bool has(const std::string &path) const { return count(path) > 0; }

    /// The texts of all nodes of a path, with spaces between them.
    std::string all(const std::string &path) const
    {
        std::string texts;
        for (const auto &found : _document.select_nodes(path.c_str())) {
            const std::string text =
                found.node() ? found.node().text().get() : found.attribute().value();
            texts += (texts.empty() ? "" : " ") + text;
        }
        return texts;
    }

private:
    std::string _text;
    pugi::xml_document _document;
};

std::string quarters(int divisions, const std::string &content)
{
    return measure(attributes("<divisions>" + std::to_string(divisions) + "</divisions>")
                   + content);
}

std::string noted(const std::string &notations, const char *step = "C")
{
    return note(step, 4, 1, "quarter</type><notations>" + notations + "</notations><type>quarter");
}

std::string tuplet(const char *step, int actual, int normal, const std::string &ends = {})
{
    return "<note><pitch><step>" + std::string(step)
        + "</step><octave>4</octave></pitch><duration>4</duration><type>eighth</type>"
          "<time-modification><actual-notes>"
        + std::to_string(actual) + "</actual-notes><normal-notes>" + std::to_string(normal)
        + "</normal-notes></time-modification>"
        + (ends.empty() ? "" : "<notations>" + ends + "</notations>") + "</note>";
}

TEST(MusicXmlExport, divisionsHoldAllLengthsExactly)
{
    // A triplet of eighths and a septuplet of sixteenths need 3 and 7, the sixteenths 4.
    const Exported written(quarters(12,
                                    tuplet("C", 3, 2) + tuplet("D", 3, 2) + tuplet("E", 3, 2)
                                        + note("F", 4, 36, "half</type><dot/><type>half")));
    EXPECT_EQ(written.all("//divisions"), "3");
    EXPECT_EQ(written.all("//duration"), "1 1 1 9");
    EXPECT_FALSE(written.has("//backup"));
}

TEST(MusicXmlExport, voicesAndStavesFollowEachOtherByBackups)
{
    const Exported written(quarters(1,
                                    note("C", 5, 4, "whole") + backup(4)
                                        + note("E", 4, 4, "whole", "", "2") + backup(4)
                                        + note("C", 3, 4, "whole", "", "5", 2)));
    EXPECT_EQ(written.all("//note/voice"), "1 2 5");
    EXPECT_EQ(written.all("//note/staff"), "1 1 2");
    EXPECT_EQ(written.all("//backup/duration"), "4 4");
}

TEST(MusicXmlExport, aVoiceInALaterSlotStaysThere)
{
    SmallScore small;
    const auto copy = readFrom(exported(*small.score.scoreModel()));
    const auto bar = copy->track(1)->bar(0);
    EXPECT_EQ(bar->voice(1), nullptr);
    ASSERT_NE(bar->voice(2), nullptr);
    EXPECT_TRUE(bar->voice(2)->beat(0)->hasNotes());
}

TEST(MusicXmlExport, slursHaveTheLowestNumbersThatAreFree)
{
    const auto slur = [](const char *type, int number) {
        return "<slur type=\"" + std::string(type) + "\" number=\"" + std::to_string(number)
            + "\"/>";
    };
    const Exported written(quarters(1,
                                    noted(slur("start", 5)) + noted(slur("start", 9), "D")
                                        + noted(slur("stop", 9), "E")
                                        + noted(slur("stop", 5), "F")));
    EXPECT_EQ(written.all("//slur/@type"), "start start stop stop");
    EXPECT_EQ(written.all("//slur/@number"), "1 2 2 1");
}

TEST(MusicXmlExport, tiesAreSoundAndSignOnBothNotes)
{
    const Exported written(
        quarters(1, noted("<tied type=\"start\"/>") + noted("<tied type=\"stop\"/>")));
    EXPECT_EQ(written.all("//tie/@type"), "start stop");
    EXPECT_EQ(written.all("//tied/@type"), "start stop");
}

TEST(MusicXmlExport, tupletsHaveTheirRatiosAndBrackets)
{
    const Exported written(quarters(12, tuplet("C", 3, 2) + tuplet("D", 3, 2) + tuplet("E", 3, 2)));
    EXPECT_EQ(written.all("//actual-notes"), "3 3 3");
    EXPECT_EQ(written.all("//normal-type"), "eighth eighth eighth");
    EXPECT_EQ(written.all("//tuplet/@type"), "start stop");
    EXPECT_EQ(written.all("//tuplet-actual/tuplet-number"), "3");
}

TEST(MusicXmlExport, innerTupletsKeepTheirOwnRatio)
{
    const auto model = std::make_shared<ScoreModel>();
    model->createAndInsertTrack(0, InstrumentSet::flute);
    model->insertEmptyBarColumns(0, 1);
    const auto voice = model->track(0)->bar(0)->ensureVoice(0);
    for (int i = 0; i < 6; ++i) {
        RhythmValue rhythm(RhythmValue::NoteValue::Sixteenth);
        rhythm.setPrimaryTupletRatio({3, 2});
        rhythm.setSecondaryTupletRatio({6, 4});
        auto beat = std::make_shared<Beat>(rhythm);
        beat->addNote(std::make_shared<zarn::Note>(60 + i));
        voice->addBeat(beat);
    }
    const Exported written(*model);
    EXPECT_EQ(written.all("(//actual-notes)[1]"), "18");
    const auto copy = readFrom(written.text());
    EXPECT_EQ(copy->track(0)->bar(0)->voice(0)->beat(2)->rhythmValue(),
              voice->beat(2)->rhythmValue());
}

TEST(MusicXmlExport, beamsAndAccidentalsAreWritten)
{
    const auto eighth = [](const char *step, const char *alter) {
        return "<note><pitch><step>" + std::string(step) + "</step>" + alter
            + "<octave>4</octave></pitch><duration>1</duration><type>eighth</type></note>";
    };
    const std::string sharp = "<alter>1</alter>";
    const Exported written(quarters(2,
                                    eighth("F", sharp.c_str()) + eighth("F", sharp.c_str())
                                        + eighth("F", "") + eighth("G", "")));
    EXPECT_EQ(written.all("//accidental"), "sharp natural");
    EXPECT_EQ(written.all("//beam"), "begin continue continue end");
    EXPECT_TRUE(written.has("//supports[@element='beam']"));
    EXPECT_FALSE(written.has("//stem"));
}

TEST(MusicXmlExport, shorterNotesHaveHooks)
{
    const auto timed = [](int duration, const char *type, const char *dot) {
        return "<note><pitch><step>C</step><octave>4</octave></pitch><duration>"
            + std::to_string(duration) + "</duration><type>" + type + "</type>" + dot + "</note>";
    };
    const Exported written(quarters(4, timed(3, "eighth", "<dot/>") + timed(1, "16th", "")));
    EXPECT_EQ(written.all("//note[2]/beam"), "end backward hook");
}

TEST(MusicXmlExport, aFrettedTrackIsTwoStavesAndOneAgain)
{
    SmallScore small;
    auto &model = *small.score.scoreModel();
    model.removeTrack(1);
    const Exported written(model);
    EXPECT_EQ(written.all("//staves"), "2");
    EXPECT_EQ(written.all("//staff-details[@number='2']/staff-type"), "alternate");
    EXPECT_EQ(written.all("//clef/sign"), "G TAB");
    EXPECT_EQ(written.all("//staff-tuning[@line='1']/tuning-step"), "E") << "from the bottom";
    // The open low e is the sixth string, and an octave lower than it is written.
    EXPECT_EQ(written.all("//measure[1]/note[1]//string"), "6");
    EXPECT_EQ(written.all("//transpose/octave-change"), "-1");
    EXPECT_FALSE(written.has("//clef-octave-change")) << "one of the two says it";
    const auto copy = readFrom(written.text());
    EXPECT_EQ(copy->track(0)->staffCount(), 1U);
    EXPECT_FALSE(copy->track(0)->chosenNotations());
    EXPECT_EQ(copy->track(0)->staff(0)->tuning(), model.track(0)->staff(0)->tuning());
}

TEST(MusicXmlExport, percussionIsUnpitchedWithAnInstrumentForEachKey)
{
    const auto struck = [](const char *step, const char *id) {
        return "<note><unpitched><display-step>" + std::string(step)
            + "</display-step><display-octave>5</display-octave></unpitched><duration>1</duration>"
              "<instrument id=\""
            + id + "\"/><type>quarter</type><notehead>x</notehead></note>";
    };
    const std::string list =
        "<score-instrument id=\"A\"><instrument-name>Hat</instrument-name></score-instrument>"
        "<score-instrument id=\"B\"><instrument-name>Ride</instrument-name></score-instrument>"
        "<midi-instrument id=\"A\"><midi-unpitched>43</midi-unpitched></midi-instrument>"
        "<midi-instrument id=\"B\"><midi-unpitched>52</midi-unpitched></midi-instrument>";
    const Exported written(quarters(1,
                                    attributes("<clef><sign>percussion</sign></clef>")
                                        + struck("G", "A") + struck("F", "B")),
                           list);
    EXPECT_EQ(written.all("//midi-unpitched"), "43 52");
    EXPECT_EQ(written.all("//note/instrument/@id"), "P1-I43 P1-I52");
    EXPECT_EQ(written.all("//display-step"), "G F");
    EXPECT_EQ(written.all("//notehead"), "x x");
    EXPECT_EQ(written.all("//clef/sign"), "percussion");
}

TEST(MusicXmlExport, unpitchedNotesStandAsPitchesDoUnderTheClefAtHand)
{
    const auto struck = [](const char *step, int octave) {
        return "<note><unpitched><display-step>" + std::string(step)
            + "</display-step><display-octave>" + std::to_string(octave)
            + "</display-octave></unpitched><duration>1</duration><type>quarter</type></note>";
    };
    const std::string bass = attributes("<clef><sign>F</sign><line>4</line></clef>");
    const std::string drums = attributes("<clef><sign>percussion</sign></clef>");
    const Exported written(
        quarters(1, bass + struck("G", 2) + struck("D", 3) + drums + struck("F", 4)));
    EXPECT_EQ(written.all("//display-step"), "G D F");
    EXPECT_EQ(written.all("//display-octave"), "2 3 4");
    std::vector<int> lines;
    const auto copy = readFrom(written.text());
    for (const auto &beat : copy->track(0)->bar(0)->voice(0)->beats())
        for (const auto &note : beat->notes())
            lines.push_back(note->staffLine());
    EXPECT_EQ(lines, std::vector<int>({0, 4, 1}));
}

TEST(MusicXmlExport, hammerOnsHaveASlurTooAndAreReadWithout)
{
    SmallScore small;
    auto &model = *small.score.scoreModel();
    model.removeTrack(1);
    auto &voice = *model.track(0)->bar(1)->voice(0);
    voice.beat(1)->note(0)->setHopo(true); // on string 1, to another fret of it
    const auto aim = std::make_shared<zarn::Note>(59);
    aim->setString(1);
    aim->setFret(2);
    voice.beat(2)->addNote(aim);
    const Exported written(model);
    EXPECT_EQ(written.all("//note[staff='1']//hammer-on/@type"), "start stop");
    EXPECT_EQ(written.all("//note[staff='1']//slur/@type"), "start stop");
    const auto copy = readFrom(written.text());
    const auto &beat = *copy->track(0)->bar(1)->voice(0)->beat(1);
    EXPECT_TRUE(beat.note(0)->isHopo());
    EXPECT_FALSE(beat.isSlurredToNext());
}

TEST(MusicXmlExport, repeatsEndingsAndJumps)
{
    auto model =
        readFrom(score(quarters(1, note("C", 4, 4, "whole")) + measure(note("D", 4, 4, "whole"))
                       + measure(note("E", 4, 4, "whole")) + measure(note("F", 4, 4, "whole"))));
    auto &master = *model->masterTrack();
    master.masterBar(0)->setRepeatStart(true);
    master.masterBar(1)->setAlternateEndings(0b101);
    master.masterBar(1)->setRepeatCount(3);
    master.masterBar(2)->setAlternateEndings(0b010);
    master.setDirection(static_cast<int>(DirectionMark::SegnoSegno), 0);
    master.setDirection(static_cast<int>(DirectionMark::DaSegnoSegnoAlDoubleCoda), 3);
    const Exported written(*model);
    EXPECT_EQ(written.all("//ending/@number"), "1, 3 1, 3 2 2");
    EXPECT_EQ(written.all("//ending/@type"), "start stop start discontinue");
    EXPECT_EQ(written.all("//repeat/@times"), "3");
    EXPECT_EQ(written.all("//direction[direction-type/segno]/sound/@segno"), "segno-segno");
    EXPECT_EQ(written.all("//direction[sound/@dalsegno]//words"), "D.S. al Double Coda");
    const auto copy = readFrom(written.text());
    EXPECT_EQ(test::writeNative(*copy), test::writeNative(*model));
}

TEST(MusicXmlExport, aPickupIsBarZero)
{
    const Exported written(quarters(1, note("C", 4, 1, "quarter"))
                           + measure(note("D", 4, 4, "whole")));
    EXPECT_EQ(written.all("//measure/@number"), "0 1");
    EXPECT_EQ(written.all("//measure[1]/@implicit"), "yes");
}

TEST(MusicXmlExport, clefsChangeWhereTheyDoInsideOfABar)
{
    auto model = readFrom(score(quarters(1, note("C", 4, 2, "half") + note("D", 4, 2, "half"))));
    model->track(0)->bar(0)->setClefChanges({{utils::rational(2), ClefType::F4}});
    const Exported written(*model);
    EXPECT_EQ(written.all("//note[1]/following-sibling::*[1]/clef/sign"), "F");
    const auto copy = readFrom(written.text());
    EXPECT_EQ(copy->track(0)->bar(0)->clefChanges(), model->track(0)->bar(0)->clefChanges());
}

TEST(MusicXmlExport, chordsStandInFrontOfTheirNotesWithTheirFrames)
{
    auto model = readFrom(score(quarters(1, note("C", 4, 4, "whole"))));
    ChordDiagram diagram;
    diagram.name = "Am7/G";
    diagram.frets = {3, 0, 2, 0, 1, 0};
    diagram.fingers = {3, 0, 2, 0, 1, 0};
    model->track(0)->bar(0)->voice(0)->beat(0)->setChord(
        {"Am7/G", std::make_shared<const ChordDiagram>(diagram)});
    const Exported written(*model);
    EXPECT_EQ(written.all("//harmony/root/root-step"), "A");
    EXPECT_EQ(written.all("//harmony/kind"), "minor-seventh");
    EXPECT_EQ(written.all("//harmony/bass/bass-step"), "G");
    EXPECT_EQ(written.all("//frame-note[string='6']/fret"), "3") << "strings from the highest";
    EXPECT_TRUE(written.has("//harmony/following-sibling::note"));
    EXPECT_FALSE(written.has("//harmony/offset"));
    EXPECT_EQ(test::writeNative(*readFrom(written.text())), test::writeNative(*model));
}

TEST(MusicXmlExport, lyricsAndGraceNotes)
{
    auto model = readFrom(score(quarters(1, note("C", 4, 4, "whole"))));
    auto &voice = *model->track(0)->bar(0)->voice(0);
    voice.beat(0)->setLyrics({{0, Syllabic::Begin, false, "A"}, {1, Syllabic::Single, true, "O"}});
    auto grace = std::make_shared<Beat>(RhythmValue(RhythmValue::NoteValue::Eighth));
    grace->addNote(std::make_shared<zarn::Note>(62));
    grace->setGraceType(GraceType::BeforeBeat);
    voice.insertBeat(0, grace);
    const Exported written(*model);
    EXPECT_EQ(written.all("//lyric/@number"), "1 2");
    EXPECT_EQ(written.all("//syllabic"), "begin single");
    EXPECT_TRUE(written.has("//lyric[2]/extend"));
    EXPECT_TRUE(written.has("//note[1]/grace[@steal-time-previous]"));
    EXPECT_FALSE(written.has("//note[1]/duration"));
    const auto copy = readFrom(written.text());
    EXPECT_EQ(copy->track(0)->bar(0)->voice(0)->beat(0)->graceType(), GraceType::BeforeBeat);
    EXPECT_EQ(copy->track(0)->bar(0)->voice(0)->beat(1)->lyrics(), voice.beat(1)->lyrics());
}

TEST(MusicXmlExport, everyFeelIsASwingUntilItEnds)
{
    for (const auto feel :
         {TripletFeel::Triplet8th, TripletFeel::Triplet16th, TripletFeel::Dotted8th,
          TripletFeel::Dotted16th, TripletFeel::Scottish8th, TripletFeel::Scottish16th}) {
        auto model =
            readFrom(score(quarters(1, note("C", 4, 4, "whole")) + measure(note("D", 4, 4, "whole"))
                           + measure(note("E", 4, 4, "whole"))));
        model->masterTrack()->masterBar(1)->setTripletFeel(feel);
        const Exported written(*model);
        EXPECT_EQ(written.count("//swing"), 2U);
        EXPECT_TRUE(written.has("//measure[3]//straight"));
        EXPECT_EQ(test::writeNative(*readFrom(written.text())), test::writeNative(*model));
    }
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

/// The export of a document, which is read again as the same score.
std::string exportedWhole(const std::string &measures, const char *path,
                          const std::string &listed = {})
{
    const auto model = readFrom(score(measures, listed));
    const Exported written(*model);
    EXPECT_EQ(test::writeNative(*readFrom(written.text())), test::writeNative(*model)) << path;
    return written.all(path);
}

TEST(MusicXmlExport, bracketsOfTupletsInTupletsAreAsLongAsTheirNotes)
{
    std::string nine;
    for (int i = 0; i < 9; ++i)
        nine += "<note><pitch><step>C</step><octave>4</octave></pitch><duration>4</duration>"
                "<type>16th</type><time-modification><actual-notes>9</actual-notes><normal-notes>4"
                "</normal-notes></time-modification><notations>"
            + std::string(i == 0 ? "<tuplet type=\"start\" number=\"1\"><tuplet-actual>"
                                   "<tuplet-number>3</tuplet-number></tuplet-actual><tuplet-normal>"
                                   "<tuplet-number>2</tuplet-number></tuplet-normal></tuplet>"
                                 : "")
            + (i % 3 == 0 ? "<tuplet type=\"start\" number=\"2\"/>" : "")
            + (i % 3 == 2 ? "<tuplet type=\"stop\" number=\"2\"/>" : "")
            + (i == 8 ? "<tuplet type=\"stop\" number=\"1\"/>" : "") + "</notations></note>";
    EXPECT_EQ(exportedWhole(quarters(36, nine), "//tuplet[@type='start']/@number"), "1 2 2 2");
}

TEST(MusicXmlExport, aTupletWhoseFirstNotesAreElsewhereEndsWithItsTime)
{
    RhythmValue triplet(RhythmValue::NoteValue::Eighth);
    triplet.setPrimaryTupletRatio({3, 2});
    const auto beatsUntilFull = [&triplet](const utils::rational &onset) {
        TupletGroup group(triplet, TupletLevel::Outer, onset);
        int beats = 0;
        do {
            group.add(triplet);
            ++beats;
        } while (!group.isFull() && beats < 9);
        return beats;
    };
    EXPECT_EQ(beatsUntilFull(1), 3);
    EXPECT_EQ(beatsUntilFull(utils::rational(4, 3)), 2);
    EXPECT_EQ(beatsUntilFull(utils::rational(5, 3)), 1);
    EXPECT_EQ(beatsUntilFull(utils::rational(1, 2)), 3) << "a syncopation";
}

TEST(MusicXmlExport, fingersCountFromTheThumbOnKeysAlone)
{
    const auto fingered = [](const char *number) {
        return noted("<technical><fingering>" + std::string(number) + "</fingering></technical>");
    };
    const std::string bar = quarters(1, fingered("0") + fingered("1") + fingered("4"));
    const std::string sound = "<score-instrument id=\"P1-I1\"><instrument-name/><instrument-sound>";
    EXPECT_EQ(exportedWhole(bar, "//fingering",
                            sound + "strings.violin</instrument-sound></score-instrument>"),
              "0 1 4");
    const std::string hand = quarters(1, fingered("1") + fingered("4") + fingered("5"));
    EXPECT_EQ(exportedWhole(hand, "//fingering",
                            sound + "keyboard.piano</instrument-sound></score-instrument>"),
              "1 4 5");
}

TEST(MusicXmlExport, metersThatAreSumsStaySums)
{
    const auto timed = [](const char *beats) {
        return measure(attributes("<divisions>2</divisions><time><beats>" + std::string(beats)
                                  + "</beats><beat-type>8</beat-type></time>")
                       + note("C", 4, 5, "half"));
    };
    EXPECT_EQ(exportedWhole(timed("3+2") + timed("3+2") + timed("2+3") + timed("5"), "//beats"),
              "3+2 2+3 5");
}

/// Some programs lose a slur that ends in the document before it begins.
TEST(MusicXmlExport, slursBetweenVoicesAndStavesBeginBeforeTheyEnd)
{
    const auto slurred = [](const char *step, const char *type, const char *voice, int staff) {
        return "<note><pitch><step>" + std::string(step)
            + "</step><octave>4</octave></pitch><duration>2</duration><voice>" + voice
            + "</voice><type>half</type><staff>" + std::to_string(staff) + "</staff>"
            + (type[0] == '\0' ? std::string()
                               : "<notations><slur number=\"1\" type=\"" + std::string(type)
                       + "\"/></notations>")
            + "</note>";
    };
    const auto twice = [&](const char *voice, int staff) {
        return quarters(1,
                        slurred("E", "", "1", 1) + slurred("F", "stop", "1", 1) + backup(4)
                            + slurred("C", "start", voice, staff) + slurred("D", "", voice, staff));
    };
    EXPECT_EQ(exportedWhole(twice("2", 1), "//slur/@type"), "start stop");
    EXPECT_EQ(exportedWhole(twice("5", 2), "//slur/@type"), "start stop");
}

/// A tempo with a mark in its words shows no other number.
TEST(MusicXmlExport, metronomeMarksThatAreNoTempoStayMarks)
{
    const auto tempo = [](const std::string &types, const std::string &sound = {}) {
        return "<direction>" + types + (sound.empty() ? "" : "<sound tempo=\"" + sound + "\"/>")
            + "</direction>";
    };
    const std::string words = "<direction-type><words>Vif</words></direction-type>";
    const auto mark = [](const std::string &content) {
        return "<direction-type><metronome>" + content + "</metronome></direction-type>";
    };
    const std::string eighth = "<beat-unit>eighth</beat-unit>";
    const std::string dotted = "<beat-unit>quarter</beat-unit><beat-unit-dot/>";
    const std::string measures =
        quarters(1,
                 tempo(words + mark(dotted + "<per-minute>84</per-minute>"), "210")
                     + note("C", 4, 4, "whole"))
        + measure(tempo(mark(eighth + dotted)) + note("D", 4, 4, "whole"));
    EXPECT_EQ(exportedWhole(measures, "//metronome/beat-unit"), "quarter eighth quarter");
    EXPECT_EQ(exportedWhole(measures, "//sound/@tempo"), "210 630");
    const auto model = readFrom(score(measures));
    const auto tempos = temposOf(*model->masterTrack());
    ASSERT_EQ(tempos.size(), 2U);
    EXPECT_EQ(tempos[0].text, "Vif \u2669. = 84");
    EXPECT_EQ(tempos[1].text, "\u266a = \u2669.");
}

TEST(MusicXmlExport, wordsOfATempoThatChangesNothingStay)
{
    const std::string again = "<direction><direction-type><words>a tempo</words></direction-type>"
                              "<sound tempo=\"100\"/></direction>";
    const std::string bar = quarters(1, again + note("C", 4, 4, "whole"));
    EXPECT_EQ(exportedWhole(bar + bar + bar, "//words"), "a tempo a tempo a tempo");
}

/// An ending that is open and goes on up to the one behind it stands over its first bar.
TEST(MusicXmlExport, openEndingsAreWrittenAsTheyWereRead)
{
    const auto bar = [](const char *number, const char *end) {
        return measure(attributes("<divisions>1</divisions>")
                       + (number[0] != '\0' ? "<barline location=\"left\"><ending number=\""
                                  + std::string(number) + "\" type=\"start\"/></barline>"
                                            : std::string())
                       + note("C", 4, 4, "whole")
                       + (end[0] != '\0' ? "<barline location=\"right\"><ending number=\""
                                  + std::string(number) + "\" type=\"" + end + "\"/></barline>"
                                         : std::string()));
    };
    const std::string measures = bar("", "") + bar("1", "stop") + bar("2", "discontinue")
        + bar("", "") + bar("", "") + bar("1", "stop") + bar("2", "discontinue");
    EXPECT_EQ(exportedWhole(measures, "//measure[barline/ending]/barline/ending/@type"),
              "start stop start discontinue start stop start discontinue");
}

} // namespace
