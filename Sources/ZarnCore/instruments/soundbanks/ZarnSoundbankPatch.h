// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>

#include <rapidjson/fwd.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zarn {

class GuitarPickupSet;

/// Which banks play the elements of an instrument set: a whole guitar, a whole drum kit.
///
/// The hi-hat of kits goes by the name "Charley"; "Hi-Hat" is understood wherever an element is
/// named.
class ZARNCORE_EXPORT SoundbankPatch {
public:
    /// Folder of the built-in patches in the library's resources, one JSON file each.
    static constexpr const char *builtInFolder = ":/soundbankPatches";

    /// Element name and bank id.
    using ElementBank = std::pair<std::string, std::string>;

    /// Reads a patch; never null:
    ///
    ///     {"id": "Strat-Guitar", "name": "...", "description": "...",
    ///      "instrumentSet": "electricGuitar",
    ///      "soundbanks": [{"element": "Pitched", "soundbank": "Strat-Guitar"}]}
    ///
    /// All members are needed, and the id is not empty. Raises `CoreException` with the place of
    /// what is wrong. A category that is unknown here reads as `InstrumentSet::unknown`.
    static std::shared_ptr<SoundbankPatch> parse(const rapidjson::Value &value);

    const std::string &id() const noexcept { return _id; }
    const std::string &name() const noexcept { return _name; }
    const std::string &description() const noexcept { return _description; }

    /// Text of the set's category as the patch has it: "electricGuitar".
    const std::string &instrumentSetName() const noexcept { return _instrumentSetName; }
    InstrumentSet::Type instrumentSetType() const noexcept { return _instrumentSetType; }

    /// In the order of the patch.
    const std::vector<ElementBank> &soundbanks() const noexcept { return _soundbanks; }

    /// Id of the bank that plays an element; empty when there is none.
    const std::string &soundbankId(std::string_view element) const noexcept;

    /// It has banks, and the installed `SoundCatalogue` knows each of them with its samples.
    bool installed() const;

    /// Of the first bank that has pickups; null without one or without an installed catalogue.
    std::shared_ptr<const GuitarPickupSet> firstGuitarPickupSet() const;

    bool isPitched() const noexcept { return InstrumentSet::isPitched(_instrumentSetType); }
    bool isUnpitched() const noexcept { return InstrumentSet::isUnpitched(_instrumentSetType); }

private:
    std::string _id;
    std::string _name;
    std::string _description;
    std::string _instrumentSetName;
    InstrumentSet::Type _instrumentSetType = InstrumentSet::unknown;
    std::vector<ElementBank> _soundbanks;
};

} // namespace zarn
