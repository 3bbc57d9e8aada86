// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnException.h>
#include <ZarnCore/io/ZarnScoreText.h>
#include <ZarnCore/model/ZarnModelCheck.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <gtest/gtest.h>

using namespace zarn;

namespace {

std::shared_ptr<ScoreModel> parse(const std::string &text)
{
    auto model = std::make_shared<ScoreModel>();
    io::readScoreText(text, *model);
    EXPECT_EQ(checkModel(*model), std::vector<std::string>());
    return model;
}

std::shared_ptr<Voice> voice(const ScoreModel &model, unsigned bar = 0, unsigned slot = 0)
{
    return model.track(0)->bar(bar, 0)->voice(slot);
}

std::string failure(const std::string &text)
{
    ScoreModel model;
    try {
        io::readScoreText(text, model);
    } catch (const CoreException &error) {
        return error.message();
    }
    return "read";
}

} // namespace

TEST(ScoreText, stringsCountFromTheHighestAndSoundAsTuned)
{
    const auto model = parse("guitar 3/4: 6:3q 1:0e. [5:2 4:x]s rh");
    const auto &beats = voice(*model)->beats();
    ASSERT_EQ(beats.size(), 4u);
    const auto low = beats[0]->note(0);
    EXPECT_EQ(low->string(), 0);
    EXPECT_EQ(low->fret(), 3);
    EXPECT_EQ(low->midi() + model->track(0)->transpositionOffset(), 43); // G2
    EXPECT_EQ(beats[1]->note(0)->string(), 5);
    EXPECT_EQ(beats[1]->rhythmValue(), RhythmValue(RhythmValue::NoteValue::Eighth, 1));
    EXPECT_EQ(beats[2]->noteCount(), 2u);
    EXPECT_TRUE(beats[2]->note(1)->isDead());
    EXPECT_TRUE(beats[3]->isRest());
    EXPECT_EQ(voice(*model)->length(), utils::rational(4));
    EXPECT_EQ(model->masterTrack()->masterBar(0)->timeSignature(), TimeSignature(3, 4));
}

TEST(ScoreText, tuningAndCapoMoveWhatAFretSounds)
{
    const auto model = parse("guitar(D2 A2 D3 G3 B3 E4) capo=2: 6:0 1:5; ukulele: 4:0");
    const int offset = model->track(0)->transpositionOffset();
    EXPECT_EQ(voice(*model)->beat(0)->note(0)->midi() + offset, 40);
    EXPECT_EQ(voice(*model)->beat(1)->note(0)->midi() + offset, 71);
    EXPECT_EQ(model->track(0)->staff(0)->capoFret(), 2u);
    EXPECT_EQ(model->track(1)->bar(0)->voice(0)->beat(0)->note(0)->midi(), 67);
}

TEST(ScoreText, namesKeepTheirSpelling)
{
    const auto model = parse("violin: c4q bb3 F#5 ebb4 b##4");
    const std::vector<int> keys = {60, 58, 78, 62, 73};
    for (unsigned i = 0; i < keys.size(); ++i)
        EXPECT_EQ(voice(*model)->beat(i)->note(0)->midi(), keys[i]) << i;
    EXPECT_EQ(
        voice(*model)->beat(1)->note(0)->spelling(),
        PitchClass(NoteName(NoteName::Value::B), NoteAccidental(NoteAccidental::Value::Flat)));
}

TEST(ScoreText, lengthsStayUntilTheyChange)
{
    const auto model = parse("voice: c4e. d4 e4e f4/3 g4 a4q/5:4 b4 c5h..");
    const std::vector<utils::rational> lengths = {{3, 4}, {3, 4}, {1, 2}, {1, 3},
                                                  {1, 3}, {4, 5}, {4, 5}, {7, 2}};
    for (unsigned i = 0; i < lengths.size(); ++i)
        EXPECT_EQ(voice(*model)->beat(i)->rhythmValue().getLength(), lengths[i]) << i;
}

TEST(ScoreText, tiesHoldOverTheBarLineInTheirVoice)
{
    const auto model = parse("voice: c4h [e4 g4]~ & c3w~ | [e4 g4 b4] & c3w");
    EXPECT_TRUE(voice(*model, 0, 0)->beat(1)->note(0)->isTieOrigin());
    EXPECT_FALSE(voice(*model, 0, 0)->beat(0)->note(0)->isTieOrigin());
    EXPECT_TRUE(voice(*model, 1, 0)->beat(0)->note(1)->isTied());
    EXPECT_FALSE(voice(*model, 1, 0)->beat(0)->note(2)->isTied());
    EXPECT_TRUE(voice(*model, 1, 1)->beat(0)->note(0)->isTied());
}

TEST(ScoreText, repeatsTimesAndKeysBelongToTheirBars)
{
    const auto model = parse("bass 2/4 key=Eb: 4:0h |: 3/4 key=C#m 4:1h. :|x3 4:2 :|: rq | | rq");
    const auto master = model->masterTrack();
    ASSERT_EQ(master->masterBarCount(), 6u);
    EXPECT_EQ(master->masterBar(0)->concertKeySignature(), KeySignature(-3, true));
    EXPECT_EQ(master->masterBar(1)->concertKeySignature(), KeySignature(4, false));
    EXPECT_EQ(master->masterBar(5)->timeSignature(), TimeSignature(3, 4));
    EXPECT_TRUE(master->masterBar(1)->isRepeatStart());
    EXPECT_EQ(master->masterBar(1)->repeatCount(), 3u);
    EXPECT_EQ(master->masterBar(2)->repeatCount(), 2u);
    EXPECT_TRUE(master->masterBar(3)->isRepeatStart());
    EXPECT_TRUE(parse("bass: |: r :|")->masterTrack()->masterBar(0)->isRepeatStart());
    EXPECT_EQ(parse("bass: | r |")->masterTrack()->masterBarCount(), 1u);
}

TEST(ScoreText, tracksAndStavesGetTheSameBars)
{
    const auto model = parse("piano tempo=96: c5w | d5\n+ c3w | d3 | e3;\n"
                             "drums 4/4: kickq [hat snare]e rime ride | tom1;");
    EXPECT_EQ(model->trackCount(), 2u);
    EXPECT_EQ(model->masterTrack()->masterBarCount(), 3u);
    EXPECT_EQ(model->track(0)->bar(2, 1)->voice(0)->beat(0)->note(0)->midi(), 52);
    EXPECT_EQ(model->masterTrack()->tempoValue(), 96);
    EXPECT_EQ(model->track(1)->bar(0)->voice(0)->beat(1)->note(1)->midi(), 38);
    EXPECT_EQ(model->track(1)->bar(0)->voice(0)->beatCount(), 4u);
    EXPECT_EQ(parse("  ")->trackCount(), 0u);
}

TEST(ScoreText, errorsNameLineAndColumnAndWhatWouldBeRight)
{
    const std::vector<std::pair<std::string, std::string>> table = {
        {"lute: c4", "line 1, column 1: expected an instrument such as guitar"},
        {"guitar c4", "line 1, column 8: expected a time such as 3/4"},
        {"guitar", "line 1, column 7: expected a time such as 3/4"},
        {"guitar 3/5: r", "line 1, column 10: expected a note value"},
        {"guitar: 7:0", "line 1, column 9: expected a string from 1 to 6, found \"7:0\""},
        {"guitar: 6:99", "line 1, column 11: expected a fret from 0 to 36, found \"99\""},
        {"guitar: 6q", "line 1, column 10: expected : and a fret"},
        {"voice: c4q\n  h5", "line 2, column 3: expected a note such as c4"},
        {"voice: 6:3", "line 1, column 8: expected a note name such as c4, as the staff has no"},
        {"voice: c", "line 1, column 8: expected a note such as c4"},
        {"voice: g9##", "line 1, column 10: expected a note such as c4"},
        {"voice: b9", "line 1, column 8: the note lies outside"},
        {"voice: [c4 e4", "line 1, column 14: expected a note such as c4"},
        {"voice: c4~ d4", "line 1, column 12: expected a note of the beat before"},
        {"voice: c4~", "line 1, column 11: expected the note that the tie leads to"},
        {"voice: c4/1", "line 1, column 11: expected a number of tuplet notes from 2 to 255"},
        {"voice: c4....", "column 14: a note has at most three dots"},
        {"voice: c & c & c & c & c", "line 1, column 8"},
        {"voice: r & r & r & r & r", "line 1, column 23: a bar has at most four voices"},
        {"drums: kick bang", "line 1, column 13: expected a drum such as kick"},
        {"voice: \"Am c4", "expected a \" behind the chord symbol"},
        {"voice: c4 \"A\xFF\"d4", "line 1, column 11: the chord symbol is not in UTF-8"},
        {"voice key=G##: r", "line 1, column 11: the key has more than seven"},
        {"voice 4/4: r; bass 3/4: r", "line 1, column 20: another track says something else"},
        {"voice: r :| r; bass: r :|x3 r", "another track says something else of bar 1"},
    };
    for (const auto &[text, message] : table)
        EXPECT_NE(failure(text).find(message), std::string::npos)
            << text << "\n  expected: " << message << "\n  message: " << failure(text);
}

TEST(ScoreText, barsForAStaffTakeItsStringsAndKnowNoSettings)
{
    const auto model = parse("guitar(D2 A2 D3 G3 B3 E4) capo=2: r ; drums: r");
    const Staff &guitar = *model->track(0)->staff(0);
    const auto bars = io::readBarsText("6:0e [5:2 4:x]q. | c4h~ & 1:3w | c4q", guitar);
    ASSERT_EQ(bars.size(), 3u);
    EXPECT_EQ(bars[0]->voice(0)->beat(0)->note(0)->midi() + model->track(0)->transpositionOffset(),
              40);
    EXPECT_EQ(bars[1]->voice(1)->beat(0)->note(0)->string(), 5);
    EXPECT_TRUE(bars[2]->voice(0)->beat(0)->note(0)->isTied());
    EXPECT_EQ(bars[0]->parentStaff(), nullptr);
    EXPECT_EQ(guitar.barCount(), 1u) << "the staff is not touched";
    EXPECT_TRUE(io::readBarsText("  ", guitar).empty());

    const auto drums =
        io::readBarsText("kicke [hihat snare2] openhihat rideq r bell", *model->track(1)->staff(0));
    std::vector<int> keys;
    for (const auto &beat : drums.at(0)->voice(0)->beats())
        for (const auto &note : beat->notes())
            keys.push_back(note->midi());
    EXPECT_EQ(keys, (std::vector<int>{36, 42, 40, 46, 51, 53}));
    for (const char *const wrong : {"3/4 6:0", "|: 6:0 :|", "6:0 ; drums: r", "6:0 + 6:0", "snare"})
        EXPECT_THROW(io::readBarsText(wrong, guitar), CoreException) << wrong;
}
