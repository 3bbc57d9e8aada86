// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/soundbanks/ZarnGuitarPickupSet.h>

#include <ZarnCore/utils/JsonMembers.h>

#include <algorithm>

namespace zarn {

namespace {

constexpr const char *parseFunction = "zarn::GuitarPickupSet::parse";

unsigned indexOfPickup(const std::vector<GuitarPickupSet::Pickup> &pickups, std::string_view id)
{
    const auto found = std::find_if(pickups.begin(), pickups.end(),
                                    [id](const auto &pickup) { return pickup.id == id; });
    if (found == pickups.end())
        throw utils::JsonError({}, "is no pickup of the set", parseFunction);
    return static_cast<unsigned>(found - pickups.begin());
}

} // namespace

GuitarPickupSet GuitarPickupSet::parse(const rapidjson::Value &value)
{
    using rapidjson::Value;
    GuitarPickupSet set;
    const utils::JsonMembers json(value, parseFunction);
    json.forEach("pickups", [&set](const Value &element, unsigned) {
        const utils::JsonMembers pickup(element, parseFunction);
        set._pickups.push_back({std::string(pickup.text("id")), std::string(pickup.text("name"))});
    });
    json.forEach("switch", [&set](const Value &element, unsigned) {
        const utils::JsonMembers position(element, parseFunction);
        SwitchPosition read;
        read.name = position.text("name");
        position.forEach("pickups", [&](const Value &id, unsigned) {
            read.pickups.push_back(indexOfPickup(set._pickups, utils::jsonText(id, parseFunction)));
        });
        std::sort(read.pickups.begin(), read.pickups.end());
        set._switchPositions.push_back(std::move(read));
    });
    return set;
}

} // namespace zarn
