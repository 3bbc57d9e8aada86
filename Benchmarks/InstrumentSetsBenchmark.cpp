// SPDX-License-Identifier: MIT
#include "RatioReport.h"

#include <ZarnCore/instruments/sets/ZarnInstrumentSetLibrary.h>

#include <QFile>

#include <rapidjson/document.h>

#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

// What is looked up in the built-in instrument sets, against bare standard containers of the same
// keys with nothing around them: sets by name and by type, articulations of the drum kit by name,
// by the MIDI key that enters them, and by their place on the staff and key.
namespace {

using zarn::InstrumentSet;
using zarn::InstrumentSetLibrary;
using SetPointer = std::shared_ptr<const InstrumentSet>;

struct Fixture {
    InstrumentSetLibrary library;
    SetPointer kit;
    std::vector<std::string> names;
    std::vector<InstrumentSet::Type> types;
    std::vector<std::string> articulationNames;
    std::vector<int> keys;
    std::vector<std::pair<int, int>> places;

    std::unordered_map<std::string, SetPointer> byName;
    std::unordered_map<std::uint32_t, SetPointer> byType;
    std::unordered_map<std::string, int> byArticulationName;
    std::unordered_map<int, int> byKey;
    std::map<std::pair<int, int>, int> byPlace;

    Fixture()
    {
        QFile file(QStringLiteral(":/instrumentSet/ZarnInstrumentSets.json"));
        if (!file.open(QIODevice::ReadOnly))
            std::abort();
        const QByteArray text = file.readAll();
        rapidjson::Document document;
        document.Parse(text.constData(), static_cast<std::size_t>(text.size()));
        library.parse(document["instrumentSets"]);
        kit = library.findInstrumentSetWithType(InstrumentSet::drumKit);
        for (const auto &set : library.instrumentSets()) {
            names.push_back(set->name());
            types.push_back(set->type());
            byName.emplace(set->name(), set);
            byType.emplace(set->type(), set);
        }
        int index = 0;
        for (const auto &articulation : kit->articulations()) {
            articulationNames.push_back(articulation.name());
            byArticulationName.emplace(articulation.name(), index);
            places.emplace_back(articulation.staffLine(), articulation.outputMidiNumber());
            byPlace.emplace(places.back(), index);
            for (const int key : articulation.inputMidiNumbers()) {
                keys.push_back(key);
                byKey.emplace(key, index);
            }
            ++index;
        }
    }
};

const Fixture &fixture()
{
    static const Fixture instance;
    return instance;
}

/// Looks every key of a list up.
template <typename Keys, typename Find>
void lookUp(benchmark::State &state, const Keys &keys, Find find)
{
    for (auto _ : state)
        for (const auto &key : keys)
            benchmark::DoNotOptimize(find(key));
}

/// Adds a figure: a look-up of ours against that in a bare container.
template <typename Keys, typename Container, typename Find>
void add(bench::RatioReport &report, const char *name, const Keys &keys, const Container &container,
         Find find)
{
    report.compare(
        name, 2.0,
        [&](benchmark::State &state) {
            lookUp(state, keys, [&](const auto &key) { return container.find(key)->second; });
        },
        [&, find](benchmark::State &state) { lookUp(state, keys, find); });
}

} // namespace

int main(int argc, char **argv)
{
    const Fixture &data = fixture();
    bench::RatioReport report;
    add(report, "sets by name", data.names, data.byName,
        [&](const auto &name) { return data.library.findInstrumentSetWithName(name); });
    add(report, "sets by type", data.types, data.byType,
        [&](auto type) { return data.library.findInstrumentSetWithType(type); });
    add(report, "articulations by name", data.articulationNames, data.byArticulationName,
        [&](const auto &name) { return data.kit->indexOfArticulationWithName(name); });
    add(report, "articulations by MIDI key", data.keys, data.byKey,
        [&](int key) { return data.kit->indexOfArticulationWithMidi(key); });
    add(report, "articulations by line and key", data.places, data.byPlace, [&](const auto &place) {
        return data.kit->indexOfArticulationWithStaffLineAndKey(place.first, place.second);
    });
    return report.run(argc, argv);
}
