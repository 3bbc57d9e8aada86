// SPDX-License-Identifier: MIT
#include "ExportedMusicXml.h"

#include <ZarnCore/model/form/ZarnInForce.h>

namespace {

using namespace zarn;
using namespace musicxml;

TEST(MusicXmlExportForm, repeatsEndingsAndJumps)
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

TEST(MusicXmlExportForm, aPickupIsBarZero)
{
    const Exported written(quarters(1, note("C", 4, 1, "quarter"))
                           + measure(note("D", 4, 4, "whole")));
    EXPECT_EQ(written.all("//measure/@number"), "0 1");
    EXPECT_EQ(written.all("//measure[1]/@implicit"), "yes");
}

TEST(MusicXmlExportForm, everyFeelIsASwingUntilItEnds)
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

TEST(MusicXmlExportForm, metersThatAreSumsStaySums)
{
    const auto timed = [](const char *beats, const char *unit = "8") {
        return measure(attributes("<divisions>2</divisions><time><beats>" + std::string(beats)
                                  + "</beats><beat-type>" + unit + "</beat-type></time>")
                       + note("C", 4, 5, "half"));
    };
    EXPECT_EQ(exportedWhole(timed("3+2") + timed("3+2") + timed("2+3") + timed("5"), "//beats"),
              "3+2 2+3 5");
    EXPECT_EQ(exportedWhole(timed("5+3+1", "4") + timed("9", "4"), "//beats"), "5+3+1 9");
}

/// A tempo with a mark in its words shows no other number.
TEST(MusicXmlExportForm, metronomeMarksThatAreNoTempoStayMarks)
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

TEST(MusicXmlExportForm, wordsOfATempoThatChangesNothingStay)
{
    const std::string again = "<direction><direction-type><words>a tempo</words></direction-type>"
                              "<sound tempo=\"100\"/></direction>";
    const std::string bar = quarters(1, again + note("C", 4, 4, "whole"));
    EXPECT_EQ(exportedWhole(bar + bar + bar, "//words"), "a tempo a tempo a tempo");
}

/// An ending that is open and goes on up to the one behind it stands over its first bar.
TEST(MusicXmlExportForm, openEndingsAreWrittenAsTheyWereRead)
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
