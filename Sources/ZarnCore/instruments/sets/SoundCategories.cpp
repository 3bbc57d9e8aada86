// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/sets/SoundCategories.h>

#include <ZarnCore/instruments/sets/InstrumentTypeNames.h>
#include <ZarnCore/instruments/sets/InstrumentTypeTable.h>

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
        icons.emplace(soundCategoryOf(type), detail::rowOfType(categories, type).icon);
    }
    for (const CategoryRow &row : categories)
        icons.emplace(row.path, row.icon);
    return icons;
}

} // namespace

std::string soundCategoryOf(Set::Type type)
{
    const CategoryRow &row = detail::rowOfType(categories, type);
    const bool isGroup = (type & 0xFF) == 0;
    std::string path(row.path);
    return path.empty() || isGroup ? path : path + '/' + nameOfInstrumentType(type);
}

ZarnIconID iconOfSoundCategory(const std::string &path)
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
    return detail::rowOfType(categories, Set::unknown).icon;
}

} // namespace zarn
