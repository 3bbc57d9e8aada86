// SPDX-License-Identifier: MIT
// Ties, keys of percussion, and what is told about single notes and parts.
#include "MusicXmlText.h"

#include <ZarnCore/instruments/sets/ZarnInstrumentSetLibrary.h>
#include <ZarnCore/model/ZarnTrack.h>

#include <gtest/gtest.h>

#include <rapidjson/document.h>

using namespace musicxml;
using zarn::io::ImportReport;

namespace {

/// "-" for a note of its own, "t" for one that is held.
std::string tiesOf(const zarn::ScoreModel &model)
{
    std::string text;
    for (const auto &note : zarn::io::listNotes(model))
        text += note.isTied ? 't' : '-';
    return text;
}

std::string tied(const char *step, int duration, const char *type, const std::string &voice = "1")
{
    return note(step, 4, duration, type, "<tie type=\"start\"/>", voice);
}

const std::string divisions = attributes("<divisions>1</divisions>");

std::string unpitched(const std::string &place, const std::string &more = {})
{
    return "<note><unpitched>" + place + "</unpitched><duration>1</duration>" + more
        + "<type>quarter</type></note>";
}

} // namespace

TEST(MusicXmlTies, oneThatNothingEndsIsHeldIntoTheSamePitchThatFollowsAtOnce)
{
    ImportReport report;
    const auto model =
        import(score(measure(divisions + note("C", 4, 2, "half") + tied("D", 2, "half"))
                     + measure(tied("D", 2, "half") + note("D", 4, 2, "half"))),
               report);
    EXPECT_EQ(tiesOf(*model), "--tt");
    EXPECT_TRUE(report.problems().empty());
}

TEST(MusicXmlTies, drumsAtOnePlaceOfTheStaffHoldTheirOwn)
{
    const auto struck = [](const char *drum, const std::string &tie) {
        return "<note><unpitched><display-step>C</display-step><display-octave>5</display-octave>"
               "</unpitched><duration>2</duration>"
            + tie + "<instrument id=\"" + drum + "\"/><type>half</type></note>";
    };
    const std::string start = "<tie type=\"start\"/>";
    for (const char *const second : {"P1-I43", "P1-I44"}) {
        ImportReport report;
        const auto model =
            import(score(measure(struck("P1-I43", start) + struck(second, "")),
                         "<score-instrument id=\"P1-I43\"><instrument-name>Closed Hi-Hat"
                         "</instrument-name></score-instrument><score-instrument id=\"P1-I44\">"
                         "<instrument-name>Pedal Hi-Hat</instrument-name></score-instrument>"),
                   report);
        const bool isSame = std::string(second) == "P1-I43";
        EXPECT_EQ(model->track(0)->bar(0)->voice(0)->beat(1)->note(0)->isTied(), isSame);
        EXPECT_NE(report.hasProblem("a tie is begun here that nothing ends"), isSame);
    }
}

TEST(MusicXmlTies, otherPitchesVoicesAndPlacesDoNotHoldIt)
{
    ImportReport report;
    const auto model = import(
        score(measure(divisions + tied("C", 1, "quarter") + note("D", 4, 1, "quarter")
                      + note("C", 4, 2, "half") + backup(4) + note("E", 4, 4, "whole", {}, "2"))
              + measure(tied("F", 4, "whole"))
              + measure("<note><rest/><duration>2</duration><voice>1</voice></note>"
                        + note("F", 4, 2, "half") + backup(4) + note("F", 4, 4, "whole", {}, "2"))),
        report);
    EXPECT_EQ(tiesOf(*model).find('t'), std::string::npos);
    ASSERT_EQ(report.problems().size(), 2u);
    for (int bar = 0; bar < 2; ++bar) {
        const auto &problem = report.problems()[static_cast<std::size_t>(bar)];
        EXPECT_EQ(problem.bar, bar);
        EXPECT_EQ(problem.text, "a tie is begun here that nothing ends");
    }
}

TEST(MusicXmlTempos, theLaterOneAtAPlaceHoldsAndIsTold)
{
    const auto tempo = [](const char *value) {
        return "<direction><direction-type><words>Tempo</words></direction-type><sound tempo=\""
            + std::string(value) + "\"/></direction>";
    };
    ImportReport report;
    const auto model = import(score(measure(divisions + tempo("90") + tempo("90") + tempo("120.5")
                                            + note("C", 4, 4, "whole"))),
                              report);
    EXPECT_FLOAT_EQ(model->masterTrack()->automation(zarn::Automation::Tempo, 0, 0.0f)->value(),
                    120.5f);
    ASSERT_EQ(report.problems().size(), 1u);
    EXPECT_TRUE(report.hasProblem("120.5 quarters a minute hold instead of 90"));
}

TEST(MusicXmlPercussion, notesWithoutAKeyGetThatOfTheirInstrumentOrTheirPlace)
{
    const QByteArray text =
        scores::bytesOf(QStringLiteral(":/instrumentSet/ZarnInstrumentSets.json"));
    rapidjson::Document sets;
    sets.Parse(text.constData(), static_cast<std::size_t>(text.size()));
    zarn::InstrumentSetLibrary library;
    library.parse(sets["instrumentSets"]);
    zarn::InstrumentSetLibrary::install(&library);
    const auto keysOf = [](const std::string &notes, const std::string &listed,
                           ImportReport &report) {
        const auto model = import(score(measure(divisions + notes), listed), report);
        std::string keys;
        for (const auto &note : zarn::io::listNotes(*model))
            keys += (keys.empty() ? "" : " ") + std::to_string(note.sounding.value_or(-1));
        return keys;
    };
    const std::string snare = "<display-step>C</display-step><display-octave>5</display-octave>";
    const std::string top = "<display-step>G</display-step><display-octave>5</display-octave>";
    const std::string high = "<display-step>B</display-step><display-octave>6</display-octave>";
    const std::string cross = "<notehead>x</notehead>";
    ImportReport byPlace;
    EXPECT_EQ(
        keysOf(unpitched(snare) + unpitched(snare, cross) + unpitched(top, cross) + unpitched(high),
               {}, byPlace),
        "38 37 42 79");
    EXPECT_TRUE(byPlace.hasProblem("1 note from here on without an instrument"));

    const std::string listed =
        "<score-instrument id=\"S\"><instrument-name>Snare Drum</instrument-name>"
        "</score-instrument><score-instrument id=\"K\"><instrument-name>Thump</instrument-name>"
        "<instrument-sound>drum.kick-drum</instrument-sound></score-instrument>"
        "<score-instrument id=\"H\"><instrument-name>Hi-hat</instrument-name></score-instrument>"
        "<midi-instrument id=\"H\"><midi-unpitched>47</midi-unpitched></midi-instrument>";
    const auto of = [](const char *id) { return "<instrument id=\"" + std::string(id) + "\"/>"; };
    ImportReport byName;
    EXPECT_EQ(keysOf(unpitched(top, of("S")) + unpitched(top, of("S")) + unpitched(top, of("K"))
                         + unpitched(top, of("H")),
                     listed, byName),
              "38 38 36 46");
    EXPECT_EQ(byName.problems().size(), 2u);
    EXPECT_TRUE(byName.hasProblem("2 notes of \"Snare Drum\""));

    // The only instrument of a part need not be named at the notes.
    ImportReport alone;
    EXPECT_EQ(keysOf(unpitched(top),
                     "<score-instrument id=\"X\"><instrument-name>?</instrument-name>"
                     "</score-instrument><midi-instrument id=\"X\"><midi-unpitched>57"
                     "</midi-unpitched></midi-instrument>",
                     alone),
              "56");
    EXPECT_TRUE(alone.problems().empty());
    zarn::InstrumentSetLibrary::install(nullptr);

    // The name of a part without instruments tells as much.
    ImportReport named;
    auto document = QByteArray::fromStdString(score(measure(divisions + unpitched(top))));
    const auto model = scores::import(document.replace("Music<", "Triangle<"), named);
    EXPECT_EQ(
        model->tracks()[0]->staves()[0]->bars()[0]->voices()[0]->beats()[0]->notes()[0]->midi(),
        81);
    EXPECT_TRUE(named.hasProblem("1 note of \"Triangle\""));
}

TEST(MusicXmlReport, tellsWhatCannotBeHeldAsWritten)
{
    const std::string technical = "<notations><technical><fret>3</fret></technical></notations>";
    const std::string chord = "<note><chord/><pitch><step>G</step><octave>4</octave></pitch>"
                              "<duration>1</duration></note>";
    const std::string flat =
        "<note><pitch><step>B</step><alter>-3</alter><octave>4</octave></pitch>"
        "<duration>1</duration>"
        + technical + "</note>";
    ImportReport report;
    const auto model =
        import("<score-partwise><part-list><score-part id=\"P\"/><score-part id=\"P\"/>"
               "</part-list><part id=\"P\">"
                   + measure(attributes("<divisions>1</divisions>"
                                        "<staves>70</staves>")
                             + note("C", 4, 2, "half") + chord + flat
                             + note("C", 4, 1, "quarter", {}, "1", 90))
                   + "</part><part id=\"P\"><measure/></part></score-partwise>",
               report);
    ASSERT_EQ(model->trackCount(), 2u);
    EXPECT_EQ(zarn::io::listNotes(*model).size(), 4u);
    for (const char *text : {"the part list names \"P\" more than once",
                             "a part cannot have 70 staves", "a chord note of another length",
                             "a note altered by -3 semitones", "a fret without a string, 3,",
                             "a note stands on staff 90", "there is music for part \"P\" before"})
        EXPECT_TRUE(report.hasProblem(text)) << text;
}
