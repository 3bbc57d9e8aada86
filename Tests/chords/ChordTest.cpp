// SPDX-License-Identifier: MIT
// What chord symbols mean, and that they come back as they were.
#include <ZarnCore/chords/ZarnChord.h>

#include <gtest/gtest.h>

#include <set>
#include <string>

using zarn::PitchClass;
using zarn::ToneSet;
using zarn::chord::Chord;
using zarn::chord::ChordKind;
using zarn::chord::Degree;
using zarn::chord::DegreeList;

namespace {

PitchClass pitch(const std::string &text)
{
    return PitchClass::fromString(QString::fromStdString(text));
}

std::vector<PitchClass> allSpellings()
{
    std::vector<PitchClass> all;
    for (const char letter : std::string("CDEFGAB"))
        for (const char *accidental : {"bb", "b", "", "#", "##"})
            all.push_back(pitch(letter + std::string(accidental)));
    return all;
}

/// The tones from the root, "C E G"; "?" for what is no chord.
std::string tones(const std::string &symbol)
{
    const auto chord = Chord::fromText(symbol);
    if (!chord)
        return "?";
    std::string text;
    for (const auto &tone : chord->tones())
        text += (text.empty() ? "" : " ") + tone.pitch.toString().toStdString();
    return text;
}

/// The symbol in the library's own writing.
std::string rewritten(const std::string &symbol)
{
    const auto chord = Chord::fromText(symbol);
    return chord ? chord->toText() : "?";
}

} // namespace

TEST(Chord, tableHasAKindOnceAndReadsEachOfItsTexts)
{
    EXPECT_GE(ChordKind::all().size(), 106u);
    std::set<std::string> texts;
    for (const ChordKind &kind : ChordKind::all()) {
        const std::string text(kind.text());
        EXPECT_TRUE(texts.insert(text).second) << text;
        EXPECT_EQ(ChordKind::fromText(text), &kind) << text;
        for (const auto alias : kind.aliases())
            EXPECT_EQ(ChordKind::fromText(alias), &kind) << text << " as " << alias;
        if (kind.isRecognised()) {
            EXPECT_EQ(ChordKind::fromDegrees(kind.degrees()), &kind) << text;
        }
    }
}

TEST(Chord, everyTextOfTheTableComesBackOverEveryRootAndBass)
{
    const auto spellings = allSpellings();
    for (const ChordKind &kind : ChordKind::all())
        for (const PitchClass &root : spellings)
            for (const PitchClass &bass : spellings) {
                Chord chord(root, kind);
                ASSERT_EQ(Chord::fromText(chord.toText()), chord) << chord.toText();
                chord.setBass(bass);
                ASSERT_EQ(Chord::fromText(chord.toText()), chord) << chord.toText();
                ASSERT_EQ(Chord::fromText(chord.toDisplayText()), chord) << chord.toDisplayText();
            }
}

TEST(Chord, tonesAreSpelledByTheirDegrees)
{
    EXPECT_EQ(tones("C"), "C E G");
    EXPECT_EQ(tones("F#m7b5/E"), "F# A C E");
    EXPECT_EQ(tones("Cdim7"), "C Eb Gb Bbb");
    EXPECT_EQ(tones("G#maj7"), "G# B# D# F##");
    EXPECT_EQ(tones("Fbm"), "Fb Abb Cb");
    EXPECT_EQ(tones("Db13"), "Db F Ab Cb Eb Gb Bb");
    EXPECT_EQ(tones("E7#9"), "E G# B D F##");
    EXPECT_EQ(tones("N.C."), "");
    // Past the double accidentals the letter moves on, and the pitch is right.
    for (const PitchClass &root : allSpellings())
        for (const ChordKind &kind : ChordKind::all())
            for (const auto &tone : Chord(root, kind).tones())
                ASSERT_EQ(tone.pitch.tone(), root.tone() + tone.degree.semitones());
}

TEST(Chord, writingsOfOneChordAreRead)
{
    const std::pair<std::string, std::vector<std::string>> sames[] = {
        {"Cmaj7", {"CM7", "CΔ", "C△7", "Cma7", "CMAJ7", "C major7", "Cj7", "C^7", "C∆⁷"}},
        {"Cm7", {"C-7", "Cmin7", "Cmi7", "C−7", "Cm⁷"}},
        {"Bm7b5", {"Bø", "Bø7", "BØ", "B-7b5", "Bm7(b5)", "Bm7-5", "Bmin7♭5", "Bh7"}},
        {"Cdim7", {"C°7", "Co7", "Cº7"}},
        {"Caug", {"C+", "C(#5)", "Cmaj(#5)", "C+5"}},
        {"C7#5", {"C+7", "C7+", "Caug7", "C7+5", "C7(♯5)"}},
        {"Cm(maj7)", {"CmM7", "Cm/maj7", "C-Δ7", "Cmmaj7", "Cm(M7)"}},
        {"C7b9", {"C7-9", "C7(b9)", "C7 b9", "C7addb9", "C7/b9"}},
        {"C9", {"C7/9", "C7(9)", "C7add9", "Cdom9"}},
        {"Cadd9", {"C/9", "C(9)", "C2", "Cadd2", "C(add9)"}},
        {"C6/9", {"C69", "C6(9)", "C6add9", "Cmaj6/9"}},
        {"C7", {"C dominant 7", "Cdom7"}},
        {"Cm7b5", {"C half diminished", "C half-diminished 7", "Chalfdim7"}},
        {"C7#5", {"Caugmented7"}},
        {"C7#9#5", {"C7alt", "Calt", "C7#5#9", "C7(#5,#9)", "C7(#5#9)"}},
        {"Csus4", {"Csus", "C(sus4)", "CSUS4"}},
        {"C9sus4", {"C9sus", "C11(no3)", "Csus9"}},
        {"C5", {"C(no3)", "Cno3", "C(omit3)", "C (no 3rd)"}},
        {"Cb5", {"C♭5"}},
        {"C(b5)", {"C (b5)", "CM(b5)"}},
        {"Bb7", {"B♭7"}},
        {"C6/9/E", {"C69/E"}},
        {"C7(no3,no5)", {"C7(no5,no3)", "C7 no3 no5"}},
        {"C13(add#9)", {"C13 add#9", "C13add♯9"}},
        {"Fm9/Eb", {"Fm9 / Eb", "F-9/E♭", "Fm9/eb", "Fm9/Es"}},
        // What is suspended has been written in many ways.
        {"Csus4", {"C4", "C(4)", "Csus(4)", "Csus."}},
        {"C7sus4", {"C7(sus4)", "Csus4/7", "Csus4(7)", "C4/7", "C7/4", "C7(4)", "Cm7sus4"}},
        {"Csus4add9", {"Csus2/4", "Csus4/2", "Csus2,4", "Csus24", "Csus2sus4", "Csus4/9"}},
        {"C9sus4", {"C7sus2/4", "C7sus2sus4", "C9/4", "C7sus4/9"}},
        {"C13sus4", {"Csus13", "C13(sus)", "C9sus4(13)"}},
        // Signs behind their numbers
        {"C7b9", {"C7/9-", "C7(9-)", "C7(9b)"}},
        {"C7#9", {"C7/9+", "C7(9+)", "C7b10", "C7/+9"}},
        {"Cm7b5", {"Cm7(5-)", "Cm7/5b", "Cm5-/7", "C half dim 7"}},
        {"Caug", {"C5+", "Caug."}},
        {"C9#5", {"C9+"}},
        // Major sevenths
        {"Cmaj7", {"C7M", "C(maj7)", "C(#7)", "Cmaj.7", "C7Maj"}},
        {"Cmaj7/G", {"C7M/G", "CΔ/G"}},
        {"Cmaj9", {"C7M(9)", "C7M/9", "CΔ9", "CΔ(9)"}},
        {"Cmaj7#11", {"CΔ#11", "C7M(#11)", "CΔ7(#11)"}},
        {"Cmaj7#5", {"CΔ#5", "CΔ+", "C+Δ", "C7M(5+)"}},
        {"Cmaj7sus4", {"CΔsus", "CΔsus4"}},
        {"Cm(maj7)", {"C-Δ", "Cm7M", "Cm#7", "Cm(#7)", "CmMaj7", "Cm(7M)"}},
        {"Cm(maj9)", {"Cm9(maj7)", "C-Δ9"}},
        {"Cdim(maj7)", {"C°Δ", "C°M7", "C°7M"}},
        // German names
        {"B7", {"H7"}},
        {"F#m7/B", {"Fism7/H", "Fism7/h", "F#m7/h"}},
        {"Eb7/Db", {"Es7/Des"}},
        {"Absus4/Eb", {"Assus4/Es"}},
        {"Asus4", {}},
        {"D/F#", {"D/fis", "D/f#"}},
    };
    for (const auto &[own, others] : sames) {
        EXPECT_EQ(rewritten(own), own);
        for (const std::string &other : others)
            EXPECT_EQ(rewritten(other), own) << other;
    }
}

TEST(Chord, whatIsNoSymbolIsNoChord)
{
    for (const char *text : {"",
                             " ",
                             "c",
                             "am",
                             "Cx",
                             "C7b",
                             "Cfoo",
                             "C/",
                             "/E",
                             "C//E",
                             "C/D/E",
                             "C8",
                             "C79",
                             "C(9",
                             "C9)",
                             "C7(b9",
                             "C)(",
                             "C add7",
                             "C7/5",
                             "Cno9",
                             "C5sus4",
                             "Csus3",
                             "C♬",
                             "C7bbbbb5",
                             "C\xff",
                             "Coda",
                             "Dim",
                             "E.",
                             "Cmaj7maj7",
                             "C#b",
                             "Bass",
                             "Dal Segno",
                             "Add",
                             "C7b15",
                             "Fine",
                             "D.C.",
                             "C100000000000",
                             "C-5",
                             "Hb",
                             "Cisis7",
                             "C/b",
                             "C/add9/b",
                             "Fiss",
                             "Desk",
                             "tacet",
                             "%",
                             "Hz",
                             "C9+-"})
        EXPECT_FALSE(Chord::fromText(text)) << text << " is read as " << rewritten(text);
    for (const char *text : {"N.C.", "NC", "n.c.", "No chord"})
        EXPECT_EQ(Chord::fromText(text), Chord()) << text;
    EXPECT_TRUE(Chord().isNone());
    EXPECT_EQ(Chord().toText(), "N.C.");
    EXPECT_TRUE(Chord(PitchClass(), *ChordKind::fromText("7")).isNone());
}

TEST(Chord, changesAreSaidInTheFewestWords)
{
    const auto of = [](const char *degrees) {
        return Chord::fromDegrees(pitch("C"), DegreeList::fromText(degrees)).toText();
    };
    EXPECT_EQ(of("1 3 5 b7 b9"), "C7b9");
    EXPECT_EQ(of("1 2 3 5"), "Cadd9");
    EXPECT_EQ(of("1 3 5 13"), "C6");
    EXPECT_EQ(of("1 5 11"), "Csus4");
    EXPECT_EQ(of("1 3 b7"), "C7(no5)");
    EXPECT_EQ(of("1"), "C1");
    // Any degrees at all are written as something that reads back to the same tones.
    for (unsigned bits = 0; bits < 2048; ++bits) {
        DegreeList degrees = DegreeList::fromText("1");
        const char *const others[] = {"b2", "2", "b3", "3", "4", "#4", "5", "#5", "6", "b7", "7"};
        for (unsigned i = 0; i < 11; ++i)
            if ((bits >> i & 1) != 0)
                degrees.insert(DegreeList::fromText(others[i])[0]);
        const Chord chord = Chord::fromDegrees(pitch("Eb"), degrees);
        ASSERT_EQ(chord.toneSet(), degrees.tones(zarn::Tone(3)));
        ASSERT_EQ(Chord::fromText(chord.toText()), chord) << chord.toText();
    }
}

TEST(Chord, bassesAreInsideOrOutsideOfTheChord)
{
    const auto slash = Chord::fromText("C/D");
    ASSERT_TRUE(slash);
    EXPECT_EQ(slash->toneSet(), ToneSet(0b10010001));
    EXPECT_EQ(slash->toneSetWithBass(), ToneSet(0b10010101));
    EXPECT_EQ(Chord::fromText("C/C")->toText(), "C/C");
    EXPECT_EQ(Chord::fromText("C7/B#")->bass(), pitch("B#"));
    Chord inversion(pitch("Ab"));
    inversion.setInversion(2);
    EXPECT_EQ(inversion.bass(), pitch("Eb"));
    EXPECT_EQ(inversion.toText(), "Ab/Eb");
    inversion.setInversion(9);
    EXPECT_EQ(inversion.bass(), pitch("Ab"));
    const auto up = Chord::fromText("Am7/G")->transposed(
        zarn::Interval(zarn::Interval::Value::Third, zarn::Interval::Alteration::Minor));
    EXPECT_EQ(up.toText(), "Cm7/Bb");
}

TEST(Chord, omissibleTonesAreFifthsRootsNinthsAndEleventhsOfManyTones)
{
    const auto omissible = [](const char *symbol) {
        std::string text;
        for (const auto &tone : Chord::fromText(symbol)->tones())
            text += tone.isOmissible ? tone.degree.toText() + " " : "";
        return text;
    };
    EXPECT_EQ(omissible("C"), "");
    EXPECT_EQ(omissible("C7"), "5 ");
    EXPECT_EQ(omissible("C7b5"), "");
    EXPECT_EQ(omissible("C9"), "1 5 ");
    EXPECT_EQ(omissible("Cm11"), "1 5 9 ");
    EXPECT_EQ(omissible("C13"), "1 5 9 11 ");
    EXPECT_EQ(omissible("C13b9"), "1 5 11 ");
}
