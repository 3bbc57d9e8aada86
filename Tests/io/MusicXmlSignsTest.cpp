// SPDX-License-Identifier: MIT
// What stands around the notes: signatures, clefs, repeats, jumps, tempos, chords, tablature.
#include "MusicXmlText.h"

#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>
#include <ZarnCore/io/ZarnExportReport.h>
#include <ZarnCore/io/ZarnMusicXmlExporter.h>

#include <gtest/gtest.h>

using namespace musicxml;
using utils::rational;
using zarn::DirectionMark;
using zarn::io::ImportReport;

namespace {

const std::string whole = note("C", 4, 4, "whole");

std::string direction(const std::string &type, const std::string &sound = {})
{
    return "<direction><direction-type>" + type + "</direction-type>" + sound + "</direction>";
}

std::string clef(const char *sign, int line, const char *more = "")
{
    return std::string("<clef><sign>") + sign + "</sign><line>" + std::to_string(line) + "</line>"
        + more + "</clef>";
}

} // namespace

TEST(MusicXmlSigns, aKeyInsideOfABarHoldsFromTheNextOneOn)
{
    const auto key = [](int fifths, const char *staff = "") {
        return "<key" + std::string(staff) + "><fifths>" + std::to_string(fifths)
            + "</fifths></key>";
    };
    const auto quarter = note("C", 4, 1, "quarter");
    const std::string start = attributes("<divisions>1</divisions>" + key(2)
                                         + "<time><beats>2"
                                           "</beats><beat-type>4</beat-type></time>");
    const std::string half = note("C", 4, 2, "half");
    ImportReport report;
    const auto keysOf = [&report](const std::string &measures) {
        std::string text;
        const auto model = import(score(measures), report);
        for (const auto &bar : model->masterTrack()->masterBars())
            text += std::to_string(bar->concertKeySignature().accidentalCount()) + " ";
        return text;
    };
    const std::string changed = measure(start + quarter + attributes(key(-3)) + quarter);
    EXPECT_EQ(keysOf(changed + measure(half) + measure(half)), "2 -3 -3 ");
    EXPECT_TRUE(report.hasProblem("a key that begins inside of a bar holds from the next bar on"));
    // What the next bar says itself holds; a change behind all notes is one of the next bar.
    report = {};
    EXPECT_EQ(
        keysOf(measure(start + half + attributes(key(-3))) + measure(attributes(key(1)) + half)
               + measure(attributes(key(4, " number=\"1\"") + key(4, " number=\"2\"")) + half)),
        "2 1 4 ");
    EXPECT_TRUE(report.problems().empty());
}

TEST(MusicXmlSigns, keysAreConcertKeysAndPitchesStayWritten)
{
    ImportReport report;
    const auto model =
        import(score(measure(attributes("<key><fifths>3</fifths><mode>minor</mode></key>"
                                        "<transpose><diatonic>-1</diatonic><chromatic>-2"
                                        "</chromatic></transpose>")
                             + whole)),
               report);
    const auto key = model->masterTrack()->masterBar(0)->concertKeySignature();
    EXPECT_EQ(key.accidentalCount(), 1);
    EXPECT_FALSE(key.isMajor());
    const auto notes = zarn::io::listNotes(*model);
    EXPECT_EQ(notes.at(0).midi, 60);
    EXPECT_EQ(notes.at(0).sounding, 58);
}

TEST(MusicXmlSigns, timesAreSummedOverDifferentUnitsAndFreeTimeIsFree)
{
    ImportReport report;
    const auto model = import(
        score(measure(attributes("<time><beats>3+2</beats><beat-type>8</beat-type><beats>1</beats>"
                                 "<beat-type>4</beat-type></time>"))
              + measure(attributes("<time><senza-misura/></time>") + whole)),
        report);
    const auto &master = *model->masterTrack();
    EXPECT_EQ(master.masterBar(0)->timeSignature(), zarn::TimeSignature(7, 8));
    EXPECT_TRUE(master.masterBar(1)->isFreeTime());
    EXPECT_TRUE(report.hasProblem("line 5: the time signature 3+2/8 1/4 was summed to 7/8"));
}

TEST(MusicXmlSigns, clefsChangeInsideBarsAndAtTheirEnds)
{
    ImportReport report;
    const auto model = import(
        score(measure(attributes(clef("G", 2)) + note("C", 4, 2, "half") + attributes(clef("F", 4))
                      + note("C", 3, 2, "half") + attributes(clef("C", 4)))
              + measure(attributes(clef("G", 2, "<clef-octave-change>-1</clef-octave-change>"))
                        + whole)),
        report);
    const auto staff = model->track(0)->staff(0);
    EXPECT_EQ(staff->bar(0)->clef(), zarn::ClefType::G2);
    ASSERT_EQ(staff->bar(0)->clefChanges().size(), 1u);
    EXPECT_EQ(staff->bar(0)->clefAt(rational(2)), zarn::ClefType::F4);
    EXPECT_EQ(staff->bar(1)->clef(), zarn::ClefType::G2);
    EXPECT_EQ(staff->bar(1)->ottavia(), zarn::Ottavia::_8vb);
}

TEST(MusicXmlSigns, repeatsEndingsAndJumpsMakeThePlayList)
{
    const auto barline = [](const char *location, const std::string &content) {
        return std::string("<barline location=\"") + location + "\">" + content + "</barline>";
    };
    const std::string text =
        measure(barline("left", "<repeat direction=\"forward\"/>") + direction("<segno/>") + whole)
        + measure(barline("left", "<ending number=\"1, 2\" type=\"start\"/>") + whole
                  + barline("right",
                            "<ending number=\"1, 2\" type=\"stop\"/><repeat "
                            "direction=\"backward\" times=\"3\"/>"))
        + measure(barline("left", "<ending number=\"3\" type=\"start\"/>") + whole
                  + barline("right", "<ending number=\"3\" type=\"discontinue\"/>"))
        + measure(whole + direction("<words>D.S. al Fine</words>", "<sound dalsegno=\"a\"/>"))
        + measure(whole + direction("<words>To Coda</words>"))
        + measure(direction("<coda/>") + whole + direction("<coda/>"));
    ImportReport report;
    const auto model = import(score(text), report);
    const auto &master = *model->masterTrack();
    EXPECT_EQ(master.masterBar(1)->repeatCount(), 3u);
    EXPECT_EQ(master.masterBar(1)->alternateEndings(), 3u);
    EXPECT_EQ(master.masterBar(2)->alternateEndings(), 4u);
    EXPECT_EQ(master.directionIndex(DirectionMark::Segno), 0);
    EXPECT_EQ(master.directionIndex(DirectionMark::DaSegnoAlFine), 3);
    EXPECT_EQ(master.directionIndex(DirectionMark::DaCoda), 4);
    EXPECT_EQ(master.directionIndex(DirectionMark::Coda), 5);
    const std::vector<int> begin(master.playlist().begin(), master.playlist().begin() + 7);
    EXPECT_EQ(begin, (std::vector<int>{0, 1, 0, 1, 0, 2, 3}));
}

TEST(MusicXmlSigns, aScoreHasAnyNumberOfSignsOfAKind)
{
    // As in songs of many verses: two segnos, of which jumps name both, and codas that no jump
    // names, which are all alike.
    const auto sign = [](const std::string &kind, const std::string &name) {
        return measure(direction("<" + kind + "/>", "<sound " + kind + "=\"" + name + "\"/>")
                       + whole);
    };
    const auto jump = [](const std::string &words, const std::string &sound) {
        return measure(whole + direction("<words>" + words + "</words>", "<sound " + sound + "/>"));
    };
    const std::string back = "D.S. &lt;font face=\"ScoreText\"&gt;&lt;/font&gt;\uE04A";
    ImportReport report;
    const auto model = import(
        score(sign("segno", "a") + sign("segno", "b") + jump("D.S. al Fine", "dalsegno=\"a\"")
              + jump("\uE048", "tocoda=\"c\"") + jump(back, "dalsegno=\"b\"") + sign("coda", "c")
              + jump(back, "dalsegno=\"b\"") + sign("coda", "d")),
        report);
    const auto &master = *model->masterTrack();
    const auto at = [&master](int bar) {
        return zarn::directionMarksToQString(master.directionsAtBarIndex(bar)).toStdString() + ": "
            + master.masterBar(static_cast<unsigned>(bar))->jumpText();
    };
    EXPECT_EQ(at(0) + "; " + at(1), "Segno: ; SegnoSegno: ");
    EXPECT_EQ(at(2), "DaSegnoAlFine: ") << "words of its kind need not be kept";
    EXPECT_EQ(at(3), "DaCoda: \uE048");
    EXPECT_EQ(at(4), "DaSegnoSegno: D.S. <font face=\"ScoreText\"></font>\uE04A");
    EXPECT_EQ(at(6), at(4));
    EXPECT_EQ(at(5) + "; " + at(7), "Coda: ; Coda: ");
    EXPECT_EQ(report.problems().size(), 0U);
}

TEST(MusicXmlSigns, temposKeepTheirUnitAndWordsStandAtTheirBeats)
{
    const std::string metronome = "<metronome><beat-unit>quarter</beat-unit><beat-unit-dot/>"
                                  "<per-minute>ca. 96</per-minute></metronome>";
    ImportReport report;
    const auto model = import(
        score(measure(
                  direction("<words>Lively</words></direction-type><direction-type>" + metronome)
                  + direction("<dynamics><mp/></dynamics>") + direction("<rehearsal>A</rehearsal>")
                  + note("C", 4, 2, "half") + direction("<words>dolce</words>")
                  + direction("<dynamics><sfz/></dynamics>") + note("D", 4, 2, "half"))
              + measure("<sound tempo=\"60\"/>" + whole)),
        report);
    const auto tempos = model->masterTrack()->automations(zarn::Automation::Tempo);
    ASSERT_EQ(tempos.size(), 2u);
    EXPECT_EQ(tempos.front()->text(), "Lively");
    EXPECT_EQ(static_cast<zarn::TempoAutomation *>(tempos.front())->quarterValue(), 144);
    EXPECT_FALSE(tempos.back()->isVisible());
    const auto voice = model->track(0)->staff(0)->bar(0)->voice(0);
    EXPECT_EQ(voice->beat(0)->dynamic(), zarn::NoteDynamic::Value::MP);
    EXPECT_EQ(voice->beat(0)->text(), "");
    EXPECT_EQ(voice->beat(1)->text(), "dolce");
    EXPECT_EQ(voice->beat(1)->attackDynamic(), zarn::AttackDynamic::Sfz);
    EXPECT_EQ(model->masterTrack()->masterBar(0)->section().letter, "A");
}

TEST(MusicXmlSigns, boldWordsOverTheFirstStaffAreOfTheTempo)
{
    const auto words = [](const std::string &text, const std::string &weight) {
        return "<words font-weight=\"" + weight + "\">" + text + "</words>";
    };
    const std::string dashes = direction("<dashes type=\"start\"/>");
    ImportReport report;
    const auto model =
        import(score(measure(direction(words("Lively", "bold"), "<sound tempo=\"90\"/>") + whole)
                     + measure(direction(words("Nicht eilen", "bold")) + whole)
                     + measure(direction(words("2", "normal") + words("e", "bold")
                                         + words(" Couplet", "bold"))
                               + whole)
                     + measure(direction(words("rit.", "bold")) + dashes + whole)),
               report);
    const auto tempos = model->masterTrack()->automations(zarn::Automation::Tempo);
    ASSERT_EQ(tempos.size(), 2U);
    const auto &tempo = static_cast<const zarn::TempoAutomation &>(*tempos[1]);
    EXPECT_EQ(tempo.text(), "Nicht eilen");
    EXPECT_EQ(tempo.quarterValue(), 90) << "words alone change nothing that sounds";
    EXPECT_TRUE(tempo.isVisible() && tempo.unit() == static_cast<int>(zarn::TempoUnit::None));
    const auto textOf = [&](unsigned bar) {
        return model->track(0)->bar(bar)->voice(0)->beat(0)->text();
    };
    EXPECT_EQ(textOf(1) + "|" + textOf(2), "|2e Couplet") << "an ordinal";
    EXPECT_EQ(textOf(3), "rit.") << "a line goes on behind it";
}

TEST(MusicXmlSigns, rehearsalLettersKeepTheirCircles)
{
    const std::string mark = direction("<rehearsal enclosure=\"circle\">A1</rehearsal>");
    ImportReport report;
    const auto model =
        import(score(measure(mark + direction("<rehearsal enclosure=\"none\">Coda</rehearsal>")
                             + note("C", 4, 4, "whole"))),
               report);
    const zarn::Section section = {"A1", "Coda", true};
    EXPECT_EQ(model->masterTrack()->masterBar(0)->section(), section);
    zarn::io::ExportReport told;
    const auto copy = import(zarn::io::MusicXmlExporter().toText(*model, told), report);
    EXPECT_EQ(copy->masterTrack()->masterBar(0)->section(), section);
    EXPECT_TRUE(told.unheld().empty());
}

/// A letter and a title that stand together are one; parts and staves may say it again.
TEST(MusicXmlSigns, furtherRehearsalMarksOfABarAreWordsAtTheirBeats)
{
    const auto mark = [](const char *text, const char *enclosure) {
        return direction("<rehearsal enclosure=\"" + std::string(enclosure) + "\">" + text
                         + "</rehearsal>");
    };
    const std::string quarter = note("C", 4, 1, "quarter");
    ImportReport report;
    const auto model = import(
        score(measure(direction("<rehearsal>A</rehearsal><rehearsal>Verse</rehearsal>") + quarter
                      + mark("B", "none") + quarter + mark("Test", "rectangle") + quarter
                      + mark("Crc", "circle") + quarter)
              + measure(mark("C", "rectangle") + mark("C", "rectangle") + mark("D", "rectangle")
                        + mark("C", "none") + note("C", 4, 4, "whole"))),
        report);
    const auto &master = *model->masterTrack();
    EXPECT_EQ(master.masterBar(0)->section(), (zarn::Section{"A", "Verse", false}));
    EXPECT_EQ(master.masterBar(1)->section(), (zarn::Section{"C", "C", false}));
    std::string words;
    for (const auto &bar : model->track(0)->staff(0)->bars())
        for (const auto &beat : bar->voice(0)->beats())
            words += beat->text() + "|";
    EXPECT_EQ(words, "|B|Test|Crc|D|");
    EXPECT_TRUE(report.hasProblem("a further rehearsal mark in the bar is kept as words"));
}

TEST(MusicXmlSigns, chordSymbolsReadAsOnLeadSheets)
{
    const auto harmony = [](const std::string &content) {
        return "<harmony>" + content + "</harmony>" + note("C", 4, 1, "quarter");
    };
    ImportReport report;
    const auto model = import(
        score(measure(
            harmony("<root><root-step>C</root-step><root-alter>1</root-alter></root><kind>"
                    "minor-seventh</kind><bass><bass-step>G</bass-step><bass-alter>1</bass-alter>"
                    "</bass>")
            + harmony("<root><root-step>B</root-step><root-alter>-1</root-alter></root><kind>"
                      "dominant</kind><degree><degree-value>9</degree-value><degree-alter>-1"
                      "</degree-alter><degree-type>add</degree-type></degree>")
            + harmony("<root><root-step>A</root-step></root><kind text=\"7alt\">other</kind>")
            + harmony("<kind>none</kind>"))),
        report);
    const auto voice = model->track(0)->staff(0)->bar(0)->voice(0);
    EXPECT_EQ(voice->beat(0)->chordSymbol(), "C#m7/G#");
    EXPECT_EQ(voice->beat(1)->chordSymbol(), "Bb7b9");
    EXPECT_EQ(voice->beat(2)->chordSymbol(), "A7alt");
    EXPECT_EQ(voice->beat(3)->chordSymbol(), "N.C.");
}

TEST(MusicXmlSigns, harmoniesAreReadByWhatTheyMeanAndElseAsTheyAreWritten)
{
    const auto symbolOf = [](const std::string &content) {
        ImportReport report;
        const auto model =
            import(score(measure("<harmony>" + content + "</harmony>" + note("C", 4, 4, "whole"))),
                   report);
        return model->track(0)->staff(0)->bar(0)->voice(0)->beat(0)->chordSymbol();
    };
    const auto degree = [](const char *value, const char *alter, const char *type) {
        return std::string("<degree><degree-value>") + value + "</degree-value><degree-alter>"
            + alter + "</degree-alter><degree-type>" + type + "</degree-type></degree>";
    };
    const std::string c = "<root><root-step>C</root-step></root>";
    EXPECT_EQ(symbolOf(c + "<kind>minor-seventh</kind>" + degree("5", "-1", "alter")), "Cm7b5");
    EXPECT_EQ(symbolOf(c + "<kind>major</kind>" + degree("9", "0", "add")), "Cadd9");
    EXPECT_EQ(symbolOf(c + "<kind>major</kind>" + degree("3", "0", "subtract")), "C5");
    EXPECT_EQ(symbolOf(c + "<kind>major</kind><inversion>1</inversion>"), "C/E");
    EXPECT_EQ(symbolOf(c + "<kind>dominant</kind><inversion>3</inversion>"), "C7/Bb");
    EXPECT_EQ(symbolOf(c + "<kind>German</kind>"), "CGer6");
    EXPECT_EQ(
        symbolOf(c + "<kind>other</kind>" + degree("5", "0", "add") + degree("7", "1", "add")),
        "Cmaj7(no3)");
    // What makes no chord stays a text.
    EXPECT_EQ(symbolOf(c + "<kind text=\"Mystic\">scriabin</kind>"), "CMystic");
    EXPECT_EQ(symbolOf(c + "<kind>dominant</kind>" + degree("99999999999", "0", "add")),
              "C7(add99999999999)");
    EXPECT_EQ(symbolOf(c + "<kind>major</kind>" + degree("5", "-50", "alter")), "C(bbbb5)");
    EXPECT_EQ(symbolOf("<root><root-step>C</root-step><root-alter>3</root-alter></root>"
                       "<kind>minor</kind>"),
              "C###m");
    EXPECT_EQ(symbolOf("<function>V</function><kind>dominant</kind>"), "V7");
    EXPECT_EQ(symbolOf("<function>ii</function><kind>minor-seventh</kind>"), "ii7");
    const auto numeral = [](const char *root) {
        return "<numeral><numeral-root" + std::string(root) + "</numeral-root></numeral>";
    };
    EXPECT_EQ(symbolOf(numeral(">5") + "<kind>dominant</kind>"), "V7");
    EXPECT_EQ(symbolOf(numeral(">2") + "<kind>minor-seventh</kind>"), "IIm7");
    EXPECT_EQ(symbolOf(numeral(" text=\"ii\">2") + "<kind>minor-seventh</kind>"), "ii7");
    // The writing of the document is kept as long as it says the same.
    EXPECT_EQ(symbolOf(c + "<kind text=\"-7\">minor-seventh</kind>"), "C-7");
    EXPECT_EQ(symbolOf(c + "<kind text=\"Δ\">major-seventh</kind>"), "CΔ");
    EXPECT_EQ(symbolOf(c + "<kind text=\"7(b9)\">dominant</kind>" + degree("9", "-1", "add")),
              "C7(b9)");
    EXPECT_EQ(symbolOf(c + "<kind text=\"7\">dominant</kind>" + degree("9", "-1", "add")), "C7b9");
    EXPECT_EQ(symbolOf(c + "<kind text=\"\">minor</kind>"), "Cm");
    EXPECT_EQ(symbolOf(c + "<kind text=\"Hm?\">minor</kind><inversion>2</inversion>"), "Cm/G");
    EXPECT_EQ(symbolOf("<root><root-step text=\"H\">B</root-step></root><kind text=\"7\">dominant"
                       "</kind>"),
              "H7");
}

TEST(MusicXmlSigns, aStaffThatBeginsWithNotesBecomesNoTablature)
{
    const auto clef = [](const char *sign) {
        return attributes(std::string("<clef><sign>") + sign + "</sign></clef>");
    };
    const auto trackOf = [&](const char *first, const char *second) {
        ImportReport report;
        const auto model = import(score(measure(attributes("<divisions>1</divisions>") + clef(first)
                                                + note("C", 4, 4, "whole"))
                                        + measure(clef(second) + note("C", 4, 4, "whole"))),
                                  report);
        return std::to_string(model->track(0)->notations().tablature)
            + std::to_string(report.hasProblem("began with notes"));
    };
    EXPECT_EQ(trackOf("G", "TAB"), "01");
    EXPECT_EQ(trackOf("TAB", "G"), "10");
    EXPECT_EQ(trackOf("TAB", "TAB"), "10");
}

TEST(MusicXmlSigns, tablatureCountsStringsFromTheLowest)
{
    std::string tunings;
    const char *steps = "DADGBE";
    const int octaves[] = {2, 2, 3, 3, 3, 4};
    for (int line = 1; line <= 6; ++line)
        tunings += "<staff-tuning line=\"" + std::to_string(line) + "\"><tuning-step>"
            + steps[line - 1] + "</tuning-step><tuning-octave>" + std::to_string(octaves[line - 1])
            + "</tuning-octave></staff-tuning>";
    const auto fretted = [](int string, int fret, const char *more) {
        return std::string("<note><pitch><step>E</step><octave>2</octave></pitch><duration>2"
                           "</duration><type>half</type>")
            + more + "<notations><technical><string>" + std::to_string(string) + "</string><fret>"
            + std::to_string(fret) + "</fret></technical></notations></note>";
    };
    ImportReport report;
    const auto model = import(
        score(measure(attributes(clef("TAB", 5) + "<staff-details><staff-lines>6</staff-lines>"
                                 + tunings + "<capo>2</capo></staff-details>")
                      + fretted(6, 0, "") + fretted(9, 3, "<notehead>x</notehead>"))),
        report);
    const auto staff = model->track(0)->staff(0);
    EXPECT_EQ(staff->tuning().midiNumbers(), (std::vector<int>{38, 45, 50, 55, 59, 64}));
    EXPECT_EQ(staff->capoFret(), 2u);
    const auto voice = staff->bar(0)->voice(0);
    EXPECT_EQ(voice->beat(0)->note(0)->string(), 0);
    EXPECT_EQ(voice->beat(0)->note(0)->fret(), 0);
    EXPECT_TRUE(voice->beat(1)->note(0)->isDead());
    EXPECT_TRUE(report.hasProblem("string 9, fret 3 is not on the instrument"));
}

TEST(MusicXmlSigns, notesKeepTiesGracesDrumsAndWhatElseTheTreeHolds)
{
    const std::string drums =
        "<score-instrument id=\"I1\"><instrument-name>Snare</instrument-name></score-instrument>"
        "<midi-instrument id=\"I1\"><midi-channel>10</midi-channel><midi-unpitched>39"
        "</midi-unpitched></midi-instrument>";
    const std::string text = "<note><grace slash=\"yes\"/><pitch><step>D</step><octave>4</octave>"
                             "</pitch><type>eighth</type></note>"
        + note("C", 4, 1, "quarter", "<tie type=\"start\"/>")
        + note("C", 4, 1, "quarter", "<tie type=\"stop\"/>")
        + "<note><pitch><step>F</step><alter>0.5</alter><octave>4</octave></pitch><duration>1"
          "</duration><type>quarter</type><notehead parentheses=\"yes\">normal</notehead>"
          "<notations><slur type=\"start\"/><articulations><staccato/><accent/></articulations>"
          "</notations><lyric><text>la</text></lyric></note>"
          "<note><unpitched><display-step>C</display-step><display-octave>5</display-octave>"
          "</unpitched><duration>1</duration><instrument id=\"I1\"/><type>quarter</type></note>";
    ImportReport report;
    const auto model = import(score(measure(text), drums), report);
    const auto voice = model->track(0)->staff(0)->bar(0)->voice(0);
    ASSERT_EQ(voice->beatCount(), 5u);
    EXPECT_EQ(voice->beat(0)->graceType(), zarn::GraceType::BeforeBeat);
    EXPECT_TRUE(voice->beat(0)->isSlashedGrace());
    EXPECT_TRUE(voice->beat(1)->note(0)->isTieOrigin());
    EXPECT_TRUE(voice->beat(2)->note(0)->isTied());
    EXPECT_EQ(voice->beat(3)->note(0)->midi(), 66);
    EXPECT_TRUE(voice->beat(3)->note(0)->isGhost());
    EXPECT_TRUE(report.hasProblem("microtone"));
    EXPECT_EQ(voice->beat(4)->note(0)->midi(), 38);
    EXPECT_EQ(voice->beat(4)->note(0)->staffLine(), 5);
    EXPECT_EQ(report.unheld(), (std::map<std::string, std::uint32_t>{{"slur", 1}}))
        << "which nothing ends";
}

TEST(MusicXmlSigns, ottavasStandOverTheBeatsBetweenTheirEnds)
{
    const std::string half = note("C", 6, 2, "half");
    ImportReport report;
    const auto model = import(
        score(measure(half + direction("<octave-shift type=\"down\" size=\"8\"/>") + half)
              + measure(half + direction("<octave-shift type=\"stop\" size=\"8\"/>") + half)),
        report);
    std::vector<zarn::Ottavia> signs;
    for (const auto &bar : model->track(0)->staff(0)->bars())
        for (const auto &beat : bar->voice(0)->beats())
            signs.push_back(beat->ottavia());
    using zarn::Ottavia;
    EXPECT_EQ(signs,
              (std::vector<Ottavia>{Ottavia::None, Ottavia::_8va, Ottavia::_8va, Ottavia::None}));

    // What ends with the bar ends behind the grace notes there, whichever voice they are of.
    const std::string grace = "<note><grace/><pitch><step>D</step><octave>6</octave></pitch>"
                              "<voice>1</voice><type>eighth</type></note>";
    const auto graces =
        import(score(measure(direction("<octave-shift type=\"down\" size=\"8\"/>")
                             + note("C", 6, 4, "whole", {}, "1") + grace + backup(4)
                             + note("C", 5, 4, "whole", {}, "2")
                             + direction("<octave-shift type=\"stop\" size=\"8\"/>"))),
               report);
    ASSERT_EQ(graces->track(0)->bar(0)->voice(0)->beatCount(), 2u);
    EXPECT_EQ(graces->track(0)->bar(0)->voice(0)->beat(1)->ottavia(), Ottavia::_8va);
}

TEST(MusicXmlSigns, barsThatAreWrittenAsRepeatsAreMarked)
{
    const std::string both =
        note("C", 5, 4, "whole") + backup(4) + note("C", 3, 4, "whole", {}, "2", 2);
    const auto style = [](const char *type, const char *count, const char *staff = "") {
        return attributes(std::string("<measure-style") + staff + "><measure-repeat type=\"" + type
                          + "\">" + count + "</measure-repeat></measure-style>");
    };
    const auto marksOf = [](const std::string &measures, ImportReport &report) {
        std::string text;
        const auto model = import(score(measures), report);
        for (const auto &staff : model->track(0)->staves()) {
            for (const auto &bar : staff->bars()) {
                EXPECT_TRUE(bar->hasBeats()) << "the notes stay";
                constexpr char signs[] = "%D12";
                text += bar->isSimile() ? signs[static_cast<int>(bar->simileMark()) / 16 == 1
                                                    ? 0
                                                    : static_cast<int>(bar->simileMark()) - 31]
                                        : '-';
            }
            text += ' ';
        }
        return text;
    };
    ImportReport report;
    EXPECT_EQ(marksOf(measure(attributes("<staves>2</staves>") + both)
                          + measure(style("start", "1") + both) + measure(both)
                          + measure(style("stop", "") + both)
                          + measure(style("start", "2", " number=\"2\"") + both) + measure(both)
                          + measure(both),
                      report),
              "-%%---- -%%-12- ");
    EXPECT_TRUE(report.hasProblem("half of a sign"));
    EXPECT_TRUE(report.unheld().empty());

    ImportReport broken;
    EXPECT_EQ(marksOf(measure(style("start", "1") + attributes("<staves>2</staves>") + both)
                          + measure(style("start", "4") + both)
                          + measure(style("start", "x") + both),
                      broken),
              "--% --% ");
    EXPECT_TRUE(broken.hasProblem("has none before it"));
    EXPECT_TRUE(broken.hasProblem("no number"));
    EXPECT_EQ(broken.unheld().at("measure-repeat"), 1U);
}
