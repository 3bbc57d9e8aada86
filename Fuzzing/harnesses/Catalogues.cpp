// SPDX-License-Identifier: MIT
#include "Fuzzing.h"

#include <ZarnCore/instruments/sets/ZarnInstrumentSetLibrary.h>
#include <ZarnCore/instruments/sets/ZarnNotationPatch.h>
#include <ZarnCore/instruments/soundbanks/ZarnGuitarPickupSet.h>
#include <ZarnCore/instruments/soundbanks/ZarnHVSoundFont.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbank.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbankPatch.h>
#include <ZarnCore/instruments/tunings/ZarnGuitarTuningLibrary.h>
#include <ZarnCore/utils/JsonDocument.h>

namespace {

using namespace zarn;
using fuzz::expect;
using Json = rapidjson::Value;

void readTunings(const Json &json)
{
    GuitarTuningLibrary library;
    const bool isRead = fuzz::isAccepted([&] { library.parse(json); });
    const auto tunings = library.getTunings(GuitarTuningLibrary::allRoles);
    expect(isRead || tunings.empty(), "a list with a broken tuning adds none");
    for (const auto &tuning : tunings) {
        expect(GuitarTuning(*tuning) == *tuning, "a copy of a tuning is equal");
        library.tuningDisplayName(*tuning);
    }
}

void readInstrumentSets(const Json &json)
{
    InstrumentSetLibrary library;
    const bool isRead = fuzz::isAccepted([&] { library.parse(json); });
    expect(isRead || library.instrumentSets().empty(), "a list with a broken set adds none");
}

void readBank(const Json &json)
{
    const Soundbank bank(
        std::make_shared<HVSoundFont>(HVSoundFont::parse(json, "/nowhere/fuzz.zarn7bank")));
    bank.isUsable();
    bank.velocityString();
}

void readNotationPatch(const Json &json)
{
    const auto patch = NotationPatch::parse(json);
    expect(!patch->name().empty(), "a patch has a name");
}

void readSoundbankPatch(const Json &json)
{
    const auto patch = SoundbankPatch::parse(json);
    expect(!patch->id().empty(), "a patch has an id");
}

void readPickups(const Json &json)
{
    GuitarPickupSet::parse(json);
}

} // namespace

/// The input is a catalogue: JSON, read as each of the catalogues that come from files.
void fuzz::check(std::string_view input)
{
    isAccepted([&] {
        const rapidjson::Document json = utils::jsonDocument(input, "fuzz.json");
        for (const auto read : {readTunings, readInstrumentSets, readBank, readNotationPatch,
                                readSoundbankPatch, readPickups})
            isAccepted([&] { read(json); });
    });
}
