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
    EXPECT_EQ(written.all("//direction[sound/@dalsegno]//words"), "D.S.S. al Double Coda");
    const auto copy = readFrom(written.text());
    EXPECT_EQ(test::writeNative(*copy), test::writeNative(*model));
}

TEST(MusicXmlExportForm, furtherJumpsAndTheirWords)
{
    const auto bar = [](const std::string &jump) {
        return measure(note("C", 4, 4, "whole") + "<direction><direction-type>" + jump);
    };
    const std::string segno = "<segno/></direction-type><sound segno=\"varsegno\"/></direction>";
    const std::string back = "<words>Dal segno \uE047</words>"
                             "</direction-type><sound dalsegno=\"varsegno\"/></direction>";
    const std::string other = "<words>D.S. al Fine</words></direction-type></direction>";
    const auto model =
        readFrom(score(bar(segno) + bar(back) + bar(other) + bar(back) + bar(other)));
    const auto &master = *model->masterTrack();
    EXPECT_EQ(master.masterBar(3)->furtherDirections(), directionBit(DirectionMark::DaSegno));
    EXPECT_EQ(master.masterBar(4)->furtherDirections(), directionBit(DirectionMark::DaSegnoAlFine));
    const Exported written(*model);
    EXPECT_EQ(written.all("//sound/@dalsegno"), "segno segno segno segno");
    EXPECT_EQ(written.all("//words"),
              "Dal segno \uE047 D.S. al Fine Dal segno \uE047 D.S. al Fine");
    EXPECT_EQ(test::writeNative(*readFrom(written.text())), test::writeNative(*model));
}

TEST(MusicXmlExportForm, signsBesideTheWordsOfAJumpSayWhereItLeads)
{
    // As other programs write them: the sign is no second segno or coda.
    const auto marked = [](const std::string &types, const std::string &sound) {
        return measure(note("C", 4, 4, "whole") + "<direction>" + types + "<sound " + sound
                       + "/></direction>");
    };
    const auto type = [](const std::string &content) {
        return "<direction-type>" + content + "</direction-type>";
    };
    const std::string measures = marked(type("<segno/>"), "segno=\"segno\"")
        + marked(type("<words>To Coda</words>") + type("<coda/>"), "tocoda=\"coda\"")
        + marked(type("<words>Back to</words>") + type("<segno/>"), "dalsegno=\"segno\"")
        + marked(type("<coda/>"), "coda=\"coda\"");
    const auto model = readFrom(score(measures));
    const auto &master = *model->masterTrack();
    EXPECT_EQ(master.masterBar(1)->jumpText(), "To Coda \uE048");
    EXPECT_EQ(master.masterBar(2)->jumpText(), "Back to \uE047");
    EXPECT_EQ(master.directionIndex(zarn::DirectionMark::Segno), 0);
    EXPECT_EQ(master.directionIndex(zarn::DirectionMark::SegnoSegno), -1);
    EXPECT_EQ(master.directionIndex(zarn::DirectionMark::Coda), 3);
    EXPECT_EQ(test::writeNative(*readFrom(exported(*model))), test::writeNative(*model));
}

TEST(MusicXmlExportForm, textsAndHiddenBracketsOfEndings)
{
    auto model =
        readFrom(score(quarters(1, note("C", 4, 4, "whole")) + measure(note("D", 4, 4, "whole"))
                       + measure(note("E", 4, 4, "whole")) + measure(note("F", 4, 4, "whole"))
                       + measure(note("G", 4, 4, "whole")) + measure(note("A", 4, 4, "whole"))));
    auto &master = *model->masterTrack();
    const unsigned passes[] = {0, 1, 2, 4, 4, 1};
    for (unsigned i = 0; i < 6; ++i)
        master.masterBar(i)->setAlternateEndings(passes[i]);
    master.masterBar(3)->setEndingText("Pour finir");
    master.masterBar(4)->setEndingHidden(true);
    master.masterBar(5)->setEndingHidden(true);
    master.masterBar(5)->setRepeatCount(2);
    const Exported written(*model);
    EXPECT_EQ(written.all("//ending[@type='start']"), "1. 2. Pour finir 1.");
    EXPECT_EQ(written.all("//ending[@print-object='no']/@number"), "1");
    EXPECT_EQ(written.all("//measure[4]//ending/@type"), "start discontinue")
        << "readers take the ending on to the next one, without a bracket";
    EXPECT_EQ(written.all("//measure[5]//ending/@type"), "");
    EXPECT_EQ(test::writeNative(*readFrom(written.text())), test::writeNative(*model));
}

TEST(MusicXmlExportForm, wordsBesideALevelStayBesideIt)
{
    const auto bar = [](const std::string &dynamics, const std::string &words) {
        return measure("<direction><direction-type><words>" + words
                       + "</words></direction-type></direction><direction><direction-type>"
                         "<dynamics>"
                       + dynamics + "</dynamics></direction-type></direction>"
                       + note("C", 4, 4, "whole"));
    };
    const auto other = [](const char *words) {
        return std::string("<other-dynamics>") + words + "</other-dynamics>";
    };
    const auto model =
        readFrom(score(bar(other("sempre  ") + "<pp/>" + other(" tr\u00E8s expr. "), "pizz.  arco")
                       + bar("<sfz/>" + other("subito"), "a  b") + bar(other("subito"), "c")));
    const auto textOf = [&](unsigned index) {
        return model->track(0)->bar(index)->voice(0)->beats().front()->text();
    };
    EXPECT_EQ(textOf(0), "sempre\u00A0 \u00A0tr\u00E8s\u00A0expr. pizz.  arco");
    EXPECT_EQ(textOf(1), "\u00A0subito a  b");
    EXPECT_EQ(textOf(2), "\u00A0subito c");
    const Exported written(*model);
    EXPECT_EQ(written.all("//dynamics/*"), "sempre    tr\u00E8s expr.   subito  subito");
    EXPECT_EQ(written.all("//words"), "pizz.  arco a  b c");
    EXPECT_EQ(test::writeNative(*readFrom(written.text())), test::writeNative(*model));

    // Such spaces in other places are what they are.
    for (const char *const text :
         {"\u00A0", "\u00A0a\u00A0", "\u00A0\u00A0a", "a \u00A0b", "\u00A0a b\u00A0", "\u00A0ff",
          "\u00A0a  b", "\u00A0a \u00A0b c"}) {
        model->track(0)->bar(0)->voice(0)->beats().front()->setText(text);
        EXPECT_EQ(test::writeNative(*readFrom(exported(*model))), test::writeNative(*model))
            << text;
    }
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

/// What is written as a word alone, or with a number that is hidden, shows no number.
TEST(MusicXmlExportForm, temposOfWordsAloneHaveNoNumber)
{
    const auto tempo = [](const char *types) {
        return "<direction><direction-type>" + std::string(types)
            + "</direction-type><sound tempo=\"132\"/></direction>";
    };
    const std::string words = "<words>Allegro</words>";
    const std::string half = "<beat-unit>half</beat-unit><per-minute>66</per-minute></metronome>";
    const auto unit = [&](const std::string &types) {
        const std::string directions = types.empty()
            ? tempo(words.c_str()) + tempo(("<metronome>" + half).c_str())
            : tempo(types.c_str());
        const Exported written(measure(attributes("<divisions>1</divisions>") + directions
                                       + note("C", 5, 4, "whole")));
        EXPECT_EQ(written.all("//words"), "Allegro");
        EXPECT_EQ(written.all("//sound/@tempo"), "132");
        const auto again = temposOf(*readFrom(written.text())->masterTrack());
        EXPECT_EQ(again.size(), 1U);
        EXPECT_TRUE(again.at(0).isVisible);
        EXPECT_EQ(written.count("//metronome"), again.at(0).unit == TempoUnit::None ? 0U : 1U);
        return again.at(0).unit;
    };
    const std::string next = "</direction-type><direction-type>";
    EXPECT_EQ(unit(words), TempoUnit::None);
    EXPECT_EQ(unit(words + next + "<metronome print-object=\"no\">" + half), TempoUnit::None);
    EXPECT_EQ(unit(words + next + "<metronome>" + half), TempoUnit::Half);
    EXPECT_EQ(unit({}), TempoUnit::Half) << "of two directions at one place";
}

TEST(MusicXmlExportForm, metersKeepTheirSigns)
{
    const auto time = [](const char *attribute, const char *beats, const char *unit) {
        return measure(attributes("<divisions>1</divisions><time" + std::string(attribute)
                                  + "><beats>" + beats + "</beats><beat-type>" + unit
                                  + "</beat-type></time>")
                       + note("C", 5, 4, "whole"));
    };
    const std::string same = measure(note("C", 5, 4, "whole"));
    const Exported written(time(" symbol=\"common\"", "4", "4") + same + time("", "4", "4")
                           + time(" symbol=\"cut\"", "2", "2")
                           + time(" symbol=\"single-number\"", "4", "4")
                           + time(" print-object=\"no\"", "8", "8") + same);
    EXPECT_EQ(written.count("//time"), 5U);
    EXPECT_EQ(written.all("//time/@symbol"), "common cut single-number");
    EXPECT_EQ(written.all("//time[@print-object='no']/beats"), "8");
    EXPECT_EQ(written.text(), exported(*readFrom(written.text())));
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

TEST(MusicXmlExportForm, theLastSystemIsOpenUnlessTheLayoutReachesTheEnd)
{
    const auto whole = note("C", 4, 4, "whole");
    const auto model = readFrom(score(quarters(1, whole) + measure(whole) + measure(whole)));
    for (const std::vector<int> &layout :
         {std::vector<int>(), std::vector<int>{1}, std::vector<int>{1, 2}, std::vector<int>{3}}) {
        model->setFullScoreSystemsLayout(layout);
        const Exported written(*model);
        EXPECT_EQ(written.count("//print[@new-system='yes']"), layout.empty() ? 0u : 1u);
        const bool isOpen = layout.empty() || layout == std::vector<int>{1};
        EXPECT_NE(written.has("//supports[@attribute='new-system']"), isOpen);
        EXPECT_EQ(readFrom(written.text())->fullScoreSystemsLayout(), layout);
    }
}

TEST(MusicXmlExportForm, theStepsOfATranspositionFollowTheKey)
{
    // A clarinet in B flat: written D sounds C, and written D flat, ten fifths away, B.
    const auto bar = [](int fifths, int diatonic, const char *step, int alter) {
        return measure(
            attributes("<divisions>1</divisions><key><fifths>" + std::to_string(fifths)
                       + "</fifths></key><transpose><diatonic>" + std::to_string(diatonic)
                       + "</diatonic><chromatic>-2</chromatic></transpose>")
            + "<note><pitch><step>" + step + "</step><alter>" + std::to_string(alter)
            + "</alter><octave>4</octave></pitch><duration>4</duration><type>whole</type>"
              "</note>");
    };
    const std::string measures = bar(2, -1, "D", 0) + bar(-5, -2, "D", -1) + bar(2, -1, "F", 1);
    EXPECT_EQ(exportedWhole(measures, "//transpose/diatonic"), "-1 -2 -1");
    EXPECT_EQ(exportedWhole(measures, "//fifths"), "2 -5 2");
    const auto model = readFrom(score(measures));
    EXPECT_EQ(model->masterTrack()->masterBars()[1]->concertKeySignature().accidentalCount(), 5)
        << "B major";
}

} // namespace
