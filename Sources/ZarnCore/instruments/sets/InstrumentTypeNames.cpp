// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/sets/InstrumentTypeNames.h>

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

} // namespace

std::string textOfInstrumentType(InstrumentSet::Type type)
{
    return std::string(types.text(type).value_or("unknown"));
}

InstrumentSet::Type instrumentTypeFromText(const std::string &text)
{
    return static_cast<InstrumentSet::Type>(types.code(text).value_or(InstrumentSet::unknown));
}

std::string nameOfInstrumentType(InstrumentSet::Type type)
{
    const auto irregular =
        std::find_if(irregularNames.begin(), irregularNames.end(),
                     [type](const Name &candidate) { return candidate.type == type; });
    if (irregular != irregularNames.end())
        return std::string(irregular->name);
    return titleFromWord(types.text(type).value_or("unknown"));
}

} // namespace zarn
