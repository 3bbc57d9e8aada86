// SPDX-License-Identifier: MIT
#include <ZarnCore/model/attributes/ZarnWhammyBar.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/model/attributes/TypedCurve.h>

namespace zarn {

WhammyBar WhammyBar::of(WhammyBarType type, int amount, int from)
{
    ZARN_ASSERT_IN("zarn::WhammyBar::of", amount >= Lowest && amount <= Highest);
    ZARN_ASSERT_IN("zarn::WhammyBar::of", from >= Lowest && from <= Highest);
    const auto v = static_cast<std::int16_t>(amount);
    switch (type) {
    case WhammyBarType::Dive:
        return {type, {{0, 0}, {60, v}}};
    case WhammyBarType::Dip:
        return {type, {{0, 0}, {15, v}, {30, 0}, {60, 0}}};
    case WhammyBarType::HoldWhammyBar:
    case WhammyBarType::PreDive:
        return {type, {{0, v}, {60, v}}};
    case WhammyBarType::PreDiveNDive:
        return {type, {{0, static_cast<std::int16_t>(from)}, {60, v}}};
    case WhammyBarType::NoWhammyBar:
        break;
    }
    return {};
}

WhammyBar WhammyBar::of(WhammyBarType type)
{
    if (type == WhammyBarType::PreDiveNDive)
        return of(type, 0, -4);
    return of(type, type == WhammyBarType::Dip ? -2 : -4);
}

bool WhammyBar::isValid() const noexcept
{
    return type <= WhammyBarType::PreDiveNDive
        && (type == WhammyBarType::NoWhammyBar) == curve.isEmpty()
        && curve.isWithin(Lowest, Highest);
}

std::string WhammyBar::toString() const
{
    return typedCurveText<whammyBarTypeToString>(*this);
}

std::optional<WhammyBar> WhammyBar::fromString(std::string_view text)
{
    return typedCurveFromText<whammyBarTypeToString, whammyBarTypeFromString, WhammyBar>(text);
}

} // namespace zarn
