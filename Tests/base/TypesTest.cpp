// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnException.h>
#include <ZarnCore/ZarnTypes.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <vector>

namespace {

using namespace zarn;

/// Every printed text is read again as its own value, in upper case too where the words are not
/// case-sensitive; numbers outside and unknown texts become the first value.
template <typename E, typename ToString, typename FromString>
void expectRoundTrips(ToString toString, FromString fromString, std::vector<const char *> texts,
                      int firstNumber = 0)
{
    std::vector<std::string> printed;
    const std::string fallback = toString(static_cast<E>(255));
    EXPECT_EQ(fallback, texts.front());
    for (int number = 0; number < 64; ++number) {
        const auto value = static_cast<E>(number);
        const std::string text = toString(value);
        if (text == fallback && number != firstNumber)
            continue;
        printed.push_back(text);
        EXPECT_EQ(fromString(text), value) << text;
    }
    EXPECT_EQ(printed, std::vector<std::string>(texts.begin(), texts.end()));
}

template <typename E, typename ToString, typename FromString>
void expectForgivingRoundTrips(ToString toString, FromString fromString,
                               std::vector<const char *> texts, int firstNumber = 0)
{
    expectRoundTrips<E>(toString, fromString, texts, firstNumber);
    for (const char *unknown : {"", "no such word", "\xff\xfe"})
        EXPECT_EQ(fromString(unknown), static_cast<E>(firstNumber));
}

template <typename E, typename FromString>
void expectAnyCase(FromString fromString, std::vector<std::string> texts)
{
    for (std::string text : texts) {
        const E value = fromString(text);
        std::transform(text.begin(), text.end(), text.begin(), [](char c) {
            return static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        });
        EXPECT_EQ(fromString(text), value) << text;
    }
}

TEST(Types, everyTextStandsInItsPlaceAndIsReadAgain)
{
    expectForgivingRoundTrips<Accidental>(
        accidentalToString, accidentalFromString,
        {"None", "DoubleFlat", "Flat", "Natural", "Sharp", "DoubleSharp"});
    expectForgivingRoundTrips<AntiAccent>(antiAccentToString, antiAccentFromString,
                                          {"None", "Soft", "Normal", "Strong"});
    expectForgivingRoundTrips<BendType>(bendTypeToString, bendTypeFromString,
                                        {"NoBend", "Bend", "PreBend", "HoldBend", "Release",
                                         "BendNRelease", "PreBendNBend", "PreBendNRelease"});
    expectForgivingRoundTrips<ClefType>(clefToString, clefFromString,
                                        {"None", "G2", "F4", "C3", "C4", "Neutral"});
    expectForgivingRoundTrips<Direction>(directionToString, directionFromString,
                                         {"None", "Up", "Down"});
    expectForgivingRoundTrips<Fadding>(faddingToString, faddingFromString,
                                       {"NoFadding", "FadeIn", "FadeOut", "VolumeSwell"});
    expectForgivingRoundTrips<Fermata>(fermataToString, fermataFromString,
                                       {"Short", "Medium", "Long", "None"});
    expectForgivingRoundTrips<Fingering>(fingeringToString, fingeringFromString, {"None", "Open"});
    expectForgivingRoundTrips<ZarnGolpeType>(golpeToString, golpeFromString,
                                             {"Thumb", "Finger", "None"});
    expectForgivingRoundTrips<GraceType>(graceTypeToString, graceTypeFromString,
                                         {"None", "OnBeat", "BeforeBeat"});
    expectForgivingRoundTrips<Hairpin>(hairpinToString, hairpinFromString,
                                       {"NoHairpin", "Crescendo", "Decrescendo", "Swell"});
    expectForgivingRoundTrips<NoteHead>(noteHeadToString, noteHeadFromString, {"slash",
                                                                               "triangle",
                                                                               "diamond",
                                                                               "square",
                                                                               "cross",
                                                                               "circle-x",
                                                                               "inverted triangle",
                                                                               "arrow down",
                                                                               "arrow up",
                                                                               "slashed",
                                                                               "back slashed",
                                                                               "normal",
                                                                               "cluster",
                                                                               "none",
                                                                               "do",
                                                                               "re",
                                                                               "mi",
                                                                               "fa",
                                                                               "so",
                                                                               "la",
                                                                               "ti"});
    expectForgivingRoundTrips<Ornament>(
        ornamentToString, ornamentFromString,
        {"NoOrnament", "Turn", "InvertedTurn", "LowerMordent", "UpperMordent"});
    expectForgivingRoundTrips<Ottavia>(ottaviaToString, ottaviaFromString,
                                       {"15ma", "8va", "None", "8vb", "15mb"});
    expectForgivingRoundTrips<PlayingStyle>(playingStyleToString, playingStyleFromString,
                                            {"Default", "StringedPick", "StringedFinger",
                                             "StringedFingerPicking", "BassSlap", "DrumKitBrush",
                                             "DrumKitStick"});
    expectForgivingRoundTrips<RasgueadoType>(rasgueadoToString, rasgueadoFromString,
                                             {"None",   "ii_1",   "mi_1",   "mii_1",   "mii_2",
                                              "pmp_1",  "pmp_2",  "pei_1",  "pei_2",   "pai_1",
                                              "pai_2",  "ami_1",  "ami_2",  "ppp_1",   "amii_1",
                                              "amip_1", "eami_1", "ieam_1", "eamii_1", "peami_1"});
    expectForgivingRoundTrips<ZarnScoreError>(scoreErrorToString, scoreErrorFromString,
                                              {"outOfRangeError", "simileError", "tupletError",
                                               "hoPoError", "barLengthError",
                                               "unreachableBarError"});
    expectForgivingRoundTrips<SimileMark>(
        simileMarkToString, simileMarkFromString,
        {"None", "Simple", "Double", "FirstOfDouble", "SecondOfDouble"});
    expectForgivingRoundTrips<ZarnStemOrientation>(stemOrientationToString,
                                                   stemOrientationFromString,
                                                   {"Upward", "Downward", "Undefined", "None"});
    expectForgivingRoundTrips<TempoUnit>(
        tempoUnitToString, tempoUnitFromString,
        {"None", "Eighth", "Quarter", "QuarterDotted", "Half", "HalfDotted"});
    expectForgivingRoundTrips<Vibrato>(vibratoToString, vibratoFromString,
                                       {"Slight", "Wide", "None"});
    expectForgivingRoundTrips<WahWah>(wahWahToString, wahWahFromString, {"Closed", "Open", "None"});
    expectForgivingRoundTrips<WhammyBarType>(
        whammyBarTypeToString, whammyBarTypeFromString,
        {"NoWhammyBar", "Dive", "Dip", "HoldWhammyBar", "PreDive", "PreDiveNDive"});
    expectForgivingRoundTrips<ScoreViewCollection::ZoomPolicy>(
        zoomPolicyToString, zoomPolicyFromString, {"Value", "FitWidth", "FitHeight", "FitPage"});
    expectForgivingRoundTrips<ZarnIconID>(iconIDToString, iconIDFromString,
                                          {"steelGuitar",
                                           "acousticGuitar",
                                           "12StringsGuitar",
                                           "electricGuitar",
                                           "electricBass",
                                           "uprightBass",
                                           "ukulele",
                                           "banjo",
                                           "mandolin",
                                           "piano",
                                           "bowed",
                                           "synthesizer",
                                           "brass",
                                           "reed",
                                           "woodwind",
                                           "vocal",
                                           "pitchedIdiophone",
                                           "percussionKit",
                                           "idiophone",
                                           "membraphone",
                                           "fx",
                                           "acousticGuitarFolk",
                                           "acousticGuitarClassical",
                                           "electricGuitarHumbucker",
                                           "electricGuitarSingleCoil",
                                           "electricGuitarTele"},
                                          1);
    expectRoundTrips<Beater>(beaterToString, beaterFromString,
                             {"Stick", "HotRod", "Mallet", "Brush", "Pedal", "Hand"});
    expectRoundTrips<BeaterTechnic>(beaterTechnicToString, beaterTechnicFromString,
                                    {"Hit", "Drag", "Flam", "RimShot", "SideStick"});
}

TEST(Types, fixedNumbersStay)
{
    EXPECT_EQ(noteHeadToString(static_cast<NoteHead>(6)), "circle-x");
    EXPECT_EQ(noteHeadToString(static_cast<NoteHead>(14)), "none");
    EXPECT_EQ(simileMarkToString(static_cast<SimileMark>(33)), "FirstOfDouble");
    EXPECT_EQ(fingeringToString(static_cast<Fingering>(6)), "Open");
    EXPECT_EQ(fermataToString(static_cast<Fermata>(3)), "None");
    EXPECT_EQ(iconIDToString(static_cast<ZarnIconID>(22)), "acousticGuitarFolk");
    EXPECT_EQ(clefToString(static_cast<ClefType>(5)), "Neutral");
    EXPECT_EQ(whammyBarTypeToString(static_cast<WhammyBarType>(2)), "Dip");
}

TEST(Types, wordsInUpperCaseAreReadWhereCaseDoesNotCount)
{
    expectAnyCase<Accidental>(accidentalFromString, {"DoubleFlat", "Natural"});
    expectAnyCase<BendType>(bendTypeFromString, {"BendNRelease", "PreBendNBend"});
    expectAnyCase<Ottavia>(ottaviaFromString, {"8va", "8vb", "15mb", "None"});
    expectAnyCase<Beater>(beaterFromString, {"HotRod", "Hand"});
    expectAnyCase<SimileMark>(simileMarkFromString, {"SecondOfDouble"});
}

TEST(Types, oddSpellingsAreKept)
{
    EXPECT_EQ(hairpinFromString("NOHARPIN"), Hairpin::NoHairpin);
    EXPECT_EQ(fermataFromString("NOFERMATA"), Fermata::None);
    EXPECT_EQ(fermataFromString("SHORTFERMATA"), Fermata::Short);
    EXPECT_EQ(fermataFromString("LongFermata"), Fermata::Long);
    EXPECT_EQ(playingStyleFromString("DRUMKITHOTROD"), PlayingStyle::DrumKitHotRod);
    EXPECT_EQ(playingStyleToString(PlayingStyle::DrumKitHotRod), "Default");
    EXPECT_EQ(rasgueadoFromString("none"), RasgueadoType::None);
    EXPECT_EQ(zoomPolicyFromString("fitpage"), ScoreViewCollection::ZoomPolicy::FitPage);
    EXPECT_EQ(golpeFromString("FINGER"), ZarnGolpeType::Thumb) << "exact words only";
}

TEST(Types, unknownBeatersAreNamedInTheError)
{
    const auto messageOf = [](auto parse, const char *text) {
        try {
            parse(text);
        } catch (const CoreException &error) {
            return error.message() + " in " + error.function();
        }
        return std::string();
    };
    EXPECT_EQ(messageOf(beaterFromString, "Broom"),
              "Invalid Beater: Broom in zarn::beaterFromString");
    EXPECT_EQ(messageOf(beaterTechnicFromString, "%1%"),
              "Invalid Beater Technic: %1% in zarn::beaterTechnicFromString");
    EXPECT_EQ(scorePropertyToQString(ScoreProperty::WordsAndMusic),
              QStringLiteral("WordsAndMusic"));
    EXPECT_EQ(scorePropertyToQString(static_cast<ScoreProperty>(42)),
              QStringLiteral("Unknown (42)"));
}

} // namespace
