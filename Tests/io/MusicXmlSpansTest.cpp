// SPDX-License-Identifier: MIT
// What leads from one note or time of a document to another: slurs, hairpins, slides, pedals.
#include "MusicXmlText.h"

#include <ZarnCore/io/ZarnExportReport.h>
#include <ZarnCore/io/ZarnMusicXmlExporter.h>
#include <ZarnCore/model/ZarnModelCheck.h>

#include <gtest/gtest.h>

using namespace musicxml;
using namespace zarn;
using io::ImportReport;

namespace {

/// A quarter of a voice with what stands in its <notations>; `string` and `fret` when they are on
/// frets.
std::string quarter(const std::string &notations, const char *voice = "1", int staff = 1,
                    const char *step = "C")
{
    return std::string("<note><pitch><step>") + step
        + "</step><octave>4</octave></pitch><duration>1</duration><voice>" + voice
        + "</voice><type>quarter</type><staff>" + std::to_string(staff) + "</staff><notations>"
        + notations + "</notations></note>";
}

std::string slur(const char *type, int number = 1)
{
    return std::string("<slur type=\"") + type + "\" number=\"" + std::to_string(number) + "\"/>";
}

std::string fretted(const std::string &technical, int fret, int string = 1)
{
    return "<technical>" + technical + "<string>" + std::to_string(string) + "</string><fret>"
        + std::to_string(fret) + "</fret></technical>";
}

std::string direction(const std::string &type, int staff = 1)
{
    return "<direction><direction-type>" + type + "</direction-type><staff>" + std::to_string(staff)
        + "</staff></direction>";
}

/// What the voices of the staves look like, beats apart by spaces, voices by " | ".
template <typename Sign>
std::string signsOf(const ScoreModel &model, Sign sign)
{
    std::string text;
    for (const auto &staff : model.track(0)->staves())
        for (unsigned slot = 0; slot < Bar::MaxVoices; ++slot) {
            std::string line;
            for (const auto &bar : staff->bars())
                if (const auto voice = bar->voice(slot))
                    for (const auto &beat : voice->beats())
                        line += (line.empty() ? "" : " ") + sign(*beat);
            text += line.empty() ? "" : (text.empty() ? "" : " | ") + line;
        }
    return text;
}

/// "(" for a slur to the next beat, ")" for one from the beat before, "'" for another one that
/// begins, and the numbers of further ends.
std::string slursOf(const ScoreModel &model)
{
    return signsOf(model, [](const Beat &beat) {
        std::string text = beat.isSlurredToPrevious() ? ")" : "";
        text += beat.beginsSlur() ? "'" : "";
        text += beat.isSlurredToNext() ? "(" : "";
        for (const auto &end : beat.slurEnds())
            text += (end.isBegin ? "<" : ">") + std::to_string(end.number);
        return text.empty() ? "-" : text;
    });
}

std::string slursOf(const std::string &measures)
{
    ImportReport report;
    const auto model = import(score(measures), report);
    EXPECT_TRUE(report.problems().empty()) << report.problems().front().toString();
    EXPECT_TRUE(report.unheld().empty());
    EXPECT_TRUE(checkModel(*model).empty());
    return slursOf(*model);
}

std::string hairpinsOf(const std::string &measures, ImportReport &report)
{
    const auto model = import(score(measures), report);
    return signsOf(*model, [](const Beat &beat) {
        constexpr const char *signs[] = {"-", "<", ">", "<>"};
        return std::string(beat.beginsHairpin() ? "'" : "")
            + signs[static_cast<int>(beat.hairpin())];
    });
}

std::string wedge(const char *type, int number = 1)
{
    return direction(std::string("<wedge type=\"") + type + "\" number=\"" + std::to_string(number)
                     + "\"/>");
}

const std::string plain = quarter("");

} // namespace

TEST(MusicXmlSpans, slursThatMeetNestAndCross)
{
    EXPECT_EQ(slursOf(measure(quarter(slur("start")) + plain + quarter(slur("stop") + slur("start"))
                              + quarter(slur("stop")))),
              "( )( )'( )");
    EXPECT_EQ(slursOf(measure(quarter(slur("start")) + quarter(slur("start", 2))
                              + quarter(slur("stop", 2)) + quarter(slur("stop")))),
              "( )(<1 )(>1 )");
    EXPECT_EQ(slursOf(measure(quarter(slur("start", 2) + slur("start")) + quarter(slur("stop", 2))
                              + plain + quarter(slur("stop")))),
              "(<1 )(>1 )( )");
    EXPECT_EQ(slursOf(measure(quarter(slur("start")) + quarter(slur("start", 2))
                              + quarter(slur("stop")) + quarter(slur("stop", 2)))),
              "( )(<1 ) >1");
}

TEST(MusicXmlSpans, slursCrossBarsVoicesAndStaves)
{
    EXPECT_EQ(
        slursOf(measure(plain + quarter(slur("start"))) + measure(quarter(slur("stop")) + plain)),
        "- ( ) -");
    // The voice that the slur begins in is written behind the one where it ends.
    EXPECT_EQ(slursOf(measure(plain + quarter(slur("stop")) + backup(2)
                              + quarter(slur("start"), "2") + quarter("", "2"))),
              "- >1 | <1 -");
    EXPECT_EQ(slursOf(measure(attributes("<staves>2</staves>") + quarter(slur("start")) + plain
                              + backup(2) + quarter("", "2", 2) + quarter(slur("stop"), "2", 2))),
              "<1 - | - >1");
    // One number in two voices at a time.
    EXPECT_EQ(slursOf(measure(quarter(slur("start")) + plain + backup(2)
                              + quarter(slur("start"), "2") + quarter("", "2"))
                      + measure(quarter(slur("stop")) + plain + backup(2)
                                + quarter(slur("stop"), "2") + quarter("", "2"))),
              "( )( ) - | ( )( ) -");
}

/// All beats under a slur know its line and its side, and both ends of one with a number do; a
/// document says them where the slur begins. The way that a curve bends counts where no placement
/// is said.
TEST(MusicXmlSpans, slursKeepTheLineAndTheSideThatTheyBeginWith)
{
    const auto begin = [](int number, const std::string &look) {
        return "<slur type=\"start\" number=\"" + std::to_string(number) + "\" " + look + "/>";
    };
    const std::string written =
        quarter(begin(1, "line-type=\"dashed\" placement=\"above\" orientation=\"under\""))
        + quarter(begin(2, "line-type=\"dotted\" placement=\"below\""))
        + quarter("<slur type=\"stop\" number=\"2\" placement=\"above\"/>")
        + quarter(slur("stop") + begin(1, "orientation=\"under\""));
    ImportReport report;
    const auto model = import(score(measure(written) + measure(quarter(slur("stop")))), report);
    const auto looksOf = [](const ScoreModel &model) {
        const auto look = [](SlurLine line, SlurSide side) {
            return slurLineToString(line) + markSideToString(side);
        };
        return signsOf(model, [&](const Beat &beat) {
            std::string text = look(beat.slurLine(), beat.slurSide());
            for (const auto &end : beat.slurEnds())
                text += (end.isBegin ? "<" : ">") + look(end.line, end.side);
            return text;
        });
    };
    const std::string looks = "DashedAbove DashedAbove<DottedBelow DashedAbove>DottedBelow "
                              "SolidBelow SolidBelow";
    EXPECT_EQ(looksOf(*model).substr(0, looks.size()), looks);
    io::ExportReport told;
    const auto copy = import(io::MusicXmlExporter().toText(*model, told), report);
    EXPECT_EQ(looksOf(*copy), looksOf(*model));
    EXPECT_TRUE(told.unheld().empty());
}

TEST(MusicXmlSpans, slursWithOneEndAreLeftOutAndTold)
{
    ImportReport report;
    const auto model = import(
        score(measure(quarter(slur("start")) + quarter(slur("start")) + quarter(slur("stop")))
              + measure(quarter(slur("stop", 3)) + plain)),
        report);
    EXPECT_EQ(slursOf(*model), "- ( ) - -");
    EXPECT_TRUE(report.hasProblem("part 1, bar 1, line 5: a slur begins here that nothing ends"));
    EXPECT_TRUE(report.hasProblem("bar 2, line 8: a slur ends here that nothing begins"));
    EXPECT_EQ(report.unheld().at("slur"), 2u);
}

TEST(MusicXmlSpans, hammersAndSlidesLeadToTheNextNoteOfTheString)
{
    const auto link = [](const char *name, const char *type) {
        return std::string("<") + name + " type=\"" + type + "\" number=\"1\"/>";
    };
    ImportReport report;
    const auto model =
        import(score(measure(quarter(fretted(link("hammer-on", "start"), 5), "1", 1, "A")
                             + quarter(fretted(link("pull-off", "stop"), 7), "1", 1, "B")
                             + quarter(fretted(link("pull-off", "start"), 7), "1", 1, "B")
                             + quarter(fretted(link("pull-off", "stop"), 7), "1", 1, "B"))
                     + measure(quarter(link("slide", "start") + fretted("", 1))
                               + quarter(link("slide", "stop") + slur("start")
                                         + link("glissando", "start") + fretted("", 1))
                               + quarter(slur("stop") + link("glissando", "stop") + fretted("", 1))
                               + quarter(fretted("", 1) + link("slide", "stop")))),
               report);
    const auto signs = signsOf(*model, [](const Beat &beat) {
        const auto note = beat.note(0);
        return std::string(note->isHopo() ? "h" : "") + std::to_string(int(note->slideOut()))
            + (note->slideIn() == SlideIn::FromBelow ? "/" : "");
    });
    EXPECT_EQ(signs, "h0 0 0 0 1 2 0 0/");
    EXPECT_TRUE(report.hasProblem("a pull-off without another fret"));
    EXPECT_TRUE(report.hasProblem("glissando was read as a slide"));
    EXPECT_TRUE(report.hasProblem("a slide that begins at no note was read as one from below"));
    EXPECT_EQ(report.unheld(), (std::map<std::string, std::uint32_t>{{"pull-off", 2}}));
}

TEST(MusicXmlSpans, tremolosJoinTwoBeatsAndWavesGoOverAll)
{
    const auto ornament = [](const char *element, const char *type, const char *content = "") {
        return std::string("<ornaments><") + element + " type=\"" + type + "\">" + content + "</"
            + element + "></ornaments>";
    };
    ImportReport report;
    const auto model = import(score(measure(quarter(ornament("tremolo", "start", "3"))
                                            + quarter(ornament("tremolo", "stop", "3"))
                                            + quarter(ornament("tremolo", "start", "1")) + plain
                                            + quarter(ornament("tremolo", "stop", "1")))
                                    + measure(quarter(ornament("wavy-line", "start")) + plain
                                              + quarter(ornament("wavy-line", "stop")) + plain)),
                              report);
    const auto signs = signsOf(*model, [](const Beat &beat) {
        return std::to_string(beat.tremoloToNext())
            + (beat.note(0)->vibrato() == Vibrato::Slight ? "~" : "");
    });
    EXPECT_EQ(signs, "3 0 0 0 0 0~ 0~ 0~ 0");
    EXPECT_TRUE(report.hasProblem("a tremolo that does not lead to the next note"));
    EXPECT_EQ(report.unheld(), (std::map<std::string, std::uint32_t>{{"tremolo", 2}}));
}

TEST(MusicXmlSpans, theLineOfATrillGoesOverNotesOfItsPitch)
{
    const std::string begin = "<ornaments><trill-mark/><wavy-line type=\"start\"/></ornaments>";
    const std::string end = "<ornaments><wavy-line type=\"stop\"/></ornaments>";
    ImportReport report;
    const auto model =
        import(score(measure(quarter(begin) + plain + quarter("", "1", 1, "D") + quarter(end))
                     + measure(quarter(begin) + plain + quarter(end) + plain)
                     + measure(quarter(begin) + plain + plain + plain + backup(4)
                               + quarter("", "2", 1, "E") + quarter(end, "2", 1, "E")
                               + quarter("", "2", 1, "C") + quarter("", "2", 1, "E"))),
               report);
    const auto signs = signsOf(*model, [](const Beat &beat) {
        return std::string(beat.note(0)->trill().interval > 0 ? "tr" : "-");
    });
    EXPECT_EQ(signs, "tr tr - - tr tr tr - tr tr - - | - - - -");
    EXPECT_TRUE(report.problems().empty()) << report.problems().front().toString();
}

TEST(MusicXmlSpans, hairpinsAreRunsOfBeatsFromTheirStartToTheirEnd)
{
    ImportReport report;
    EXPECT_EQ(hairpinsOf(measure(plain + wedge("crescendo") + plain + plain + wedge("stop")
                                 + wedge("crescendo") + plain)
                             + measure(plain + wedge("stop") + wedge("diminuendo") + plain
                                       + wedge("stop") + plain + plain),
                         report),
              "- < < '< < > - -");
    // Both inside of one note.
    EXPECT_EQ(
        hairpinsOf(measure(wedge("crescendo") + note("C", 4, 4, "whole") + backup(4) + forward(2)
                           + wedge("stop") + wedge("diminuendo") + forward(2) + wedge("stop")),
                   report),
        "<>");
    const auto swell = wedge("crescendo") + note("C", 4, 4, "whole") + backup(4) + forward(2)
        + wedge("stop") + wedge("diminuendo") + forward(1) + wedge("stop") + forward(1);
    const auto whole = note("C", 4, 4, "whole");
    EXPECT_EQ(hairpinsOf(measure(swell) + measure(swell)
                             + measure(wedge("crescendo") + whole + wedge("stop")),
                         report),
              "<> <> <");
    EXPECT_TRUE(report.problems().empty()) << report.problems().front().toString();
    EXPECT_TRUE(report.unheld().empty());

    EXPECT_EQ(hairpinsOf(measure(wedge("crescendo") + plain + wedge("stop", 2) + plain), report),
              "- -");
    EXPECT_TRUE(report.hasProblem("a wedge begins here that nothing ends"));
    EXPECT_TRUE(report.hasProblem("a wedge ends here that nothing begins"));
}

/// Not so one that ends where one of its kind begins in another voice.
TEST(MusicXmlSpans, hairpinsThatMeetBetweenVoicesAreTwo)
{
    const auto second = quarter("", "2");
    const auto empty = measure(plain + plain + backup(2) + second + second);
    const auto meeting = measure(wedge("diminuendo") + plain + plain + wedge("stop"))
        + measure(wedge("diminuendo") + second + second + wedge("stop"));
    ImportReport report;
    EXPECT_EQ(hairpinsOf(empty + meeting, report), "- - > > | - - '> >");
    const auto apart = measure(wedge("diminuendo") + plain + wedge("stop") + plain)
        + measure(wedge("diminuendo") + second + second + wedge("stop"));
    EXPECT_EQ(hairpinsOf(empty + apart, report), "- - > - | - - > >");
    EXPECT_TRUE(report.problems().empty());
}

/// Where the voice that it began in has no beats, another one carries it on, and hands it back.
TEST(MusicXmlSpans, aHairpinThatVoicesCarryOneAfterAnotherIsWrittenAsOne)
{
    ImportReport report;
    const auto second = quarter("", "2");
    const auto bars = measure(plain + plain + backup(2) + second + second)
        + measure(wedge("crescendo") + plain + plain) + measure(second + second)
        + measure(plain + wedge("stop") + plain);
    const auto model = import(score(bars), report);
    const auto signs = [](const ScoreModel &score) {
        return signsOf(score, [](const Beat &beat) {
            return std::string(beat.beginsHairpin() ? "'" : "") + "-<>o"[int(beat.hairpin())];
        });
    };
    EXPECT_EQ(signs(*model), "- - < < < - | - - < <");
    io::ExportReport told;
    const auto written = io::MusicXmlExporter().toText(*model, told);
    EXPECT_TRUE(told.unheld().empty());
    const auto count = [&](const std::string &text) {
        unsigned found = 0;
        for (auto at = written.find(text); at != std::string::npos; at = written.find(text, at + 1))
            ++found;
        return found;
    };
    EXPECT_EQ(count("<wedge "), 2U);
    EXPECT_EQ(signs(*import(written, report)), signs(*model));
}

TEST(MusicXmlSpans, pedalsChangeAtBeatsAndDashesGoWithTheirWords)
{
    const auto pedal = [](const char *type) {
        return direction(std::string("<pedal type=\"") + type + "\"/>");
    };
    ImportReport report;
    const auto model = import(score(measure(pedal("start") + plain + plain + pedal("stop"))
                                    + measure(pedal("start") + plain + pedal("change") + plain
                                              + pedal("sostenuto") + plain + pedal("stop"))),
                              report);
    const auto signs = signsOf(
        *model, [](const Beat &beat) { return std::to_string(static_cast<int>(beat.pedal())); });
    EXPECT_EQ(signs, "1 0 2 2 0") << "lifted and pressed again at the second bar";
    EXPECT_EQ(report.unheld(), (std::map<std::string, std::uint32_t>{{"pedal", 1}}));

    const auto dashes = [](const char *type, const std::string &words = {}) {
        return direction((words.empty() ? "" : "<words>" + words + "</words>") + "<dashes type=\""
                         + type + "\"/>");
    };
    ImportReport spans;
    const auto texts = import(score(measure(dashes("start", "rit.") + plain + plain + dashes("stop")
                                            + plain + dashes("start", "P.M.") + plain)
                                    + measure(plain + dashes("stop") + plain)),
                              spans);
    const auto read = signsOf(*texts, [](const Beat &beat) {
        return std::to_string(static_cast<int>(beat.textSpan())) + beat.text()
            + (beat.note(0)->isPalmMuted() ? "m" : "");
    });
    EXPECT_EQ(read, "1rit. 2 0 0m 0m 0");
    EXPECT_TRUE(spans.unheld().empty());
}

TEST(MusicXmlSpans, aTablatureGivesItsNotesWhatItAloneHas)
{
    const auto tab = [](const std::string &technical, int fret, const char *step) {
        return quarter(fretted(technical, fret), "2", 2, step);
    };
    ImportReport report;
    const auto model = import(
        score(measure(
            attributes("<staves>2</staves><clef number=\"1\"><sign>G</sign><line>2</line>"
                       "</clef><clef number=\"2\"><sign>TAB</sign><line>5</line></clef>")
            + quarter("<articulations><accent/></articulations>" + slur("start"), "1", 1, "C")
            + quarter(slur("stop"), "1", 1, "D") + backup(2)
            + tab("<hammer-on type=\"start\"/>", 1, "C")
            + tab("<hammer-on type=\"stop\"/><down-bow/>", 3, "D"))),
        report);
    ASSERT_EQ(model->track(0)->staffCount(), 1u);
    const auto voice = model->track(0)->staff(0)->bar(0)->voice(0);
    EXPECT_TRUE(voice->beat(0)->note(0)->isHopo());
    EXPECT_TRUE(voice->beat(0)->note(0)->accents().has(AccentFlag::Accent));
    EXPECT_EQ(voice->beat(1)->pickStroke(), Direction::Down);
    EXPECT_EQ(slursOf(*model), "( )");
}
