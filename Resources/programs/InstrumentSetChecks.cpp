// SPDX-License-Identifier: MIT
#include "CatalogueReading.h"

#include <ZarnCore/instruments/sets/InstrumentTypeTable.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSetLibrary.h>

#include <map>
#include <set>

namespace zarn::resources {

namespace {

constexpr int firstDrumKey = 35; ///< General MIDI level 1 percussion
constexpr int lastDrumKey = 81;
constexpr int highestKey = 127;

/// A category of which a track can be made: a member of a group, not the group.
bool isInstrument(std::uint32_t code)
{
    return (code & 0xFF) != 0;
}

/// Readers take a normal head for an unknown one, and no symbol: here both are errors.
void checkGlyphs(const rapidjson::Value &articulation, const std::string &place,
                 Complaints &complaints)
{
    const auto &notation = articulation["musicalNotation"];
    const auto requireGlyph = [&](const rapidjson::Value &value) {
        const std::string name = value.GetString();
        if (!name.empty() && !MusicGlyph::fromName(name))
            complaints.push_back(place + ": there is no glyph \"" + name + "\"");
    };
    for (const auto &head : notation["noteheads"].GetArray())
        requireGlyph(head);
    requireGlyph(notation["techniqueSymbol"]);
    const std::string placement = notation["techniquePlacement"].GetString();
    if (InstrumentArticulation::stringFromTechniquePlacement(
            InstrumentArticulation::techniquePlacementFromString(placement))
        != placement)
        complaints.push_back(place + ": there is no placement \"" + placement + "\"");
    allowOnly(articulation, {"name", "musicalNotation", "inputs", "outputs"}, place, complaints);
    allowOnly(notation, {"staffLine", "noteheads", "techniqueSymbol", "techniquePlacement"}, place,
              complaints);
}

/// What of a set only its text shows.
void checkText(const rapidjson::Value &set, const std::string &place, Complaints &complaints)
{
    allowOnly(set, {"name", "lineCount", "type", "elements"}, place, complaints);
    rapidjson::SizeType number = 0;
    for (const auto &element : set["elements"].GetArray()) {
        const std::string where = place + ".elements[" + std::to_string(number++) + "]";
        allowOnly(element, {"name", "orkaSoundBank", "type", "articulations"}, where, complaints);
        const std::string type = element["type"].GetString();
        if (Instrument::typeFromString(type) == Instrument::unknown)
            complaints.push_back(where + ": there is no type \"" + type + "\"");
        rapidjson::SizeType articulation = 0;
        for (const auto &value : element["articulations"].GetArray())
            checkGlyphs(value, where + ".articulations[" + std::to_string(articulation++) + "]",
                        complaints);
    }
}

bool isKey(int key)
{
    return key >= 0 && key <= highestKey;
}

void checkArticulations(const InstrumentSet &set, const std::string &place, Complaints &complaints)
{
    std::set<std::string> names;
    std::map<int, std::string> inputs;
    for (const InstrumentArticulation &articulation : set.articulations()) {
        const std::string where = place + ", articulation \"" + articulation.name() + "\"";
        if (!names.insert(articulation.name()).second)
            complaints.push_back(where + ": there is another one of this name");
        if (!isKey(articulation.outputMidiNumber()))
            complaints.push_back(where + ": plays no MIDI key");
        for (const int key : articulation.inputMidiNumbers()) {
            const auto [other, isNew] = inputs.emplace(key, articulation.name());
            if (!isNew || !isKey(key))
                complaints.push_back(
                    where + ": key " + std::to_string(key)
                    + (isNew ? " is no MIDI key" : " enters \"" + other->second + "\" already"));
        }
    }
    std::set<std::string> elements;
    for (const InstrumentSetElement &element : set.elements())
        if (!elements.insert(element.name()).second)
            complaints.push_back(place + ": there is another element \"" + element.name() + "\"");
}

void checkCompleteness(const InstrumentSetLibrary &library, Complaints &complaints)
{
    for (const auto &row : detail::instrumentSetTypes) {
        const auto type = static_cast<InstrumentSet::Type>(row.code);
        if (isInstrument(row.code) && !library.findInstrumentSetWithType(type))
            complaints.push_back("there is no set of the type \"" + std::string(row.text) + "\"");
    }
    const auto kit = library.findInstrumentSetWithType(InstrumentSet::drumKit);
    for (int key = firstDrumKey; kit && key <= lastDrumKey; ++key)
        if (kit->indexOfArticulationWithMidi(key) < 0)
            complaints.push_back("the drum kit has no articulation for key " + std::to_string(key));
}

} // namespace

Complaints checkInstrumentSets(const CatalogueFile &file)
{
    Complaints complaints;
    readCatalogue(file, complaints, [&](const rapidjson::Document &document) {
        const rapidjson::Value &array = arrayOf(document, "instrumentSets");
        InstrumentSetLibrary library;
        library.parse(array);
        std::set<InstrumentSet::Type> types;
        for (rapidjson::SizeType i = 0; i < array.Size(); ++i) {
            const InstrumentSet &set = *library.instrumentSets()[i];
            const std::string place = "instrumentSets[" + std::to_string(i) + "]";
            const std::string type = array[i]["type"].GetString();
            if (!isInstrument(set.type()))
                complaints.push_back(place + ": there is no instrument \"" + type + "\"");
            else if (!types.insert(set.type()).second)
                complaints.push_back(place + ": there is another set of the type \"" + type + "\"");
            checkText(array[i], place, complaints);
            checkArticulations(set, place, complaints);
        }
        checkCompleteness(library, complaints);
    });
    return complaints;
}

} // namespace zarn::resources
