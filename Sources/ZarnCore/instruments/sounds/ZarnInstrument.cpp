// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/sounds/ZarnInstrument.h>

#include <ZarnCore/instruments/sets/InstrumentTypeTable.h>

namespace zarn {

namespace {

constexpr bool isKit(std::uint32_t code)
{
    return (code & 0xFFFF0000) == InstrumentSet::percussionKit;
}

constexpr std::size_t elementCount()
{
    std::size_t count = 0;
    for (const auto &row : detail::instrumentSetTypes)
        count += isKit(row.code) ? 0 : 1;
    return count;
}

/// The sets' rows without the kits, with the two oddities of elements. The second text of a code
/// that comes first in the rows is only read, so clarinet stands before harmonica.
constexpr auto elementTypes()
{
    std::array<detail::InstrumentTypeRow, elementCount()> rows{};
    std::size_t at = 0;
    for (const auto &row : detail::instrumentSetTypes) {
        if (isKit(row.code))
            continue;
        rows[at] = row;
        if (row.code == InstrumentSet::clarinet)
            rows[at].code = Instrument::clarinet;
        if (row.code == InstrumentSet::tinkleBell)
            rows[at].text = "tinkelBell";
        ++at;
    }
    return rows;
}

constexpr detail::InstrumentTypeTable types(elementTypes());
static_assert(types.hasDistinctTexts());
static_assert(types.text(0x01010208) == "harmonica" && !types.text(0x01010206));
static_assert(types.code("clarinet") == Instrument::clarinet);
static_assert(Instrument::tom == std::uint32_t(InstrumentSet::tom)
              && Instrument::saxophone == std::uint32_t(InstrumentSet::saxophone));

constexpr InstrumentSet::Type asSetType(Instrument::Type type) noexcept
{
    return static_cast<InstrumentSet::Type>(type);
}

} // namespace

std::string Instrument::typeToString(Type type)
{
    return std::string(types.text(type).value_or("unknown"));
}

Instrument::Type Instrument::typeFromString(const std::string &text)
{
    return static_cast<Type>(types.code(text).value_or(unknown));
}

unsigned Instrument::compatibilityLevel(Type a, Type b) noexcept
{
    return detail::compatibilityOfTypes(a, b);
}

bool Instrument::isPitched(Type type) noexcept
{
    return InstrumentSet::isPitched(asSetType(type));
}

bool Instrument::isUnpitched(Type type) noexcept
{
    return InstrumentSet::isUnpitched(asSetType(type));
}

bool Instrument::isStringed(Type type) noexcept
{
    return InstrumentSet::isStringed(asSetType(type));
}

bool Instrument::isBowed(Type type) noexcept
{
    return InstrumentSet::isBowed(asSetType(type));
}

} // namespace zarn
