// SPDX-License-Identifier: MIT
#include <ZarnCore/model/ZarnBarAttribute.h>

#include <ZarnCore/model/AttributeRows.h>
#include <ZarnCore/model/attributes/ZarnLayoutRatio.h>

namespace zarn {

namespace {

using Id = BarAttribute;

/// Numbers of the published events.
constexpr unsigned clefChanged = 28;
constexpr unsigned contentChanged = 55;
constexpr unsigned simileChanged = 58;
constexpr unsigned ratiosChanged = 108;

template <auto Get, auto Set>
constexpr BarAttributeRow row(Id id, std::string_view name, std::string_view key,
                              const AttributeRange &range, unsigned event, Split split)
{
    auto row = rowOf<BarAttributeRow, Get, Set>(id, name, key, range);
    row.event = event;
    row.split = split;
    return row;
}

constexpr std::array<BarAttributeRow, BarAttributeCount> rows = {{
    row<&Bar::clef, &Bar::setClef>(Id::Clef, "Clef", "", enumerators<clefToString, 5>(),
                                   clefChanged, Split::All),
    row<&Bar::clefChanges, &Bar::setClefChanges>(Id::ClefChanges, "ClefChanges", "",
                                                 anyOf<std::vector<ClefChange>>(), clefChanged,
                                                 Split::Cut),
    row<&Bar::ottavia, &Bar::setOttavia>(
        Id::Ottavia, "Ottavia", "", enumerators<ottaviaToString, 4>(), contentChanged, Split::All),
    row<&Bar::simileMark, &Bar::setSimileMark>(Id::SimileMark, "SimileMark", "",
                                               enumerators<simileMarkToString, 34>(), simileChanged,
                                               Split::First),
    row<&Bar::layoutRatio, &Bar::setLayoutRatio>(
        Id::LayoutRatio, "LayoutRatio", "layoutRatio",
        reals(static_cast<double>(lowestLayoutRatio), static_cast<double>(highestLayoutRatio)),
        ratiosChanged, Split::All),
}};
static_assert(areInOrder(rows));

} // namespace

const std::array<BarAttributeRow, BarAttributeCount> &barAttributes() noexcept
{
    return rows;
}

} // namespace zarn
