// SPDX-License-Identifier: MIT
// Shapes that need no search, and what may happen to the file of the user's own.
#include <ZarnCore/chords/ZarnFingeringLibrary.h>

#include "support/CapturedLog.h"
#include "support/FileSizeLimit.h"
#include "support/UserFileTest.h"

#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace zarn;
using namespace zarn::chord;
using zarn::test::CapturedLog;
using zarn::test::FileSizeLimit;

const GuitarTuning guitar(GuitarTuning::Guitar, {40, 45, 50, 55, 59, 64});
const GuitarTuning ukulele(GuitarTuning::Ukulele, {67, 60, 64, 69});

Chord chordOf(const std::string &text)
{
    return Chord::fromText(text).value_or(Chord());
}

ChordDiagram diagram(const std::string &name, std::vector<std::int8_t> frets)
{
    ChordDiagram made;
    made.name = name;
    made.frets = std::move(frets);
    return made;
}

std::string fretsText(const ChordDiagram &diagram)
{
    std::string text;
    for (const int fret : diagram.frets)
        text += fret < 0 ? "x" : std::to_string(fret);
    return text;
}

std::string first(const std::vector<ChordDiagram> &diagrams)
{
    return diagrams.empty() ? "none" : fretsText(diagrams.front());
}

class UserShapes : public zarn::test::UserFileTest<&FingeringLibrary::userShapesPath> {
protected:
    /// Names of the shapes that the file has now.
    static std::multiset<std::string> stored()
    {
        FingeringLibrary library;
        library.loadUserShapes();
        std::multiset<std::string> names;
        for (const UserShape &shape : library.userShapes())
            names.insert(shape.diagram.name);
        return names;
    }

    FingeringLibrary library;
};

TEST_F(UserShapes, builtInShapesAreChordsOfTheirNamesThatAHandHolds)
{
    // Every root on every instrument: what is offered sounds as the chord that was asked for.
    const GuitarTuning mandolin(GuitarTuning::Mandolin, {55, 62, 69, 76});
    GuitarTuning banjo(GuitarTuning::Banjo, {67, 50, 55, 59, 62});
    banjo.setShortDroneString(true);
    int count = 0;
    for (const GuitarTuning *tuning :
         std::initializer_list<const GuitarTuning *>{&guitar, &ukulele, &mandolin, &banjo}) {
        const Fretboard fretboard(*tuning);
        const HandModel hand(handFor(*tuning));
        for (const ChordKind &kind : ChordKind::all()) {
            for (int root = 0; root < 12; ++root) {
                const Chord chord(PitchClass::fromPitch(root, true), kind);
                const auto tones = ChordTones::of(chord);
                for (const ChordDiagram &shape : library.shapes(chord, *tuning)) {
                    ++count;
                    ToneSet heard;
                    FretRow frets(shape.frets.size());
                    FingerRow fingers{};
                    for (std::size_t string = 0; string < shape.frets.size(); ++string) {
                        const int fret = shape.frets[string];
                        const auto &course = fretboard.courses()[string];
                        frets.set(string, fret);
                        fingers[string] = shape.fingers[string];
                        if (fret >= 0)
                            heard.insert(Tone(course.openPitch + fret));
                    }
                    const auto text = shape.name + " " + fretsText(shape);
                    EXPECT_TRUE(tones.tones.contains(heard)) << text;
                    EXPECT_TRUE(heard.contains(tones.tones - tones.omissible)) << text;
                    EXPECT_TRUE(hand.bestShape(frets, 0, fingers).has_value()) << text;
                }
            }
        }
    }
    EXPECT_GT(count, 130);
}

TEST_F(UserShapes, shapesGoWithTheIntervalsOfTheStrings)
{
    EXPECT_EQ(first(library.shapes(chordOf("C"), guitar)), "x32010");
    EXPECT_EQ(first(library.shapes(chordOf("C/E"), guitar)), "032010");
    const GuitarTuning halfDown(GuitarTuning::Guitar, {39, 44, 49, 54, 58, 63});
    EXPECT_EQ(first(library.shapes(chordOf("B"), halfDown)), "x32010");
    EXPECT_EQ(first(library.shapes(chordOf("D"), guitar, {2, 0, {}})), "x32010");
    const GuitarTuning dropD(GuitarTuning::Guitar, {38, 45, 50, 55, 59, 64});
    EXPECT_TRUE(library.shapes(chordOf("C"), dropD).empty());
    const GuitarTuning twelve(GuitarTuning::Guitar,
                              {40, 52, 45, 57, 50, 62, 55, 67, 59, 59, 64, 64});
    EXPECT_EQ(first(library.shapes(chordOf("C"), twelve)), "xx3322001100");
    EXPECT_TRUE(library.shapes(Chord(), guitar).empty()) << "no chord, no shape";
}

TEST_F(UserShapes, comeFirstAndAreNotOfferedTwice)
{
    const auto before = library.voicings(chordOf("Am"), guitar);
    ASSERT_TRUE(library.addUserShape(guitar, diagram("Am", {-1, 0, 7, 5, 5, 5})));
    EXPECT_FALSE(library.addUserShape(guitar, diagram("Am", {-1, 0, 7, 5, 5, 5}))) << "is there";
    EXPECT_FALSE(library.addUserShape(guitar, diagram("Am", {0, 1}))) << "two strings";
    const auto after = library.voicings(chordOf("Am"), guitar);
    EXPECT_EQ(first(after), "x07555");
    EXPECT_EQ(after.size(), before.size());
    EXPECT_EQ(first(library.voicings(chordOf("C"), guitar)), "x32010");
    EXPECT_EQ(first(library.shapes(chordOf("Am"), ukulele)), "2000") << "of another tuning";
    EXPECT_EQ(first(library.shapes(chordOf("Bbm"), guitar, {1, 0, {}})), "x07555") << "by a capo";

    FingeringLibrary other;
    other.loadUserShapes();
    EXPECT_EQ(first(other.shapes(chordOf("Am"), guitar)), "x07555");
    EXPECT_TRUE(library.removeUserShape(guitar, diagram("Am", {-1, 0, 7, 5, 5, 5})));
    EXPECT_FALSE(library.removeUserShape(guitar, diagram("Am", {-1, 0, 7, 5, 5, 5})));
    EXPECT_TRUE(stored().empty());
    EXPECT_EQ(files(), "json");
}

TEST_F(UserShapes, shapesThatAreLearnedForOneRootComeEarlyForAll)
{
    const FingeringLibrary library;
    for (const auto &[name, frets] :
         {std::pair("D9", "x54555"), std::pair("F#7#9", "x98910x"), std::pair("Ab", "466544"),
          std::pair("D#m7b5", "x6767x"), std::pair("C5", "x355xx")}) {
        std::vector<std::string> first;
        for (const ChordDiagram &voicing : library.voicings(chordOf(name), guitar))
            if (first.size() < 5)
                first.push_back(fretsText(voicing));
        EXPECT_EQ(std::count(first.begin(), first.end(), frets), 1) << name;
    }
}

TEST_F(UserShapes, whatIsNoListOfShapesIsKeptBesideAndTold)
{
    const auto good = QByteArray("{\"name\":\"C\",\"strings\":[40,45],\"frets\":[-1,3]}");
    const std::vector<std::pair<QByteArray, const char *>> texts = {
        {"no JSON", "is not read: "},
        {"[]", "is not read: "},
        {"{\"version\":2,\"shapes\":[" + good + "]}", "has the version 2"},
        {"{\"version\":1,\"shapes\":" + QByteArray("[").repeated(100000), "is not read: "},
        {"{\"version\":1,\"shapes\":[" + good + ",{\"name\":\"D\"}]}", "shapes[1]"},
        {"{\"version\":1,\"shapes\":[{\"name\":\"D\",\"strings\":[40],\"frets\":[1,2]}," + good
             + "]}",
         "shapes[0]: frets and fingers do not fit the strings"},
        {"{\"version\":1,\"shapes\":[{\"name\":\"D\",\"strings\":[40],\"frets\":[4000]}," + good
             + "]}",
         "shapes[0].frets[0]: 4000 is out of range"},
    };
    for (const auto &[text, reason] : texts) {
        QFile::remove(QFileInfo(path()).path() + QStringLiteral("/userChordShapes.kept.json"));
        write(text);
        FingeringLibrary damaged;
        const CapturedLog log;
        damaged.loadUserShapes();
        EXPECT_TRUE(log.hasWarning("zarn.core", {path().toStdString(), reason})) << reason;
        EXPECT_TRUE(read() == text) << "loading writes nothing";
        const bool isList = damaged.userShapes().size() == 1;
        EXPECT_EQ(isList, std::string(reason).find("shapes[") == 0) << reason;
        ASSERT_TRUE(damaged.addUserShape(ukulele, diagram("F", {2, 0, 1, 0})));
        EXPECT_TRUE(kept() == text);
        EXPECT_EQ(stored().size(), isList ? 2U : 1U);
    }
}

TEST_F(UserShapes, twoProgramsThatSaveAtTheSameTimeLoseNothing)
{
    constexpr int count = 20;
    std::vector<pid_t> children;
    for (const char *program : {"a", "b"}) {
        children.push_back(fork());
        ASSERT_GE(children.back(), 0);
        if (children.back() != 0)
            continue;
        FingeringLibrary own;
        own.loadUserShapes();
        for (int i = 0; i < count; ++i)
            own.addUserShape(ukulele, diagram(program + std::to_string(i), {2, 0, 1, 0}));
        _exit(0);
    }
    for (const pid_t child : children)
        waitpid(child, nullptr, 0);
    const auto all = stored();
    EXPECT_EQ(all.size(), std::size_t{2 * count});
    EXPECT_EQ(std::set<std::string>(all.begin(), all.end()).size(), std::size_t{2 * count});
    EXPECT_EQ(files(), "json");
}

TEST_F(UserShapes, aFullDiskLeavesEveryShapeThatWasThere)
{
    library.addUserShape(guitar, diagram(std::string(9000, 'C'), {-1, 3, 2, 0, 1, 0}));
    const auto before = read();
    {
        const FileSizeLimit limit(4096);
        const CapturedLog log;
        library.addUserShape(ukulele, diagram("F", {2, 0, 1, 0}));
        EXPECT_TRUE(log.hasWarning("zarn.core", {path().toStdString(), " is not saved: "}));
    }
    EXPECT_EQ(read(), before);
    library.saveUserShapes();
    EXPECT_EQ(stored().size(), 2U);
    EXPECT_EQ(files(), "json");
}

TEST_F(UserShapes, namesThatAreNoSoundTextAreReadBack)
{
    library.addUserShape(ukulele, diagram("\xff\x01\"\\F\n", {2, 0, 1, 0}));
    EXPECT_EQ(stored(), std::multiset<std::string>{"\xEF\xBF\xBD\x01\"\\F\n"});
    EXPECT_EQ(files(), "json");
}

} // namespace
