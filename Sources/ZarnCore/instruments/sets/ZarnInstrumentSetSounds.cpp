// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>

#include <ZarnCore/instruments/sets/InstrumentTypeTable.h>

#include <algorithm>
#include <map>
#include <string_view>

namespace zarn {
namespace {

using Set = InstrumentSet;
using Icon = ZarnIconID;

struct CategoryRow {
    Set::Type type;
    /// Folder of the group, in which its members lie.
    std::string_view path;
    Icon icon;
};

// Icons agree with those of new tracks. Groups stand behind their members.
// clang-format off
constexpr CategoryRow categories[] = {
    {Set::steelGuitar, "Stringed/Acoustic Guitars", Icon::SteelGuitar},
    {Set::nylonGuitar, "Stringed/Acoustic Guitars", Icon::AcousticGuitarClassical},
    {Set::resonatorGuitar, "Stringed/Acoustic Guitars", Icon::AcousticGuitarFolk},
    {Set::electricGuitar, "Stringed/Electric Guitars", Icon::ElectricGuitar},
    {Set::electricSitar, "Stringed/Electric Guitars", Icon::ElectricGuitar},
    {Set::electricBass, "Stringed/Basses", Icon::ElectricBass},
    {Set::fretlessBass, "Stringed/Basses", Icon::ElectricBass},
    {Set::synthBass, "Stringed/Basses", Icon::ElectricBass},
    {Set::acousticBass, "Stringed/Basses", Icon::UprightBass},
    {Set::uprightBass, "Stringed/Basses", Icon::UprightBass},
    {Set::banjo, "Stringed/Folk Instruments", Icon::Banjo},
    {Set::mandolin, "Stringed/Folk Instruments", Icon::Mandolin},
    {Set::ukulele, "Stringed/Folk Instruments", Icon::Ukulele},
    {Set::stringed, "Stringed", Icon::AcousticGuitar},

    {Set::bowed, "Orchestra/Strings", Icon::Bowed},
    {Set::brass, "Orchestra/Brass", Icon::Brass},
    {Set::accordion, "Keyboards/Accordions", Icon::Reed},
    {Set::bandoneon, "Keyboards/Accordions", Icon::Reed},
    {Set::pipeOrgan, "Keyboards/Organs", Icon::Reed},
    {Set::reed, "Orchestra/Reeds", Icon::Reed},
    {Set::vocal, "Voices", Icon::Vocal},
    {Set::woodwind, "Orchestra/Woodwinds", Icon::Woodwind},
    {Set::aerophone, "Orchestra", Icon::Woodwind},
    {Set::harp, "Orchestra/Harps", Icon::Piano},
    {Set::harpsichord, "Keyboards/Harpsichords", Icon::Piano},
    {Set::chordophone, "Keyboards/Pianos", Icon::Piano},
    {Set::electricOrgan, "Keyboards/Organs", Icon::Piano},
    {Set::bassSynthesizer, "Synthesizers", Icon::Synthesizer},
    {Set::electrophone, "Synthesizers", Icon::Synthesizer},
    {Set::pitchedIdiophone, "Percussion/Mallets", Icon::PitchedIdiophone},
    {Set::pitchedMembraphone, "Percussion/Timpani", Icon::PitchedIdiophone},
    {Set::pitched, "Keyboards", Icon::Piano},

    {Set::percussionKit, "Percussion/Kits", Icon::PercussionKit},
    {Set::cymbal, "Percussion/Cymbals", Icon::Idiophone},
    {Set::idiophone, "Percussion/Hand Percussion", Icon::Idiophone},
    {Set::membraphone, "Percussion/Drums", Icon::Membraphone},
    {Set::unpitched, "Percussion", Icon::PercussionKit},
    {Set::unknown, "", Icon::SteelGuitar},
};
// clang-format on
static_assert(detail::membersStandBeforeGroups(categories));

using IconsByPath = std::map<std::string, Icon, std::less<>>;

/// Icons of all categories and of the folders that they lie in. A folder that is no group has the
/// icon of its first member.
IconsByPath iconsByPath()
{
    IconsByPath icons;
    for (const auto &row : detail::instrumentSetTypes) {
        const auto type = static_cast<Set::Type>(row.code);
        icons.emplace(Set::soundCategoryFallback(type), detail::rowOfType(categories, type).icon);
    }
    for (const CategoryRow &row : categories)
        icons.emplace(row.path, row.icon);
    return icons;
}

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

unsigned InstrumentSet::compatibilityLevel(Type a, Type b) noexcept
{
    return detail::compatibilityOfTypes(a, b);
}

std::string InstrumentSet::soundCategoryFallback(Type type)
{
    const CategoryRow &row = detail::rowOfType(categories, type);
    const bool isGroup = (type & 0xFF) == 0;
    std::string path(row.path);
    return path.empty() || isGroup ? path : path + '/' + typeName(type);
}

ZarnIconID InstrumentSet::soundCategoryToIconID(const std::string &path)
{
    static const IconsByPath icons = iconsByPath();
    std::string_view rest = path;
    while (!rest.empty()) {
        const auto found = icons.find(rest);
        if (found != icons.end())
            return found->second;
        const auto slash = rest.rfind('/');
        rest = rest.substr(0, slash == rest.npos ? 0 : slash);
    }
    return detail::rowOfType(categories, unknown).icon;
}

ZarnVolumePan InstrumentSet::volumePanFromElement(const InstrumentSetElement &element) const
{
    const auto isElement = [&](const auto &own) {
        return own.name() == element.name() && own.type() == element.type();
    };
    const auto isTom = [](const auto &own) { return own.type() == Instrument::tom; };
    const auto own = std::find_if(_elements.begin(), _elements.end(), isElement);
    if (own == _elements.end() || !isPercussionKit())
        return {};
    const PlaceInMix &place = detail::rowOfType(mix, element.type());
    if (!isTom(element))
        return {place.volume, place.pan};
    const auto toms = std::count_if(_elements.begin(), _elements.end(), isTom);
    const auto before = std::count_if(_elements.begin(), own, isTom);
    const float step = toms > 1 ? 2 * widestTom / static_cast<float>(toms - 1) : 0;
    return {place.volume, toms > 1 ? widestTom - step * static_cast<float>(before) : 0};
}

} // namespace zarn
