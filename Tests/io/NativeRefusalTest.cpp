// SPDX-License-Identifier: MIT
#include <support/NativeDocument.h>
#include <support/RandomScore.h>

#include <ZarnCore/io/ZarnImportException.h>
#include <ZarnCore/io/ZarnScoreText.h>

#include <gtest/gtest.h>

#include <limits>

using namespace zarn;

namespace {

/// The message of a refused document; "read" when it was read.
std::string refusal(const std::string &document)
{
    try {
        test::readNative(document);
    } catch (const io::ImportException &refused) {
        EXPECT_EQ(refused.document(), "score.zarn");
        return refused.message();
    }
    return "read";
}

std::string score(const std::string &members)
{
    return R"({"zarn":"1.0",)" + members + "}";
}

/// A score of one bar whose note is given.
std::string note(const std::string &members)
{
    return score(R"("master":{"bars":[{}]},"tracks":[{"staves":[{"bars":[{"voices":[{},{"beats":)"
                 R"([{},{"notes":[{)"
                 + members + "}]}]}]}]}]}]");
}

std::string master(const std::string &members)
{
    return score(R"("master":{)" + members + "}");
}

struct Refused {
    std::string document;
    std::string place;
    std::string reason;
};

} // namespace

TEST(NativeRefusal, namesThePlaceAndWhatIsWrong)
{
    const std::string noteAt = "/tracks/0/staves/0/bars/0/voices/1/beats/1/notes/0";
    const std::vector<Refused> table = {
        // no JSON
        {"", "line 1, column 1, byte 0", "empty"},
        {"{\"zarn\":\"1.0\",\n  \"master\":\n}", "line 3, column 1, byte 27", "Invalid value"},
        {score("") + "{}", "line 1, column 15", "Missing a name"},
        {"{\"zarn\":\"1.0\"} x", "line 1, column 16", "not be followed"},
        {score(R"("concertTone":NaN)"), "byte 28", "Invalid value"},
        {score(R"("concertTone":1e999)"), "byte", "too big"},
        {score("\"properties\":{\"Title\":\"\xFF\"}"), "byte 37", "encoding"},
        {score("\"properties\":{\"Title\":\"\xC0\x80\"}"), "byte", "encoding"},
        {score(R"("properties":{"Title":"\ud800"})"), "byte", "surrogate"},
        {std::string("{\"zarn\":\"1.0\"}\0", 15), "byte 14", "zero byte"},
        // another document
        {"[]", "/", "expected an object, found an array"},
        {"17", "/", "expected an object, found 17"},
        {R"({"tracks":[]})", "/", "no native document"},
        {R"({"zarn":1})", "/zarn", "expected text, found 1"},
        {R"({"zarn":"one"})", "/zarn", "a version such as"},
        {R"({"zarn":"1."})", "/zarn", "a version such as"},
        {R"({"zarn":"2.0"})", "/zarn", "version 2.0"},
        {R"({"zarn":"0.9"})", "/zarn", "version 0.9"},
        // names
        {score(R"("track":[])"), "/track", "nothing of this name"},
        {score(R"("a/b~c":0)"), "/a~1b~0c", "nothing of this name"},
        {note(R"("string":1,"sting":2)"), noteAt + "/sting", "nothing of this name"},
        {note(R"("fret":1,"fret":2)"), noteAt + "/fret", "stands twice"},
        {score(R"("properties":{"Title":"a","Title":"b"})"), "/properties/Title", "stands twice"},
        {score(R"("properties":{"Tittle":"a"})"), "/properties/Tittle", "nothing of this name"},
        // kinds
        {score(R"("tracks":{})"), "/tracks", "expected an array, found an object"},
        {score(R"("tracks":4000000000)"), "/tracks", "expected an array, found 4000000000"},
        {score(R"("tracks":[null])"), "/tracks/0", "expected an object, found null"},
        {score(R"("tracks":[{"name":false}])"), "/tracks/0/name", "expected text, found false"},
        {score(R"("concertTone":"440")"), "/concertTone", "expected a number, found the text"},
        {note(R"("tied":1)"), noteAt + "/tied", "expected true or false, found 1"},
        {note(R"("midi":60.5)"), noteAt + "/midi", "found 60.5"},
        // ranges
        {note(R"("midi":128)"), noteAt + "/midi", ""},
        {note(R"("string":-2)"), noteAt + "/string", ""},
        {note(R"("fret":4000000000)"), noteAt + "/fret", "a whole number from"},
        {note(R"("articulation":99999)"), noteAt + "/articulation", ""},
        {note(R"("staffLine":1000000)"), noteAt + "/staffLine", ""},
        {note(R"("midi":-99999999999999999999)"), noteAt + "/midi", "found"},
        {master(R"("mastering":{"volumePan":{"volume":1e300}})"),
         "/master/mastering/volumePan/volume", "a number from 0 to 1, found 1e300"},
        {master(R"("bars":[{"repeatCount":4000000000}])"), "/master/bars/0/repeatCount",
         "expected a whole number"},
        {master(R"("bars":[{},{"repeatCount":1}])"), "/master/bars/1/repeatCount", ""},
        {master(R"("bars":[{"endings":[1,33]}])"), "/master/bars/0/endings/1", "1 to 32"},
        {master(R"("bars":[{"key":{"accidentals":8}}])"), "/master/bars/0/key/accidentals",
         "from -7 to 7"},
        {master(R"("directions":{"Coda":0})"), "/master/directions/Coda", "of 0 bars"},
        {master(R"("directions":{"Coda":-2},"bars":[{}])"), "/master/directions/Coda", "-2"},
        // texts that stand for values
        {note(R"("spelling":"H")"), noteAt + "/spelling", "expected a spelling"},
        {note(R"("head":"round")"), noteAt + "/head", "slash, triangle"},
        {note(R"("head":5)"), noteAt + "/head", "one of"},
        {note(R"("head":"")"), noteAt + "/head", "one of"},
        {master(R"("bars":[{"time":"3/0"}])"), "/master/bars/0/time", "a time signature"},
        {master(R"("bars":[{"time":"65536/4"}])"), "/master/bars/0/time", "up to 65535"},
        {master(R"("bars":[{"time":"4294967296/4"}])"), "/master/bars/0/time", ""},
        {master(R"("bars":[{"length":"1/0"}])"), "/master/bars/0/length", "a fraction"},
        {master(R"("bars":[{"length":"-1"}])"), "/master/bars/0/length", ""},
        {master(R"("bars":[{"tripletFeel":"Swing"}])"), "/master/bars/0/tripletFeel",
         "NoTripletFeel"},
        {score(R"("tracks":[{"type":"kazoo"}])"), "/tracks/0/type", "an instrument such as"},
        {score(R"("tracks":[{"icon":0}])"), "/tracks/0/icon", "one of"},
        // parts that belong together
        {master(R"("automations":[{}])"), "/master/automations/0", "needs a \"type\""},
        {master(R"("automations":[{"type":"Volume"}])"), "/master/automations/0/type", "Tempo"},
        {master(R"("automations":[{"type":"DSPParam_03","unit":2}])"), "/master/automations/0/unit",
         "no such member"},
        {master(R"("mastering":{"effects":[{"name":"x"}]})"), "/master/mastering/effects/0",
         "needs the name"},
        {score(R"("tracks":[{"staves":[]}])"), "/tracks/0/staves", "at least one staff"},
        {score(R"("master":{"bars":[{},{}]},"tracks":[{"staves":[{"bars":[{}]}]}])"),
         "/tracks/0/staves/0/bars", "the staff has 1 bars, and the score has 2"},
        {score(R"("tracks":[{},{"staves":[{},{"bars":[{}]}]}])"), "/tracks/1/staves/1/bars",
         "has 1 bars"},
        {score(R"("master":{"bars":[{}]},"tracks":[{"staves":[{"bars":[{"voices":)"
               R"([{},{},{},{},{}]}]}]}])"),
         "/tracks/0/staves/0/bars/0/voices", "at most four voices"},
    };
    for (const Refused &row : table) {
        const std::string message = refusal(row.document);
        EXPECT_NE(message.find("score.zarn: "), std::string::npos) << row.document;
        EXPECT_NE(message.find(row.place), std::string::npos)
            << row.document << "\n  place: " << row.place << "\n  message: " << message;
        EXPECT_NE(message.find(row.reason), std::string::npos)
            << row.document << "\n  reason: " << row.reason << "\n  message: " << message;
    }
}

TEST(NativeRefusal, everyNumberHasARange)
{
    struct Number {
        std::string place;
        std::string before; ///< the document up to the number
        std::string lowest;
        std::string highest;
    };
    const std::string tune = R"("tracks":[{"staves":[{"tuning":{)";
    const std::string staff = R"("tracks":[{"staves":[{)";
    const std::string orka = R"("tracks":[{"sounds":[{"orka":{)";
    const std::string sound = R"("tracks":[{"sounds":[{)";
    const std::string turn = R"("master":{"bars":[{}],"automations":[{"type":"Tempo",)";
    const std::string knob = R"("tracks":[{"automations":[{"type":"PickupKnob",)";
    const std::string audio = R"("audioTracks":[{)";
    const std::vector<Number> table = {
        {"/concertTone", R"("concertTone":)", "220", "880"},
        {"/page/width", R"("page":{"width":)", "0", "10000000"},
        {"/page/staffSpace", R"("page":{"staffSpace":)", "0", "10000000"},
        {"/systemsLayout/1", R"("systemsLayout":[1,)", "0", "100000"},
        {"/barsPerSystem", R"("barsPerSystem":)", "0", "100000"},
        {"/master/tempo", R"("master":{"tempo":)", "0", "1000000"},
        {"/master/bars/0/repeatCount", R"("master":{"bars":[{"repeatCount":)", "2", "255"},
        {"/master/automations/0/position", turn + R"("position":)", "0", "1000000"},
        {"/master/automations/0/value", turn + R"("value":)", "-3.4028235e38", "3.4028235e38"},
        {"/master/automations/0/unit", turn + R"("unit":)", "0", "5"},
        {"/tracks/0/automations/0/pickup", knob + R"("pickup":)", "-1", "255"},
        {"/tracks/0/color", R"("tracks":[{"color":)", "0", "4294967295"},
        {"/tracks/0/transposition", R"("tracks":[{"transposition":)", "-127", "127"},
        {"/tracks/0/sounds/0/program", sound + R"("program":)", "0", "127"},
        {"/tracks/0/sounds/0/lsbBank", sound + R"("lsbBank":)", "0", "127"},
        {"/tracks/0/sounds/0/orka/switch", orka + R"("switch":)", "0", "32767"},
        {"/tracks/0/sounds/0/orka/overloudPosition", orka + R"("overloudPosition":)", "-1",
         "32767"},
        {"/tracks/0/sounds/0/orka/knobVolumes/0", orka + R"("knobVolumes":[)", "0", "1"},
        {"/tracks/0/staves/0/tuning/strings/0", tune + R"("strings":[)", "0", "127"},
        {"/tracks/0/staves/0/tuning/offset", tune + R"("offset":)", "-127", "127"},
        {"/tracks/0/staves/0/capo", staff + R"("capo":)", "0", "255"},
        {"/tracks/0/staves/0/frets", staff + R"("frets":)", "0", "255"},
        {"/tracks/0/staves/0/diagrams/0/firstFret", staff + R"("diagrams":[{"firstFret":)", "0",
         "255"},
        {"/tracks/0/staves/0/diagrams/0/frets/0", staff + R"("diagrams":[{"frets":[)", "-1", "127"},
        {"/tracks/0/staves/0/diagrams/0/fingers/0", staff + R"("diagrams":[{"fingers":[)", "0",
         "5"},
        {"/audioTracks/0/startOffset", audio + R"("startOffset":)", "-9007199254740992",
         "9007199254740992"},
        {"/audioTracks/0/volume", audio + R"("volume":)", "0", "100"},
        {"/audioTracks/0/pan", audio + R"("pan":)", "-1", "1"},
    };
    for (const Number &row : table) {
        const auto with = [&row](const std::string &number) {
            std::string document = R"({"zarn":"1.0",)" + row.before + number;
            std::string closing;
            for (const char letter : document)
                if (letter == '{' || letter == '[')
                    closing.insert(0, 1, letter == '{' ? '}' : ']');
                else if (letter == '}' || letter == ']')
                    closing.erase(0, 1);
            return refusal(document + closing);
        };
        EXPECT_EQ(with(row.lowest), "read") << row.place;
        EXPECT_EQ(with(row.highest), "read") << row.place;
        std::vector<std::string> hostile = {"1e39", "-1e39", "99999999999999999999999e299"};
        if (row.highest.find('e') == std::string::npos) // not the whole range of a float
            hostile.insert(hostile.end(), {"184467440737095516155", "-9007199254740993"});
        for (const std::string &number : hostile)
            EXPECT_EQ(with(number).find("score.zarn: " + row.place + ": expected a "), 0u)
                << number << ": " << with(number);
    }
}

TEST(NativeRefusal, numbersAreReadExactlyHoweverManyDigitsTheyHave)
{
    const std::string zeros(350, '0');
    for (const auto &[text, tone] : std::vector<std::pair<std::string, double>>{
             {"440." + zeros + "1", 440},
             {"0." + std::string(27, '0') + "441e30", 441},
             {"4.4e2", 440},
             {"440.00000000000005684341886080801486968994140625", 440.00000000000006},
             {"440.0000000000000284217094304040074348449707031250" + zeros, 440},
             {"44" + std::string(300, '0') + "e-299", 440}})
        EXPECT_EQ(test::readNative(score("\"concertTone\":" + text))->concertTone(), tone) << text;
    const auto pan = [](const std::string &text) {
        return test::readNative(score(R"("audioTracks":[{"pan":)" + text + "}]"))
            ->audioTracks()[0]
            ->pan();
    };
    for (const std::string &nothing :
         {std::string("0e308"), "0." + std::string(27, '0'), "0." + zeros + "1",
          "1e-" + std::string(350, '9'), std::string("-0")})
        EXPECT_EQ(pan(nothing), 0.0f) << nothing;
    EXPECT_EQ(pan("0." + std::string(9, '9') + zeros), 1.0f);
}

TEST(NativeRefusal, whatADocumentCannotHoldIsNotWritten)
{
    const auto refusalOf = [](const ScoreModel &model) {
        try {
            test::writeNative(model);
        } catch (const CoreException &error) {
            return error.message();
        }
        return std::string("written");
    };
    ScoreModel model;
    io::readScoreText("guitar: r; guitar: r", model);
    EXPECT_EQ(refusalOf(model), "written");
    model.track(1)->staves()[0]->setTuning(GuitarTuning(129));
    EXPECT_EQ(refusalOf(model),
              "/tracks/1/staves/0/tuning/strings: cannot be saved: there are 129 of at most 128");
    GuitarTuning tuning(2);
    tuning.setMidiNumbers({40, -4});
    model.track(1)->staves()[0]->setTuning(tuning);
    EXPECT_EQ(refusalOf(model),
              "/tracks/1/staves/0/tuning/strings/1: cannot be saved: -4 is not a whole number "
              "from 0 to 127");
    model.setConcertTone(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(refusalOf(model),
              "/concertTone: cannot be saved: nan is not a number from 220 to 880");
    model.setConcertTone(440);
    model.track(1)->staves()[0]->setTuning(GuitarTuning(6));
    PageSetup setup;
    setup.orientation = static_cast<PageSetup::Orientation>(2);
    model.setPageSetup(setup);
    EXPECT_EQ(refusalOf(model),
              "/page/orientation: cannot be saved: 2 is not one of Portrait, Landscape");
}

TEST(NativeRefusal, rhythmsAreReadAsTheyAreWritten)
{
    const auto beat = [](const std::string &rhythm) {
        return score(R"("master":{"bars":[{}]},"tracks":[{"staves":[{"bars":[{"voices":[{"beats":)"
                     R"([{"rhythm":)"
                     + rhythm + "}]}]}]}]}]");
    };
    for (const char *right : {R"("4x")", R"("1.")", R"("256...")", R"("4.*12")", R"("8/3:2")",
                              R"("8/3:2/5:4")", R"("8/0:0/255:1")"})
        EXPECT_EQ(refusal(beat(right)), "read") << right;
    for (const char *wrong : {"4", R"("")", R"("3")", R"("4 ")", R"("04")", R"("8x")", R"("4....")",
                              R"("4.*3")", R"("4.*256")", R"("4.*99999999999")", R"("8/3")",
                              R"("8/3:256")", R"("8/3:2/")", R"("8/3:2/5:4/7:4")", R"("-4")"})
        EXPECT_NE(refusal(beat(wrong)).find("beats/0/rhythm: expected a rhythm"), std::string::npos)
            << wrong;
}

TEST(NativeRefusal, deepNestingNeitherOverflowsTheStackNorTakesLong)
{
    const std::string deep(2'000'000, '[');
    for (const std::string &end : {std::string(), std::string(deep.size(), ']')})
        EXPECT_NE(refusal(score("\"tracks\":" + deep + end)).find(": nested more than 64 levels"),
                  std::string::npos);
    EXPECT_NE(refusal(score("\"tracks\":" + std::string(60, '[') + std::string(60, ']')))
                  .find("/tracks/0: expected an object"),
              std::string::npos);
}

TEST(NativeRefusal, aDocumentMayNameItsVersionAnywhere)
{
    ScoreModel model;
    io::readScoreText("guitar: 6:3q [5:2 4:0]e | 1:0 & 6:0; piano: c5 | d5 + c3 | d3", model);
    std::string document = test::writeNative(model);
    const std::string version = "\"zarn\":\"1.6\",";
    document.erase(document.find(version), version.size());
    document.insert(document.rfind('}'), "," + version.substr(0, version.size() - 1));
    EXPECT_TRUE(*test::readNative(document) == model);
    document.replace(document.rfind("1.6"), 3, "2.0");
    EXPECT_NE(refusal(document).find("/zarn: the document has version 2.0"), std::string::npos);
}

TEST(NativeRefusal, theFirstFaultOfABarIsNamedWithTheWholePath)
{
    const auto staff = [](const std::string &bars) {
        return score(R"("tracks":[{"staves":[{},{}]},{"name":"a/b","staves":[{},{"bars":)" + bars
                     + "}]}]");
    };
    EXPECT_NE(refusal(staff(R"([{},{"voices":[{"beats":[{"text":5}]}]}])"))
                  .find("/tracks/1/staves/1/bars/1/voices/0/beats/0/text: expected text"),
              std::string::npos);
    EXPECT_NE(refusal(staff("[{},1]")).find("/tracks/1/staves/1/bars/1: expected an object"),
              std::string::npos);
    EXPECT_NE(refusal(staff("[{}],\"bars\":[]")).find("/tracks/1/staves/1/bars: stands twice"),
              std::string::npos);
    EXPECT_NE(refusal(staff("[[[]]]")).find("/tracks/1/staves/1/bars/0: expected an object"),
              std::string::npos);
}

TEST(NativeRefusal, notesOnStringsThatAreNotThereAreReadAndReported)
{
    io::ImportReport report;
    const auto model = test::readNative(
        score(R"("master":{"bars":[{}]},"tracks":[{"staves":[{"bars":[{"voices":[{"beats":)"
              R"([{"notes":[{"string":6}]}]}]}],"tuning":{"strings":[40,45]}}]}])"),
        report);
    EXPECT_EQ(model->track(0)->bar(0, 0)->voice(0)->beat(0)->note(0)->string(), 6);
    ASSERT_EQ(report.problems().size(), 1u);
    EXPECT_TRUE(report.hasProblem("/tracks/0/staves/0: a note stands on string index 6"));
}

TEST(NativeRefusal, tiesToNothingAreToldAndASimileMarkOfNothingIsMended)
{
    io::ImportReport report;
    const auto model = test::readNative(
        score(R"("master":{"bars":[{},{},{}]},"tracks":[{"staves":[{"bars":[{"simile":"Simple",)"
              R"("voices":[{"beats":[{"notes":[{"midi":60,"tieOrigin":true},)"
              R"({"midi":64,"tieOrigin":true}]},{"notes":[{"midi":60,"tied":true}]}]},)"
              R"({"beats":[{"notes":[{"midi":64,"tied":true}]}]}]},)"
              R"({"voices":[{"beats":[{"notes":[{"midi":60,"tied":true,"tieOrigin":true}]}]}]},)"
              R"({"voices":[{"beats":[{"notes":[{"midi":61,"tieOrigin":true}]}]}]}]}]}])"),
        report);
    ASSERT_EQ(report.problems().size(), 3u) << "none in another voice or out of the last bar";
    EXPECT_EQ(report.problems()[0].toString(),
              "part 1, bar 1: a simile mark repeats the bar in front, and there is none: it was "
              "left out");
    EXPECT_EQ(report.problems()[1].toString(),
              "part 1, bar 2: a tie ends here that nothing begins");
    EXPECT_EQ(report.problems()[2].toString(),
              "part 1, bar 2: a tie is begun here that nothing ends");
    EXPECT_EQ(model->track(0)->bar(0)->simileMark(), SimileMark::None);
    EXPECT_TRUE(model->track(0)->bar(1)->voice(0)->beat(0)->note(0)->isTied()) << "kept";
}

TEST(NativeRefusal, automationsThatNothingCouldHaveMadeAreLeftOutAndReported)
{
    io::ImportReport report;
    const auto model = test::readNative(
        score(R"("master":{"automations":[{"type":"Tempo","bar":2,"value":90},)"
              R"({"type":"Tempo","bar":1,"value":70},{"type":"DSPParam_03","bar":1},)"
              R"({"type":"Tempo","bar":1,"value":80},{"type":"Tempo","value":0}],"bars":[{},{}]},)"
              R"("tracks":[{"automations":[{"type":"Sound","bar":99999}],)"
              R"("staves":[{"bars":[{},{}]}]}])"),
        report);
    const auto tempos = model->masterTrack()->automations(Automation::Tempo);
    ASSERT_EQ(tempos.size(), 1U);
    EXPECT_EQ(tempos.front()->value(), 80.0f);
    EXPECT_EQ(report.problems().size(), 4U);
    EXPECT_TRUE(report.hasProblem("/master/automations: 1 tempo that is not above 0"));
    EXPECT_TRUE(report.hasProblem("/master/automations: 1 of them stand where a later one"));
    EXPECT_TRUE(report.hasProblem("/master/automations: 1 automation behind the last bar"));
    EXPECT_TRUE(report.hasProblem("/tracks/0/automations: 1 automation behind the last bar"));
    EXPECT_EQ(test::writeNative(*test::readNative(test::writeNative(*model))),
              test::writeNative(*model));
}

TEST(NativeRefusal, beatsThatDoNotAddUpAreRefusedAtTheFirst)
{
    std::string beats;
    for (const char *tuplet : {"251", "241", "239", "233", "229", "227", "223", "211", "199"})
        beats += std::string(beats.empty() ? "" : ",") + R"({"rhythm":"256/)" + tuplet + ":2\"}";
    EXPECT_NE(refusal(score(R"("tracks":[{"staves":[{"bars":[{"voices":[{"beats":[)" + beats
                            + "]}]}]}]}]"))
                  .find("/tracks/0/staves/0/bars/0/voices/0/beats/7: the beats do not add up"),
              std::string::npos);
}

TEST(NativeRefusal, everyTruncationIsRefused)
{
    ScoreModel model;
    io::readScoreText("guitar capo=2: [6:3 5:2]q/3 \"Am\"5:2~ 5:2 | rw; drums: kick | snare",
                      model);
    model.setScoreProperty(ScoreProperty::Title, "\u00e9\"\\\U0001F3B8");
    const std::string document = test::writeNative(model);
    for (std::size_t size = 0; size + 2 < document.size(); ++size)
        EXPECT_NE(refusal(document.substr(0, size)).find("line "), std::string::npos) << size;
}

TEST(NativeRefusal, damageIsRefusedOrReadAsAScoreThatCanBeWritten)
{
    std::mt19937 engine(7);
    std::size_t refused = 0;
    for (std::uint32_t seed = 0; seed < 12; ++seed) {
        const std::string whole = test::writeNative(*test::RandomScore(seed).make(2, 3));
        for (int damage = 0; damage < 120; ++damage) {
            std::string document = whole;
            for (std::size_t i = 1 + engine() % 4; i > 0; --i) {
                const std::size_t at = engine() % document.size();
                switch (engine() % 4) {
                case 0:
                    document[at] = static_cast<char>(engine());
                    break;
                case 1:
                    document.erase(at, 1 + engine() % 20);
                    break;
                case 2:
                    document.insert(at, document.substr(engine() % document.size(), 30));
                    break;
                default:
                    document[at] = "0123456789-{}[],:\"e.tfn"[engine() % 23];
                }
            }
            try {
                const auto model = test::readNative(document);
                EXPECT_EQ(test::writeNative(*test::readNative(test::writeNative(*model))),
                          test::writeNative(*model));
            } catch (const io::ImportException &error) {
                EXPECT_FALSE(error.reason().empty());
                ++refused;
            }
        }
    }
    EXPECT_GT(refused, 100u);
}

TEST(NativeRefusal, membersOfANewerMinorVersionAreLeftOutAndReported)
{
    io::ImportReport report;
    const auto model = test::readNative(
        R"({"zarn":"1.7","lyrics":[1],"master":{"bars":[{"fermata":1},{"fermata":2,"time":"3/4"}]}})",
        report);
    EXPECT_EQ(model->masterTrack()->masterBar(1)->timeSignature().getNumerator(), 3u);
    EXPECT_EQ(report.unheld().at("fermata"), 2u);
    EXPECT_EQ(report.unheld().at("lyrics"), 1u);
    ASSERT_EQ(report.problems().size(), 2u);
    EXPECT_TRUE(report.hasProblem("/master/bars/0/fermata"));
    EXPECT_EQ(refusal(R"({"zarn":"1.7","concertTone":"high"})"),
              "score.zarn: /concertTone: expected a number, found the text \"high\"");
}
