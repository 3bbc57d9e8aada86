// SPDX-License-Identifier: MIT
#include "io/MusicXmlText.h"
#include "support/LaidOut.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace {

using namespace zarn;
using namespace musicxml;
using layout::MarkKind;
using ::test::LaidOut;

constexpr auto fourQuarters = "<divisions>1</divisions><time><beats>4</beats>"
                              "<beat-type>4</beat-type></time><staves>1</staves>";

std::shared_ptr<ScoreModel> read(const std::string &measures)
{
    io::ImportReport report;
    return import(score(measures), report);
}

} // namespace

/// A score holds all staves at a time: a note that lasts over several such times shows one fermata.
TEST(DrawnMusicXmlTest, aLongNoteHasOneFermata)
{
    const auto model = read(measure(attributes(fourQuarters) + note("C", 5, 2, "half")
                                    + note("C", 5, 1, "quarter") + note("C", 5, 1, "quarter")));
    FermataMarks marks;
    for (const int quarters : {0, 1, 3, 4})
        marks.push_back(FermataMark::at(quarters, Fermata::Medium));
    model->masterTrack()->masterBar(0)->setFermatas(marks);
    EXPECT_EQ(LaidOut(*model).of(MarkKind::Fermata).size(), 3U);
}

/// One over a note that ends together with shorter ones is at these, and at the long note's head; a
/// staff whose note goes on has none.
TEST(DrawnMusicXmlTest, aFermataStandsOverWhatIsHeldInEachStaff)
{
    const std::string half = "half</type><notations><fermata/></notations><type>half";
    const std::string rest = "<note><rest/><duration>1</duration><voice>2</voice><type>quarter"
                             "</type><staff>2</staff><notations><fermata/></notations></note>";
    const auto model = read(measure(
        attributes("<divisions>1</divisions><time><beats>4</beats><beat-type>4</beat-type></time>"
                   "<staves>3</staves>")
        + note("C", 5, 2, half) + note("C", 5, 2, "half") + backup(4)
        + note("E", 4, 1, "quarter", {}, "2", 2) + rest + note("E", 4, 2, "half", {}, "2", 2)
        + backup(4) + note("C", 3, 4, "whole", {}, "3", 3)));
    const LaidOut laidOut(*model);
    const auto fermatas = laidOut.of(MarkKind::Fermata);
    ASSERT_EQ(fermatas.size(), 2U);
    const auto heads = laidOut.of(MarkKind::NoteHead);
    const auto middle = [](const auto &mark) { return (mark.left + mark.right) / 2; };
    const auto isOver = [&](const auto &mark) {
        return [&, x = middle(mark)](const auto &other) {
            return std::abs(middle(other) - x) < 1 && other.place.staff == mark.place.staff;
        };
    };
    EXPECT_EQ(fermatas[0].place.staff, 0);
    EXPECT_EQ(std::find_if(heads.begin(), heads.end(), isOver(fermatas[0])), heads.begin());
    EXPECT_EQ(fermatas[1].place.staff, 1);
    const auto rests = laidOut.of(MarkKind::Rest);
    EXPECT_TRUE(std::any_of(rests.begin(), rests.end(), isOver(fermatas[1])));
}

/// Two voices on one side that move together look like one chord, unless their heads are in the
/// way.
TEST(DrawnMusicXmlTest, voicesOfOneSideShareAStem)
{
    const auto stems = [](const char *lower, int duration, const char *type) {
        const auto model = read(measure(attributes(fourQuarters) + note("E", 5, 2, "half", {}, "1")
                                        + backup(2) + note("C", 4, 2, "half", {}, "2") + backup(2)
                                        + note(lower, 4, duration, type, {}, "3")));
        std::vector<double> places;
        for (const auto &stem : LaidOut(*model).of(MarkKind::Stem))
            if (stem.place.voice != 1)
                places.push_back(stem.left);
        return places;
    };
    const std::vector<double> together = stems("A", 2, "half");
    EXPECT_EQ(together.at(0), together.at(1));
    const std::vector<double> other = stems("A", 1, "quarter");
    EXPECT_LT(other.at(0), other.at(1)) << "of another length";
}

/// A sign is drawn where it or the meter is new; words of a tempo bring no number along.
TEST(DrawnMusicXmlTest, metersAndTemposLookAsTheyAreWritten)
{
    const auto time = [](const char *attribute, const char *number) {
        return attributes("<divisions>1</divisions><time" + std::string(attribute) + "><beats>"
                          + number + "</beats><beat-type>" + number + "</beat-type></time>");
    };
    const std::string whole = note("C", 5, 4, "whole");
    const std::string allegro = "<direction><direction-type><words>Allegro</words>"
                                "</direction-type><sound tempo=\"120\"/></direction>";
    const auto model =
        read(measure(time(" symbol=\"common\"", "4") + allegro + whole) + measure(whole)
             + measure(time(" symbol=\"cut\"", "2") + whole) + measure(time("", "2") + whole)
             + measure(time(" print-object=\"no\"", "4") + whole) + measure(whole));
    const LaidOut laid(*model);
    std::vector<std::string> glyphs;
    for (const auto &mark : laid.of(MarkKind::TimeSignature))
        glyphs.push_back(mark.glyph);
    EXPECT_EQ(
        glyphs,
        (std::vector<std::string>{"timeSigCommon", "timeSigCutCommon", "timeSig2", "timeSig2"}));
    const auto tempos = laid.of(MarkKind::Tempo);
    ASSERT_EQ(tempos.size(), 1U);
    EXPECT_EQ(tempos[0].text, "Allegro");
}

/// What is hidden takes its time and leaves no ink: neither a note nor its stem, dot or accidental,
/// and its voice does not turn the stems of others.
TEST(DrawnMusicXmlTest, hiddenNotesAreNotDrawn)
{
    const auto model = read(measure(
        attributes(fourQuarters)
        + "<note><pitch><step>A</step><octave>4</octave></pitch><duration>3</duration>"
          "<voice>1</voice><type>half</type><dot/></note>"
        + note("C", 5, 1, "quarter") + backup(4)
        + "<note print-object=\"no\"><pitch><step>F</step><alter>1</alter><octave>4</octave>"
          "</pitch><duration>3</duration><voice>2</voice><type>half</type><dot/></note>"
          "<note><pitch><step>E</step><octave>4</octave></pitch><duration>1</duration>"
          "<voice>2</voice><type>quarter</type></note>"
          "<note print-object=\"no\"><chord/><pitch><step>C</step><alter>1</alter><octave>4"
          "</octave></pitch><duration>1</duration><voice>2</voice><type>quarter</type></note>"));
    const LaidOut laid(*model);
    EXPECT_EQ(laid.of(MarkKind::NoteHead).size(), 3U);
    EXPECT_EQ(laid.of(MarkKind::Stem).size(), 3U);
    EXPECT_EQ(laid.of(MarkKind::AugmentationDot).size(), 1U);
    EXPECT_TRUE(laid.of(MarkKind::Accidental).empty());
    EXPECT_TRUE(laid.of(MarkKind::LedgerLine).empty());
}

/// Strings that are bowed have a circle over a head; guitars have diamonds and letters.
TEST(DrawnMusicXmlTest, naturalHarmonicsLookAsTheirInstrumentWritesThem)
{
    const std::string measures = measure(
        attributes(fourQuarters)
        + "<note><pitch><step>A</step><octave>5</octave></pitch><duration>4</duration>"
          "<voice>1</voice><type>whole</type><notations><technical><harmonic><natural/></harmonic>"
          "</technical></notations></note>");
    const auto draw = [&](const char *sound) {
        io::ImportReport report;
        const LaidOut laid(
            *import(score(measures,
                          "<score-instrument id=\"P1-I1\"><instrument-name>x"
                          "</instrument-name><instrument-sound>"
                              + std::string(sound) + "</instrument-sound></score-instrument>"),
                    report));
        std::string text = laid.of(MarkKind::NoteHead).at(0).glyph;
        for (const auto &mark : laid.of(MarkKind::Harmonic))
            text += ' ' + mark.glyph + mark.text;
        return text;
    };
    EXPECT_EQ(draw("strings.viola"), "noteheadWhole stringsHarmonic");
    EXPECT_EQ(draw("pluck.guitar.nylon-string"), "noteheadDiamondWhole N.H.");
}

/// A bend and its label end in front of the bar line.
TEST(DrawnMusicXmlTest, bendsStayInTheirBars)
{
    const auto bent = [](const char *duration, const char *type) {
        return "<note><pitch><step>E</step><octave>4</octave></pitch><duration>"
            + std::string(duration) + "</duration><voice>1</voice><type>" + type
            + "</type><notations><technical><string>2</string><fret>5</fret><bend><bend-alter>1"
              "</bend-alter></bend></technical></notations></note>";
    };
    const auto model = read(
        measure(attributes("<divisions>1</divisions><clef><sign>TAB</sign><line>5</line></clef>"
                           "<staff-details><staff-lines>6</staff-lines></staff-details>")
                + bent("2", "half") + bent("2", "half"))
        + measure(bent("4", "whole")));
    const LaidOut laid(*model);
    std::vector<double> lines;
    for (const auto &line : laid.of(MarkKind::BarLine))
        lines.push_back(line.left);
    ASSERT_GE(lines.size(), 2U);
    const auto bends = laid.of(MarkKind::Bend);
    EXPECT_FALSE(bends.empty());
    for (const auto &bend : bends)
        EXPECT_LT(bend.right, lines.at(static_cast<std::size_t>(bend.place.bar)));
}

/// In one mark, with a whole piece at each end.
TEST(DrawnMusicXmlTest, dashedAndDottedSlursAreInPieces)
{
    const auto piecesOf = [](const char *line) {
        const auto at = [](const std::string &notations) {
            return "<note><pitch><step>C</step><octave>5</octave></pitch><duration>2</duration>"
                   "<voice>1</voice><type>half</type><notations>"
                + notations + "</notations></note>";
        };
        const auto model = read(measure(attributes(fourQuarters)
                                        + at(std::string("<slur type=\"start\"") + line + "/>")
                                        + at("<slur type=\"stop\"/>")));
        const LaidOut laid(*model);
        const layout::DrawList &list = laid.layout->pages()[0].systems[0].drawing->marks;
        std::vector<int> pieces;
        for (const layout::DrawMark &mark : list.marks())
            if (mark.kind == MarkKind::Slur) {
                const auto &path = list.path(mark);
                const auto *const verbs = list.verbs().data() + path.firstVerb;
                pieces.push_back(static_cast<int>(
                    std::count(verbs, verbs + path.verbCount, layout::PathVerb::Close)));
            }
        EXPECT_EQ(pieces.size(), 1U);
        return pieces.at(0);
    };
    EXPECT_EQ(piecesOf(""), 1);
    const int dashes = piecesOf(" line-type=\"dashed\"");
    EXPECT_GT(dashes, 2);
    EXPECT_GT(piecesOf(" line-type=\"dotted\""), dashes);
}

TEST(DrawnMusicXmlTest, rehearsalLettersStandInBoxesAndCircles)
{
    const auto frameOf = [](const char *letters, const char *enclosure) {
        const auto model = read(
            measure(attributes(fourQuarters) + "<direction><direction-type><rehearsal enclosure=\""
                    + enclosure + "\">" + letters + "</rehearsal></direction-type></direction>"
                    + note("C", 5, 4, "whole")));
        const LaidOut laid(*model);
        const auto text = laid.of(MarkKind::Section).at(0);
        const auto frame = laid.of(MarkKind::Enclosure).at(0);
        EXPECT_TRUE(frame.left < text.left && frame.right > text.right && frame.top < text.top
                    && frame.bottom > text.bottom)
            << letters;
        return frame;
    };
    const auto box = frameOf("AB", "rectangle");
    EXPECT_GT(box.right - box.left, box.bottom - box.top + 0.5);
    for (const char *const letters : {"I", "AB"}) {
        const auto circle = frameOf(letters, "circle");
        EXPECT_NEAR(circle.right - circle.left, circle.bottom - circle.top, 0.01) << letters;
    }
}

/// A voice that lies below the other rests below it, whatever its number is.
TEST(DrawnMusicXmlTest, restsStandOnTheSideOfTheirVoice)
{
    const auto restOf = [](const char *lowStem, const char *highStem) {
        const auto stemmed = [](const char *step, int octave, const char *voice, const char *stem) {
            return std::string("<note><pitch><step>") + step + "</step><octave>"
                + std::to_string(octave) + "</octave></pitch><duration>2</duration><voice>" + voice
                + "</voice><type>half</type><stem>" + stem + "</stem></note>";
        };
        const std::string rest = "<note><rest/><duration>2</duration><voice>1</voice>"
                                 "<type>half</type></note>";
        const auto model =
            read(measure(attributes(fourQuarters) + stemmed("E", 4, "1", lowStem) + rest + backup(4)
                         + stemmed("C", 5, "2", highStem) + stemmed("C", 5, "2", highStem)));
        const LaidOut laid(*model);
        const auto rests = laid.of(MarkKind::Rest);
        return rests.at(0).top - laid.of(MarkKind::NoteHead).back().bottom;
    };
    EXPECT_GT(restOf("down", "up"), 0) << "where the stems point";
    EXPECT_GT(restOf("down", "down"), 0) << "where the notes lie";
    EXPECT_LT(restOf("up", "down"), 0) << "where the stems point, crossing";
}

/// What is given a side stands there, words under a staff on the line of its dynamics.
TEST(DrawnMusicXmlTest, wordsDynamicsAndHairpinsStandOnTheirSides)
{
    const auto draw = [](const std::string &side) {
        const auto direction = [&](const std::string &content) {
            return "<direction placement=\"" + side + "\"><direction-type>" + content
                + "</direction-type></direction>";
        };
        const std::string c = note("C", 5, 1, "quarter");
        return LaidOut(*read(measure(
            attributes(fourQuarters) + direction("<dynamics><p/></dynamics>")
            + direction("<words>dolce</words>") + c + c + direction("<wedge type=\"crescendo\"/>")
            + c + c + direction("<wedge type=\"stop\"/>"))));
    };
    constexpr double staff = 4;
    const LaidOut above = draw("above");
    for (const MarkKind kind : {MarkKind::Dynamic, MarkKind::Text, MarkKind::Hairpin}) {
        SCOPED_TRACE(static_cast<int>(kind));
        ASSERT_FALSE(above.of(kind).empty());
        for (const auto &mark : above.of(kind))
            EXPECT_LT(mark.bottom, 0);
    }
    const LaidOut below = draw("below");
    const auto level = below.of(MarkKind::Dynamic).at(0);
    const auto words = below.of(MarkKind::Text).at(0);
    EXPECT_GT(level.top, staff);
    EXPECT_EQ(words.y, level.y);
    EXPECT_GT(words.left, level.right);
    for (const auto &mark : below.of(MarkKind::Hairpin))
        EXPECT_GT(mark.top, staff);
}

/// A head is open or full as is said, whatever the value; notes without stems have no flags and no
/// beams.
TEST(DrawnMusicXmlTest, headsAndStemsLookAsIsSaid)
{
    const auto draw = [](const std::string &before, const std::string &behind) {
        const auto noted = [&](const char *type) {
            return "<note><pitch><step>C</step><octave>5</octave></pitch><duration>1</duration>"
                   "<voice>1</voice><type>"
                + std::string(type) + "</type>" + before + behind + "</note>";
        };
        return LaidOut(*read(measure(attributes("<divisions>2</divisions>") + noted("eighth")
                                     + noted("eighth") + noted("half"))));
    };
    const auto heads = [](const LaidOut &laid) {
        std::vector<std::string> names;
        for (const auto &mark : laid.of(MarkKind::NoteHead))
            names.push_back(mark.glyph);
        return names;
    };
    using Names = std::vector<std::string>;
    const LaidOut open = draw("", "<notehead filled=\"no\">diamond</notehead>");
    EXPECT_EQ(heads(open),
              (Names{"noteheadDiamondHalf", "noteheadDiamondHalf", "noteheadDiamondHalf"}));
    EXPECT_EQ(open.of(MarkKind::Stem).size(), 3U);
    EXPECT_EQ(open.of(MarkKind::Beam).size(), 1U);
    const LaidOut full = draw("<stem>none</stem>", "<notehead filled=\"yes\">normal</notehead>");
    EXPECT_EQ(heads(full), (Names{"noteheadBlack", "noteheadBlack", "noteheadBlack"}));
    EXPECT_TRUE(full.of(MarkKind::Stem).empty());
    EXPECT_TRUE(full.of(MarkKind::Flag).empty());
    EXPECT_TRUE(full.of(MarkKind::Beam).empty());
}
