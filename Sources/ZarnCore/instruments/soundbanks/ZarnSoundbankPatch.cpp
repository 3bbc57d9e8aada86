// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/soundbanks/ZarnSoundbankPatch.h>

#include <ZarnCore/instruments/soundbanks/ZarnSoundCatalogue.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbank.h>
#include <ZarnCore/utils/JsonMembers.h>

#include <algorithm>

namespace zarn {

namespace {

constexpr const char *parseFunction = "zarn::SoundbankPatch::parse";

constexpr std::string_view elementName(std::string_view written) noexcept
{
    return written == "Hi-Hat" ? "Charley" : written;
}

std::shared_ptr<Soundbank> findBank(const std::string &id)
{
    const SoundCatalogue *catalogue = SoundCatalogue::installed();
    return catalogue != nullptr ? catalogue->soundbank(id) : nullptr;
}

} // namespace

std::shared_ptr<SoundbankPatch> SoundbankPatch::parse(const rapidjson::Value &value)
{
    const utils::JsonMembers json(value, parseFunction);
    auto patch = std::make_shared<SoundbankPatch>();
    patch->_id = json.text("id");
    if (patch->_id.empty())
        json.raise("member \"id\" is empty");
    patch->_name = json.text("name");
    patch->_description = json.text("description");
    patch->_instrumentSetName = json.text("instrumentSet");
    patch->_instrumentSetType = InstrumentSet::typeFromString(patch->_instrumentSetName);
    json.forEach("soundbanks", [&patch](const rapidjson::Value &element, unsigned) {
        const utils::JsonMembers bank(element, parseFunction);
        patch->_soundbanks.emplace_back(elementName(bank.text("element")), bank.text("soundbank"));
    });
    return patch;
}

const std::string &SoundbankPatch::soundbankId(std::string_view element) const noexcept
{
    static const std::string none;
    const auto found = std::find_if(
        _soundbanks.begin(), _soundbanks.end(),
        [name = elementName(element)](const auto &bank) { return bank.first == name; });
    return found != _soundbanks.end() ? found->second : none;
}

bool SoundbankPatch::installed() const
{
    return !_soundbanks.empty()
        && std::all_of(_soundbanks.begin(), _soundbanks.end(), [](const ElementBank &bank) {
               const auto found = findBank(bank.second);
               return found != nullptr && found->isUsable();
           });
}

std::shared_ptr<const GuitarPickupSet> SoundbankPatch::firstGuitarPickupSet() const
{
    for (const auto &[element, id] : _soundbanks)
        if (const auto bank = findBank(id); bank != nullptr && bank->guitarPickupSet() != nullptr)
            return bank->guitarPickupSet();
    return nullptr;
}

} // namespace zarn
