// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <rapidjson/fwd.h>

#include <string>
#include <vector>

namespace zarn {

/// The pickups of a sampled electric guitar or bass, and what the positions of its switch do.
class ZARNCORE_EXPORT GuitarPickupSet {
public:
    struct Pickup {
        /// Key, the same in every language: "neck".
        std::string id;
        /// English name for people: "Neck".
        std::string name;
    };

    struct SwitchPosition {
        std::string name;
        /// Indexes of the pickups that sound, ascending.
        std::vector<unsigned> pickups;
    };

    /// Reads an object:
    ///
    ///     {"pickups": [{"id": "neck", "name": "Neck"}, {"id": "bridge", "name": "Bridge"}],
    ///      "switch": [{"name": "Both", "pickups": ["neck", "bridge"]}]}
    ///
    /// Raises `CoreException` with the place of what is wrong.
    static GuitarPickupSet parse(const rapidjson::Value &value);

    /// From the neck to the bridge, as the pickup numbers of `PickupKnobAutomation` count them.
    const std::vector<Pickup> &pickups() const noexcept { return _pickups; }

    /// In the order of the switch; `OrkaSound::switchPosition` is an index of it.
    const std::vector<SwitchPosition> &switchPositions() const noexcept { return _switchPositions; }

private:
    std::vector<Pickup> _pickups;
    std::vector<SwitchPosition> _switchPositions;
};

} // namespace zarn
