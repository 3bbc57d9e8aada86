// SPDX-License-Identifier: MIT
// Which chords tones are.
#include <ZarnCore/chords/ZarnChordRecognizer.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <set>
#include <string>
#include <vector>

using zarn::KeySignature;
using zarn::Tone;
using zarn::ToneSet;
using zarn::chord::Chord;
using zarn::chord::ChordKind;
using zarn::chord::ChordName;
using zarn::chord::ChordRecognizer;
using zarn::chord::KeySpelling;

namespace {

std::vector<std::string> names(const std::vector<int> &pitches, const char *key = "C")
{
    std::vector<std::string> texts;
    for (const ChordName &name : ChordRecognizer(*KeySpelling::keyFromText(key)).names(pitches))
        texts.push_back(name.chord.toText());
    return texts;
}

std::string first(const std::vector<int> &pitches, const char *key = "C")
{
    const auto all = names(pitches, key);
    return all.empty() ? "" : all.front();
}

bool has(const std::vector<std::string> &all, const std::string &text)
{
    return std::find(all.begin(), all.end(), text) != all.end();
}

/// What songs are made of.
constexpr const char *everydayKinds[] = {
    "",      "m",       "7",    "m7",  "maj7", "6",     "m6", "dim", "aug",  "dim7",
    "m7b5",  "sus4",    "sus2", "5",   "add9", "madd9", "9",  "m9",  "maj9", "6/9",
    "7sus4", "m(maj7)", "7b9",  "7#9", "7#5",  "7b5",   "13", "m11"};

/// Thirteenth chords are played without their eleventh.
bool isLeftOut(const ChordKind &kind, zarn::chord::Degree degree)
{
    return degree.number == 11 && kind.degrees().find(13) != nullptr;
}

/// Each tone once, within an octave over the bass.
std::vector<int> closeVoicing(const ChordKind &kind, int root, zarn::chord::Degree bass)
{
    const int lowest = 48 + Tone(root + bass.semitones()).value();
    std::vector<int> pitches;
    for (const auto degree : kind.degrees())
        if (!isLeftOut(kind, degree))
            pitches.push_back(lowest + Tone(root + degree.semitones() - lowest).value());
    return pitches;
}

} // namespace

TEST(ChordRecognizer, everyNameOfEverySetOverEveryBassSaysWhatWentIn)
{
    for (const char *key : {"C", "F#", "Gb", "c", "a#", "eb"}) {
        const ChordRecognizer recognizer(*KeySpelling::keyFromText(key));
        for (unsigned bits = 1; bits < ToneSet::possibleSets; ++bits)
            for (int bass = 0; bass < 12; ++bass) {
                const ToneSet tones(bits);
                const auto all = recognizer.names(tones, Tone(bass));
                if (!tones.contains(Tone(bass))) {
                    ASSERT_TRUE(all.empty());
                    continue;
                }
                std::set<std::string> texts;
                for (const ChordName &name : all) {
                    const std::string text = name.chord.toText();
                    ASSERT_TRUE(texts.insert(text).second) << text << " is there twice";
                    const auto read = Chord::fromText(text);
                    ASSERT_TRUE(read) << text;
                    ToneSet said = read->toneSetWithBass();
                    for (const auto degree : name.unheard)
                        said.remove(read->root().tone() + degree.semitones());
                    ASSERT_EQ(said, tones) << text;
                    ASSERT_EQ(read->bass().tone(), Tone(bass)) << text;
                }
                ASSERT_TRUE(std::is_sorted(all.begin(), all.end(),
                                           [](const ChordName &left, const ChordName &right) {
                                               return left.cost < right.cost;
                                           }));
            }
    }
}

TEST(ChordRecognizer, everydayChordsAreFirstInRootPositionAndKeepTheirRootOrHaveATwin)
{
    const ChordRecognizer recognizer;
    int inversions = 0;
    int own = 0;
    for (const char *text : everydayKinds) {
        const ChordKind &kind = *ChordKind::fromText(text);
        for (int root = 0; root < 12; ++root) {
            for (const auto bass : kind.degrees()) {
                if (isLeftOut(kind, bass))
                    continue;
                const auto pitches = closeVoicing(kind, root, bass);
                const auto all = recognizer.names(pitches);
                ASSERT_FALSE(all.empty());
                const Chord &best = all.front().chord;
                if (bass.number == 1) {
                    EXPECT_EQ(best.toText(), Chord(best.root(), kind).toText());
                    EXPECT_EQ(best.root().tone(), Tone(root));
                    continue;
                }
                ++inversions;
                own += int(best.root().tone() == Tone(root));
                // The own name is there, whatever comes before it.
                const auto found = std::find_if(all.begin(), all.end(), [&](const ChordName &name) {
                    return name.chord.root().tone() == Tone(root);
                });
                EXPECT_NE(found, all.end()) << text << " over " << bass.toText();
            }
        }
    }
    // Of the rest, most are another chord in root position: C6 over A is Am7.
    EXPECT_GE(own * 100, inversions * 75);
}

TEST(ChordRecognizer, namesAreThoseThatPlayersUse)
{
    EXPECT_EQ(first({52, 55, 60}), "C/E");
    EXPECT_EQ(first({57, 60, 64, 67}), "Am7");
    EXPECT_EQ(first({60, 64, 67, 69}), "C6");
    EXPECT_TRUE(has(names({60, 64, 67, 69}), "Am7/C"));
    EXPECT_EQ(first({50, 60, 64, 67}), "C/D");
    EXPECT_EQ(first({58, 60, 64, 67}), "C/Bb");
    EXPECT_TRUE(has(names({58, 60, 64, 67}), "C7/Bb"));
    EXPECT_EQ(first({60, 64, 70}), "C7");
    EXPECT_EQ(first({60, 64, 70, 74, 81}), "C13");
    EXPECT_EQ(first({60, 64, 71}), "Cmaj7");
    EXPECT_EQ(first({60, 67}), "C5");
    EXPECT_EQ(first({60, 64}), "C(no5)");
    EXPECT_EQ(first({60, 70}), "C7(no3,no5)");
    EXPECT_EQ(first({40, 47, 52, 56, 59, 64}), "E");
    // The order of the notes and their octaves do not count, but for the lowest.
    EXPECT_EQ(names({88, 48, 67, 60, 67}), names({48, 67, 88}));
}

TEST(ChordRecognizer, placesOfTonesTellWhatASetDoesNot)
{
    EXPECT_EQ(first({48, 53, 58, 63}), "Cm11");
    EXPECT_EQ(first({48, 53, 63, 70}), "F7sus4/C");
    EXPECT_EQ(first({55, 58, 60, 65}), "C7sus4/G");
    // The tones of a major thirteenth within an octave are a minor chord over its third.
    EXPECT_EQ(first({51, 53, 55, 58, 60, 62}), "Cm11/Eb");
    EXPECT_EQ(first({51, 55, 60, 62}), "Cmadd9/Eb");
    EXPECT_EQ(first({51, 55, 60, 65, 70, 74}), "Ebmaj13");
    EXPECT_EQ(first({51, 60, 62, 67}), "Ebmaj13");
}

TEST(ChordRecognizer, keysDecideTheSpelling)
{
    EXPECT_EQ(first({66, 70, 73}, "F#"), "F#");
    EXPECT_EQ(first({66, 70, 73}, "Gb"), "Gb");
    EXPECT_EQ(first({63, 67, 70}, "D"), "Eb");
    EXPECT_EQ(first({68, 71, 74, 77}, "a"), "G#dim7");
    EXPECT_EQ(first({61, 64, 67, 70}, "d"), "C#dim7");
    EXPECT_EQ(first({61, 65, 68}, "C"), "Db");
    EXPECT_EQ(first({63, 67, 70, 73}, "E"), "D#7");
    EXPECT_EQ(first({59, 63, 66}, "Gb"), "Cb");
    EXPECT_EQ(first({65, 68, 71}, "F#"), "E#dim");
    // A bass is plain, whatever the chord makes of it.
    EXPECT_TRUE(has(names({59, 62, 65, 68}, "c"), "Ddim7/B"));
    EXPECT_EQ(first({56, 62, 65, 71, 77}, "a"), "G#dim7");
}

TEST(ChordRecognizer, keysAreReadFromTheirTonics)
{
    const auto count = [](const char *text) {
        return KeySpelling::keyFromText(text)->accidentalCount();
    };
    EXPECT_EQ(count("Bb"), -2);
    EXPECT_EQ(count("f#"), 3);
    EXPECT_EQ(count("F#m"), 3);
    EXPECT_EQ(count("B♭ minor"), -5);
    EXPECT_EQ(count("b"), 2);
    EXPECT_FALSE(KeySpelling::keyFromText("b")->isMajor());
    EXPECT_TRUE(KeySpelling::keyFromText("D major")->isMajor());
    for (const char *text : {"", "H", "C7", "d major", "minor", "C#x", "4"})
        EXPECT_FALSE(KeySpelling::keyFromText(text)) << text;
}

TEST(ChordRecognizer, whatIsNoChordHasNoName)
{
    EXPECT_TRUE(names({}).empty());
    EXPECT_TRUE(names({60}).empty());
    EXPECT_TRUE(names({48, 60, 72}).empty());
    EXPECT_TRUE(names({60, 61, 62, 63, 64, 65, 66, 67, 68, 69, 70, 71}).empty());
}

TEST(ChordRecognizer, reasonsAddUpToTheCost)
{
    const ChordRecognizer recognizer;
    for (const std::vector<int> &pitches : {std::vector<int>{52, 55, 60},
                                            {57, 60, 64, 67},
                                            {50, 60, 64, 67},
                                            {60, 64},
                                            {48, 53, 58},
                                            {48, 53, 63, 70},
                                            {51, 55, 60, 62},
                                            {60, 71},
                                            {55, 60, 65, 69, 76, 83},
                                            {60, 62, 64, 66, 70},
                                            {52, 58, 62, 69}})
        for (const ChordName &name : recognizer.names(pitches)) {
            const auto reasons = name.reasons();
            EXPECT_EQ(
                std::accumulate(reasons.begin(), reasons.end(), 0,
                                [](int sum, const auto &reason) { return sum + reason.cost; }),
                name.cost)
                << name.chord.toText();
        }
}
