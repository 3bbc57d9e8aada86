// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/sets/InstrumentTypeTable.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSetLibrary.h>
#include <ZarnCore/model/ZarnBeat.h>
#include <ZarnCore/model/ZarnNote.h>

#include <gtest/gtest.h>

#include <QFile>

#include <rapidjson/document.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

using zarn::Instrument;
using zarn::InstrumentArticulation;
using zarn::InstrumentSet;
using zarn::InstrumentSetLibrary;
using zarn::MusicGlyph;

/// The catalogue that is compiled into the library.
class InstrumentSetCatalogue : public testing::Test {
protected:
    void SetUp() override
    {
        QFile file(QStringLiteral(":/instrumentSet/ZarnInstrumentSets.json"));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray text = file.readAll();
        _document.Parse(text.constData(), static_cast<std::size_t>(text.size()));
        ASSERT_FALSE(_document.HasParseError());
        _library.parse(_document["instrumentSets"]);
    }

    const InstrumentSet &set(InstrumentSet::Type type) const
    {
        return *_library.findInstrumentSetWithType(type);
    }

    rapidjson::Document _document;
    InstrumentSetLibrary _library;
};

/// Every text of a member of this name, wherever it stands.
void collectTexts(const rapidjson::Value &value, const std::string &member,
                  std::set<std::string> &texts)
{
    if (value.IsArray()) {
        for (const auto &element : value.GetArray())
            collectTexts(element, member, texts);
    } else if (value.IsObject()) {
        for (const auto &entry : value.GetObject()) {
            const bool isWanted = entry.name.GetString() == member;
            if (isWanted && entry.value.IsString())
                texts.insert(entry.value.GetString());
            for (rapidjson::SizeType i = 0; isWanted && entry.value.IsArray()
                 && i < entry.value.Size() && entry.value[i].IsString();
                 ++i)
                texts.insert(entry.value[i].GetString());
            collectTexts(entry.value, member, texts);
        }
    }
}

TEST_F(InstrumentSetCatalogue, hasASetForEveryInstrument)
{
    std::size_t instruments = 0;
    for (const auto &row : zarn::detail::instrumentSetTypes) {
        const auto type = static_cast<InstrumentSet::Type>(row.code);
        const bool isGroup = (row.code & 0xFF) == 0;
        instruments += isGroup ? 0 : 1;
        EXPECT_EQ(_library.findInstrumentSetWithType(type) == nullptr, isGroup) << row.text;
        if (!isGroup) {
            EXPECT_EQ(set(type).name(), InstrumentSet::typeName(type));
            EXPECT_FALSE(set(type).elements().empty()) << row.text;
            EXPECT_EQ(set(type).articulations().empty(), InstrumentSet::isPitched(type))
                << row.text;
        }
    }
    EXPECT_EQ(_library.instrumentSets().size(), instruments);
}

TEST_F(InstrumentSetCatalogue, everyWordIsKnown)
{
    std::set<std::string> heads, symbols, placements, types;
    collectTexts(_document, "noteheads", heads);
    collectTexts(_document, "techniqueSymbol", symbols);
    collectTexts(_document, "techniquePlacement", placements);
    collectTexts(_document, "type", types);
    EXPECT_GT(heads.size(), 10u);
    for (const auto &head : heads)
        EXPECT_TRUE(MusicGlyph::fromName(head) && head.rfind("notehead", 0) == 0) << head;
    for (const auto &symbol : symbols)
        EXPECT_TRUE(symbol.empty() || MusicGlyph::fromName(symbol)) << symbol;
    for (const auto &placement : placements)
        EXPECT_EQ(InstrumentArticulation::stringFromTechniquePlacement(
                      InstrumentArticulation::techniquePlacementFromString(placement)),
                  placement);
    for (const auto &type : types)
        EXPECT_TRUE(InstrumentSet::typeFromString(type) != InstrumentSet::unknown
                    || Instrument::typeFromString(type) != Instrument::unknown)
            << type;
}

TEST_F(InstrumentSetCatalogue, setsAreUnambiguousAndFitNotes)
{
    std::set<std::string> names;
    for (const auto &set : _library.instrumentSets()) {
        const auto &name = set->name();
        EXPECT_TRUE(names.insert(name).second) << name;
        EXPECT_GE(set->lineCount(), 1u) << name;
        std::set<std::string> elements;
        for (const auto &element : set->elements()) {
            EXPECT_TRUE(elements.insert(element.name()).second) << name << ": " << element.name();
            EXPECT_NE(element.type(), Instrument::unknown) << name << ": " << element.name();
        }
        std::set<std::string> articulations;
        for (int i = 0; i < static_cast<int>(set->articulations().size()); ++i) {
            const auto &articulation = set->articulations()[static_cast<std::size_t>(i)];
            const auto place = name + ": " + articulation.name();
            EXPECT_TRUE(articulations.insert(articulation.name()).second) << place;
            EXPECT_FALSE(articulation.outputOrkaSound().empty()) << place;
            EXPECT_GE(articulation.outputMidiNumber(), 0) << place;
            EXPECT_EQ(articulation.techniqueSymbol().isNone(),
                      articulation.techniquePlacement()
                          == InstrumentArticulation::TechniquePlacement::Outside)
                << place;
            for (const auto midi : articulation.inputMidiNumbers()) {
                EXPECT_EQ(set->indexOfArticulationWithMidi(midi), i) << place << ", key " << midi;
                zarn::Beat beat;
                const auto note = set->addNoteFromMidi(beat, midi);
                ASSERT_NE(note, nullptr) << place;
                EXPECT_EQ(
                    set->indexOfArticulationWithStaffLineAndKey(note->staffLine(), note->midi()), i)
                    << place;
            }
        }
    }
}

TEST_F(InstrumentSetCatalogue, drumKitAgreesWithGeneralMidi)
{
    const auto &kit = set(InstrumentSet::drumKit);
    std::ifstream facts(ZARN_SOURCE_DIR "/../shared/facts/gm_percussion.csv");
    if (!facts)
        GTEST_SKIP() << "the table of percussion keys is not here";
    std::string line;
    std::getline(facts, line);
    int keys = 0;
    for (; std::getline(facts, line); ++keys) {
        std::vector<std::string> fields;
        std::istringstream cells(line);
        for (std::string field; std::getline(cells, field, ',');)
            fields.push_back(field);
        ASSERT_EQ(fields.size(), 5u) << line;
        const int index = kit.indexOfArticulationWithMidi(std::stoi(fields[0]));
        ASSERT_GE(index, 0) << line;
        const auto &articulation = kit.articulations()[static_cast<std::size_t>(index)];
        EXPECT_EQ(Instrument::typeToString(articulation.element().type()), fields[2]) << line;
        EXPECT_EQ(articulation.notehead(0).name(), fields[3]) << line;
        EXPECT_EQ(articulation.staffLine(), std::stoi(fields[4]) + 4) << line;
        EXPECT_EQ(articulation.outputMidiNumber(), std::stoi(fields[0])) << line;
    }
    EXPECT_EQ(keys, 47);
}

TEST_F(InstrumentSetCatalogue, everyPercussionKeyEntersSomethingOutsideTheKitToo)
{
    std::set<int> reached;
    for (const auto &set : _library.instrumentSets())
        if (set->type() != InstrumentSet::drumKit)
            for (const auto &articulation : set->articulations())
                reached.insert(articulation.inputMidiNumbers().begin(),
                               articulation.inputMidiNumbers().end());
    for (int key = 35; key <= 81; ++key)
        EXPECT_EQ(reached.count(key), 1u) << key;
}

TEST_F(InstrumentSetCatalogue, hiHatIsCalledCharley)
{
    for (const auto type : {InstrumentSet::drumKit, InstrumentSet::hiHat}) {
        const auto &elements = set(type).elements();
        const auto isCharley = [](const auto &element) {
            return element.name() == "Charley" && element.type() == Instrument::hiHat
                && element.soundbankName() == "Master-Hihat";
        };
        EXPECT_EQ(std::count_if(elements.begin(), elements.end(), isCharley), 1);
    }
}

} // namespace
