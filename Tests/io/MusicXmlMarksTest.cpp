// SPDX-License-Identifier: MIT
// What documents say of single notes and beats: articulations, fingers, ornaments, lyrics.
#include "ExportedMusicXml.h"

#include <ZarnCore/model/ZarnModelCheck.h>

#include <gtest/gtest.h>

using namespace musicxml;
using namespace zarn;
using io::ImportReport;
using utils::rational;

namespace {

/// A note with what stands in its <notations>, and behind them.
std::string noted(const char *step, const std::string &notations, const std::string &behind = {},
                  const std::string &type = "quarter", const std::string &before = {})
{
    return "<note>" + before + "<pitch><step>" + step
        + "</step><octave>4</octave></pitch><duration>1</duration><type>" + type
        + "</type><notations>" + notations + "</notations>" + behind + "</note>";
}

std::string in(const char *element, const std::string &content)
{
    return std::string("<") + element + ">" + content + "</" + element + ">";
}

/// The beats of the first voice of the first staff, over all bars.
std::vector<std::shared_ptr<Beat>> beatsOf(const ScoreModel &model)
{
    std::vector<std::shared_ptr<Beat>> beats;
    for (const auto &bar : model.track(0)->staff(0)->bars())
        if (const auto voice = bar->voice(0))
            beats.insert(beats.end(), voice->beats().begin(), voice->beats().end());
    return beats;
}

std::string lyricsOf(const std::vector<std::shared_ptr<Beat>> &beats)
{
    std::string text;
    for (const auto &beat : beats) {
        text += text.empty() ? "" : "|";
        for (const auto &syllable : beat->lyrics())
            text += std::to_string(syllable.line + 1) + syllable.toString();
    }
    return text;
}

std::string lyric(const char *number, const char *syllabic, const char *text, const char *more = "")
{
    return std::string("<lyric number=\"") + number + "\"><syllabic>" + syllabic
        + "</syllabic><text>" + text + "</text>" + more + "</lyric>";
}

} // namespace

TEST(MusicXmlMarks, articulationsAreMarksAndThoseThatExcludeEachOtherAreTold)
{
    ImportReport report;
    const auto model = import(
        score(measure(
            noted("C", in("articulations", "<detached-legato/><strong-accent type=\"up\"/>"))
            + noted("D",
                    in("articulations", "<spiccato/><stress/><breath-mark>comma</breath-mark>"))
            + noted("E", in("articulations", "<scoop/><falloff/><staccato/><staccatissimo/>"))
            + noted("F", in("articulations", "<accent/><unstress/><other-articulation/>")))),
        report);
    const auto beats = beatsOf(*model);
    const auto note = [&](std::size_t beat) { return beats.at(beat)->note(0); };
    EXPECT_EQ(
        note(0)->accents(),
        AccentFlags(AccentFlag::Staccato).with(AccentFlag::Tenuto).with(AccentFlag::HeavyAccent));
    EXPECT_EQ(note(1)->accents(), AccentFlags(AccentFlag::Staccatissimo).with(AccentFlag::Accent));
    EXPECT_EQ(beats[1]->breath(), BreathSign::Breath);
    EXPECT_EQ(note(2)->slideIn(), SlideIn::FromBelow);
    EXPECT_EQ(note(2)->slideOut(), SlideOut::Downwards);
    EXPECT_EQ(note(2)->accents(), AccentFlags(AccentFlag::Staccatissimo)) << "the later one holds";
    EXPECT_EQ(note(3)->accents().isEmpty(), note(3)->isGhost()) << "one of the two";
    EXPECT_TRUE(report.hasProblem("cannot stand beside another sign"));
    EXPECT_EQ(report.unheld().at("other-articulation"), 1u);
    EXPECT_EQ(report.unheld().size(), 1u);
}

TEST(MusicXmlMarks, aDeadNoteIsNotBentEvenWhereItsHeadAloneTells)
{
    ImportReport report;
    const auto model = import(
        score(measure("<note><pitch><step>C</step><octave>5</octave></pitch><duration>4</duration>"
                      "<type>whole</type><notehead>x</notehead><notations><technical>"
                      "<string>1</string><fret>8</fret><bend><bend-alter>2</bend-alter></bend>"
                      "</technical></notations></note>")),
        report);
    const auto &note = *model->track(0)->bar(0)->voice(0)->beat(0)->note(0);
    EXPECT_TRUE(note.isDead());
    EXPECT_TRUE(note.bend() == zarn::Bend());
    EXPECT_TRUE(report.hasProblem("Bend was left out: it cannot stand beside another sign"));
}

TEST(MusicXmlMarks, marksOfABeatComeFromAllNotesOfItsChord)
{
    ImportReport report;
    const auto arpeggio = [](const char *direction) {
        return std::string("<arpeggiate") + direction + "/>";
    };
    const auto model = import(
        score(measure(noted("C", arpeggio(""), {}, "quarter")
                      + noted("E", arpeggio("") + "<technical><down-bow/></technical>", {},
                              "quarter", "<chord/>")
                      + noted("D", arpeggio(" direction=\"down\""))
                      + noted("F", "<non-arpeggiate type=\"bottom\"/>")
                      + noted("A", "<non-arpeggiate type=\"top\"/>", {}, "quarter", "<chord/>"))),
        report);
    const auto beats = beatsOf(*model);
    ASSERT_EQ(beats.size(), 3u);
    EXPECT_EQ(beats[0]->arpeggioDirection() == Direction::Up,
              beats[0]->pickStroke() == Direction::None)
        << "one of the two";
    EXPECT_EQ(beats[1]->arpeggio().direction, Direction::Down);
    EXPECT_EQ(beats[1]->pickStroke(), Direction::None) << "of the chord before";
    EXPECT_TRUE(beats[2]->isNonArpeggio());
}

TEST(MusicXmlMarks, tremolosCountTheFlagsAndTrillsKnowTheKey)
{
    const auto tremolo = [](const char *strokes, const char *type = "single") {
        return in("ornaments",
                  std::string("<tremolo type=\"") + type + "\">" + strokes + "</tremolo>");
    };
    ImportReport report;
    const auto model = import(
        score(measure(attributes("<divisions>1</divisions><key><fifths>-3</fifths></key>")
                      + noted("C", tremolo("2")) + noted("C", tremolo("2"), {}, "eighth")
                      + noted("C", tremolo("4"), {}, "16th") + noted("C", tremolo("", "unmeasured"))
                      + noted("D", in("ornaments", "<trill-mark/>"))
                      + noted("C", in("ornaments", "<trill-mark/>"))
                      + noted("D",
                              in("ornaments",
                                 "<trill-mark/><accidental-mark>natural"
                                 "</accidental-mark>"))
                      + noted("B", in("ornaments", "<trill-mark trill-step=\"half\"/>"))
                      + noted("B", in("ornaments", "<inverted-mordent/>"))
                      + noted("B", in("ornaments", "<delayed-turn/><schleifer/>")))),
        report);
    const auto beats = beatsOf(*model);
    const auto note = [&](std::size_t beat) { return beats.at(beat)->note(0); };
    EXPECT_EQ(beats.at(0)->tremolo(), 2u);
    EXPECT_EQ(beats.at(1)->tremolo(), 3u);
    EXPECT_EQ(beats.at(2)->tremolo(), 4u);
    EXPECT_EQ(beats.at(3)->tremolo(), 3u);
    EXPECT_EQ(note(4)->trill().interval, 1) << "D to E flat";
    EXPECT_EQ(note(5)->trill().interval, 2) << "C to D";
    EXPECT_EQ(note(6)->trill().interval, 2) << "D to E natural";
    EXPECT_EQ(note(7)->trill().interval, 1);
    EXPECT_EQ(note(8)->ornament(), Ornament::UpperMordent);
    EXPECT_EQ(note(9)->ornament(), Ornament::Turn);
    EXPECT_TRUE(report.hasProblem("faster than 64ths"));
    EXPECT_TRUE(report.hasProblem("delayed turn"));
    EXPECT_EQ(report.unheld(), (std::map<std::string, std::uint32_t>{{"schleifer", 1}}));
}

TEST(MusicXmlMarks, fingersAreOfStringsOrOfKeys)
{
    const auto fingers = [](const std::string &numbers, bool isOnFrets) {
        std::string text;
        for (const char number : numbers)
            text += noted("E",
                          in("technical",
                             std::string(isOnFrets ? "<string>6</string><fret>0</fret>" : "")
                                 + "<fingering>" + number + "</fingering>"));
        ImportReport report;
        const auto model = import(score(measure(text)), report);
        std::vector<Fingering> read;
        for (const auto &beat : beatsOf(*model))
            read.push_back(beat->note(0)->leftFingering());
        return read;
    };
    using F = Fingering;
    EXPECT_EQ(fingers("0124T", true),
              (std::vector<F>{F::Open, F::Index, F::Middle, F::Little, F::Thumb}));
    EXPECT_EQ(fingers("125", false), (std::vector<F>{F::Thumb, F::Index, F::Little}));

    ImportReport report;
    const auto model =
        import(score(measure(noted("E",
                                   in("technical",
                                      "<pluck>a</pluck><fingering>1</fingering>"
                                      "<fingering>2</fingering><tap hand=\"left\"/>"))
                             + noted("E", in("technical", "<open-string/><pluck>q</pluck>")))),
               report);
    const auto note = beatsOf(*model).at(0)->note(0);
    EXPECT_EQ(note->rightFingering(), F::Annular);
    EXPECT_EQ(note->leftFingering(), F::Index);
    EXPECT_TRUE(note->isLeftHandTapped());
    EXPECT_TRUE(report.hasProblem("second fingering"));
    EXPECT_EQ(report.unheld(),
              (std::map<std::string, std::uint32_t>{{"fingering", 1}, {"pluck", 1}}));
}

TEST(MusicXmlMarks, bendsBecomeCurves)
{
    const auto bend = [](const std::string &bends) {
        ImportReport report;
        const auto model = import(
            score(measure(noted("E", in("technical", bends + "<string>1</string><fret>7</fret>")))),
            report);
        EXPECT_TRUE(checkModel(*model).empty());
        return beatsOf(*model).at(0)->note(0)->bend().toString();
    };
    const auto leg = [](const char *alter, const char *kind = "", const char *times = "") {
        return std::string("<bend") + times + "><bend-alter>" + alter + "</bend-alter>" + kind
            + "</bend>";
    };
    EXPECT_EQ(bend(leg("2")), "Bend 0:0 15:0 45:4 60:4");
    EXPECT_EQ(bend(leg("1", "<pre-bend/>")), "PreBend 0:2 60:2");
    EXPECT_EQ(bend(leg("2") + leg("-2")), "BendNRelease 0:0 7:0 23:4 37:4 53:0 60:0");
    EXPECT_EQ(bend(leg("2", "<pre-bend/>") + leg("2", "<release/>")),
              "PreBendNRelease 0:4 15:4 45:0 60:0");
    EXPECT_EQ(bend(leg("2", "<release/>")), "Release 0:4 15:4 45:0 60:0");
    EXPECT_EQ(bend(leg("0.5", "", " first-beat=\"0\" last-beat=\"100\"")), "Bend 0:0 60:1");
    EXPECT_EQ(bend(leg("99")), "Bend 0:0 15:0 45:24 60:24");
    EXPECT_EQ(bend(leg("0")), "NoBend");

    ImportReport report;
    const auto model = import(
        score(measure(noted("E", in("technical", leg("-2", "<with-bar>dip</with-bar>"))))), report);
    EXPECT_EQ(beatsOf(*model).at(0)->whammyBar(), WhammyBar::of(WhammyBarType::Dip, -4));
}

TEST(MusicXmlMarks, harmonicsAreNamedByTheirFret)
{
    const auto harmonic = [](const char *fret, const std::string &content) {
        ImportReport report;
        const auto model =
            import(score(measure(noted("E",
                                       in("technical",
                                          in("harmonic", content) + "<string>1</string><fret>"
                                              + fret + "</fret>")))),
                   report);
        return beatsOf(*model).at(0)->note(0)->harmonic().toString();
    };
    EXPECT_EQ(harmonic("7", "<natural/>"), "Natural 3");
    EXPECT_EQ(harmonic("5", "<natural/><touching-pitch/>"), "Natural 4");
    EXPECT_EQ(harmonic("1", "<natural/>"), "Natural 2");
    EXPECT_EQ(harmonic("3", "<artificial/>"), "Artificial 2");
}

TEST(MusicXmlMarks, noSyllableIsLost)
{
    ImportReport report;
    const auto model = import(
        score(measure(
            noted("C", "", lyric("1", "begin", "Hal") + lyric("2", "single", "all", "<extend/>"))
            + noted("D", "", lyric("1", "middle", "le") + lyric("chorus", "single", "ah"))
            + noted("E", "",
                    lyric("1", "end", "lu",
                          "<elision/><syllabic>single</syllabic>"
                          "<text>jah</text>")
                        + lyric("6", "single", "lost") + "<lyric number=\"2\"><extend/></lyric>")
            + noted("F", "", lyric("1", "single", "do"))
            + noted("A", "", lyric("1", "single", "re"), "quarter", "<chord/>"))),
        report);
    EXPECT_EQ(lyricsOf(beatsOf(*model)), "1Hal-2all_|1le-3ah|1lu~jah|1do~re");
    EXPECT_TRUE(report.hasProblem("\"lost\" stands in a sixth line of lyrics"));
    EXPECT_EQ(report.unheld(), (std::map<std::string, std::uint32_t>{{"lyric", 1}}));
}

/// Some programs write a hyphen in front of a syllable that they call a word of its own.
TEST(MusicXmlMarks, hyphensLeadToTheNextSyllable)
{
    ImportReport report;
    const auto model = import(score(measure(noted("C", "", lyric("1", "begin", "mer"))
                                            + noted("D", "", lyric("1", "single", "ry"))
                                            + noted("E", "", lyric("1", "begin", "cap"))
                                            + noted("F", "", lyric("1", "begin", "tains")))
                                    + measure(noted("C", "", lyric("1", "end", "would"))
                                              + noted("D", "", lyric("1", "end", "not")))),
                              report);
    EXPECT_EQ(lyricsOf(beatsOf(*model)), "1mer-|1ry|1cap-|1tains-|1would|1not");
    EXPECT_EQ(beatsOf(*model)[1]->lyrics()[0].syllabic, Syllabic::End);
    EXPECT_EQ(beatsOf(*model)[3]->lyrics()[0].syllabic, Syllabic::Middle);
    EXPECT_TRUE(report.hasProblem("bar 1: a syllable behind a hyphen was joined to its word"));
    EXPECT_TRUE(report.hasProblem("bar 2: a syllable in mid-word that none leads to was mended"));
}

/// A long note that ends with shorter ones is held with them; both show it when it is written
/// again.
TEST(MusicXmlMarks, aFermataOverNotesThatEndTogetherIsOne)
{
    const auto held = [](const char *step, int duration, const char *type, const char *voice) {
        return note(step, 4, duration,
                    std::string(type) + "</type><notations><fermata/></notations><type>" + type, {},
                    voice);
    };
    const auto read = [&](const std::string &longer) {
        ImportReport report;
        return import(
            score(measure(attributes("<divisions>1</divisions>") + longer + backup(2)
                          + note("D", 4, 1, "quarter", {}, "2") + held("E", 1, "quarter", "2"))),
            report);
    };
    const auto model = read(held("C", 2, "half", "1"));
    const FermataMarks together = {FermataMark::at(1, Fermata::Medium)};
    EXPECT_EQ(model->masterTrack()->masterBar(0)->fermatas(), together);
    const std::string written = exported(*model);
    EXPECT_LT(written.find("<fermata"), written.rfind("<fermata"));
    ImportReport report;
    EXPECT_EQ(import(written, report)->masterTrack()->masterBar(0)->fermatas(), together);

    const auto apart = read(held("C", 1, "quarter", "1") + note("C", 4, 1, "quarter"));
    EXPECT_EQ(apart->masterTrack()->masterBar(0)->fermatas().size(), 2U);
}

TEST(MusicXmlMarks, fermatasStandAtATimeOfAllStavesAndTheLongestHolds)
{
    const std::string text =
        measure(attributes("<staves>2</staves>") + noted("C", "<fermata/>")
                + noted("D", "<fermata>angled</fermata>") + backup(2)
                + note("C", 3, 1,
                       "quarter</type><notations><fermata>square</fermata></notations>"
                       "<type>quarter",
                       {}, "2", 2)
                + "<barline location=\"right\"><bar-style>dashed</bar-style><fermata/></barline>");
    ImportReport report;
    const auto model = import(score(text), report);
    const auto bar = model->masterTrack()->masterBar(0);
    EXPECT_EQ(bar->fermatas(),
              (FermataMarks{FermataMark::at(0, Fermata::Long), FermataMark::at(1, Fermata::Short),
                            FermataMark::at(bar->length(), Fermata::Medium)}));
    EXPECT_EQ(bar->barLine(), BarLine::Dashed);
    EXPECT_TRUE(report.unheld().empty());
}

TEST(MusicXmlMarks, beamsAreKeptWhereTheyAreNotTheUsualOnes)
{
    const auto eighth = [](const char *beam) {
        return "<note><pitch><step>C</step><octave>4</octave></pitch><duration>1</duration>"
               "<type>eighth</type>"
            + (*beam ? "<beam number=\"1\">" + std::string(beam) + "</beam>" : std::string())
            + "</note>";
    };
    const auto modesOf = [](const zarn::ScoreModel &model) {
        std::string modes;
        for (const auto &beat : beatsOf(model))
            modes += beat->beamMode() == BeamMode::Auto ? '.'
                : beat->beamMode() == BeamMode::Join    ? 'J'
                                                        : 'B';
        return modes;
    };
    ImportReport report;
    const auto model =
        import(score(measure(attributes("<divisions>2</divisions>") + eighth("begin")
                             + eighth("continue") + eighth("continue") + eighth("continue")
                             + eighth("continue") + eighth("end") + eighth("") + eighth(""))),
               report);
    EXPECT_EQ(modesOf(*model), "...J.BB.") << "joined over the middle of the bar, apart at the end";
    EXPECT_TRUE(report.unheld().empty());
    // A part without beams has the usual ones, unless the document says that it has them all.
    std::string unbeamed =
        score(measure(attributes("<divisions>2</divisions>") + eighth("") + eighth("")));
    EXPECT_EQ(modesOf(*import(unbeamed, report)), "..");
    unbeamed.insert(unbeamed.find("<part-list>"),
                    "<identification><encoding><supports element=\"beam\" type=\"yes\"/>"
                    "</encoding></identification>");
    EXPECT_EQ(modesOf(*import(unbeamed, report)), "B.");
    import(score(measure(eighth("begin")) + measure(eighth("end"))), report);
    EXPECT_TRUE(report.hasProblem("a beam over the bar line was left out"));
}

/// A beam that leads to the other staff is said by the note in front of it, and by no other.
TEST(MusicXmlMarks, beamsToAnotherStaffAreSaid)
{
    const auto eighth = [](const char *beam, int staff) {
        return "<note><pitch><step>C</step><octave>4</octave></pitch><duration>1</duration>"
               "<voice>1</voice><type>eighth</type><staff>"
            + std::to_string(staff) + "</staff><beam number=\"1\">" + beam + "</beam></note>";
    };
    ImportReport report;
    const auto model =
        import(score(measure(attributes("<divisions>2</divisions><staves>2</staves>")
                             + eighth("begin", 1) + eighth("continue", 2) + eighth("continue", 1)
                             + eighth("end", 2) + eighth("begin", 1) + eighth("end", 1)
                             + eighth("begin", 2) + eighth("end", 2))),
               report);
    std::string modes;
    for (const auto &staff : model->track(0)->staves())
        for (const auto &beat : staff->bars()[0]->voice(0)->beats())
            modes += beat->beamMode() == BeamMode::Join ? 'J' : beat->isPlaceHolder() ? ' ' : '.';
    EXPECT_EQ(modes, "J J ..  J . ..") << "notes and free time of the upper staff, then the lower";
    EXPECT_TRUE(report.unheld().empty());
}

/// Reminders of what holds again stay; accidentals that notation asks for are left to it.
TEST(MusicXmlMarks, accidentalsThatNothingAsksForAreReminders)
{
    const auto note = [](const char *step, int alter, const char *sign) {
        return "<note><pitch><step>" + std::string(step) + "</step><alter>" + std::to_string(alter)
            + "</alter><octave>4</octave></pitch><duration>1</duration><type>quarter</type>"
            + (sign[0] == '\0' ? "" : "<accidental>" + std::string(sign) + "</accidental>")
            + "</note>";
    };
    const auto shown = [](const ScoreModel &model) {
        std::string text;
        for (const auto &beat : beatsOf(model))
            text += beat->note(0)->accidentalDisplay() == AccidentalDisplay::Shown ? 'r' : '-';
        return text;
    };
    const auto model = readFrom(
        score("<measure number=\"1\">" + note("F", 1, "sharp") + note("F", 0, "natural")
              + note("F", 0, "natural") + note("G", 0, "sharp") + "</measure><measure number=\"2\">"
              + note("F", 0, "natural") + note("F", 0, "") + note("B", -1, "flat")
              + note("B", -1, "flat") + "</measure>"));
    EXPECT_EQ(shown(*model), "--r-r--r");
    const auto text = exported(*model);
    const auto again = readFrom(text);
    EXPECT_EQ(shown(*again), "--r-r--r");
    EXPECT_EQ(exported(*again), text);
}

TEST(MusicXmlMarks, whatElseAnEngraverAsksFor)
{
    const auto accidental = [](const char *how) {
        return std::string("<accidental ") + how + "=\"yes\">sharp</accidental>";
    };
    ImportReport report;
    const auto model =
        import(score("<measure number=\"1\">"
                     + noted("C", "<dynamics><sfz/></dynamics>", accidental("cautionary"))
                     + noted("D", "<dynamics><other-dynamics> subito </other-dynamics></dynamics>",
                             accidental("parentheses") + "<stem>down</stem>")
                     + noted("E", "<tied type=\"let-ring\"/>",
                             accidental("bracket") + "<notehead>slash</notehead>")
                     + "</measure><measure number=\"2\"><print new-system=\"yes\"/>"
                     + noted("F", "", "<cue/>") + "</measure>"),
               report);
    const auto beats = beatsOf(*model);
    EXPECT_EQ(beats.at(0)->attackDynamic(), AttackDynamic::Sfz);
    EXPECT_EQ(beats.at(0)->note(0)->accidentalDisplay(), AccidentalDisplay::Shown);
    EXPECT_EQ(beats.at(1)->text(), "\u00A0subito");
    EXPECT_EQ(beats.at(1)->note(0)->accidentalDisplay(), AccidentalDisplay::Parentheses);
    EXPECT_EQ(beats.at(1)->stemOrientation(), ZarnStemOrientation::Downward);
    EXPECT_TRUE(beats.at(2)->note(0)->letsRing());
    EXPECT_EQ(beats.at(2)->note(0)->accidentalDisplay(), AccidentalDisplay::Brackets);
    EXPECT_TRUE(beats.at(2)->isSlashed());
    EXPECT_TRUE(beats.at(3)->isCue());
    EXPECT_EQ(model->fullScoreSystemsLayout(), (std::vector<int>{1}));
    EXPECT_TRUE(report.unheld().empty());
}

/// What is said of a side is kept and written again; what is moved off the staff is on a side too.
TEST(MusicXmlMarks, wordsDynamicsAndHairpinsKeepTheirSides)
{
    const auto direction = [](const std::string &placement, const std::string &content) {
        return "<direction" + (placement.empty() ? "" : " placement=\"" + placement + "\"")
            + "><direction-type>" + content + "</direction-type></direction>";
    };
    const std::string above = "above";
    const std::string below = "below";
    const std::string written = direction(above, "<words>arco</words>")
        + direction(below, "<words>dolce</words>") + direction(below, in("dynamics", "<p/>"))
        + note("C", 5, 1, "quarter") + direction("", "<words default-y=\"-65\">sotto</words>")
        + direction("", "<words>voce</words>") + direction("", "<words>a tempo</words>")
        + direction("", in("dynamics", "<mf/>")) + direction(above, "<wedge type=\"crescendo\"/>")
        + note("C", 5, 1, "quarter")
        + direction(above, in("dynamics", "<other-dynamics>subito</other-dynamics><sfz/>"))
        + note("C", 5, 1, "quarter") + direction(above, "<wedge type=\"stop\"/>")
        + direction(below, "<words>cresc.</words>") + direction("", "<dashes type=\"start\"/>")
        + note("C", 5, 1, "quarter");
    const std::string behind = direction("", "<dashes type=\"stop\"/>");
    const auto said = [](const ScoreModel &model) {
        std::string text;
        for (const auto &beat : beatsOf(model))
            text += beat->text() + '/' + beat->textBelow() + ' '
                + textSpanToString(beat->textSpan()) + ' ' + markSideToString(beat->dynamicSide())
                + ' ' + markSideToString(beat->hairpinSide()) + '|';
        return text;
    };
    ImportReport report;
    const auto model =
        import(score(measure(written) + measure(note("C", 5, 4, "whole") + behind)), report);
    EXPECT_EQ(said(*model),
              "arco/dolce None Below Auto|voce\na tempo/sotto None Auto Above|"
              "subito\u00a0/ None Above Above|/cresc. BeginBelow Auto Auto|/ End Auto Auto|");
    EXPECT_TRUE(report.unheld().empty());
    io::ExportReport told;
    const auto copy = import(io::MusicXmlExporter().toText(*model, told), report);
    EXPECT_EQ(said(*copy), said(*model));
    EXPECT_TRUE(told.unheld().empty() && told.problems().empty());
}

/// A head may be open or full against the value of its note, which may have no stem.
TEST(MusicXmlMarks, headsAreFilledAsIsSaidAndStemsLeftOut)
{
    const auto headed = [](const std::string &behind, const char *type = "quarter") {
        return "<note><pitch><step>C</step><octave>5</octave></pitch><duration>1</duration><type>"
            + std::string(type) + "</type>" + behind + "</note>";
    };
    ImportReport report;
    const auto model =
        import(score(measure(headed("<stem>none</stem><notehead filled=\"no\">diamond</notehead>")
                             + headed("<notehead filled=\"yes\">normal</notehead>", "half")
                             + headed("<stem>none</stem>", "whole"))),
               report);
    const auto looks = [](const ScoreModel &read) {
        std::string text;
        for (const auto &beat : beatsOf(read))
            text += stemOrientationToString(beat->stemOrientation()) + ' '
                + noteHeadToString(beat->note(0)->noteHead()) + ' '
                + headFillToString(beat->note(0)->headFill()) + '|';
        return text;
    };
    EXPECT_EQ(looks(*model), "None diamond Open|Undefined normal Filled|Undefined normal Auto|")
        << "whole notes have no stem anyway";
    EXPECT_TRUE(report.unheld().empty());
    io::ExportReport told;
    const auto copy = import(io::MusicXmlExporter().toText(*model, told), report);
    EXPECT_EQ(looks(*copy), looks(*model));
    EXPECT_TRUE(told.unheld().empty());
}
