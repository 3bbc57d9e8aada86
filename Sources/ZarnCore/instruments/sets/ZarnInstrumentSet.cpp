// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>

#include <ZarnCore/instruments/sets/InstrumentTypeTable.h>

#include <algorithm>

namespace zarn {

namespace {

constexpr detail::InstrumentTypeTable types(detail::instrumentSetTypes);
static_assert(types.hasDistinctTexts());
static_assert(types.text(0x01020209) == "nylonGuitar");
static_assert(types.code("woodblocks") == 0x0204000C);

struct Name {
    InstrumentSet::Type type;
    std::string_view name;
};

/// Names that are not the words of the text.
constexpr std::array<Name, 6> irregularNames{{
    {InstrumentSet::hiHat, "Hi-Hat"},
    {InstrumentSet::grancassa, "Gran Cassa"},
    {InstrumentSet::pitchedMembraphone, "Pitched Membranophone"},
    {InstrumentSet::membraphone, "Membranophone"},
    {InstrumentSet::bongosNCongas, "Bongos & Congas"},
    {InstrumentSet::latinoKit, "Latin Kit"},
}};

/// "nylonGuitar" as "Nylon Guitar".
std::string titleFromWord(std::string_view word)
{
    std::string title;
    for (const char letter : word) {
        const bool isCapital = letter >= 'A' && letter <= 'Z';
        if (isCapital && !title.empty())
            title += ' ';
        title += title.empty() && !isCapital ? static_cast<char>(letter - 'a' + 'A') : letter;
    }
    return title;
}

constexpr bool isInFamily(InstrumentSet::Type type, InstrumentSet::Type family) noexcept
{
    return (type & 0xFFFF0000) == family;
}

constexpr bool isInSubFamily(InstrumentSet::Type type, InstrumentSet::Type subFamily) noexcept
{
    return (type & 0xFFFFFF00) == subFamily;
}

} // namespace

std::string InstrumentSet::typeToString(Type type)
{
    return std::string(types.text(type).value_or("unknown"));
}

InstrumentSet::Type InstrumentSet::typeFromString(const std::string &text)
{
    return static_cast<Type>(types.code(text).value_or(unknown));
}

std::string InstrumentSet::typeName(Type type)
{
    const auto irregular =
        std::find_if(irregularNames.begin(), irregularNames.end(),
                     [type](const Name &candidate) { return candidate.type == type; });
    if (irregular != irregularNames.end())
        return std::string(irregular->name);
    return titleFromWord(types.text(type).value_or("unknown"));
}

bool InstrumentSet::isPitched(Type type) noexcept
{
    return (type & 0xFF000000) == pitched;
}

bool InstrumentSet::isUnpitched(Type type) noexcept
{
    return (type & 0xFF000000) == unpitched;
}

bool InstrumentSet::isElectrophone(Type type) noexcept
{
    return isInFamily(type, electrophone);
}

bool InstrumentSet::isPercussionKit(Type type) noexcept
{
    return isInFamily(type, percussionKit);
}

bool InstrumentSet::isPitchedIdiophone(Type type) noexcept
{
    return isInFamily(type, pitchedIdiophone);
}

bool InstrumentSet::isIdiophone(Type type) noexcept
{
    return isInFamily(type, idiophone);
}

bool InstrumentSet::isMembraphone(Type type) noexcept
{
    return isInFamily(type, membraphone);
}

bool InstrumentSet::isBowed(Type type) noexcept
{
    return isInSubFamily(type, bowed);
}

bool InstrumentSet::isStringed(Type type) noexcept
{
    return isInSubFamily(type, stringed);
}

bool InstrumentSet::isBrass(Type type) noexcept
{
    return isInSubFamily(type, brass);
}

bool InstrumentSet::isReed(Type type) noexcept
{
    return isInSubFamily(type, reed);
}

bool InstrumentSet::isVocal(Type type) noexcept
{
    return isInSubFamily(type, vocal);
}

bool InstrumentSet::isWoodwind(Type type) noexcept
{
    return isInSubFamily(type, woodwind);
}

bool InstrumentSet::isStringedOrBowed(Type type) noexcept
{
    return isStringed(type) || isBowed(type);
}

bool InstrumentSet::isOrchestralChordophone(Type type) noexcept
{
    return isInSubFamily(type, chordophone);
}

bool InstrumentSet::isGuitar(Type type) noexcept
{
    return type == electricGuitar || isAcousticGuitar(type);
}

bool InstrumentSet::isAcousticGuitar(Type type) noexcept
{
    return type == steelGuitar || type == nylonGuitar || type == resonatorGuitar;
}

bool InstrumentSet::isBass(Type type) noexcept
{
    return isElectricBass(type) || type == acousticBass || type == uprightBass || type == synthBass;
}

bool InstrumentSet::isElectricBass(Type type) noexcept
{
    return type == electricBass || type == fretlessBass;
}

bool InstrumentSet::isSteelGuitar(Type type) noexcept
{
    return type == steelGuitar;
}

bool InstrumentSet::isNylonGuitar(Type type) noexcept
{
    return type == nylonGuitar;
}

bool InstrumentSet::isElectricGuitar(Type type) noexcept
{
    return type == electricGuitar;
}

bool InstrumentSet::isAcousticBass(Type type) noexcept
{
    return type == acousticBass;
}

bool InstrumentSet::isUprightBass(Type type) noexcept
{
    return type == uprightBass;
}

bool InstrumentSet::isSynthBass(Type type) noexcept
{
    return type == synthBass;
}

bool InstrumentSet::isBanjo(Type type) noexcept
{
    return type == banjo;
}

bool InstrumentSet::isMandolin(Type type) noexcept
{
    return type == mandolin;
}

bool InstrumentSet::isUkulele(Type type) noexcept
{
    return type == ukulele;
}

} // namespace zarn
