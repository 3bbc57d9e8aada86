// SPDX-License-Identifier: MIT
// Notes and their tablature in one part, and what staves of a part sound.
#include "MusicXmlText.h"

#include <ZarnCore/model/ZarnModelCheck.h>
#include <ZarnCore/model/ZarnTrack.h>

#include <gtest/gtest.h>

using namespace musicxml;
using zarn::io::ImportReport;

namespace {

const std::string tabStaff = "<clef number=\"2\"><sign>TAB</sign></clef>";

std::string header(const std::string &details = {}, const std::string &transposes = {})
{
    return attributes("<divisions>2</divisions><staves>2</staves><clef number=\"1\"><sign>G</sign>"
                      "<line>2</line></clef>"
                      + tabStaff + details + transposes);
}

const std::string alternate =
    "<staff-details number=\"2\"><staff-type>alternate</staff-type></staff-details>";

std::string fretted(const char *step, int octave, int duration, const std::string &type, int string,
                    int fret, const std::string &voice = "5")
{
    auto text = note(step, octave, duration, type, {}, voice, 2);
    const std::string end = "</note>";
    text.insert(text.size() - end.size(),
                "<notations><technical><string>" + std::to_string(string) + "</string><fret>"
                    + std::to_string(fret) + "</fret></technical></notations>");
    return text;
}

/// Onset, written and sounding key, string and fret of the notes.
std::string placesOf(const zarn::ScoreModel &model)
{
    std::string text;
    for (const auto &note : zarn::io::listNotes(model))
        text += (text.empty() ? "" : " ") + note.onset.toString() + ":"
            + std::to_string(note.midi.value_or(-1)) + "/"
            + std::to_string(note.sounding.value_or(-1)) + "@" + std::to_string(note.string) + ","
            + std::to_string(note.fret);
    return text;
}

} // namespace

TEST(TwinStaves, notesAndTheirEqualTablatureAreOneStaffInBothNotations)
{
    ImportReport report;
    const auto model = import(
        score(measure(header() + note("E", 4, 4, "half") + note("G", 4, 4, "half") + backup(8)
                      + fretted("E", 4, 4, "half", 1, 0) + fretted("G", 4, 4, "half", 1, 3))),
        report);
    const auto &track = *model->tracks()[0];
    ASSERT_EQ(track.staffCount(), 1u);
    EXPECT_TRUE(track.notations().standard && track.notations().tablature);
    EXPECT_EQ(placesOf(*model), "0:64/64@5,0 2:67/67@5,3");
    EXPECT_EQ(track.staves()[0]->bars()[0]->clef(), zarn::ClefType::G2);
    EXPECT_TRUE(track.staves()[0]->isFretted());
    EXPECT_TRUE(report.problems().empty());
    EXPECT_EQ(report.tally().parts[0].mergedStaves, std::vector<std::uint32_t>{1});
    EXPECT_EQ(report.tally().parts[0].merged.pitched, 2u);
    EXPECT_TRUE(zarn::checkModel(*model).empty());
}

TEST(TwinStaves, aTablatureWithOtherMusicStaysAStaff)
{
    ImportReport report;
    const auto model = import(score(measure(header() + note("E", 4, 8, "whole") + backup(8)
                                            + fretted("C", 4, 8, "whole", 2, 1))),
                              report);
    EXPECT_EQ(model->tracks()[0]->staffCount(), 2u);
    EXPECT_FALSE(model->tracks()[0]->chosenNotations());
}

TEST(TwinStaves, whatOneOfThemAloneHoldsIsKeptAndWhatContradictsIsTold)
{
    ImportReport report;
    const auto direction = [](const char *words, int staff) {
        return "<direction><direction-type><words>" + std::string(words)
            + "</words></direction-type><staff>" + std::to_string(staff) + "</staff></direction>";
    };
    const auto model = import(
        score(measure(header(alternate) + note("E", 4, 4, "half") + note("A", 4, 2, "quarter")
                      + forward(2) + backup(8) + direction("let ring", 2)
                      + fretted("E", 4, 4, "half", 1, 0) + fretted("C", 5, 2, "quarter", 1, 8)
                      + fretted("D", 5, 2, "quarter", 1, 10))),
        report);
    ASSERT_EQ(model->tracks()[0]->staffCount(), 1u);
    const auto text = placesOf(*model);
    EXPECT_NE(text.find("0:64/64@5,0"), text.npos) << text;
    EXPECT_NE(text.find("2:69/69@-1,-1"), text.npos) << text;
    EXPECT_NE(text.find("2:72/72@5,8"), text.npos) << text;
    EXPECT_NE(text.find("3:74/74@5,10"), text.npos) << text;
    EXPECT_EQ(zarn::io::listNotes(*model).size(), 4u);
    EXPECT_EQ(model->tracks()[0]->staves()[0]->bars()[0]->voices()[0]->beats()[0]->text(),
              "let ring");
    EXPECT_TRUE(
        report.hasProblem("bar 1: a staff and its tablature differ; notes on the staff alone: 1"));
    EXPECT_TRUE(zarn::checkModel(*model).empty());
}

TEST(TwinStaves, pitchesThatTheirFretsDoNotSoundAreToldAndHold)
{
    ImportReport report;
    const auto tablature = attributes("<divisions>2</divisions>" + tabStaff
                                      + "<staff-details number=\"1\"><staff-lines>6</staff-lines>"
                                        "</staff-details>");
    const auto fret = [](const char *step, int octave, int duration, int at) {
        return fretted(step, octave, duration, duration == 4 ? "half" : "whole", 1, at);
    };
    auto text = measure(tablature + fret("E", 4, 4, 0) + fret("F", 4, 4, 2))
        + measure(fret("G", 5, 4, 3) + fret("A", 5, 4, 5)) + measure(fret("B", 5, 8, 7))
        + measure(fret("B", 4, 8, 7));
    for (std::size_t at = 0; (at = text.find("<staff>2</staff>", at)) != text.npos;)
        text.erase(at, 16);
    const auto model = import(score(text), report);
    EXPECT_NE(placesOf(*model).find("2:65/65@5,2 0:79/79@5,3"), std::string::npos)
        << placesOf(*model);
    EXPECT_TRUE(report.hasProblem("bar 1: a note is written 1 semitone lower than its string and "
                                  "fret sound; what is written sounds"));
    EXPECT_TRUE(report.hasProblem("bar 2: 3 notes up to bar 3 are written 12 semitones higher"));
    EXPECT_EQ(report.problems().size(), 2u);
}

TEST(TwinStaves, harmonicsAreWrittenWhereTheyAreTouchedOrAsTheySound)
{
    const auto harmonic = [](const char *step, int octave, int at) {
        auto text = fretted(step, octave, 8, "whole", 1, at);
        const std::string end = "</technical>";
        return text.insert(text.find(end), "<harmonic><natural/></harmonic>");
    };
    ImportReport report;
    const auto notes = note("E", 4, 8, "whole") + backup(8);
    import(score(measure(header() + notes + harmonic("B", 4, 7))
                 + measure(notes + harmonic("B", 5, 7)) + measure(notes + harmonic("E", 4, 7))
                 + measure(notes + harmonic("C", 5, 7))),
           report);
    EXPECT_EQ(report.problems().size(), 1u);
    EXPECT_TRUE(report.hasProblem("bar 4: a note is written 1 semitone higher"));
}

TEST(TwinStaves, equalNotesInOneVoiceAreTwinsWhereTheyHaveMoved)
{
    ImportReport report;
    const auto model = import(
        score(measure(header(alternate) + note("E", 4, 4, "half") + note("G", 4, 2, "quarter")
                      + note("E", 4, 2, "quarter") + backup(8) + fretted("E", 4, 2, "quarter", 1, 0)
                      + fretted("G", 4, 4, "half", 1, 3) + fretted("E", 4, 2, "quarter", 1, 0))),
        report);
    EXPECT_EQ(placesOf(*model), "0:64/64@5,0 2:67/67@5,3 3:64/64@5,0");
    EXPECT_TRUE(report.hasProblem("longer or shorter than in its tablature"));
    EXPECT_FALSE(report.hasProblem("differ; notes"));
    EXPECT_EQ(report.tally().parts[0].merged.pitched, 3u);
}

TEST(TwinStaves, aTranspositionOfTheNotesAloneLeavesTheTablatureWhereItSounds)
{
    const std::string octave = "<transpose number=\"1\"><chromatic>0</chromatic>"
                               "<octave-change>-1</octave-change></transpose>";
    // The tablature is written as it sounds, or as the notes are.
    for (const int written : {3, 4}) {
        ImportReport report;
        const auto model =
            import(score(measure(header({}, octave) + note("E", 4, 8, "whole") + backup(8)
                                 + fretted("E", written, 8, "whole", 4, 2))),
                   report);
        ASSERT_EQ(model->tracks()[0]->staffCount(), 1u) << written;
        EXPECT_EQ(model->tracks()[0]->transpositionOffset(), -12);
        EXPECT_EQ(placesOf(*model), "0:64/52@2,2");
    }
    // A staff below that is no twin.
    ImportReport report;
    const auto model = import(score(measure(header({}, octave) + note("E", 4, 8, "whole")
                                            + backup(8) + fretted("A", 3, 8, "whole", 3, 2))),
                              report);
    EXPECT_EQ(placesOf(*model), "0:64/52@-1,-1 0:69/57@3,2");
    EXPECT_TRUE(
        report.hasProblem("staff 2 sounds as written in bar 1, the part 12 semitones lower"));
}

TEST(StaffTranspositions, notesSoundTheSameAfterAChangeAndItsBarsAreTold)
{
    const auto transpose = [](int diatonic, int chromatic) {
        return attributes("<transpose><diatonic>" + std::to_string(diatonic)
                          + "</diatonic><chromatic>" + std::to_string(chromatic)
                          + "</chromatic></transpose>");
    };
    const std::string key = attributes("<divisions>1</divisions><key><fifths>2</fifths></key>");
    ImportReport report;
    const auto model = import(score(measure(key + transpose(-1, -2) + note("D", 5, 4, "whole"))
                                    + measure(attributes("<key><fifths>-3</fifths></key>")
                                              + transpose(-2, -3) + note("E", 5, 4, "whole"))
                                    + measure(note("C", 5, 4, "whole"))
                                    + measure(transpose(-1, -2) + note("D", 5, 4, "whole"))),
                              report);
    EXPECT_EQ(model->tracks()[0]->transpositionOffset(), -2);
    EXPECT_EQ(placesOf(*model), "0:74/72@-1,-1 0:75/73@-1,-1 0:71/69@-1,-1 0:74/72@-1,-1");
    EXPECT_EQ(notesOf(*model), "0:4:D5 0:4:D#5 0:4:B4 0:4:D5");
    EXPECT_TRUE(report.hasProblem("staff 1 sounds 3 semitones lower than written from bar 2 to 3"));
    for (const auto &bar : model->masterTrack()->masterBars())
        EXPECT_EQ(bar->concertKeySignature().accidentalCount(), 0);
}
