// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnException.h>
#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>
#include <ZarnCore/music/ZarnTone.h>

#include <QMetaEnum>

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <limits>
#include <sstream>

namespace {

using zarn::CoreException;
using zarn::GuitarTuning;

const std::initializer_list<unsigned> standard = {40, 45, 50, 55, 59, 64};

TEST(GuitarTuning, pitchesThatEnterAreClampedAndWidenTheRange)
{
    const GuitarTuning clamped({5, 130, 0xFFFFFFFFu});
    EXPECT_EQ(clamped.midiNumbers(), (std::vector<int>{12, 119, 119}));
    EXPECT_EQ(clamped.lowestMidi(), 12);
    EXPECT_EQ(clamped.highestMidi(), 119);

    const GuitarTuning empty;
    EXPECT_EQ(empty.highestMidi(), 12);
    EXPECT_EQ(empty.lowestMidi(), 119);
    EXPECT_EQ(empty.role(), GuitarTuning::NoRole);
    EXPECT_TRUE(empty.labelVisible());
    EXPECT_EQ(GuitarTuning(empty), empty);

    GuitarTuning counted(3u);
    EXPECT_EQ(counted.midiNumbers(), (std::vector<int>{0, 0, 0}));
    EXPECT_EQ(GuitarTuning(counted), counted) << "strings not set have no part in the range";
    counted.setTuning(1, 50);
    counted.setTuning(3, 60);
    EXPECT_EQ(counted.lowestMidi(), 50);
    EXPECT_EQ(counted.highestMidi(), 50);
    counted.setTuning(1, 40);
    counted.setTuning(1, std::numeric_limits<int>::max());
    EXPECT_EQ(counted.lowestMidi(), 40) << "the range only widens";
    EXPECT_EQ(GuitarTuning(counted).lowestMidi(), 119) << "a copy looks at its pitches";

    GuitarTuning given;
    given.setMidiNumbers({0, 140, -3});
    EXPECT_EQ(given.lowestMidi(), -3);
    EXPECT_EQ(given.highestMidi(), 140);
    EXPECT_EQ(GuitarTuning(given), given);
    for (const auto &pitches : {std::vector<int>{5, 7}, {0, 0}, {125, 140}, {-4, -2}}) {
        given.setMidiNumbers(pitches);
        EXPECT_EQ(GuitarTuning(given), given);
    }
    given.setMidiNumbers({});
    EXPECT_EQ(given.highestMidi(), 12);
    EXPECT_EQ(given.lowestMidi(), 119);
}

TEST(GuitarTuning, copiesHaveIdsOfTheirOwn)
{
    GuitarTuning original(GuitarTuning::Guitar, standard);
    original.setName("Standard");
    GuitarTuning copy(original);
    EXPECT_EQ(copy, original);
    EXPECT_NE(copy.id(), original.id());
    const auto id = copy.id();
    copy = original;
    EXPECT_EQ(copy.id(), id);
    copy.setName("Other");
    EXPECT_EQ(original.name(), "Standard");
}

TEST(GuitarTuning, aShortDroneStringStartsAtItsFifthFret)
{
    GuitarTuning banjo(GuitarTuning::Banjo, {67, 50, 55, 59, 62});
    banjo.setShortDroneString(true);
    EXPECT_EQ(banjo.midi(0, 5), 67);
    EXPECT_EQ(banjo.midi(1, 5), 55);
    EXPECT_EQ(banjo.fret(0, 67, 22), 5);
    EXPECT_EQ(banjo.fret(0, 69, 22), 7);
    EXPECT_EQ(banjo.fret(0, 66, 22), -1) << "below the open string";
    EXPECT_EQ(banjo.midi(9, 3), 3) << "no such string";
    EXPECT_EQ(banjo.fret(9, 3, 22), -1);
    banjo.setMidiNumbers({std::numeric_limits<int>::max()});
    banjo.setShortDroneString(false);
    EXPECT_EQ(banjo.midi(0, 1), std::numeric_limits<int>::max());
}

TEST(GuitarTuning, fretsAndPitchesAreInverse)
{
    GuitarTuning tunings[] = {GuitarTuning(standard), GuitarTuning({67, 48, 55, 60, 62})};
    tunings[1].setShortDroneString(true);
    for (const auto &tuning : tunings) {
        for (int midi = 0; midi < 128; ++midi) {
            unsigned string = 99;
            int fret = 99;
            const bool found = tuning.firstStringAndFret(midi, 1, 20, string, fret);
            bool exists = false;
            for (unsigned other = tuning.stringCount(); other-- > 1;) {
                const int onOther = tuning.fret(other, midi, 20);
                if (onOther < 0)
                    continue;
                EXPECT_EQ(tuning.midi(other, onOther), midi);
                EXPECT_LE(onOther, 20);
                EXPECT_GE(string, other) << "the highest string is taken";
                exists = true;
            }
            EXPECT_EQ(found, exists) << midi;
            EXPECT_EQ(found, fret != 99);
        }
    }
    unsigned string = 0;
    int fret = 0;
    EXPECT_TRUE(tunings[0].firstStringAndFret(60, 0, 24, string, fret));
    EXPECT_EQ(string, 4u);
    EXPECT_EQ(fret, 1);
}

TEST(GuitarTuning, fretsOfAToneInAnyOctave)
{
    const GuitarTuning guitar(standard);
    const zarn::Tone e(4);
    std::list<int> frets = {99};
    guitar.frets(0, e, 24, frets);
    EXPECT_EQ(frets, (std::list<int>{0, 12, 24}));
    EXPECT_EQ(guitar.fret(0, e, 1, 24), 12);
    EXPECT_EQ(guitar.fret(0, e, 0, 24), 0);
    EXPECT_EQ(guitar.fret(0, e, 13, 23), -1);
    EXPECT_EQ(guitar.fret(9, e, 0, 24), -1);
    EXPECT_EQ(guitar.fret(0, e, 0xFFFFFFFFu, 24), -1);
    guitar.frets(9, e, 24, frets);
    EXPECT_TRUE(frets.empty());

    GuitarTuning banjo({67, 50, 55, 59, 62});
    banjo.setShortDroneString(true);
    banjo.frets(0, zarn::Tone(7), 17, frets);
    EXPECT_EQ(frets, (std::list<int>{5, 17})) << "the string has no frets below 5";
    banjo.frets(0, zarn::Tone(2), 17, frets);
    EXPECT_EQ(frets, std::list<int>{12}) << "where fret 0 would sound it";
    for (const int fret : frets)
        EXPECT_EQ(banjo.tone(0, fret), zarn::Tone(2));
}

TEST(GuitarTuning, namesListTheOpenStrings)
{
    GuitarTuning tuning({39, 44, 49, 54, 58, 63});
    tuning.setName("E\xE2\x99\xAD");
    EXPECT_EQ(tuning.toString(false), QStringLiteral("EbAbDbGbBbEb"));
    EXPECT_EQ(tuning.nameWithNotes(true, false), QString::fromUtf8("E♭ D# G# C# F# A# D#"));
    GuitarTuning banjo({67, 50, 55, 59, 62});
    EXPECT_EQ(banjo.defaultNameFromTuning(true, true), QStringLiteral("C D G B D"));
    banjo.setShortDroneString(true);
    EXPECT_EQ(banjo.defaultNameFromTuning(true, true), QStringLiteral("G D G B D"));
    EXPECT_EQ(GuitarTuning().defaultNameFromTuning(true, true), QString());
}

TEST(GuitarTuning, offsetIsComputedFromTheIntervals)
{
    EXPECT_EQ(GuitarTuning({39, 44, 49, 54, 58, 63}).midiOffset(), 1);
    EXPECT_EQ(GuitarTuning(standard).midiOffset(), 0);
    EXPECT_EQ(GuitarTuning({42, 47, 52, 57, 61, 66}).midiOffset(), -2);
    EXPECT_EQ(GuitarTuning({36, 43, 48, 53, 57, 62}).midiOffset(), 2) << "drop D, a tone down";
    EXPECT_EQ(GuitarTuning({27, 32, 37, 42}).midiOffset(), 1) << "bass";
    EXPECT_EQ(GuitarTuning({40, 45, 50, 55, 60, 64}).midiOffset(), 0);
    EXPECT_EQ(GuitarTuning().midiOffset(), 0);
    GuitarTuning stored(standard);
    stored.setMidiOffset(7);
    EXPECT_EQ(stored.midiOffset(), 0);
    EXPECT_EQ(stored.storedMidiOffset(), 7);
    stored.setMidiNumbers({std::numeric_limits<int>::min(), 0, 0, 0, 0, 0});
    EXPECT_EQ(stored.midiOffset(), 0);
}

TEST(GuitarTuning, eachOptionComparesItsOwnProperty)
{
    const GuitarTuning base(GuitarTuning::Guitar, standard);
    const auto optionsThatSee = [&base](auto change) {
        auto changed = base;
        change(changed);
        unsigned seen = 0;
        for (unsigned option = 1; option <= 256; option *= 2) {
            const bool differs = GuitarTuning::differentTunings(base, changed, option);
            EXPECT_NE(differs, GuitarTuning::sameTunings(base, changed, option));
            seen |= differs ? option : 0;
        }
        EXPECT_EQ(GuitarTuning::differentTunings(base, changed, GuitarTuning::CompareAll),
                  seen != 0);
        EXPECT_NE(base, changed);
        return seen;
    };
    EXPECT_EQ(optionsThatSee([](auto &t) { t.setTuning(0, 38); }), GuitarTuning::ComparePitches);
    EXPECT_EQ(optionsThatSee([](auto &t) { t.setMidiNumbers({40}); }),
              unsigned{GuitarTuning::ComparePitches} | GuitarTuning::CompareStringCount);
    EXPECT_EQ(optionsThatSee([](auto &t) { t.setName("x"); }), GuitarTuning::CompareNames);
    EXPECT_EQ(optionsThatSee([](auto &t) { t.setInstrument(GuitarTuning::Bass); }),
              GuitarTuning::CompareInstruments);
    EXPECT_EQ(optionsThatSee([](auto &t) { t.setShortDroneString(true); }),
              GuitarTuning::CompareDrones);
    EXPECT_EQ(optionsThatSee([](auto &t) { t.setRole(GuitarTuning::UserRole); }),
              GuitarTuning::CompareRoles);
    EXPECT_EQ(optionsThatSee([](auto &t) { t.setFlat(true); }), GuitarTuning::CompareFlat);
    EXPECT_EQ(optionsThatSee([](auto &t) { t.setLabel("x"); }), GuitarTuning::CompareLabel);
    EXPECT_EQ(optionsThatSee([](auto &t) { t.setLabelVisible(false); }),
              GuitarTuning::CompareLabelVisible);
    EXPECT_EQ(optionsThatSee([](auto &t) { t.setMidiOffset(1); }), 0u);
}

TEST(GuitarTuning, instrumentsAreKnownByTheirKeys)
{
    for (unsigned i = 0; i <= 10; ++i) {
        const auto instrument = static_cast<GuitarTuning::Instrument>(i);
        EXPECT_EQ(GuitarTuning::instrumentFromString(GuitarTuning::instrumentToString(instrument)),
                  instrument);
    }
    for (const auto &text : {std::string(), std::string("guitar"), std::string("Guitar\0x", 8),
                             std::string("GuitarTuning::Guitar")})
        EXPECT_EQ(GuitarTuning::instrumentFromString(text), GuitarTuning::Undefined) << text;
    EXPECT_EQ(GuitarTuning::instrumentToString(static_cast<GuitarTuning::Instrument>(11)),
              "Undefined");
    EXPECT_EQ(QMetaEnum::fromType<GuitarTuning::Role>().keyToValue("CoreRole"), 2);
    EXPECT_EQ(QMetaEnum::fromType<GuitarTuning::CompareOption>().keyToValue("CompareAll"), 511);
    EXPECT_EQ(QMetaEnum::fromType<GuitarTuning::ComparisonMode>().keyCount(), 2);
}

TEST(GuitarTuning, labelStandsInForTheNameWhereShown)
{
    GuitarTuning tuning;
    tuning.setName("Drop D");
    EXPECT_EQ(tuning.displayedLabel(), "Drop D");
    tuning.setLabel("D");
    EXPECT_EQ(tuning.displayedLabel(), "D");
    tuning.setLabelVisible(false);
    EXPECT_EQ(tuning.displayedLabel(), "");
}

void parse(GuitarTuning &tuning, const std::string &json)
{
    rapidjson::Document document;
    document.Parse(json.data(), json.size());
    ASSERT_FALSE(document.HasParseError()) << json;
    tuning.parse(document);
}

TEST(GuitarTuning, parseReadsOneObject)
{
    GuitarTuning tuning(GuitarTuning::Bass, {30, 90});
    tuning.setLabel("old");
    tuning.setLabelVisible(false);
    tuning.setRole(GuitarTuning::UserRole);
    const auto id = tuning.id();
    parse(tuning, R"({"name": "Ä \u0000", "instrument": "Banjo", "offset": 2, "shortDrone": true,
                      "midiNumbers": [5, 67, 18446744073709551615, -9223372036854775808]})");
    EXPECT_EQ(tuning.name(), std::string("Ä \0", 4));
    EXPECT_EQ(tuning.instrument(), GuitarTuning::Banjo);
    EXPECT_EQ(tuning.midiNumbers(), (std::vector<int>{12, 67, 119, 12}));
    EXPECT_EQ(tuning.lowestMidi(), 12);
    EXPECT_EQ(tuning.highestMidi(), 119);
    EXPECT_TRUE(tuning.isFlat() && tuning.hasShortDroneString() && tuning.labelVisible());
    EXPECT_EQ(tuning.storedMidiOffset(), 2);
    EXPECT_EQ(tuning.label(), "");
    EXPECT_EQ(tuning.id(), id);
    EXPECT_EQ(tuning.role(), GuitarTuning::UserRole);

    parse(tuning, R"({"name": "", "instrument": "Lute", "midiNumbers": [50], "shortDrone": 1})");
    EXPECT_EQ(tuning.instrument(), GuitarTuning::Undefined);
    EXPECT_EQ(tuning.lowestMidi(), 50) << "the range starts anew";
    EXPECT_EQ(tuning.highestMidi(), 50);
    EXPECT_FALSE(tuning.isFlat() || tuning.hasShortDroneString());
    parse(tuning, R"({"name": "", "instrument": "", "midiNumbers": [], "offset": -1})");
    EXPECT_FALSE(tuning.isFlat());
    EXPECT_EQ(tuning.highestMidi(), 12);
}

TEST(GuitarTuning, brokenObjectsAreRefusedWithTheMemberAndChangeNothing)
{
    const GuitarTuning before(GuitarTuning::Guitar, standard);
    const std::pair<const char *, const char *> cases[] = {
        {"[]", "object"},
        {"null", "object"},
        {R"({"instrument": "Bass", "midiNumbers": []})", "\"name\""},
        {R"({"name": 1, "instrument": "Bass", "midiNumbers": []})", "\"name\""},
        {R"({"name": "", "midiNumbers": []})", "\"instrument\""},
        {R"({"name": "", "instrument": "Bass"})", "\"midiNumbers\""},
        {R"({"name": "", "instrument": "Bass", "midiNumbers": {}})", "\"midiNumbers\""},
        {R"({"name": "", "instrument": "Bass", "midiNumbers": [1, 2.5]})", "index 1"},
        {R"({"name": "", "instrument": "Bass", "midiNumbers": ["1"]})", "index 0"},
        {R"({"name": "", "instrument": "Bass", "midiNumbers": [], "offset": "2"})", "\"offset\""},
        {R"({"name": "", "instrument": "Bass", "midiNumbers": [], "offset": 1e9})", "\"offset\""},
    };
    for (const auto &[json, expected] : cases) {
        auto tuning = before;
        try {
            parse(tuning, json);
            FAIL() << json;
        } catch (const CoreException &error) {
            EXPECT_NE(error.message().find(expected), std::string::npos) << error.message();
        }
        EXPECT_EQ(tuning, before);
    }
}

TEST(GuitarTuning, streamsRoundTripAndRefuseNonsense)
{
    GuitarTuning tuning(GuitarTuning::Ukulele, {67, 60, 64, 69});
    tuning.setName("high \"G\" \\ \n 2");
    tuning.setRole(GuitarTuning::UserRole);
    tuning.setMidiOffset(-4);
    tuning.setTuning(0, 100);
    tuning.setTuning(0, 67);
    tuning.setFlat(true);
    tuning.setLabelVisible(false);
    std::stringstream stream;
    stream << tuning << GuitarTuning() << std::hex << std::endl;
    GuitarTuning read;
    GuitarTuning second(4u);
    const auto id = read.id();
    EXPECT_TRUE(stream >> read >> second);
    EXPECT_EQ(read, tuning) << "the widened range too";
    EXPECT_EQ(read.id(), id);
    EXPECT_EQ(second, GuitarTuning());

    for (const auto *text :
         {"", "tuning", "tuner 1 1 0 0 1 0 40 64 \"\" \"\" 1 40",
          "tuning 11 1 0 0 1 0 40 64 \"\" \"\" 1 40", "tuning 1 3 0 0 1 0 40 64 \"\" \"\" 1 40",
          "tuning 1 1 2 0 1 0 40 64 \"\" \"\" 1 40", "tuning 1 1 0 0 1 0 40 64 \"\" \"\" 99999 40",
          "tuning 1 1 0 0 1 0 40 64 \"open"}) {
        std::istringstream broken(text);
        EXPECT_FALSE(broken >> read) << text;
        EXPECT_EQ(read, tuning);
    }
}

} // namespace
