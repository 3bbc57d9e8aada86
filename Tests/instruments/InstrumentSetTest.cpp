// SPDX-License-Identifier: MIT
#include "InstrumentSetSamples.h"

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSetLibrary.h>
#include <ZarnCore/model/ZarnBeat.h>
#include <ZarnCore/model/ZarnTrack.h>
#include <ZarnCore/model/ZarnTrackDefaults.h>

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace {

using zarn::Instrument;
using zarn::InstrumentArticulation;
using zarn::InstrumentSet;
using zarn::InstrumentSetElement;
using zarn::InstrumentSetLibrary;
using zarn::ZarnIconID;
using Placement = InstrumentArticulation::TechniquePlacement;

InstrumentArticulation articulationOf(const std::string &text)
{
    InstrumentArticulation articulation;
    articulation.parse(sample::document(text));
    return articulation;
}

std::string messageOf(const std::function<void()> &read)
{
    try {
        read();
    } catch (const zarn::CoreException &error) {
        return error.message();
    }
    return "nothing was raised";
}

TEST(InstrumentArticulation, readsAllOfItsFields)
{
    const InstrumentSetElement element("Snare", "Master-Snare", Instrument::snare, 4);
    InstrumentArticulation articulation;
    articulation.setElement(element);
    articulation.parse(sample::document(sample::articulation("Rim", 5, "37, 40", 38)));
    EXPECT_EQ(articulation.name(), "Rim");
    EXPECT_EQ(articulation.element(), element);
    EXPECT_EQ(articulation.staffLine(), 5);
    EXPECT_EQ(articulation.inputMidiNumbers(), (std::vector<std::int32_t>{37, 40}));
    EXPECT_EQ(articulation.outputMidiNumber(), 38);
    EXPECT_EQ(articulation.outputOrkaSound(), (std::vector<std::string>{"a", "b", "c"}));
    EXPECT_EQ(articulation.techniqueSymbol().name(), "pictOpen");
    EXPECT_EQ(articulation.techniquePlacement(), Placement::Above);

    articulation.parse(sample::document(sample::articulation("Other", 1, "", 0)));
    EXPECT_TRUE(articulation.inputMidiNumbers().empty()) << "parse replaces";
}

TEST(InstrumentArticulation, hasThreeHeadsFromAnyNumberOfNames)
{
    const auto heads = [](const std::string &names) {
        std::string found;
        const auto articulation = articulationOf(sample::articulation("x", 0, "", 0, names));
        for (unsigned i = 0; i < 3; ++i)
            found += articulation.notehead(i).name() + " ";
        EXPECT_EQ(articulation.notehead(99), articulation.notehead(2));
        return found;
    };
    EXPECT_EQ(heads(""), "noteheadBlack noteheadBlack noteheadBlack ");
    EXPECT_EQ(heads(R"("noteheadXBlack")"), "noteheadXBlack noteheadXBlack noteheadXBlack ");
    EXPECT_EQ(heads(R"("noteheadXBlack", "noteheadXHalf")"),
              "noteheadXBlack noteheadXHalf noteheadXHalf ");
    EXPECT_EQ(heads(R"("noteheadXBlack", "noteheadXHalf", "noteheadXWhole", "noteheadBlack")"),
              "noteheadXBlack noteheadXHalf noteheadXWhole ");
    EXPECT_EQ(heads(R"("nohead")"), "noteheadBlack noteheadBlack noteheadBlack ");
}

TEST(InstrumentArticulation, splitsTheSoundPathAtEveryDot)
{
    const auto path = [](const std::string &sound) {
        return articulationOf(sample::articulation("x", 0, "", 0, "", sound)).outputOrkaSound();
    };
    using Path = std::vector<std::string>;
    EXPECT_EQ(path("hit"), Path{"hit"});
    EXPECT_EQ(path("kick..hit."), (Path{"kick", "", "hit", ""}));
    EXPECT_EQ(path(""), Path{""});
}

TEST(InstrumentArticulation, placementsHaveFourTexts)
{
    const std::map<Placement, std::string> texts = {{Placement::Above, "above"},
                                                    {Placement::Below, "below"},
                                                    {Placement::Outside, "outside"},
                                                    {Placement::Inside, "inside"}};
    for (const auto &[placement, text] : texts) {
        EXPECT_EQ(InstrumentArticulation::stringFromTechniquePlacement(placement), text);
        EXPECT_EQ(InstrumentArticulation::techniquePlacementFromString(text), placement);
    }
    EXPECT_EQ(InstrumentArticulation::stringFromTechniquePlacement(Placement(9)), "outside");
    EXPECT_EQ(InstrumentArticulation::techniquePlacementFromString("Above"), Placement::Outside);
}

TEST(InstrumentSet, articulationsStandInTheOrderOfTheDocument)
{
    const auto set = sample::instrumentSet();
    EXPECT_EQ(set.name(), "Kit");
    EXPECT_EQ(set.type(), InstrumentSet::drumKit);
    EXPECT_TRUE(set.isPercussionKit());
    EXPECT_EQ(set.lineCount(), 5u);
    ASSERT_EQ(set.elements().size(), 3u);
    EXPECT_EQ(set.elements()[1],
              InstrumentSetElement("Snare", "Master-Snare", Instrument::snare, 1));
    EXPECT_EQ(set.elements()[2].soundbankName(), "");
    EXPECT_EQ(set.elements()[2].typeName(), "Hi-Hat");
    ASSERT_EQ(set.articulations().size(), 6u);
    EXPECT_EQ(set.articulations()[2].name(), "Snare (rim shot)");
    EXPECT_EQ(set.articulations()[2].element(), set.elements()[1]);
    EXPECT_TRUE(set.articulations()[2] < set.articulations()[3]) << "elements come first";
    EXPECT_EQ(sample::instrumentSet(), set);
}

TEST(InstrumentSet, brokenDocumentsChangeNothingAndAreNamed)
{
    const auto broken = [](const std::string &from, const std::string &to) {
        std::string text = sample::kit();
        const auto at = text.rfind(from);
        EXPECT_NE(at, text.npos);
        text.replace(at, from.size(), to);
        const auto document = sample::document("[" + sample::kit() + "," + text + "]");
        InstrumentSetLibrary library;
        const auto message = messageOf([&] { library.parse(document); });
        EXPECT_TRUE(library.instrumentSets().empty());
        auto set = sample::instrumentSet();
        EXPECT_THROW(set.parse(document[1]), zarn::CoreException);
        EXPECT_EQ(set, sample::instrumentSet());
        return message;
    };
    EXPECT_EQ(broken(R"("lineCount": 5)", R"("lineCount": -5)"),
              "instrumentSets[1]: member \"lineCount\" is missing or no whole number from 0 up");
    EXPECT_EQ(broken(R"("type": "hiHat")", R"("typ": "hiHat")"),
              "instrumentSets[1].elements[2]: member \"type\" is missing or no string");
    EXPECT_EQ(broken(R"("midiNumbers": [44])", R"("midiNumbers": [44, null])"),
              "instrumentSets[1].elements[2].articulations[2].inputs.midiNumbers[1]: "
              "is no whole number");
    EXPECT_EQ(broken(R"("orkaSoundBank": "Master-Snare")", R"("orkaSoundBank": null)"),
              "instrumentSets[1].elements[1]: member \"orkaSoundBank\" is missing or no string");
    EXPECT_EQ(broken(R"("staffLine": -1)", R"("staffLine": "low")"),
              "instrumentSets[1].elements[2].articulations[2].musicalNotation: member "
              "\"staffLine\" is missing or no whole number");
    InstrumentSetLibrary library;
    EXPECT_EQ(messageOf([&] { library.parse(sample::document("{}")); }),
              "instrumentSets: is no array");
    EXPECT_EQ(messageOf([&] { library.parse(rapidjson::Document()); }),
              "instrumentSets: is no array");
}

TEST(InstrumentSet, unknownTypesReadAsUnknown)
{
    const auto set =
        sample::instrumentSet(R"({"name": "?", "lineCount": 1, "type": "zither", "elements": [)"
                              R"({"name": "?", "type": "drumKit", "articulations": []}]})");
    EXPECT_EQ(set.type(), InstrumentSet::unknown);
    EXPECT_EQ(set.elements()[0].type(), Instrument::unknown);
}

TEST(InstrumentSet, findsArticulations)
{
    const auto set = sample::instrumentSet();
    const auto &articulations = set.articulations();
    EXPECT_EQ(set.indexOfArticulation(articulations[4]), 4);
    EXPECT_EQ(set.indexOfArticulation(InstrumentArticulation()), -1);
    EXPECT_EQ(set.indexOfArticulationWithMidi(35), 0);
    EXPECT_EQ(set.indexOfArticulationWithMidi(40), 2);
    EXPECT_EQ(set.indexOfArticulationWithMidi(37), -1);
    EXPECT_EQ(set.indexOfArticulationWithName("Hi-hat (foot)"), 5);
    EXPECT_EQ(set.indexOfArticulationWithName("Hi-hat"), -1);
    EXPECT_EQ(set.indexOfArticulationWithNameAndStaffLine("Hi-hat (foot)", -1), 5);
    EXPECT_EQ(set.indexOfArticulationWithNameAndStaffLine("Hi-hat (foot)", 9), -1);
    EXPECT_EQ(set.indexOfArticulationWithStaffLineAndKey(9, 46), 4);
    EXPECT_EQ(set.indexOfArticulationWithStaffLineAndKey(5, 38), 1) << "the first played so";
    EXPECT_EQ(set.indexOfArticulationWithStaffLineAndKey(5, 40), 2) << "entered, not played so";
    EXPECT_EQ(set.indexOfArticulationWithStaffLineAndKey(1, 38), -1);
    EXPECT_EQ(set.indexOfFirstArticulationWithStaffLine(9), 3);
    EXPECT_EQ(set.indexOfFirstArticulationWithStaffLine(4), -1);
    const auto ofSnare = set.articulationsWithElement(set.elements()[1]);
    ASSERT_EQ(ofSnare.size(), 2u);
    EXPECT_EQ(ofSnare[1], articulations[2]);

    auto copy = set;
    copy.setArticulations({articulations[5]});
    EXPECT_EQ(copy.indexOfArticulationWithName("Hi-hat (foot)"), 0);
    EXPECT_EQ(copy.indexOfArticulationWithMidi(35), -1) << "looked up in what was there before";
}

TEST(InstrumentSet, stepsInACircleThroughAnElement)
{
    const auto set = sample::instrumentSet();
    EXPECT_EQ(set.nextIndexOfArticulationWithSharedElement(3), 4);
    EXPECT_EQ(set.nextIndexOfArticulationWithSharedElement(5), 3);
    EXPECT_EQ(set.previousIndexOfArticulationWithSharedElement(3), 5);
    EXPECT_EQ(set.nextIndexOfArticulationWithSharedElement(0), 0);
    for (const int index : {-1, 6, 2147483647})
        EXPECT_EQ(set.nextIndexOfArticulationWithSharedElement(index), -1);
    EXPECT_EQ(InstrumentSet().previousIndexOfArticulationWithSharedElement(0), -1);
}

TEST(InstrumentSet, linesLeadUpAndDownAndStopAtTheEnds)
{
    const auto set = sample::instrumentSet();
    EXPECT_EQ(set.staffLines(), (std::vector<std::int32_t>{-1, 1, 5, 9}));
    EXPECT_EQ(set.nextLine(1), 5);
    EXPECT_EQ(set.nextLine(2), 5);
    EXPECT_EQ(set.nextLine(9), 9);
    EXPECT_EQ(set.nextLine(100), 100);
    EXPECT_EQ(set.previousLine(5), 1);
    EXPECT_EQ(set.previousLine(100), 9);
    EXPECT_EQ(set.previousLine(-1), -1);
    EXPECT_EQ(InstrumentSet().nextLine(3), 3);
}

TEST(InstrumentSet, entersNotesFromMidi)
{
    const auto set = sample::instrumentSet();
    zarn::Beat beat;
    const auto open = set.addNoteFromMidi(beat, 46);
    ASSERT_NE(open, nullptr);
    EXPECT_EQ(open->percussionArticulation(), 4);
    EXPECT_EQ(open->staffLine(), 9);
    EXPECT_EQ(open->midi(), 46);
    EXPECT_EQ(open->noteHead(), zarn::NoteHead::CircleX);
    EXPECT_EQ(set.addNoteFromMidi(beat, 46), open) << "entered twice";
    EXPECT_EQ(set.addNoteFromMidi(beat, 35)->midi(), 36) << "the key that plays it";
    EXPECT_EQ(set.addNoteFromMidi(beat, 81), nullptr);
    EXPECT_EQ(beat.noteCount(), 2u);

    const InstrumentSet flute(InstrumentSet::flute);
    const auto note = flute.addNoteFromMidi(beat, 72);
    ASSERT_NE(note, nullptr);
    EXPECT_EQ(note->percussionArticulation(), zarn::Note::Unset);
    EXPECT_EQ(flute.addNoteFromMidi(beat, 72), note);
    EXPECT_EQ(flute.addNoteFromMidi(beat, 128), nullptr);
    EXPECT_EQ(flute.addNoteFromMidi(beat, -1), nullptr);

    const auto strange = sample::instrumentSet(
        R"({"name": "", "lineCount": 1, "type": "snare", "elements": [{"name": "", "type": "snare",)"
        R"( "articulations": [)"
        + sample::articulation("a", 300, "1", 1) + "," + sample::articulation("b", 0, "2", 200)
        + "]}]}");
    EXPECT_EQ(strange.addNoteFromMidi(beat, 1), nullptr);
    EXPECT_EQ(strange.addNoteFromMidi(beat, 2), nullptr);
}

TEST(InstrumentSet, mergesWhatIsNewAtTheEnd)
{
    auto set = sample::instrumentSet();
    const auto before = set;
    const InstrumentSetElement cowbell("Cowbell", "Cowbell-Percu", Instrument::cowbell, 0);
    auto articulation = articulationOf(sample::articulation("Cowbell (hit)", 7, "56, 38", 56));
    articulation.setElement(cowbell);
    EXPECT_EQ(set.mergeInstrumentArticulation(articulation), 6);
    ASSERT_EQ(set.elements().size(), 4u);
    EXPECT_EQ(set.elements()[3].index(), 3u);
    EXPECT_EQ(set.articulations()[6].element(), set.elements()[3]);
    EXPECT_EQ(set.indexOfArticulationWithName("Cowbell (hit)"), 6);
    EXPECT_EQ(set.indexOfArticulationWithMidi(56), 6);
    EXPECT_EQ(set.indexOfArticulationWithMidi(38), 1) << "a key keeps what it enters";
    EXPECT_EQ(set.mergeInstrumentArticulation(articulation), 6) << "merged twice";
    for (std::size_t i = 0; i < before.articulations().size(); ++i)
        EXPECT_EQ(set.articulations()[i], before.articulations()[i]);

    const InstrumentSetElement hiHat("Charley", "Master-Hihat", Instrument::hiHat, 7);
    EXPECT_EQ(set.mergeInstrumentElement(hiHat), 2u);
    EXPECT_EQ(set.elements()[2].soundbankName(), "Master-Hihat");
    EXPECT_EQ(set.articulations()[3].element(), set.elements()[2]);
    EXPECT_EQ(set.nextIndexOfArticulationWithSharedElement(5), 3);

    auto other = before.articulations()[3];
    other.setInputMidiNumbers({42, 22, 46});
    EXPECT_EQ(set.mergeInstrumentArticulation(other), 3);
    EXPECT_EQ(set.indexOfArticulationWithMidi(22), 3);
    EXPECT_EQ(set.indexOfArticulationWithMidi(46), 4);
    EXPECT_EQ(set.mergeInstrumentArticulation(set.articulations()[0]), 0) << "one of its own";
}

TEST(InstrumentSet, compatibilityCountsWhatTwoCodesShare)
{
    using Set = InstrumentSet;
    EXPECT_EQ(Set::compatibilityLevel(Set::flute, Set::flute), 4u);
    EXPECT_EQ(Set::compatibilityLevel(Set::flute, Set::piccolo), 3u);
    EXPECT_EQ(Set::compatibilityLevel(Set::flute, Set::oboe), 2u);
    EXPECT_EQ(Set::compatibilityLevel(Set::flute, Set::violin), 1u);
    EXPECT_EQ(Set::compatibilityLevel(Set::flute, Set::snare), 0u);
    EXPECT_EQ(Set::compatibilityLevel(Set::unknown, Set::unknown), 0u);
    EXPECT_EQ(Set(Set::tom).compatibilityLevel(Set(Set::snare)), 3u);
    EXPECT_EQ(
        Instrument(Instrument::clarinet).compatibilityLevel(Instrument(Instrument::harmonica)), 4u);
}

TEST(InstrumentSet, everyCategoryHasAPlaceInTheSoundBrowser)
{
    using Set = InstrumentSet;
    EXPECT_EQ(Set::soundCategoryFallback(Set::steelGuitar),
              "Stringed/Acoustic Guitars/Steel Guitar");
    EXPECT_EQ(Set::soundCategoryFallback(Set::stringed), "Stringed");
    EXPECT_EQ(Set::soundCategoryFallback(Set::unknown), "");
    std::map<std::string, Set::Type> paths;
    for (std::uint32_t kind = 1; kind <= 2; ++kind)
        for (std::uint32_t family = 1; family <= 0x10; family <<= 1)
            for (const std::uint32_t subFamily : {0, 1, 2, 4, 8})
                for (std::uint32_t member = 1; member <= 20; ++member) {
                    const auto type =
                        Set::Type(kind << 24 | family << 16 | subFamily << 8 | member);
                    if (Set::typeToString(type) == "unknown")
                        continue;
                    const auto path = Set::soundCategoryFallback(type);
                    EXPECT_TRUE(paths.emplace(path, type).second) << path;
                    const auto icon = zarn::trackDefaults(type).icon;
                    EXPECT_EQ(Set::soundCategoryToIconID(path), icon) << path;
                    EXPECT_EQ(Set::soundCategoryToIconID(path + "/Some Bank"), icon) << path;
                }
    EXPECT_EQ(paths.size(), 108u);
    EXPECT_EQ(Set::soundCategoryToIconID("Stringed"), ZarnIconID::AcousticGuitar);
    EXPECT_EQ(Set::soundCategoryToIconID("Stringed/Basses"), ZarnIconID::ElectricBass);
    EXPECT_EQ(Set::soundCategoryToIconID("Stringed/Unheard Of"), ZarnIconID::AcousticGuitar);
    EXPECT_EQ(Set::soundCategoryToIconID("Percussion/Kits"), ZarnIconID::PercussionKit);
    for (const char *path : {"", "/", "Nowhere/At All", "stringed"})
        EXPECT_EQ(Set::soundCategoryToIconID(path), ZarnIconID::SteelGuitar) << path;
}

TEST(InstrumentSet, spreadsAKitAsTheAudienceSeesIt)
{
    InstrumentSet kit(InstrumentSet::drumKit);
    std::vector<InstrumentSetElement> elements;
    for (const auto type : {Instrument::kickDrum, Instrument::hiHat, Instrument::tom,
                            Instrument::tom, Instrument::tom, Instrument::ride})
        elements.emplace_back("Element " + std::to_string(elements.size()), "", type,
                              static_cast<unsigned>(elements.size()));
    kit.setElements(elements);
    const auto pan = [&](std::size_t i) { return kit.volumePanFromElement(elements[i]).pan(); };
    EXPECT_EQ(pan(0), 0);
    EXPECT_GT(pan(1), 0);
    EXPECT_EQ(pan(2), -pan(4));
    EXPECT_EQ(pan(3), 0);
    EXPECT_GT(pan(2), pan(3));
    EXPECT_LT(pan(5), 0);
    const InstrumentSetElement stranger("Gong", "", Instrument::hiHat, 1);
    EXPECT_EQ(kit.volumePanFromElement(stranger), zarn::ZarnVolumePan());
    kit.setType(InstrumentSet::hiHat);
    EXPECT_EQ(kit.volumePanFromElement(elements[1]), zarn::ZarnVolumePan());
}

TEST(InstrumentSetLibrary, appendsAndFindsTheFirst)
{
    const auto document = sample::document("[" + sample::kit() + "]");
    InstrumentSetLibrary library;
    library.parse(document);
    const auto first = library.instrumentSets().at(0);
    library.parse(document);
    EXPECT_EQ(library.instrumentSets().size(), 2u);
    EXPECT_EQ(library.findInstrumentSetWithName("Kit"), first);
    EXPECT_EQ(library.findInstrumentSetWithType(InstrumentSet::drumKit), first);
    EXPECT_EQ(library.findInstrumentSetWithName("kit"), nullptr);
    EXPECT_EQ(library.findInstrumentSetWithType(InstrumentSet::congas), nullptr);

    EXPECT_THROW(library.setInstrumentSets({first, nullptr}), zarn::CoreException);
    EXPECT_EQ(library.instrumentSets().size(), 2u);
    library.setInstrumentSets({std::make_shared<InstrumentSet>(InstrumentSet::congas)});
    EXPECT_EQ(library.findInstrumentSetWithName("Kit"), nullptr);
    EXPECT_NE(library.findInstrumentSetWithType(InstrumentSet::congas), nullptr);
}

TEST(InstrumentSetLibrary, tracksFindTheirSetWhileOneIsInstalled)
{
    const zarn::Track drums(InstrumentSet::drumKit);
    const auto *const before = InstrumentSetLibrary::installed();
    {
        InstrumentSetLibrary library;
        library.parse(sample::document("[" + sample::kit() + "]"));
        InstrumentSetLibrary::install(&library);
        EXPECT_EQ(drums.instrumentSet(), library.instrumentSets()[0]);
        EXPECT_EQ(zarn::Track(InstrumentSet::flute).instrumentSet(), nullptr);
    }
    EXPECT_EQ(InstrumentSetLibrary::installed(), nullptr) << "a library that is gone";
    EXPECT_EQ(drums.instrumentSet(), nullptr);
    InstrumentSetLibrary::install(before);
}

} // namespace
