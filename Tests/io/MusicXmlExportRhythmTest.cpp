// SPDX-License-Identifier: MIT
#include "ExportedMusicXml.h"

#include "../support/SmallScore.h"

#include <ZarnCore/ZarnCoreUtils.h>
#include <ZarnCore/model/form/ZarnTupletGroup.h>
#include <ZarnCore/score/ZarnScore.h>

namespace {

using namespace zarn;
using namespace musicxml;

TEST(MusicXmlExportRhythm, divisionsHoldAllLengthsExactly)
{
    // A triplet of eighths and a septuplet of sixteenths need 3 and 7, the sixteenths 4.
    const Exported written(quarters(12,
                                    tuplet("C", 3, 2) + tuplet("D", 3, 2) + tuplet("E", 3, 2)
                                        + note("F", 4, 36, "half</type><dot/><type>half")));
    EXPECT_EQ(written.all("//divisions"), "3");
    EXPECT_EQ(written.all("//duration"), "1 1 1 9");
    EXPECT_FALSE(written.has("//backup"));
}

/// An eighth in each of the tuplets of `actual` in the time of one less; their lengths are left to
/// the reader.
std::string oddTuplets(const std::vector<int> &actual, const std::string &voice = "1")
{
    std::string notes;
    for (const int count : actual)
        notes += note("C", 4, 0,
                      "eighth</type><time-modification><actual-notes>" + std::to_string(count)
                          + "</actual-notes><normal-notes>" + std::to_string(count - 1)
                          + "</normal-notes></time-modification><type>eighth",
                      {}, voice);
    return notes;
}

TEST(MusicXmlExportRhythm, lengthsWithoutCommonDivisionsAreRoundedAndTold)
{
    // Each of the first two bars has divisions of its own, the third would need 3,368,562,317.
    const auto model =
        readFrom(score(measure(oddTuplets({251, 241, 239})) + measure(oddTuplets({233, 229, 227}))
                       + measure(oddTuplets({251, 241, 239, 233}))));
    io::ExportReport report;
    const auto text = io::MusicXmlExporter().toText(*model, report);
    ASSERT_EQ(report.problems().size(), 1u);
    EXPECT_EQ(report.problems().front().toString("track"),
              "track 1, bar 3: lengths that no division has in common were rounded");
    const auto copy = readFrom(text);
    EXPECT_EQ(test::writeNative(*copy), test::writeNative(*model)) << "the notes tell";
    EXPECT_EQ(exported(*copy), text);

    // Two voices whose ends no fraction tells apart.
    const auto other = readFrom(score(measure(oddTuplets({251, 241, 239, 233, 229, 227, 223})
                                              + "<backup><duration>99</duration></backup>"
                                              + oddTuplets({211, 199, 197, 193, 191, 181}, "2"))));
    io::ImportReport again;
    const auto read = import(io::MusicXmlExporter().toText(*other, report), again);
    EXPECT_EQ(read->track(0)->bar(0)->voice(0)->beatCount(), 7u);
    EXPECT_GE(read->track(0)->bar(0)->voice(1)->beatCount(), 6u);
}

/// A bar with divisions of its own has enough for what stands between its beats.
TEST(MusicXmlExportRhythm, clefsStayBetweenTheBeatsOfBarsWithDivisionsOfTheirOwn)
{
    const auto model = readFrom(
        score(measure(oddTuplets({251, 241, 239})) + measure(oddTuplets({233, 229, 227}))
              + measure(attributes("<divisions>6</divisions>") + forward(2)
                        + attributes("<clef><sign>F</sign><line>4</line></clef>") + forward(13)
                        + attributes("<clef><sign>C</sign><line>3</line></clef>") + forward(9))));
    auto &bar = *model->track(0)->staff(0)->bar(2);
    ASSERT_EQ(bar.clefChanges().size(), 2u);
    EXPECT_EQ(bar.clefChanges().front().position, utils::rational(1, 3));
    EXPECT_EQ(readFrom(exported(*model))->track(0)->staff(0)->bar(2)->clefChanges(),
              bar.clefChanges());
}

TEST(MusicXmlExportRhythm, chordsInTupletsOfTheirOwnAreEquallyLong)
{
    const auto model = readFrom(score(measure(note("C", 4, 4, "whole"))));
    RhythmValue rhythm(RhythmValue::NoteValue::Eighth);
    rhythm.setPrimaryTupletRatio({3, 2});
    rhythm.setSecondaryTupletRatio({5, 4});
    auto &beat = *model->track(0)->bar(0)->voice(0)->beat(0);
    beat.addNote(beat.note(0)->clone());
    beat.note(1)->setMidi(64);
    beat.setRhythmValue(rhythm);
    io::ImportReport report;
    const auto copy = import(exported(*model), report);
    EXPECT_EQ(copy->track(0)->bar(0)->voice(0)->beat(0)->rhythmValue(), rhythm);
    EXPECT_FALSE(report.hasProblem("a chord note of another length"));
}

TEST(MusicXmlExportRhythm, voicesAndStavesFollowEachOtherByBackups)
{
    const Exported written(quarters(1,
                                    note("C", 5, 4, "whole") + backup(4)
                                        + note("E", 4, 4, "whole", "", "2") + backup(4)
                                        + note("C", 3, 4, "whole", "", "5", 2)));
    EXPECT_EQ(written.all("//note/voice"), "1 2 5");
    EXPECT_EQ(written.all("//note/staff"), "1 1 2");
    EXPECT_EQ(written.all("//backup/duration"), "4 4");
}

TEST(MusicXmlExportRhythm, gapsAreRestsThatAreNotPrintedInTheFirstVoiceAndPassedOverInOthers)
{
    const Exported written(quarters(1,
                                    note("C", 5, 2, "half") + forward(2) + backup(4) + forward(2)
                                        + note("E", 4, 2, "half", "", "2")));
    EXPECT_EQ(written.all("//note[rest and @print-object='no']/voice"), "1");
    EXPECT_EQ(written.all("//note[rest]/duration"), "2");
    EXPECT_EQ(written.all("//forward/duration"), "2");
}

/// Voices that end before the bar does, in parts that fill it and in none.
TEST(MusicXmlExportRhythm, voicesThatEndEarlyEndThereAgain)
{
    for (const char *const notation :
         {"piano: c4q | d4w", "piano: c4q & e4h | d4w", "piano: c4h e4q & e4q f4q | d4w & f4q",
          "guitar: c4q d4q & c3w | d4q"}) {
        const auto made = ZarnCoreUtils::make_from_string(notation);
        const auto &model = *made->scoreModel();
        io::ExportReport report;
        const auto text = io::MusicXmlExporter().toText(model, report);
        EXPECT_TRUE(report.problems().empty());
        const auto copy = readFrom(text);
        for (unsigned bar = 0; bar < 2; ++bar)
            for (unsigned slot = 0; slot < 2; ++slot) {
                const auto voice = model.track(0)->bar(bar)->voice(slot);
                const auto again = copy->track(0)->bar(bar)->voice(slot);
                const auto length = [](const auto &of) {
                    return of ? of->length() : utils::rational(0);
                };
                EXPECT_EQ(length(voice), length(again)) << notation << ", bar " << bar;
            }
        EXPECT_EQ(exported(*copy), text);
        // Others mean that nothing is heard up to the end of the bar.
        auto theirs = text;
        const std::string name = "<software>" + Exported(model).all("//software") + "</software>";
        theirs.replace(theirs.find(name), name.size(), "<software>another</software>");
        const auto full = readFrom(theirs);
        EXPECT_EQ(full->track(0)->bar(1)->voice(0)->length(), utils::rational(4)) << notation;
    }
}

/// What is as long as a bar whose notes are too many is so in all parts.
TEST(MusicXmlExportRhythm, wholeBarRestsLastAsLongAsOverfullBars)
{
    const auto rest = "<note><rest measure=\"yes\"/><duration>4</duration></note>";
    const auto model = readFrom(
        "<score-partwise><part-list><score-part id=\"P\"><part-name>Full</part-name></score-part>"
        "<score-part id=\"Q\"><part-name>Rest</part-name></score-part></part-list><part id=\"P\">"
        + quarters(1, note("C", 5, 4, "whole")) + "</part><part id=\"Q\">" + quarters(1, rest)
        + "</part></score-partwise>");
    auto eighth = std::make_shared<Beat>(RhythmValue(RhythmValue::NoteValue::Eighth));
    eighth->addNote(std::make_shared<zarn::Note>(60));
    model->track(0)->bar(0)->voice(0)->insertBeats(1, {eighth});
    io::ExportReport report;
    const auto text = io::MusicXmlExporter().toText(*model, report);
    EXPECT_TRUE(report.hasProblem("longer than the bar"));
    const Exported written(*model);
    EXPECT_EQ(written.all("//divisions"), "2 2");
    EXPECT_EQ(written.all("//note[rest/@measure]/duration"), "9");
    const auto copy = readFrom(text);
    EXPECT_TRUE(copy->track(1)->bar(0)->voice(0)->beat(0)->isWholeBarRest());
    EXPECT_EQ(exported(*copy), text);
}

TEST(MusicXmlExportRhythm, barsWithoutAMeasureKeepTheGroupsOfThoseBefore)
{
    const auto bar = [](const std::string &time) {
        return measure(attributes("<divisions>1</divisions>" + time) + note("C", 4, 4, "whole"));
    };
    const std::string sum = "<time><beats>3+1</beats><beat-type>4</beat-type></time>";
    const std::string none = "<time><senza-misura/></time>";
    EXPECT_EQ(exportedWhole(bar(sum) + bar(none) + bar(sum), "//time/*"), "3+1 4  3+1 4");
}

TEST(MusicXmlExportRhythm, aVoiceInALaterSlotStaysThere)
{
    SmallScore small;
    const auto copy = readFrom(exported(*small.score.scoreModel()));
    const auto bar = copy->track(1)->bar(0);
    EXPECT_EQ(bar->voice(1), nullptr);
    ASSERT_NE(bar->voice(2), nullptr);
    EXPECT_TRUE(bar->voice(2)->beat(0)->hasNotes());
}

TEST(MusicXmlExportRhythm, tupletsHaveTheirRatiosAndBrackets)
{
    const Exported written(quarters(12, tuplet("C", 3, 2) + tuplet("D", 3, 2) + tuplet("E", 3, 2)));
    EXPECT_EQ(written.all("//actual-notes"), "3 3 3");
    EXPECT_EQ(written.all("//normal-type"), "eighth eighth eighth");
    EXPECT_EQ(written.all("//tuplet/@type"), "start stop");
    EXPECT_EQ(written.all("//tuplet-actual/tuplet-number"), "3");
}

TEST(MusicXmlExportRhythm, halvesOfATremoloAreNoTuplet)
{
    const auto half = [](const char *step, const char *type) {
        return note(step, 4, 12,
                    "half</type><time-modification><actual-notes>2</actual-notes><normal-notes>1"
                    "</normal-notes></time-modification><notations><ornaments><tremolo type=\""
                        + std::string(type) + "\">3</tremolo></ornaments></notations><type>half");
    };
    const Exported written(quarters(12, half("C", "start") + half("E", "stop")));
    EXPECT_EQ(written.all("//actual-notes"), "2 2");
    EXPECT_EQ(written.all("//normal-notes"), "1 1");
    EXPECT_FALSE(written.has("//tuplet"));
    EXPECT_EQ(written.all("//tremolo/@type"), "start stop");
}

TEST(MusicXmlExportRhythm, innerTupletsKeepTheirOwnRatio)
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

TEST(MusicXmlExportRhythm, bracketsOfTupletsInTupletsAreAsLongAsTheirNotes)
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

TEST(MusicXmlExportRhythm, aTupletWhoseFirstNotesAreElsewhereEndsWithItsTime)
{
    RhythmValue triplet(RhythmValue::NoteValue::Eighth);
    triplet.setPrimaryTupletRatio({3, 2});
    RhythmValue sextuplet(RhythmValue::NoteValue::Eighth);
    sextuplet.setPrimaryTupletRatio({6, 4});
    const auto beatsUntilFull = [](const RhythmValue &value, const utils::rational &onset) {
        TupletGroup group(value, TupletLevel::Outer, onset);
        int beats = 0;
        do {
            group.add(value);
            ++beats;
        } while (!group.isFull() && beats < 9);
        return beats;
    };
    EXPECT_EQ(beatsUntilFull(triplet, 1), 3);
    EXPECT_EQ(beatsUntilFull(triplet, utils::rational(4, 3)), 2);
    EXPECT_EQ(beatsUntilFull(triplet, utils::rational(5, 3)), 1);
    EXPECT_EQ(beatsUntilFull(triplet, utils::rational(1, 2)), 3) << "a syncopation";
    EXPECT_EQ(beatsUntilFull(sextuplet, 1), 6) << "on the second beat";
    EXPECT_EQ(beatsUntilFull(sextuplet, utils::rational(4, 3)), 2);
}

TEST(MusicXmlExportRhythm, beamsAndAccidentalsAreWritten)
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

TEST(MusicXmlExportRhythm, shorterNotesHaveHooks)
{
    const auto timed = [](int duration, const char *type, const char *dot) {
        return "<note><pitch><step>C</step><octave>4</octave></pitch><duration>"
            + std::to_string(duration) + "</duration><type>" + type + "</type>" + dot + "</note>";
    };
    const Exported written(quarters(4, timed(3, "eighth", "<dot/>") + timed(1, "16th", "")));
    EXPECT_EQ(written.all("//note[2]/beam"), "end backward hook");
}

/// Many documents leave the numbers of an outer tuplet to its first note.
TEST(MusicXmlExportRhythm, tupletsWithoutNumbersHaveOthersInside)
{
    const auto triplet = [](const char *step, const std::string &ends) {
        return tuplet(step, 3, 2, ends);
    };
    const auto sixteenth = [](const char *step, const std::string &ends) {
        auto text = tuplet(step, 9, 4, ends);
        text.replace(text.find("<duration>4"), 11, "<duration>1");
        return text.replace(text.find("eighth"), 6, "16th");
    };
    const std::string inner = "<tuplet type=\"start\" number=\"2\"><tuplet-actual><tuplet-number>3"
                              "</tuplet-number></tuplet-actual><tuplet-normal><tuplet-number>2"
                              "</tuplet-number></tuplet-normal></tuplet>";
    const auto model = readFrom(score(
        quarters(12,
                 triplet("C", "<tuplet type=\"start\"/>") + sixteenth("D", inner)
                     + sixteenth("E", "") + sixteenth("F", "<tuplet type=\"stop\" number=\"2\"/>")
                     + triplet("G", "<tuplet type=\"stop\"/>") + triplet("A", ""))));
    const auto rhythm = [&](unsigned beat) {
        return model->track(0)->bar(0)->voice(0)->beat(beat)->rhythmValue();
    };
    const RhythmValue::TupletRatio threeInTwo(3, 2);
    EXPECT_EQ(rhythm(2).getPrimaryTupletRatio(), threeInTwo);
    EXPECT_EQ(rhythm(2).getSecondaryTupletRatio(), threeInTwo);
    EXPECT_FALSE(rhythm(4).hasSecondaryTuplet());
    EXPECT_FALSE(rhythm(5).hasSecondaryTuplet());
}

/// Beams and tuplets of a voice that changes staves stay whole, as do chords over both.
TEST(MusicXmlExportRhythm, aVoiceThatChangesStavesStaysOne)
{
    const auto eighth = [](const char *step, int staff, const std::string &beam) {
        return note(step, 4, 1, "eighth</type><beam number=\"1\">" + beam + "</beam><type>eighth",
                    {}, "1", staff);
    };
    const std::string start =
        quarters(2,
                 eighth("C", 1, "begin") + eighth("D", 2, "continue") + eighth("E", 2, "continue")
                     + eighth("F", 1, "end") + note("G", 4, 4, "half", {}, "1", 1)
                     + note("C", 3, 4, "half", "<chord/>", "1", 2));
    const std::string below =
        measure(note("G", 4, 8, "whole") + backup(8) + note("C", 3, 8, "whole", {}, "5", 2));
    const auto upper = measure(note("G", 4, 8, "whole"));
    EXPECT_EQ(exportedWhole(start + upper, "//beam"), "begin continue continue end");
    EXPECT_EQ(exportedWhole(start + upper, "//note/staff"), "1 2 2 1 1 2 1");
    EXPECT_EQ(exportedWhole(start + below, "//measure[1]/note/voice"), "1 1 1 1 1 1");
    EXPECT_EQ(exportedWhole(below + start, "//measure[2]/note/staff"), "1 2 2 1 1 2");
}

} // namespace
