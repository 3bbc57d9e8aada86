// SPDX-License-Identifier: MIT
#include "ExportedMusicXml.h"

#include "../support/SmallScore.h"

namespace {

using namespace zarn;
using namespace musicxml;

TEST(MusicXmlExportNotes, slursHaveTheLowestNumbersThatAreFree)
{
    const auto slur = [](const char *type, int number) {
        return "<slur type=\"" + std::string(type) + "\" number=\"" + std::to_string(number)
            + "\"/>";
    };
    const Exported written(quarters(1,
                                    notated(slur("start", 5)) + notated(slur("start", 9), "D")
                                        + notated(slur("stop", 9), "E")
                                        + notated(slur("stop", 5), "F")));
    EXPECT_EQ(written.all("//slur/@type"), "start start stop stop");
    EXPECT_EQ(written.all("//slur/@number"), "1 2 2 1");
}

/// Some programs lose a slur that ends in the document before it begins.
TEST(MusicXmlExportNotes, slursBetweenVoicesAndStavesBeginBeforeTheyEnd)
{
    const auto slurred = [](const char *step, const char *type, const char *voice, int staff) {
        return "<note><pitch><step>" + std::string(step)
            + "</step><octave>4</octave></pitch><duration>2</duration><voice>" + voice
            + "</voice><type>half</type><staff>" + std::to_string(staff) + "</staff>"
            + (type[0] == '\0' ? std::string()
                               : "<notations><slur number=\"1\" type=\"" + std::string(type)
                       + "\"/></notations>")
            + "</note>";
    };
    const auto twice = [&](const char *voice, int staff) {
        return quarters(1,
                        slurred("E", "", "1", 1) + slurred("F", "stop", "1", 1) + backup(4)
                            + slurred("C", "start", voice, staff) + slurred("D", "", voice, staff));
    };
    EXPECT_EQ(exportedWhole(twice("2", 1), "//slur/@type"), "start stop");
    EXPECT_EQ(exportedWhole(twice("5", 2), "//slur/@type"), "start stop");
}

TEST(MusicXmlExportNotes, tiesAreSoundAndSignOnBothNotes)
{
    const Exported written(
        quarters(1, notated("<tied type=\"start\"/>") + notated("<tied type=\"stop\"/>")));
    EXPECT_EQ(written.all("//tie/@type"), "start stop");
    EXPECT_EQ(written.all("//tied/@type"), "start stop");
}

TEST(MusicXmlExportNotes, aFrettedTrackIsTwoStavesAndOneAgain)
{
    SmallScore small;
    auto &model = *small.score.scoreModel();
    model.removeTrack(1);
    const Exported written(model);
    EXPECT_EQ(written.all("//staves"), "2");
    EXPECT_EQ(written.all("//staff-details[@number='2']/staff-type"), "alternate");
    EXPECT_EQ(written.all("//clef/sign"), "G TAB");
    EXPECT_EQ(written.all("//staff-tuning[@line='1']/tuning-step"), "E") << "from the bottom";
    // The open low e is the sixth string, and an octave lower than it is written.
    EXPECT_EQ(written.all("//measure[1]/note[1]//string"), "6");
    EXPECT_EQ(written.all("//transpose/octave-change"), "-1");
    EXPECT_FALSE(written.has("//clef-octave-change")) << "one of the two says it";
    const auto copy = readFrom(written.text());
    EXPECT_EQ(copy->track(0)->staffCount(), 1U);
    EXPECT_FALSE(copy->track(0)->chosenNotations());
    EXPECT_EQ(copy->track(0)->staff(0)->tuning(), model.track(0)->staff(0)->tuning());
    // In one notation it is one staff, and keeps the strings.
    for (const TrackNotations notations :
         {TrackNotations{true, false, false}, TrackNotations{false, true, false}}) {
        model.track(0)->setChosenNotations(notations);
        const Exported alone(model);
        EXPECT_FALSE(alone.has("//staves"));
        EXPECT_EQ(alone.all("//clef/sign"), notations.standard ? "G" : "TAB");
        const auto again = readFrom(alone.text());
        EXPECT_TRUE(again->track(0)->notations() == notations);
        EXPECT_EQ(again->track(0)->staff(0)->tuning(), model.track(0)->staff(0)->tuning());
        EXPECT_EQ(again->track(0)->bar(0)->voice(0)->beat(0)->note(0)->string(), 0);
    }
}

TEST(MusicXmlExportNotes, aTablatureBesideAStaffWithoutStringsIsShownAgain)
{
    const auto model = readFrom(score(
        measure(attributes("<divisions>1</divisions><staves>2</staves>") + note("C", 5, 4, "whole")
                + backup(4) + note("E", 4, 4, "whole", "", "2", 2))));
    auto &track = *model->track(0);
    track.staff(1)->setTuning(SmallScore().score.scoreModel()->track(0)->staff(0)->tuning());
    for (const bool hasNotes : {true, false}) {
        track.setChosenNotations(TrackNotations{hasNotes, true, false});
        const Exported written(*model);
        EXPECT_EQ(written.all("//staves"), hasNotes ? "3" : "2");
        const auto copy = readFrom(written.text());
        ASSERT_EQ(copy->track(0)->staffCount(), 2U);
        EXPECT_TRUE(copy->track(0)->notations() == track.notations());
        EXPECT_EQ(exported(*copy), written.text());
    }
}

TEST(MusicXmlExportNotes, aTablatureAloneHasTheWordsAndSignsOfNotes)
{
    SmallScore small;
    auto &model = *small.score.scoreModel();
    model.removeTrack(1);
    model.track(0)->setChosenNotations(TrackNotations{false, true, false});
    model.masterTrack()->masterBar(1)->setFermatas({FermataMark::at({1}, Fermata::Long)});
    model.track(0)->bar(1)->voice(0)->beat(0)->setLyrics({{0, Syllabic::Single, false, "A"}});
    const auto copy = readFrom(exported(model));
    EXPECT_EQ(copy->masterTrack()->masterBar(1)->fermatas().size(), 1U);
    EXPECT_EQ(copy->track(0)->bar(1)->voice(0)->beat(0)->lyrics().size(), 1U);
}

TEST(MusicXmlExportNotes, marksOfAUnisonStayInTheirVoices)
{
    SmallScore small;
    auto &model = *small.score.scoreModel();
    model.removeTrack(1);
    auto &bar = *model.track(0)->bar(0);
    for (unsigned string : {0U, 5U, 1U, 2U})
        SmallScore::addBeat(*bar.ensureVoice(1), {static_cast<int>(string)});
    bar.voice(1)->beat(0)->setSlashed(true);
    bar.voice(0)->beat(1)->setCue(true);
    const auto copy = readFrom(exported(model));
    const auto &found = *copy->track(0)->bar(0);
    EXPECT_FALSE(found.voice(0)->beat(0)->isSlashed());
    EXPECT_TRUE(found.voice(1)->beat(0)->isSlashed());
    EXPECT_TRUE(found.voice(0)->beat(1)->isCue());
    EXPECT_FALSE(found.voice(1)->beat(1)->isCue());
}

TEST(MusicXmlExportNotes, percussionIsUnpitchedWithAnInstrumentForEachKey)
{
    const auto struck = [](const char *step, const char *id) {
        return "<note><unpitched><display-step>" + std::string(step)
            + "</display-step><display-octave>5</display-octave></unpitched><duration>1</duration>"
              "<instrument id=\""
            + id + "\"/><type>quarter</type><notehead>x</notehead></note>";
    };
    const std::string list =
        "<score-instrument id=\"A\"><instrument-name>Hat</instrument-name></score-instrument>"
        "<score-instrument id=\"B\"><instrument-name>Ride</instrument-name></score-instrument>"
        "<midi-instrument id=\"A\"><midi-unpitched>43</midi-unpitched></midi-instrument>"
        "<midi-instrument id=\"B\"><midi-unpitched>52</midi-unpitched></midi-instrument>";
    const Exported written(quarters(1,
                                    attributes("<clef><sign>percussion</sign></clef>")
                                        + struck("G", "A") + struck("F", "B")),
                           list);
    EXPECT_EQ(written.all("//midi-unpitched"), "43 52");
    EXPECT_EQ(written.all("//note/instrument/@id"), "P1-I43 P1-I52");
    EXPECT_EQ(written.all("//display-step"), "G F");
    EXPECT_EQ(written.all("//notehead"), "x x");
    EXPECT_EQ(written.all("//clef/sign"), "percussion");
}

TEST(MusicXmlExportNotes, drumsThatAreNothingButAKeyHaveTheirPlaceAndHead)
{
    ScoreModel model;
    model.createAndInsertTrack(0, InstrumentSet::drumKit);
    model.insertEmptyBarColumns(0, 1);
    auto beat = std::make_shared<Beat>(RhythmValue(RhythmValue::NoteValue::Whole));
    for (const int key : {36, 38, 42})
        beat->addNote(std::make_shared<zarn::Note>(key));
    model.track(0)->bar(0)->ensureVoice(0)->insertBeats(0, {beat});
    const Exported written(model);
    EXPECT_EQ(written.all("//display-step"), "F C G");
    EXPECT_EQ(written.all("//display-octave"), "4 5 5");
    EXPECT_EQ(written.all("//note[3]/notehead"), "x");
    EXPECT_EQ(written.count("//notehead"), 1U);
}

TEST(MusicXmlExportNotes, whatNeedsAPitchIsToldOfDrums)
{
    ScoreModel model;
    model.createAndInsertTrack(0, InstrumentSet::drumKit);
    model.insertEmptyBarColumns(0, 1);
    auto note = std::make_shared<zarn::Note>(38);
    Trill trill;
    trill.interval = 2;
    note->setTrill(trill);
    Harmonic harmonic;
    harmonic.type = HarmonicType::Artificial;
    harmonic.partial = Harmonic::LowestPartial;
    note->setHarmonic(harmonic);
    auto beat = std::make_shared<Beat>(RhythmValue(RhythmValue::NoteValue::Whole));
    beat->addNote(note);
    model.track(0)->bar(0)->ensureVoice(0)->insertBeats(0, {beat});
    io::ExportReport report;
    const auto text = io::MusicXmlExporter().toText(model, report);
    EXPECT_EQ(report.unheld().count("trill on a note without a pitch or time"), 1u);
    EXPECT_EQ(report.unheld().count("harmonic of a note without a pitch"), 1u);
    EXPECT_EQ(exported(*readFrom(text)), text);
}

TEST(MusicXmlExportNotes, unpitchedNotesStandAsPitchesDoUnderTheClefAtHand)
{
    const auto struck = [](const char *step, int octave) {
        return "<note><unpitched><display-step>" + std::string(step)
            + "</display-step><display-octave>" + std::to_string(octave)
            + "</display-octave></unpitched><duration>1</duration><type>quarter</type></note>";
    };
    const std::string bass = attributes("<clef><sign>F</sign><line>4</line></clef>");
    const std::string drums = attributes("<clef><sign>percussion</sign></clef>");
    const Exported written(
        quarters(1, bass + struck("G", 2) + struck("D", 3) + drums + struck("F", 4)));
    EXPECT_EQ(written.all("//display-step"), "G D F");
    EXPECT_EQ(written.all("//display-octave"), "2 3 4");
    std::vector<int> lines;
    const auto copy = readFrom(written.text());
    for (const auto &beat : copy->track(0)->bar(0)->voice(0)->beats())
        for (const auto &note : beat->notes())
            lines.push_back(note->staffLine());
    EXPECT_EQ(lines, std::vector<int>({0, 4, 1}));
}

TEST(MusicXmlExportNotes, hammerOnsLeadToAnotherPitchOfTheNextChordWhereThereAreNoFrets)
{
    const auto link = [](const char *step, const char *type, const std::string &before = {}) {
        auto text = note(step, 4, 1, "quarter", before);
        const std::string end = "</note>";
        text.insert(text.size() - end.size(),
                    "<notations><technical><hammer-on number=\"1\" type=\"" + std::string(type)
                        + "\">H</hammer-on></technical></notations>");
        return text;
    };
    const auto bar = [&](const char *upper) {
        return readFrom(
            score(measure(attributes("<divisions>1</divisions>") + link("D", "start")
                          + link("D", "stop") + note(upper, 4, 1, "quarter", "<chord/>"))));
    };
    const auto isHopo = [](const zarn::ScoreModel &model) {
        return model.track(0)->bar(0)->voice(0)->beat(0)->note(0)->isHopo();
    };
    const auto model = bar("F");
    EXPECT_TRUE(isHopo(*model));
    const Exported written(*model);
    EXPECT_EQ(written.all("//hammer-on/@type"), "start stop");
    EXPECT_TRUE(isHopo(*readFrom(written.text())));
    EXPECT_FALSE(isHopo(*bar("D")));
}

TEST(MusicXmlExportNotes, hammerOnsHaveASlurTooAndAreReadWithout)
{
    SmallScore small;
    auto &model = *small.score.scoreModel();
    model.removeTrack(1);
    auto &voice = *model.track(0)->bar(1)->voice(0);
    voice.beat(1)->note(0)->setHopo(true); // on string 1, to another fret of it
    const auto aim = std::make_shared<zarn::Note>(59);
    aim->setString(1);
    aim->setFret(2);
    voice.beat(2)->addNote(aim);
    const Exported written(model);
    EXPECT_EQ(written.all("//note[staff='1']//hammer-on/@type"), "start stop");
    EXPECT_EQ(written.all("//note[staff='1']//slur/@type"), "start stop");
    const auto copy = readFrom(written.text());
    const auto &beat = *copy->track(0)->bar(1)->voice(0)->beat(1);
    EXPECT_TRUE(beat.note(0)->isHopo());
    EXPECT_FALSE(beat.isSlurredToNext());
}

TEST(MusicXmlExportNotes, clefsChangeWhereTheyDoInsideOfABar)
{
    auto model = readFrom(score(quarters(1, note("C", 4, 2, "half") + note("D", 4, 2, "half"))));
    model->track(0)->bar(0)->setClefChanges({{utils::rational(2), ClefType::F4}});
    const Exported written(*model);
    EXPECT_EQ(written.all("//note[1]/following-sibling::*[1]/clef/sign"), "F");
    const auto copy = readFrom(written.text());
    EXPECT_EQ(copy->track(0)->bar(0)->clefChanges(), model->track(0)->bar(0)->clefChanges());
}

TEST(MusicXmlExportNotes, chordsStandInFrontOfTheirNotesWithTheirFrames)
{
    auto model = readFrom(score(quarters(1, note("C", 4, 4, "whole"))));
    ChordDiagram diagram;
    diagram.name = "Am7/G";
    diagram.frets = {3, 0, 2, 0, 1, 0};
    diagram.fingers = {3, 0, 2, 0, 1, 0};
    model->track(0)->bar(0)->voice(0)->beat(0)->setChord(
        {"Am7/G", std::make_shared<const ChordDiagram>(diagram)});
    const Exported written(*model);
    EXPECT_EQ(written.all("//harmony/root/root-step"), "A");
    EXPECT_EQ(written.all("//harmony/kind"), "minor-seventh");
    EXPECT_EQ(written.all("//harmony/bass/bass-step"), "G");
    EXPECT_EQ(written.all("//frame-note[string='6']/fret"), "3") << "strings from the highest";
    EXPECT_TRUE(written.has("//harmony/following-sibling::note"));
    EXPECT_FALSE(written.has("//harmony/offset"));
    EXPECT_EQ(test::writeNative(*readFrom(written.text())), test::writeNative(*model));
}

/// A dominant whose fifth is raised and an augmented seventh sound alike.
TEST(MusicXmlExportNotes, raisedFifthsStayWhatTheyWereCalled)
{
    const auto harmony = [](const char *kind, const char *degrees) {
        return "<harmony><root><root-step>B</root-step><root-alter>-1</root-alter></root><kind>"
            + std::string(kind) + "</kind>" + degrees + "</harmony>" + note("C", 4, 1, "quarter");
    };
    const std::string chords =
        quarters(1,
                 harmony("dominant",
                         "<degree><degree-value>5</degree-value><degree-alter>1</degree-alter>"
                         "<degree-type>alter</degree-type></degree>")
                     + harmony("augmented-seventh", ""));
    EXPECT_EQ(exportedWhole(chords, "//kind"), "dominant augmented-seventh");
    EXPECT_EQ(exportedWhole(chords, "//kind/@text"), "7#5 aug7");
}

TEST(MusicXmlExportNotes, chordSymbolsComeBackInTheirOwnWriting)
{
    auto model = readFrom(score(quarters(1, note("C", 4, 4, "whole"))));
    const auto beat = model->track(0)->bar(0)->voice(0)->beat(0);
    for (const std::string symbol :
         {"F#-7", "CΔ9/E", "H7", "Em/H", "G4/7", "B♭7(b9)", "C/9", "Am7M", "E+7#9", "D6/9/A",
          "C7alt", "Gø", "A7+", "N.C.", "tacet"}) {
        beat->setChordSymbol(symbol);
        const Exported written(*model);
        const auto copy = readFrom(written.text());
        EXPECT_EQ(copy->track(0)->bar(0)->voice(0)->beat(0)->chordSymbol(),
                  symbol == "B♭7(b9)" ? "Bb7(b9)" : symbol);
    }
    // Words of other languages for roots and basses give way.
    beat->setChordSymbol("Fis-7/cis");
    const Exported written(*model);
    EXPECT_EQ(readFrom(written.text())->track(0)->bar(0)->voice(0)->beat(0)->chordSymbol(),
              "F#-7/C#");
}

TEST(MusicXmlExportNotes, lyricsAndGraceNotes)
{
    auto model = readFrom(score(quarters(1, note("C", 4, 4, "whole"))));
    auto &voice = *model->track(0)->bar(0)->voice(0);
    voice.beat(0)->setLyrics({{0, Syllabic::Begin, false, "A"}, {1, Syllabic::Single, true, "O"}});
    auto grace = std::make_shared<Beat>(RhythmValue(RhythmValue::NoteValue::Eighth));
    grace->addNote(std::make_shared<zarn::Note>(62));
    grace->setGraceType(GraceType::BeforeBeat);
    voice.insertBeat(0, grace);
    auto next = std::make_shared<Beat>(RhythmValue(RhythmValue::NoteValue::Sixteenth));
    next->addNote(std::make_shared<zarn::Note>(64));
    next->setGraceType(GraceType::BeforeBeat);
    voice.insertBeat(1, next);
    const Exported written(*model);
    EXPECT_EQ(written.all("//note/beam"), "begin end backward hook");
    EXPECT_EQ(written.all("//lyric/@number"), "1 2");
    EXPECT_EQ(written.all("//syllabic"), "begin single");
    EXPECT_TRUE(written.has("//lyric[2]/extend"));
    EXPECT_TRUE(written.has("//note[1]/grace[@steal-time-previous]"));
    EXPECT_FALSE(written.has("//note[1]/duration"));
    const auto copy = readFrom(written.text());
    EXPECT_EQ(copy->track(0)->bar(0)->voice(0)->beat(0)->graceType(), GraceType::BeforeBeat);
    EXPECT_EQ(test::writeNative(*copy), test::writeNative(*readFrom(exported(*copy))));
    EXPECT_EQ(copy->track(0)->bar(0)->voice(0)->beat(2)->lyrics(), voice.beat(2)->lyrics());
}

TEST(MusicXmlExportNotes, bowsBetweenSyllablesAreElisions)
{
    const auto sung = [](const std::string &content) {
        return quarters(1,
                        note("C", 4, 4,
                             "whole</type><lyric><syllabic>middle</syllabic>" + content
                                 + "</lyric><type>whole"));
    };
    // Programs write the bows of music fonts as texts, too.
    for (const char *const between :
         {"<elision/>", "<text>\uE551\uE551</text>", "<text>\u203F</text>"}) {
        const Exported written(sung("<text>ne</text>" + std::string(between) + "<text>en</text>"));
        EXPECT_EQ(written.all("//lyric/text"), "ne en");
        EXPECT_EQ(written.all("//elision"), "\u203F");
        EXPECT_EQ(readFrom(written.text())->track(0)->bar(0)->voice(0)->beat(0)->lyrics(),
                  (Syllables{{0, Syllabic::Middle, false, "ne~en"}}));
    }
    EXPECT_EQ(exportedWhole(sung("<text>~ne ~ en~</text>"), "//lyric/text"), "~ne ~ en~");
}

TEST(MusicXmlExportNotes, fingersCountFromTheThumbOnKeysAlone)
{
    const auto fingered = [](const char *number) {
        return notated("<technical><fingering>" + std::string(number) + "</fingering></technical>");
    };
    const std::string bar = quarters(1, fingered("0") + fingered("1") + fingered("4"));
    const std::string sound = "<score-instrument id=\"P1-I1\"><instrument-name/><instrument-sound>";
    EXPECT_EQ(exportedWhole(bar, "//fingering",
                            sound + "strings.violin</instrument-sound></score-instrument>"),
              "0 1 4");
    const std::string hand = quarters(1, fingered("1") + fingered("4") + fingered("5"));
    EXPECT_EQ(exportedWhole(hand, "//fingering",
                            sound + "keyboard.piano</instrument-sound></score-instrument>"),
              "1 4 5");
    // The frets may stand below, in the tablature.
    const std::string tablature =
        note("C", 4, 1,
             "quarter</type><notations><technical><string>2</string><fret>1</fret></technical>"
             "</notations><type>quarter",
             {}, "5", 2);
    const auto model = readFrom(score(quarters(1, fingered("1") + backup(1) + tablature)));
    EXPECT_EQ(model->track(0)->bar(0)->voice(0)->beat(0)->note(0)->leftFingering(),
              Fingering::Index);
}

} // namespace
