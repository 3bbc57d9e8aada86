// SPDX-License-Identifier: MIT
// Traps of time: rounded, missing and contradictory durations, voices, gaps, bars of odd length.
#include "MusicXmlText.h"

#include <ZarnCore/model/form/ZarnInForce.h>

#include <gtest/gtest.h>

using namespace musicxml;
using utils::rational;
using zarn::io::ImportReport;

namespace {

std::string divisions(int count)
{
    return attributes("<divisions>" + std::to_string(count) + "</divisions>");
}

/// Beats of the first bar that are place holders.
int placeHolders(const zarn::ScoreModel &model)
{
    int count = 0;
    for (const auto &staff : model.track(0)->staves())
        for (const auto &voice : staff->bar(0)->voices())
            if (voice)
                for (const auto &beat : voice->beats())
                    count += beat->isPlaceHolder();
    return count;
}

} // namespace

TEST(MusicXmlTime, roundedTupletsStayExactAndLeaveNoGaps)
{
    // A fifth of a quarter is 4.8 divisions: five times 5 is one too many.
    const std::string fifth =
        "16th</type><time-modification><actual-notes>5</actual-notes><normal-notes>4"
        "</normal-notes></time-modification><type>16th";
    std::string bar = divisions(24);
    for (int i = 0; i < 5; ++i)
        bar += note("C", 4, 5, fifth);
    bar += note("D", 4, 24, "quarter") + backup(49);
    bar += forward(10) + note("E", 5, 15, fifth, {}, "2");
    ImportReport report;
    const auto model = import(score(measure(bar)), report);
    EXPECT_EQ(notesOf(*model).substr(0, 47), "0:1/5:C4 1/5:1/5:C4 2/5:1/5:C4 3/5:1/5:C4 4/5:1");
    EXPECT_NE(notesOf(*model).find(" 1:1:D4 2/5:"), std::string::npos) << notesOf(*model);
}

TEST(MusicXmlTime, timeThatIsPassedOverBesideRoundedLengthsEndsWhereTheMusicDoes)
{
    // Two thirds of a quarter are 6 2/3 divisions.
    const std::string third = "quarter</type><time-modification><actual-notes>3</actual-notes>"
                              "<normal-notes>2</normal-notes></time-modification><type>quarter";
    const auto bar = note("C", 4, 7, third) + forward(20) + note("D", 4, 7, third) + backup(34)
        + note("E", 5, 10, "quarter", {}, "2") + forward(24);
    // Time may be passed over before the notes tell how long it is.
    for (const auto &before : {std::string(), forward(34) + backup(34)}) {
        ImportReport report;
        const auto model = import(score(measure(divisions(10) + before + bar)), report);
        const auto notes = notesOf(*model);
        EXPECT_NE(notes.find("0:2/3:C4"), notes.npos) << notes;
        EXPECT_NE(notes.find("8/3:2/3:D4"), notes.npos) << notes;
        EXPECT_EQ(model->masterTrack()->masterBar(0)->length(), rational(10, 3));
        EXPECT_EQ(model->track(0)->bar(0)->voice(1)->length(), rational(10, 3));
        EXPECT_FALSE(report.hasProblem("was closed"));
    }
}

TEST(MusicXmlTime, gapsBehindRoundedLengthsArePlain)
{
    const std::string third = "quarter</type><time-modification><actual-notes>3</actual-notes>"
                              "<normal-notes>2</normal-notes></time-modification><type>quarter";
    std::string bar = divisions(100'000);
    for (int i = 0; i < 6; ++i)
        bar += note("C", 4, 66'667, third);
    ImportReport report;
    const auto model =
        import(score(measure(bar + forward(100'001) + note("D", 4, 100'000, "quarter"))), report);
    EXPECT_NE(notesOf(*model).find("5:1:D4"), std::string::npos) << notesOf(*model);
    EXPECT_FALSE(report.hasProblem("was closed"));
}

/// A gap that no note values add up to is closed, and takes no mark from its note.
TEST(MusicXmlTime, marksStayAtTheNotesThatFollowThemWhereLengthsAreRounded)
{
    const auto direction = [](const std::string &content) {
        return "<direction><direction-type>" + content + "</direction-type></direction>";
    };
    const auto quarter = [](const char *step) { return note(step, 4, 997, "quarter", {}, "2"); };
    ImportReport report;
    const auto model = import(
        score(measure(divisions(997) + note("C", 5, 3988, "whole") + backup(3988) + forward(5)
                      + direction("<words>pizz.</words>") + direction("<dynamics><p/></dynamics>")
                      + direction("<octave-shift type=\"down\" size=\"8\"/>")
                      + direction("<wedge type=\"crescendo\"/>") + quarter("E")
                      + direction("<wedge type=\"stop\"/>")
                      + direction("<octave-shift type=\"stop\" size=\"8\"/>") + quarter("F")
                      + direction("<words>arco</words>") + quarter("G"))),
        report);
    ASSERT_TRUE(report.hasProblem("a gap of 5/997 quarters fits no note values and was closed"));
    const auto &voice = *model->track(0)->bar(0)->voice(1);
    EXPECT_EQ(voice.beat(0)->text(), "pizz.");
    EXPECT_EQ(voice.beat(0)->dynamic().value(), zarn::NoteDynamic::Value::P);
    EXPECT_EQ(voice.beat(0)->hairpin(), zarn::Hairpin::Crescendo);
    EXPECT_EQ(voice.beat(1)->hairpin(), zarn::Hairpin::NoHairpin);
    EXPECT_EQ(voice.beat(0)->ottavia(), zarn::Ottavia::_8va);
    EXPECT_EQ(voice.beat(1)->ottavia(), zarn::Ottavia::None);
    EXPECT_EQ(voice.beat(2)->text(), "arco");
}

TEST(MusicXmlTime, durationDecidesWhereTypeIsMissingOrContradictsIt)
{
    ImportReport report;
    const auto model = import(score(measure(divisions(4) + note("C", 4, 6) + note("D", 4, 2, "half")
                                            + note("E", 4, 5) + note("F", 4, 3, "eighth"))),
                              report);
    EXPECT_EQ(notesOf(*model), "0:3/2:C4 3/2:1/2:D4 2:5/4:E4 13/4:3/4:F4");
    EXPECT_TRUE(report.hasProblem("part 1, bar 1, line 6: the duration, 1/2 quarters, contradicts"))
        << report.problems().at(0).toString();
}

/// The rhythm that is read of a note under the start of a bracket, whose time modification is
/// `actual` in 1.
std::string bracketed(const char *type, int actual, const std::string &terms, int duration,
                      int divisionCount, ImportReport &report)
{
    const auto text =
        note("C", 4, duration,
             std::string(type) + "</type><time-modification><actual-notes>" + std::to_string(actual)
                 + "</actual-notes><normal-notes>1</normal-notes>"
                   "</time-modification><notations><tuplet type=\"start\">"
                 + terms + "</tuplet></notations><type>" + type);
    const auto model = import(score(measure(divisions(divisionCount) + text)), report);
    return model->track(0)->bar(0)->voice(0)->beat(0)->rhythmValue().toQString().toStdString();
}

/// The numbers of a bracket, and what each counts, if it says so.
std::string terms(const std::string &actual, const std::string &normal)
{
    return "<tuplet-actual>" + actual + "</tuplet-actual><tuplet-normal>" + normal
        + "</tuplet-normal>";
}

std::string term(int number, const char *unit = "")
{
    return "<tuplet-number>" + std::to_string(number) + "</tuplet-number>" + unit;
}

TEST(MusicXmlTime, bracketsTellTheTupletWhereTheModificationIsWrong)
{
    ImportReport report;
    EXPECT_EQ(bracketed("16th", 5, terms(term(5), term(4)), 10, 50, report),
              "Sixteenth;Dots=0;PriTuplet=5/4;SecTuplet=0/0");
    EXPECT_TRUE(report.hasProblem("the time modification contradicts the duration and the tuplet"));
    // Three eighths in the time of a quarter, two in that of a dotted one.
    const char *const eighth = "<tuplet-type>eighth</tuplet-type>";
    const char *const quarter = "<tuplet-type>quarter</tuplet-type>";
    const char *const dotted = "<tuplet-type>quarter</tuplet-type><tuplet-dot/>";
    EXPECT_EQ(bracketed("eighth", 3, terms(term(3, eighth), term(1, quarter)), 10, 30, report),
              "Eighth;Dots=0;PriTuplet=3/2;SecTuplet=0/0");
    EXPECT_EQ(bracketed("eighth", 2, terms(term(2, eighth), term(1, dotted)), 30, 40, report),
              "Eighth;Dots=0;PriTuplet=2/3;SecTuplet=0/0");
}

TEST(MusicXmlTime, aTupletThatTheDurationsForgetIsNone)
{
    const std::string nested =
        "eighth</type><time-modification><actual-notes>9</actual-notes><normal-notes>4"
        "</normal-notes></time-modification><notations><tuplet type=\"start\"><tuplet-actual>"
        "<tuplet-number>3</tuplet-number></tuplet-actual><tuplet-normal><tuplet-number>2"
        "</tuplet-number></tuplet-normal></tuplet></notations><type>eighth";
    ImportReport report;
    const auto model = import(score(measure(divisions(24) + note("C", 4, 8, nested))), report);
    const auto rhythm = model->track(0)->staff(0)->bar(0)->voice(0)->beat(0)->rhythmValue();
    EXPECT_EQ(rhythm.getAugmentationDot(), 0u);
    EXPECT_EQ(rhythm.getPrimaryTupletRatio(), zarn::RhythmValue::TupletRatio(3, 2));
    EXPECT_FALSE(rhythm.hasSecondaryTuplet());
}

/// A note of a tuplet of three in two with, it may be, another inside; `signs` are <tuplet>s.
std::string ofTriplet(const char *type, int duration, bool isNested, const std::string &signs = {})
{
    const std::string notations = signs.empty() ? "" : "<notations>" + signs + "</notations>";
    return note(
        "C", 4, duration,
        std::string(type) + "</type><time-modification><actual-notes>"
            + (isNested ? "9</actual-notes><normal-notes>4" : "3</actual-notes><normal-notes>2")
            + "</normal-notes></time-modification>" + notations + "<type>" + type);
}

TEST(MusicXmlTime, dotsThatTheDurationsAloneTellAreSupplied)
{
    const std::string start = "<tuplet type=\"start\" number=\"1\"/>";
    const std::string stop = "<tuplet type=\"stop\" number=\"1\"/>";
    const auto inner = [](const char *type) {
        return "<tuplet type=\"" + std::string(type) + "\" number=\"2\">" + terms(term(3), term(2))
            + "</tuplet>";
    };
    const std::string quarters = divisions(24) + ofTriplet("quarter", 24, false, start)
        + note("G", 5, 0, "eighth", "<grace/>") + ofTriplet("quarter", 24, false);
    const std::string last = note("D", 4, 24, "quarter");
    // Dots of all notes, in both tuplets.
    ImportReport report;
    auto model = import(score(measure(quarters + ofTriplet("eighth", 8, true, inner("start"))
                                      + ofTriplet("eighth", 8, true)
                                      + ofTriplet("eighth", 8, true, stop + inner("stop")) + last)),
                        report);
    EXPECT_TRUE(
        report.hasProblem("part 1, bar 1, line 6: the notes of a tuplet last as long as with "
                          "a dot each, which the document leaves out; they were dotted"))
        << report.problems().front().toString();
    EXPECT_EQ(report.problems().size(), 1u);
    EXPECT_EQ(report.unheld().size(), 0u);
    const auto rhythm = [&](unsigned beat) {
        return model->track(0)
            ->bar(0)
            ->voice(0)
            ->beat(beat)
            ->rhythmValue()
            .toQString()
            .toStdString();
    };
    EXPECT_EQ(rhythm(0), "Quarter;Dots=1;PriTuplet=3/2;SecTuplet=0/0");
    EXPECT_EQ(rhythm(1), "Eighth;Dots=0;PriTuplet=0/0;SecTuplet=0/0") << "the grace note";
    EXPECT_EQ(rhythm(5), "Eighth;Dots=1;PriTuplet=3/2;SecTuplet=3/2");
    EXPECT_EQ(rhythm(6), "Quarter;Dots=0;PriTuplet=0/0;SecTuplet=0/0") << "after the tuplet";

    // Two dots, 7/4 of 2/3.
    ImportReport two;
    model = import(score(measure(divisions(24) + ofTriplet("quarter", 28, false, start)
                                 + ofTriplet("quarter", 28, false)
                                 + ofTriplet("quarter", 28, false, stop) + last)),
                   two);
    EXPECT_TRUE(two.hasProblem("as with two dots each"));
    EXPECT_EQ(rhythm(2), "Quarter;Dots=2;PriTuplet=3/2;SecTuplet=0/0");

    // One that lasts otherwise, or an end that is not there: the durations alone hold.
    for (const auto &other :
         {ofTriplet("quarter", 16, false, stop), ofTriplet("quarter", 24, false),
          ofTriplet("half", 24, false, stop)}) {
        ImportReport none;
        model = import(score(measure(quarters + other + last)), none);
        EXPECT_FALSE(none.hasProblem("they were dotted"));
        EXPECT_EQ(rhythm(0), "Quarter;Dots=0;PriTuplet=0/0;SecTuplet=0/0");
    }
}

TEST(MusicXmlTime, bracketsOverAThirdOfATupletAreTupletsInside)
{
    // Three triplets in a triplet, of which some programs write the inner brackets alone.
    const std::string start = "<tuplet type=\"start\"/>";
    const std::string stop = "<tuplet type=\"stop\"/>";
    const auto third = ofTriplet("16th", 4, true, start) + ofTriplet("16th", 4, true)
        + ofTriplet("16th", 4, true, stop);
    const auto rhythmOf = [](const std::string &notes) {
        ImportReport report;
        const auto model = import(score(measure(divisions(36) + notes)), report);
        EXPECT_TRUE(report.problems().empty());
        return model->track(0)->bar(0)->voice(0)->beat(1)->rhythmValue().toQString().toStdString();
    };
    EXPECT_EQ(rhythmOf(third + third + third), "Sixteenth;Dots=0;PriTuplet=3/2;SecTuplet=3/2");
    // Two notes that are as long as three.
    const auto two = ofTriplet("eighth", 8, true, start) + ofTriplet("16th", 4, true, stop);
    EXPECT_EQ(rhythmOf(two + two + two), "Sixteenth;Dots=0;PriTuplet=3/2;SecTuplet=3/2");
    // Nine in the time of four are what they say.
    std::string nine = ofTriplet("16th", 4, true, start);
    for (int i = 0; i < 7; ++i)
        nine += ofTriplet("16th", 4, true);
    EXPECT_EQ(rhythmOf(nine + ofTriplet("16th", 4, true, stop)),
              "Sixteenth;Dots=0;PriTuplet=9/4;SecTuplet=0/0");
}

TEST(MusicXmlTime, bracketsThatTheLengthsHaveNoRatioForAreTold)
{
    const auto bracket = [](const char *type, int number, const std::string &terms = {}) {
        return "<tuplet type=\"" + std::string(type) + "\" number=\"" + std::to_string(number)
            + "\">" + terms + "</tuplet>";
    };
    const auto modified = [](int actual, int normal, const std::string &brackets) {
        return "quarter</type><time-modification><actual-notes>" + std::to_string(actual)
            + "</actual-notes><normal-notes>" + std::to_string(normal)
            + "</normal-notes></time-modification><notations>" + brackets
            + "</notations><type>quarter";
    };
    const auto two = terms(term(2), term(2));
    const auto three = terms(term(3), term(2));
    const std::string bars[] = {
        // Two in the time of two, alone and inside of a triplet, whose own bracket is held.
        note("C", 4, 24, modified(2, 2, bracket("start", 1, two)))
            + note("C", 4, 24, modified(2, 2, bracket("stop", 1))),
        note("C", 4, 16, modified(3, 2, bracket("start", 1, three)))
            + note("C", 4, 16, modified(3, 2, bracket("start", 2, two)))
            + note("C", 4, 16, modified(3, 2, bracket("stop", 2) + bracket("stop", 1))),
        // A triplet that the durations forget.
        note("C", 4, 12, modified(3, 2, bracket("start", 1, three)))
            + note("C", 4, 12, modified(3, 2, bracket("stop", 1)))};
    for (const auto &bar : bars) {
        ImportReport report;
        import(score(measure(divisions(24) + bar)), report);
        EXPECT_TRUE(report.hasProblem("lost its bracket"));
        EXPECT_EQ(report.unheld().count("tuplet"), 1U);
        EXPECT_EQ(report.unheld().begin()->second, 2U) << "both ends of one, in " << bar;
    }
    // A triplet in the last two notes of another, and a third one behind them.
    const auto held = note("C", 4, 48, modified(3, 2, bracket("start", 1)))
        + note("C", 4, 32, modified(9, 4, bracket("start", 2, three)))
        + note("C", 4, 32, modified(9, 4, {}))
        + note("C", 4, 32, modified(9, 4, bracket("stop", 2) + bracket("stop", 1)))
        + note("C", 4, 48, modified(3, 2, bracket("start", 1)))
        + note("C", 4, 48, modified(3, 2, {}))
        + note("C", 4, 48, modified(3, 2, bracket("stop", 1)));
    // The numbers of a tuplet are two at least.
    ImportReport doubled;
    import(score(measure(divisions(24) + note("C", 4, 6, modified(4, 1, bracket("start", 1)))
                         + note("C", 4, 6, modified(4, 1, bracket("stop", 1))))),
           doubled);
    EXPECT_TRUE(doubled.hasProblem("of 4 in the time of 1 was made one of 8 in the time of 2"));
    EXPECT_EQ(doubled.problems().size(), 1U);
    ImportReport report;
    import(score(measure(divisions(72) + held)), report);
    EXPECT_FALSE(report.hasProblem("lost its bracket"));
    EXPECT_TRUE(report.unheld().empty());
}

TEST(MusicXmlTime, threeDeepTupletsAndExtremeTypesAreExact)
{
    const std::string deep =
        "16th</type><time-modification><actual-notes>45</actual-notes><normal-notes>16"
        "</normal-notes></time-modification><type>16th";
    ImportReport report;
    const auto model =
        import(score(measure(divisions(5760) + note("C", 4, 512, deep)
                             + note("D", 4, 184320, "maxima") + note("E", 4, 22, "1024th"))),
               report);
    EXPECT_EQ(notesOf(*model), "0:4/45:C4 4/45:32:D4 1444/45:1/256:E4");
}

TEST(MusicXmlTime, gapsAreNoWrittenRests)
{
    ImportReport report;
    const auto model =
        import(score(measure(divisions(2) + forward(3) + note("C", 4, 1, "eighth")
                             + "<note><rest/><duration>4</duration><type>half</type></note>")),
               report);
    EXPECT_EQ(notesOf(*model), "3/2:1/2:C4");
    EXPECT_EQ(placeHolders(*model), 1);
    const auto voice = model->track(0)->staff(0)->bar(0)->voice(0);
    EXPECT_TRUE(voice->beats().back()->isRest());
    EXPECT_EQ(voice->length(), rational(4));
}

TEST(MusicXmlTime, aFifthVoiceJoinsTheOthersAndIsReported)
{
    std::string bar = divisions(1);
    for (int voice = 1; voice <= 5; ++voice)
        bar += note("C", voice, 4, "whole", {}, std::to_string(voice)) + backup(4);
    ImportReport report;
    const auto model = import(score(measure(bar)), report);
    EXPECT_EQ(zarn::io::listNotes(*model).size(), 5u);
    EXPECT_EQ(model->track(0)->staff(0)->bar(0)->voiceCount(), 4u);
    EXPECT_TRUE(report.hasProblem("part 1, bar 1, line 6: a fifth voice"));
}

TEST(MusicXmlTime, overlapsInOneVoiceLoseNoNote)
{
    ImportReport report;
    const auto model = import(score(measure(divisions(1) + note("C", 4, 4, "whole") + backup(3)
                                            + note("E", 4, 1, "quarter"))),
                              report);
    EXPECT_EQ(notesOf(*model), "0:4:C4 1:1:E4");
    EXPECT_TRUE(report.hasProblem("overlap"));
}

TEST(MusicXmlTime, chordsAndVoicesOverTwoStavesKeepTheirPlaces)
{
    ImportReport report;
    const auto model = import(score(measure(attributes("<divisions>1</divisions><staves>2</staves>")
                                            + note("C", 3, 2, "half", {}, "1", 2)
                                            + note("E", 5, 2, "half", "<chord/>", "1", 1)
                                            + note("G", 5, 2, "half", "<chord/>", "1", 1)
                                            + note("D", 5, 2, "half", {}, "1", 1))),
                              report);
    EXPECT_EQ(notesOf(*model), "0:2:E5 0:2:G5 2:2:D5 0:2:C3");
    EXPECT_EQ(placeHolders(*model), 1) << "only the second half of the lower staff is empty";
}

TEST(MusicXmlTime, pickupsWholeBarRestsAndOverfullBars)
{
    const auto rest = [](int duration) {
        return "<note><rest measure=\"yes\"/><duration>" + std::to_string(duration)
            + "</duration></note>";
    };
    ImportReport report;
    const auto model =
        import(score(measure(attributes("<divisions>1</divisions><time><beats>5</beats><beat-type>4"
                                        "</beat-type></time>")
                                 + note("C", 4, 2, "half"),
                             " implicit=\"yes\"")
                     + measure(rest(5)) + measure(rest(3)) + measure(note("C", 4, 8, "breve"))),
               report);
    const auto &master = *model->masterTrack();
    EXPECT_TRUE(master.hasAnacrusis());
    EXPECT_EQ(master.masterBar(0)->length(), rational(2));
    EXPECT_FALSE(master.masterBar(1)->ownLength());
    const auto staff = model->track(0)->staff(0);
    EXPECT_TRUE(staff->bar(1)->voice(0)->beat(0)->isWholeBarRest());
    EXPECT_EQ(staff->bar(2)->voice(0)->length(), rational(3));
    EXPECT_EQ(master.masterBar(3)->length(), rational(8));
    EXPECT_FALSE(report.hasProblem("bar 1,"));
    EXPECT_TRUE(report.hasProblem("bar 3, line 11: underfull: 3 quarters instead of 5"));
    EXPECT_TRUE(report.hasProblem("overfull: 8 quarters instead of 5"));
}

TEST(MusicXmlTime, restsWithoutATypeThatFillTheirMeterAreThoseOfTheBar)
{
    const auto rest = [](int duration, const std::string &type = {}) {
        return "<note><rest/><duration>" + std::to_string(duration) + "</duration>"
            + (type.empty() ? "" : "<type>" + type + "</type>") + "</note>";
    };
    ImportReport report;
    const auto model =
        import(score(measure(attributes("<divisions>1</divisions><time><beats>5</beats><beat-type>4"
                                        "</beat-type></time>")
                             + rest(5))
                     + measure(attributes("<time><beats>2</beats><beat-type>4</beat-type></time>")
                               + rest(2, "half"))
                     + measure(rest(1) + note("C", 4, 1, "quarter"))),
               report);
    const auto staff = model->track(0)->staff(0);
    std::string whole;
    for (unsigned bar = 0; bar < 3; ++bar)
        whole += staff->bar(bar)->voice(0)->beat(0)->isWholeBarRest() ? "w" : "-";
    EXPECT_EQ(whole, "w--");
    EXPECT_EQ(staff->bar(2)->voice(0)->beatCount(), 2u);
}

TEST(MusicXmlTime, restsOverCadenzasLastAsLongAsNoValueDoes)
{
    // 23 1/2 quarters
    const auto cadenza = note("C", 5, 32, "long") + note("D", 5, 8, "whole")
        + note("E", 5, 4, "half") + note("F", 5, 2, "quarter") + note("G", 5, 1, "eighth");
    const std::string rest = "<note><rest measure=\"yes\"/><duration>47</duration><voice>2</voice>"
                             "<staff>2</staff></note>";
    ImportReport report;
    const auto model =
        import(score(measure(attributes("<divisions>2</divisions><staves>2</staves>") + cadenza
                             + backup(47) + rest)
                     + measure(cadenza + note("A", 5, 1, "eighth") + backup(48) + rest)),
               report);
    EXPECT_FALSE(report.hasProblem("fits no note value"));
    const auto &staff = *model->track(0)->staff(1);
    const auto &whole = *staff.bar(0)->voice(0);
    EXPECT_EQ(model->masterTrack()->masterBar(0)->length(), rational(47, 2));
    EXPECT_EQ(whole.beatCount(), 1u);
    EXPECT_TRUE(whole.beat(0)->isWholeBarRest());
    EXPECT_EQ(whole.length(), rational(47, 2));
    // The other bar is longer than the rest.
    const auto &voice = *staff.bar(1)->voice(0);
    EXPECT_EQ(voice.length(), rational(24));
    rational rests;
    for (const auto &beat : voice.beats()) {
        EXPECT_FALSE(beat->isWholeBarRest() || beat->rhythmValue().hasPrimaryTuplet());
        if (!beat->isPlaceHolder())
            rests += beat->length();
    }
    EXPECT_EQ(rests, rational(47, 2));
}

TEST(MusicXmlTime, partsOfUnequalLengthGetEmptyBars)
{
    const std::string text =
        "<score-partwise><part-list><score-part id=\"A\"><part-name>A</part-name></score-part>"
        "<score-part id=\"B\"><part-name>B</part-name></score-part></part-list><part id=\"A\">"
        + measure(divisions(1) + note("C", 4, 4, "whole")) + measure("") + measure("")
        + "</part><part id=\"B\">" + measure("") + "</part></score-partwise>";
    ImportReport report;
    const auto model = import(text, report);
    EXPECT_EQ(model->track(1)->barCount(), 3u);
    EXPECT_TRUE(report.hasProblem("part 2, bar 2: the part ends 2 bars before"));
}

TEST(MusicXmlTime, notesThatEqualOthersAgainAndAgainLeaveATempoThatCanBePlayed)
{
    for (const auto &[equal, other] : {std::pair("whole", "32nd"), std::pair("32nd", "whole")}) {
        std::string measures = measure(divisions(1) + note("C", 4, 4, "whole"));
        for (int i = 0; i < 60; ++i)
            measures += measure("<direction><direction-type><metronome><beat-unit>"
                                + std::string(equal) + "</beat-unit><beat-unit>" + other
                                + "</beat-unit></metronome></direction-type></direction>"
                                + note("C", 4, 4, "whole"));
        ImportReport report;
        const auto model = import(score(measures), report);
        const auto tempos = zarn::temposOf(*model->masterTrack());
        ASSERT_EQ(tempos.size(), 61U);
        EXPECT_GT(tempos.back().value, 0);
        EXPECT_LE(tempos.back().value, 1e6);
    }
}
