// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/sets/KitMix.h>

#include <ZarnCore/instruments/sets/InstrumentTypeTable.h>

#include <algorithm>

namespace zarn {
namespace {

struct PlaceInMix {
    Instrument::Type type;
    float volume;
    float pan;
};

/// A usual mix of a kit; groups stand behind their members. Toms are spread.
constexpr PlaceInMix mix[] = {
    {Instrument::hiHat, 0.8F, 0.35F},       {Instrument::crash, 0.85F, 0.4F},
    {Instrument::splash, 0.8F, 0.2F},       {Instrument::ride, 0.8F, -0.4F},
    {Instrument::china, 0.8F, -0.5F},       {Instrument::cymbal, 0.8F, 0.0F},
    {Instrument::kickDrum, 1.0F, 0.0F},     {Instrument::snare, 1.0F, 0.0F},
    {Instrument::drum, 0.9F, 0.0F},         {Instrument::membraphone, 0.9F, 0.25F},
    {Instrument::idiophone, 0.75F, -0.25F}, {Instrument::unknown, 1.0F, 0.0F},
};
static_assert(detail::membersStandBeforeGroups(mix));

constexpr float widestTom = 0.5F;

} // namespace

ZarnVolumePan placeInKitMix(const std::vector<InstrumentSetElement> &kit,
                            const InstrumentSetElement &element)
{
    const auto isElement = [&](const auto &own) {
        return own.name() == element.name() && own.type() == element.type();
    };
    const auto isTom = [](const auto &own) { return own.type() == Instrument::tom; };
    const auto own = std::find_if(kit.begin(), kit.end(), isElement);
    if (own == kit.end())
        return {};
    const PlaceInMix &place = detail::rowOfType(mix, element.type());
    if (!isTom(element))
        return {place.volume, place.pan};
    const auto toms = std::count_if(kit.begin(), kit.end(), isTom);
    const auto before = std::count_if(kit.begin(), own, isTom);
    const float step = toms > 1 ? 2 * widestTom / static_cast<float>(toms - 1) : 0;
    return {place.volume, toms > 1 ? widestTom - step * static_cast<float>(before) : 0};
}

} // namespace zarn
