// SPDX-License-Identifier: MIT
#include "CatalogueReading.h"

#include <ZarnCore/instruments/sets/ZarnInstrumentSetLibrary.h>
#include <ZarnCore/instruments/sets/ZarnNotationPatch.h>
#include <ZarnCore/instruments/soundbanks/ZarnHVSoundFont.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbankPatch.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbankPatchReplacement.h>

#include <algorithm>
#include <set>

namespace zarn::resources {

namespace {

/// "x.zarn7bank" for "x": a file is named by what it holds.
void checkFileName(const CatalogueFile &file, const std::string &id, const std::string &suffix,
                   Complaints &complaints)
{
    const std::string name = file.name.substr(file.name.find_last_of('/') + 1);
    if (name != id + suffix)
        complaints.push_back("holds \"" + id + "\", so its name is to be \"" + id + suffix + "\"");
}

class SoundCheck {
public:
    explicit SoundCheck(const InstrumentSetLibrary &sets) : _sets(sets) { }

    void readBank(const CatalogueFile &file)
    {
        readCatalogue(file, _complaints, [&](const rapidjson::Document &document) {
            const HVSoundFont bank = HVSoundFont::parse(document, file.name);
            checkFileName(file, bank.id(), ".zarn7bank", _complaints);
            if (bank.instrumentType() == Instrument::unknown)
                _complaints.push_back("there is no instrument \"" + bank.instrument() + "\"");
            if (!_banks.insert(bank.id()).second)
                _complaints.push_back("there is another bank \"" + bank.id() + "\"");
        });
    }

    void readPatch(const CatalogueFile &file)
    {
        readCatalogue(file, _complaints, [&](const rapidjson::Document &document) {
            const auto patch = SoundbankPatch::parse(document);
            allowOnly(document, {"id", "name", "description", "instrumentSet", "soundbanks"},
                      "patch", _complaints);
            checkFileName(file, patch->id(), ".json", _complaints);
            if (!_patches.emplace(patch->id(), patch).second)
                _complaints.push_back("there is another patch \"" + patch->id() + "\"");
            checkBanks(*patch);
        });
    }

    void readNotationPatch(const CatalogueFile &file)
    {
        readCatalogue(file, _complaints, [&](const rapidjson::Document &document) {
            const auto patch = NotationPatch::parse(document);
            checkFileName(file, patch->name(), ".json", _complaints);
            if (!_notationPatches.insert(patch->name()).second)
                _complaints.push_back("there is another notation patch \"" + patch->name() + "\"");
            const auto &types = patch->instrumentSetTypes();
            if (std::find(types.begin(), types.end(), InstrumentSet::unknown) != types.end())
                _complaints.push_back("\"instrumentSets\" names a category that there is not");
        });
    }

    void checkReplacements()
    {
        for (const auto &[id, replacement] : soundbankPatchReplacements())
            if (resolveSoundbankPatch(_patches, id) == nullptr)
                _complaints.push_back("there is no patch for the identifier \"" + id
                                      + "\", not even \"" + replacement + "\"");
    }

    Complaints takeComplaints() { return std::move(_complaints); }

private:
    void checkBanks(const SoundbankPatch &patch)
    {
        const auto set = _sets.findInstrumentSetWithType(patch.instrumentSetType());
        if (!set) {
            _complaints.push_back("there is no instrument set \"" + patch.instrumentSetName()
                                  + "\"");
            return;
        }
        for (const auto &[element, bank] : patch.soundbanks()) {
            if (_banks.count(bank) == 0)
                _complaints.push_back("there is no bank \"" + bank + "\"");
            const auto &elements = set->elements();
            if (std::none_of(elements.begin(), elements.end(),
                             [&name = element](const InstrumentSetElement &known) {
                                 return known.name() == name;
                             }))
                _complaints.push_back("\"" + patch.instrumentSetName() + "\" has no element \""
                                      + element + "\"");
        }
    }

    const InstrumentSetLibrary &_sets;
    Complaints _complaints;
    std::set<std::string> _banks;
    std::set<std::string> _notationPatches;
    SoundbankPatches _patches;
};

} // namespace

Complaints checkSounds(const SoundFiles &files)
{
    Complaints unread;
    InstrumentSetLibrary sets;
    readCatalogue(files.instrumentSets, unread, [&](const rapidjson::Document &document) {
        sets.parse(arrayOf(document, "instrumentSets"));
    });
    if (!unread.empty())
        return unread;
    SoundCheck check(sets);
    for (const CatalogueFile &file : files.banks)
        check.readBank(file);
    for (const CatalogueFile &file : files.patches)
        check.readPatch(file);
    for (const CatalogueFile &file : files.notationPatches)
        check.readNotationPatch(file);
    check.checkReplacements();
    return check.takeComplaints();
}

} // namespace zarn::resources
