// SPDX-License-Identifier: MIT
// Scales, their chords and places on the neck, and which scale notes belong to.
#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>
#include <ZarnCore/scales/ZarnScalePositions.h>
#include <ZarnCore/scales/ZarnScaleRecognizer.h>

#include <gtest/gtest.h>

#include <set>
#include <string>

using zarn::GuitarTuning;
using zarn::KeySignature;
using zarn::PitchClass;
using zarn::Tone;
using zarn::scale::HeardTones;
using zarn::scale::Scale;
using zarn::scale::ScaleKind;
using zarn::scale::ScalePosition;
using zarn::scale::ScaleRecognizer;

namespace {

std::string joined(const std::vector<std::string> &words)
{
    std::string text;
    for (const std::string &word : words)
        text += (text.empty() ? "" : " ") + word;
    return text;
}

std::string tones(const char *name)
{
    std::vector<std::string> words;
    for (const PitchClass &tone : Scale::fromText(name)->tones())
        words.push_back(tone.toString().toStdString());
    return joined(words);
}

std::string chords(const char *name, int size)
{
    std::vector<std::string> words;
    for (const auto &chord : Scale::fromText(name)->chords(size))
        words.push_back(chord.toText());
    return joined(words);
}

std::string firstName(const HeardTones &heard, const KeySignature &key = KeySignature())
{
    const auto names = ScaleRecognizer(key).names(heard);
    return names.empty() ? "" : names.front().scale.toText();
}

} // namespace

TEST(Scale, namesAreUniqueAndReadBack)
{
    EXPECT_GE(ScaleKind::all().size(), 92u);
    std::set<std::string> names;
    for (const ScaleKind &kind : ScaleKind::all()) {
        EXPECT_TRUE(names.insert(std::string(kind.name())).second) << kind.name();
        EXPECT_EQ(ScaleKind::fromName(kind.name()), &kind);
        for (const auto alias : kind.aliases()) {
            EXPECT_TRUE(names.insert(std::string(alias)).second) << alias;
            EXPECT_EQ(ScaleKind::fromName(alias), &kind) << alias;
        }
        const Scale scale(PitchClass::fromTone(Tone(6), true), kind);
        EXPECT_EQ(Scale::fromText(scale.toText()), scale);
    }
    EXPECT_EQ(Scale::fromText("f# Harmonic  MINOR")->toText(), "F# harmonic minor");
    EXPECT_EQ(Scale::fromText("B♭")->toText(), "Bb major");
    EXPECT_EQ(Scale::fromText("b aeolian")->toText(), "B minor");
    EXPECT_EQ(Scale::fromText("C dorian ♭2")->toText(), "C dorian b2");
    // As people type them; where two scales share the words, their order counts.
    const std::pair<const char *, const char *> typed[] = {
        {"d minor harmonic", "D harmonic minor"},
        {"B flat dorian mode", "Bb dorian"},
        {"f sharp", "F# major"},
        {"Am", "A minor"},
        {"Am pentatonic", "A minor pentatonic"},
        {"C# maj. pentatonic", "C# major pentatonic"},
        {"E phrygian-dominant scale", "E phrygian dominant"},
        {"C half whole diminished", "C half-whole diminished"},
        {"G mode #2 messiaen's", "G half-whole diminished"},
        {"C bebop minor", "C bebop minor"},
        {"C minor bebop", "C minor bebop"},
        {"H major", "B major"}, // as it is called in German
    };
    for (const auto &[text, name] : typed)
        EXPECT_EQ(Scale::fromText(text).value_or(*Scale::fromText("C")).toText(), name) << text;
    for (const char *text :
         {"", " ", "dorian", "Am dorian", "C/E major", "C7 major", "C foo", "Cmaj7"})
        EXPECT_FALSE(Scale::fromText(text)) << text;
}

TEST(Scale, sevenTonesHaveSevenLetters)
{
    EXPECT_EQ(tones("Eb dorian"), "Eb F Gb Ab Bb C Db");
    EXPECT_EQ(tones("C altered"), "C Db Eb Fb Gb Ab Bb");
    EXPECT_EQ(tones("C enigmatic"), "C Db E F# G# A# B");
    EXPECT_EQ(tones("A blues"), "A C D Eb E G");
    for (const ScaleKind &kind : ScaleKind::all()) {
        if (kind.degrees().size() != 7)
            continue;
        for (int tonic = 0; tonic < 12; ++tonic) {
            const Scale scale = Scale::onTone(Tone(tonic), kind, true);
            std::set<int> letters;
            for (const PitchClass &tone : scale.tones())
                letters.insert(static_cast<int>(tone.note().value()));
            EXPECT_EQ(letters.size(), 7u) << scale.toText();
        }
    }
}

TEST(Scale, chordsAreThoseOfTheBooks)
{
    EXPECT_EQ(chords("C major", 3), "C Dm Em F G Am Bdim");
    EXPECT_EQ(chords("C major", 4), "Cmaj7 Dm7 Em7 Fmaj7 G7 Am7 Bm7b5");
    EXPECT_EQ(chords("A harmonic minor", 4), "Am(maj7) Bm7b5 Cmaj7#5 Dm7 E7 Fmaj7 G#dim7");
    EXPECT_EQ(chords("A melodic minor", 4), "Am(maj7) Bm7 Cmaj7#5 D7 E7 F#m7b5 G#m7b5");
    EXPECT_EQ(chords("C whole tone", 3), "Caug Daug Eaug F#aug G#aug Bbaug");
    EXPECT_EQ(chords("F major", 5).substr(0, 5), "Fmaj9");
    // Of any size, on any tonic, every chord has the tones that were stacked.
    for (const ScaleKind &kind : ScaleKind::all())
        for (int size = 2; size <= 8; ++size) {
            const Scale scale(PitchClass::fromTone(Tone(8), true), kind);
            const auto all = scale.chords(size);
            ASSERT_EQ(all.size(), kind.degrees().size());
            for (std::size_t i = 0; i < all.size(); ++i) {
                EXPECT_TRUE(scale.toneSet().contains(all[i].toneSetWithBass()))
                    << scale.toText() << ": " << all[i].toText();
                EXPECT_EQ(all[i].bass(), scale.tones()[i])
                    << scale.toText() << ": " << all[i].toText();
            }
        }
}

TEST(Scale, modesAreTheScalesOfTheSameTones)
{
    std::string text;
    for (const auto &mode : Scale::fromText("C major")->modes())
        text += mode.tonic.toString().toStdString() + " " + std::string(mode.kind->name()) + ", ";
    EXPECT_EQ(text, "C major, D dorian, E phrygian, F lydian, G mixolydian, A minor, B locrian, ");
}

TEST(ScaleRecognizer, everyScaleIsFoundOnEveryTonic)
{
    const ScaleRecognizer recognizer;
    for (const ScaleKind &kind : ScaleKind::all())
        for (int tonic = 0; tonic < 12; ++tonic) {
            std::vector<int> pitches;
            for (const auto degree : kind.degrees())
                pitches.push_back(48 + tonic + degree.semitones());
            const auto names = recognizer.names(HeardTones::ofPitches(pitches));
            ASSERT_FALSE(names.empty());
            EXPECT_EQ(&names.front().scale.kind(), &kind) << kind.name();
            EXPECT_EQ(names.front().scale.tonic().tone(), Tone(tonic));
            const auto exact = recognizer.exact(kind.tones().transposed(tonic), Tone(tonic));
            ASSERT_FALSE(exact.empty());
            EXPECT_EQ(exact.front(), names.front().scale);
        }
}

TEST(ScaleRecognizer, weightsThenUsualnessThenTheTonicDecide)
{
    HeardTones melody;
    for (const int tone : {9, 11, 0, 2, 4, 5, 7})
        melody.add(Tone(tone), 4);
    EXPECT_EQ(firstName(melody), "C major");
    EXPECT_EQ(firstName(melody, KeySignature(0, false)), "A minor");
    melody.lastBass = Tone(2);
    EXPECT_EQ(firstName(melody, KeySignature(0, false)), "D dorian");
    // A passing note does not make another scale.
    melody.add(Tone(6), 0.25);
    EXPECT_EQ(firstName(melody), "D dorian");
    EXPECT_EQ(firstName(HeardTones()), "");
    const auto few = ScaleRecognizer().names(HeardTones::ofPitches({57, 60, 62, 64, 67}), 3);
    ASSERT_EQ(few.size(), 3u);
    EXPECT_EQ(few.front().scale.toText(), "A minor pentatonic");
    EXPECT_EQ(few.front().unheardTones, 0);
    // The key spells.
    EXPECT_EQ(ScaleRecognizer(KeySignature(6))
                  .exact(Scale::fromText("F# major")->toneSet(), Tone(6))
                  .front()
                  .toText(),
              "F# major");
    EXPECT_EQ(ScaleRecognizer(KeySignature(-6))
                  .exact(Scale::fromText("F# major")->toneSet(), Tone(6))
                  .front()
                  .toText(),
              "Gb major");
}

TEST(ScalePositions, liesUnderOneHandOnAnyTuning)
{
    const GuitarTuning guitar({40, 45, 50, 55, 59, 64});
    const auto scale = *Scale::fromText("A minor pentatonic");
    const auto all = zarn::scale::positions(scale, guitar);
    const auto fifth = std::find_if(all.begin(), all.end(), [](const ScalePosition &position) {
        return position.firstFret == 5;
    });
    ASSERT_NE(fifth, all.end());
    const std::vector<std::vector<int>> box = {{5, 8}, {5, 7}, {5, 7}, {5, 7}, {5, 8}, {5, 8}};
    EXPECT_EQ(fifth->frets, box);
    EXPECT_TRUE(fifth->isComplete);
    EXPECT_EQ(all.front().firstFret, 0);
    EXPECT_EQ(all.front().frets[0], (std::vector<int>{0, 3}));

    GuitarTuning banjo({62, 50, 55, 59, 62});
    banjo.setShortDroneString(true);
    for (const ScalePosition &position : zarn::scale::positions(*Scale::fromText("G"), banjo)) {
        ASSERT_EQ(position.frets.size(), 5u);
        for (std::size_t string = 0; string < 5; ++string)
            for (const int fret : position.frets[string]) {
                EXPECT_GE(fret, string == 0 ? GuitarTuning::droneFret : position.firstFret);
                EXPECT_TRUE(Scale::fromText("G")->toneSet().contains(
                    banjo.tone(static_cast<unsigned>(string), fret)));
            }
    }
    EXPECT_TRUE(zarn::scale::positions(scale, GuitarTuning()).empty());
    EXPECT_FALSE(zarn::scale::positions(scale, GuitarTuning({40})).empty());
}
